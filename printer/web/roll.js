// The paper roll: finished printouts, and below them the one that is being printed.

import { onLanguage, word } from "./language.js";

const kept = 200;
const roll = document.getElementById("roll");
const open = document.getElementById("open-sheet");
const hint = document.getElementById("no-paper-yet");

// The newest paper stays in sight unless the reader has scrolled up.
function keepingInSight(change) {
  const atEnd = roll.scrollHeight - roll.scrollTop - roll.clientHeight < 40;
  change();
  hint.hidden = !open.hidden || roll.querySelector(".sheet:not(#open-sheet)") !== null;
  if (atEnd) {
    roll.scrollTop = roll.scrollHeight;
  }
}

function download(printout, suffix) {
  const link = document.createElement("a");
  const number = printout.fiscal_number || printout.number;
  link.href = `printouts/${printout.number}.${suffix}`;
  link.download = `${printout.kind}-${number}.${suffix}`;
  link.dataset.format = suffix;
  return link;
}

function translate(sheet) {
  sheet.querySelector("span").textContent = word("kinds")[sheet.dataset.kind];
  sheet.querySelector("[data-format=png]").textContent = word("png");
  sheet.querySelector("[data-format=txt]").textContent = word("text");
}

export function addLine(line) {
  keepingInSight(() => {
    open.hidden = false;
    open.querySelector("pre").append(`${line}\n`);
  });
}

export function addPrintout(printout) {
  const sheet = document.createElement("article");
  sheet.className = "sheet";
  sheet.dataset.kind = printout.kind;
  const paper = document.createElement("pre");
  paper.textContent = printout.lines.join("\n");
  const footer = document.createElement("footer");
  footer.append(document.createElement("span"), download(printout, "png"), download(printout, "txt"));
  sheet.append(paper, footer);
  translate(sheet);
  keepingInSight(() => {
    open.before(sheet);
    clearOpenSheet();
    const sheets = finished();
    for (const old of sheets.slice(0, Math.max(0, sheets.length - kept))) {
      old.remove();
    }
  });
}

export function tearOff() {
  keepingInSight(() => {
    for (const sheet of finished()) {
      sheet.remove();
    }
  });
}

export function clear() {
  tearOff();
  keepingInSight(clearOpenSheet);
}

function clearOpenSheet() {
  open.hidden = true;
  open.querySelector("pre").textContent = "";
}

function finished() {
  return [...roll.querySelectorAll(".sheet:not(#open-sheet)")];
}

onLanguage(() => finished().forEach(translate));
