// Whether TAV opens here without a network.
export type Offline = "kept" | "refused" | "unknown";

export async function keepOffline(): Promise<Offline> {
  if (!("serviceWorker" in navigator) || !window.isSecureContext) return "refused";
  try {
    const { installing } = await navigator.serviceWorker.register("sw.js");
    // A browser without room for the files gives up on them.
    const givenUp = new Promise<Offline>((resolve) =>
      installing?.addEventListener("statechange", () => installing.state === "redundant" && resolve("refused")),
    );
    return await Promise.race([givenUp, navigator.serviceWorker.ready.then((): Offline => "kept")]);
  } catch {
    return "refused";
  }
}
