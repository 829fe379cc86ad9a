// Builds the page into build/web/site: scripts, styles, icons, the core beside them, and the worker that keeps all of
// it for use without a network.
import { createHash } from "node:crypto";
import { copyFileSync, existsSync, mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

const here = dirname(fileURLToPath(import.meta.url));
const root = join(here, "..");
const site = process.env.TAV_SITE ?? join(root, "build/web/site");
const core = process.env.TAV_CORE ?? join(root, "build/web/core");
const version = /project\(TAV VERSION ([\d.]+)/.exec(readFileSync(join(root, "CMakeLists.txt"), "utf8"))[1];

rmSync(site, { recursive: true, force: true });
mkdirSync(site, { recursive: true });

await build({
  entryPoints: { app: join(here, "page/src/app.tsx"), worker: join(here, "page/src/core/worker.ts") },
  outdir: site,
  bundle: true,
  format: "esm",
  target: "es2022",
  minify: true,
  legalComments: "none",
  external: ["./core.js"],
  define: { TAV_VERSION: JSON.stringify(version), TAV_BUILD: '"@build@"' },
  jsx: "automatic",
  jsxImportSource: "preact",
});

for (const name of readdirSync(join(here, "page/static"))) copyFileSync(join(here, "page/static", name), join(site, name));
// The core as it was compiled, and the texts, templates and plans that it reads.
copyFileSync(join(here, "core/core.mjs"), join(site, "core.js"));
for (const name of ["tavplan.js", "tavplan.wasm"]) {
  if (existsSync(join(core, name))) copyFileSync(join(core, name), join(site, name));
}
const texts = {};
for (const [folder, ending] of [["lang", /\.dll$/], ["template", /\.tpl$/], ["dives", /\.tav$/]]) {
  for (const name of readdirSync(join(root, folder)).filter((name) => ending.test(name)).sort()) {
    texts[`${folder}/${name}`] = readFileSync(join(root, folder, name), "utf8");
  }
}
writeFileSync(join(site, "core_files.json"), JSON.stringify(texts));

// One hash of all files. Those of a build ask for each other by it, so that no cache mixes two builds.
const files = readdirSync(site).sort();
const sum = createHash("sha256");
for (const name of files) sum.update(name).update(readFileSync(join(site, name)));
const hash = sum.digest("hex").slice(0, 16);
for (const name of ["app.js", "worker.js", "index.html"]) {
  writeFileSync(join(site, name), readFileSync(join(site, name), "utf8").replaceAll("@build@", hash));
}
const asked = (name) => (/\.(js|css|wasm|json)$/.test(name) ? `${name}?v=${hash}` : name);
const worker = readFileSync(join(here, "page/src/sw.js"), "utf8");
writeFileSync(
  join(site, "sw.js"),
  worker.replace('"@files@"', JSON.stringify(["./", ...files.map(asked)])).replace("@hash@", `${version}-${hash}`),
);
console.log(`${site}: ${files.length + 1} files`);
