// What people type into a field of one number.

/**
 * The keys for numbers of many phones have a comma and no point. Only a comma that can't part thousands becomes a
 * point; the core refuses the others.
 */
export function pointed(text: string): string {
  const [, ahead, behind] = /^\s*(-?\d*),(\d+)\s*$/.exec(text) ?? [];
  if (ahead === undefined || behind === undefined) return text;
  return behind.length <= 2 || ahead === "" || ahead === "0" ? `${ahead}.${behind}` : text;
}

/** Whether two texts are one number: "31." and "31", ",80" and "0.8". */
export function sameNumber(one: string, other: string): boolean {
  const plain = (text: string): string => pointed(text.trim().replace(/[.,]$/, ""));
  const [left, right] = [plain(one), plain(other)];
  return left === right || (left !== "" && right !== "" && Number(left) === Number(right));
}
