"""The mathematics library: what each built-in function computes on floats."""

import math

from .arithmetic import SINGLE_PRECISION, Arithmetic
from .failure import Failure
from .number_rules import to_single

P = 3.14159265358979
THREE_HALVES_P = 4.712388980384685
MOST_COMMON_FACTOR_ROUNDS = 10000


def sign(x):
    return float((x > 0) - (x < 0))


def undefined():
    return Failure.custom_error(11)


class Mathematics(Arithmetic):
    def __init__(self, inexactness, generator):
        super().__init__(inexactness)
        self.generator = generator

    # Combinatorics and remainders

    def factorial(self, n):
        product = 1.0
        for factor in range(self.whole(n, 16), 1, -1):
            product = self.multiply(product, float(factor))
        return product

    def combinations(self, n, r):
        rest = self.multiply(self.factorial(r), self.factorial(self.subtract(n, r)))
        return self.divide(self.factorial(n), rest)

    def permutations(self, n, r):
        return self.divide(self.factorial(n), self.factorial(self.subtract(n, r)))

    def common_factor(self, a, b):
        self.inexactness.depend_on_last_bit()
        for _ in range(MOST_COMMON_FACTOR_ROUNDS):
            quotient = self.divide(a, b)
            if quotient == math.floor(quotient):
                return b
            a, b = b, self.subtract(a, self.multiply(b, self.floor(quotient)))
        raise undefined()

    def common_multiple(self, a, b):
        return self.divide(self.multiply(a, b), self.common_factor(a, b))

    def decimal_mod(self, x, modulus):
        whole = self.truncate(self.divide(x, modulus))
        return self.subtract(x, self.multiply(modulus, whole))

    def fraction(self, x):
        return self.subtract(x, self.truncate(x))

    def round(self, x, places=0.0):
        unit = self.power(10.0, -places)
        return self.multiply(self.floor(self.add(self.divide(x, unit), 0.5)), unit)

    def scientific(self, x, exponent):
        return self.multiply(x, self.power(10.0, exponent))

    def colour(self, red, green, blue):
        low = self.add(float(self.whole(red, 16)), self.multiply(256.0, green))
        return self.add(low, self.multiply(65536.0, blue))

    # Angles

    def radians_over_turns(self, x):
        return self.decimal_mod(x, 2 * P)

    def degrees_over_turns(self, x):
        return self.decimal_mod(x, 360.0)

    def to_degrees(self, x):
        return self.radians_over_turns(x) * 57.29577951308238

    def to_radians(self, x):
        return self.degrees_over_turns(x) * 0.017453292519943278

    # Trigonometric functions and their inverses

    def sine(self, x):
        special = {P / 2: 1.0, P: 0.0, THREE_HALVES_P: -1.0}
        return self._special_or(special, x, math.sin)

    def cosine(self, x):
        special = {P: -1.0, P / 2: 0.0, THREE_HALVES_P: 0.0}
        return self._special_or(special, x, math.cos)

    def _special_or(self, special, x, function):
        for angle, value in special.items():
            self.inexactness.decide(x, angle)
            if x == angle:
                return value
        return self.elementary(function, x)

    def tangent(self, x):
        if x in (P / 2, THREE_HALVES_P):
            raise undefined()
        return self.elementary(math.tan, x)

    def secant(self, x):
        return self.divide(1.0, self.elementary(math.cos, x))

    def cosecant(self, x):
        return self.divide(1.0, self.elementary(math.sin, x))

    def cotangent(self, x):
        return self.divide(1.0, self.elementary(math.tan, x))

    def arc(self, x):
        return self.elementary(math.atan, x)

    def right_angle(self):
        return 2 * self.arc(1.0)

    def arc_sine(self, x):
        if x == 1:
            return P / 2
        return self.arc(self.divide(x, self.square_root(self.subtract(1.0, self.square(x)))))

    def arc_cosine(self, x):
        if x == 1:
            return 0.0
        angle = self.arc(self.divide(-x, self.square_root(self.subtract(1.0, self.square(x)))))
        return self.add(angle, self.right_angle())

    def arc_secant(self, x):
        angle = self.arc(self.divide(x, self.square_root(self.subtract(self.square(x), 1.0))))
        return self.add(angle, sign(x - 1) * self.right_angle())

    def arc_cosecant(self, x):
        angle = self.arc(self.divide(1.0, self.square_root(self.subtract(self.square(x), 1.0))))
        return self.add(angle, (sign(x) - 1) * self.right_angle())

    def arc_tangent(self, x):
        return P / 4 if x == 1 else self.arc(x)

    def arc_cotangent(self, x):
        return 0.75 * P if x == 1 else self.add(self.arc(x), self.right_angle())

    # Hyperbolic functions and their inverses

    def both_exponentials(self, x):
        return self.exponential(x), self.exponential(-x)

    def difference(self, x):
        up, down = self.both_exponentials(x)
        return self.subtract(up, down)

    def sum(self, x):
        up, down = self.both_exponentials(x)
        return self.add(up, down)

    def hyperbolic_sine(self, x):
        return self.difference(x) / 2

    def hyperbolic_cosine(self, x):
        return self.sum(x) / 2

    def hyperbolic_tangent(self, x):
        return self.divide(self.difference(x), self.sum(x))

    def hyperbolic_secant(self, x):
        return self.divide(2.0, self.sum(x))

    def hyperbolic_cosecant(self, x):
        return self.divide(2.0, self.difference(x))

    def hyperbolic_cotangent(self, x):
        return self.divide(self.sum(x), self.difference(x))

    def area_sine(self, x):
        return self.natural_logarithm(self.add(x, self.square_root(self.add(self.square(x), 1.0))))

    def area_cosine(self, x):
        return self.natural_logarithm(self.add(x, self.square_root(self.subtract(self.square(x), 1.0))))

    def area_tangent(self, x):
        return self.natural_logarithm(self.divide(self.add(1.0, x), self.subtract(1.0, x))) / 2

    def area_secant(self, x):
        root = self.square_root(self.subtract(1.0, self.square(x)))
        return self.natural_logarithm(self.divide(self.add(root, 1.0), x))

    def area_cosecant(self, x):
        root = self.square_root(self.add(self.square(x), 1.0))
        return self.natural_logarithm(self.divide(self.add(sign(x) * root, 1.0), x))

    def area_cotangent(self, x):
        return self.natural_logarithm(self.divide(self.add(x, 1.0), self.subtract(x, 1.0))) / 2

    # Logarithms

    def logarithm(self, x, base=10.0):
        return self.divide(self.natural_logarithm(x), self.natural_logarithm(base))

    # Random numbers

    def single(self, x):
        if self.inexactness.tolerance:
            self.inexactness.mark(SINGLE_PRECISION)
        return to_single(x)

    def random_seeded(self, seed):
        if seed < 0:
            self.inexactness.depend_on_last_bit()
        return self.generator.seeded(seed)

    def random_real(self, high):
        return self.single(self.multiply(self.generator.next(), high))

    def random_real_between(self, high, low):
        span = self.subtract(high, low)  # An overflow here draws no number.
        return self.single(self.add(low, self.multiply(self.generator.next(), span)))

    def random_whole(self, high):
        return self.floor(self.multiply(self.generator.next(), high))

    def random_whole_between(self, high, low):
        span = self.add(self.subtract(high, low), 1.0)
        return self.floor(self.add(low, self.multiply(self.generator.next(), span)))
