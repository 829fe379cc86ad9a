// The page in a browser, and what tavplan of this computer says of the same plan.
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { chromium } from "playwright-core";
import { root } from "./core.mjs";
import { serve } from "./dev_server.mjs";

const native = process.env.TAVPLAN ?? join(root, "build/release/bin/tavplan");
const pictures = process.env.TAV_PICTURES;
export const WIDTHS = [
  [360, 740],
  [768, 1024],
  [1280, 800],
];

/** A server and a browser for the tests of a file. `after` is called at its end with what closes both. */
export async function begin(after) {
  const server = await serve();
  const browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox"] });
  after(async () => {
    await browser.close();
    server.closeAllConnections();
    server.close();
  });
  return { browser, address: addressOf(server) };
}

export const addressOf = (server) => `http://127.0.0.1:${server.address().port}/`;

/** A fresh browser with the page open. Whatever it complains of, or asks of others, is in `complaints`. */
export async function openPage({ browser, address }, options = {}) {
  const { width = 1280, height = 800, hash = "", init, agree = true, ...rest } = options;
  const context = await browser.newContext({ viewport: { width, height }, locale: "en-GB", ...rest });
  context.setDefaultTimeout(15_000);
  const complaints = [];
  context.on("request", (request) => {
    const { protocol, origin } = new URL(request.url());
    if (!["blob:", "data:"].includes(protocol) && `${origin}/` !== address) complaints.push(`asks ${request.url()}`);
  });
  context.on("console", (message) => {
    if (["error", "warning"].includes(message.type())) complaints.push(`${message.type()}: ${message.text()}`);
  });
  context.on("weberror", (error) => complaints.push(String(error.error())));
  if (init) await context.addInitScript(init);
  const page = await context.newPage();
  await page.goto(address + hash);
  if (agree) {
    await page.locator("#notice-agree").click();
    await computed(page);
  }
  return { page, context, complaints };
}

/** It must have complained of nothing. */
export function noComplaint({ complaints }) {
  assert.deepEqual(complaints, []);
}

/** The schedule of all that stands in the plan is there. */
export async function computed(page) {
  await page.locator('#schedule[aria-busy="false"]').waitFor({ state: "attached" });
}

/** By mouse and keys: what stands in the field is marked and typed over. */
export async function type(page, field, text) {
  await page.locator(field).click({ clickCount: 3 });
  await page.keyboard.press("Control+a");
  if (text === "") await page.keyboard.press("Delete");
  await page.keyboard.type(text);
}

export async function section(page, name) {
  const button = page.locator(`#section-${name}`);
  if (await button.isVisible()) await button.click();
  else await page.locator("#section-plan").click();
}

export async function choose(page, menu, entry) {
  await page.locator(menu).click();
  await page.locator(entry).click();
}

export async function openExample(page, name) {
  await choose(page, "#file-menu", `#example-${name}`);
  await page.locator("#plan-file", { hasText: `${name}.tav` }).waitFor();
  await computed(page);
}

export async function downloaded(page, act) {
  const [download] = await Promise.all([page.waitForEvent("download"), act()]);
  return { name: download.suggestedFilename(), text: readFileSync(await download.path(), "utf8") };
}

export const saved = (page) => downloaded(page, () => page.keyboard.press("Control+s"));

/** Runs tavplan in a folder with `files`; what it wrote can be read with `written`. */
export function tavplan(args, files = {}, written = "") {
  const folder = mkdtempSync(join(tmpdir(), "tav-"));
  try {
    for (const [name, text] of Object.entries(files)) writeFileSync(join(folder, name), text);
    const env = { ...process.env, LC_ALL: "C", HOME: "/nonexistent", XDG_CONFIG_HOME: "", XDG_DATA_HOME: "" };
    const done = spawnSync(native, args, { cwd: folder, env, encoding: "utf8", maxBuffer: 1 << 28 });
    if (done.error) throw done.error;
    const text = written ? readFileSync(join(folder, written), "utf8") : "";
    return { status: done.status, out: done.stdout, err: done.stderr, text };
  } finally {
    rmSync(folder, { recursive: true, force: true });
  }
}

export function shownBy(args, files) {
  const { out, err } = tavplan([...args, "--json", "--shown"], files);
  assert.notEqual(out, "", err);
  return JSON.parse(out);
}

/** Blocks as lists: cells of tables (heads, then rows), texts, findings. */
const listed = (blocks) => ({
  tables: blocks.filter(({ table }) => table).map(({ table }) => [...table.heads, ...table.rows.map(({ cells }) => cells)]),
  texts: blocks.filter(({ text, severity }) => text !== undefined && !severity).map(({ text }) => text),
  findings: blocks.filter(({ severity }) => severity).map(({ severity, text }) => [severity, text]),
});

/** The same of what stands within elements of the page. */
const read = (page, places) =>
  page.evaluate((places) => {
    const all = (what) => places.flatMap((place) => [...document.querySelectorAll(`${place} ${what}`)]);
    const cellsOf = (row) => [...row.cells].map((cell) => cell.textContent);
    return {
      tables: all("table").map((table) => [...table.rows].map(cellsOf)),
      texts: all("p.told").map((text) => text.textContent).filter((text) => text !== ""),
      findings: all(".remark").map((each) => [/remark-(\w+)/.exec(each.className)[1], each.lastElementChild.textContent]),
    };
  }, places);

function sameFindings(told, expected) {
  assert.deepEqual(told.map(([severity]) => severity), expected.map(([severity]) => severity));
  told.forEach(([, text], at) => assert.ok(text.endsWith(expected[at][1]), `${text} / ${expected[at][1]}`));
}

/**
 * The page shows of its plan, cell by cell, what tavplan says of the file that the page saves; that file holds all of
 * `lines`. Answers the file, with its lines ended as here.
 */
export async function agrees(page, { lines = [], dive = 0, options = [] } = {}) {
  const text = (await saved(page)).text.replaceAll("\r\n", "\n");
  for (const line of lines) assert.ok(text.includes(`\n${line}\n`), `no line "${line}" in\n${text}`);
  await computed(page);
  const { shown } = shownBy(["plan", "a.tav", ...options], { "a.tav": text }).dives[dive];
  const expected = listed(shown);
  const told = await read(page, ["#schedule", "#findings", "#supply"]);
  assert.ok(expected.tables[0].length > 3);
  assert.deepEqual(told.tables, expected.tables);
  assert.deepEqual(told.texts, expected.texts);
  sameFindings(told.findings, expected.findings);
  const words = await page.locator("#summary-words").textContent();
  assert.ok(expected.texts.some((each) => words.startsWith(each)), words);
  return text;
}

/** Starts a tool; what it shows, cell by cell, is what tavplan says. */
export async function toolAgrees(page, id, args, files) {
  await page.locator(`#${id}-start`).click();
  await page.locator(`#${id}-start:enabled`).waitFor();
  const answer = shownBy(args, files);
  const expected = listed(answer.shown ?? answer.dives.flatMap(({ shown }) => shown));
  const told = await read(page, [`#${id}-told`]);
  const packed = (text) => text.replace(/\s/g, "");
  const all = packed(await page.locator(`#${id}-told`).textContent());
  assert.ok(expected.texts.length + expected.tables.length > 0);
  for (const text of expected.texts) assert.ok(all.includes(packed(text)), text);
  assert.deepEqual(told.tables, expected.tables);
  sameFindings(told.findings, expected.findings);
}

/** Nothing is wider than the window, and no word is cut off. */
export async function fits(page, name) {
  const wide = await page.evaluate(() => {
    const clipped = [...document.querySelectorAll("button, label, h1, h2, h3, th, p, legend, summary")]
      .filter((each) => each.checkVisibility() && !each.closest(".hidden, .scroll") && each.scrollWidth > each.clientWidth + 1)
      .filter((each) => each.clientWidth > 0 && !each.querySelector("#plan-file"))
      .map((each) => `${each.id || each.className || each.tagName}: ${each.textContent}`);
    const page = document.scrollingElement;
    return page.scrollWidth > page.clientWidth ? [`page ${page.scrollWidth}`, ...clipped] : clipped;
  });
  await picture(page, name);
  assert.deepEqual(wide, [], name);
}

export async function picture(page, name, options = {}) {
  if (!pictures) return;
  mkdirSync(pictures, { recursive: true });
  await page.screenshot({ path: join(pictures, `${name}-${page.viewportSize().width}.png`), fullPage: true, ...options });
}
