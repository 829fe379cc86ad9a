// The words of the units of a dive.
import type { EditedDive } from "../core/commands";
import { Text } from "../text_ids";
import { t } from "../texts";

export interface Units {
  depth: string;
  ppo2: string;
  rmv: string;
}

export function unitsOf(dive: EditedDive): Units {
  return dive.metric
    ? { depth: t(Text.Metres), ppo2: t(Text.Bar), rmv: t(Text.UnitRmv) }
    : { depth: t(Text.Feet), ppo2: t(Text.Ata), rmv: t(Text.UnitRmvFeet) };
}
