// Keeps the files of one build, all or none, so that TAV opens without a network. The name of the store changes with
// any file of the build; the one before stays until this one is complete.
const STORE = "tav-@hash@";
const FILES = "@files@";

self.addEventListener("install", (event) => {
  const fresh = FILES.map((file) => new Request(file, { cache: "reload" }));
  event.waitUntil(caches.open(STORE).then((store) => store.addAll(fresh)));
});

self.addEventListener("activate", (event) => {
  const tidy = async () => {
    for (const name of await caches.keys()) if (name.startsWith("tav-") && name !== STORE) await caches.delete(name);
    await self.clients.claim();
  };
  event.waitUntil(tidy());
});

self.addEventListener("fetch", (event) => {
  if (event.request.method !== "GET" || new URL(event.request.url).origin !== self.location.origin) return;
  const answer = async () => {
    const store = await caches.open(STORE);
    return (await store.match(event.request, { ignoreSearch: true })) ?? fetch(event.request);
  };
  event.respondWith(answer());
});
