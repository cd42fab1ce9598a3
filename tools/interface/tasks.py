"""What a shop wants to do: tasks, each with the commands that do it in their order, and an example of every command."""

import json
import pathlib

SOURCE = pathlib.Path(__file__).with_name("tasks.json")
OPENING_CODES = {200, 219, 300, 308}
CHECKS = ["QUIL_CHECK_STATUS", "QUIL_QUERY_ERROR"]


def flags_of(code, following):
    """The flags of an example. The checks would drop an answer that waits to be read."""
    if code["direction"] != "send" or (following and following["direction"] == "read"):
        return []
    return (["QUIL_COMPARE_TOTALS"] if code["code"] in OPENING_CODES else []) + CHECKS


def add_tasks(interface):
    """Puts the tasks into the interface, every step with its record and flags. Returns what is wrong with them."""
    source = json.loads(SOURCE.read_text(encoding="utf-8"))
    codes = {code["code"]: code for code in interface["codes"]}
    faults = []
    interface["tasks"] = []
    for task in source["tasks"]:
        steps = [step if isinstance(step, dict) else {"code": step} for step in task["steps"]]
        unknown = [step["code"] for step in steps if step["code"] not in codes]
        if unknown:
            faults.append(f'task {task["en"]}: no such codes: {unknown}')
            continue
        for step, following in zip(steps, steps[1:] + [None]):
            code = codes[step["code"]]
            step.setdefault("record", source["examples"].get(str(code["code"]), "{0}") if code["record"] else None)
            step["flags"] = flags_of(code, codes[following["code"]] if following else None)
            step["result"] = -1 if code["code"] in source["always_fails"] else 0
        interface["tasks"].append({**task, "steps": steps})
    used = {step["code"] for task in interface["tasks"] for step in task["steps"]}
    faults += [f'{code["name"]}: belongs to no task' for number, code in codes.items() if number not in used]
    return faults


def example(step, code):
    """The lines of C that run a step."""
    lines = [f'{code["record"]} record = {step["record"]};'] if code["record"] else []
    argument = "&record" if code["record"] else "NULL"
    flags = " | ".join(step["flags"]) or "0"
    return lines + [f'quil_ioctrl({code["name"]}, {argument}, NULL, {flags});']
