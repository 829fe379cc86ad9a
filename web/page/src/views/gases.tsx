// The gases of the dive, from which depth each is breathed on the way up, and the cylinders that hold them.
import { useState } from "preact/hooks";
import type { Change, Cylinder, EditedDive, Gas } from "../core/commands";
import { store } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Choice, Entry, Fault, Menu, MenuEntry, Tick } from "./entry";
import { Icon } from "./icons";
import { unitsOf } from "./units";

/** The list of changes with that of a gas at another depth, or without it. A new one stands before deeper ones. */
function withChange(changes: Change[], gas: string, depth: string): string[] {
  const place = changes.findIndex((each) => each.gas === gas);
  const list: [depth: string, gas: string][] = changes.map((each) => [String(each.depth), each.gas]);
  if (depth === "") {
    if (place >= 0) list.splice(place, 1);
  } else if (place >= 0) {
    list[place] = [depth, gas];
  } else {
    const deeper = changes.findIndex((each) => each.depth > Number(depth));
    list.splice(deeper < 0 ? list.length : deeper, 0, [depth, gas]);
  }
  return list.length === 0 ? ["--no-changes"] : list.flatMap(([at, name]) => ["--change", `${at}:${name}`]);
}

function GasRow({ gas, index, dive }: { gas: Gas; index: number; dive: EditedDive }) {
  const id = `gas-${index}`;
  const change = dive.changes.find((each) => each.gas === gas.name);
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
            commit={(name) => store.apply((then) => ["--rename-gas", `${now(then).name}=${name.trim()}`], `${id}-name`)}
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
              store.apply((then) => ["--gas", `${now(then).name}:${o2.trim()}/${now(then).he}`], `${id}-o2`)
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
              store.apply((then) => ["--gas", `${now(then).name}:${now(then).o2}/${he.trim()}`], `${id}-he`)
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
          words
          label={t(Text.FromDepthOf, gas.name)}
          value={change ? String(change.depth) : ""}
          commit={(depth) =>
            store.apply((then) => withChange(then.changes, now(then).name, depth.trim()), `${id}-from`)
          }
        />
      </td>
      <td>
        {own ? (
          <Menu id={`${id}-more`} label={t(Text.MoreOf, gas.name)} face={<Icon name="more" />}>
            <MenuEntry
              id={`${id}-remove`}
              label={t(Text.Remove, gas.name)}
              act={() => void store.act(() => ["--remove-gas", gas.name])}
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
          .apply(() => ["--gas", name.trim()])
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
      <AddGas />
    </section>
  );
}

/** A cylinder as the option takes it, with other values in place of its own. */
function lineOf(cylinder: Cylinder, other: Partial<Record<keyof Cylinder, string | boolean>> = {}): string {
  const { gas, count, size, rated_pressure: rated, fill, reserve, bail_out: bailOut } = { ...cylinder, ...other };
  const parts = [count, size, ...(rated === null ? [] : [rated]), fill, reserve, ...(bailOut ? ["bail-out"] : [])];
  return `${gas}:${parts.join("/")}`;
}

const PARTS = [
  ["count", Text.Count],
  ["size", Text.Size],
  ["rated_pressure", Text.Rated],
  ["fill", Text.Fill],
  ["reserve", Text.Reserve],
] as const;

/** The unit is that of the cylinder and not of the plan; the word for a rated pressure has its unit in it. */
function unitOf(part: keyof Cylinder, cylinder: Cylinder): string {
  if (part === "size") return t(cylinder.rated_pressure === null ? Text.Litres : Text.CubicFeet);
  return part === "fill" || part === "reserve" ? t(cylinder.pressure_unit === "bar" ? Text.Bar : Text.UnitPsi) : "";
}

const linesOf = (cylinders: Cylinder[], lines: (cylinder: Cylinder, at: number) => string[]): string[] => {
  const all = cylinders.flatMap(lines);
  return all.length ? all.flatMap((line) => ["--cylinder", line]) : ["--no-cylinders"];
};

function CylinderFields({ cylinder, number, dive }: { cylinder: Cylinder; number: number; dive: EditedDive }) {
  const id = `cylinder-${number}`;
  const put = (other: Partial<Record<keyof Cylinder, string | boolean>>, field = "") =>
    store.apply(
      (now) => linesOf(now.cylinders, (each, at) => [at === number - 1 ? lineOf(each, other) : each.line]),
      field,
    );
  return (
    <fieldset class="cylinder" id={id}>
      <legend>{t(Text.CylinderOf, number)}</legend>
      <Choice
        id={`${id}-gas`}
        label={t(Text.Gas)}
        value={cylinder.gas}
        options={dive.gases.map((gas) => [gas.name, gas.name] as const)}
        choose={(gas) => void put({ gas })}
      />
      {PARTS.filter(([part]) => cylinder[part] !== null).map(([part, name]) => (
        <Entry
          key={part}
          id={`${id}-${part.replace("_", "-")}`}
          label={t(name)}
          unit={unitOf(part, cylinder)}
          value={String(cylinder[part])}
          commit={(text) => put({ [part]: text.trim() }, `${id}-${part}`)}
        />
      ))}
      {dive.circuit === "closed" ? (
        <Tick
          id={`${id}-bail-out`}
          label={t(Text.BailOutCylinder)}
          on={cylinder.bail_out}
          set={(bailOut) => void put({ bail_out: bailOut })}
        />
      ) : null}
      <button
        type="button"
        id={`${id}-remove`}
        onClick={() =>
          void store.act((now) => linesOf(now.cylinders, (each, at) => (at === number - 1 ? [] : [each.line])))
        }
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
        onClick={() => {
          const gas = dive.legs[0]?.gas ?? dive.gases[0]?.name ?? "";
          const usual = dive.metric ? "2/12/200/50" : "2/100/3442/3000/700";
          void store.act((now) => [
            ...now.cylinders.flatMap((each) => ["--cylinder", each.line]),
            "--cylinder",
            `${gas}:${usual}`,
          ]);
        }}
      >
        {t(Text.AddCylinder)}
      </button>
    </section>
  );
}
