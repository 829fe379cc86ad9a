// A tool: a form of the options of a command, and below it what the command tells.
import { createContext, type ComponentChildren } from "preact";
import { useContext, useEffect, useRef, useState } from "preact/hooks";
import { longWork, type Call } from "../core/client";
import { Commands, failed, modelOptions, type ShownBlock } from "../core/commands";
import { store, useStore } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { CellMap } from "./cell_map";
import { Fault } from "./entry";
import { Shown } from "./shown";

export interface Request {
  args: string[];
  files: NonNullable<Call["files"]>;
}
interface Told {
  blocks: ShownBlock[];
  remarks: string[];
  /** what it was told of */
  request: string;
}
type Answer = { shown?: ShownBlock[]; dives?: { shown?: ShownBlock[] }[] };

/** What the core says against the values of options. */
const Faults = createContext<Record<string, string>>({});

/** Parts reasons by the option that they begin with, of those that have a field. */
function byOption(reasons: string[], args: string[], options: readonly string[]) {
  const faults: Record<string, string> = {};
  const others: string[] = [];
  for (const reason of reasons) {
    const option = options.find((each) => reason.startsWith(each) && !/^[a-z-]/.test(reason.slice(each.length)));
    if (!option) {
      others.push(reason);
      continue;
    }
    const joined = args.find((each) => each.startsWith(`${option}=`))?.slice(option.length + 1);
    const value = `${option} ${joined ?? args[args.indexOf(option) + 1] ?? ""}`;
    const told = reason.startsWith(value) ? reason.slice(value.length) : reason.slice(option.length);
    faults[option] = told.replace(/^[ \u00a0]?: |^ /, "");
  }
  return { faults, others };
}

/** The command of a tool on the open plan and its shown dive. */
export function onPlan(command: string, options: string[]): Request {
  const file = store.fileName;
  const { plan } = store.state;
  const args = [command, file, "--dive", String(store.dive.number), ...options, ...modelOptions(plan.model)];
  return { args, files: { [file]: plan.text } };
}

export function Tool(props: {
  id: string;
  title: string;
  request: () => Request;
  /** those whose faults are told at their field */
  options?: readonly string[];
  children: ComponentChildren;
}) {
  const { language } = useStore();
  const [told, setTold] = useState<Told | null>(null);
  const [reasons, setReasons] = useState<string[]>([]);
  const [working, setWorking] = useState(false);
  const run = useRef(0);
  const latest = useRef(props.request);
  latest.current = props.request;
  useEffect(() => () => void (run.current = -1), []);

  const start = async () => {
    const mine = ++run.current;
    setWorking(true);
    setReasons([]);
    await store.settled();
    if (run.current !== mine) return;
    const request = latest.current();
    try {
      const commands = new Commands(longWork, language);
      const answer = await commands.json<Answer>([...request.args, "--json", "--shown"], request.files);
      if (run.current !== mine) return;
      if (failed(answer)) {
        setReasons(answer.reasons);
      } else {
        const blocks = answer.value.shown ?? answer.value.dives?.flatMap((dive) => dive.shown ?? []) ?? [];
        setTold({ blocks, remarks: answer.remarks, request: JSON.stringify(request) });
      }
    } catch (error) {
      if (run.current === mine) setReasons([String(error)]);
    }
    if (run.current === mine) setWorking(false);
  };
  const abort = () => {
    ++run.current;
    longWork.stop();
    setWorking(false);
  };
  const { faults, others } = byOption(reasons, props.request().args, props.options ?? []);
  const stale = told !== null && told.request !== JSON.stringify(props.request());
  return (
    <section class="card tool" aria-labelledby={`${props.id}-title`} id={props.id}>
      <h2 id={`${props.id}-title`}>{props.title}</h2>
      <form
        onSubmit={(event) => {
          event.preventDefault();
          void start();
        }}
      >
        <Faults.Provider value={faults}>
          <div class="fields">{props.children}</div>
        </Faults.Provider>
        <div class="buttons">
          <button type="submit" class="primary" id={`${props.id}-start`} disabled={working}>
            {t(Text.Start)}
          </button>
          {working ? (
            <button type="button" id={`${props.id}-abort`} onClick={abort}>
              {t(Text.Abort)}
            </button>
          ) : null}
        </div>
      </form>
      {others.length ? (
        <p class="fault" role="alert" id={`${props.id}-fault`}>
          {others.join(" ")}
        </p>
      ) : null}
      <div aria-busy={working} id={`${props.id}-told`}>
        <p role="status" class="told">
          {working ? t(Text.Computing) : ""}
        </p>
        {told ? (
          <div class={stale ? "stale" : undefined}>
            {told.remarks.map((remark) => (
              <p class="told" key={remark}>
                {remark}
              </p>
            ))}
            {told.blocks.some((block) => block.table?.id === "map") ? (
              <CellMap blocks={told.blocks} title={props.title} />
            ) : (
              <Shown blocks={told.blocks} caption={props.title} />
            )}
          </div>
        ) : null}
      </div>
    </section>
  );
}

export function Field(props: {
  id: string;
  label: string;
  value: string;
  set: (value: string) => void;
  /** whose value it is */
  option?: string;
  unit?: string;
  words?: boolean;
  hint?: string;
}) {
  const { id, hint } = props;
  const fault = useContext(Faults)[props.option ?? ""];
  const described = [hint ? `${id}-hint` : "", fault ? `${id}-fault` : ""].filter(Boolean).join(" ");
  return (
    <div class={`entry${props.words ? " entry-words" : ""}`}>
      <label for={id}>
        {props.label}
        {props.unit ? <span class="unit"> {props.unit}</span> : null}
      </label>
      <input
        id={id}
        type="text"
        inputMode={props.words ? "text" : "decimal"}
        autocomplete="off"
        spellcheck={false}
        value={props.value}
        aria-invalid={fault !== undefined}
        {...(described ? { "aria-describedby": described } : {})}
        onInput={(event) => props.set(event.currentTarget.value)}
      />
      {hint ? (
        <p class="hint" id={`${id}-hint`}>
          {hint}
        </p>
      ) : null}
      {fault ? <Fault id={`${id}-fault`} reasons={[fault]} /> : null}
    </div>
  );
}
