// The words of the page in the language that was chosen. They are those of the core's tables.
let table: Record<string, string> = {};

export function useTexts(texts: Record<string, string>): void {
  table = texts;
}

/** A text without the marks of menus (letter, dots, keys, colon), filled with values. */
export function t(id: number, ...values: (string | number)[]): string {
  const text = (table[id] ?? "")
    .replace(/\t.*/s, "")
    .replace(/&(.)/g, "$1")
    .replace(/(\.\.\.|[ \u00a0]?:)?\s*$/, "");
  return text.replace(/%(\d)/g, (place, digit: string) => {
    const value = values[Number(digit) - 1];
    return value === undefined ? place : String(value);
  });
}
