// Holds the core. Every call brings its files and takes those that it wrote with it; nothing stays behind.
import type { Call, Reply } from "./client";

interface CoreFiles {
  writeFile(path: string, data: string | Uint8Array): void;
  readFile(path: string, options: { encoding: "utf8" }): string;
  readdir(path: string): string[];
  chmod(path: string, mode: number): void;
  unlink(path: string): void;
}
interface WasmCore {
  run(args: string[]): { status: number; out: string; err: string };
  FS: CoreFiles;
}

const FOLDER = "/plans/";
declare const TAV_BUILD: string;
// Not known when this is bundled: the core is built apart and lies beside the page.
const CORE = `./core.js?v=${TAV_BUILD}`;
const load = async (): Promise<WasmCore> => {
  // A server may have a newer build by now than that of the page.
  if (new URL(import.meta.url).searchParams.get("v") !== TAV_BUILD) throw new Error("another build: load the page anew");
  const { default: createCore } = (await import(CORE)) as { default: () => Promise<WasmCore> };
  return createCore();
};
const loaded = load();
loaded.catch(() => undefined);

function answer(core: WasmCore, call: Call): Reply {
  const given = call.files ?? {};
  for (const [name, data] of Object.entries(given)) core.FS.writeFile(FOLDER + name, data);
  try {
    const { status, out, err } = core.run(call.args);
    const files: Record<string, string> = {};
    for (const name of core.FS.readdir(FOLDER)) {
      if (name.startsWith(".")) continue;
      // What the core saves has the rights of a user that this file system does not know.
      core.FS.chmod(FOLDER + name, 0o600);
      const text = core.FS.readFile(FOLDER + name, { encoding: "utf8" });
      if (given[name] !== text) files[name] = text;
    }
    return { status, out, err, files };
  } finally {
    for (const name of core.FS.readdir(FOLDER)) if (!name.startsWith(".")) core.FS.unlink(FOLDER + name);
  }
}

const port = self as unknown as {
  onmessage: ((event: MessageEvent<{ id: number; call: Call }>) => void) | null;
  postMessage(message: unknown): void;
};
port.onmessage = async ({ data: { id, call } }) => {
  try {
    port.postMessage({ id, reply: answer(await loaded, call) });
  } catch (error) {
    port.postMessage({ id, failure: String(error) });
  }
};
