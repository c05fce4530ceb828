"""The one failure of an evaluation: a standard number, a custom number and the custom text."""

STANDARD_TEXTS = {
    5: "Invalid procedure call or argument",
    6: "Overflow",
    7: "Out of memory",
    9: "Subscript out of range",
    11: "Division by zero",
    13: "Type mismatch",
    28: "Out of stack space",
    91: "Object variable or With block variable not set",
    424: "Object required",
    438: "Object doesn't support this property or method",
}
OTHER_STANDARD_TEXT = "Application-defined or object-defined error"

# Custom texts; {s} stands for the spelling met, {p} for the opening bracket last taken from the stack.
CUSTOM_TEXTS = {
    1: "Syntax error '{s}'",
    2: "Expected a match to '{p}', and got '{s}'",
    3: "Undefined function.",
    4: "Missing Argument(s).",
    5: "Too many arguments.",
    6: "Invalid base digits '{s}'",
    7: "Invalid base specification '{s}'",
    8: "Result is not numeric. A numeric result is required.",
    9: "Cannot store to id. The specified id name may be reserved for a constant.",
    10: "Cannot store to variable; a variable is not specified.",
    11: "Undefined function value. Function is not defined at the specified value(s).",
    12: "Undefined function or identifier.",
    13: "Expecting a variable name and got the unexpected input: '{s}'",
    14: "Syntax error. Expecting opening parenthesis but got: '{s}'",
    15: "Syntax error. Expecting closing parenthesis but got: '{s}'",
}


class Failure(Exception):
    """Ends one evaluation. The first one raised is the one reported, because raising it stops everything."""

    def __init__(self, standard=0, custom=0, custom_text=""):
        super().__init__(standard, custom)
        self.standard = standard
        self.custom = custom
        self.custom_text = custom_text

    @staticmethod
    def custom_error(number, spelling="", popped=""):
        text = CUSTOM_TEXTS[number].replace("{p}", popped).replace("{s}", spelling)
        return Failure(custom=number, custom_text=text)

    def standard_text(self):
        return STANDARD_TEXTS.get(self.standard, OTHER_STANDARD_TEXT) if self.standard else ""

    def is_tolerated_while_graphing(self):
        """Division by zero, a bad argument, a refused store and "no number at all" are only undefined points."""
        return self.standard in (5, 11) or self.custom == 9 or (self.standard, self.custom) == (0, 0)


class NotComparable(Exception):
    """A line about which two correct programs may disagree, or that takes too long; the comparison leaves it out."""
