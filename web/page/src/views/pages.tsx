// Long tables, some rows at a time: a browser would take minutes to lay out ten thousand rows of fields.
import { options } from "preact";
import { useEffect, useState } from "preact/hooks";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Icon } from "./icons";

const MOST_ROWS = 200;

/** The part of `rows` that is shown, the index of its first row, and what turns the pages. */
export function usePages<Row>(rows: readonly Row[], id: string) {
  const count = Math.max(1, Math.ceil(rows.length / MOST_ROWS));
  const [wanted, setWanted] = useState(0);
  const page = Math.min(wanted, count - 1);
  return {
    first: page * MOST_ROWS,
    shown: rows.slice(page * MOST_ROWS, (page + 1) * MOST_ROWS),
    showLast: () => setWanted(count),
    turn:
      count === 1 ? null : (
        <div class="pages" id={`${id}-pages`}>
          <button
            type="button"
            aria-label={t(Text.Back)}
            aria-disabled={page === 0}
            onClick={() => setWanted(Math.max(0, page - 1))}
          >
            <Icon name="back" />
          </button>
          <span aria-live="polite">{t(Text.PageOf, page + 1, count)}</span>
          <button
            type="button"
            aria-label={t(Text.Forward)}
            aria-disabled={page === count - 1}
            onClick={() => setWanted(Math.min(count - 1, page + 1))}
          >
            <Icon name="forward" />
          </button>
        </div>
      ),
  };
}

/** Whether the page is being printed, when no row may be left out. Drawn before the printer looks at the page. */
export function usePrinting(): boolean {
  const [printing, setPrinting] = useState(false);
  useEffect(() => {
    const drawAtOnce = (on: boolean) => {
      const { debounceRendering: later } = options;
      options.debounceRendering = (draw) => draw();
      setPrinting(on);
      if (later) options.debounceRendering = later;
      else delete options.debounceRendering;
    };
    const begin = () => drawAtOnce(true);
    const end = () => drawAtOnce(false);
    window.addEventListener("beforeprint", begin);
    window.addEventListener("afterprint", end);
    return () => {
      window.removeEventListener("beforeprint", begin);
      window.removeEventListener("afterprint", end);
    };
  }, []);
  return printing;
}
