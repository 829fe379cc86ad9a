// Keeps the files of one build, all or none, so that TAV opens without a network. The name of the store changes with
// any file of the build. A newer build waits until no window is open on the one before, or until a window takes it over.
const STORE = "tav-@hash@";
const FILES = "@files@";

self.addEventListener("install", (event) => {
  const fresh = FILES.map((file) => new Request(file, { cache: "reload" }));
  event.waitUntil(caches.open(STORE).then((store) => store.addAll(fresh)));
});

self.addEventListener("message", (event) => {
  if (event.data === "take over") void self.skipWaiting();
});

self.addEventListener("activate", (event) => {
  const tidy = async () => {
    for (const name of await caches.keys()) if (name.startsWith("tav-") && name !== STORE) await caches.delete(name);
  };
  event.waitUntil(tidy());
});

self.addEventListener("fetch", (event) => {
  if (event.request.method !== "GET" || new URL(event.request.url).origin !== self.location.origin) return;
  const answer = async () => {
    const store = await caches.open(STORE);
    // The page itself is of this build whatever its address asks for; its files are so by their query alone.
    const ignoreSearch = event.request.mode === "navigate";
    return (await store.match(event.request, { ignoreSearch })) ?? fetch(event.request);
  };
  event.respondWith(answer());
});
