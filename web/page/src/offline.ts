// Whether TAV opens here without a network, and whether a newer version of it has come.
export type Offline = "kept" | "refused" | "unknown";

/** `updated` gets what puts a newer version in the place of this one, once that is complete. */
export async function keepOffline(updated: (takeOver: () => void) => void): Promise<Offline> {
  if (!("serviceWorker" in navigator) || !window.isSecureContext) return "refused";
  try {
    const registration = await navigator.serviceWorker.register("sw.js");
    const { installing } = registration;
    const tell = (worker: ServiceWorker | null) => {
      // Without one that is at work, this is the first visit.
      if (!worker || !registration.active) return;
      updated(() => {
        worker.addEventListener("statechange", () => worker.state === "activated" && location.reload());
        if (worker.state === "activated") location.reload();
        else worker.postMessage("take over");
      });
    };
    const watch = () => {
      const worker = registration.installing;
      worker?.addEventListener("statechange", () => worker.state === "installed" && tell(worker));
    };
    tell(registration.waiting);
    watch();
    registration.addEventListener("updatefound", watch);
    // Another window has taken the newer version over.
    const before = navigator.serviceWorker.controller;
    navigator.serviceWorker.addEventListener("controllerchange", () => before && updated(() => location.reload()));
    // A browser without room for the files gives up on them.
    const givenUp = new Promise<Offline>((resolve) =>
      installing?.addEventListener(
        "statechange",
        () => installing.state === "redundant" && !registration.active && resolve("refused"),
      ),
    );
    return await Promise.race([givenUp, navigator.serviceWorker.ready.then((): Offline => "kept")]);
  } catch {
    return "refused";
  }
}
