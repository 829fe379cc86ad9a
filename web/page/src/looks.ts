// Light or dark: as the device has it, or as was chosen.
import { keep, kept, oneOf } from "./keep";

export type Look = "auto" | "light" | "dark";

export const look = (): Look => kept("look", oneOf<Look>("auto", "light", "dark")) ?? "auto";

export function setLook(chosen: Look): void {
  keep("look", chosen);
  showLook();
}

export function showLook(): void {
  const chosen = look();
  if (chosen === "auto") delete document.documentElement.dataset["look"];
  else document.documentElement.dataset["look"] = chosen;
}
