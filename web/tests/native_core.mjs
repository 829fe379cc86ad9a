// The core as a program of this computer, called as the page calls it in the browser: each call in a folder of its own.
import { spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const root = join(dirname(fileURLToPath(import.meta.url)), "../..");
const tavplan = process.env.TAVPLAN ?? join(root, "build/release/bin/tavplan");

/** What comes with the core stands under /tav there. */
const place = (argument) => (argument.startsWith("/tav/") ? join(root, argument.slice("/tav/".length)) : argument);

export class NativeCore {
  async run({ args, files = {} }) {
    const folder = mkdtempSync(join(tmpdir(), "tav-"));
    try {
      for (const [name, data] of Object.entries(files)) writeFileSync(join(folder, name), data);
      const done = spawnSync(tavplan, args.map(place), { cwd: folder, encoding: "utf8", maxBuffer: 1 << 28 });
      const written = {};
      for (const name of readdirSync(folder)) {
        const text = readFileSync(join(folder, name), "utf8");
        if (files[name] !== text) written[name] = text;
      }
      return {
        status: done.status ?? 2,
        out: done.stdout ?? "",
        err: done.stderr ?? String(done.error),
        files: written,
      };
    } finally {
      rmSync(folder, { recursive: true, force: true });
    }
  }
}
