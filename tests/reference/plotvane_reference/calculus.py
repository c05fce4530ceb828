"""Sums, integrals and derivatives: an expression evaluated again and again while one variable moves."""

from .failure import Failure
from .number_rules import to_number

MOST_WRITTEN_OUT_ORDER = 24
STORES = {"=", "->", "=>", "++", "--"}
RANDOM_NAMES = {"rnd", "random", "randomint"}
# The order from which the table of differences replaces the written recursion, whose results are the same.
TABLE_FROM_ORDER = 6


def undefined():
    return Failure.custom_error(11)


class Calculus:
    """The operations of one calling expression over one recorded expression and one variable."""

    def __init__(self, caller, tokens, name):
        self.caller = caller
        self.m = caller.shared.mathematics
        self.tokens = tokens
        self.name = name

    def sum(self, low, high, step=1.0):
        return self._loop(low, high, step, finish=lambda total: total)

    def integral(self, low, high, width=0.01):
        if width == 0:
            raise undefined()
        try:
            self.m.divide(self.m.subtract(high, low), width)
        except Failure:
            raise undefined() from None
        last = self.m.subtract(high, width)
        return self._loop(low, last, width, finish=lambda total: self.m.multiply(total, width))

    def derivative(self, x, h=0.01):
        if h == 0:
            raise undefined()
        private = self._private()
        before = self.caller.table.get(self.name)
        values = []
        for point in (lambda: self.m.add(x, h), lambda: x):
            self._set(point())
            values.append(self._value_or_failure(private))
        result = self.m.divide(self.m.subtract(values[0], values[1]), h)
        self._restore(before)
        return result

    def nth_derivative(self, order, x, h=0.01):
        if order < 1:
            raise undefined()
        if order >= TABLE_FROM_ORDER and not self._has_side_effects():
            return self._difference(order, 0, x, h, {})
        if order > MOST_WRITTEN_OUT_ORDER:
            raise Failure(standard=5)
        return self._written_out(order, x, h)

    def _written_out(self, order, x, h):
        if order == 1:
            return self.derivative(x, h)
        ahead = self._written_out(order - 1, self.m.add(x, h), h)
        here = self._written_out(order - 1, x, h)
        return self.m.divide(self.m.subtract(ahead, here), h)

    def _difference(self, order, steps, x, h, known):
        """The same recursion with its repeated parts remembered; x is already moved by so many steps."""
        if (order, steps) not in known:
            if order == 1:
                known[order, steps] = self.derivative(x, h)
            else:
                ahead = self._difference(order - 1, steps + 1, self.m.add(x, h), h, known)
                here = self._difference(order - 1, steps, x, h, known)
                known[order, steps] = self.m.divide(self.m.subtract(ahead, here), h)
        return known[order, steps]

    def _has_side_effects(self):
        """A calculus operation inside leaves its variable in the same state each time."""
        return any(
            kind in STORES or spelling in RANDOM_NAMES for kind, spelling, _ in self.tokens
        )

    def _loop(self, low, high, step, finish):
        """The counted loop by repeated addition; gives the finished total of its terms."""
        if step == 0:
            raise undefined()
        private = self._private()
        before = self.caller.table.get(self.name)
        counter, total = low, 0.0
        try:
            while self.m.compare("<=" if step > 0 else ">=", counter, high):
                self._set(counter)
                term = self._value_or_none(private)
                if term is not None:
                    total = self.m.add(total, term)
                if counter + step == counter:
                    raise undefined()
                counter = self.m.add(counter, step)
            return finish(total)
        finally:
            self._restore(before)

    def _private(self):
        return self.caller.private_expression()

    def _set(self, number):
        self.caller.store(self.name, number)

    def _restore(self, before):
        if before is not None:
            self.caller.table.change(self.name, before[0], before[1])

    def _evaluate(self, private):
        return to_number(private.replay(self.tokens))

    def _value_or_none(self, private):
        """A term of a sum; an undefined one is left out."""
        try:
            return self._evaluate(private)
        except Failure as failure:
            if not failure.is_tolerated_while_graphing():
                raise
            return None

    def _value_or_failure(self, private):
        """A value of a difference; an undefined one has left no record, so the caller reports its own error."""
        try:
            return self._evaluate(private)
        except Failure as failure:
            raise undefined() if failure.is_tolerated_while_graphing() else failure
