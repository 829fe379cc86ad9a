// What the browser keeps between visits. A browser may refuse, or have no room left.
import { MODELS, type Model } from "./core/commands";

export interface OpenPlan {
  name: string;
  text: string;
  /** the text as it stands in a file, null when no file has it */
  saved: string | null;
  model: Model;
}
export interface KeptPlan {
  plan: OpenPlan;
  dive: number;
  undo: OpenPlan[];
  redo: OpenPlan[];
}

type Shape<T> = (value: unknown) => value is T;
const isText = (value: unknown): value is string => typeof value === "string";
const isNames = (value: unknown): value is string[] => Array.isArray(value) && value.every(isText);
export const oneOf =
  <T>(...values: T[]): Shape<T> =>
  (value): value is T =>
    values.includes(value as T);

export function isPlan(value: unknown): value is OpenPlan {
  const { name, text, saved, model } = (value ?? {}) as Partial<OpenPlan>;
  return isText(name) && isText(text) && (saved === null || isText(saved)) && MODELS.some((each) => each === model);
}

function isKeptPlan(value: unknown): value is KeptPlan {
  const { plan, dive, undo, redo } = (value ?? {}) as Partial<KeptPlan>;
  const arePlans = (list: unknown): boolean => Array.isArray(list) && list.every(isPlan);
  return isPlan(plan) && Number.isInteger(dive) && (dive ?? -1) >= 0 && arePlans(undo) && arePlans(redo);
}

/** Names of what was kept and can't be read: it lies under "tav.aside.NAME". */
export const setAside: string[] = [];

export function kept<T>(name: string, isShape: Shape<T>): T | null {
  let text: string | null;
  try {
    text = localStorage.getItem(`tav.${name}`);
  } catch {
    return null;
  }
  if (text === null) return null;
  try {
    const value: unknown = JSON.parse(text);
    if (isShape(value)) return value;
  } catch {
    // No JSON.
  }
  try {
    localStorage.setItem(`tav.aside.${name}`, text);
    localStorage.removeItem(`tav.${name}`);
  } catch {
    // No room: it stays where it is until something else is kept there.
  }
  setAside.push(`tav.aside.${name}`);
  return null;
}

/** Whether it was kept. What was kept before stays when it was not. */
export function keep(name: string, value: unknown): boolean {
  try {
    localStorage.setItem(`tav.${name}`, JSON.stringify(value));
    return true;
  } catch {
    return false;
  }
}

/** Plans of this many windows are kept, the latest ones, and those of all windows that are open. */
const MOST_WINDOWS = 8;
/** A window that is loaded anew may find its name still held by what it was before, for some ms. */
const RELOAD = 300;

const lockOf = (name: string): string => `tav.window.${name}`;
const locks = (): LockManager | undefined => navigator.locks as LockManager | undefined;
const freshName = (): string => [...crypto.getRandomValues(new Uint32Array(3))].map((each) => each.toString(36)).join("");

/** Under which the plan of this window is kept, so that two windows do not take each other's plan away. */
let own = "only";
/** A window that this one is a copy of. */
let origin: string | null = null;

/** Holds a name as long as this window is open; whether no other window holds it. */
function hold(name: string): Promise<boolean> {
  return new Promise((resolve) => {
    const held = locks()?.request(lockOf(name), { ifAvailable: true }, (lock) => {
      resolve(lock !== null);
      return lock ? new Promise<void>(() => undefined) : undefined;
    });
    // A browser without locks, or one that refuses them.
    if (held) held.catch(() => resolve(true));
    else resolve(true);
  });
}

/** To be called before the plan is read. A tab that was duplicated has the name of the other, and gets one of its own. */
export async function claimWindow(): Promise<void> {
  try {
    own = sessionStorage.getItem("tav.window") ?? freshName();
  } catch {
    own = "only";
  }
  const again = () => new Promise((done) => setTimeout(done, RELOAD)).then(() => hold(own));
  if (!(await hold(own)) && !(await again())) {
    origin = own;
    own = freshName();
    await hold(own);
  }
  try {
    sessionStorage.setItem("tav.window", own);
  } catch {
    // The next visit begins with the plan of the latest window.
  }
  await prune();
}

async function prune(): Promise<void> {
  try {
    const windows = kept("windows", isNames) ?? [];
    const open = new Set((await locks()?.query())?.held?.map((lock) => lock.name));
    const idle = windows.filter((each) => each !== own && each !== origin && !open.has(lockOf(each)));
    const old = idle.slice(0, Math.max(0, windows.length - MOST_WINDOWS));
    if (old.length === 0) return;
    for (const each of old) localStorage.removeItem(`tav.plan.${each}`);
    keep("windows", windows.filter((each) => !old.includes(each)));
  } catch {
    // Nothing is taken away.
  }
}

/** Steps of undo and redo that are tried, one after the other, until there is room. */
const STEPS = [Infinity, 100, 20, 5, 1, 0];
/** No browser has room for more. */
const MOST_LETTERS = 5_200_000;

/** Whether the plan was kept, and its last step with it; the oldest steps go when there is no room for all. */
export function keepPlan({ plan, dive, undo, redo }: KeptPlan): boolean {
  let tried = Infinity;
  for (const most of STEPS) {
    const part = (list: OpenPlan[]): OpenPlan[] => (most === 0 ? [] : list.slice(-most));
    const steps = { undo: part(undo), redo: part(redo) };
    const count = steps.undo.length + steps.redo.length;
    if (count === tried) continue;
    tried = count;
    const letters = [...steps.undo, ...steps.redo].reduce((sum, each) => sum + each.text.length, plan.text.length);
    if (letters > MOST_LETTERS || !keep(`plan.${own}`, { plan, dive, ...steps })) continue;
    const windows = kept("windows", isNames) ?? [];
    const listed = windows.at(-1) === own || keep("windows", [...windows.filter((each) => each !== own), own]);
    return listed && (most > 0 || undo.length + redo.length === 0);
  }
  return false;
}

/** The plan of this window; in a new window that of the one it is a copy of, or of the latest. */
export function keptPlan(): KeptPlan | null {
  const read = (name: string | null | undefined): KeptPlan | null =>
    name ? kept(`plan.${name}`, isKeptPlan) : null;
  return read(own) ?? read(origin) ?? read((kept("windows", isNames) ?? []).at(-1));
}
