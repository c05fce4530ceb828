"""Tokens: tuples of kind, spelling and radix. The end of the input has the empty kind.

A text holds one character for each byte of UTF-8, so that bytes that are no UTF-8 go through unchanged.
"""

import re

from .failure import Failure

DECIMAL, HEXADECIMAL, BINARY, OCTAL = 0, 1, 2, 3
OPERATOR_WORDS = {"e", "and", "eqv", "imp", "mod", "not", "or", "xor"}
PAIRS = {"<=", ">=", "<>", "==", "=>", "->", "--", "++"}
WHITE_SPACE = " \t\r\n"
DIGITS = "0123456789"
LETTERS = "abcdefghijklmnopqrstuvwxyz_"
# Radix letter: radix and the characters its literal may hold (whether they fit is decided at conversion).
RADIX_LETTERS = {
    "h": (HEXADECIMAL, "abcdef" + DIGITS),
    "o": (OCTAL, DIGITS),
    "q": (OCTAL, DIGITS),
    "b": (BINARY, DIGITS),
    "d": (DECIMAL, DIGITS + "."),
}
# One well-formed character of UTF-8, or a byte that belongs to none.
CHARACTER = re.compile(
    "[\xc2-\xdf][\x80-\xbf]"
    "|\xe0[\xa0-\xbf][\x80-\xbf]|[\xe1-\xec\xee\xef][\x80-\xbf]{2}|\xed[\x80-\x9f][\x80-\xbf]"
    "|\xf0[\x90-\xbf][\x80-\xbf]{2}|[\xf1-\xf3][\x80-\xbf]{3}|\xf4[\x80-\x8f][\x80-\xbf]{2}"
    "|.",
    re.DOTALL,
)
MOST_RECORDED_TOKENS = 32767


def lower(character):
    """Only the ASCII letters have a lower case here."""
    return character.lower() if "A" <= character <= "Z" else character


def require_room(tokens):
    if len(tokens) == MOST_RECORDED_TOKENS:
        raise Failure(standard=6)


class TextTokens:
    """Reads tokens from a text; records them when a list to record into is given."""

    def __init__(self, text, record=None):
        self.text = text
        self.at = 0
        self.after_number = False
        self.record = record

    def next(self):
        """The next token. A wrong radix letter is recorded like a decimal number."""
        failure = None
        try:
            token = self._read()
        except Failure as wrong_letter:
            failure = wrong_letter
            token = ("num", wrong_letter.spelling, DECIMAL)
        if self.record is not None:
            if not failure:
                require_room(self.record)
            self.record.append(token)
        if failure:
            raise failure
        return token

    def _peek(self, ahead=0):
        """The character at the reading position, in lower case; empty at the end."""
        return lower(self.text[self.at + ahead : self.at + ahead + 1])

    def _take_character(self):
        match = CHARACTER.match(self.text, self.at)
        self.at += len(match[0]) if match else 0
        return lower(match[0]) if match else ""

    def _take_while(self, allowed):
        start = self.at
        while self._peek() and self._peek() in allowed:
            self.at += 1
        return "".join(map(lower, self.text[start : self.at]))

    def _read(self):
        after_number, self.after_number = self.after_number, False
        start = self.at
        self._take_while(WHITE_SPACE)
        directly_after_number = after_number and self.at == start
        character = self._peek()
        if not character:
            return ("", "", DECIMAL)
        if character in DIGITS + ".":
            return self._number(DECIMAL, DIGITS + ".")
        if character in LETTERS:
            return self._word(directly_after_number)
        if character == "&":
            return self._based_number()
        character = self._take_character()
        if character + self._peek() in PAIRS:
            character += self._take_character()
        return (character, character, DECIMAL)

    def _number(self, radix, allowed):
        self.after_number = True
        return ("num", self._take_while(allowed), radix)

    def _word(self, directly_after_number):
        if directly_after_number and self._peek() == "e" and self._peek(1) and self._peek(1) in DIGITS:
            self.at += 1
            return ("e", "e", DECIMAL)
        word = self._take_while(LETTERS + DIGITS)
        return (word if word in OPERATOR_WORDS else "id", word, DECIMAL)

    def _based_number(self):
        self.at += 1
        letter = self._take_character()
        if letter in RADIX_LETTERS:
            return self._number(*RADIX_LETTERS[letter])
        failure = Failure.custom_error(7, "&" + letter)
        failure.spelling = "&" + letter
        raise failure


class ListTokens:
    """Replays a recorded list; past its end there is only the end of input."""

    def __init__(self, tokens):
        self.tokens = iter(tokens)

    def next(self):
        return next(self.tokens, ("", "", DECIMAL))


def literal_value(spelling, radix):
    """The number a literal stands for."""
    if radix == HEXADECIMAL:
        if not spelling or any(digit not in RADIX_LETTERS["h"][1] for digit in spelling):
            raise Failure.custom_error(6, spelling)
        return _in_range(lambda digits: float(int(digits, 16)), spelling)
    if radix in (OCTAL, BINARY):
        return _value_digit_by_digit(spelling, 8 if radix == OCTAL else 2)
    if spelling.count(".") > 1 or not spelling.strip(".") or any(digit not in DIGITS + "." for digit in spelling):
        raise Failure.custom_error(1, spelling)
    return _in_range(float, spelling)


def _value_digit_by_digit(spelling, base):
    """From the right end leftward, digit times a power of the base, in floating point."""
    if not spelling or any(not "0" <= digit < str(base) for digit in spelling):
        raise Failure.custom_error(6, spelling)
    total = 0.0
    for position, digit in enumerate(reversed(spelling)):
        if digit != "0":
            total = _in_range(lambda term: total + term, _in_range(lambda k: int(digit) * float(base**k), position))
    return total


def _in_range(convert, argument):
    try:
        number = convert(argument)
    except OverflowError:
        raise Failure(standard=6) from None
    if number in (float("inf"), float("-inf")):
        raise Failure(standard=6)
    return number
