// The core in JavaScript tells what the program of the terminal tells, byte for byte.
//   TAVPLAN=build/release/bin/tavplan TAV_SITE=build/web/site node --test web/tests
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { readFileSync, readdirSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { loadCore, root } from "./core.mjs";

const native = process.env.TAVPLAN ?? join(root, "build/release/bin/tavplan");
const core = await loadCore();
const environment = { ...process.env, LC_ALL: "C", HOME: "/nonexistent", XDG_CONFIG_HOME: "", XDG_DATA_HOME: "" };

// Both run in a folder that holds the file, so that both name it alike.
function both(folder, file, args) {
  core.FS.writeFile(`/plans/${file}`, readFileSync(join(folder, file)));
  const told = core.run(args);
  core.FS.unlink(`/plans/${file}`);
  const { status, stdout, stderr, error } = spawnSync(native, args, { cwd: folder, env: environment, maxBuffer: 1 << 28 });
  if (error) throw error;
  return [told, { status, out: stdout.toString(), err: stderr.toString() }];
}

function same(folder, file, args) {
  const [told, expected] = both(folder, file, args);
  assert.equal(told.status, expected.status, `${args.join(" ")}: ${told.err}`);
  assert.equal(told.err, expected.err, args.join(" "));
  // The first bytes that differ tell more than two documents.
  if (told.out === expected.out) return;
  let at = 0;
  while (told.out[at] === expected.out[at]) ++at;
  const part = (text) => text.slice(Math.max(0, at - 60), at + 60);
  assert.fail(`${args.join(" ")}: byte ${at}: "${part(told.out)}" is not "${part(expected.out)}"`);
}

const plansIn = (folder) => readdirSync(folder).filter((name) => name.endsWith(".tav"));
const vectors = join(root, "tests/data/vectors");
const dives = join(root, "dives");

test("each plan with a known result, by each model", () => {
  let plans = 0;
  for (const folder of [vectors, join(vectors, "strict")]) {
    for (const file of plansIn(folder)) {
      ++plans;
      for (const model of [[], ["--vpm"], ["--hybrid"], ["--zhl16c"]]) same(folder, file, ["plan", "--json", file, ...model]);
    }
  }
  assert.ok(plans > 50);
});

test("each set of tables with a known result", () => {
  for (const [kind, command, ending] of [
    ["bailout", ["bailout"], ".tav"],
    ["tables", ["tables", "--template"], ".tpl"],
  ]) {
    const folder = join(vectors, kind);
    const sets = readdirSync(folder).filter((name) => name.endsWith(".args"));
    assert.ok(sets.length > 7);
    for (const name of sets) {
      const file = name.replace(".args", ending);
      const words = readFileSync(join(folder, name), "utf8").trim().split(/\s+/).filter(Boolean);
      same(folder, file, [...command, file, ...words, "--json"]);
    }
  }
});

test("each command of the page, on each example", () => {
  for (const file of plansIn(dives)) {
    for (const args of [
      ["plan", file, "--json", "--shown", "--why", "--moments"],
      ["plan", file, "--json", "--shown", "--language", "de"],
      ["check", file],
      ["whatif", file, "--json", "--shown", "--gf", "30/70"],
      ["longest", file, "--json", "--shown"],
      ["margins", file, "--json", "--shown", "--longer", "0:4:1", "--deeper", "0:2:1"],
      ["bailout", file, "--json", "--shown", "--interval", "10"],
      ["edit", file, "--json"],
    ]) {
      same(dives, file, args);
    }
  }
});

test("what needs no plan, and what is refused", () => {
  const file = "wreck.tav";
  for (const args of [
    ["mix", "--have", "21/35@80", "--want", "18/45@220", "--json", "--shown"],
    ["mix", "--have", "21/0@1", "--steps", "he@67 o2@86 air@220", "--want", "21/35@230", "--json"],
    ["tables", "--gas", "EAN32", "--json"],
    ["texts", "--language", "fr"],
    ["texts", "--languages"],
    ["--version"],
    ["plan", "absent.tav"],
    ["plan"],
    ["edit", file, "--leg", "1=-5:20"],
    ["import", file, "-o", "made.tav"],
  ]) {
    same(dives, file, args);
  }
});
