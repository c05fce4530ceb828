"""Arithmetic whose failures are standard error numbers, and the mark of inexact results."""

import math

from .failure import Failure
from .number_rules import finite, to_number, to_whole

# How far two correct programs may differ once a result has gone through ...
EXACT = 0  # ... nothing but correctly rounded operations: not at all
ELEMENTARY = 1  # ... an elementary function of the mathematics library: the last of 15 digits
FINANCIAL = 2  # ... an annuity formula, which may be arranged in several ways


class Inexactness:
    """The highest mark met so far in the line being evaluated."""

    def __init__(self):
        self.level = EXACT

    def mark(self, level):
        self.level = max(self.level, level)


class Arithmetic:
    """Operations on floats; each either gives a finite float or raises a Failure."""

    def __init__(self, inexactness):
        self.inexactness = inexactness

    @staticmethod
    def add(a, b):
        return finite(a + b)

    @staticmethod
    def subtract(a, b):
        return finite(a - b)

    @staticmethod
    def multiply(a, b):
        return finite(a * b)

    @staticmethod
    def divide(a, b):
        if b == 0:
            raise Failure(standard=11)
        return finite(a / b)

    @staticmethod
    def whole_divide(a, b):
        a, b = to_whole(a, 32), to_whole(b, 32)
        if b == 0:
            raise Failure(standard=11)
        quotient = abs(a) // abs(b) * (1 if (a < 0) == (b < 0) else -1)
        return float(to_whole(float(quotient), 32))

    @staticmethod
    def remainder(a, b):
        a, b = to_whole(a, 32), to_whole(b, 32)
        if b == 0:
            raise Failure(standard=11)
        return float(math.copysign(abs(a) % abs(b), a)) if abs(a) % abs(b) else 0.0

    def power(self, base, exponent):
        if base == 0 and exponent < 0:
            raise Failure(standard=11)
        if base < 0 and exponent != math.floor(exponent):
            raise Failure(standard=5)
        if not self._is_small_whole_power(base, exponent):
            self.inexactness.mark(ELEMENTARY)
        try:
            return finite(math.pow(base, exponent))
        except OverflowError:
            raise Failure(standard=6) from None

    @staticmethod
    def _is_small_whole_power(base, exponent):
        """Powers that every library computes exactly, since the result is a whole number of at most 53 bits."""
        if base != math.floor(base) or exponent != math.floor(exponent) or not 0 <= exponent <= 64:
            return False
        return abs(base) < 1 << 53 and abs(int(base)) ** int(exponent) < 1 << 53

    def square(self, x):
        return finite(x * x)

    def square_root(self, x):
        """Correctly rounded everywhere, so it leaves no mark."""
        if x < 0:
            raise Failure(standard=5)
        return math.sqrt(x)

    def natural_logarithm(self, x):
        if x <= 0:
            raise Failure(standard=5)
        return self.elementary(math.log, x)

    def exponential(self, x):
        try:
            return finite(self.elementary(math.exp, x))
        except OverflowError:
            raise Failure(standard=6) from None

    def elementary(self, function, x):
        self.inexactness.mark(ELEMENTARY)
        return function(x)


def compare(operator, a, b):
    a, b = to_number(a), to_number(b)
    return {"==": a == b, "<": a < b, ">": a > b, "<>": a != b, "<=": a <= b, ">=": a >= b}[operator]


def logical(operator, a, b):
    """Two booleans give a boolean; anything else works on the bits of 32-bit whole numbers."""
    both_boolean = isinstance(a, bool) and isinstance(b, bool)
    a, b = to_whole(a, 32), to_whole(b, 32)
    bits = {"and": a & b, "or": a | b, "xor": a ^ b, "eqv": ~(a ^ b), "imp": ~a | b}[operator]
    return bits != 0 if both_boolean else float(bits)


def logical_not(value):
    return not value if isinstance(value, bool) else float(~to_whole(value, 32))
