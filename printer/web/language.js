// The page's language: which it is, and every element with data-word in it. Each file in languages/ is one of them.

const fetchJson = async (path) => (await fetch(path)).json();

const [codes, { commands }] = await Promise.all([fetchJson("languages.json"), fetchJson("readings.json")]);
const modules = await Promise.all(codes.map((code) => import(`./languages/${code}.js`)));
const languages = new Map(codes.map((code, i) => [code, modules[i]]));
const readings = new Map(commands.map((reading) => [reading.command, reading]));

const listeners = [];
const wishes = [localStorage.getItem("language"), navigator.language.slice(0, 2), "en"];
let language = wishes.find((code) => languages.has(code));

export function word(name) {
  return languages.get(language).words[name];
}

// What the printer takes a frame's command for.
export function commandName({ mnemonic, parameters }) {
  if (!mnemonic) {
    return word("strange");
  }
  const first = parameters.length === 1 ? parameters[0] : `${parameters[0]};`;
  const names = [`${mnemonic} (${parameters.length})`, `${mnemonic} ${first}`, mnemonic];
  const reading = names.map((name) => readings.get(name)).find(Boolean);
  return reading[language] ?? reading.en;
}

// Calls back now and whenever the language changes.
export function onLanguage(listener) {
  listeners.push(listener);
  listener();
}

// Of every language its code and what it calls itself.
export function languageNames() {
  return [...languages].map(([code, { name }]) => [code, name]);
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
