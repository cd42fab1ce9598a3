// The bench of the page's tests: a printer, a shop's program, and the page in Chromium.

import assert from "node:assert/strict";
import { request } from "node:http";
import { after, before } from "node:test";

import { Cashier, Printer, startBrowser } from "./processes.mjs";

export const patience = { timeout: 20_000 };

let browser;
export let printer;
export let page;
export let cashier;
// What must not happen: messages on the console, requests to anybody but the printer.
let complaints;

export async function openPage(url) {
  const opened = await browser.newPage();
  opened.on("console", (message) => complaints.push(`console: ${message.text()}`));
  opened.on("pageerror", (error) => complaints.push(`error: ${error}`));
  opened.on("dialog", (dialog) => {
    complaints.push(`dialog: ${dialog.message()}`);
    dialog.dismiss();
  });
  opened.on("request", (asked) => {
    if (new URL(asked.url()).host !== new URL(url).host) {
      complaints.push(`request: ${asked.url()}`);
    }
  });
  await opened.goto(url);
  await opened.locator("#lamp-program[data-state=good]").waitFor(patience);
  return opened;
}

// The complaints that hold the text were to be expected.
export function forgive(text) {
  complaints = complaints.filter((complaint) => !complaint.includes(text));
}

export async function restartPrinter() {
  printer = await Printer.start(new URL(printer.url).host);
}

export async function waitForLamp(name, text) {
  await page.locator(`#lamp-${name}`, { hasText: new RegExp(`^${text}$`) }).waitFor(patience);
}

export async function sell(name) {
  for (const step of ["header", `line ${name}`, "end"]) {
    assert.equal((await cashier.take(step)).result, 0, step);
  }
}

// Sends an order that a browser would not; resolves to the answer's status and body.
export function post(headers, order) {
  return new Promise((resolve, reject) => {
    const { hostname, port } = new URL(printer.url);
    const asked = request({ hostname, port, path: "/orders", method: "POST", headers }, async (response) => {
      const body = (await response.toArray()).join("");
      resolve({ status: response.statusCode, body });
    });
    asked.on("error", reject);
    asked.end(JSON.stringify(order));
  });
}

// Gives the printer an order with the token that it told.
export function order(name, details = {}) {
  return post({ "X-Token": new URL(printer.url).hash.slice(1) }, { order: name, ...details });
}

before(async () => {
  browser = await startBrowser();
});

after(async () => {
  await browser?.stop();
});

export async function withPrinter(body) {
  complaints = [];
  printer = await Printer.start();
  cashier = Cashier.start();
  try {
    assert.equal((await cashier.take(`open ${printer.port}`)).result, 1);
    page = await openPage(printer.url);
    await body();
    assert.deepEqual(complaints, []);
  } finally {
    await page?.close();
    await cashier.stop();
    await printer.stop();
  }
}
