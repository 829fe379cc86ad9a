// What a diver agrees to before the first plan.
import { useEffect, useRef, useState } from "preact/hooks";
import { keep, kept, oneOf } from "../keep";
import { Text } from "../text_ids";
import { t } from "../texts";

export function Notice() {
  const [agreed, setAgreed] = useState(kept("agreed", oneOf(true)) === true);
  const box = useRef<HTMLDialogElement>(null);
  useEffect(() => {
    if (!agreed && !box.current?.open) box.current?.showModal();
  }, [agreed]);
  if (agreed) return null;
  return (
    <dialog
      ref={box}
      class="notice"
      id="notice"
      aria-labelledby="notice-title"
      onCancel={(event) => event.preventDefault()}
      onClose={() => box.current?.showModal()}
    >
      <h2 id="notice-title">{t(Text.NoticeTitle)}</h2>
      <p>{t(Text.Notice)}</p>
      <p>{t(Text.NoticeDuty)}</p>
      <button
        type="button"
        id="notice-agree"
        class="primary"
        onClick={() => {
          keep("agreed", true);
          setAgreed(true);
        }}
      >
        {t(Text.Agree)}
      </button>
    </dialog>
  );
}
