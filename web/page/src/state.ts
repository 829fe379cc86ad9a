// The open plan: the text of its file, what can be edited of it, and what the core said of it last.
import { useEffect, useState } from "preact/hooks";
import { planner, type Core } from "./core/client";
import {
  Commands,
  failed,
  innerName,
  type EditDocument,
  option,
  type EditedDive,
  type Model,
  type PlanDocument,
} from "./core/commands";
import { claimWindow, isPlan, keep, keepPlan, kept, keptPlan, oneOf, setAside, type OpenPlan } from "./keep";
import { Text } from "./text_ids";
import { t, useTexts } from "./texts";

export interface Graph {
  url: string;
  words: string;
  /** what it is drawn of */
  plan: OpenPlan;
  dive: number;
}
export interface Message {
  text: string;
  kind: "done" | "problem";
}
export interface State {
  ready: boolean;
  language: string;
  languages: { code: string; name: string }[];
  plan: OpenPlan;
  document: EditDocument;
  /** index of the dive of the series that is shown */
  dive: number;
  schedule: PlanDocument | null;
  /** the schedule is that of an earlier text */
  stale: boolean;
  computing: boolean;
  /** why the plan as it is now has no schedule */
  problems: string[];
  /** the core's advice on the plan */
  remarks: string[];
  graph: Graph | null;
  /** a picture of the plan as it is now is on its way */
  drawing: boolean;
  /** why there is no picture of it */
  graphProblems: string[];
  /** the core has not answered for long */
  slow: boolean;
  /** puts a newer version of the page in the place of this one, null when there is none */
  update: (() => void) | null;
  message: Message | null;
  /** the browser refused to keep the plan */
  unkept: boolean;
  undo: OpenPlan[];
  redo: OpenPlan[];
  /** a plan that is kept to compare others with */
  compared: OpenPlan | null;
}

const MOST_STEPS = 200;
/** What is typed into one field within this time is one step to undo, in ms. */
const ONE_STEP = 1500;
/** The plan is kept once in this time, in ms: all of its steps are written each time. */
const KEEP_EVERY = 1000;
/** Of the picture, in pixels: as wide as its place, so that its letters keep their size. */
const GRAPH_WIDTHS = [400, 1000] as const;

/** What sends the last keys of a field to the core, for each field that waits for a pause in typing. */
export const typing = new Set<() => void>();
const sendTyped = (): void => {
  for (const send of [...typing]) send();
};

const LANGUAGES = ["uk", "de", "es", "fr", "it", "nl"];

export class Store {
  state: State;
  readonly commands: Commands;
  private readonly listeners = new Set<() => void>();
  private edits: Promise<unknown> = Promise.resolve();
  private lastField = "";
  private lastTime = 0;
  private keepTimer = 0;
  private readonly wants = { plan: false, picture: false };
  private atWork = false;
  /** grows with every plan that is opened: edits of the one before it are dropped */
  opened = 0;

  constructor(core: Core) {
    this.commands = new Commands(core, kept("language", oneOf(...LANGUAGES)) ?? browserLanguage());
    this.state = {
      ready: false,
      language: this.commands.language,
      languages: [],
      plan: { name: "plan.tav", text: "", saved: null, model: "" },
      document: { dives: [] },
      dive: 0,
      schedule: null,
      stale: false,
      computing: false,
      problems: [],
      remarks: [],
      graph: null,
      drawing: false,
      graphProblems: [],
      slow: false,
      update: null,
      message: null,
      unkept: false,
      undo: [],
      redo: [],
      compared: kept("compared", isPlan),
    };
  }

  subscribe(listener: () => void): () => void {
    this.listeners.add(listener);
    return () => this.listeners.delete(listener);
  }

  set(part: Partial<State>): void {
    this.state = { ...this.state, ...part };
    for (const listener of this.listeners) listener();
  }

  get dive(): EditedDive {
    const dives = this.state.document.dives;
    const dive = dives[this.state.dive] ?? dives[dives.length - 1];
    if (!dive) throw new Error("a plan without a dive");
    return dive;
  }

  get dirty(): boolean {
    return this.state.plan.text !== this.state.plan.saved;
  }

  tell(text: string, kind: Message["kind"] = "done"): void {
    this.set({ message: text === "" ? null : { text, kind } });
  }

  /** Begins with the plan of the last visit, else with a new one. */
  async start(): Promise<void> {
    await claimWindow();
    await this.readTexts();
    this.set({ languages: await this.commands.languages() });
    const last = keptPlan();
    const plan = last?.plan;
    let unread: string | null = null;
    if (plan?.text) {
      const read = await this.commands.edit(plan.name, plan.text, []);
      if (failed(read)) {
        unread = t(Text.NotOpened, plan.name, read.reasons.join(" "));
      } else {
        this.set({ ready: true, dive: last?.dive ?? 0, undo: last?.undo ?? [], redo: last?.redo ?? [] });
        this.show(plan, read.value.document, read.remarks);
        this.tellSetAside();
        return;
      }
    }
    await this.create("Default");
    if (this.state.document.dives.length === 0) throw new Error(this.state.message?.text);
    // A plan that this version can't read stays where undo finds it.
    this.set({ ready: true, undo: plan && unread ? [...(last?.undo ?? []), plan] : [], redo: [] });
    this.tellSetAside();
    if (unread) {
      this.keepPlan();
      this.tell(unread, "problem");
    }
  }

  private tellSetAside(): void {
    if (setAside.length) this.tell(t(Text.SetAside, setAside.join(", ")), "problem");
  }

  async setLanguage(code: string): Promise<void> {
    sendTyped();
    const before = this.commands.language;
    this.commands.language = code;
    try {
      await this.readTexts();
    } catch (error) {
      this.commands.language = before;
      this.tell(String(error), "problem");
      return;
    }
    keep("language", code);
    this.set({ language: code, message: null });
    void this.compute();
  }

  private async readTexts(): Promise<void> {
    useTexts(await this.commands.texts());
    const tag = this.commands.language === "uk" ? "en" : this.commands.language;
    document.documentElement.lang = tag;
  }

  /** A new plan on the settings of a template, with a short dive to begin from. */
  async create(template: "Default" | "Imperial"): Promise<void> {
    const leg = template === "Default" ? "18:20" : "60:20";
    const made = await this.commands.written(
      ["new", "--template", `/tav/template/${template}.tpl`, "--leg", leg, "-o", "new.tav"],
      "new.tav",
      {},
    );
    if (failed(made)) {
      this.tell(made.reasons.join(" "), "problem");
      return;
    }
    await this.open({ name: "plan.tav", text: made.value, saved: null, model: "" }, false);
  }

  /** Puts a plan in the place of the open one, which undo brings back; whether it could be read. */
  open(plan: OpenPlan, tell = true): Promise<boolean> {
    sendTyped();
    return this.inTurn(async () => {
      const read = await this.commands.edit(plan.name, plan.text, []);
      if (failed(read)) {
        this.tell(t(Text.NotOpened, plan.name, read.reasons.join(" ")), "problem");
        return false;
      }
      ++this.opened;
      if (this.state.plan.text !== "") this.remember("");
      this.set({ dive: 0, schedule: null, remarks: [], problems: [] });
      this.putGraph(null);
      this.show(plan, read.value.document);
      if (tell) this.tell([t(Text.Opened, plan.name), ...read.remarks].join(" "));
      return true;
    });
  }

  /**
   * Carries out edits of the shown dive; why they can't be, when they can't. They are worked out when their turn has
   * come, of what the edits before them have left. `field` is what was typed into.
   */
  apply(edits: (dive: EditedDive) => string[], field = ""): Promise<string[]> {
    const { opened } = this;
    const { number } = this.dive;
    return this.inTurn(async () => {
      const { plan, document } = this.state;
      const dive = document.dives[number - 1];
      if (opened !== this.opened || !dive) return [];
      const done = await this.commands.edit(plan.name, plan.text, ["--dive", String(number), ...edits(dive)]);
      if (failed(done)) return done.reasons;
      if (done.value.text === plan.text) {
        if (done.remarks.length) this.tell(done.remarks.join(" "));
        return [];
      }
      this.remember(field);
      this.show({ ...this.state.plan, text: done.value.text }, done.value.document, done.remarks);
      return [];
    });
  }

  /** The same for what is not typed: a refusal is told at the head of the page. */
  async act(edits: (dive: EditedDive) => string[]): Promise<void> {
    sendTyped();
    const faults = await this.apply(edits);
    if (faults.length) this.tell(faults.join(" "), "problem");
  }

  addDive(interval: string, leg: string): Promise<string[]> {
    sendTyped();
    return this.inTurn(async () => {
      const { plan } = this.state;
      const edits = [...option("--add-dive", interval), ...option("--add-leg", leg)];
      const done = await this.commands.edit(plan.name, plan.text, edits);
      if (failed(done)) return done.reasons;
      this.remember("");
      this.set({ dive: done.value.document.dives.length - 1 });
      this.show({ ...this.state.plan, text: done.value.text }, done.value.document, done.remarks);
      return [];
    });
  }

  setModel(model: Model): Promise<void> {
    sendTyped();
    return this.inTurn(async () => {
      this.remember("");
      this.show({ ...this.state.plan, model }, this.state.document);
    });
  }

  chooseDive(dive: number): void {
    sendTyped();
    this.set({ dive });
    this.keepPlan();
    this.draw();
  }

  savedAs(name: string): void {
    this.set({ plan: { ...this.state.plan, name, saved: this.state.plan.text } });
    this.keepPlan();
  }

  async keepForComparison(): Promise<void> {
    await this.settled();
    this.set({ compared: this.state.plan });
    keep("compared", this.state.plan);
  }

  step(back: boolean): Promise<void> {
    sendTyped();
    return this.inTurn(async () => {
      const from = back ? this.state.undo : this.state.redo;
      const plan = from[from.length - 1];
      if (!plan) return;
      const read = await this.commands.edit(plan.name, plan.text, []);
      if (failed(read)) {
        this.tell(t(Text.NotOpened, plan.name, read.reasons.join(" ")), "problem");
        return;
      }
      const onto = [...(back ? this.state.redo : this.state.undo), this.state.plan];
      const rest = from.slice(0, -1);
      this.set(back ? { undo: rest, redo: onto } : { redo: rest, undo: onto });
      this.lastField = "";
      // A file that was saved in between is still the file of this plan.
      const other = plan.name !== this.state.plan.name;
      if (other) ++this.opened;
      this.show({ ...plan, saved: other ? plan.saved : this.state.plan.saved }, read.value.document, read.remarks);
    });
  }

  /** Waits until what was typed so far stands in the plan, or was refused. */
  settled(): Promise<void> {
    sendTyped();
    return this.inTurn(async () => undefined);
  }

  private inTurn<T>(work: () => Promise<T>): Promise<T> {
    const done = this.edits.then(work);
    this.edits = done.catch(() => undefined);
    return done;
  }

  private remember(field: string): void {
    const now = Date.now();
    const same = field !== "" && field === this.lastField && now - this.lastTime < ONE_STEP;
    this.lastField = field;
    this.lastTime = now;
    this.set({ redo: [], ...(same ? {} : { undo: [...this.state.undo, this.state.plan].slice(-MOST_STEPS) }) });
  }

  private show(plan: OpenPlan, document: EditDocument, remarks: string[] = []): void {
    const dive = Math.min(this.state.dive, document.dives.length - 1);
    this.set({ plan, document, dive, message: remarks.length ? { text: remarks.join(" "), kind: "done" } : null });
    this.keepPlan();
    this.compute();
  }

  private keepPlan(): void {
    if (!this.keepTimer) this.keepTimer = window.setTimeout(() => this.keepNow(), KEEP_EVERY);
  }

  /** Keeps what waits to be kept. */
  keepNow(): void {
    if (!this.keepTimer) return;
    clearTimeout(this.keepTimer);
    this.keepTimer = 0;
    const { plan, dive, undo, redo } = this.state;
    const done = keepPlan({ plan, dive, undo, redo });
    if (done === this.state.unkept) this.set({ unkept: !done });
  }

  private compute(): void {
    this.wants.plan = true;
    this.set({ computing: true, drawing: true, stale: this.state.schedule !== null });
    void this.work();
  }

  private draw(): void {
    this.wants.picture = true;
    this.set({ drawing: true });
    void this.work();
  }

  /** Schedule and picture, one after the other: a newer plan takes the place of one that still waits. */
  private async work(): Promise<void> {
    if (this.atWork) return;
    this.atWork = true;
    while (this.wants.plan || this.wants.picture) {
      if (this.wants.plan) await this.computeOne();
      else await this.drawOne();
    }
    this.atWork = false;
  }

  private async computeOne(): Promise<void> {
    this.wants.plan = false;
    const { plan } = this.state;
    const planned = await this.commands.plan(plan.name, plan.text, plan.model);
    if (this.wants.plan) return;
    if (failed(planned)) {
      this.wants.picture = false;
      this.putGraph(null);
      this.set({ computing: false, drawing: false, problems: planned.reasons, remarks: [] });
      return;
    }
    this.set({ computing: false, stale: false, problems: [], remarks: planned.remarks, schedule: planned.value });
    this.wants.picture = true;
  }

  private async drawOne(): Promise<void> {
    this.wants.picture = false;
    const { plan } = this.state;
    const { number } = this.dive;
    const width = GRAPH_WIDTHS[window.innerWidth < 700 ? 0 : 1];
    const drawn = await this.commands.graph(plan.name, plan.text, plan.model, number, width);
    if (this.wants.plan || this.wants.picture) return;
    if (failed(drawn)) this.putGraph(null, drawn.reasons);
    else this.putGraph({ ...picture(drawn.value), plan, dive: number });
    this.set({ drawing: false });
  }

  private putGraph(graph: Graph | null, graphProblems: string[] = []): void {
    if (this.state.graph) URL.revokeObjectURL(this.state.graph.url);
    this.set({ graph, graphProblems });
  }

  get fileName(): string {
    return innerName(this.state.plan.name);
  }
}

/** A picture to show and what it tells in words: its title and description, else all that is written in it. */
export function picture(svg: string): { url: string; words: string } {
  const parsed = new DOMParser().parseFromString(svg, "image/svg+xml").documentElement;
  const [title = "", described = ""] = ["title", "desc"].map(
    (tag) => parsed.querySelector(`:scope > ${tag}`)?.textContent.trim() ?? "",
  );
  const written = () => [...parsed.querySelectorAll("text")].map((each) => each.textContent.trim()).join("\n");
  const words = `${title}\n${described || written()}`.trim();
  return { url: URL.createObjectURL(new Blob([svg], { type: "image/svg+xml" })), words };
}

function browserLanguage(): string {
  for (const each of navigator.languages) {
    const code = each.slice(0, 2).toLowerCase();
    if (code === "en") return "uk";
    if (LANGUAGES.includes(code)) return code;
  }
  return "uk";
}

export const store = new Store(planner);
planner.onSlow = (slow) => {
  if (slow !== store.state.slow) store.set({ slow });
};
addEventListener("pagehide", () => store.keepNow());
addEventListener("visibilitychange", () => {
  if (document.visibilityState === "hidden") store.keepNow();
});

/** The state, and a new rendering whenever it changes. */
export function useStore(): State {
  const [state, setState] = useState(store.state);
  useEffect(() => {
    setState(store.state);
    return store.subscribe(() => setState(store.state));
  }, []);
  return state;
}
