#!/usr/bin/python3
"""Tests the desk against its JSON Schemas: what the one refuses, the other does.

    schema_test.py CLIENT [LAUNCHER]      CLIENT is desk_client
"""

import copy
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

import jsonschema

from desk_process import no_printer

COMMAND = sys.argv[2:] + [sys.argv[1]]
SCHEMAS = pathlib.Path(__file__).resolve().parents[2] / "desk/schema"
LINE = {"name": "Chleb", "second_name": "żytni", "quantity": "2", "unit": "szt", "price": "6.49", "rate": "C",
        "value": "12.98", "discount": {"percent": "10", "name": "stały klient"}}
SALE = {
    "header": ["Sklep"], "lines": [LINE], "surcharge": {"amount": "1"}, "total": "12.68",
    "payments": [{"form": "card", "amount": "10"}, {"form": "cash", "amount": "5.00"}], "change": "2.32",
    "footer": ["Zapraszamy"], "cash_desk": "3", "cashier": "Anna",
}
DOCUMENTS = [
    {"kind": "receipt", "id": "1", **SALE, "buyer": {"nip": "999-000-00-08"}},
    {"kind": "invoice", "id": "1", **SALE, "number": "17/2024",
     "buyer": {"nip": "9990000008", "name": "Zofia Łącka", "address": ["ul. Źródlana 5"]}},
    {"kind": "cancelled_receipt", "id": "1", "lines": [LINE], "discount": {"amount": "1"}, "total": "10.68"},
    {"kind": "slip", "id": "1", "texts": ["Hej"]},
    {"kind": "daily_report", "id": "1", "date": "2024-01-31", "cash_desk": "3", "cashier": "Anna"},
    {"kind": "cash_in", "id": "1", "amount": "50", "cash_desk": "3", "cashier": "Anna"},
    {"kind": "cash_out", "id": "1", "amount": "50", "cash_desk": "3", "cashier": "Anna"},
]
# What stands in place of a value; the texts are good ones for no field but free text.
OTHERS = [None, True, 7, -1.5, "", [], {}, ["?"], {"a": 1}, "x" * 300, "1,5", "-1", "01"]

BEYOND_THE_SCHEMA = (
    "it comes to|above 0|less than is due|no NIP|is blank|day, as|change is given|is more than|named where")


def places(value, path=()):
    """The path of everything in a document."""
    yield path
    if isinstance(value, dict):
        for name in value:
            yield from places(value[name], path + (name,))
    elif isinstance(value, list):
        for index, entry in enumerate(value):
            yield from places(entry, path + (index,))


def changed(document, path, change):
    """A copy in which what holds the last step of the path was changed."""
    other = copy.deepcopy(document)
    holder = other
    for step in path[:-1]:
        holder = holder[step]
    change(holder, path[-1])
    return other


def variations():
    for document in DOCUMENTS:
        yield document
        for path in places(document):
            if path:
                yield changed(document, path, lambda holder, step: holder.pop(step))
                for other in OTHERS:
                    yield changed(document, path, lambda holder, step, value=other: holder.__setitem__(step, value))
            yield changed(document, path + ("colour",), lambda holder, step: isinstance(holder, dict) and
                          holder.__setitem__(step, "red"))


def verdicts_on(documents):
    """What the desk says to each when there is no printer."""
    settings = {"printer": no_printer(), "journal": "journal", "limits": {"reply_ms": 1, "closing_ms": 1}}
    orders = "".join("print " + json.dumps(document) + "\n" for document in documents)
    with tempfile.TemporaryDirectory() as folder:
        done = subprocess.run([*COMMAND, json.dumps(settings)], input=orders.encode(), cwd=folder, check=True,
                              stdout=subprocess.PIPE)
    return [json.loads(line) for line in done.stdout.decode().splitlines()[1:]]


class SchemaTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.schemas = {}
        for path in SCHEMAS.glob("*.schema.json"):
            schema = json.loads(path.read_text(encoding="utf-8"))
            jsonschema.Draft202012Validator.check_schema(schema)
            cls.schemas[path.name.split(".")[0]] = jsonschema.Draft202012Validator(schema)
        cls.documents = list(variations())
        cls.verdicts = verdicts_on(cls.documents)

    def test_good_documents_are_good_for_both(self):
        for document, verdict in zip(self.documents, self.verdicts):
            if document in DOCUMENTS:
                with self.subTest(document=document):
                    self.assertTrue(self.schemas["document"].is_valid(document))
                    self.assertEqual(verdict["reason"]["what"], "no_connection")

    def test_what_the_schema_refuses_the_desk_refuses(self):
        count = 0
        for document, verdict in zip(self.documents, self.verdicts):
            if not self.schemas["document"].is_valid(document):
                count += 1
                with self.subTest(document=document):
                    self.assertEqual(verdict["reason"]["what"], "invalid")
        self.assertGreater(count, 1000)

    def test_the_desk_refuses_beyond_the_schema_only_what_numbers_and_letters_tell(self):
        for document, verdict in zip(self.documents, self.verdicts):
            if self.schemas["document"].is_valid(document) and verdict["reason"]["what"] == "invalid":
                with self.subTest(document=document, reason=verdict["reason"]):
                    self.assertRegex(verdict["reason"]["text"], BEYOND_THE_SCHEMA)

    def test_verdicts_are_as_their_schema_says(self):
        for verdict in self.verdicts:
            with self.subTest(verdict=verdict):
                self.assertEqual(list(self.schemas["verdict"].iter_errors(verdict)), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
