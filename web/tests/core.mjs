// The core of the built page, in node.
import { readFile } from "node:fs/promises";
import { dirname, join } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

export const root = join(dirname(fileURLToPath(import.meta.url)), "../..");

export async function loadCore() {
  const site = process.env.TAV_SITE ?? join(root, "build/web/site");
  const { default: createCore } = await import(pathToFileURL(join(site, "core.js")).href);
  return createCore({ read: (name) => readFile(join(site, name)) });
}
