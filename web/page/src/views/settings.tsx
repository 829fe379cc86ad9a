// The settings of the dive: one line of the file each.
import { MODELS, option, type EditedDive, type Model } from "../core/commands";
import { MODEL_WORDS } from "../files";
import { store, useStore } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Choice, Entry, Tick } from "./entry";
import { unitsOf, type Units } from "./units";

const idOf = (key: string): string =>
  `set-${key
    .toLowerCase()
    .replace(/[^a-z0-9]+/g, "-")
    .replace(/^-|-$/g, "")}`;
const put = (key: string, value: string, field = "") => store.apply(() => ["--set", `${key}=${value}`], field);
const act = (key: string, value: string) => store.act(() => ["--set", `${key}=${value}`]);

function Setting(props: { dive: EditedDive; name: string; label: number; unit?: string | undefined; words?: boolean }) {
  const { dive, name, label, unit, words } = props;
  return (
    <Entry
      id={idOf(name)}
      label={t(label)}
      value={valueOf(dive, name)}
      {...(unit ? { unit } : {})}
      {...(words ? { words } : {})}
      commit={(text) => put(name, text.trim(), idOf(name))}
    />
  );
}

/** As the core tells the number, else as the file has it. */
function valueOf(dive: EditedDive, key: string): string {
  const value = dive.values[key];
  return typeof value === "number" ? String(value) : (dive.settings[key] ?? "").trim();
}

/** An altitude brings the pressure with it that it usually has. */
function Level(props: { dive: EditedDive; name: string; option: string; label: number; unit: string }) {
  const id = idOf(props.name);
  return (
    <Entry
      id={id}
      label={t(props.label)}
      unit={props.unit}
      value={valueOf(props.dive, props.name)}
      commit={(text) => store.apply(() => option(props.option, text.trim()), id)}
    />
  );
}

function Flag({ dive, name, label }: { dive: EditedDive; name: string; label: number }) {
  return (
    <Tick
      id={idOf(name)}
      label={t(label)}
      on={(dive.settings[name] ?? "").trim() === "1"}
      set={(on) => act(name, on ? "1" : "0")}
    />
  );
}

/** A line that stands in the file, or does not. */
function Line({ dive, name, value, label }: { dive: EditedDive; name: string; value: string; label: number }) {
  return (
    <Tick
      id={idOf(name)}
      label={t(label)}
      on={(dive.settings[name] ?? "").trim() === value}
      set={(on) => act(name, on ? value : "")}
    />
  );
}

/** "flag, high, low" */
function GradientFactors({ dive }: { dive: EditedDive }) {
  const partsOf = (of: EditedDive): string[] => (of.settings["GF"] ?? "").split(",").map((each) => each.trim());
  const shown = (key: string, part: number): string => {
    const value = dive.values[key];
    return typeof value === "number" ? String(value) : (partsOf(dive)[part] ?? "");
  };
  const commit = (part: number) => (text: string) =>
    store.apply((now) => {
      const list = partsOf(now).map((each, at) => (at === part ? text.trim() : each));
      return ["--set", `GF=${list.join(", ")}`];
    }, `gf-${part}`);
  return (
    <>
      <Entry id="gf-low" label={t(Text.LowFactor)} value={shown("GFLow", 2)} commit={commit(2)} />
      <Entry id="gf-high" label={t(Text.HighFactor)} value={shown("GFHigh", 1)} commit={commit(1)} />
    </>
  );
}

function Rebreather({ dive, units }: { dive: EditedDive; units: Units }) {
  return (
    <div class="fields">
      <Setting dive={dive} name="Setpoint" label={Text.Setpoint} unit={units.ppo2} />
      <Setting dive={dive} name="DecoSetpoint" label={Text.SetpointDeco} unit={units.ppo2} />
      <Flag dive={dive} name="OCDeco" label={Text.OpenForDeco} />
      <Line dive={dive} name="# Loop" value="diluent" label={Text.KeepsDiluent} />
      <Line dive={dive} name="# Surface interval" value="air" label={Text.IntervalOnAir} />
    </div>
  );
}

const TURNS = [
  ["all", Text.TurnAll],
  ["half", Text.TurnHalf],
  ["thirds", Text.TurnThird],
] as const;

/** "divers/ stress/ minutes/ rule/" */
function TeamOf({ dive }: { dive: EditedDive }) {
  const partsOf = ({ values: { Team } }: EditedDive): string[] =>
    [Team.team, Team.stress, Team.minutes, Team.rule].map(String);
  const parts = partsOf(dive);
  const edits = (part: number, text: string) => (now: EditedDive) => {
    const list = partsOf(now).map((each, at) => (at === part ? text.trim() : each));
    return ["--set", `# Team=${list.join("/ ")}/`];
  };
  const commit = (part: number) => (text: string) => store.apply(edits(part, text), `team-${part}`);
  return (
    <fieldset>
      <legend>{t(Text.Team)}</legend>
      <div class="fields">
        <Entry id="team-divers" label={t(Text.Divers)} value={parts[0] ?? ""} commit={commit(0)} />
        <Entry id="team-stress" label={t(Text.Stress)} value={parts[1] ?? ""} commit={commit(1)} />
        <Entry id="team-minutes" label={t(Text.MinutesAtDepth)} value={parts[2] ?? ""} commit={commit(2)} />
        <Choice
          id="team-turn"
          label={t(Text.TurnAt)}
          value={parts[3] ?? "all"}
          options={TURNS.map(([value, words]) => [value, t(words)] as const)}
          choose={(rule) => store.act(edits(3, rule))}
        />
      </div>
    </fieldset>
  );
}

/** What is told of the plan in words stands in one line of the file. */
const escaped = (text: string): string => text.replaceAll("\\", "\\\\").replaceAll("\n", "\\n");

export function Settings({ dive }: { dive: EditedDive }) {
  const { plan } = useStore();
  const units = unitsOf(dive);
  const closed = dive.circuit === "closed";
  return (
    <section class="card" aria-labelledby="settings-title">
      <h2 id="settings-title">{t(Text.DiveSettings)}</h2>
      <div class="fields">
        <Choice
          id="model"
          label={t(Text.Model)}
          value={plan.model}
          options={MODELS.map((model) => [model, t(MODEL_WORDS[model])] as const)}
          choose={(model) => store.setModel(model as Model)}
        />
        <Choice
          id="circuit"
          label={t(Text.Circuit)}
          value={dive.circuit}
          options={[
            ["open", t(Text.OpenCircuit)],
            ["closed", t(Text.Rebreather)],
          ]}
          choose={(circuit) => store.act(() => ["--circuit", circuit])}
        />
        <GradientFactors dive={dive} />
        <Setting dive={dive} name="LastStop" label={Text.LastStop} unit={units.depth} />
        <Setting dive={dive} name="StepSize" label={Text.StepSize} unit={units.depth} />
        <Setting dive={dive} name="RMV" label={Text.Rmv} unit={units.rmv} />
        <Setting dive={dive} name="DecoRMV" label={Text.DecoRmv} unit={units.rmv} />
      </div>
      {closed ? <Rebreather dive={dive} units={units} /> : null}
      <details id="settings-more">
        <summary>{t(Text.MoreSettings)}</summary>
        <div class="fields">
          <Setting dive={dive} name="MaxPPO2" label={Text.MaxPpo2} unit={units.ppo2} />
          <Setting dive={dive} name="DecoPPO2" label={Text.DecoPpo2} unit={units.ppo2} />
          <Setting dive={dive} name="MinPPO2" label={Text.MinPpo2} unit={units.ppo2} />
          <Setting dive={dive} name="Maximal END" label={Text.MaxEnd} unit={units.depth} />
          <Flag dive={dive} name="O2Narcotic" label={Text.OxygenNarcotic} />
          <Flag dive={dive} name="DepthAdjust" label={Text.AdjustDepth} />
          <Setting dive={dive} name="DescendRates" label={Text.DescentRates} words />
          <Setting dive={dive} name="AscendRates" label={Text.AscentRates} words />
        </div>
        <fieldset>
          <legend>{t(Text.Altitude)}</legend>
          <div class="fields">
            <Level dive={dive} name="StartAltitude" option="--altitude" label={Text.StartAltitude} unit={units.depth} />
            <Setting dive={dive} name="StartPressure" label={Text.StartPressure} unit={units.ppo2} />
            <Level dive={dive} name="EndAltitude" option="--end-altitude" label={Text.Surfacing} unit={units.depth} />
            <Setting dive={dive} name="EndPressure" label={Text.SurfacingPressure} unit={units.ppo2} />
            <Flag dive={dive} name="AdeptedToHeight" label={Text.Adapted} />
            <Setting dive={dive} name="TimeToHeight" label={Text.TimeToAdapt} unit={t(Text.Minutes)} />
          </div>
        </fieldset>
        <TeamOf dive={dive} />
        <fieldset>
          <legend>{t(Text.PlanSheet)}</legend>
          <Entry
            id="plan-name"
            words
            label={t(Text.PlanName)}
            value={dive.texts.name}
            commit={(text) => put("# Plan name", escaped(text), "plan-name")}
          />
          <Entry
            id="plan-place"
            words
            label={t(Text.Place)}
            value={dive.texts.place}
            commit={(text) => put("# Place", escaped(text), "plan-place")}
          />
          <Entry
            id="plan-notes"
            words
            multiline
            label={t(Text.Notes)}
            value={dive.texts.notes}
            commit={(text) => put("# Notes", escaped(text), "plan-notes")}
          />
        </fieldset>
      </details>
    </section>
  );
}
