// How the page looks and can be used, in Chromium: contrast, what screen readers and keyboards need, scrolling, paper.

import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { connect } from "node:net";
import { test } from "node:test";

import {
  cashier, forgive, openPage, order, page, patience, printer, sell, waitForLamp, withPrinter,
} from "./bench.mjs";

const axe = await readFile(new URL("node_modules/axe-core/axe.min.js", import.meta.url), "utf8");
const sheets = ".sheet:not(#open-sheet)";

// Something of everything: receipts, a refusal, a fault, a wide display, an order that was not carried out.
async function fillPage() {
  assert.equal((await cashier.take("sell 20")).result, 0);
  await order("fault", { fault: "refuse=1086" });
  assert.notEqual((await cashier.take("header")).result, 0);
  await order("fault", { fault: "late=1@answer=1000" });
  await cashier.take(`display ${"Do zapłaty ".repeat(4)}`);
  await page.locator("#fault-text").fill("nonsense");
  await page.locator("#fault-text").press("Enter");
  await page.locator("#trouble").waitFor(patience);
  await page.locator("#armed li").nth(1).waitFor(patience);
  await page.locator("#exchanges .fault").waitFor(patience);
  await page.locator(sheets).nth(19).waitFor(patience);
  forgive("status of 400");
}

async function violations(tab) {
  await tab.evaluate(axe);
  return tab.evaluate(async () => {
    const levels = ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa"];
    const found = await window.axe.run(document, { runOnly: { type: "tag", values: levels } });
    return found.violations.map(({ id, nodes }) => `${id}: ${nodes.map((node) => node.target.join(" ")).join(", ")}`);
  });
}

test("nothing keeps a reader out, with the printer and without", () => withPrinter(async () => {
  await fillPage();
  const judge = async (state) => {
    for (const language of ["pl", "en"]) {
      for (const theme of ["light", "dark"]) {
        await page.locator("#language").selectOption(language);
        await page.locator("#theme").selectOption(theme);
        assert.deepEqual(await violations(page), [], `${state}, ${language}, ${theme}`);
      }
    }
  };
  await judge("with the printer");
  const stranger = await openPage(printer.url.replace(/#.*/, ""));
  assert.deepEqual(await violations(stranger), [], "without the token");
  await stranger.close();
  await printer.stop();
  await waitForLamp("program", "not running");
  await judge("without the printer");
  forgive("net::ERR_");
}));

test("paper, display and traffic are scrolled by keyboard", () => withPrinter(async () => {
  await fillPage();
  for (const name of ["Paper", "Customer display", "Traffic"]) {
    const frame = page.locator("[tabindex='0']").and(page.getByLabel(name, { exact: true }));
    await frame.focus();
    assert.ok(await frame.evaluate((element) => element === document.activeElement), name);
  }
  await page.locator("#exchanges tr").nth(40).waitFor(patience);
  await page.locator("#traffic-table").focus();
  await page.keyboard.press("End");
  await page.waitForFunction(() => document.getElementById("traffic-table").scrollTop > 0);
}));

// The contrasts of an element as it is painted: of its text, and of its outline with what is around it when it has one.
function contrasts(element) {
  const context = new OffscreenCanvas(1, 1).getContext("2d", { willReadFrequently: true });
  const paint = (colours) => {
    for (const colour of colours) {
      context.fillStyle = colour;
      context.fillRect(0, 0, 1, 1);
    }
    const [red, green, blue] = [...context.getImageData(0, 0, 1, 1).data].map((byte) => {
      const part = byte / 255;
      return part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4;
    });
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  };
  const contrast = (a, b) => (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
  const fills = [];
  for (let part = element; part; part = part.parentElement) {
    const style = getComputedStyle(part);
    fills.unshift(style.backgroundColor);
    if (style.opacity !== "1") {
      throw new Error(`#${part.id} is translucent`);
    }
  }
  const style = getComputedStyle(element);
  return {
    text: contrast(paint(fills), paint([...fills, style.color])),
    outline: style.outlineStyle === "none" ? null : contrast(paint(fills.slice(0, -1)), paint([style.outlineColor])),
  };
}

// WCAG 2.2 AA: 4.5 to 1 for text, 3 to 1 for what shows the focus.
async function judgeControls(tab, state) {
  for (const control of await tab.locator("button:visible, input:visible, select:visible").all()) {
    const judge = async (under) => {
      const { text, outline } = await control.evaluate(contrasts);
      const name = `${await control.getAttribute("id") ?? await control.textContent()}, ${state}, ${under}`;
      assert.ok(text >= 4.5, `${name}: ${text}`);
      assert.ok(under !== "focused" || outline >= 3, `${name}, outline: ${outline}`);
    };
    await tab.mouse.move(0, 0);
    await judge("at rest");
    await control.hover({ force: true });
    await judge("under the mouse");
    if (await control.isEnabled()) {
      await tab.keyboard.press("Shift");
      await control.focus();
      await judge("focused");
      await control.blur();
    }
  }
}

test("every control can be read in every state and colour", () => withPrinter(async () => {
  await sell("Masło");
  await page.locator(sheets).waitFor(patience);
  const stranger = await openPage(printer.url.replace(/#.*/, ""));
  for (const pressed of [false, true]) {
    if (pressed) {
      for (const name of ["paper-out", "offline", "error-on"]) {
        await order(name);
      }
      await page.locator("#pause").click();
      await waitForLamp("error", "mechanism error");
    }
    for (const tab of [page, stranger]) {
      // One in the background is painted once a second.
      await tab.bringToFront();
      await tab.locator(`#toggle-error[aria-pressed=${pressed}]`).waitFor(patience);
      assert.equal(await tab.locator(".order:disabled").count() > 0, tab === stranger);
      for (const theme of ["light", "dark"]) {
        await tab.locator("#theme").selectOption(theme);
        await judgeControls(tab, `${theme}, ${pressed ? "pressed" : "not pressed"}`);
      }
    }
  }
  await stranger.close();
}));

test("the page is no longer and no wider than what is on it", () => withPrinter(async () => {
  await fillPage();
  for (const [width, height] of [[1280, 800], [1920, 1080], [1101, 600], [900, 800], [390, 844]]) {
    await page.setViewportSize({ width, height });
    const size = await page.evaluate(() => ({
      width: document.documentElement.scrollWidth,
      height: document.documentElement.scrollHeight,
      end: Math.round(document.querySelector("main").getBoundingClientRect().bottom + scrollY),
    }));
    assert.equal(size.width, width);
    assert.equal(size.height, size.end, `${width} wide`);
    assert.ok(width < 1101 || size.height === height, `${width} wide: ${size.height} high`);
  }
}));

test("titles are bold and the total is twice as high, on the screen and in print", () => withPrinter(async () => {
  await sell("Masło");
  await page.locator(sheets).waitFor(patience);
  for (const media of ["screen", "print"]) {
    await page.emulateMedia({ media });
    const paper = await page.locator(`${sheets} pre`).evaluate((element) => {
      const box = (selector) => {
        const { height, width } = element.querySelector(selector).getBoundingClientRect();
        return { height, width };
      };
      const style = getComputedStyle(element);
      return {
        lines: element.textContent.split("\n").length,
        line: Number.parseFloat(style.lineHeight),
        text: element.clientHeight - Number.parseFloat(style.paddingTop) - Number.parseFloat(style.paddingBottom),
        // 50 mm of its 57 are the 40 columns.
        columns: (element.getBoundingClientRect().width / 57) * 50,
        double: box(".double"),
        title: element.querySelector(".bold").textContent.trim(),
        total: element.querySelector(".double").textContent.replaceAll(/ +/g, " "),
        weight: getComputedStyle(element.querySelector(".bold")).fontWeight,
      };
    });
    assert.equal(paper.title, "PARAGON FISKALNY");
    assert.equal(paper.weight, "700");
    assert.equal(paper.total, "SUMA PLN 9,00");
    assert.ok(Math.abs(paper.double.height - 2 * paper.line) < 0.1, `${media}: ${paper.double.height}`);
    assert.ok(Math.abs(paper.double.width - paper.columns) < 1, `${media}: ${paper.double.width}`);
    // All lines and one more.
    assert.ok(Math.abs(paper.text - (paper.lines + 1) * paper.line) < 1.5, `${media}: ${paper.text}`);
  }
}));

// Sends commands to the printer as a client of its own.
function sendCommands(bodies) {
  const framed = (body) => {
    const sum = [...Buffer.from(body, "latin1")].reduce((a, b) => a ^ b, 0xff).toString(16).padStart(2, "0");
    return `\x1bP${body}${sum}\x1b\\`;
  };
  return new Promise((resolve, reject) => {
    const socket = connect({ host: "127.0.0.1", port: printer.port });
    socket.on("close", resolve);
    socket.on("error", reject);
    socket.end(bodies.map(framed).join(""), "latin1");
    socket.resume();
  });
}

test("a logo stands on the page as a picture, as wide as its dots", () => withPrinter(async () => {
  // 384 by 2 dots: the upper row black but for its last dot, the lower one white but for its first.
  const digits = `01800002${"00".repeat(47)}01${"7f"}${"ff".repeat(47)}`;
  await sendCommands([`0;^F0/${digits.length}/0/${digits.length}/${digits}\r3/`, "0;0;0;1;3$h\r", "0$e"]);
  const logo = page.locator(`${sheets} canvas`);
  await logo.waitFor(patience);
  assert.match(await page.locator(`${sheets} pre`).textContent(), /^ {14}\[grafika 3\]\n {13}Sklep wzorcowy\n/);
  const dots = await logo.evaluate((canvas) => {
    const { data } = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height);
    return [0, 382, 383].flatMap((x) => [0, 1].map((y) => data[4 * (y * canvas.width + x) + 3]));
  });
  assert.deepEqual(dots, [255, 255, 255, 0, 0, 0]);
  await page.emulateMedia({ media: "print" });
  const { left, width } = await logo.evaluate((canvas) => canvas.getBoundingClientRect());
  // 48 mm of 96 dots an inch, in the middle of 57.
  assert.ok(Math.abs(width - 181.42) < 0.1, `${width}`);
  assert.ok(Math.abs(left - 17.01) < 0.1, `${left}`);
}));

test("only the newest receipt is printed, or the one that was chosen", () => withPrinter(async () => {
  for (const name of ["Masło", "Chleb", "Mleko"]) {
    await sell(name);
  }
  await page.locator(sheets).nth(2).waitFor(patience);
  await cashier.take("header");
  await page.locator("#open-sheet", { hasText: "PARAGON" }).waitFor(patience);
  await page.locator("#theme").selectOption("dark");
  await page.emulateMedia({ media: "print" });
  // Every element that shows text of its own, but what is a part of the paper's text.
  const seen = () => page.evaluate(() => [...document.querySelectorAll("body *")]
    .filter((element) => element.checkVisibility() && element.getClientRects().length > 0)
    .filter((element) => !element.parentElement.closest("pre"))
    .filter((element) => [...element.childNodes].some((node) => node.nodeType === Node.TEXT_NODE && node.data.trim()))
    .map((element) => ({
      text: element.textContent,
      left: element.getBoundingClientRect().left,
      top: element.getBoundingClientRect().top + scrollY,
      width: element.getBoundingClientRect().width,
      high: element.scrollHeight <= element.clientHeight + 1,
      ink: getComputedStyle(element).color,
      paper: getComputedStyle(element).backgroundColor,
    })));
  const judge = async (name) => {
    const [receipt, ...others] = await seen();
    assert.deepEqual(others, []);
    assert.ok(receipt.text.includes(name), receipt.text);
    assert.ok(receipt.high);
    // 57 mm of 96 dots an inch.
    assert.ok(Math.abs(receipt.width - 215.43) < 0.1, `${receipt.width}`);
    assert.deepEqual([receipt.left, receipt.top], [0, 0]);
    assert.deepEqual([receipt.ink, receipt.paper], ["rgb(0, 0, 0)", "rgb(255, 255, 255)"]);
  };
  await judge("Mleko");
  await page.emulateMedia({ media: "screen" });
  await page.evaluate(() => {
    window.print = () => document.body.append("printing");
  });
  await page.locator(sheets).first().getByRole("button", { name: "Print", exact: true }).click();
  await page.locator("body", { hasText: "printing" }).waitFor(patience);
  await page.emulateMedia({ media: "print" });
  await judge("Masło");
  await page.evaluate(() => dispatchEvent(new Event("afterprint")));
  await judge("Mleko");
}));
