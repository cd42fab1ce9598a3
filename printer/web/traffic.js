// The traffic: what came from clients and what the printer answered, newest on top.

import { oncePerFrame } from "./frame.js";
import { commandName, currentLanguage, onLanguage, word } from "./language.js";

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

function isTrouble(exchange) {
  const { kind, error, checksum, faults } = exchange;
  return Boolean(error) || Boolean(faults) || checksum === "wrong" || kind === "lost";
}

// The error's number, and what it means where the printer says so.
function refusal({ error, reason }) {
  const meaning = reason?.[currentLanguage()] ?? reason?.en;
  return error ? [word("refused")(error), meaning].filter(Boolean).join(" – ") : "";
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
  const columns = {
    time: clockText(exchange.time),
    client: word("client")(exchange.client),
    mnemonic: mnemonic ?? "",
    answer,
    name: "",
    content: "",
    checksum: "",
    note: refusal(exchange),
    faults: exchange.faults ? word("struck")(exchange.faults.join(", ")) : "",
  };
  if (kind === "frame") {
    return {
      ...columns,
      name: commandName(exchange),
      content: [parameters.join(";"), fields].filter(Boolean).join("; "),
      checksum: word(exchange.checksum),
    };
  }
  if (kind !== "control") {
    return { ...columns, name: word(kind) };
  }
  const names = { DLE: word("dle"), ENQ: word("enq") }[mnemonic];
  return { ...columns, note: names ? bits(answer, names) : "" };
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
  const noteStyle = exchange.error ? "wrong" : "name";
  cell(
    row,
    [shown.checksum, `checksum ${exchange.checksum}`],
    [shown.answer, "wire"],
    [shown.note, noteStyle],
    [shown.faults, "wrong fault"],
  );
}

function render() {
  const wanted = filter.value.toLocaleLowerCase();
  table.replaceChildren();
  for (const exchange of (frozen ?? exchanges).slice().reverse()) {
    if (!isTrouble(exchange) && (onlyTrouble.checked || (hideStatus.checked && exchange.kind === "control"))) {
      continue;
    }
    const shown = texts(exchange);
    if (Object.values(shown).some((text) => text.toLocaleLowerCase().includes(wanted))) {
      show(exchange, shown);
    }
  }
}

const renderSoon = oncePerFrame(render);

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
