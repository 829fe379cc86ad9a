// The head of the page: the plan's file, undo, and what is done with the plan as a whole.
import { useRef, useState } from "preact/hooks";
import { EXAMPLES, VERSION, openExample, openFile, savePlan, saveUddf, shareLink } from "../files";
import { look, setLook, type Look } from "../looks";
import { store, useStore } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";
import { Choice, Menu, MenuEntry } from "./entry";
import { Icon } from "./icons";
import { printSheet } from "./print";

function FileMenu() {
  const input = useRef<HTMLInputElement>(null);
  return (
    <>
      <input
        ref={input}
        id="file-input"
        type="file"
        class="hidden"
        tabIndex={-1}
        aria-label={t(Text.Open)}
        accept=".tav,.uddf,.xml,.csv"
        onChange={(event) => {
          const file = event.currentTarget.files?.[0];
          event.currentTarget.value = "";
          if (file) void openFile(file);
        }}
      />
      <Menu id="file-menu" label={t(Text.File)} face={t(Text.File)}>
        <MenuEntry id="file-new" label={t(Text.NewMetric)} act={() => void store.create("Default")} />
        <MenuEntry id="file-new-feet" label={t(Text.NewImperial)} act={() => void store.create("Imperial")} />
        <MenuEntry id="file-open" label={t(Text.Open)} act={() => input.current?.click()} />
        <MenuEntry id="file-save" label={t(Text.Save)} act={() => void savePlan()} />
        <MenuEntry id="file-uddf" label={t(Text.ExportUddf)} act={() => void saveUddf()} />
        <p class="menu-title" id="examples-title">
          {t(Text.OpenExample)}
        </p>
        {EXAMPLES.map((name, index) => (
          <MenuEntry
            key={name}
            id={`example-${name}`}
            label={t(Text.Examples[index] ?? 0)}
            act={() => void openExample(name)}
          />
        ))}
      </Menu>
    </>
  );
}

function MoreMenu() {
  const { language, languages } = useStore();
  const [chosen, setChosen] = useState(look());
  return (
    <Menu id="more-menu" label={t(Text.MoreOf, "TAV")} face={<Icon name="menu" />} side="left">
      <MenuEntry id="share" label={t(Text.CopyLink)} act={() => void shareLink()} />
      <MenuEntry id="print-sheet" label={t(Text.PrintSheet)} act={() => void printSheet()} />
      <MenuEntry id="print-schedule" label={t(Text.PrintSchedule)} act={() => setTimeout(() => window.print())} />
      <Choice
        id="language"
        label={t(Text.Language)}
        value={language}
        options={languages.map((each) => [each.code, each.name] as const)}
        choose={(code) => store.setLanguage(code)}
      />
      <Choice
        id="look"
        label={t(Text.Appearance)}
        value={chosen}
        options={[
          ["auto", t(Text.AsDevice)],
          ["light", t(Text.Light)],
          ["dark", t(Text.Dark)],
        ]}
        choose={(value) => {
          setLook(value as Look);
          setChosen(value as Look);
        }}
      />
      <p class="menu-title">TAV {VERSION}</p>
    </Menu>
  );
}

export function Header() {
  const { plan, undo, redo } = useStore();
  return (
    <header class="head">
      <img src="icon.svg" alt="TAV" width="36" height="36" class="logo" />
      <FileMenu />
      <h1 class="plan-name">
        <span id="plan-file">{plan.name}</span>
        {store.dirty ? (
          <span class="dirty" id="dirty" title={t(Text.NotSaved)}>
            <span aria-hidden="true">{"\u25cf"}</span>
            <span class="hidden">{t(Text.NotSaved)}</span>
          </span>
        ) : null}
      </h1>
      <button
        type="button"
        id="undo"
        class="icon"
        aria-label={t(Text.Undo)}
        title={t(Text.Undo)}
        disabled={undo.length === 0}
        onClick={() => void store.step(true)}
      >
        <Icon name="undo" />
      </button>
      <button
        type="button"
        id="redo"
        class="icon"
        aria-label={t(Text.Redo)}
        title={t(Text.Redo)}
        disabled={redo.length === 0}
        onClick={() => void store.step(false)}
      >
        <Icon name="redo" />
      </button>
      <MoreMenu />
    </header>
  );
}
