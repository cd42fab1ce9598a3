// The page's language: which it is, and every element with data-word in it.

import { commands, setting, words } from "./words.js";

const listeners = [];
let language = localStorage.getItem("language") ?? (navigator.language.startsWith("pl") ? "pl" : "en");

export function word(name) {
  return words[language][name];
}

// The name of a frame's command; empty when the command is unknown.
export function commandName({ mnemonic, parameters }) {
  if (!mnemonic) {
    return word("strange");
  }
  const choice = parameters.length === 1 ? parameters[0] : `${parameters[0]};`;
  const names = commands[`${mnemonic} ${choice}`] ?? commands[mnemonic] ?? setting;
  return names[language === "pl" ? 1 : 0];
}

// Calls back now and whenever the language changes.
export function onLanguage(listener) {
  listeners.push(listener);
  listener();
}

export function currentLanguage() {
  return language;
}

export function setLanguage(chosen) {
  language = chosen;
  localStorage.setItem("language", chosen);
  for (const listener of listeners) {
    listener();
  }
}

onLanguage(() => {
  document.documentElement.lang = language;
  for (const element of document.querySelectorAll("[data-word]")) {
    element.textContent = word(element.dataset.word);
  }
});
