"""The 24-bit linear generator that all expression objects of a process share."""

from .number_rules import single_bits, to_single

MODULUS = 1 << 24


class RandomGenerator:
    def __init__(self):
        self.state = 0x50000

    def value(self):
        return self.state / MODULUS

    def next(self):
        self.state = (self.state * 0x43FD43FD + 0xC39EC3) % MODULUS
        return self.value()

    def seeded(self, seed):
        """Zero: the last value again. Negative: restart from the bits of the seed. Positive: the next value."""
        seed = to_single(seed)
        if seed == 0:
            return self.value()
        if seed < 0:
            bits = single_bits(seed)
            self.state = (bits + (bits >> 24)) % MODULUS
        return self.next()
