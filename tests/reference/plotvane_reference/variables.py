"""The table of variables: values and type codes by lower-cased name."""

from .failure import Failure
from .number_rules import to_number

VARIABLE, CONSTANT_BIT, RESERVED_BIT, PREDEFINED = 2, 4, 8, 9


class Variables:
    def __init__(self):
        self.records = {}
        for name, value in (
            ("pi", 3.14159265358979), ("g", 9.80655), ("gc", 6.67259 * 10.0**-11), ("cc", 8987551787.37),
            ("true", True), ("false", False),
        ):  # fmt: skip
            self.load(name, value, PREDEFINED)

    def load(self, name, value, kind):
        """Adds or overwrites without asking, as files and predefined constants do."""
        self.records[name.lower()] = (value, kind, 0.0)

    def get(self, name):
        """The value and the inexactness it was stored with, or None."""
        record = self.records.get(name)
        return (record[0], record[2]) if record else None

    def change(self, name, value, inexactness):
        """Stores a variable; False when the name is a constant or reserved."""
        if self.records.get(name, (None, VARIABLE))[1] & (CONSTANT_BIT | RESERVED_BIT):
            return False
        self.records[name] = (value, VARIABLE, inexactness)
        return True


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
        yield fields[0], fields[1], int(fields[2])


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
