// The languages of the printer's page: each is a file, and none lacks a word or has one too many.

import assert from "node:assert/strict";
import { readFile, readdir } from "node:fs/promises";
import { test } from "node:test";

const web = new URL("../../printer/web/", import.meta.url);
const files = (await readdir(new URL("languages/", web))).sort();
// A module whatever the folder it stands in says.
const load = async (file) => import(`data:text/javascript,${encodeURIComponent(await readFile(file, "utf8"))}`);
const languages = await Promise.all(files.map((file) => load(new URL(`languages/${file}`, web))));

// What a text is made of, without the text itself: the words of each language must be alike in this.
function shape(value) {
  if (typeof value === "function") {
    return `takes ${value.length}`;
  }
  if (Array.isArray(value)) {
    return value.map(shape);
  }
  return typeof value === "object" ? Object.fromEntries(Object.entries(value).map(([key, part]) => [key, shape(part)])) : typeof value;
}

async function readPage() {
  const names = (await readdir(web)).filter((name) => /\.(html|js)$/.test(name));
  return Promise.all(names.map((name) => readFile(new URL(name, web), "utf8")));
}

test("every language says what it is called", () => {
  assert.ok(files.includes("en.js"));
  languages.forEach((language, i) => {
    assert.match(files[i], /^[a-z]{2}\.js$/);
    assert.ok(language.name, files[i]);
  });
});

test("no language lacks a word, and none has one too many", () => {
  const english = shape(languages[files.indexOf("en.js")].words);
  for (const [i, language] of languages.entries()) {
    assert.deepEqual(shape(language.words), english, files[i]);
  }
});

test("every language knows why an order is refused", async () => {
  const routes = await readFile(new URL("routes.cc", web), "utf8");
  const reasons = [...routes.matchAll(/RefuseOrder\(\s*\w+,\s*"([a-z-]+)"/g)].map(([, reason]) => reason);
  assert.ok(reasons.length > 5);
  for (const { words } of languages) {
    assert.deepEqual(reasons.filter((reason) => !words.reasons[reason]), []);
  }
});

test("no word is empty", () => {
  const check = (value, name) => {
    assert.notEqual(value, "", name);
    for (const [key, part] of Object.entries(typeof value === "object" ? value : {})) {
      check(part, `${name}.${key}`);
    }
  };
  for (const [i, language] of languages.entries()) {
    check(language.words, files[i]);
  }
});

test("the page asks for no other words, and for all of them", async () => {
  const page = (await readPage()).join("\n");
  const words = new Set(Object.keys(languages[0].words));
  const asked = [...page.matchAll(/data-word="(\w+)"|\bword\("(\w+)"\)/g)].map(([, inPage, inScript]) => inPage ?? inScript);
  assert.ok(asked.length > 30);
  assert.deepEqual(asked.filter((name) => !words.has(name)), []);
  // Some are chosen by the script: word(open ? "documentOpen" : "documentClosed"), word(exchange.checksum).
  const computed = ["right", "wrong", "missing", "overflow", "lost"];
  assert.deepEqual([...words].filter((name) => !page.includes(`"${name}"`) && !computed.includes(name)), []);
});
