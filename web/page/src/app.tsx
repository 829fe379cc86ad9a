// TAV in a browser: entries, schedule, graph and tools of the open plan. All figures and words are the core's.
import { Fragment, render } from "preact";
import { useEffect, useState } from "preact/hooks";
import { planner } from "./core/client";
import { openFile, openLink, savePlan } from "./files";
import { showLook } from "./looks";
import { keepOffline, type Offline } from "./offline";
import { store, useStore } from "./state";
import { Text } from "./text_ids";
import { t } from "./texts";
import { Dives } from "./views/dives";
import { Cylinders, Gases } from "./views/gases";
import { Header } from "./views/header";
import { Icon } from "./views/icons";
import { Legs } from "./views/legs";
import { Notice } from "./views/notice";
import { Findings, GraphPane, Schedule, Summary, Supply } from "./views/schedule";
import { Settings } from "./views/settings";
import { Tools } from "./views/tools";

type Section = "plan" | "schedule" | "graph" | "tools";
const SECTIONS: readonly (readonly [Section, number])[] = [
  ["plan", Text.Plan],
  ["schedule", Text.Schedule],
  ["graph", Text.Graph],
  ["tools", Text.Tools],
];

/** What stays as long as it is so, with a button that does something about it. */
function Lasting(props: { id: string; text: string; kind?: "done"; label?: string; act?: () => void }) {
  return (
    <div class={`message message-${props.kind ?? "problem"}`} id={props.id}>
      <p>{props.text}</p>
      {props.act ? (
        <button type="button" id={`${props.id}-button`} class="message-act" onClick={props.act}>
          {props.label}
        </button>
      ) : null}
    </div>
  );
}

async function takeOver(): Promise<void> {
  await store.settled();
  store.keepNow();
  store.state.update?.();
}

function Told() {
  const { message, unkept, slow, update } = useStore();
  return (
    <>
      <div class="lasting" role="status">
        {unkept ? <Lasting id="unkept" text={t(Text.NotKept)} /> : null}
        {slow ? <Lasting id="slow" text={t(Text.Slow)} label={t(Text.Abort)} act={() => planner.skip()} /> : null}
        {update ? (
          <Lasting
            id="update"
            kind="done"
            text={t(Text.UpdateThere)}
            label={t(Text.TakeOver)}
            act={() => void takeOver()}
          />
        ) : null}
      </div>
      <div class="messages" role="status" id="message">
        {message ? (
          <div class={`message message-${message.kind}`}>
            <p>{message.text}</p>
            <button type="button" id="message-close" aria-label={t(Text.Close)} onClick={() => store.tell("")}>
              <Icon name="close" />
            </button>
          </div>
        ) : null}
      </div>
    </>
  );
}

function useDropping(): boolean {
  const [over, setOver] = useState(false);
  useEffect(() => {
    const holdsFile = (event: DragEvent) => event.dataTransfer?.types.includes("Files") ?? false;
    const drag = (event: DragEvent) => {
      if (!holdsFile(event)) return;
      event.preventDefault();
      setOver(true);
    };
    const leave = (event: DragEvent) => {
      if (event.relatedTarget === null) setOver(false);
    };
    const drop = (event: DragEvent) => {
      if (!holdsFile(event)) return;
      event.preventDefault();
      setOver(false);
      const file = event.dataTransfer?.files[0];
      if (file) void openFile(file);
    };
    addEventListener("dragover", drag);
    addEventListener("dragleave", leave);
    addEventListener("drop", drop);
    return () => {
      removeEventListener("dragover", drag);
      removeEventListener("dragleave", leave);
      removeEventListener("drop", drop);
    };
  }, []);
  return over;
}

/** Undo and redo by key, where no field that is being typed into has its own. */
function onKey(event: KeyboardEvent): void {
  if (!(event.ctrlKey || event.metaKey) || event.altKey) return;
  const key = event.key.toLowerCase();
  if (key === "s") {
    event.preventDefault();
    void savePlan();
    return;
  }
  const field = event.target instanceof HTMLInputElement || event.target instanceof HTMLTextAreaElement;
  if (field || (key !== "z" && key !== "y")) return;
  event.preventDefault();
  void store.step(key === "z" && !event.shiftKey);
}

function App() {
  const state = useStore();
  const [section, setSection] = useState<Section>("plan");
  const [offline, setOffline] = useState<Offline>("unknown");
  const dropping = useDropping();
  useEffect(() => {
    void keepOffline((update) => store.set({ update })).then(setOffline);
    addEventListener("keydown", onKey);
    return () => removeEventListener("keydown", onKey);
  }, []);
  useEffect(() => {
    document.title = `${store.dirty ? "\u25cf " : ""}${state.plan.name} - TAV`;
  }, [state.plan]);
  useEffect(() => {
    // The browser keeps the plan; only where it refuses, closing the page loses it.
    const ask = (event: BeforeUnloadEvent) => {
      store.keepNow();
      if (store.state.unkept && store.dirty) event.preventDefault();
    };
    addEventListener("beforeunload", ask);
    return () => removeEventListener("beforeunload", ask);
  }, []);
  const dive = store.dive;
  // Fields of another dive or plan are others, and so is what a tool told of it.
  const key = `${state.language}-${state.dive}-${store.opened}`;
  return (
    <>
      <Notice />
      <Header />
      <nav class="sections" aria-label={t(Text.Sections)}>
        {SECTIONS.map(([id, words]) => (
          <button
            type="button"
            key={id}
            id={`section-${id}`}
            aria-current={id === section ? "page" : undefined}
            onClick={() => {
              setSection(id);
              window.scrollTo(0, 0);
            }}
          >
            {t(words)}
          </button>
        ))}
      </nav>
      <Told />
      <main class={`main shows-${section}`}>
        <div class="pane pane-plan">
          <Dives />
          <Summary />
          <Fragment key={key}>
            <Legs dive={dive} />
            <Gases dive={dive} />
            <Cylinders dive={dive} />
            <Settings dive={dive} />
          </Fragment>
        </div>
        <div class="pane pane-schedule">
          <Schedule />
          <Findings />
          <Supply />
        </div>
        <div class="pane pane-graph">
          <GraphPane />
        </div>
        <div class="pane pane-tools">
          <Tools key={key} />
        </div>
      </main>
      <footer class="foot">
        <p>{t(Text.Caution)}</p>
        {offline === "unknown" ? null : (
          <p id="offline">{offline === "kept" ? t(Text.WorksOffline) : t(Text.NoOffline)}</p>
        )}
      </footer>
      {dropping ? <div class="drop">{t(Text.DropHere)}</div> : null}
    </>
  );
}

/** Told in English: the texts of all languages are within the core. */
const CORE_FAILED = "TAV's core could not be started in this browser.";

showLook();
const root = document.getElementById("app");
if (root) {
  try {
    await store.start();
    root.replaceChildren();
    render(<App />, root);
    await openLink();
    addEventListener("hashchange", () => void openLink());
  } catch (error) {
    const told = document.createElement("p");
    told.className = "starting";
    told.setAttribute("role", "alert");
    told.textContent = `${CORE_FAILED} ${String(error)}`;
    root.replaceChildren(told);
  }
}
