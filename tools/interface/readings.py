"""Compares the readings in the headers with docs/readings.json, and puts both languages in their place.

A reading is what the virtual printer takes a command or a field for. The headers have it as a sentence of its own.
"""

import json


def load(path):
    return json.loads(path.read_text(encoding="utf-8"))


def sentence(reading):
    """How the headers write a reading."""
    return reading["en"] if reading["en"].endswith("?") else reading["en"] + "."


def texts(entry):
    return {"en": entry["en"], "pl": entry["pl"]}


def readings_of_codes(readings, codes):
    """The reading of each code that has one, and what is wrong with them."""
    names = {code["code"]: code["name"] for code in codes}
    found, faults = {}, []
    for row in readings["commands"]:
        for number in row["codes"]:
            if number not in names:
                faults.append(f'{row["command"]}: no code is {number}')
            elif found.setdefault(names[number], texts(row)) != texts(row):
                faults.append(f'{names[number]}: has two readings, {found[names[number]]["en"]} and {row["en"]}')
    return found, faults


def documented(interface):
    """Every place of the interface that may have a reading: its name, and the entry and key where it stands."""
    for name, record in interface["records"].items():
        for field in record["fields"]:
            yield f'{name}.{field["name"]}', field, "reading"
    for code in interface["codes"]:
        yield code["name"], code, "reading"
        fields = interface["records"][code["record"]]["fields"] if code["record"] else []
        for field in fields:
            yield f'{code["name"]}.{field["name"]}', code.setdefault("field_readings", {}), field["name"]


def apply(interface, readings):
    """Replaces each English sentence by the reading in both languages. Returns what differs, in sentences."""
    expected, faults = readings_of_codes(readings, interface["codes"])
    expected.update({name: texts(entry) for name, entry in readings["fields"].items()})
    for name, entry, key in documented(interface):
        said, wanted = entry.get(key), expected.pop(name, None)
        wanted_sentence = sentence(wanted) if wanted else None
        if said != wanted_sentence:
            faults.append(f"{name}: the headers say {said}, the readings {wanted_sentence}")
        elif wanted:
            entry[key] = wanted
    faults += [f"{name}: there is a reading, but no such code or field" for name in expected]
    for code in interface["codes"]:
        if not code.get("field_readings"):
            code.pop("field_readings", None)
    return faults


def add_refusals(interface, readings):
    """Puts the virtual printer's refusals into the interface. Returns what is wrong with them."""
    numbers = {error["number"] for error in interface["errors"]}
    codes = {code["code"] for code in interface["codes"]}
    interface["refusals"] = readings["refusals"]
    faults = [f'refusal {row["error"]}: the driver knows no such error'
              for row in readings["refusals"] if row["error"] not in numbers]
    faults += [f'refusal {row["error"]}: no code is {code}'
               for row in readings["refusals"] for code in row.get("codes", []) if code not in codes]
    return faults
