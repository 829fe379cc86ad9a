// The commands that the page gives, and what they answer.
import { Text } from "../text_ids";
import { t } from "../texts";
import { CoreFailure, Stopped, type Call, type Core, type Reply } from "./client";

export type Model = "" | "--zhl16c" | "--vpm" | "--hybrid";
export const MODELS: readonly Model[] = ["", "--zhl16c", "--vpm", "--hybrid"];

export type Severity = "danger" | "caution" | "note";
export interface ShownTable {
  id: string;
  heads: string[][];
  rows: { kind?: string; cells: string[]; marks?: string[] }[];
}
export interface ShownBlock {
  heading?: string;
  text?: string;
  severity?: Severity;
  table?: ShownTable;
}

export interface Gas {
  name: string;
  o2: number;
  n2: number;
  he: number;
  used: boolean;
}
export interface Change {
  depth: number;
  gas: string;
}
export interface Cylinder {
  /** as --cylinder takes it */
  line: string;
  gas: string;
  count: number;
  /** litres, or cubic feet at the rated pressure */
  size: number;
  rated_pressure: number | null;
  fill: number;
  reserve: number;
  pressure_unit: "bar" | "psi";
  bail_out: boolean;
}
export interface Team {
  told: boolean;
  team: number;
  stress: number;
  minutes: number;
  rule: string;
}
export interface Leg {
  action: number;
  depth: number | null;
  time: number | null;
  gas: string;
  ascent: boolean;
}
export interface EditedDive {
  number: number;
  surface_interval: number;
  metric: boolean;
  circuit: "open" | "closed";
  settings: Record<string, string>;
  values: Record<string, unknown> & { Team: Team };
  gases: Gas[];
  changes: Change[];
  cylinders: Cylinder[];
  texts: { name: string; place: string; notes: string };
  legs: Leg[];
}
export interface EditDocument {
  dives: EditedDive[];
}
export interface PlannedDive {
  decompresses: boolean;
  shown: ShownBlock[];
}
export interface PlanDocument {
  dives: PlannedDive[];
}

/** An answer, or why there is none, in the user's words. */
export type Result<T> = { value: T; remarks: string[] } | { reasons: string[] };
export const failed = <T>(result: Result<T>): result is { reasons: string[] } => "reasons" in result;

/**
 * The lines of an error output without what only a terminal needs: the command, the name of a file of ours (the number
 * of its line stays), and the options of `args`, which the user has not typed.
 */
export function reasonsOf(err: string, args: string[] = []): string[] {
  const leads = args.flatMap((each, at) => {
    if (!each.startsWith("--")) return [];
    const option = each.replace(/=.*/s, "");
    const value = option === each ? (args[at + 1] ?? "") : each.slice(option.length + 1);
    const behindNumber = value.slice(value.indexOf("=") + 1);
    return [`${option} ${value}`, `${option} ${behindNumber}`, option];
  });
  const plain = (line: string): string => {
    const told = line
      .replace(/^tavplan( [a-z]+)?: /, "")
      .replace(/^[^\s:]+\.(?:tav|tpl|uddf|csv):(?:(\d+):)? /, (_, number?: string) => (number ? `${number}: ` : ""))
      .replace(/ \("tavplan[^)]*\)$/, "");
    const lead = leads.find((each) => told.startsWith(each) && /^[ \u00a0]?: /.test(told.slice(each.length)));
    return lead === undefined ? told : told.slice(lead.length).replace(/^[ \u00a0]?: /, "");
  };
  return err
    .split("\n")
    .map(plain)
    .filter((line) => line !== "");
}

/** A name for the file of a plan within the core. */
export function innerName(name: string): string {
  const safe = name
    .replace(/\.tav$/i, "")
    .replace(/[^A-Za-z0-9_.+-]/g, "_")
    .replace(/^[-.]+/, "");
  return `${safe || "plan"}.tav`;
}

export class Commands {
  constructor(
    private readonly core: Core,
    public language: string,
  ) {}

  /** A core that failed answers with the reason of that, as if the command had refused. */
  run(args: string[], files: NonNullable<Call["files"]> = {}): Promise<Reply> {
    const done = this.core.run({ args: [...args, "--language", this.language], files });
    return done.catch((error: unknown) => {
      const told =
        error instanceof CoreFailure ? t(Text.CoreFailed, error.message) : error instanceof Stopped ? t(Text.Stopped) : "";
      return { status: 2, out: "", err: told || String(error), files: {} };
    });
  }

  /** Status 1 is an answer, too: a plan that does not decompress. */
  async json<T>(args: string[], files: NonNullable<Call["files"]> = {}): Promise<Result<T>> {
    const reply = await this.run(args, files);
    const remarks = reasonsOf(reply.err);
    if (reply.status > 1 || reply.out === "") return { reasons: remarks.length ? remarks : [String(reply.status)] };
    return { value: JSON.parse(reply.out) as T, remarks };
  }

  async texts(): Promise<Record<string, string>> {
    const result = await this.json<{ texts: Record<string, string> }>(["texts"]);
    if (failed(result)) throw new Error(result.reasons.join(" "));
    return result.value.texts;
  }

  async languages(): Promise<{ code: string; name: string }[]> {
    const result = await this.json<{ languages: { code: string; name: string }[] }>(["texts", "--languages"]);
    return failed(result) ? [] : result.value.languages;
  }

  /** The text of a plan after `edits`, and what can be edited of it. */
  async edit(
    name: string,
    data: string | Uint8Array,
    edits: string[],
  ): Promise<Result<{ text: string; document: EditDocument }>> {
    return this.edited(innerName(name), { [innerName(name)]: data }, edits);
  }

  /** The same of a plan that comes with the core. */
  openShipped(path: string): Promise<Result<{ text: string; document: EditDocument }>> {
    return this.edited(path, {}, []);
  }

  private async edited(path: string, files: NonNullable<Call["files"]>, edits: string[]) {
    const out = "edited.tav";
    const reply = await this.run(["edit", path, ...edits, "-o", out, "--json"], files);
    const remarks = reasonsOf(reply.err, edits);
    const text = reply.files[out];
    if (reply.status > 1 || text === undefined) return { reasons: remarks.length ? remarks : [String(reply.status)] };
    return { value: { text, document: JSON.parse(reply.out) as EditDocument }, remarks };
  }

  plan(name: string, text: string, model: Model): Promise<Result<PlanDocument>> {
    const file = innerName(name);
    return this.json<PlanDocument>(["plan", file, "--json", "--shown", ...modelOptions(model)], { [file]: text });
  }

  /** The one file that a command writes. */
  async written(args: string[], out: string, files: NonNullable<Call["files"]>): Promise<Result<string>> {
    const reply = await this.run(args, files);
    const remarks = reasonsOf(reply.err);
    const text = reply.files[out];
    return text === undefined
      ? { reasons: remarks.length ? remarks : [String(reply.status)] }
      : { value: text, remarks };
  }

  graph(name: string, text: string, model: Model, dive: number, width: number): Promise<Result<string>> {
    const file = innerName(name);
    const args = ["graph", file, "--dive", String(dive), "--width", `${width}px`, ...modelOptions(model)];
    return this.written([...args, "-o", "graph.svg"], "graph.svg", { [file]: text });
  }

  uddf(name: string, text: string, model: Model): Promise<Result<string>> {
    const file = innerName(name);
    return this.written(["export", file, "--uddf", "out.uddf", ...modelOptions(model)], "out.uddf", { [file]: text });
  }

  /** A plan of a dive log (UDDF) or of legs (CSV). */
  importLog(name: string, data: Uint8Array): Promise<Result<string>> {
    const log = /\.csv$/i.test(name) ? "log.csv" : "log.uddf";
    return this.written(["import", log, "-o", "imported.tav"], "imported.tav", { [log]: data });
  }

  /** The pages of the plan sheet as pictures. */
  async sheet(name: string, text: string, model: Model): Promise<Result<string[]>> {
    const file = innerName(name);
    const reply = await this.run(["report", file, "--sheet", "--svg", "page", ...modelOptions(model)], {
      [file]: text,
    });
    const pages = Object.keys(reply.files)
      .filter((each) => /^page-\d+\.svg$/.test(each))
      .sort((a, b) => Number(/\d+/.exec(a)) - Number(/\d+/.exec(b)))
      .map((each) => reply.files[each] ?? "");
    return pages.length ? { value: pages, remarks: reasonsOf(reply.err) } : { reasons: reasonsOf(reply.err) };
  }
}

/** An option with its value, which may look like an option itself. */
export const option = (name: string, value: string): string[] =>
  value.startsWith("-") ? [`${name}=${value}`] : [name, value];

export const modelOptions = (model: Model): string[] => (model === "" ? [] : [model]);
