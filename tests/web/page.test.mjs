// The printer's page as a person uses it, in Chromium, while a shop's program prints through the driver.

import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { request } from "node:http";
import { connect } from "node:net";
import { after, before, test } from "node:test";

import { Cashier, Printer, printDemoReceipt, startBrowser } from "./processes.mjs";

// Letters stand in place of its dates and times.
const demoReceipt = (await readFile(new URL("../golden/demo_receipt.txt", import.meta.url), "utf8")).trimEnd().split("\n");
const patience = { timeout: 20_000 };

let browser;
let printer;
let page;
let cashier;
// What must not happen: messages on the console, requests to anybody but the printer.
let complaints;

async function openPage(url) {
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

async function paperTexts() {
  return page.locator(".sheet:not(#open-sheet) pre").allTextContents();
}

async function waitForLamp(name, text) {
  await page.locator(`#lamp-${name}`, { hasText: new RegExp(`^${text}$`) }).waitFor(patience);
}

async function press(name) {
  await page.getByRole("button", { name, exact: true }).click();
}

async function sell(name) {
  for (const step of ["header", `line ${name}`, "end"]) {
    assert.equal((await cashier.take(step)).result, 0, step);
  }
}

// Sends bytes to the printer as a client of its own.
function sendBytes(bytes) {
  return new Promise((resolve, reject) => {
    const socket = connect({ host: "127.0.0.1", port: printer.port });
    socket.on("close", resolve);
    socket.on("error", reject);
    socket.end(bytes);
    socket.resume();
  });
}

// Sends a request that a browser would not; resolves to its status.
function post(headers, body) {
  return new Promise((resolve, reject) => {
    const { hostname, port } = new URL(printer.url);
    const asked = request({ hostname, port, path: "/orders", method: "POST", headers }, (response) => {
      response.resume();
      resolve(response.statusCode);
    });
    asked.on("error", reject);
    asked.end(body);
  });
}

before(async () => {
  browser = await startBrowser();
});

after(async () => {
  await browser?.stop();
});

async function withPrinter(body) {
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

test("the demo receipt appears without a reload", () => withPrinter(async () => {
  await page.evaluate(() => {
    window.notReloaded = true;
  });
  assert.equal(await printDemoReceipt(printer.port), 0);
  await page.locator(".sheet:not(#open-sheet)").waitFor(patience);
  const [paper] = await paperTexts();
  assert.deepEqual(paper.replaceAll(/\d{4}-\d\d-\d\d \d\d:\d\d/g, "YYYY-MM-DD hh:mm").split("\n"), demoReceipt);
  assert.equal(await page.evaluate(() => window.notReloaded), true);

  // 24.50 at the rate A, 42.35 at C
  const totals = await page.locator("#totals tbody tr").allTextContents();
  assert.equal(totals[0], "A 23%24,500,00");
  assert.equal(totals[2], "C 5%42,350,00");
  assert.equal(totals[7], "Sum66,850,00");
  assert.equal(totals[8], "Number10");
}));

test("the paper grows line by line, and the lamps follow", () => withPrinter(async () => {
  await waitForLamp("document", "no document open");
  await cashier.take("header");
  await waitForLamp("document", "document open");
  await cashier.take("line Masło");
  await page.locator("#open-sheet", { hasText: "Masło" }).waitFor(patience);
  assert.deepEqual(await paperTexts(), []);
  await cashier.take("end");
  await page.locator(".sheet:not(#open-sheet)", { hasText: "Masło" }).waitFor(patience);
  assert.equal(await page.locator("#open-sheet").isVisible(), false);
  await waitForLamp("document", "no document open");
}));

test("out of paper stops the driver, and paper back lets it go on", () => withPrinter(async () => {
  assert.equal((await cashier.take("header")).result, 0);
  await press("Out of paper");
  await waitForLamp("paper", "out of paper");
  const failed = await cashier.take("line Masło");
  assert.notEqual(failed.result, 0);
  assert.equal(failed.paper_out, 1);
  assert.equal(failed.online, 1);
  await press("Paper back");
  await waitForLamp("paper", "paper");
  assert.equal((await cashier.take("line Masło")).result, 0);
  assert.equal((await cashier.take("end")).result, 0);
  await page.locator(".sheet:not(#open-sheet)", { hasText: "Masło" }).waitFor(patience);
}));

test("offline and a lid that is open reach the driver", () => withPrinter(async () => {
  await press("Go offline");
  await waitForLamp("online", "offline");
  const offline = await cashier.take("header");
  assert.notEqual(offline.result, 0);
  assert.equal(offline.online, 0);
  await press("Go online");
  await waitForLamp("online", "online");
  await press("Lid open / error");
  await waitForLamp("error", "mechanism error");
  const broken = await cashier.take("header");
  assert.notEqual(broken.result, 0);
  assert.equal(broken.printer_error, 1);
  await press("Close lid / error off");
  await waitForLamp("error", "mechanism OK");
  assert.equal((await cashier.take("header")).result, 0);
}));

test("the next command is refused with the error that was ordered", () => withPrinter(async () => {
  assert.equal((await cashier.take("header")).result, 0);
  await page.getByLabel("Refuse the next command with error").fill("1054");
  await Promise.all([page.waitForResponse("**/orders"), page.locator("#refuse button").click()]);
  const refused = await cashier.take("line Masło");
  assert.notEqual(refused.result, 0);
  assert.equal(refused.error, 1054);
  await waitForLamp("command", "last command refused: 1054");
  assert.equal((await cashier.take("line Masło")).result, 0);
  await waitForLamp("command", "last command obeyed");
  await page.locator("#exchanges tr.bad", { hasText: "refused: 1054" }).waitFor(patience);
}));

test("a fault is ordered by its text, and a wrong one is refused", () => withPrinter(async () => {
  await page.locator("#faults option[value='late=800@answer=1x10%']").waitFor({ state: "attached", ...patience });
  const fault = page.getByLabel("Fault:");
  await fault.fill("paper-out@line=0");
  await fault.press("Enter");
  await waitForLamp("paper", "out of paper");
  await fault.fill("nonsense");
  await fault.press("Enter");
  await page.locator("#trouble", { hasText: "Not done: not a fault: nonsense" }).waitFor(patience);
  await press("Paper back");
  await waitForLamp("paper", "paper");
  assert.equal(await page.locator("#trouble").isVisible(), false);
  // The browser says on its console that an order was refused.
  complaints = complaints.filter((complaint) => !complaint.includes("status of 400"));
}));

test("tearing off takes away what is finished", () => withPrinter(async () => {
  await sell("Masło");
  await page.locator(".sheet:not(#open-sheet)").waitFor(patience);
  await cashier.take("header");
  await page.locator("#open-sheet", { hasText: "PARAGON" }).waitFor(patience);
  await press("Tear off");
  await page.locator(".sheet:not(#open-sheet)").waitFor({ state: "detached", ...patience });
  assert.equal(await page.locator("#open-sheet").isVisible(), true);
}));

test("a receipt is saved as a picture and as text", () => withPrinter(async () => {
  await sell("Masło");
  const sheet = page.locator(".sheet:not(#open-sheet)");
  const lines = (await sheet.locator("pre").textContent()).split("\n");
  const save = async (format) => {
    const [saved] = await Promise.all([
      page.waitForEvent("download"),
      sheet.getByRole("link", { name: format, exact: true }).click(),
    ]);
    return { name: saved.suggestedFilename(), bytes: await readFile(await saved.path()) };
  };
  const text = await save("Text");
  assert.equal(text.name, "receipt-1.txt");
  assert.equal(text.bytes.toString(), `${lines.join("\n")}\n`);

  const picture = await save("PNG");
  assert.equal(picture.name, "receipt-1.png");
  const seen = await page.evaluate(async () => {
    const image = new Image();
    image.src = document.querySelector("[data-format=png]").href;
    await image.decode();
    const canvas = document.createElement("canvas");
    canvas.width = image.naturalWidth;
    canvas.height = image.naturalHeight;
    const context = canvas.getContext("2d", { willReadFrequently: true });
    context.drawImage(image, 0, 0);
    // Whether there is ink in the cell of every line and column: 10 by 22 dots, 28 and 40 from the paper's edges.
    const inked = (line, column) =>
      context.getImageData(28 + 10 * column, 40 + 22 * line, 10, 22).data.some((value, i) => i % 4 === 0 && value < 128);
    const cells = [];
    for (let line = 0; line < (image.naturalHeight - 80) / 22; ++line) {
      cells.push([...Array(40).keys()].map((column) => (inked(line, column) ? "x" : " ")).join("").trimEnd());
    }
    return { width: image.naturalWidth, height: image.naturalHeight, cells };
  });
  assert.equal(seen.width, 456);
  assert.equal(seen.height, 80 + 22 * lines.length);
  assert.deepEqual(seen.cells, lines.map((line) => line.replace(/\S/g, "x")));
}));

test("texts from the wire are shown, not obeyed", () => withPrinter(async () => {
  const names = ["<script>alert(1)</script>", "<img src=x onerror=alert(2)>", "&lt;b&gt;"];
  await cashier.take("header");
  for (const name of names) {
    await cashier.take(`line ${name}`);
  }
  await page.locator("#open-sheet", { hasText: names[2] }).waitFor(patience);
  await cashier.take("end");
  await page.locator(".sheet:not(#open-sheet)").waitFor(patience);
  const [paper] = await paperTexts();
  const traffic = await page.locator("#exchanges").textContent();
  for (const name of names) {
    assert.ok(paper.includes(name), name);
    assert.ok(traffic.includes(name), name);
  }
  assert.equal(await page.locator("main script, main img").count(), 0);
}));

test("the traffic is decoded, newest on top, and filtered", () => withPrinter(async () => {
  await sell("Masło");
  const rows = page.locator("#exchanges tr");
  await rows.first().filter({ hasText: "$e close document" }).waitFor(patience);
  const texts = await rows.allTextContents();
  assert.equal(texts.length, 3);
  assert.match(texts[1], /\^l line .*Masło.*right/);
  assert.match(texts[2], /\$h begin document .*right/);
  await page.getByLabel("hide DLE, ENQ, SUB").uncheck();
  await page.locator("#exchanges tr", { hasText: "online" }).first().waitFor(patience);
  await page.locator("#exchanges tr", { hasText: "fiscal" }).first().waitFor(patience);
  await page.getByRole("searchbox").fill("masło");
  await page.waitForFunction(() => document.querySelectorAll("#exchanges tr").length === 1);
  await page.getByRole("searchbox").fill("");
  await page.getByLabel("only refused or wrong").check();
  await page.waitForFunction(() => document.querySelectorAll("#exchanges tr").length === 0);
  assert.notEqual((await cashier.take("end")).result, 0);
  // 29: it belongs into a document and none is open.
  await page.locator("#exchanges tr.bad", { hasText: "refused: 29" }).waitFor(patience);
}));

test("a wrong checksum, a strange command and a client of its own are seen in the traffic", () => withPrinter(async () => {
  await sendBytes("\x1bP0;0;0;1;0$h\r00\x1b\\");
  const wrong = page.locator("#exchanges tr.bad", { hasText: "refused: 2" });
  await wrong.filter({ hasText: "client 2" }).filter({ hasText: "$h" }).filter({ hasText: "wrong" }).waitFor(patience);
  // FF ^ 37 ("7") = C8, ^ 24 ("$") = EC, ^ 51 ("Q") = BD
  await sendBytes("\x1bP7$Qbd\x1b\\");
  const strange = page.locator("#exchanges tr.bad", { hasText: "unknown command" });
  await strange.filter({ hasText: "client 3" }).filter({ hasText: "refused: 1022" }).waitFor(patience);
}));

test("the customer display shows what the program writes", () => withPrinter(async () => {
  assert.equal((await cashier.take("display Do zapłaty <b>9,00</b>")).result, 0);
  await page.locator("#display", { hasText: "Do zapłaty <b>9,00</b>" }).waitFor(patience);
}));

test("nobody changes anything without the token", () => withPrinter(async () => {
  const stranger = await openPage(printer.url.replace(/#.*/, ""));
  assert.ok(await stranger.locator("#no-token").isVisible());
  for (const button of await stranger.locator(".order").all()) {
    assert.ok(await button.isDisabled());
  }
  await stranger.close();
  const token = printer.url.split("#")[1];
  const order = JSON.stringify({ order: "paper-out" });
  assert.equal(await post({}, order), 403);
  assert.equal(await post({ "X-Token": "0".repeat(32) }, order), 403);
  assert.equal(await post({ "X-Token": token, Host: "printer.example" }, order), 403);
  assert.equal(await post({ "X-Token": token }, order), 204);
  await waitForLamp("paper", "out of paper");
}));

test("language and colours are chosen and remembered", () => withPrinter(async () => {
  assert.deepEqual(await page.locator("#language option").allTextContents(), ["English", "Polski"]);
  await page.locator("#language").selectOption("pl");
  await waitForLamp("program", "połączono");
  await page.locator("#theme").selectOption("dark");
  const ground = () => page.evaluate(() => getComputedStyle(document.body).backgroundColor);
  assert.equal(await ground(), "rgb(20, 24, 29)");
  await page.reload();
  await waitForLamp("program", "połączono");
  assert.equal(await page.evaluate(() => document.documentElement.lang), "pl");
  assert.equal(await ground(), "rgb(20, 24, 29)");
  await page.locator("#theme").selectOption("light");
  assert.equal(await ground(), "rgb(243, 244, 246)");
  await page.locator("#language").selectOption("en");
}));

test("the page outlives the program and goes on with its next run", () => withPrinter(async () => {
  await sell("Masło");
  await page.locator(".sheet:not(#open-sheet)").waitFor(patience);
  await printer.stop();
  await waitForLamp("program", "not running");
  printer = await Printer.start(new URL(printer.url).host);
  await waitForLamp("program", "connected");
  await page.locator(".sheet:not(#open-sheet)").waitFor({ state: "detached", ...patience });
  complaints = complaints.filter((complaint) => !complaint.includes("net::ERR_"));
}));
