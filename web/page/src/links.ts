// A plan as a link: its text, compressed, behind the "#", so that it is sent to no server.
// "#v0.1.0,model=vpm,plan=..." with the version of the program that made it.
import { MODELS, type Model } from "./core/commands";

export const MOST_BYTES = 2 * 1024 * 1024;
/** Longer addresses are cut off by mail programs and messengers. */
export const MOST_LETTERS = 8000;

export type LinkFault = "broken" | "large";
export interface LinkedPlan {
  version: string;
  model: Model;
  text: string;
}

const toBase64Url = (bytes: Uint8Array): string => {
  let binary = "";
  for (const byte of bytes) binary += String.fromCharCode(byte);
  return btoa(binary).replaceAll("+", "-").replaceAll("/", "_").replaceAll("=", "");
};
const fromBase64Url = (text: string): Uint8Array<ArrayBuffer> =>
  Uint8Array.from(atob(text.replaceAll("-", "+").replaceAll("_", "/")), (letter) => letter.charCodeAt(0));

/** All bytes of a stream, or null when they are more than `most`. */
async function collect(stream: ReadableStream<Uint8Array>, most: number): Promise<Uint8Array | null> {
  const pieces: Uint8Array[] = [];
  let length = 0;
  const reader = stream.getReader();
  for (;;) {
    const { done, value } = await reader.read();
    if (done) break;
    length += value.length;
    if (length > most) {
      await reader.cancel();
      return null;
    }
    pieces.push(value);
  }
  const all = new Uint8Array(length);
  let at = 0;
  for (const piece of pieces) {
    all.set(piece, at);
    at += piece.length;
  }
  return all;
}

export async function planHash(version: string, model: Model, text: string): Promise<string | LinkFault> {
  const packed = new Blob([text]).stream().pipeThrough(new CompressionStream("deflate-raw"));
  const bytes = await collect(packed, MOST_BYTES);
  if (!bytes) return "large";
  const hash = `#v${version},${model === "" ? "" : `model=${model.slice(2)},`}plan=${toBase64Url(bytes)}`;
  return hash.length > MOST_LETTERS ? "large" : hash;
}

/** The plan of an address, null when it holds none. */
export async function planOfHash(hash: string): Promise<LinkedPlan | LinkFault | null> {
  if (!/^#v|plan=/.test(hash)) return null;
  const parts = /^#v(\d+(?:\.\d+)*),(?:model=([a-z0-9]+),)?plan=([A-Za-z0-9_-]+)$/.exec(hash);
  const model = MODELS.find((each) => each === (parts?.[2] === undefined ? "" : `--${parts[2]}`));
  if (!parts?.[1] || !parts[3] || model === undefined) return "broken";
  if (parts[3].length > MOST_BYTES) return "large";
  try {
    const unpacked = new Blob([fromBase64Url(parts[3])]).stream().pipeThrough(new DecompressionStream("deflate-raw"));
    const bytes = await collect(unpacked, MOST_BYTES);
    if (!bytes) return "large";
    return { version: parts[1], model, text: new TextDecoder("utf-8", { fatal: true }).decode(bytes) };
  } catch {
    return "broken";
  }
}
