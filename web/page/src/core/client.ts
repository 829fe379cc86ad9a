// Calls of the core in its worker: a command with the files that it reads, and back what it printed and wrote.

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

  run(call: Call): Promise<Reply> {
    this.worker ??= this.start();
    const id = ++this.last;
    return new Promise((resolve, reject) => {
      this.waiting.set(id, { call, resolve, reject });
      this.worker?.postMessage({ id, call });
    });
  }

  /** Ends the worker and what it works on; the next call starts another. */
  stop(reason = "stopped"): void {
    this.worker?.terminate();
    this.worker = null;
    for (const each of this.waiting.values()) each.reject(new CoreFailure(reason));
    this.waiting.clear();
  }

  private start(): Worker {
    const worker = new Worker("worker.js", { type: "module" });
    worker.onmessage = ({ data }: MessageEvent<{ id: number; reply?: Reply; failure?: string }>) => {
      const waiting = this.waiting.get(data.id);
      this.waiting.delete(data.id);
      if (data.reply) {
        waiting?.resolve(data.reply);
      } else {
        // A core that failed inside a command is in no known state: the calls behind it get a new one.
        worker.terminate();
        waiting?.reject(new CoreFailure(data.failure));
        this.worker = this.waiting.size > 0 ? this.start() : null;
        for (const [id, { call }] of this.waiting) this.worker?.postMessage({ id, call });
      }
    };
    worker.onerror = (event) => this.stop(event.message || "worker");
    return worker;
  }
}

/** What planning waits for. */
export const planner = new WorkerCore();
/** What may take long, so that planning need not wait. */
export const longWork = new WorkerCore();
