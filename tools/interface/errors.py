"""Reads the table of the printer's error numbers and their texts from the driver's source."""

import re

ENTRY = re.compile(r'\{(\d+), "((?:[^"\\]|\\.)*)"_cp1250\}')


def read_errors(source):
    """The error numbers with their texts, in the order of the table."""
    return [{"number": int(number), "text": text.replace("\\n", "\n")}
            for number, text in ENTRY.findall(source.read_text(encoding="utf-8"))]
