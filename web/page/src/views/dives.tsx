// The dives of a series: which is shown, the interval ahead of it, and another one behind the last.
import { useState } from "preact/hooks";
import { option } from "../core/commands";
import { pointed } from "../numbers";
import { store, useStore } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Entry, Fault, Menu } from "./entry";
import { Icon } from "./icons";
import { unitsOf } from "./units";

function AddDive() {
  const { document: plan } = useStore();
  const [interval, setInterval] = useState("60");
  const [depth, setDepth] = useState("");
  const [time, setTime] = useState("");
  const [reasons, setReasons] = useState<string[]>([]);
  const last = plan.dives.at(-1);
  const gas = last?.legs.find((leg) => !leg.ascent)?.gas ?? "";
  const units = last ? unitsOf(last) : null;
  const fields = [
    ["add-dive-interval", t(Text.IntervalMinutes), "", interval, setInterval],
    ["add-dive-depth", t(Text.Depth), units?.depth ?? "", depth, setDepth],
    ["add-dive-time", t(Text.Time), t(Text.Minutes), time, setTime],
  ] as const;
  return (
    <Menu id="add-dive" label={t(Text.AddDive)} face={<Icon name="add" />} side="left">
      <form
        class="menu-form"
        aria-label={t(Text.AddDive)}
        onSubmit={(event) => {
          event.preventDefault();
          void store
            .addDive(pointed(interval.trim()), `${pointed(depth.trim())}:${pointed(time.trim())}@${gas}`)
            .then(setReasons);
        }}
      >
        {fields.map(([id, label, unit, value, set]) => (
          <div class="entry" key={id}>
            <label for={id}>
              {label} <span class="unit">{unit}</span>
            </label>
            <input
              id={id}
              type="text"
              inputMode="decimal"
              autocomplete="off"
              value={value}
              aria-invalid={reasons.length > 0}
              {...(reasons.length > 0 ? { "aria-describedby": "add-dive-fault" } : {})}
              onInput={(event) => set(event.currentTarget.value)}
            />
          </div>
        ))}
        {reasons.length > 0 ? <Fault id="add-dive-fault" reasons={reasons} /> : null}
        <button type="submit" class="primary" id="add-dive-button">
          {t(Text.AddDive)}
        </button>
      </form>
    </Menu>
  );
}

export function Dives() {
  const { document: plan, dive } = useStore();
  const shown = plan.dives[dive];
  return (
    <section class="dives" aria-label={t(Text.Plan)}>
      <div class="dive-row">
        {plan.dives.map((each, index) => (
          <button
            type="button"
            key={each.number}
            id={`dive-${each.number}`}
            aria-pressed={index === dive}
            onClick={() => store.chooseDive(index)}
          >
            {t(Text.DiveOf, each.number)}
          </button>
        ))}
        <AddDive />
      </div>
      {shown && plan.dives.length > 1 ? (
        <div class="dive-row">
          {dive > 0 ? (
            <Entry
              key={shown.number}
              id="interval"
              label={t(Text.IntervalMinutes)}
              value={String(shown.surface_interval)}
              commit={(text) => store.apply(() => option("--interval", text.trim()), "interval")}
            />
          ) : null}
          <button type="button" id="remove-dive" onClick={() => void store.act(() => ["--remove-dive"])}>
            {t(Text.RemoveDive, shown.number)}
          </button>
        </div>
      ) : null}
    </section>
  );
}
