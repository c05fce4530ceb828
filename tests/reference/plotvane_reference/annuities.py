"""The financial functions: v q + p (1 + r d)(q - 1)/r + f = 0 with q = (1 + r)^n, solved for each letter."""

from .arithmetic import FINANCIAL
from .failure import Failure, NotComparable

MOST_ROUNDS = 200


class Annuities:
    def __init__(self, mathematics):
        self.m = mathematics

    def _growth(self, rate, periods):
        """q; where it is too large, another arrangement may still give a result."""
        self.m.inexactness.mark(FINANCIAL)
        try:
            return self.m.power(self.m.add(1.0, rate), periods)
        except Failure:
            self.m.inexactness.give_up()
            raise

    def _payment_factor(self, rate, growth, due):
        """(1 + r d)(q - 1)/r"""
        late = self.m.add(1.0, rate if due else 0.0)
        return self.m.divide(self.m.multiply(late, self.m.subtract(growth, 1.0)), rate)

    def future_value(self, rate, periods, payment, present=0.0, due=0.0):
        if rate == 0:
            return self.m.add(-present, -self.m.multiply(payment, periods))
        growth = self._growth(rate, periods)
        payments = self.m.multiply(payment, self._payment_factor(rate, growth, due))
        return -self.m.add(self.m.multiply(present, growth), payments)

    def present_value(self, rate, periods, payment, future=0.0, due=0.0):
        if rate == 0:
            return self.m.add(-future, -self.m.multiply(payment, periods))
        growth = self._growth(rate, periods)
        payments = self.m.multiply(payment, self._payment_factor(rate, growth, due))
        return -self.m.divide(self.m.add(future, payments), growth)

    def payment(self, rate, periods, present, future=0.0, due=0.0):
        if rate == 0:
            return -self.m.divide(self.m.add(future, present), periods)
        growth = self._growth(rate, periods)
        owed = self.m.add(future, self.m.multiply(present, growth))
        return -self.m.divide(owed, self._payment_factor(rate, growth, due))

    def periods(self, rate, payment, present, future=0.0, due=0.0):
        if rate == 0:
            return -self.m.divide(self.m.add(present, future), payment)
        self.m.inexactness.mark(FINANCIAL)
        late = self.m.multiply(payment, self.m.add(1.0, rate if due else 0.0))
        ratio = self.m.divide(
            self.m.subtract(late, self.m.multiply(future, rate)), self.m.add(late, self.m.multiply(present, rate))
        )
        return self.m.divide(self.m.natural_logarithm(ratio), self.m.natural_logarithm(self.m.add(1.0, rate)))

    def interest(self, rate, period, periods, present, future=0.0, due=0.0):
        self._require_period(period, periods)
        payment = self.payment(rate, periods, present, future, due)
        if due and period == 1:
            return 0.0
        if due:
            owed = self.m.subtract(self.future_value(rate, period - 2, payment, present, 1.0), payment)
        else:
            owed = self.future_value(rate, period - 1, payment, present, 0.0)
        return self.m.multiply(owed, rate)

    def principal(self, rate, period, periods, present, future=0.0, due=0.0):
        interest = self.interest(rate, period, periods, present, future, due)
        return self.m.subtract(self.payment(rate, periods, present, future, due), interest)

    def straight_line(self, cost, salvage, life):
        return self.m.divide(self.m.subtract(cost, salvage), life)

    def years_digits(self, cost, salvage, life, period):
        self._require_period(period, life)
        self.m.inexactness.mark(FINANCIAL)
        left = self.m.multiply(self.m.subtract(cost, salvage), life - period + 1)
        return self.m.divide(left, self.m.multiply(life, life + 1) / 2)

    def rate(self, periods, payment, present, future=0.0, due=0.0, guess=0.1):
        """Secant steps. A search that does not settle is nothing that two programs must agree about."""
        self.m.inexactness.mark(FINANCIAL)
        try:
            before, here = guess, guess + 0.001
            error_before = self._balance(before, periods, payment, present, future, due)
            for round_number in range(MOST_ROUNDS):
                error = self._balance(here, periods, payment, present, future, due)
                if error == error_before or abs(here - before) < 1e-15:
                    return self._plausible(here, round_number)
                before, here = here, here - error * (here - before) / (error - error_before)
                error_before = error
        except Failure:
            pass
        raise NotComparable()

    @staticmethod
    def _plausible(rate, rounds):
        """Without a round the balance does not depend on the rate at all."""
        if rounds == 0 or not -0.5 < rate < 2:
            raise NotComparable()
        return rate

    def _balance(self, rate, periods, payment, present, future, due):
        if rate == 0:
            return present + payment * periods + future
        growth = self._growth(rate, periods)
        return present * growth + payment * self._payment_factor(rate, growth, due) + future

    @staticmethod
    def _require_period(period, last):
        if not 1 <= period <= last:
            raise Failure(standard=5)
