"""Takes the doc comments of the public headers apart."""

import re
from dataclasses import dataclass, field

READING = re.compile(r"Virtual printer(?:, (\w+))?: (.*)")
CODE = re.compile(r"Direction: (send|read|local)\. Record: (\w+)\.")


@dataclass
class Comment:
    """What a doc comment says. The readings are those of the thing itself ("") or of fields, by their names."""

    text: str = ""
    readings: dict = field(default_factory=dict)
    direction: str = ""
    record: str = ""
    parameters: dict = field(default_factory=dict)
    result: str = ""


def lines_of(raw):
    """The lines between /** and */, without the stars before them."""
    inner = raw.strip().removeprefix("/**").removeprefix("<").removesuffix("*/")
    return [re.sub(r"^\s*\*? ?", "", line).strip() for line in inner.splitlines()]


def items_of(lines):
    """Paragraphs, tags and readings, each as one line."""
    items = [""]
    for line in lines:
        if not line or line.startswith("@") or READING.match(line) or line.startswith("Direction:"):
            items.append(line)
        else:
            items[-1] = f"{items[-1]} {line}".strip()
    return [item for item in items if item]


def take_apart(raw):
    comment = Comment()
    texts = []
    for item in items_of(lines_of(raw or "")):
        reading = READING.fullmatch(item)
        code = CODE.fullmatch(item)
        tag, _, rest = item.partition(" ")
        if reading:
            comment.readings[reading[1] or ""] = reading[2]
        elif code:
            comment.direction, comment.record = code.groups()
        elif tag == "@param":
            name, text = rest.split(maxsplit=1)
            comment.parameters[name] = text
        elif tag == "@return":
            comment.result = rest.strip()
        else:
            texts.append(item)
    comment.text = "\n".join(texts)
    return comment
