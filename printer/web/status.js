// The printer's lamps, customer display and totals.

import { oncePerFrame } from "./frame.js";
import { onLanguage, word } from "./language.js";

const rateLetters = "ABCDEFG";

// As the program told it last; null before.
let status = null;
// Whether the news comes; null before that is known.
let connected = null;

export function amountText(grosze) {
  const digits = `${Math.abs(grosze)}`.padStart(3, "0");
  return `${grosze < 0 ? "-" : ""}${digits.slice(0, -2)},${digits.slice(-2)}`;
}

function lamp(name, text, state) {
  const element = document.getElementById(`lamp-${name}`);
  // A screen reader tells what is set.
  if (element.textContent !== text) {
    element.textContent = text;
  }
  element.dataset.state = state;
}

function showLamps() {
  lamp("program", word(connected ? "connected" : "gone"), connected ? "good" : "bad");
  document.getElementById("lost").hidden = connected !== false;
  if (!connected || !status) {
    for (const [name, text] of Object.entries(word("unknown"))) {
      lamp(name, text, "unknown");
    }
    return;
  }
  lamp("online", word(status.online ? "online" : "offline"), status.online ? "good" : "bad");
  lamp("paper", word(status.paper_out ? "paperOut" : "paperIn"), status.paper_out ? "bad" : "good");
  lamp("error", word(status.mechanism_error ? "mechanismError" : "mechanismOk"), status.mechanism_error ? "bad" : "good");
  const documentWord = status.last_document_closed ? "documentClosed" : "documentCancelled";
  lamp("document", word(status.document_open ? "documentOpen" : documentWord), "");
  lamp(
    "command",
    status.last_command_ok ? word("commandOk") : word("commandRefused")(status.error),
    status.last_command_ok ? "good" : "bad",
  );
}

function showDisplay() {
  const lines = [...status.display];
  while (lines.length > 2 && lines.at(-1) === "") {
    lines.pop();
  }
  document.getElementById("display").textContent = lines.join("\n");
}

function addRow(body, texts) {
  const row = body.insertRow();
  for (const text of texts) {
    row.insertCell().textContent = text;
  }
  return row;
}

function showTotals() {
  const { receipts, invoices } = status;
  const sum = (series) => amountText(series.totals.reduce((a, b) => a + b, 0));
  const body = document.querySelector("#totals tbody");
  body.replaceChildren();
  [...rateLetters].forEach((letter, i) => {
    addRow(body, [`${letter} ${status.rates[i]}`, amountText(receipts.totals[i]), amountText(invoices.totals[i])]);
  });
  addRow(body, [word("sum"), sum(receipts), sum(invoices)]).className = "sum";
  addRow(body, [word("number"), `${receipts.count}`, `${invoices.count}`]);
  document.getElementById("counts").textContent = word("counts")(status);
}

// Which faults were ordered, and how often each happened.
function showFaults() {
  document.getElementById("armed").hidden = status.faults.length === 0;
  document.querySelector("#armed ul").replaceChildren(
    ...status.faults.map(({ fault, struck, over }) => {
      const item = document.createElement("li");
      const name = document.createElement("code");
      name.textContent = fault;
      item.append(name, ` – ${word("times")(struck)}${over ? `, ${word("over")}` : ""}`);
      return item;
    }),
  );
}

// The button shows what pressing it does; pressed means that the printer is in trouble by it.
function showToggle(id, pressed, words) {
  const button = document.getElementById(id);
  button.textContent = word(words[pressed ? 1 : 0]);
  button.setAttribute("aria-pressed", `${pressed}`);
}

function show() {
  showLamps();
  showToggle("toggle-paper", Boolean(status?.paper_out), ["runOut", "paperBack"]);
  showToggle("toggle-online", status?.online === false, ["goOffline", "goOnline"]);
  showToggle("toggle-error", Boolean(status?.mechanism_error), ["errorOn", "errorOff"]);
  if (status) {
    document.documentElement.dataset.paper = status.paper_out ? "out" : "in";
    showDisplay();
    showTotals();
    showFaults();
  }
}

const showSoon = oncePerFrame(show);

export function setStatus(told) {
  status = told;
  showSoon();
}

export function setConnected(now) {
  if (connected !== now) {
    connected = now;
    showSoon();
  }
}

// The order that changes what a toggle stands for.
export function toggleOrder(id) {
  return {
    "toggle-paper": status?.paper_out ? "paper-back" : "paper-out",
    "toggle-online": status?.online === false ? "online" : "offline",
    "toggle-error": status?.mechanism_error ? "error-off" : "error-on",
  }[id];
}

onLanguage(show);
