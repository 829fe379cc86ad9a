// The page in Chromium: what a diver does with it, and that it shows what tavplan of this computer says of the same file.
//   TAVPLAN=build/release/bin/tavplan TAV_SITE=build/web/site node --test web/tests; TAV_PICTURES=folder keeps pictures
import assert from "node:assert/strict";
import { cpSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, test } from "node:test";
import { deflateRawSync } from "node:zlib";
import { root } from "./core.mjs";
import { serve } from "./dev_server.mjs";
import {
  WIDTHS,
  addressOf,
  agrees,
  begin,
  choose,
  computed,
  downloaded,
  fits,
  noComplaint,
  openExample,
  openPage,
  picture,
  saved,
  section,
  shownBy,
  tavplan,
  toolAgrees,
  type,
} from "./page.mjs";

const began = await begin(after);
const site = process.env.TAV_SITE ?? join(root, "build/web/site");
const dives = readdirSync(join(root, "dives")).filter((name) => name.endsWith(".tav"));
const textOf = (name) => readFileSync(join(root, "dives", name), "utf8").replaceAll("\r\n", "\n");

/** `work` with a fresh page, of another server if it is told. */
async function onPage({ server, ...options }, work) {
  const address = server ? addressOf(server) : began.address;
  const opened = await openPage({ ...began, address }, options);
  try {
    await work(opened.page, opened.context);
    noComplaint(opened);
  } finally {
    await opened.context.close();
  }
}

async function typeLeg(page, depth, time, gas) {
  await type(page, "#add-leg-depth", depth);
  await type(page, "#add-leg-time", time);
  if (gas) await page.locator("#add-leg-gas").selectOption(gas);
  await page.locator("#add-leg-button").click();
  await page.locator("#add-leg-depth:focus").waitFor();
}

/** The row of a gas in its table, by the name it has there. */
const gasRow = (page, name) =>
  page.evaluate(
    (name) => [...document.querySelectorAll('[id^="gas-"][id$="-name"]')].find((each) => each.value === name).id.slice(0, -5),
    name,
  );

async function addGas(page, name, from) {
  await type(page, "#add-gas-name", name);
  await page.keyboard.press("Enter");
  await page.locator(`#add-leg-gas option[value="${name}"]`).waitFor({ state: "attached" });
  if (from) await type(page, `#${await gasRow(page, name)}-from`, from);
}

const ERRANDS = {
  "a first plan": async (page) => {
    await choose(page, "#file-menu", "#file-new");
    await addGas(page, "Tx20/30");
    await addGas(page, "EAN60", "15");
    await type(page, "#leg-1-depth", "45");
    await type(page, "#leg-1-time", "25");
    await page.locator("#leg-1-gas").selectOption("Tx20/30");
    await type(page, "#gf-low", "0.4");
    await type(page, "#gf-high", ".8");
    await type(page, "#set-laststop", "6");
    // Saved with the last key only just pressed.
    const file = await agrees(page, { lines: ["GF=1, .8, .4", "LastStop= 6"] });
    assert.match(file, /\n45,25,\d+,0,\n-1,-1,\d+,1,\n/);
    assert.match(file, /\nChange Gas Mixes=.* 15:EAN60,/);
    await page.locator("#dirty").waitFor({ state: "detached" });
  },
  "a change and its undo": async (page) => {
    await openExample(page, "wreck");
    const before = await agrees(page);
    await type(page, "#leg-1-depth", "60");
    await page.keyboard.press("Tab");
    const changed = await agrees(page, { lines: ["60,8,5,0,"] });
    await page.locator("#undo").click();
    assert.equal(await agrees(page), before);
    assert.equal(await page.locator("#leg-1-depth").inputValue(), "57");
    await page.locator("#redo").click();
    assert.equal(await agrees(page), changed);
    await choose(page, "#leg-2-more", "#leg-2-remove");
    await page.locator("#leg-2-depth").waitFor({ state: "detached" });
    assert.doesNotMatch(await agrees(page), /\n52,20/);
  },
  "three levels": async (page) => {
    await type(page, "#leg-1-depth", "40");
    await type(page, "#leg-1-time", "10");
    await typeLeg(page, "30", "15");
    await typeLeg(page, "20.5", "20.5");
    const ordered = await agrees(page);
    assert.match(ordered, /\n40,10,0,0,\n30,15,0,0,\n20.5,20.5,0,0,\n-1/);
    await choose(page, "#leg-3-more", "#leg-3-up");
    await choose(page, "#leg-1-more", "#leg-1-insert");
    await page.locator("#leg-4-depth").waitFor();
    assert.match(await agrees(page), /\n40,10,0,0,\n40,10,0,0,\n20.5,20.5,0,0,\n30,15,0,0,\n-1/);
  },
  "a rebreather and its bail-out": async (page) => {
    await openExample(page, "wreck");
    await page.locator("#circuit").selectOption("closed");
    await type(page, "#set-setpoint", "1.2");
    await type(page, "#set-decosetpoint", "1.4");
    await page.locator("#add-cylinder").click();
    await type(page, "#cylinder-1-fill", "210");
    await page.locator("#cylinder-1-bail-out").check();
    const file = await agrees(page, { lines: ["Open Circuit=0", "Setpoint= 1.2", "DecoSetpoint= 1.4"] });
    assert.match(file, /\n# Cylinder.*210/);
    await section(page, "tools");
    await page.locator("#tool-bail-out").click();
    await type(page, "#bail-out-interval", "10");
    await toolAgrees(page, "bail-out", ["bailout", "wreck.tav", "--dive", "1", "--interval", "10"], { "wreck.tav": file });
    await fits(page, "bail-out");
  },
  "margins, and the longest stay": async (page) => {
    await openExample(page, "wreck");
    const files = { "wreck.tav": await agrees(page) };
    await section(page, "tools");
    await page.locator("#tool-margins").click();
    await type(page, "#margins-longer", "0:10:2");
    await type(page, "#margins-run", "75");
    const args = ["margins", "wreck.tav", "--longer", "0:10:2", "--deeper", "-6:12:1", "--max-run", "75"];
    await toolAgrees(page, "margins", args, files);
    // One cell takes the focus; arrows move it, and what it holds is told.
    const cells = page.locator('#margins-told [role="gridcell"]');
    assert.equal(await page.locator('#margins-told [role="gridcell"][tabindex="0"]').count(), 1);
    await page.locator('#margins-told [role="gridcell"][tabindex="0"]').focus();
    const told = await page.locator("#map-cell").textContent();
    await page.keyboard.press("ArrowRight");
    assert.notEqual(await page.locator("#map-cell").textContent(), told);
    const { width, height } = await cells.first().boundingBox();
    assert.ok(width >= 24 && height >= 24);
    await fits(page, "margins");
    await page.locator("#tool-longest").click();
    await toolAgrees(page, "longest", ["longest", "wreck.tav"], files);
    await fits(page, "longest");
  },
  "a mix": async (page) => {
    await section(page, "tools");
    await page.locator("#tool-mixer").click();
    await type(page, "#mixer-have-pressure", "80");
    await type(page, "#mixer-want-o2", "18");
    await type(page, "#mixer-want-he", "45");
    await type(page, "#mixer-want-pressure", "220");
    await type(page, "#mixer-warm", "35");
    await toolAgrees(page, "mixer", ["mix", "--have", "21/0@80", "--want", "18/45@220", "--warm", "35"]);
    await fits(page, "mixer");
    await type(page, "#mixer-want-o2", "150");
    await page.locator("#mixer-start").click();
    await page.locator('#mixer-want-pressure[aria-invalid="true"]').waitFor();
  },
  "a series of two dives": async (page) => {
    await openExample(page, "nitrox");
    await page.locator("#add-dive").click();
    await type(page, "#add-dive-interval", "90");
    await type(page, "#add-dive-depth", "24");
    await type(page, "#add-dive-time", "40");
    await page.keyboard.press("Enter");
    await page.locator("#dive-2[aria-pressed=true]").waitFor();
    await type(page, "#interval", "75");
    const file = await agrees(page, { lines: ["SurfTime = 75"], dive: 1 });
    assert.equal(file.match(/\nStart of Profile\n/g).length, 2);
    await page.locator("#dive-1").click();
    assert.equal(await page.locator("#dive-1:focus").count(), 1);
    await agrees(page, { dive: 0 });
    await fits(page, "series");
    await page.locator("#dive-2").click();
    await page.locator("#remove-dive").click();
    await page.locator("#dive-2").waitFor({ state: "detached" });
    await agrees(page);
  },
  "what if, a comparison, another model": async (page) => {
    await openExample(page, "wreck");
    const kept = await agrees(page);
    await section(page, "tools");
    await type(page, "#what-if-gf", "40/70");
    const args = ["whatif", "wreck.tav", "--longer", "5", "--deeper", "3", "--gf", "40/70"];
    await toolAgrees(page, "what-if", args, { "wreck.tav": kept });
    await fits(page, "what-if");
    await page.locator("#tool-compare").click();
    await page.locator("#compare-keep").click();
    await section(page, "plan");
    await page.locator("#model").selectOption("--vpm");
    await type(page, "#leg-2-time", "25");
    const now = await agrees(page, { options: ["--vpm"] });
    await section(page, "tools");
    await page.locator("#tool-compare").click();
    const files = { "1-wreck.tav": kept, "2-wreck.tav": now };
    await toolAgrees(page, "compare", ["compare", ...Object.keys(files), "--vpm"], files);
    await fits(page, "compare");
  },
};

for (const [name, errand] of Object.entries(ERRANDS)) {
  for (const [width, height] of WIDTHS) {
    test(`${name}, ${width} px`, () => onPage({ width, height }, errand));
  }
}

test("the plan of the wreck fits each width, in each language", async () => {
  const each = WIDTHS.map(([width, height]) =>
    onPage({ width, height }, async (page) => {
      await openExample(page, "wreck");
      const file = await agrees(page);
      await page.locator("#message-close").click();
      await section(page, "schedule");
      await picture(page, "wreck", { fullPage: false });
      for (const language of ["uk", "fr", "es", "it", "nl", "de"]) {
        await page.locator("#more-menu").click();
        await page.locator("#language").selectOption(language);
        await page.locator(`html[lang="${language === "uk" ? "en" : language}"]`).waitFor();
        await page.keyboard.press("Escape");
        await agrees(page, { options: ["--language", language] });
        for (const name of ["plan", "schedule", "graph", "tools"]) {
          await section(page, name);
          if (["uk", "de"].includes(language)) await fits(page, `${language}-${name}`);
          else await fits(page, `other-${name}`);
        }
      }
      await section(page, "plan");
      assert.equal(await page.locator("#legs-title").textContent(), "Abschnitte");
      assert.equal(await agrees(page, { options: ["--language", "de"] }), file);
    }),
  );
  await Promise.all(each);
});

test("each example as a file, dropped or chosen", async () => {
  await onPage({}, async (page) => {
    for (const [index, name] of dives.entries()) {
      const text = textOf(name);
      if (index % 2) {
        await page.locator("#file-input").setInputFiles(join(root, "dives", name));
      } else {
        const data = await page.evaluateHandle(
          ([name, text]) => {
            const data = new DataTransfer();
            data.items.add(new File([text], name));
            return data;
          },
          [name, text],
        );
        await page.dispatchEvent("main", "dragover", { dataTransfer: data });
        await page.locator(".drop").waitFor();
        await page.dispatchEvent("main", "drop", { dataTransfer: data });
      }
      await page.locator("#plan-file", { hasText: name }).waitFor();
      await computed(page);
      assert.equal(await page.locator("#dirty").count(), 0);
      const file = await agrees(page);
      // Opened and saved it computes the same.
      const rows = (text) => shownBy(["plan", "a.tav"], { "a.tav": text }).dives.map(({ shown }) => shown);
      assert.deepEqual(rows(file), rows(text));
    }
  });
});

test("what can't be opened is told with its line, and the plan stays", async () => {
  const wreck = textOf("wreck.tav");
  const FILES = {
    "depth.tav": wreck.replace("57,8,5,0,", "57,x,5,0,"),
    "cut.tav": wreck.slice(0, 600),
    "empty.tav": "",
    "bytes.tav": Buffer.from([0, 1, 2, 255, 254, 0, 0]),
    "log.uddf": "<uddf><profiledata>",
    "legs.csv": "depth,time\n20,x\n",
  };
  await onPage({}, async (page) => {
    await openExample(page, "nitrox");
    const before = await agrees(page);
    for (const [name, text] of Object.entries(FILES)) {
      await page.locator("#file-input").setInputFiles({ name, mimeType: "", buffer: Buffer.from(text) });
      const message = page.locator("#message .message-problem p", { hasText: name });
      await message.waitFor();
      const command = name.endsWith(".tav") ? ["edit", name, "--json"] : ["import", name, "-o", "made.tav"];
      const { err, status } = tavplan(command, { [name]: text });
      assert.equal(status, 2, name);
      const [, line, reason] = /^[^\n:]*:(?:(\d+):)? ?(.*)\n/.exec(err.replace(/^tavplan \w+: /, ""));
      const told = await message.textContent();
      assert.ok(reason !== "" && told.includes(line ? `${line}: ${reason}` : reason), `${told} / ${err}`);
      assert.equal(await agrees(page), before);
      assert.equal(await page.locator("#plan-file").textContent(), "nitrox.tav");
    }
  });
});

test("dive logs and legs come in, dive logs go out", async () => {
  await onPage({}, async (page) => {
    await openExample(page, "wreck");
    const file = await agrees(page);
    const log = await downloaded(page, () => choose(page, "#file-menu", "#file-uddf"));
    const timeless = (text) => text.replace(/<datetime>[^<]*/g, "");
    const there = tavplan(["export", "wreck.tav", "--uddf", "a.uddf"], { "wreck.tav": file }, "a.uddf").text;
    assert.equal(log.name, "wreck.uddf");
    assert.equal(timeless(log.text), timeless(there));
    for (const [name, text] of [
      [log.name, log.text],
      ["legs.csv", "depth,time\n30,20\n15,10\n"],
    ]) {
      await page.locator("#file-input").setInputFiles({ name, mimeType: "", buffer: Buffer.from(text) });
      await page.locator("#plan-file", { hasText: name.replace(/\..*/, ".tav") }).waitFor();
      await page.locator("#dirty").waitFor();
      const made = tavplan(["import", name, "-o", "made.tav"], { [name]: text }, "made.tav").text;
      const rows = (text) => shownBy(["plan", "a.tav"], { "a.tav": text }).dives[0].shown;
      assert.deepEqual(rows(await agrees(page)), rows(made));
      await page.locator("#undo").click();
      await page.locator("#plan-file", { hasText: "wreck.tav" }).waitFor();
    }
  });
});

/** Letters that do not pack. */
const noise = (length) => Array.from({ length: length / 8 }, (_, at) => Math.sin(at + 1).toString(36).slice(-8)).join("");

test("a plan as a link", async () => {
  let link = "";
  let file = "";
  await onPage({ permissions: ["clipboard-read", "clipboard-write"] }, async (page) => {
    await openExample(page, "trimix-100");
    await page.locator("#model").selectOption("--hybrid");
    await type(page, "#leg-1-time", "12");
    await choose(page, "#more-menu", "#share");
    await page.locator("#message .message-done").waitFor();
    link = await page.evaluate(() => navigator.clipboard.readText());
    file = await agrees(page, { options: ["--hybrid"] });
    // Too large for a link: nothing is copied.
    const large = Buffer.from(textOf("wreck.tav").replace("Templatename", `# Notes=${noise(16_000)}\nTemplatename`));
    await page.locator("#file-input").setInputFiles({ name: "large.tav", mimeType: "", buffer: large });
    await page.locator("#plan-file", { hasText: "large.tav" }).waitFor();
    await choose(page, "#more-menu", "#share");
    await page.locator("#message .message-problem").waitFor();
    assert.equal(await page.evaluate(() => navigator.clipboard.readText()), link);
  });
  const hash = link.slice(link.indexOf("#"));
  assert.match(hash, /^#v[\d.]+,model=hybrid,plan=/);
  const packed = (text) => deflateRawSync(text).toString("base64url");
  await onPage({ hash }, async (page) => {
    assert.equal(await agrees(page, { options: ["--hybrid"] }), file);
    assert.equal(new URL(page.url()).hash, "");
    await openExample(page, "nitrox");
    const before = await agrees(page);
    for (const [why, broken] of Object.entries({
      "cut off": hash.slice(0, -40),
      "a letter changed": hash.replace(/.{3}$/, "___"),
      "no letters of a link": "#v0.1.0,plan=%20%20",
      "no plan": "#v0.1.0,plan=",
      "no version": `#plan=${packed(file)}`,
      "an unknown model": `#v0.1.0,model=magic,plan=${packed(file)}`,
      "not a plan": `#v0.1.0,plan=${packed("<html>")}`,
      "far too long when unpacked": `#v0.1.0,plan=${packed("\n".repeat(5_000_000))}`,
      "far too long": `#v0.1.0,plan=${packed(noise(1_400_000))}`,
    })) {
      await page.evaluate((hash) => void (location.hash = hash), broken);
      await page.locator("#message .message-problem").waitFor({ timeout: 15_000 }).catch(() => assert.fail(why));
      assert.equal(await agrees(page), before, why);
      await page.locator("#message-close").click();
    }
    await page.evaluate((hash) => void (location.hash = hash), hash.replace(/^#v[\d.]+/, "#v9.8"));
    await page.locator("#message", { hasText: "9.8" }).waitFor();
    assert.equal(await agrees(page, { options: ["--hybrid"] }), file);
  });
});

test("ten thousand legs", async () => {
  const legs = Array.from({ length: 10_000 }, (_, at) => `${20 + 3 * (at % 2)},2,5,0,\n`).join("");
  const text = textOf("wreck.tav").replace("57,8,5,0,\n", legs);
  await onPage({}, async (page) => {
    await page.locator("#file-input").setInputFiles({ name: "many.tav", mimeType: "", buffer: Buffer.from(text) });
    await page.locator("#plan-file", { hasText: "many.tav" }).waitFor();
    await computed(page);
    const { shown } = shownBy(["plan", "a.tav"], { "a.tav": (await saved(page)).text }).dives[0];
    const rows = shown.find(({ table }) => table?.id === "schedule").table.rows.map(({ cells }) => cells);
    const told = () =>
      page.evaluate(() => [...document.querySelectorAll(".table-schedule tbody tr")].map((row) => [...row.cells].map((cell) => cell.textContent)));
    assert.ok(rows.length > 10_000);
    assert.deepEqual(await told(), rows.slice(0, 200));
    await page.locator("#schedule-pages button").last().click();
    assert.deepEqual(await told(), rows.slice(200, 400));
    const printed = await page.evaluate(() => {
      window.dispatchEvent(new Event("beforeprint"));
      const all = document.querySelectorAll(".table-schedule tbody tr").length;
      window.dispatchEvent(new Event("afterprint"));
      return all;
    });
    assert.equal(printed, rows.length);
    assert.deepEqual(await told(), rows.slice(200, 400));
    await type(page, "#leg-1-depth", "25");
    await page.keyboard.press("Tab");
    await page.locator("#dirty").waitFor();
    await typeLeg(page, "12", "3");
    assert.equal(await page.locator("#leg-10002-depth").inputValue(), "12");
    await page.locator("#legs-pages button").first().click();
    assert.equal(await page.locator("#leg-9801-depth").inputValue(), "20");
    await page.locator("#undo").click();
    await page.locator("#undo").click();
    await page.locator("#dirty").waitFor({ state: "detached" });
  });
});

test("planning goes on beside long work, which can be ended", async () => {
  await onPage({}, async (page) => {
    await section(page, "tools");
    await page.locator("#tool-margins").click();
    await type(page, "#margins-longer", "0:99:1");
    await type(page, "#margins-deeper", "0:99:1");
    await page.locator("#margins-start").click();
    await page.locator("#margins-abort").waitFor();
    await type(page, "#leg-1-depth", "28");
    await agrees(page, { lines: ["28,20,0,0,"] });
    await page.locator("#margins-abort").click();
    await type(page, "#margins-longer", "0:4:1");
    await type(page, "#margins-deeper", "0:2:1");
    const files = { "plan.tav": await agrees(page) };
    await toolAgrees(page, "margins", ["margins", "plan.tav", "--longer", "0:4:1", "--deeper", "0:2:1"], files);
  });
});

test("a browser that keeps nothing", async () => {
  const REFUSALS = {
    "no storage at all": () => {
      const refuse = () => {
        throw new DOMException("denied", "SecurityError");
      };
      for (const name of ["localStorage", "sessionStorage"]) Object.defineProperty(window, name, { get: refuse });
      IDBFactory.prototype.open = refuse;
    },
    "no room": () => {
      Storage.prototype.setItem = () => {
        throw new DOMException("full", "QuotaExceededError");
      };
    },
  };
  for (const init of Object.values(REFUSALS)) {
    await onPage({ init, width: 360, height: 740 }, async (page) => {
      await page.locator("#unkept").waitFor();
      await openExample(page, "wreck");
      await type(page, "#leg-1-depth", "50");
      await page.keyboard.press("Tab");
      await page.locator("#dirty").waitFor();
      await page.locator("#undo").click();
      await agrees(page);
      await page.locator("#redo").click();
      await agrees(page, { lines: ["50,8,5,0,"] });
      await page.locator("#unkept").waitFor();
      await fits(page, "unkept");
      // Closed with changes that are in no file, it asks.
      await type(page, "#leg-1-depth", "51");
      await page.keyboard.press("Tab");
      await page.locator("#dirty").waitFor();
      const asked = page.waitForEvent("dialog");
      await page.close({ runBeforeUnload: true });
      const dialog = await asked;
      assert.equal(dialog.type(), "beforeunload");
      await dialog.accept();
    });
  }
});

test("a visit ends and another begins", async () => {
  await onPage({}, async (page) => {
    await openExample(page, "lake-series");
    await page.locator("#dive-2").click();
    await page.locator("#model").selectOption("--zhl16c");
    await type(page, "#leg-1-depth", "21");
    const file = await agrees(page, { dive: 1, options: ["--zhl16c"] });
    await page.reload();
    await page.locator("#dive-2[aria-pressed=true]").waitFor();
    await computed(page);
    assert.equal(await page.locator("#notice").count(), 0);
    assert.equal(await agrees(page, { dive: 1, options: ["--zhl16c"] }), file);
    await page.locator("#undo").click();
    await page.locator("#undo").click();
    await page.locator("#undo").click();
    await page.locator("#plan-file", { hasText: "plan.tav" }).waitFor();
    await agrees(page);
  });
});

test("without a network", async () => {
  const server = await serve();
  await onPage({ server }, async (page, context) => {
    await openExample(page, "wreck");
    const file = await agrees(page);
    await page.locator("#offline").waitFor();
    server.closeAllConnections();
    await new Promise((done) => server.close(done));
    await context.setOffline(true);
    await page.reload();
    await computed(page);
    assert.equal(await agrees(page), file);
    await type(page, "#leg-1-depth", "59");
    const changed = await agrees(page, { lines: ["59,8,5,0,"] });
    await section(page, "tools");
    await page.locator("#tool-longest").click();
    await toolAgrees(page, "longest", ["longest", "wreck.tav"], { "wreck.tav": changed });
  });
});

test("a wrong entry has the core's words, and the schedule before it stays", async () => {
  await onPage({ width: 360, height: 740 }, async (page) => {
    await openExample(page, "wreck");
    const file = await agrees(page);
    for (const [field, wrong, edit, option] of [
      ["#leg-1-depth", "-5", "--leg", "1=-5:8@Tx18/45"],
      ["#leg-1-time", "abc", "--leg", "1=57:abc@Tx18/45"],
      ["#leg-2-depth", "1e9", "--leg", "2=1e9:20@Tx18/45"],
      ["#gas-2-o2", "120", "--gas", "EAN50:120/0"],
      ["#gas-2-from", "x", "--change", "x:EAN50"],
      ["#gf-high", "2", "--set", "GF=1, 2, .3"],
      ["#set-laststop", "x", "--set", "LastStop=x"],
      ["#set-rmv", "twenty", "--set", "RMV=twenty"],
    ]) {
      const { status, err } = tavplan(["edit", "wreck.tav", "--json", edit, option], { "wreck.tav": file });
      assert.equal(status, 2, `${field}: ${wrong} is taken`);
      await type(page, field, wrong);
      await page.keyboard.press("Tab");
      await page.locator(`${field}[aria-invalid="true"]`).waitFor();
      const id = await page.locator(field).getAttribute("aria-describedby");
      const told = await page.locator(`#${id}`).textContent();
      assert.ok(told.length > 5 && err.replace(/ \("tavplan[^)]*\)/, "").trimEnd().endsWith(told), `${told} / ${err}`);
      assert.equal(await agrees(page), file, field);
      await fits(page, `wrong${field.replace("#", "-")}`);
      await page.locator(field).focus();
      await page.keyboard.press("Escape");
      await page.locator(`${field}[aria-invalid="false"]`).waitFor();
    }
    // A plan that can be read, and has no schedule: the one before it stays and says so.
    await typeLeg(page, "30", "20", "Oxygen");
    await agrees(page);
  });
});

test("a core that fails is made anew, and nothing is lost", async () => {
  // A call beyond the memory of the core, for one command with this depth.
  const folder = mkdtempSync(join(tmpdir(), "tav-site-"));
  cpSync(site, folder, { recursive: true });
  const core = readFileSync(join(site, "core.js"), "utf8");
  const failing = core.replace("_tav_run(place", '_tav_run(args.some((word) => word.includes("66.6:")) ? 0x7ffffff0 : place');
  assert.notEqual(failing, core);
  writeFileSync(join(folder, "core.js"), failing);
  const server = await serve({ site: folder });
  try {
    await onPage({ server }, async (page) => {
      await openExample(page, "wreck");
      const file = await agrees(page);
      await type(page, "#leg-1-depth", "66.6");
      // In one go, so that behind the call that fails another waits: the schedule of another model.
      await page.evaluate(async () => {
        document.activeElement.blur();
        for (let turns = 0; turns < 50; ++turns) await null;
        const model = document.getElementById("model");
        model.value = "--vpm";
        model.dispatchEvent(new Event("change", { bubbles: true }));
      });
      await page.locator("#leg-1-depth-fault", { hasText: "TAV" }).waitFor();
      assert.equal(await page.locator("#leg-1-depth").inputValue(), "66.6");
      assert.equal(await agrees(page, { options: ["--vpm"] }), file);
      await type(page, "#leg-1-depth", "56");
      await agrees(page, { lines: ["56,8,5,0,"], options: ["--vpm"] });
    });
  } finally {
    server.closeAllConnections();
    server.close();
    rmSync(folder, { recursive: true });
  }
});

test("the notice comes first, and keys alone make a plan", async () => {
  await onPage({ agree: false, width: 1280 }, async (page) => {
    await page.locator("#notice").waitFor();
    for (let times = 0; times < 3; ++times) await page.keyboard.press("Escape");
    await page.locator("#notice").waitFor();
    const focused = () => page.evaluate(() => document.activeElement?.id ?? "");
    const tabTo = async (id) => {
      for (let presses = 0; (await focused()) !== id; ++presses) {
        assert.ok(presses < 150, `no way to ${id} by Tab`);
        await page.keyboard.press("Tab");
      }
      const ring = await page.evaluate(() => getComputedStyle(document.activeElement).outlineStyle);
      assert.notEqual(ring, "none", `${id} shows no focus`);
    };
    await tabTo("notice-agree");
    await page.keyboard.press("Enter");
    await tabTo("leg-1-depth");
    await page.keyboard.press("Control+a");
    await page.keyboard.type("33");
    await tabTo("add-leg-depth");
    await page.keyboard.type("12");
    await tabTo("add-leg-time");
    await page.keyboard.type("5");
    await page.keyboard.press("Enter");
    await page.locator("#leg-2-depth").waitFor();
    assert.match(await agrees(page), /\n33,20,0,0,\n12,5,0,0,\n/);
    await tabTo("leg-2-more");
    await page.keyboard.press("Enter");
    await tabTo("leg-2-remove");
    await page.keyboard.press("Enter");
    await page.locator("#leg-2-depth").waitFor({ state: "detached" });
    await tabTo("file-menu");
    await page.keyboard.press("Enter");
    await tabTo("example-wreck");
    await page.keyboard.press("Enter");
    await page.locator("#plan-file", { hasText: "wreck.tav" }).waitFor();
    await page.keyboard.press("Control+z");
    await page.locator("#plan-file", { hasText: "plan.tav" }).waitFor();
    assert.match(await agrees(page), /\n33,20,0,0,\n-1/);
  });
});

/** Each view of the page, with all that opens. */
async function* views(page) {
  await openExample(page, "rebreather");
  await page.locator("#add-dive").click();
  yield "add-dive";
  await type(page, "#add-dive-depth", "20");
  await type(page, "#add-dive-time", "20");
  await page.keyboard.press("Enter");
  await page.locator("#dive-2[aria-pressed=true]").waitFor();
  await page.locator("#add-cylinder").click();
  await page.locator("#cylinder-1-fill").waitFor();
  await page.locator("#settings-more summary").click();
  await type(page, "#leg-1-time", "x");
  await page.keyboard.press("Tab");
  await page.locator("#leg-1-time-fault").waitFor();
  yield "plan";
  for (const menu of ["#file-menu", "#leg-1-more", "#gas-1-more", "#more-menu"]) {
    await page.locator(menu).click();
    yield menu.slice(1);
    await page.keyboard.press("Escape");
  }
  for (const name of ["schedule", "graph"]) {
    await section(page, name);
    yield name;
  }
  await section(page, "tools");
  for (const name of ["what-if", "margins", "longest", "bail-out", "compare", "mixer"]) {
    await page.locator(`#tool-${name}`).click();
    if (name === "compare") await page.locator("#compare-keep").click();
    await page.locator(`#${name}-start`).click();
    await page.locator(`#${name}-start:enabled`).waitFor();
    assert.ok((await page.locator(`#${name}-told`).textContent()).length > 20, name);
    yield name;
  }
}

test("all that is touched is large enough for a thumb", async () => {
  await onPage({ width: 360, height: 740, hasTouch: true }, async (page) => {
    for await (const view of views(page)) {
      const small = await page.evaluate(() =>
        [...document.querySelectorAll("button, input, select, textarea, summary, a")]
          .map((each) => (each.type === "checkbox" ? each.closest("label") : each))
          .filter((each) => each.checkVisibility() && !each.closest(".hidden"))
          .map((each) => [each.id || each.textContent, each.getBoundingClientRect()])
          .filter(([, { width, height }]) => width < 44 || height < 44)
          .map(([name, { width, height }]) => `${name}: ${width} x ${height}`),
      );
      assert.deepEqual(small, [], view);
      await fits(page, `all-${view}`);
    }
  });
});

test("no fault that axe knows, dark and light", async () => {
  const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
  const each = [WIDTHS[0], WIDTHS[2]].map(([width, height]) =>
    onPage({ width, height, reducedMotion: "reduce" }, async (page) => {
      await page.evaluate(axe);
      for await (const view of views(page)) {
        await page.evaluate(() => window.scrollTo(0, 0));
        for (const [colorScheme, rules] of [
          ["light", ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa"]],
          ["dark", ["color-contrast"]],
        ]) {
          await page.emulateMedia({ colorScheme });
          const { violations } = await page.evaluate((runOnly) => globalThis.axe.run(document, { runOnly }), rules);
          const told = violations.flatMap(({ id, nodes }) => nodes.map(({ html, failureSummary }) => `${id}: ${html} ${failureSummary}`));
          assert.deepEqual(told, [], `${view} ${colorScheme}`);
          if (colorScheme === "dark") await picture(page, `dark-${view}`);
        }
      }
    }),
  );
  await Promise.all(each);
});

test("the plan sheet goes to the printer", async () => {
  const init = () => {
    window.print = () => void (document.body.dataset.prints = String(document.querySelectorAll("#paper img").length));
  };
  await onPage({ init }, async (page) => {
    await openExample(page, "lake-series");
    const file = await agrees(page);
    await choose(page, "#more-menu", "#print-sheet");
    await page.locator("body[data-prints]").waitFor();
    const pages = await page.evaluate(() => [...document.querySelectorAll("#paper img")].map((each) => each.naturalWidth));
    assert.ok(pages.every((width) => width > 0), String(pages));
    const there = (number) => tavplan(["report", "a.tav", "--sheet", "--svg", "page"], { "a.tav": file }, `page-${number}.svg`);
    there(pages.length);
    assert.throws(() => there(pages.length + 1), /ENOENT/);
    await page.emulateMedia({ media: "print" });
    assert.ok(await page.locator("#paper img").first().isVisible());
    assert.ok(!(await page.locator("#app").isVisible()));
  });
});
