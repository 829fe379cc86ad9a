// Fields that hold a value of the plan: what is typed goes to the core, and what that says against it stands below.
import type { ComponentChildren } from "preact";
import { useEffect, useId, useLayoutEffect, useRef, useState } from "preact/hooks";
import { pointed, sameNumber } from "../numbers";
import { store, typing } from "../state";

/** Time without a key after which what was typed counts, in ms. */
const PAUSE = 350;

export interface EntryProps {
  id: string;
  label: string;
  value: string;
  /** Takes a value; why it can't, when it can't. */
  commit: (value: string) => Promise<string[]>;
  unit?: string;
  /** the label is for those who do not see the heads of the table round the field */
  inTable?: boolean;
  /** words or a list, not one number */
  words?: boolean;
  /** blank is a value, too */
  optional?: boolean;
  multiline?: boolean;
  disabled?: boolean;
}

export function Entry(props: EntryProps) {
  const { id, label, value, commit, unit, inTable, words, optional, multiline, disabled } = props;
  const isNumber = !words && !multiline;
  const [draft, setDraft] = useState<string | null>(null);
  const [reasons, setReasons] = useState<string[]>([]);
  const timer = useRef(0);
  const focused = useRef(false);
  const gone = useRef(false);
  /** How far the draft is: typed, on its way to the core, or answered. */
  const stage = useRef<"none" | "typed" | "sent" | "accepted" | "refused">("none");
  const sent = useRef(0);
  /** The plan that was open when it was typed. */
  const opened = useRef(store.opened);
  // What was typed goes out after a pause, to what the plan is then.
  const latestCommit = useRef(commit);
  latestCommit.current = commit;
  const waiting = useRef<(() => void) | null>(null);
  const forget = () => {
    clearTimeout(timer.current);
    if (waiting.current) typing.delete(waiting.current);
    waiting.current = null;
  };
  const drop = () => {
    forget();
    ++sent.current;
    stage.current = "none";
    setDraft(null);
    setReasons([]);
  };
  useEffect(
    () => () => {
      // A field that is taken off the page loses its focus, which must send nothing.
      gone.current = true;
      forget();
    },
    [],
  );
  // A value that came from elsewhere (undo, another plan) takes the place of the draft, but for one that is being typed.
  useLayoutEffect(() => {
    if (stage.current === "typed" || stage.current === "sent") return;
    const same = draft !== null && (isNumber ? sameNumber(draft, value) : draft.trim() === value);
    if (focused.current && stage.current === "accepted" && same) return;
    drop();
  }, [value]);

  const send = async (text: string) => {
    forget();
    if (gone.current) return;
    if (opened.current !== store.opened) {
      drop();
      return;
    }
    const mine = ++sent.current;
    stage.current = "sent";
    const said = await latestCommit.current(isNumber ? pointed(text) : text);
    // By then the plan's new value is in the field.
    await new Promise((done) => setTimeout(done));
    if (gone.current || mine !== sent.current) return;
    stage.current = said.length === 0 ? "accepted" : "refused";
    setReasons(said);
    if (said.length === 0 && !focused.current) setDraft(null);
  };
  const typed = (text: string) => {
    setDraft(text);
    forget();
    ++sent.current;
    stage.current = "typed";
    opened.current = store.opened;
    if (text.trim() === "" && !words && !optional) return;
    waiting.current = () => void send(text);
    typing.add(waiting.current);
    timer.current = window.setTimeout(waiting.current, PAUSE);
  };
  const sendDraft = () => {
    if (draft !== null && (stage.current === "typed" || stage.current === "refused")) void send(draft);
  };
  const wrong = reasons.length > 0;
  const common = {
    id,
    value: draft ?? value,
    disabled: disabled ?? false,
    "aria-invalid": wrong,
    ...(wrong ? { "aria-describedby": `${id}-fault` } : {}),
    autocomplete: "off",
    spellcheck: multiline ?? false,
    onFocus: () => {
      focused.current = true;
    },
    onBlur: () => {
      focused.current = false;
      if (gone.current) return;
      if (stage.current === "accepted") drop();
      else sendDraft();
    },
  };
  return (
    <div class={`entry${inTable ? " entry-in-table" : ""}${words ? " entry-words" : ""}`}>
      <label for={id} class={inTable ? "hidden" : undefined}>
        {label}
        {unit ? <span class="unit"> {unit}</span> : null}
      </label>
      {multiline ? (
        <textarea {...common} rows={3} onInput={(event) => typed(event.currentTarget.value)} />
      ) : (
        <input
          {...common}
          type="text"
          inputMode={words ? "text" : "decimal"}
          onInput={(event) => typed(event.currentTarget.value)}
          onKeyDown={(event) => {
            if (event.key === "Enter") sendDraft();
            if (event.key === "Escape" && draft !== null) drop();
          }}
        />
      )}
      {wrong ? <Fault id={`${id}-fault`} reasons={reasons} /> : null}
    </div>
  );
}

export function Fault({ id, reasons }: { id: string; reasons: string[] }) {
  return (
    <p class="fault" id={id} role="alert">
      {reasons.join(" ")}
    </p>
  );
}

/** What was chosen, shown until the plan has it or refused it. */
function useHeld<T>(value: T, put: (value: T) => Promise<unknown> | void): [T, (value: T) => void] {
  const [held, setHeld] = useState<{ value: T } | null>(null);
  const choose = (next: T) => {
    const mine = { value: next };
    setHeld(mine);
    void Promise.resolve(put(next)).finally(() => setHeld((now) => (now === mine ? null : now)));
  };
  return [held ? held.value : value, choose];
}

export function Choice(props: {
  id: string;
  label: string;
  value: string;
  options: readonly (readonly [value: string, words: string])[];
  choose: (value: string) => Promise<unknown> | void;
  inTable?: boolean;
}) {
  const { id, label, options, inTable } = props;
  const [value, choose] = useHeld(props.value, props.choose);
  return (
    <div class={`entry${inTable ? " entry-in-table" : ""}`}>
      <label for={id} class={inTable ? "hidden" : undefined}>
        {label}
      </label>
      <select id={id} value={value} onChange={(event) => choose(event.currentTarget.value)}>
        {options.map(([each, words]) => (
          <option key={each} value={each} selected={each === value}>
            {words}
          </option>
        ))}
      </select>
    </div>
  );
}

export function Tick(props: { id: string; label: string; on: boolean; set: (on: boolean) => Promise<unknown> | void }) {
  const [on, set] = useHeld(props.on, props.set);
  return (
    <label class="tick" for={props.id}>
      <input
        id={props.id}
        type="checkbox"
        checked={on}
        onChange={(event) => set(event.currentTarget.checked)}
      />
      <span>{props.label}</span>
    </label>
  );
}

/** Buttons behind a button. Closes when one is chosen, with Escape, and when the focus leaves it. */
export function Menu(props: {
  id: string;
  label: string;
  face: ComponentChildren;
  children: ComponentChildren;
  side?: "left";
}) {
  const [open, setOpen] = useState(false);
  const box = useRef<HTMLDivElement>(null);
  const button = useRef<HTMLButtonElement>(null);
  const list = useId();
  return (
    <div
      class="menu"
      ref={box}
      onFocusOut={(event) => {
        if (!box.current?.contains(event.relatedTarget as Node | null)) setOpen(false);
      }}
      onKeyDown={(event) => {
        if (event.key !== "Escape" || !open) return;
        event.stopPropagation();
        setOpen(false);
        button.current?.focus();
      }}
    >
      <button
        type="button"
        id={props.id}
        ref={button}
        class="menu-button"
        aria-label={props.label}
        aria-expanded={open}
        aria-controls={list}
        onClick={() => setOpen(!open)}
      >
        {props.face}
      </button>
      <div
        id={list}
        class={`menu-list${props.side === "left" ? " menu-list-left" : ""}`}
        hidden={!open}
        onMouseDown={(event) => {
          // Some browsers give a clicked button no focus: the list would close before the click.
          if (!(event.target instanceof HTMLSelectElement) && !(event.target instanceof HTMLInputElement))
            event.preventDefault();
        }}
        onClick={(event) => {
          if ((event.target as HTMLElement).closest("button[data-closes], label[data-closes]")) {
            setOpen(false);
            button.current?.focus();
          }
        }}
      >
        {open ? props.children : null}
      </div>
    </div>
  );
}

export function MenuEntry(props: { id: string; label: string; act: () => void; disabled?: boolean }) {
  return (
    <button type="button" id={props.id} data-closes disabled={props.disabled ?? false} onClick={props.act}>
      {props.label}
    </button>
  );
}
