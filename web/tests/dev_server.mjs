// Serves build/web/site to this computer: node dev_server.mjs [PORT] [--native]. With --native tavplan of this computer
// (TAVPLAN) stands in for the core, so that the page can be worked on without building that.
import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import { dirname, extname, join, normalize } from "node:path";
import { fileURLToPath } from "node:url";
import { NativeCore } from "./native_core.mjs";

const root = join(dirname(fileURLToPath(import.meta.url)), "../..");
const types = {
  ".html": "text/html; charset=utf-8",
  ".js": "text/javascript",
  ".css": "text/css",
  ".json": "application/json",
  ".svg": "image/svg+xml",
  ".wasm": "application/wasm",
  ".webmanifest": "application/manifest+json",
};

const bridge = `export default async () => {
  const files = new Map();
  const inner = (path) => path.replace(/^\\/plans\\//, "");
  return {
    FS: {
      writeFile: (path, data) => files.set(inner(path), typeof data === "string" ? data : new TextDecoder().decode(data)),
      readFile: (path) => files.get(inner(path)),
      readdir: () => [".", "..", ...files.keys()],
      chmod: () => {},
      unlink: (path) => files.delete(inner(path)),
    },
    run: (args) => {
      const request = new XMLHttpRequest();
      request.open("POST", "run", false);
      request.send(JSON.stringify({ args, files: Object.fromEntries(files) }));
      const reply = JSON.parse(request.responseText);
      for (const [name, text] of Object.entries(reply.files)) files.set(name, text);
      return reply;
    },
  };
};`;

/** Port 0 takes any that is free. */
export function serve({ port = 0, native = false, site = process.env.TAV_SITE ?? join(root, "build/web/site") } = {}) {
  const core = new NativeCore();
  const server = createServer(async (request, response) => {
    const send = (status, type, body) => response.writeHead(status, { "content-type": type }).end(body);
    const path = normalize(new URL(request.url, "http://localhost").pathname);
    if (native && path === "/core.js") return send(200, types[".js"], bridge);
    if (native && path === "/run" && request.method === "POST") {
      let body = "";
      for await (const piece of request) body += piece;
      return send(200, "application/json", JSON.stringify(await core.run(JSON.parse(body))));
    }
    try {
      const file = path === "/" ? "/index.html" : path;
      send(200, types[extname(file)] ?? "application/octet-stream", readFileSync(join(site, file)));
    } catch {
      send(404, "text/plain", "not found");
    }
  });
  return new Promise((resolve) => server.listen(port, "127.0.0.1", () => resolve(server)));
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const port = Number(process.argv.find((each) => /^\d+$/.test(each)) ?? 8123);
  await serve({ port, native: process.argv.includes("--native") });
  console.log(`port ${port}`);
}
