// Plans as files: opened from the disk, dropped on the page, saved by download.
import { failed, type Model } from "./core/commands";
import { planHash, planOfHash } from "./links";
import { store } from "./state";
import { Text } from "./text_ids";
import { t } from "./texts";

declare const TAV_VERSION: string;
export const VERSION = TAV_VERSION;

export const MODEL_WORDS: Record<Model, number> = {
  "": Text.ModelB,
  "--zhl16c": Text.ModelC,
  "--vpm": Text.ModelVpm,
  "--hybrid": Text.ModelHybrid,
};

/** The plans that come with the core, in the order of their descriptions. */
export const EXAMPLES = ["air-no-stop", "air-deco", "nitrox", "wreck", "trimix-100", "rebreather", "lake-series"];

export async function openFile(file: File): Promise<void> {
  let data: Uint8Array;
  try {
    data = new Uint8Array(await file.arrayBuffer());
  } catch (error) {
    store.tell(t(Text.NotRead, file.name, String(error)), "problem");
    return;
  }
  if (/\.(uddf|xml|csv)$/i.test(file.name)) {
    const made = await store.commands.importLog(file.name, data);
    if (failed(made)) {
      store.tell(t(Text.NotOpened, file.name, made.reasons.join(" ")), "problem");
      return;
    }
    const name = file.name.replace(/\.[^.]*$/, ".tav");
    if (!(await store.open({ name, text: made.value, saved: null, model: "" }))) return;
    if (made.remarks.length) store.tell([t(Text.Opened, file.name), ...made.remarks].join("\n"));
    return;
  }
  const read = await store.commands.edit(file.name, data, []);
  if (failed(read)) {
    store.tell(t(Text.NotOpened, file.name, read.reasons.join(" ")), "problem");
    return;
  }
  // A file that the core would write otherwise, but for the ends of its lines, is not yet what would be saved.
  const inFile = new TextDecoder("utf-8", { ignoreBOM: true }).decode(data);
  const plain = (text: string): string => text.replaceAll("\r\n", "\n");
  const saved = plain(inFile) === plain(read.value.text) ? read.value.text : inFile;
  const opened = await store.open({ name: file.name, text: read.value.text, saved, model: "" });
  if (opened && read.remarks.length) store.tell([t(Text.Opened, file.name), ...read.remarks].join("\n"));
}

export async function openExample(name: string): Promise<void> {
  const read = await store.commands.openShipped(`/tav/dives/${name}.tav`);
  if (failed(read)) {
    store.tell(read.reasons.join(" "), "problem");
    return;
  }
  await store.open({ name: `${name}.tav`, text: read.value.text, saved: read.value.text, model: "" });
}

function download(name: string, text: string, type: string): void {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([text], { type }));
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}

const withEnding = (name: string, ending: string): string => name.replace(/\.[^.]*$/, "") + ending;

export async function savePlan(): Promise<void> {
  await store.settled();
  const { plan } = store.state;
  const name = withEnding(plan.name, ".tav");
  download(name, plan.text, "application/octet-stream");
  store.savedAs(name);
  if (plan.model !== "") store.tell(t(Text.ModelNotInFile, t(MODEL_WORDS[plan.model])), "problem");
}

export async function saveUddf(): Promise<void> {
  await store.settled();
  const { plan } = store.state;
  const made = await store.commands.uddf(plan.name, plan.text, plan.model);
  if (failed(made)) store.tell(made.reasons.join(" "), "problem");
  else download(withEnding(plan.name, ".uddf"), made.value, "application/xml");
}

export async function shareLink(): Promise<void> {
  await store.settled();
  const { plan } = store.state;
  const hash = await planHash(VERSION, plan.model, plan.text);
  if (hash === "large" || hash === "broken") {
    store.tell(t(Text.PlanTooLarge), "problem");
    return;
  }
  const link = location.href.replace(/#.*/, "") + hash;
  try {
    await navigator.clipboard.writeText(link);
    store.tell(t(Text.LinkCopied));
  } catch {
    // Without the right to the clipboard the link is shown, to be copied by hand.
    store.tell(`${t(Text.LinkShown)}\n${link}`);
  }
}

/** Opens the plan that the address of the page holds, and takes it out of the address. */
export async function openLink(): Promise<void> {
  const linked = await planOfHash(location.hash);
  if (linked === null) return;
  history.replaceState(null, "", location.pathname + location.search);
  if (linked === "broken" || linked === "large") {
    store.tell(linked === "broken" ? t(Text.LinkBroken) : t(Text.LinkTooLarge, 2), "problem");
    return;
  }
  const name = "plan.tav";
  if (!(await store.open({ name, text: linked.text, saved: null, model: linked.model }))) return;
  if (linked.version !== VERSION) store.tell(t(Text.OtherVersion, linked.version, VERSION));
}
