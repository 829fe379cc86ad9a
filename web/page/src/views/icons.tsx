// Signs on buttons, drawn: not every device has a font with these letters.
const PATHS = {
  undo: "M9 7 4 12l5 5M4 12h10a6 6 0 0 1 6 6",
  redo: "M15 7l5 5-5 5M20 12H10a6 6 0 0 0-6 6",
  menu: "M4 6h16M4 12h16M4 18h16",
  more: "M12 5v.01M12 12v.01M12 19v.01",
  close: "M6 6l12 12M18 6 6 18",
  add: "M12 5v14M5 12h14",
  back: "M15 5l-7 7 7 7",
  forward: "M9 5l7 7-7 7",
} as const;

export function Icon({ name }: { name: keyof typeof PATHS }) {
  return (
    <svg class="sign-icon" viewBox="0 0 24 24" width="24" height="24" aria-hidden="true">
      <path d={PATHS[name]} stroke-width={name === "more" ? 3.5 : 2} />
    </svg>
  );
}
