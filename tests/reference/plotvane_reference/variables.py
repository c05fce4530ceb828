"""The table of variables: values and type codes by lower-cased name."""

from collections import namedtuple

from .failure import Failure
from .number_rules import shortest_text, to_number

VARIABLE, CONSTANT_BIT, RESERVED_BIT, PREDEFINED = 2, 4, 8, 9


Record = namedtuple("Record", "name value kind description tolerance")


class Variables:
    def __init__(self):
        self.records = {}
        self.built_in = set()
        for name, value in (
            ("Pi", 3.14159265358979), ("g", 9.80655), ("gc", 6.67259 * 10.0**-11), ("cc", 8987551787.37),
            ("True", True), ("False", False),
        ):
            self.load(name, value, PREDEFINED, "")
        self.built_in = set(self.records)

    def load(self, name, value, kind, description):
        """Adds or overwrites without asking, as files and predefined constants do."""
        self.records[name.lower()] = Record(name, value, kind, description, 0.0)
        self.built_in.discard(name.lower())

    def get(self, name):
        """The value and the inexactness it was stored with, or None."""
        record = self.records.get(name)
        return (record.value, record.tolerance) if record else None

    def change(self, name, value, tolerance):
        """Stores a variable; False when the name is a constant or reserved. The first spelling stays."""
        old = self.records.get(name)
        if old and old.kind & (CONSTANT_BIT | RESERVED_BIT):
            return False
        self.records[name] = Record(old.name if old else name, value, VARIABLE, "", tolerance)
        return True

    def saved(self):
        """The lines of a variable file, the last key first, each with its inexactness: all but what was there before
        the file was read."""
        for key in sorted(self.records, reverse=True):
            record = self.records[key]
            if key not in self.built_in:
                fields = [quoted(record.name), field_text(record.value), str(record.kind), quoted(record.description)]
                yield ",".join(fields).encode("utf-8"), record.tolerance


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def field_text(value):
    if isinstance(value, bool):
        return "#TRUE#" if value else "#FALSE#"
    if isinstance(value, str):
        return quoted(value)
    return "" if value is None else shortest_text(value)


def read_records(data):
    """The records of a variable file: text, value, type code and description, comma-separated."""
    text = data.decode("utf-8-sig")
    at = 0
    while at < len(text):
        fields = []
        while True:
            field, at = _read_field(text, at)
            fields.append(field)
            if at >= len(text) or text[at] != ",":
                break
            at += 1
        while at < len(text) and text[at] in "\r\n":
            at += 1
        if len(fields) != 4:
            raise Failure(standard=62)
        yield fields[0], fields[1], int(fields[2]), fields[3]


def _read_field(text, at):
    if text[at : at + 1] == '"':
        value = ""
        while True:
            end = text.find('"', at + 1)
            if end < 0:
                raise Failure(standard=62)
            value += text[at + 1 : end]
            at = end + 1
            if text[at : at + 1] != '"':
                return value, at
            value += '"'
    start = at
    while at < len(text) and text[at] not in ",\r\n":
        at += 1
    word = text[start:at].strip()
    if word in ("#TRUE#", "#FALSE#"):
        return word == "#TRUE#", at
    return (to_number(word) if word else None), at
