// What a command tells, piece by piece, as the core worded and rounded it.
import type { Severity, ShownBlock, ShownTable } from "../core/commands";
import { Text } from "../text_ids";
import { t } from "../texts";
import { usePages, usePrinting } from "./pages";

const SIGNS: Record<Severity, readonly [sign: string, word: number]> = {
  danger: ["\u25a0", Text.Danger],
  caution: ["\u25b2", Text.CautionWord],
  note: ["\u25cf", Text.Note],
};

export function Remark({ severity, text }: { severity: Severity; text: string }) {
  const [sign, word] = SIGNS[severity];
  return (
    <p class={`remark remark-${severity}`}>
      <span class="sign" aria-hidden="true">
        {sign}
      </span>
      <span>{t(Text.LedBy, t(word), text)}</span>
    </p>
  );
}

/** Longer cells wrap, shorter ones do not. */
const LONG = 24;

const isNumber = (cell: string): boolean => /^[-+]?[\d.,]+%?$/.test(cell.trim());

export function Table({ table, caption }: { table: ShownTable; caption?: string }) {
  const columns = Math.max(...table.heads.map((row) => row.length), ...table.rows.map((row) => row.cells.length));
  const numeric = Array.from({ length: columns }, (_, column) => {
    const cells = table.rows.map((row) => row.cells[column] ?? "").filter((cell) => cell !== "");
    return cells.length > 0 && cells.filter(isNumber).length * 2 > cells.length;
  });
  const place = (column: number): string | undefined => (numeric[column] ? "number" : undefined);
  const looks = (column: number, cell: string, mark?: string): string | undefined =>
    [place(column), cell.length > LONG ? "long" : "", mark ? `mark-${mark}` : ""].filter(Boolean).join(" ") ||
    undefined;
  const pages = usePages(table.rows, table.id);
  const printing = usePrinting();
  const rows = printing ? table.rows : pages.shown;
  return (
    <>
    <div class="scroll" tabIndex={0} role="group" aria-label={caption ?? table.id}>
      <table class={`shown table-${table.id}`}>
        {caption ? <caption class="hidden">{caption}</caption> : null}
        <thead>
          {table.heads.map((row, line) => (
            <tr key={line}>
              {row.map((head, column) =>
                head === "" ? (
                  <td key={column} />
                ) : (
                  <th key={column} scope="col" class={place(column)}>
                    {head}
                  </th>
                ),
              )}
            </tr>
          ))}
        </thead>
        <tbody>
          {rows.map((row, line) => (
            <tr key={line} class={row.kind ? `row-${row.kind}` : undefined}>
              {row.cells.map((cell, column) => {
                const style = looks(column, cell, row.marks?.[column]);
                return column === 0 && cell !== "" ? (
                  <th key={column} scope="row" class={style}>
                    {cell}
                  </th>
                ) : (
                  <td key={column} class={style}>
                    {cell}
                  </td>
                );
              })}
            </tr>
          ))}
        </tbody>
      </table>
    </div>
    {printing ? null : pages.turn}
    </>
  );
}

export function Shown({ blocks, caption }: { blocks: ShownBlock[]; caption?: string }) {
  let heading = caption ?? "";
  return (
    <>
      {blocks.map((block, index) => {
        if (block.heading !== undefined) {
          heading = block.heading;
          return <h3 key={index}>{block.heading}</h3>;
        }
        if (block.table) return <Table key={index} table={block.table} caption={heading} />;
        const text = block.text ?? "";
        return block.severity ? (
          <Remark key={index} severity={block.severity} text={text} />
        ) : (
          <p key={index} class="told">
            {text}
          </p>
        );
      })}
    </>
  );
}

/** The blocks of a dive by where the page shows them. */
export function partsOf(blocks: ShownBlock[]): {
  schedule: ShownBlock[];
  supply: ShownBlock[];
  findings: ShownBlock[];
} {
  const findings = blocks.filter((block) => block.severity !== undefined);
  const rest = blocks.filter((block) => block.severity === undefined);
  const supply = rest.findIndex(
    (block) => block.heading !== undefined || (block.table && block.table.id !== "schedule"),
  );
  return supply < 0
    ? { schedule: rest, supply: [], findings }
    : { schedule: rest.slice(0, supply), supply: rest.slice(supply), findings };
}
