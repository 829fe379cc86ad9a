// The legs of the dive: a row each, and a form that adds one.
import { useState } from "preact/hooks";
import { option, type EditedDive, type Leg } from "../core/commands";
import { pointed } from "../numbers";
import { store } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Choice, Entry, Fault, Menu, MenuEntry } from "./entry";
import { Icon } from "./icons";
import { usePages } from "./pages";
import { unitsOf } from "./units";

type Value = string | number | null;
const legOf = (depth: Value, time: Value, gas: string): string => `${depth}:${time}@${gas}`;

/** What is done with an action as a whole: a leg, or an ascent between legs. `last` is the action ahead of the final ascent. */
function ActionMenu({ leg, words, last }: { leg: Leg; words: string; last: number }) {
  const id = `leg-${leg.action}`;
  const act = (...edits: string[]) => void store.act(() => edits);
  return (
    <Menu id={`${id}-more`} label={t(Text.MoreOf, words)} face={<Icon name="more" />}>
      {leg.ascent ? null : (
        <>
          <MenuEntry
            id={`${id}-insert`}
            label={t(Text.InsertLeg)}
            act={() => act("--insert-leg", `${leg.action}=${legOf(leg.depth, leg.time, leg.gas)}`)}
          />
          <MenuEntry
            id={`${id}-up`}
            label={t(Text.MoveUp)}
            disabled={leg.action === 1}
            act={() => act("--move-leg", `${leg.action}=${leg.action - 1}`)}
          />
          <MenuEntry
            id={`${id}-down`}
            label={t(Text.MoveDown)}
            disabled={leg.action >= last}
            act={() => act("--move-leg", `${leg.action}=${leg.action + 1}`)}
          />
        </>
      )}
      <MenuEntry id={`${id}-remove`} label={t(Text.DeleteLeg)} act={() => act("--remove-leg", String(leg.action))} />
    </Menu>
  );
}

function AscentRow({ leg, last }: { leg: Leg; last: number }) {
  const final = leg.action > last;
  return (
    <tr class="ascent">
      <td />
      <td colSpan={final ? 4 : 3}>{t(Text.Ascent)}</td>
      {final ? null : (
        <td>
          <ActionMenu leg={leg} words={t(Text.Ascent)} last={last} />
        </td>
      )}
    </tr>
  );
}

function LegRow({ leg, number, dive, last }: { leg: Leg; number: number; dive: EditedDive; last: number }) {
  const id = `leg-${leg.action}`;
  const alter = (other: { depth?: string; time?: string; gas?: string }, field = "") =>
    store.apply((now) => {
      const { depth, time, gas } = { ...leg, ...now.legs.find((each) => each.action === leg.action), ...other };
      return ["--leg", `${leg.action}=${legOf(depth, time, gas)}`];
    }, field);
  return (
    <tr>
      <th scope="row">{number}</th>
      <td>
        <Entry
          id={`${id}-depth`}
          inTable
          label={t(Text.LegDepth, number)}
          value={String(leg.depth)}
          commit={(text) => alter({ depth: text.trim() }, `${id}-depth`)}
        />
      </td>
      <td>
        <Entry
          id={`${id}-time`}
          inTable
          label={t(Text.LegTime, number)}
          value={String(leg.time)}
          commit={(text) => alter({ time: text.trim() }, `${id}-time`)}
        />
      </td>
      <td class="wide">
        <Choice
          id={`${id}-gas`}
          inTable
          label={t(Text.LegGas, number)}
          value={leg.gas}
          options={dive.gases.map((gas) => [gas.name, gas.name] as const)}
          choose={(gas) => alter({ gas })}
        />
      </td>
      <td>
        <ActionMenu leg={leg} words={t(Text.LegOf, number)} last={last} />
      </td>
    </tr>
  );
}

function AddLeg({ dive, added }: { dive: EditedDive; added: () => void }) {
  const [depth, setDepth] = useState("");
  const [time, setTime] = useState("");
  const [chosen, setChosen] = useState("");
  const [reasons, setReasons] = useState<string[]>([]);
  const units = unitsOf(dive);
  const last = dive.legs.filter((leg) => !leg.ascent).at(-1);
  const gas = dive.gases.some((each) => each.name === chosen) ? chosen : (last?.gas ?? dive.gases[0]?.name ?? "");
  const wrong = reasons.length > 0;
  const described = wrong ? { "aria-describedby": "add-leg-fault" } : {};
  return (
    <form
      id="add-leg"
      class="row-form"
      aria-label={t(Text.AddLeg)}
      onSubmit={(event) => {
        event.preventDefault();
        void store
          .apply(() => option("--add-leg", legOf(pointed(depth.trim()), pointed(time.trim()), gas)))
          .then((faults) => {
            setReasons(faults);
            if (faults.length) return;
            added();
            setDepth("");
            setTime("");
            document.getElementById("add-leg-depth")?.focus();
          });
      }}
    >
      <div class="entry">
        <label for="add-leg-depth">
          {t(Text.Depth)} <span class="unit">{units.depth}</span>
        </label>
        <input
          id="add-leg-depth"
          type="text"
          inputMode="decimal"
          autocomplete="off"
          value={depth}
          aria-invalid={wrong}
          {...described}
          onInput={(event) => setDepth(event.currentTarget.value)}
        />
      </div>
      <div class="entry">
        <label for="add-leg-time">
          {t(Text.Time)} <span class="unit">{t(Text.Minutes)}</span>
        </label>
        <input
          id="add-leg-time"
          type="text"
          inputMode="decimal"
          autocomplete="off"
          value={time}
          aria-invalid={wrong}
          {...described}
          onInput={(event) => setTime(event.currentTarget.value)}
        />
      </div>
      <Choice
        id="add-leg-gas"
        label={t(Text.Gas)}
        value={gas}
        options={dive.gases.map((each) => [each.name, each.name] as const)}
        choose={setChosen}
      />
      <button type="submit" class="primary" id="add-leg-button">
        {t(Text.AddLeg)}
      </button>
      {wrong ? <Fault id="add-leg-fault" reasons={reasons} /> : null}
    </form>
  );
}

export function Legs({ dive }: { dive: EditedDive }) {
  const units = unitsOf(dive);
  const pages = usePages(dive.legs, "legs");
  const final = dive.legs.at(-1);
  const last = dive.legs.length - (final?.ascent ? 1 : 0);
  let number = dive.legs.slice(0, pages.first).filter((leg) => !leg.ascent).length;
  return (
    <section class="card" aria-labelledby="legs-title">
      <h2 id="legs-title">{t(Text.Legs)}</h2>
      <table class="entries" id="legs">
        <caption class="hidden">{t(Text.Legs)}</caption>
        <thead>
          <tr>
            <td />
            <th scope="col">
              {t(Text.Depth)} <span class="unit">{units.depth}</span>
            </th>
            <th scope="col">
              {t(Text.Time)} <span class="unit">{t(Text.Minutes)}</span>
            </th>
            <th scope="col">{t(Text.Gas)}</th>
            <td />
          </tr>
        </thead>
        <tbody>
          {pages.shown.map((leg) =>
            leg.ascent ? (
              <AscentRow key={leg.action} leg={leg} last={last} />
            ) : (
              <LegRow key={leg.action} leg={leg} number={++number} dive={dive} last={last} />
            ),
          )}
        </tbody>
      </table>
      {pages.turn}
      <AddLeg dive={dive} added={pages.showLast} />
    </section>
  );
}
