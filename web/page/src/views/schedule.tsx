// What the core computed: schedule, findings, gas supply and graph. The last good schedule stays while there is no
// other, and says so.
import { useStore } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Remark, Shown, partsOf } from "./shown";

function useParts() {
  const state = useStore();
  const dive = state.schedule?.dives[state.dive];
  return { state, parts: dive ? partsOf(dive.shown) : null };
}

/** Why there is no schedule of the plan as it is, or no picture. */
function Problems({ problems }: { problems: string[] }) {
  return problems.length ? (
    <div class="remark remark-danger" role="alert">
      <span class="sign" aria-hidden="true">
        {"\u25a0"}
      </span>
      <span>{problems.join(" ")}</span>
    </div>
  ) : null;
}

/** Run time and what was found in short, beside the entries. */
export function Summary() {
  const { state, parts } = useParts();
  if (!parts) return <Problems problems={state.problems} />;
  const totals = parts.schedule.slice(parts.schedule.findIndex((block) => block.table) + 1);
  const dangers = parts.findings.filter((block) => block.severity === "danger").length;
  const cautions = parts.findings.filter((block) => block.severity === "caution").length;
  return (
    <div id="summary" class={state.stale ? "summary stale" : "summary"} aria-busy={state.computing}>
      <Problems problems={state.problems} />
      <p aria-live="polite" id="summary-words">
        {totals[0]?.text ?? ""}
        {dangers ? (
          <span class="count remark-danger">
            {" "}
            {`\u25a0 ${dangers}`}
            <span class="hidden"> {t(Text.Danger)}</span>
          </span>
        ) : null}
        {cautions ? (
          <span class="count remark-caution">
            {" "}
            {`\u25b2 ${cautions}`}
            <span class="hidden"> {t(Text.CautionWord)}</span>
          </span>
        ) : null}
      </p>
    </div>
  );
}

export function Schedule() {
  const { state, parts } = useParts();
  return (
    <section
      class={`card${state.stale ? " stale" : ""}`}
      aria-labelledby="schedule-title"
      aria-busy={state.computing}
      id="schedule"
    >
      <h2 id="schedule-title">{t(Text.Schedule)}</h2>
      <Problems problems={state.problems} />
      {state.problems.length && parts ? <p class="told">{t(Text.ScheduleOfBefore)}</p> : null}
      {parts ? <Shown blocks={parts.schedule} caption={t(Text.Schedule)} /> : null}
      {parts || !state.computing ? null : <p role="status">{t(Text.Computing)}</p>}
    </section>
  );
}

export function Findings() {
  const { state, parts } = useParts();
  if (!parts) return null;
  return (
    <section class={`card${state.stale ? " stale" : ""}`} aria-labelledby="findings-title" id="findings">
      <h2 id="findings-title">{t(Text.Check)}</h2>
      {state.remarks.map((remark) => (
        <p key={remark} class="advice">
          {remark}
        </p>
      ))}
      {parts.findings.length === 0 ? <p>{t(Text.NothingToMark)}</p> : null}
      <ul class="plain">
        {parts.findings.map((block, index) => (
          <li key={index}>
            <Remark severity={block.severity ?? "note"} text={block.text ?? ""} />
          </li>
        ))}
      </ul>
    </section>
  );
}

export function Supply() {
  const { state, parts } = useParts();
  if (!parts || parts.supply.length === 0) return null;
  const title = parts.supply[0]?.heading;
  return (
    <section class={`card${state.stale ? " stale" : ""}`} aria-labelledby="supply-title" id="supply">
      <h2 id="supply-title">{title ?? t(Text.Supply)}</h2>
      <Shown blocks={parts.supply.slice(title ? 1 : 0)} caption={title ?? t(Text.Supply)} />
    </section>
  );
}

export function GraphPane() {
  const { graph, graphProblems, drawing, problems, plan, document, dive } = useStore();
  const sameDive = graph?.dive === document.dives[dive]?.number;
  const current = graph?.plan.text === plan.text && graph.plan.model === plan.model;
  const stale = graph !== null && !current;
  return (
    <section
      class={`card${stale ? " stale" : ""}`}
      aria-labelledby="graph-title"
      aria-busy={drawing}
      id="graph"
    >
      <h2 id="graph-title">{t(Text.Graph)}</h2>
      <Problems problems={[...problems, ...graphProblems]} />
      {graph && sameDive && (current || drawing) ? <img class="graph" src={graph.url} alt={graph.words} /> : null}
    </section>
  );
}
