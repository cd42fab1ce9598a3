// The printer's page as a person uses it, in Chromium, while a shop's program prints through the driver.

import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { connect } from "node:net";
import { test } from "node:test";

import {
  cashier, forgive, openPage, order, page, patience, post, printer, restartPrinter, sell, waitForLamp, withPrinter,
} from "./bench.mjs";
import { printDemoReceipt } from "./processes.mjs";

// Letters stand in place of its dates and times.
const demoReceipt = (await readFile(new URL("../golden/demo_receipt.txt", import.meta.url), "utf8")).trimEnd().split("\n");

async function paperTexts() {
  return page.locator(".sheet:not(#open-sheet) pre").allTextContents();
}

async function press(name) {
  await page.getByRole("button", { name, exact: true }).click();
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
  forgive("status of 400");
}));

test("why an order is refused is said in the page's language", () => withPrinter(async () => {
  await page.locator("#fault-text").fill("late=86400001");
  await page.locator("#fault-text").press("Enter");
  const trouble = page.locator("#trouble");
  await trouble.filter({ hasText: "Not done: a number should be 0 to 86400000: late=86400001" }).waitFor(patience);
  await page.locator("#language").selectOption("pl");
  await trouble.filter({ hasText: "liczba powinna wynosić od 0 do 86400000: late=86400001" }).waitFor(patience);
  await page.locator("#fault-text").fill("nonsense");
  await page.locator("#fault-text").press("Enter");
  await trouble.filter({ hasText: "to nie jest usterka: nonsense" }).waitFor(patience);
  // The answer to another program of the same printer.
  const { status, body } = await order("dance");
  assert.equal(status, 400);
  assert.deepEqual(JSON.parse(body), { error: "unknown-order", order: "dance", text: 'there is no order "dance"' });
  await page.locator("#language").selectOption("en");
  forgive("status of 400");
}));

test("faults are listed with how often they struck, and marked where they did", () => withPrinter(async () => {
  assert.equal(await page.locator("#armed").isVisible(), false);
  for (const fault of ["garble@answer=1000x*", "refuse=1086@frame=2"]) {
    await order("fault", { fault });
  }
  const armed = page.locator("#armed li");
  await armed.filter({ hasText: /^refuse=1086@frame=2 – struck 0×$/ }).waitFor(patience);
  await armed.filter({ hasText: /^garble@answer=1000x\* – struck 0×$/ }).waitFor(patience);
  assert.equal((await cashier.take("header")).result, 0);
  assert.notEqual((await cashier.take("line Masło")).result, 0);
  await armed.filter({ hasText: /^refuse=1086@frame=2 – struck 1×, over$/ }).waitFor(patience);
  const row = page.locator("#exchanges tr.bad", { hasText: "refused: 1086" });
  await row.filter({ hasText: "^l" }).filter({ hasText: "fault: refuse=1086@frame=2" }).waitFor(patience);

  // What is struck on the way leaves a row, too, although nothing came.
  await order("fault", { fault: "cut@byte=1" });
  await sendBytes("\x10");
  const lost = page.locator("#exchanges tr.bad", { hasText: "lost by a fault" });
  await lost.filter({ hasText: "cut@byte=1" }).waitFor(patience);
  // A late answer to a control byte is shown although control bytes are hidden.
  await order("fault", { fault: "late=1" });
  await sendBytes("\x10");
  await page.locator("#exchanges tr.bad", { hasText: "DLE" }).filter({ hasText: "late=1" }).waitFor(patience);
  await press("Clear faults");
  await page.locator("#armed").waitFor({ state: "hidden", ...patience });
}));

test("what a refusal means is told in the page's language, where the printer says it", () => withPrinter(async () => {
  await page.evaluate(async () => {
    const { addExchange } = await import(new URL("traffic.js", location.href).href);
    const refused = {
      number: 1, time: "2024-01-31T12:05:00.000Z", client: 1, kind: "frame", mnemonic: "^l", parameters: [], fields: "",
      checksum: "right", answer: "", error: 17,
    };
    addExchange({ ...refused, reason: { en: "no name", pl: "brak nazwy" } });
    addExchange({ ...refused, error: 18 });
  });
  const notes = page.locator("#exchanges .wrong");
  await notes.nth(1).waitFor(patience);
  assert.deepEqual(await notes.allTextContents(), ["refused: 18", "refused: 17 – no name"]);
  await page.locator("#language").selectOption("pl");
  await notes.filter({ hasText: "odrzucono: 17 – brak nazwy" }).waitFor(patience);
  await page.locator("#language").selectOption("en");
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
  // The total is twice as high, and a comma of it stands in its lower half only.
  assert.equal(seen.height, 80 + 22 * (lines.length + 1));
  const total = lines.findIndex((line) => line.startsWith("SUMA PLN"));
  const [upper, lower] = seen.cells.splice(total, 2, lines[total].replace(/\S/g, "x"));
  assert.equal([...lower].map((ink, i) => (ink === "x" ? ink : (upper[i] ?? " "))).join(""), seen.cells[total]);
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
  await page.getByLabel("only refused, wrong, faulty").check();
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
  const status = async (headers) => (await post(headers, { order: "paper-out" })).status;
  assert.equal(await status({}), 403);
  assert.equal(await status({ "X-Token": "0".repeat(32) }), 403);
  assert.equal(await status({ "X-Token": token, Host: "printer.example" }), 403);
  assert.equal(await status({ "X-Token": token }), 204);
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

test("a printer that hangs is noticed, and the page goes on when it does", () => withPrinter(async () => {
  await sell("Masło");
  await page.locator(".sheet:not(#open-sheet)", { hasText: "Masło" }).waitFor(patience);
  printer.hang();
  try {
    await waitForLamp("program", "not running");
    assert.equal(await page.locator("#lost").isVisible(), true);
    for (const name of ["online", "paper", "error", "document", "command"]) {
      assert.equal(await page.locator(`#lamp-${name}`).getAttribute("data-state"), "unknown", name);
    }
  } finally {
    printer.goOn();
  }
  await waitForLamp("program", "connected");
  await waitForLamp("online", "online");
  assert.equal(await page.locator("#lost").isVisible(), false);
  await sell("Chleb");
  await page.locator(".sheet:not(#open-sheet)", { hasText: "Chleb" }).waitFor(patience);
  // What was there is still there, once.
  assert.equal(await page.locator(".sheet:not(#open-sheet)").count(), 2);
}));

test("a still printer is not taken for one that hangs", () => withPrinter(async () => {
  const beats = await page.evaluate(() => new Promise((resolve) => {
    let count = 0;
    const source = new EventSource("events");
    source.addEventListener("beat", () => {
      count += 1;
      if (count === 4) {
        source.close();
        resolve({ count, lost: !document.getElementById("lost").hidden });
      }
    });
  }));
  // Four beats take longer than the silence that the page bears.
  assert.deepEqual(beats, { count: 4, lost: false });
}));

test("the page outlives the program and goes on with its next run", () => withPrinter(async () => {
  await sell("Masło");
  await page.locator(".sheet:not(#open-sheet)").waitFor(patience);
  await printer.stop();
  await waitForLamp("program", "not running");
  await page.getByRole("alert").filter({ hasText: "The connection to the printer is lost." }).waitFor(patience);
  await waitForLamp("paper", "paper unknown");
  assert.equal(await page.locator(".lamp[data-state=good]").count(), 0);
  assert.equal(await page.locator(".lamp[data-state=unknown]").count(), 5);
  await restartPrinter();
  await waitForLamp("program", "connected");
  await waitForLamp("paper", "paper");
  assert.equal(await page.locator("#lost").isVisible(), false);
  await page.locator(".sheet:not(#open-sheet)").waitFor({ state: "detached", ...patience });
  forgive("net::ERR_");
}));

test("an answer that is no stream of news does not end the page's patience", () => withPrinter(async () => {
  // Chromium gives up a stream for good when anything else than one answers.
  await page.route("**/events", (route) => route.fulfill({ status: 503 }), { times: 1 });
  await page.reload();
  await waitForLamp("program", "not running");
  await waitForLamp("program", "connected");
  forgive("status of 503");
}));

test("what comes at once is shown at once, and only the newest of it", () => withPrinter(async () => {
  const counts = await page.evaluate(async () => {
    const { addLine, addPrintout } = await import(new URL("roll.js", location.href).href);
    const shown = () => document.querySelectorAll(".sheet:not(#open-sheet)").length;
    for (let number = 1; number <= 300; ++number) {
      addLine(`Paragon ${number}`);
      addPrintout({ number, fiscal_number: number, kind: "receipt", lines: [`Paragon ${number}`] });
    }
    const atOnce = shown();
    await new Promise(requestAnimationFrame);
    return [atOnce, shown()];
  });
  assert.deepEqual(counts, [0, 200]);
  const papers = await paperTexts();
  assert.deepEqual([papers.at(0), papers.at(-1)], ["Paragon 101", "Paragon 300"]);
}));

test("after a flood of receipts the page is soon current", (context) => withPrinter(async () => {
  const receipts = 3000;
  assert.equal((await cashier.take(`sell ${receipts}`)).result, 0);
  const start = Date.now();
  // A second is what a person would wait. The machine may be busy with other tests.
  await page.locator(".sheet pre", { hasText: `Paragon ${receipts} ` }).waitFor({ timeout: 5000 });
  context.diagnostic(`${Date.now() - start} ms after the flood's end`);
  assert.equal(await page.locator(".sheet:not(#open-sheet)").count(), 200);
  assert.ok((await page.locator("#exchanges tr").count()) <= 500);
}));
