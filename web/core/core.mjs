// The core in JavaScript: `tavplan` on files in memory, one call a command.
const kFolders = ['/tav/lang', '/tav/template', '/tav/dives', '/home/tav', '/plans'];

/** A file beside this one, of the same build: the query of its address tells that. */
const beside = (name) => new URL(name + new URL(import.meta.url).search, import.meta.url);

async function fetched(name) {
  const answer = await fetch(beside(name));
  if (!answer.ok) throw new Error(`${name}: ${answer.status} ${answer.statusText}`);
  return new Uint8Array(await answer.arrayBuffer());
}

/**
 * Makes a core. `read` gives the bytes of a file that lies beside this one, by its name.
 * Answers {run, FS}: run(["plan", "a.tav", "--json"]) gives {status, out, err}; FS holds the files, with /plans as the
 * working folder, the texts, templates and example plans in /tav.
 */
export default async function createCore({ read = fetched } = {}) {
  const [{ default: createModule }, wasmBinary, files] = await Promise.all([
    import(beside('tavplan.js')),
    read('tavplan.wasm'),
    read('core_files.json'),
  ]);
  const module = await createModule({ wasmBinary });
  const { FS } = module;
  for (const folder of kFolders) FS.mkdirTree(folder);
  for (const [name, text] of Object.entries(JSON.parse(new TextDecoder().decode(files)))) {
    FS.writeFile(`/tav/${name}`, text);
  }
  FS.chdir('/plans');

  function run(args) {
    const words = args.map((word) => `${word.replaceAll('\0', '')}\0`).join('');
    const size = module.lengthBytesUTF8(words);
    const place = module._malloc(size + 1);
    if (place === 0) throw new Error('out of memory');
    module.stringToUTF8(words, place, size + 1);
    const status = module._tav_run(place, size);
    module._free(place);
    return {
      status,
      out: module.UTF8ToString(module._tav_output()),
      err: module.UTF8ToString(module._tav_errors()),
    };
  }
  return { run, FS };
}
