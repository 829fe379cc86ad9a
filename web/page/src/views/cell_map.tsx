// The map of margins: a grid of letters that the arrow keys walk through; what a letter means is told below it.
import { useRef, useState } from "preact/hooks";
import type { ShownBlock } from "../core/commands";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Shown } from "./shown";

/** Colours are given out in the order in which letters are met; letters tell the limits apart without them. */
const COLOURS = 8;

export function CellMap({ blocks, title }: { blocks: ShownBlock[]; title: string }) {
  const place = blocks.findIndex((block) => block.table?.id === "map");
  const table = blocks[place]?.table;
  const planned = table?.rows.findIndex((row) => row.marks?.includes("planned")) ?? -1;
  const [at, setAt] = useState<readonly [row: number, column: number]>(
    planned < 0 ? [0, 1] : [planned, table?.rows[planned]?.marks?.indexOf("planned") ?? 1],
  );
  const grid = useRef<HTMLTableElement>(null);
  if (!table) return null;
  const heads = table.heads.at(-1) ?? [];
  const known = new Set(table.rows.flatMap((row) => row.cells.slice(1)));
  const letters = [...known].filter((each) => each !== "." && each !== "-");
  const colour = (letter: string): string =>
    letter === "."
      ? "cell-kept"
      : letter === "-" || letter === ""
        ? "cell-none"
        : `cell-${letters.indexOf(letter) % COLOURS}`;
  const move = (row: number, column: number) => {
    const to = [
      Math.max(0, Math.min(table.rows.length - 1, row)),
      Math.max(1, Math.min((table.rows[0]?.cells.length ?? 2) - 1, column)),
    ] as const;
    setAt(to);
    grid.current?.querySelector<HTMLElement>(`[data-cell="${to[0]}-${to[1]}"]`)?.focus();
  };
  const keys: Record<string, readonly [number, number]> = {
    ArrowUp: [-1, 0],
    ArrowDown: [1, 0],
    ArrowLeft: [0, -1],
    ArrowRight: [0, 1],
  };
  const [row, column] = at;
  const letter = table.rows[row]?.cells[column] ?? "";
  /** A line of the legend is a letter of the map and what it means. */
  const isLegend = (block: ShownBlock): boolean =>
    /^\S\s/.test(block.text ?? "") && known.has(block.text?.charAt(0) ?? "");
  const legend = blocks.slice(place + 1).filter(isLegend);
  const meaning =
    legend
      .find((block) => block.text?.startsWith(letter))
      ?.text?.slice(1)
      .trim() ?? letter;
  return (
    <>
      <Shown blocks={blocks.slice(0, place)} caption={title} />
      <div class="scroll">
        <table
          class="map"
          role="grid"
          aria-label={title}
          ref={grid}
          onKeyDown={(event) => {
            const by = keys[event.key];
            if (!by) return;
            event.preventDefault();
            move(row + by[0], column + by[1]);
          }}
        >
          <thead>
            <tr>
              <td>{heads[0]}</td>
              {heads.slice(1).map((head, index) => (
                <th key={index} scope="col">
                  {head}
                </th>
              ))}
            </tr>
          </thead>
          <tbody>
            {table.rows.map((each, line) => (
              <tr key={line}>
                <th scope="row">{each.cells[0]}</th>
                {each.cells.slice(1).map((cell, index) => (
                  <td
                    key={index}
                    role="gridcell"
                    data-cell={`${line}-${index + 1}`}
                    tabIndex={line === row && index + 1 === column ? 0 : -1}
                    class={`${colour(cell)}${each.marks?.[index + 1] ? ` mark-${each.marks[index + 1]}` : ""}`}
                    onFocus={() => setAt([line, index + 1])}
                    onClick={() => move(line, index + 1)}
                  >
                    {cell}
                  </td>
                ))}
              </tr>
            ))}
          </tbody>
        </table>
      </div>
      <p class="told" aria-live="polite" id="map-cell">
        {t(Text.CellOf, heads[column] ?? "", table.rows[row]?.cells[0] ?? "", meaning)}
      </p>
      <ul class="plain legend">
        {legend.map((block) => (
          <li key={block.text}>
            <span class={`swatch ${colour(block.text?.charAt(0) ?? "")}`}>{block.text?.charAt(0)}</span>
            {block.text?.slice(1).trim()}
          </li>
        ))}
      </ul>
      <Shown blocks={blocks.slice(place + 1).filter((block) => !isLegend(block))} caption={title} />
    </>
  );
}
