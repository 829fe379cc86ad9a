// What the browser keeps between visits. A browser may refuse, or have no room left.
export function kept<T>(name: string): T | null {
  try {
    const text = localStorage.getItem(`tav.${name}`);
    return text === null ? null : (JSON.parse(text) as T);
  } catch {
    return null;
  }
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

/** Plans of this many windows are kept, the latest ones. */
const MOST_WINDOWS = 8;

/** Of this window, so that two of them do not take each other's plan away. */
function windowName(): string {
  try {
    const name = sessionStorage.getItem("tav.window") ?? String(Date.now());
    sessionStorage.setItem("tav.window", name);
    return name;
  } catch {
    return "only";
  }
}

export function keepPlan(plan: unknown): boolean {
  const own = windowName();
  const windows = (kept<string[]>("windows") ?? []).filter((each) => each !== own);
  for (const old of windows.splice(0, Math.max(0, windows.length + 1 - MOST_WINDOWS))) {
    try {
      localStorage.removeItem(`tav.plan.${old}`);
    } catch {
      return false;
    }
  }
  return keep(`plan.${own}`, plan) && keep("windows", [...windows, own]);
}

/** The plan of this window, in a new window that of the latest. */
export function keptPlan<T>(): T | null {
  return kept<T>(`plan.${windowName()}`) ?? kept<T>(`plan.${kept<string[]>("windows")?.at(-1) ?? ""}`);
}
