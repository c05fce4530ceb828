"""Arithmetic whose failures are standard error numbers, and the mark of inexact results."""

import math

from .failure import Failure, NotComparable
from .number_rules import finite, to_number, whole_number

# How far, relatively, two correct programs may differ once a result has gone through ...
ELEMENTARY = 1e-14  # ... an elementary function of the mathematics library: the last of 15 digits
SINGLE_PRECISION = 2e-7  # ... a rounding to a 32-bit float of such a result
FINANCIAL = 1e-9  # ... an annuity formula, which may be arranged in several ways
HOPELESS = 1e-2
# An elementary function may magnify an inexactness so many times and still differ in the last digit only.
HARMLESS_MAGNIFICATION = 3
# 10 raised to whole numbers up to this one is exact, and so is 1 divided by it but for its one rounding.
LARGEST_EXACT_POWER_OF_TEN = 22


class Inexactness:
    """The relative difference that the line being evaluated may show; 0 while everything was rounded correctly.

    One figure stands for all values of a line, so it is an upper bound. Where it leaves a result open, a
    comparison gives the line up.
    """

    def __init__(self, gives_up):
        self.tolerance = 0.0
        self.gives_up = gives_up

    def mark(self, tolerance):
        self.tolerance = max(self.tolerance, tolerance)

    def magnify(self, factor):
        self.tolerance *= max(1.0, factor)
        if self.tolerance > HOPELESS:
            self.give_up()

    def cancel(self, result, size):
        """A sum whose operands were as large as `size`."""
        if self.tolerance and result != size:
            self.magnify(size / abs(result) / HARMLESS_MAGNIFICATION if result else math.inf)

    def decide(self, x, edge):
        """A choice that turns at `edge`."""
        if self.tolerance and abs(x - edge) <= self.tolerance * max(abs(x), abs(edge)):
            self.give_up()

    def depend_on_last_bit(self):
        if self.tolerance:
            self.give_up()

    def give_up(self):
        if self.gives_up:
            raise NotComparable()


class Arithmetic:
    """Operations on floats; each either gives a finite float or raises a Failure."""

    def __init__(self, inexactness):
        self.inexactness = inexactness

    def add(self, a, b):
        result = finite(a + b)
        self.inexactness.cancel(result, max(abs(a), abs(b)))
        return result

    def subtract(self, a, b):
        return self.add(a, -b)

    def floor(self, x):
        self.inexactness.decide(x, round(x))
        return float(math.floor(x))

    def truncate(self, x):
        self.inexactness.decide(x, round(x))
        return float(math.trunc(x))

    def whole(self, value, bits):
        number = to_number(value)
        self.inexactness.decide(number, math.floor(number) + 0.5)
        return whole_number(number, bits)

    @staticmethod
    def multiply(a, b):
        return finite(a * b)

    @staticmethod
    def divide(a, b):
        if b == 0:
            raise Failure(standard=11)
        return finite(a / b)

    def whole_divide(self, a, b):
        a, b = self.whole(a, 32), self.whole(b, 32)
        if b == 0:
            raise Failure(standard=11)
        quotient = abs(a) // abs(b) * (1 if (a < 0) == (b < 0) else -1)
        return float(whole_number(float(quotient), 32))

    def remainder(self, a, b):
        a, b = self.whole(a, 32), self.whole(b, 32)
        if b == 0:
            raise Failure(standard=11)
        return float(math.copysign(abs(a) % abs(b), a)) if abs(a) % abs(b) else 0.0

    def power(self, base, exponent):
        if base == 0 and exponent < 0:
            raise Failure(standard=11)
        if base < 0 and exponent != math.floor(exponent):
            raise Failure(standard=5)
        if base == 10 and exponent == math.floor(exponent) and -LARGEST_EXACT_POWER_OF_TEN <= exponent < 0:
            return 1 / 10.0**-exponent
        if not self._is_small_whole_power(base, exponent):
            slope = abs(exponent) * max(1.0, abs(math.log(abs(base)))) if base else 0.0
            self.inexactness.magnify(slope / HARMLESS_MAGNIFICATION)
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
        result = function(x)
        if self.inexactness.tolerance and x:
            change = abs(function(x * (1 - 1e-9)) - result) / 1e-9
            self.inexactness.magnify(change / abs(result) / HARMLESS_MAGNIFICATION if result else 1.0)
        self.inexactness.mark(ELEMENTARY)
        return result

    def compare(self, operator, a, b):
        a, b = to_number(a), to_number(b)
        self.inexactness.decide(a, b)
        return {"==": a == b, "<": a < b, ">": a > b, "<>": a != b, "<=": a <= b, ">=": a >= b}[operator]

    def logical(self, operator, a, b):
        """Two booleans give a boolean; anything else works on the bits of 32-bit whole numbers."""
        both_boolean = isinstance(a, bool) and isinstance(b, bool)
        a, b = self.whole(a, 32), self.whole(b, 32)
        bits = {"and": a & b, "or": a | b, "xor": a ^ b, "eqv": ~(a ^ b), "imp": ~a | b}[operator]
        return bits != 0 if both_boolean else float(bits)

    def logical_not(self, value):
        return not value if isinstance(value, bool) else float(~self.whole(value, 32))
