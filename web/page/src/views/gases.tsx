// The gases of the dive, from which depth each is breathed on the way up, and the cylinders that hold them.
import { useState } from "preact/hooks";
import { option, type Cylinder, type EditedDive, type Gas } from "../core/commands";
import { store } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Choice, Entry, Fault, Menu, MenuEntry, Tick } from "./entry";
import { Icon } from "./icons";
import { unitsOf } from "./units";

function GasRow({ gas, index, dive }: { gas: Gas; index: number; dive: EditedDive }) {
  const id = `gas-${index}`;
  const depths = dive.changes.filter((each) => each.gas === gas.name).map((each) => each.depth);
  const own = index > 0;
  const now = (then: EditedDive): Gas => then.gases[index] ?? gas;
  return (
    <tr>
      <th scope="row">
        {own ? (
          <Entry
            id={`${id}-name`}
            inTable
            words
            label={t(Text.NameOf, gas.name)}
            value={gas.name}
            commit={(name) =>
              store.apply((then) => option("--rename-gas", `${now(then).name}=${name.trim()}`), `${id}-name`)
            }
          />
        ) : (
          gas.name
        )}
      </th>
      <td>
        {own ? (
          <Entry
            id={`${id}-o2`}
            inTable
            label={t(Text.OxygenOf, gas.name)}
            value={String(gas.o2)}
            commit={(o2) =>
              store.apply((then) => option("--gas", `${now(then).name}:${o2.trim()}/${now(then).he}`), `${id}-o2`)
            }
          />
        ) : (
          gas.o2
        )}
      </td>
      <td>
        {own ? (
          <Entry
            id={`${id}-he`}
            inTable
            label={t(Text.HeliumOf, gas.name)}
            value={String(gas.he)}
            commit={(he) =>
              store.apply((then) => option("--gas", `${now(then).name}:${now(then).o2}/${he.trim()}`), `${id}-he`)
            }
          />
        ) : (
          gas.he
        )}
      </td>
      <td>
        <Entry
          id={`${id}-from`}
          inTable
          optional
          label={t(Text.FromDepthOf, gas.name)}
          value={depths.length ? String(Math.max(...depths)) : ""}
          commit={(depth) =>
            store.apply((then) => {
              const { name } = now(then);
              if (depth.trim() !== "") return option("--from", `${name}=${depth.trim()}`);
              return then.changes.some((each) => each.gas === name) ? option("--not-from", name) : [];
            }, `${id}-from`)
          }
        />
        {depths.length > 1 ? (
          <p class="hint">
            {depths.join(", ")} {unitsOf(dive).depth}
          </p>
        ) : null}
      </td>
      <td>
        {own ? (
          <Menu id={`${id}-more`} label={t(Text.MoreOf, gas.name)} face={<Icon name="more" />}>
            <MenuEntry
              id={`${id}-remove`}
              label={t(Text.Remove, gas.name)}
              act={() => void store.act(() => option("--remove-gas", gas.name))}
            />
          </Menu>
        ) : null}
      </td>
    </tr>
  );
}

function AddGas() {
  const [name, setName] = useState("");
  const [reasons, setReasons] = useState<string[]>([]);
  const wrong = reasons.length > 0;
  return (
    <form
      id="add-gas"
      class="row-form"
      aria-label={t(Text.AddGas)}
      onSubmit={(event) => {
        event.preventDefault();
        void store
          .apply(() => option("--gas", name.trim()))
          .then((faults) => {
            setReasons(faults);
            if (!faults.length) setName("");
          });
      }}
    >
      <div class="entry entry-words">
        <label for="add-gas-name">{t(Text.GasByName)}</label>
        <input
          id="add-gas-name"
          type="text"
          autocomplete="off"
          spellcheck={false}
          placeholder="EAN36, Tx15/60"
          value={name}
          aria-invalid={wrong}
          {...(wrong ? { "aria-describedby": "add-gas-fault" } : {})}
          onInput={(event) => setName(event.currentTarget.value)}
        />
      </div>
      <button type="submit" id="add-gas-button">
        {t(Text.AddGas)}
      </button>
      {wrong ? <Fault id="add-gas-fault" reasons={reasons} /> : null}
    </form>
  );
}

/** Changes to gases that the list does not have. */
function OtherChanges({ dive }: { dive: EditedDive }) {
  const others = dive.changes.filter((change) => !dive.gases.some((gas) => gas.name === change.gas));
  if (others.length === 0) return null;
  return (
    <ul class="plain" id="other-changes">
      {others.map(({ depth, gas }, index) => (
        <li key={index}>
          {t(Text.OtherChange, `${depth} ${unitsOf(dive).depth}`, gas)}{" "}
          <button
            type="button"
            id={`other-change-${index + 1}-remove`}
            onClick={() => void store.act(() => option("--not-from", gas))}
          >
            {t(Text.Remove, gas)}
          </button>
        </li>
      ))}
    </ul>
  );
}

export function Gases({ dive }: { dive: EditedDive }) {
  return (
    <section class="card" aria-labelledby="gases-title">
      <h2 id="gases-title">{t(Text.Gases)}</h2>
      <table class="entries" id="gases">
        <caption class="hidden">{t(Text.Gases)}</caption>
        <thead>
          <tr>
            <th scope="col">{t(Text.GasBlendName)}</th>
            <th scope="col">
              {t(Text.Oxygen)} <span class="unit">%</span>
            </th>
            <th scope="col">
              {t(Text.Helium)} <span class="unit">%</span>
            </th>
            <th scope="col">
              {t(Text.WayUpFrom)} <span class="unit">{unitsOf(dive).depth}</span>
            </th>
            <td />
          </tr>
        </thead>
        <tbody>
          {dive.gases.map((gas, index) => (
            <GasRow key={index} gas={gas} index={index} dive={dive} />
          ))}
        </tbody>
      </table>
      <OtherChanges dive={dive} />
      <AddGas />
    </section>
  );
}

const PARTS = [
  ["count", "count", Text.Count],
  ["size", "size", Text.Size],
  ["rated_pressure", "rated", Text.Rated],
  ["fill", "fill", Text.Fill],
  ["reserve", "reserve", Text.Reserve],
] as const;

/** The unit is that of the cylinder and not of the plan; the word for a rated pressure has its unit in it. */
function unitOf(part: keyof Cylinder, cylinder: Cylinder): string {
  if (part === "size") return t(cylinder.rated_pressure === null ? Text.Litres : Text.CubicFeet);
  return part === "fill" || part === "reserve" ? t(cylinder.pressure_unit === "bar" ? Text.Bar : Text.UnitPsi) : "";
}

const BAIL_OUT = "/bail-out";
/** All cylinders as the core tells them, the one at `place` for bail-out or not. */
const withBailOut = (cylinders: Cylinder[], place: number, bailOut: boolean): string[] =>
  cylinders.flatMap(({ line, bail_out: was }, at) => {
    if (at !== place || was === bailOut) return option("--cylinder", line);
    return option("--cylinder", bailOut ? line + BAIL_OUT : line.slice(0, -BAIL_OUT.length));
  });

function CylinderFields({ cylinder, number, dive }: { cylinder: Cylinder; number: number; dive: EditedDive }) {
  const id = `cylinder-${number}`;
  const put = (part: string, value: string, field = "") =>
    store.apply(() => ["--alter-cylinder", `${number}:${part}=${value}`], field);
  return (
    <fieldset class="cylinder" id={id}>
      <legend>{t(Text.CylinderOf, number)}</legend>
      <Choice
        id={`${id}-gas`}
        label={t(Text.Gas)}
        value={cylinder.gas}
        options={dive.gases.map((gas) => [gas.name, gas.name] as const)}
        choose={(gas) => put("gas", gas)}
      />
      {PARTS.filter(([member]) => cylinder[member] !== null).map(([member, part, name]) => (
        <Entry
          key={part}
          id={`${id}-${member.replace("_", "-")}`}
          label={t(name)}
          unit={unitOf(member, cylinder)}
          value={String(cylinder[member])}
          commit={(text) => put(part, text.trim(), `${id}-${part}`)}
        />
      ))}
      {dive.circuit === "closed" ? (
        <Tick
          id={`${id}-bail-out`}
          label={t(Text.BailOutCylinder)}
          on={cylinder.bail_out}
          set={(bailOut) => store.act((now) => withBailOut(now.cylinders, number - 1, bailOut))}
        />
      ) : null}
      <button
        type="button"
        id={`${id}-remove`}
        onClick={() => void store.act(() => ["--remove-cylinder", String(number)])}
      >
        {t(Text.Remove, t(Text.CylinderOf, number))}
      </button>
    </fieldset>
  );
}

export function Cylinders({ dive }: { dive: EditedDive }) {
  return (
    <section class="card" aria-labelledby="cylinders-title">
      <h2 id="cylinders-title">{t(Text.Cylinders)}</h2>
      {dive.cylinders.map((cylinder, index) => (
        <CylinderFields key={index} cylinder={cylinder} number={index + 1} dive={dive} />
      ))}
      <button
        type="button"
        id="add-cylinder"
        onClick={() => void store.act(() => option("--add-cylinder", dive.legs[0]?.gas ?? dive.gases[0]?.name ?? ""))}
      >
        {t(Text.AddCylinder)}
      </button>
    </section>
  );
}
