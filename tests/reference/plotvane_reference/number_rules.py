"""Values and their texts. A value is a float, a bool, a text, or None for the empty value."""

import math
import re
import struct
from decimal import ROUND_HALF_EVEN, ROUND_HALF_UP, Context, Decimal

from .failure import Failure

SIGNIFICANT_DIGITS = 15
WHOLE_NUMBER_TEXT = re.compile(r"[ \t]*[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?[ \t]*", re.ASCII)
# 15 digits are enough for any shown number; the exponent range must hold 64-bit floats and their roundings.
EXACT = Context(prec=1200, Emax=9999, Emin=-9999)


def finite(number):
    """An infinity never becomes a value. (No operation here can make a not-a-number of finite operands.)"""
    if math.isinf(number) or math.isnan(number):
        raise Failure(standard=6)
    return number


def is_numeric(value):
    return not isinstance(value, str) or bool(WHOLE_NUMBER_TEXT.fullmatch(value))


def to_number(value):
    if value is None:
        return 0.0
    if isinstance(value, bool):
        return -1.0 if value else 0.0
    if isinstance(value, str):
        if not is_numeric(value):
            raise Failure(standard=13)
        return finite(float(value))
    return value


def whole_number(number, bits):
    """Halves go to the even neighbour, as Python's own rounding does exactly."""
    whole = round(number)
    if not -(1 << (bits - 1)) <= whole < 1 << (bits - 1):
        raise Failure(standard=6)
    return whole


def to_single(number):
    """The nearest 32-bit float, widened again."""
    try:
        return struct.unpack("<f", struct.pack("<f", number))[0]
    except OverflowError:
        raise Failure(standard=6) from None


def single_bits(number):
    return struct.unpack("<I", struct.pack("<f", number))[0]


def significant(number, digits):
    """The exact decimal value of the float, rounded half-even to so many significant digits."""
    return Context(prec=digits, rounding=ROUND_HALF_EVEN, Emax=9999, Emin=-9999).create_decimal(Decimal(number))


def number_text(number, digits=SIGNIFICANT_DIGITS):
    return laid_out(significant(number, digits), digits)


def shortest_text(number):
    """The fewest digits that read back as the same number, laid out like any number."""
    return laid_out(Decimal(repr(number)), SIGNIFICANT_DIGITS)


def laid_out(rounded, digits):
    """Without trailing zeros; in exponent form below 1E-4 and from 10^digits on."""
    if rounded == 0:
        return "0"
    exponent = rounded.adjusted()
    sign = "-" if rounded < 0 else ""
    figures = "".join(map(str, rounded.as_tuple().digits)).rstrip("0")
    if exponent < -4 or exponent >= digits:
        fraction = "." + figures[1:] if len(figures) > 1 else ""
        return f"{sign}{figures[0]}{fraction}E{'-' if exponent < 0 else '+'}{abs(exponent):02d}"
    if exponent < 0:
        return sign + "0." + "0" * (-exponent - 1) + figures
    whole = figures[: exponent + 1].ljust(exponent + 1, "0")
    fraction = figures[exponent + 1 :]
    return sign + whole + ("." + fraction if fraction else "")


def text_of(value):
    if value is None:
        return ""
    if isinstance(value, bool):
        return "True" if value else "False"
    return value if isinstance(value, str) else number_text(value)


def patterned_text(number, places):
    """The patterns "0" (a whole number) and "." with one "#" per place, over at most 15 significant digits."""
    rounded = significant(number, SIGNIFICANT_DIGITS)
    if number == math.trunc(number):
        return format(rounded, "f").split(".")[0] if number else "0"
    rounded = rounded.quantize(Decimal(1).scaleb(-max(places, 0)), rounding=ROUND_HALF_UP, context=EXACT)
    whole, _, fraction = format(rounded.copy_abs(), "f").partition(".")
    fraction = fraction.rstrip("0")
    text = whole.lstrip("0") if fraction else whole
    return ("-" if number < 0 else "") + text + ("." + fraction if fraction else "")


def radix_text(whole, digit_code):
    """Hexadecimal ("X") or octal ("o") digits of the 32-bit two's complement."""
    return format(whole & 0xFFFFFFFF, digit_code)


def binary_text(whole):
    """No padding for values of 0 and above; a negative one in two's complement of 2, 4 or 8 bytes."""
    if whole >= 0:
        if whole >= 1 << 64:
            raise Failure(standard=6)
        return format(whole, "b")
    for bits in (16, 32, 64):
        if whole >= -(1 << (bits - 1)):
            return format(whole & ((1 << bits) - 1), "b")
    raise Failure(standard=6)
