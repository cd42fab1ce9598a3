// The paper roll: finished printouts, and below them the one that is being printed.

import { oncePerFrame } from "./frame.js";
import { onLanguage, word } from "./language.js";

const keptPrintouts = 200;
const keptLines = 1000;
const roll = document.getElementById("roll");
const open = document.getElementById("open-sheet");
const hint = document.getElementById("no-paper-yet");

// Newest last.
let printouts = [];
// Of the printout that is not finished.
let lines = [];
// What is shown of each printout.
const sheets = new Map();

function download(printout, suffix) {
  const link = document.createElement("a");
  const number = printout.fiscal_number || printout.number;
  link.href = `printouts/${printout.number}.${suffix}`;
  link.download = `${printout.kind}-${number}.${suffix}`;
  link.dataset.format = suffix;
  return link;
}

// Prints on the reader's own printer what a sheet shows, and nothing else.
function printButton(sheet) {
  const button = document.createElement("button");
  button.type = "button";
  button.addEventListener("click", () => {
    sheet.classList.add("chosen");
    addEventListener("afterprint", () => sheet.classList.remove("chosen"), { once: true });
    print();
  });
  return button;
}

function translate(sheet) {
  sheet.querySelector("footer span").textContent = word("kinds")[sheet.dataset.kind];
  sheet.querySelector("[data-format=png]").textContent = word("png");
  sheet.querySelector("[data-format=txt]").textContent = word("text");
  sheet.querySelector("button").textContent = word("print");
}

// Its most significant bit is the dot on the left; a bit that is 0 is black.
function drawPicture({ text, picture: { width, height, rows } }) {
  const canvas = document.createElement("canvas");
  canvas.width = width;
  canvas.height = height;
  canvas.textContent = text;
  canvas.style.setProperty("--dots", width);
  const context = canvas.getContext("2d");
  const rowLength = 2 * Math.ceil(width / 8);
  for (let y = 0; y < height; ++y) {
    for (let x = 0; x < width; ++x) {
      if ((Number.parseInt(rows[y * rowLength + (x >> 2)], 16) & (8 >> (x & 3))) === 0) {
        context.fillRect(x, y, 1, 1);
      }
    }
  }
  return canvas;
}

// A line is its text, or an object with a picture or a style.
function lineNode(line) {
  if (typeof line === "string") {
    return line;
  }
  if (line.picture) {
    return drawPicture(line);
  }
  const node = document.createElement("span");
  node.className = line.style;
  node.textContent = line.text;
  return node;
}

function texts(lines) {
  return lines.flatMap((line, i) => (i === 0 ? [lineNode(line)] : ["\n", lineNode(line)]));
}

function makeSheet(printout) {
  const sheet = document.createElement("article");
  sheet.className = "sheet";
  sheet.dataset.kind = printout.kind;
  const paper = document.createElement("pre");
  paper.append(...texts(printout.lines));
  const footer = document.createElement("footer");
  const kind = document.createElement("span");
  footer.append(kind, download(printout, "png"), download(printout, "txt"), printButton(sheet));
  sheet.append(paper, footer);
  translate(sheet);
  return sheet;
}

function showSheets() {
  const shown = new Set(printouts);
  for (const [printout, sheet] of sheets) {
    if (!shown.has(printout)) {
      sheet.remove();
      sheets.delete(printout);
    }
  }
  for (const printout of printouts) {
    if (!sheets.has(printout)) {
      sheets.set(printout, makeSheet(printout));
      open.before(sheets.get(printout));
    }
  }
}

// The newest paper stays in sight unless the reader has scrolled up.
function show() {
  const atEnd = roll.scrollHeight - roll.scrollTop - roll.clientHeight < 40;
  showSheets();
  open.hidden = lines.length === 0;
  open.querySelector("pre").replaceChildren(...texts(lines), "\n");
  hint.hidden = lines.length + printouts.length > 0;
  if (atEnd) {
    roll.scrollTop = roll.scrollHeight;
  }
}

const showSoon = oncePerFrame(show);

export function addLine(line) {
  lines.push(line);
  lines.splice(0, lines.length - keptLines);
  showSoon();
}

export function addPrintout(printout) {
  printouts.push(printout);
  printouts.splice(0, printouts.length - keptPrintouts);
  lines = [];
  showSoon();
}

export function tearOff() {
  printouts = [];
  showSoon();
}

export function clear() {
  lines = [];
  tearOff();
}

onLanguage(() => sheets.forEach(translate));
