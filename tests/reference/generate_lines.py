#!/usr/bin/env python3
"""Makes calculator lines from a seed: well-formed ones, damaged ones, and soups of tokens."""

import argparse
import random
import sys

NAMES = [
    "x", "y", "k", "t", "a", "b_1", "_", "_t2", "e5", "ex", "Pi", "PI", "g", "gc", "cc", "True",
    "false", "nobody", "sinus",
]
# Names that a variable file holds, with their records' values and type codes.
FILED = {
    "word": ('"abc"', 2),
    "digits": ('" 12.5 "', 2),
    "nothing": ("", 2),
    "blank": ('""', 2),
    "yes": ("#TRUE#", 2),
    "tiny": ("4.94065645841247E-324", 2),
    "fixed": ("2.5", 4),
    "kept": ("-3", 8),
    "both": ("1E+20", 12),
    "gc": ("7", 2),
    "x": ("#FALSE#", 2),
}
VARIABLES = ["x", "y", "k", "t", "a", "b_1"]
BINARY = [
    "+", "-", "*", "/", "\\", "^", "e", "mod", "==", "<", ">", "<>", "<=", ">=", "and", "or", "xor",
    "eqv", "imp",
]
BRACKETS = ["()", "()", "()", "[]", "{}"]
ONE_ARGUMENT = (
    "abs exp fix int log log10 ln rnd sgn sqr factorial degrees radians getdecimal sin cos tan sec csc ctn cot asin "
    "acos atan asec acsc actn acot atn sinh cosh tanh sech csch ctnh coth arcsinh arccosh arctanh arcsech arccsch "
    "arcctnh arccoth random randomint round"
).split()
TWO_ARGUMENTS = "logn ncr npr gcf gcd lcm decimalmod round random randomint".split()
ANNUITIES = {
    "nper": (3, 5),
    "pmt": (3, 5),
    "pv": (3, 5),
    "fv": (3, 5),
    "ipmt": (4, 6),
    "ppmt": (4, 6),
    "rate": (3, 6),
}
CALCULUS = "ss sigmasum der derivative nder nderivative di definiteintegral".split()
FUNCTIONS = ONE_ARGUMENT + TWO_ARGUMENTS + list(ANNUITIES) + CALCULUS + ["rgb", "sln", "syd"]
EDGES = (
    "0 1 -1 .5 2.5 -2.5 0.1 170 171 255 32767 32768 32767.5 -32768.5 65535 2147483647 2147483647.5 "
    "2147483648 -2147483648 -2147483648.5 -2147483649 4294967295 4294967296 9007199254740993 "
    "999999999999999 1000000000000000 99999999999999.95 123456789012345678 1e15 1e14 0.0001 0.00001 1e-5 "
    "9.99999999999999e-5 1e308 1.7976931348623157e308 1e309 1e-307 1e-308 5e-324 1e-324 2e-323 1e200 "
    "1e-200 pi pi/2 3*pi/2 2*pi pi/4 -pi/2 709.78 710 -745.2 18446744073709551615 18446744073709551616 "
    "9223372036854775808 -9223372036854775809 -32769 0.30000000000000004 1/3 2/3 0.000123456789012345678 "
    "360 90 45 450 -90 1e22 1e23 1e-23"
).split()
TOKENS = BINARY + [
    "!", "%", "=", "->", "=>", "++", "--", "not", "(", ")", "[", "]", "{", "}", ",", ";", ":", "&",
    "&H", "&HfF", "&O17", "&O18", "&q7", "&B101", "&b102", "&d1.5", "&D", "&x", "& ", "1", "2", "0",
    ".", "1.", ".5", "1..2", "3e2", "2e", "$", "#", "@", "\u00e9", "\u20ac", "\U0001f600", "\u00d7",
    "'", '"', "?", "\\", "_", "~", "|", "\t", " ", "  ", "\x0b", "\x07",
]
# What calculus operations evaluate; {v} is their variable.
BODIES = [
    "{v}", "{v}^2", "1/{v}", "sin({v})", "{v}*k", "sqr({v}-1)", "({v}=2)", "{v}++", "y={v}", "rnd(1)",
    "{v}<2", "ln({v})", "({v}]", "{v};1", ";{v}", "{v} 2", "++{v}", "pi={v}", "&HF*{v}", "tan({v})",
    "{v}!", "1e308*{v}", "x={v};x", "ss({v},{v},1,{v})", "der({v}^2,{v},{v})", "nobody",
    "{v}->nobody2", "({v},1)", "rnd({v})", "171!", "x->{v}", "{v}==1 and True", "True", "()", "{v}(",
    "di({v},y,0,{v},1)",
]
# Steps that fail or store, and what may stand right behind them.
STEPS = [
    "171!", "1/0", "1e308*10", "++pi", "pi--", "k++", "--k", "5->pi", "5->k", "k=6", "pi=3", "ln(0)",
    "sin(1,2)", "sin()", "ss(1/0,k,1,2)", "ss(1e999,k,1,2)", "der(1/k,k,0)", "&B2", "1..2", "nobody",
    "not 1e10", "(1]", "sin(1]", "-(1e999)", "5->7", "++7", "rnd(1)", "7!!", "ss(k,1,2,3)",
    "tan(pi/2)", "(", "2^5000", "nder(2,k=3,k,1)", "1 and 1e11", "5%",
]
TAILS = [
    "&z", "&", " 7", "->pi", "=4", "*1/0", "+nobody", "]", ",", "&B3", "!", ";&z", ";1", "; 1/0",
    " 2..3", "->9", "->k", ")",
]
SEPARATORS = ["; ", ";", ":", " : ", ";;", ":;"]


class LineGenerator:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.choice = self.random.choice
        self.filed = False  # whether lines name the variables of a file

    def chance(self, probability):
        return self.random.random() < probability

    def line(self):
        """One line as bytes, without a line end."""
        kind = self.random.random()
        if kind < 0.55:
            text = self.statements()
        elif kind < 0.70:
            text = self.edge_case()
        elif kind < 0.90:
            text = self.damaged(self.statements() if self.chance(0.7) else self.edge_case())
        elif kind < 0.97:
            text = self.soup()
        elif kind < 0.985:
            text = self.race()
        elif kind < 0.99:
            text = self.deep()
        else:
            return self.raw_bytes()
        return text.replace("\n", " ").encode("utf-8", "surrogateescape")

    # Well-formed lines

    def statements(self):
        text = self.statement()
        while self.chance(0.12):
            text += self.choice(SEPARATORS) + self.statement()
        return text

    def statement(self):
        kind = self.random.random()
        depth = self.random.randint(1, 4)
        if kind < 0.10:
            return self.choice(VARIABLES) + self.blank() + "=" + self.blank() + self.expression(depth)
        if kind < 0.16:
            return self.expression(depth) + self.choice(["->", "=>"]) + self.name()
        if kind < 0.22:
            return self.choice(["{0}++", "{0}--", "++{0}", "--{0}", "{0}++ + 1", "3*{0}--"]).format(self.name())
        return self.expression(depth)

    def blank(self):
        return self.choice(["", "", "", " ", "  ", "\t"])

    def name(self):
        name = self.choice(VARIABLES if self.chance(0.7) else NAMES + list(FILED) * self.filed)
        return name.upper() if self.chance(0.05) else name

    def literal(self):
        kind = self.random.random()
        if kind < 0.45:
            return str(self.random.randint(0, 12))
        if kind < 0.65:
            return "%.*f" % (self.random.randint(1, 4), self.random.uniform(0, 20))
        if kind < 0.72:
            return self.choice(["&H%x", "&h%X", "&O%o", "&q%o", "&D%d"]) % self.random.randint(0, 70000)
        if kind < 0.76:
            return "&B" + format(self.random.getrandbits(self.random.randint(1, 12)), "b")
        if kind < 0.84:
            exponent = self.choice(["e", "e-", "E", " e ", "e+", "e "])
            return "%d%s%d" % (self.random.randint(0, 99), exponent, self.random.randint(0, 20))
        if kind < 0.90:
            return repr(self.random.uniform(-1, 1) * 10 ** self.random.randint(-12, 18)).lstrip("-").replace("e+", "e")
        if kind < 0.95:
            return "(" + self.choice(EDGES) + ")"
        return self.choice(["1.", ".25", "007", "0.0", "00.10", "123456789.123456789", "100000"])

    def expression(self, depth):
        if depth <= 0 or self.chance(0.15):
            return self.literal() if self.chance(0.65) else self.name()
        kind = self.random.random()
        if kind < 0.45:
            operator = self.choice(BINARY if self.chance(0.6) else BINARY[:6])
            pad = " " if operator.isalpha() or self.chance(0.2) else ""
            return self.expression(depth - 1) + pad + operator + pad + self.expression(depth - 1)
        if kind < 0.55:
            return self.choice(["-", "+", "not ", "-"]) + self.expression(depth - 1)
        if kind < 0.65:
            opened, closed = self.choice(BRACKETS)
            return opened + self.blank() + self.expression(depth - 1) + self.blank() + closed
        if kind < 0.70:
            return self.expression(depth - 1) + self.choice(["!", "%"])
        if kind < 0.72:
            store = self.choice(["=", "++ + ", "-- - ", "==", "->y - "])
            return "(" + self.name() + store + self.expression(depth - 1) + ")"
        if kind < 0.77:
            return self.calculus(depth)
        return self.call(depth)

    def call(self, depth):
        kind = self.random.random()
        if kind < 0.60:
            name, count = self.choice(ONE_ARGUMENT), 1
        elif kind < 0.80:
            name, count = self.choice(TWO_ARGUMENTS), 2
        elif kind < 0.92:
            return self.annuity()
        else:
            name, count = self.choice([("rgb", 3), ("sln", 3), ("syd", 4)])
        if self.chance(0.05):
            count = max(0, count + self.choice([-1, 1, 1, 2]))
        return self.bracketed(name, [self.expression(depth - 1) for _ in range(count)])

    def bracketed(self, name, arguments):
        opened, closed = self.choice(BRACKETS)
        if self.chance(0.03):
            name = name.upper()
        return name + self.blank() + opened + (self.blank() + "," + self.blank()).join(arguments) + closed

    def annuity(self):
        """Mostly sensible amounts, so that the results are numbers."""
        name = self.choice(list(ANNUITIES))
        least, most = ANNUITIES[name]
        rate = lambda: "%.4f" % self.random.uniform(0.001, 0.2)
        periods = lambda: str(self.random.randint(1, 40))
        amount = lambda: "%d" % self.random.randint(1, 5000)
        first = {
            "nper": [rate, lambda: "-" + amount(), lambda: str(self.random.randint(1, 20))],
            "pmt": [rate, periods, amount], "pv": [rate, periods, amount], "fv": [rate, periods, amount],
            "ipmt": [rate, lambda: str(self.random.randint(0, 12)), lambda: "12", amount],
            "ppmt": [rate, lambda: str(self.random.randint(1, 13)), lambda: "12", amount],
            "rate": [lambda: "12", lambda: "-" + str(self.random.randint(100, 120)), lambda: "1000"],
        }[name]
        future = lambda: "0" if name == "rate" else amount()
        due = lambda: self.choice(["0", "1", "2", "-1", "True"])
        rest = [future, due, lambda: "0.1"]
        count = self.random.randint(least, most) + (self.choice([-1, 1]) if self.chance(0.03) else 0)
        makers = (first + rest + [amount])[:count]
        arguments = [make() for make in makers]
        if self.chance(0.05) and name != "rate" and arguments:
            arguments[0] = "0"
        return self.bracketed(name, arguments)

    def calculus(self, depth):
        name = self.choice(CALCULUS)
        variable = self.choice(VARIABLES) if self.chance(0.93) else self.choice(NAMES + ["1", "e", "pi", "sin"])
        body = self.expression(depth - 1) if self.chance(0.5) else self.choice(BODIES).format(v=variable)
        low = self.random.randint(-3, 3)
        if name in ("ss", "sigmasum"):
            arguments = [body, variable, str(low), str(low + self.random.randint(-1, 6))]
            arguments += self.choice([[], [], ["1"], ["2"], ["0.5"], ["-1"], ["0"]])
        elif name in ("der", "derivative"):
            arguments = [body, variable, self.literal()] + self.choice([[], [], ["0.001"], ["-0.1"], ["0"], ["1e-20"]])
        elif name in ("nder", "nderivative"):
            order = self.choice(["0", "1", "2", "3", "4", "2.5", "-1", "7", "9"])
            arguments = [order, body, variable, str(low)] + self.choice([[], [], ["0.1"], ["1"], ["0"]])
        else:
            width = self.choice(["0.25", "0.1", "0.5", "-0.5", "0"])
            arguments = [body, variable, str(low), str(low + self.random.randint(-1, 2)), width]
        if self.chance(0.04):
            self.random.shuffle(arguments)
        if self.chance(0.04):
            arguments.pop()
        if self.chance(0.02):
            arguments += ["1"] * self.random.randint(1, 2)
        return self.bracketed(name, arguments)

    # Edges of numbers and of functions

    def edge_case(self):
        edge = lambda: ("-" if self.chance(0.25) else "") + "(" + self.choice(EDGES) + ")"
        kind = self.random.random()
        if kind < 0.25:
            return self.choice(EDGES)
        if kind < 0.40:
            return edge() + " " + self.choice(BINARY) + " " + edge()
        if kind < 0.80:
            name = self.choice(ONE_ARGUMENT)
            return name + "(" + self.near_edge(edge) + ")"
        if kind < 0.90:
            return self.choice(TWO_ARGUMENTS) + "(" + edge() + "," + edge() + ")"
        if kind < 0.95:
            return self.choice(["-", "not ", "+", "++", "--"]) + edge() + self.choice(["!", "%", "", "^2"])
        digits = [self.choice("0011789f") for _ in range(self.random.randint(1, 70))]
        return self.choice(["&H", "&O", "&B", "&D", ""]) + "".join(digits)

    def near_edge(self, edge):
        if self.chance(0.5):
            return edge()
        if self.chance(0.5):
            special = self.choice([0, 1, -1, 1.5707963267948966, 3.14159265358979, 90, 180])
            return repr(special + self.choice([0, 1e-9, -1e-9, 1e-16]))
        return "%g" % (self.random.uniform(-2, 2) * 10 ** self.random.randint(-3, 3))

    # Lines that are mostly wrong

    def damaged(self, text):
        for _ in range(self.random.randint(1, 3)):
            if not text:
                return text
            at = self.random.randrange(len(text))
            end = min(len(text), at + self.random.randint(1, 3))
            kind = self.random.random()
            if kind < 0.25:
                text = text[:at] + text[end:]
            elif kind < 0.40:
                text = text[:end] + text[at:]
            elif kind < 0.55:
                text = text[:at]
            elif kind < 0.85:
                text = text[:at] + self.choice(TOKENS) + text[at if self.chance(0.5) else end :]
            else:
                other = self.random.randrange(len(text))
                letters = list(text)
                letters[at], letters[other] = letters[other], letters[at]
                text = "".join(letters)
        return text

    def soup(self):
        pieces = []
        for _ in range(self.random.randint(0, 12)):
            pieces.append(self.choice(TOKENS) if self.chance(0.7) else self.choice(FUNCTIONS + NAMES + EDGES))
        return self.choice(["", "", " "]).join(pieces)

    def race(self):
        """A step that fails or stores, with another failure right behind it: which one comes first?"""
        before = self.choice(["", "", "k+", "abs(", "-", "2*(", "x="])
        return before + self.choice(STEPS) + self.choice(TAILS) + self.choice(["", "", "&z"])

    def deep(self):
        """About the deepest nesting that is accepted."""
        depth = self.random.randint(1018, 1028)
        opened = self.choice(["(", "- ", "[", "sin(", "abs{", "not ", "1+(", "x=", "+ "])
        if self.chance(0.3):
            return "ss(" + "(" * (depth - 3) + "k" + ")" * (depth - 3) + ",k,1,2)"
        closed = {"(": ")", "[": "]", "sin(": ")", "abs{": "}", "1+(": ")"}.get(opened, "")
        depth //= 2 if opened == "1+(" else 1
        return opened * depth + self.choice(["1", "1+1", "x", "&z", "", "1/0"]) + closed * depth

    def raw_bytes(self):
        length = self.random.randint(0, 12)
        start = self.choice([0, 0, 0x80, 0xE0])
        line = bytes(self.random.randrange(start, 256) for _ in range(length))
        if self.chance(0.3):
            lead = self.choice([0xE0, 0xED, 0xF0, 0xF4, 0xC1, 0xE2])
            line = bytes([lead, self.random.randrange(0x80, 0xC0), 0x80, 0x80]) + line
        if self.chance(0.5):
            line = b"1+" + line
        return line.replace(b"\n", b" ")


def random_options(generator):
    """The options of one batch, as a list of command-line words."""
    chance, choice = generator.chance, generator.choice
    words = []
    if chance(0.6):
        words += ["--mode", choice(["decimal", "fixed", "fixed", "octal", "hexadecimal", "binary"])]
    if "fixed" in words and chance(0.9):
        usual = [0, 1, 2, 3, 5, 9, 14, 15, 16, 20, 127, -1, -2, -5, -100]
        words += ["--places", str(choice(usual + [generator.random.randint(-100, 127)]))]
    return words + [flag for flag in ("--degrees", "--numeric", "--graph", "--replay") if chance(0.3)]


def variable_file():
    """The text of a variable file with every kind of value and of access."""
    return "".join(f'"{name}",{value},{kind},""\r\n' for name, (value, kind) in FILED.items())


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--lines", type=int, default=1000)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    generator = LineGenerator(options.seed)
    for _ in range(options.lines):
        sys.stdout.buffer.write(generator.line() + b"\n")


if __name__ == "__main__":
    main()
