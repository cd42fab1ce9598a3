// The page of a printer: shows the news as it comes, sends the orders of its buttons.

import { currentLanguage, languageNames, onLanguage, setLanguage, word } from "./language.js";
import * as roll from "./roll.js";
import { setConnected, setStatus, toggleOrder } from "./status.js";
import * as traffic from "./traffic.js";

// In milliseconds.
const retryPause = 3000;
// Without news a beat comes every two seconds; a printer that is silent for so long hangs.
const longestSilence = 6000;
const token = location.hash.slice(1);
// Why the last order was not carried out, as the program says it; null when it was.
let refusal = null;

function watch() {
  const source = new EventSource("events");
  let silence;
  const hear = () => {
    setConnected(true);
    clearTimeout(silence);
    silence = setTimeout(() => setConnected(false), longestSilence);
  };
  const on = (kind, handler) => source.addEventListener(kind, (event) => {
    hear();
    handler(JSON.parse(event.data));
  });
  on("reset", () => {
    roll.clear();
    traffic.clear();
  });
  on("line", roll.addLine);
  on("printout", roll.addPrintout);
  on("torn", roll.tearOff);
  on("exchange", traffic.addExchange);
  on("status", setStatus);
  source.addEventListener("beat", hear);
  source.addEventListener("open", hear);
  source.addEventListener("error", () => {
    clearTimeout(silence);
    setConnected(false);
    // By itself a browser tries again only where nobody answered at all.
    if (source.readyState === EventSource.CLOSED) {
      setTimeout(watch, retryPause);
    }
  });
}

function showTrouble() {
  const trouble = document.getElementById("trouble");
  trouble.hidden = refusal === null;
  trouble.textContent = refusal && word("orderFailed")(word("reasons")[refusal.error]?.(refusal) ?? refusal.text);
}

async function order(name, details = {}) {
  try {
    const response = await fetch("orders", {
      method: "POST",
      headers: { "X-Token": token },
      body: JSON.stringify({ order: name, ...details }),
    });
    refusal = response.ok ? null : await response.json();
  } catch {
    refusal = { error: "no-answer" };
  }
  showTrouble();
}

function onSubmit(id, handler) {
  document.getElementById(id).addEventListener("submit", (event) => {
    event.preventDefault();
    handler();
  });
}

function prepareButtons() {
  for (const id of ["toggle-paper", "toggle-online", "toggle-error"]) {
    document.getElementById(id).addEventListener("click", () => order(toggleOrder(id)));
  }
  for (const id of ["tear-off", "clear-faults"]) {
    document.getElementById(id).addEventListener("click", () => order(id));
  }
  onSubmit("refuse", () => order("refuse-next", { error: document.getElementById("refuse-error").valueAsNumber }));
  onSubmit("fault", () => order("fault", { fault: document.getElementById("fault-text").value.trim() }));
  document.getElementById("no-token").hidden = token !== "";
  for (const element of document.querySelectorAll(".order")) {
    element.disabled = token === "";
  }
}

async function offerFaults() {
  const response = await fetch("faults.json");
  for (const { example } of await response.json()) {
    document.getElementById("faults").append(new Option(example, example));
  }
}

// A choice that is remembered.
function prepareChoice(id, value, apply) {
  const select = document.getElementById(id);
  select.value = value;
  apply(value);
  select.addEventListener("change", () => {
    localStorage.setItem(id, select.value);
    apply(select.value);
  });
}

function prepareLooks() {
  const dark = matchMedia("(prefers-color-scheme: dark)");
  const theme = document.getElementById("theme");
  const paint = () => {
    document.documentElement.dataset.theme = theme.value || (dark.matches ? "dark" : "light");
  };
  prepareChoice("theme", localStorage.getItem("theme") ?? "", paint);
  dark.addEventListener("change", paint);
  prepareChoice("zoom", localStorage.getItem("zoom") ?? "1.75", (zoom) => {
    document.documentElement.style.setProperty("--zoom", zoom);
  });
  for (const [code, name] of languageNames()) {
    document.getElementById("language").append(new Option(name, code));
  }
  prepareChoice("language", currentLanguage(), (language) => {
    if (language !== currentLanguage()) {
      setLanguage(language);
    }
  });
}

prepareLooks();
prepareButtons();
onLanguage(showTrouble);
void offerFaults();
addEventListener("hashchange", () => location.reload());
watch();
