// What stands behind "Tools": each a form of the options of one command.
import { useState } from "preact/hooks";
import { innerName, modelOptions, option } from "../core/commands";
import { pointed } from "../numbers";
import { store, useStore } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Choice, Tick } from "./entry";
import { Field, Tool, onPlan, type Request } from "./tool";
import { unitsOf } from "./units";

/** An option with its words or list, left out when nothing is told. */
const told = (name: string, value: string): string[] => (value.trim() === "" ? [] : option(name, value.trim()));
/** The same with one number. */
const number = (name: string, value: string): string[] => told(name, pointed(value.trim()));

function WhatIf() {
  const units = unitsOf(store.dive);
  const [longer, setLonger] = useState("5");
  const [deeper, setDeeper] = useState(store.dive.metric ? "3" : "10");
  const [factors, setFactors] = useState("");
  const options = [
    ...number("--longer", longer),
    ...number("--deeper", deeper),
    ...factors.split(/[\s,;]+/).flatMap((each) => told("--gf", each)),
  ];
  return (
    <Tool
      id="what-if"
      title={t(Text.WhatIf)}
      request={() => onPlan("whatif", options)}
      options={["--longer", "--deeper", "--gf"]}
    >
      <Field
        id="what-if-longer"
        option="--longer"
        label={t(Text.LongerBy)}
        unit={t(Text.Minutes)}
        value={longer}
        set={setLonger}
      />
      <Field
        id="what-if-deeper"
        option="--deeper"
        label={t(Text.DeeperBy)}
        unit={units.depth}
        value={deeper}
        set={setDeeper}
      />
      <Field id="what-if-gf" option="--gf" label={t(Text.OtherFactors)} value={factors} set={setFactors} words />
    </Tool>
  );
}

const LIMITS = ["--max-run", "--max-stops", "--max-cns"];
const MIX_OPTIONS = ["--have", "--want", "--top", "--temperature", "--warm", "--steps"];

/** Limits of margins and of the longest stay; what is not told is as the plan has it. */
function useLimits(prefix: string) {
  const [leg, setLeg] = useState("");
  const [run, setRun] = useState("");
  const [stops, setStops] = useState("");
  const [cns, setCns] = useState("");
  const [gas, setGas] = useState(true);
  const legs = store.dive.legs.filter((each) => !each.ascent);
  const options = [
    ...number("--leg", leg),
    ...number("--max-run", run),
    ...number("--max-stops", stops),
    ...number("--max-cns", cns),
    ...(gas ? [] : ["--no-gas"]),
  ];
  const fields = (
    <>
      <Choice
        id={`${prefix}-leg`}
        label={t(Text.MarginLeg)}
        value={leg}
        options={[
          ["", "\u2013"] as const,
          ...legs.map((each, index) => [String(index + 1), `${index + 1}: ${each.depth}, ${each.time}`] as const),
        ]}
        choose={setLeg}
      />
      <Field id={`${prefix}-run`} option="--max-run" label={t(Text.LimitRun)} value={run} set={setRun} />
      <Field id={`${prefix}-stops`} option="--max-stops" label={t(Text.LimitStops)} value={stops} set={setStops} />
      <Field id={`${prefix}-cns`} option="--max-cns" label={t(Text.LimitCns)} value={cns} set={setCns} />
      <Tick id={`${prefix}-gas`} label={t(Text.LimitGas)} on={gas} set={setGas} />
    </>
  );
  return { options, fields };
}

function Margins() {
  const limits = useLimits("margins");
  const [longer, setLonger] = useState("-10:20:1");
  const [deeper, setDeeper] = useState(store.dive.metric ? "-6:12:1" : "-20:40:5");
  const options = [...told("--longer", longer), ...told("--deeper", deeper), ...limits.options];
  return (
    <Tool
      id="margins"
      title={t(Text.Margins)}
      request={() => onPlan("margins", options)}
      options={["--longer", "--deeper", ...LIMITS]}
    >
      <Field id="margins-longer" option="--longer" label={t(Text.MinutesLonger)} value={longer} set={setLonger} words />
      <Field
        id="margins-deeper"
        option="--deeper"
        label={t(Text.Deeper)}
        unit={unitsOf(store.dive).depth}
        value={deeper}
        set={setDeeper}
        words
      />
      {limits.fields}
    </Tool>
  );
}

function Longest() {
  const limits = useLimits("longest");
  const [noStop, setNoStop] = useState(false);
  const options = [...(noStop ? ["--no-stop"] : []), ...limits.options];
  return (
    <Tool id="longest" title={t(Text.LongestStay)} request={() => onPlan("longest", options)} options={LIMITS}>
      {limits.fields}
      <Tick id="longest-no-stop" label={t(Text.WithoutStop)} on={noStop} set={setNoStop} />
    </Tool>
  );
}

function BailOut() {
  const [interval, setInterval] = useState("5");
  const [ends, setEnds] = useState(false);
  const options = ends ? ["--leg-ends"] : number("--interval", interval);
  return (
    <Tool id="bail-out" title={t(Text.BailOut)} request={() => onPlan("bailout", options)} options={["--interval"]}>
      <Field
        id="bail-out-interval"
        option="--interval"
        label={t(Text.BailOutEvery)}
        unit={t(Text.Minutes)}
        value={interval}
        set={setInterval}
      />
      <Tick id="bail-out-ends" label={t(Text.LegEnds)} on={ends} set={setEnds} />
    </Tool>
  );
}

function Comparison() {
  const { plan, compared } = useStore();
  const request = (): Request => {
    const names = [innerName(compared?.name ?? ""), innerName(plan.name)] as const;
    const [kept, now] = names[0] === names[1] ? [`1-${names[0]}`, `2-${names[1]}`] : names;
    const files = { [kept]: compared?.text ?? "", [now]: plan.text };
    return { args: ["compare", kept, now, ...modelOptions(plan.model)], files };
  };
  const keepIt = (
    <button type="button" id="compare-keep" onClick={() => void store.keepForComparison()}>
      {t(Text.KeepForComparison)}
    </button>
  );
  if (!compared) {
    return (
      <section class="card tool" aria-labelledby="compare-title" id="compare">
        <h2 id="compare-title">{t(Text.Comparison)}</h2>
        <div class="buttons">{keepIt}</div>
      </section>
    );
  }
  return (
    <Tool id="compare" title={t(Text.Comparison)} request={request}>
      {keepIt}
    </Tool>
  );
}

/** Oxygen and helium in per cent, and pressure. */
type Mix = readonly [o2: string, he: string, pressure: string];

const USUAL_MIXES: Record<"bar" | "psi", { have: Mix; want: Mix }> = {
  bar: { have: ["21", "0", "1"], want: ["32", "0", "200"] },
  psi: { have: ["21", "0", "14.7"], want: ["32", "0", "3000"] },
};

function Mixer() {
  const [imperial, setImperial] = useState(!store.dive.metric);
  const usual = USUAL_MIXES[imperial ? "psi" : "bar"];
  const [have, setHave] = useState<Mix>(usual.have);
  const [want, setWant] = useState<Mix>(usual.want);
  const [top, setTop] = useState<readonly [string, string]>(["", ""]);
  const [temperature, setTemperature] = useState("");
  const [warm, setWarm] = useState("");
  const [steps, setSteps] = useState("");
  /** Pressures that were typed in one unit are none in the other. */
  const setUnits = (psi: boolean) => {
    const { have, want } = USUAL_MIXES[psi ? "psi" : "bar"];
    setImperial(psi);
    setHave(have);
    setWant(want);
  };
  const mix = (parts: Mix): string => {
    const [o2, he, pressure] = parts.map((each) => pointed(each.trim()));
    return `${o2}/${he || "0"}@${pressure}`;
  };
  const request = (): Request => ({
    args: [
      "mix",
      ...option("--have", mix(have)),
      ...(want[2].trim() === "" ? [] : option("--want", mix(want))),
      ...(top[0].trim() === "" ? [] : option("--top", `${pointed(top[0].trim())}/${pointed(top[1].trim()) || "0"}`)),
      ...number("--temperature", temperature),
      ...number("--warm", warm),
      ...told("--steps", steps),
      ...(imperial ? ["--imperial"] : []),
    ],
    files: {},
  });
  const cylinder = (id: string, option: string, title: number, value: Mix, set: (value: Mix) => void) => (
    <fieldset class="wide-field">
      <legend>{t(title)}</legend>
      <div class="fields">
        <Field
          id={`${id}-o2`}
          label={t(Text.Oxygen)}
          unit="%"
          value={value[0]}
          set={(o2) => set([o2, value[1], value[2]])}
        />
        <Field
          id={`${id}-he`}
          label={t(Text.Helium)}
          unit="%"
          value={value[1]}
          set={(he) => set([value[0], he, value[2]])}
        />
        <Field
          id={`${id}-pressure`}
          option={option}
          label={t(Text.Fill)}
          unit={t(imperial ? Text.UnitPsi : Text.Bar)}
          value={value[2]}
          set={(pressure) => set([value[0], value[1], pressure])}
        />
      </div>
    </fieldset>
  );
  return (
    <Tool id="mixer" title={t(Text.Mixer)} request={request} options={MIX_OPTIONS}>
      {cylinder("mixer-have", "--have", Text.MixerHave, have, setHave)}
      {cylinder("mixer-want", "--want", Text.MixerWant, want, setWant)}
      <Field
        id="mixer-top-o2"
        option="--top"
        label={t(Text.OnTopO2)}
        unit="%"
        value={top[0]}
        set={(o2) => setTop([o2, top[1]])}
      />
      <Field id="mixer-top-he" label={t(Text.OnTopHe)} unit="%" value={top[1]} set={(he) => setTop([top[0], he])} />
      <Field
        id="mixer-temperature"
        option="--temperature"
        label={t(Text.GaugeAt)}
        unit={"\u00b0C"}
        value={temperature}
        set={setTemperature}
      />
      <Field id="mixer-warm" option="--warm" label={t(Text.FilledWarm)} unit={"\u00b0C"} value={warm} set={setWarm} />
      <Field
        id="mixer-steps"
        option="--steps"
        label={t(Text.Steps)}
        value={steps}
        set={setSteps}
        hint={t(Text.StepsHint)}
        words
      />
      <Tick id="mixer-imperial" label={t(Text.UnitPsi)} on={imperial} set={setUnits} />
    </Tool>
  );
}

const TOOLS = [
  ["what-if", Text.WhatIf, WhatIf],
  ["margins", Text.Margins, Margins],
  ["longest", Text.LongestStay, Longest],
  ["bail-out", Text.BailOut, BailOut],
  ["compare", Text.Comparison, Comparison],
  ["mixer", Text.Mixer, Mixer],
] as const;

export function Tools() {
  const [chosen, setChosen] = useState<string>("what-if");
  return (
    <div id="tools">
      <nav class="tool-row" aria-label={t(Text.Tools)}>
        {TOOLS.map(([id, title]) => (
          <button type="button" key={id} id={`tool-${id}`} aria-pressed={id === chosen} onClick={() => setChosen(id)}>
            {t(title)}
          </button>
        ))}
      </nav>
      {/* A tool that was left keeps what was typed into it and what it told. */}
      {TOOLS.map(([id, , View]) => (
        <div key={id} hidden={id !== chosen}>
          <View />
        </div>
      ))}
    </div>
  );
}
