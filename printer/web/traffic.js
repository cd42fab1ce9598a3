// The traffic: what came from clients and what the printer answered, newest on top.

import { commandName, onLanguage, word } from "./language.js";

const kept = 500;
const table = document.getElementById("exchanges");
const filter = document.getElementById("filter");
const hideStatus = document.getElementById("hide-status");
const onlyTrouble = document.getElementById("only-trouble");
const pause = document.getElementById("pause");

// Newest last.
let exchanges = [];
// What they were when the pause began; null without one.
let frozen = null;
let waiting = false;

function isTrouble(exchange) {
  return Boolean(exchange.error) || exchange.checksum === "wrong";
}

// The names of the bits that are set in a status byte, given in hexadecimal.
function bits(answer, names) {
  const byte = parseInt(answer, 16);
  return names.filter((_, bit) => byte & (1 << bit)).join(", ");
}

// The time of day where the reader is.
function clockText(time) {
  const date = new Date(time);
  const two = (number) => `${number}`.padStart(2, "0");
  const clock = [date.getHours(), date.getMinutes(), date.getSeconds()].map(two).join(":");
  return `${clock}.${`${date.getMilliseconds()}`.padStart(3, "0")}`;
}

// What each column shows.
function texts(exchange) {
  const { kind, mnemonic, parameters, fields, answer } = exchange;
  const columns = { time: clockText(exchange.time), client: word("client")(exchange.client), mnemonic: mnemonic ?? "", answer };
  if (kind === "frame") {
    return {
      ...columns,
      name: commandName(exchange),
      content: [parameters.join(";"), fields].filter(Boolean).join("; "),
      checksum: word(exchange.checksum),
      note: exchange.error ? word("refused")(exchange.error) : "",
    };
  }
  if (kind === "overflow") {
    return { ...columns, name: word("overflow"), content: "", checksum: "", note: word("refused")(exchange.error) };
  }
  const names = { DLE: word("dle"), ENQ: word("enq") }[mnemonic];
  return { ...columns, name: "", content: "", checksum: "", note: names ? bits(answer, names) : "" };
}

function cell(row, ...parts) {
  const data = row.insertCell();
  for (const [text, style] of parts) {
    if (text) {
      const span = document.createElement("span");
      span.className = style;
      span.textContent = text;
      data.append(data.hasChildNodes() ? " " : "", span);
    }
  }
}

function show(exchange, shown) {
  const row = table.insertRow();
  row.className = isTrouble(exchange) ? "bad" : "";
  cell(row, [shown.time, "first"], [shown.client, "name"]);
  cell(row, [shown.mnemonic, "wire"], [shown.name, "name"], [shown.content, "wire content"]);
  const noteStyle = isTrouble(exchange) ? "wrong" : "name";
  cell(row, [shown.checksum, `checksum ${exchange.checksum}`], [shown.answer, "wire"], [shown.note, noteStyle]);
}

function render() {
  waiting = false;
  const wanted = filter.value.toLocaleLowerCase();
  table.replaceChildren();
  for (const exchange of (frozen ?? exchanges).slice().reverse()) {
    if ((hideStatus.checked && exchange.kind === "control") || (onlyTrouble.checked && !isTrouble(exchange))) {
      continue;
    }
    const shown = texts(exchange);
    if (Object.values(shown).some((text) => text.toLocaleLowerCase().includes(wanted))) {
      show(exchange, shown);
    }
  }
}

// However many exchanges come, the table is made once for what the eye can see.
function renderSoon() {
  if (!waiting) {
    waiting = true;
    requestAnimationFrame(render);
  }
}

export function addExchange(exchange) {
  exchanges.push(exchange);
  exchanges.splice(0, exchanges.length - kept);
  if (!frozen) {
    renderSoon();
  }
}

export function clear() {
  exchanges = [];
  renderSoon();
}

for (const control of [filter, hideStatus, onlyTrouble]) {
  control.addEventListener("input", renderSoon);
}
pause.addEventListener("click", () => {
  frozen = frozen ? null : exchanges.slice();
  pause.setAttribute("aria-pressed", `${frozen !== null}`);
  renderSoon();
});
onLanguage(() => {
  filter.placeholder = word("filter");
  filter.setAttribute("aria-label", word("filter"));
  renderSoon();
});
