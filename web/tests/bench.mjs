// How long the core takes in JavaScript, beside the program of the terminal (which starts anew for each call).
import { spawnSync } from "node:child_process";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { performance } from "node:perf_hooks";
import { loadCore, root } from "./core.mjs";

const native = process.env.TAVPLAN ?? join(root, "build/release/bin/tavplan");
const dives = join(root, "dives");

function median(times, call) {
  const taken = [];
  for (let i = 0; i < times; ++i) {
    const start = performance.now();
    call();
    taken.push(performance.now() - start);
  }
  return taken.sort((a, b) => a - b)[times >> 1];
}

const start = performance.now();
const core = await loadCore();
const loaded = performance.now();
for (const file of ["wreck.tav", "trimix-100.tav"]) core.FS.writeFile(`/plans/${file}`, readFileSync(join(dives, file)));
core.run(["plan", "wreck.tav", "--json"]);
console.log(`load ${(loaded - start).toFixed(0)} ms, the first schedule ${(performance.now() - loaded).toFixed(0)} ms later`);

const table = [];
for (const [times, args] of [
  [200, ["plan", "trimix-100.tav"]],
  [200, ["plan", "trimix-100.tav", "--json", "--shown"]],
  [100, ["edit", "trimix-100.tav", "--leg", "1=100:16", "--json"]],
  [50, ["whatif", "trimix-100.tav", "--json", "--shown"]],
  [5, ["margins", "wreck.tav", "--json"]],
]) {
  const web = median(times, () => core.run(args));
  const there = median(Math.min(times, 20), () => spawnSync(native, args, { cwd: dives, maxBuffer: 1 << 28 }));
  table.push({ command: args.join(" "), "web ms": +web.toFixed(2), "native ms, with its start": +there.toFixed(2) });
}
console.table(table);
