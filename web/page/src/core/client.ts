// Calls of the core in its worker: a command with the files that it reads, and back what it printed and wrote.

declare const TAV_BUILD: string;

export interface Call {
  args: string[];
  files?: Record<string, string | Uint8Array>;
}
export interface Reply {
  status: number;
  out: string;
  err: string;
  /** what the command wrote, or changed of what it was given */
  files: Record<string, string>;
}
export interface Core {
  run(call: Call): Promise<Reply>;
}

/** The core failed inside a command. */
export class CoreFailure extends Error {}
/** A command was ended before its answer. */
export class Stopped extends Error {}

/** A command that has worked for longer than this can be stopped, in ms. */
const SLOW = 10_000;

interface Waiting {
  call: Call;
  resolve(reply: Reply): void;
  reject(reason: Error): void;
}

/** A worker with the core, started by the first call. Calls are answered in their order. */
export class WorkerCore implements Core {
  private worker: Worker | null = null;
  private readonly waiting = new Map<number, Waiting>();
  private last = 0;
  private slowTimer = 0;
  /** Told when the command at work takes long, and when that is over. */
  onSlow: ((slow: boolean) => void) | null = null;

  run(call: Call): Promise<Reply> {
    this.worker ??= this.start();
    const id = ++this.last;
    return new Promise((resolve, reject) => {
      this.waiting.set(id, { call, resolve, reject });
      this.worker?.postMessage({ id, call });
      if (this.waiting.size === 1) this.watch();
    });
  }

  /** Ends the worker and all that it was given; the next call starts another. */
  stop(reason: Error = new Stopped()): void {
    this.worker?.terminate();
    this.worker = null;
    const ended = [...this.waiting.values()];
    this.waiting.clear();
    for (const each of ended) each.reject(reason);
    this.watch();
  }

  /** Ends the command at work; those behind it get a new worker. */
  skip(reason: Error = new Stopped()): void {
    const [id] = this.waiting.keys();
    if (id !== undefined) this.fail(id, reason);
  }

  private fail(id: number, reason: Error): void {
    const failed = this.waiting.get(id);
    this.waiting.delete(id);
    this.worker?.terminate();
    this.worker = this.waiting.size > 0 ? this.start() : null;
    for (const [each, { call }] of this.waiting) this.worker?.postMessage({ id: each, call });
    failed?.reject(reason);
    this.watch();
  }

  private watch(): void {
    clearTimeout(this.slowTimer);
    this.onSlow?.(false);
    if (this.waiting.size > 0) this.slowTimer = window.setTimeout(() => this.onSlow?.(true), SLOW);
  }

  private start(): Worker {
    const worker = new Worker(`worker.js?v=${TAV_BUILD}`, { type: "module" });
    worker.onmessage = ({ data }: MessageEvent<{ id: number; reply?: Reply; failure?: string }>) => {
      if (worker !== this.worker) return;
      const waiting = this.waiting.get(data.id);
      // A core that failed inside a command is in no known state: the calls behind it get a new one.
      if (!data.reply) return this.fail(data.id, new CoreFailure(data.failure));
      this.waiting.delete(data.id);
      waiting?.resolve(data.reply);
      this.watch();
    };
    worker.onerror = (event) => worker === this.worker && this.stop(new CoreFailure(event.message || "worker"));
    return worker;
  }
}

/** What planning waits for. */
export const planner = new WorkerCore();
/** What may take long, so that planning need not wait. */
export const longWork = new WorkerCore();
