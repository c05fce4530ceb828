"""The built-in functions: name, least and most arguments, angle rule, operation."""

from .annuities import Annuities
from .mathematics import sign
from .number_rules import to_number

PLAIN, ANGLE_IN, ANGLE_OUT = range(3)
CALCULUS = {
    "definiteintegral": "integral", "di": "integral",
    "derivative": "derivative", "der": "derivative",
    "nderivative": "nth derivative", "nder": "nth derivative",
    "sigmasum": "sum", "ss": "sum",
}  # fmt: skip


def catalogue(m):
    """Everything but the calculus names, over one mathematics library."""
    a = Annuities(m)
    one = {
        "abs": abs, "exp": m.exponential, "fix": m.truncate, "int": m.floor,
        "log": m.logarithm, "log10": m.logarithm, "ln": m.natural_logarithm, "rnd": m.random_seeded,
        "sgn": sign, "sqr": m.square_root, "factorial": m.factorial,
        "degrees": m.to_degrees, "radians": m.to_radians, "getdecimal": m.fraction,
        "sinh": m.hyperbolic_sine, "cosh": m.hyperbolic_cosine, "tanh": m.hyperbolic_tangent,
        "sech": m.hyperbolic_secant, "csch": m.hyperbolic_cosecant,
        "ctnh": m.hyperbolic_cotangent, "coth": m.hyperbolic_cotangent,
        "arcsinh": m.area_sine, "arccosh": m.area_cosine, "arctanh": m.area_tangent,
        "arcsech": m.area_secant, "arccsch": m.area_cosecant,
        "arcctnh": m.area_cotangent, "arccoth": m.area_cotangent,
    }  # fmt: skip
    angle_in = {
        "sin": m.sine, "cos": m.cosine, "tan": m.tangent,
        "sec": m.secant, "csc": m.cosecant, "ctn": m.cotangent, "cot": m.cotangent,
    }  # fmt: skip
    angle_out = {
        "asin": m.arc_sine, "acos": m.arc_cosine, "atan": m.arc_tangent, "atn": m.arc_tangent,
        "asec": m.arc_secant, "acsc": m.arc_cosecant, "actn": m.arc_cotangent, "acot": m.arc_cotangent,
    }  # fmt: skip
    table = {name: (1, 1, PLAIN, operation) for name, operation in one.items()}
    table.update({name: (1, 1, ANGLE_IN, operation) for name, operation in angle_in.items()})
    table.update({name: (1, 1, ANGLE_OUT, operation) for name, operation in angle_out.items()})
    table.update({
        "random": (1, 2, PLAIN, lambda *x: m.random_real(*x) if len(x) == 1 else m.random_real_between(*x)),
        "randomint": (1, 2, PLAIN, lambda *x: m.random_whole(*x) if len(x) == 1 else m.random_whole_between(*x)),
        "round": (1, 2, PLAIN, m.round),
        "logn": (2, 2, PLAIN, m.logarithm),
        "ncr": (2, 2, PLAIN, m.combinations),
        "npr": (2, 2, PLAIN, m.permutations),
        "gcf": (2, 2, PLAIN, m.common_factor),
        "gcd": (2, 2, PLAIN, m.common_factor),
        "lcm": (2, 2, PLAIN, m.common_multiple),
        "decimalmod": (2, 2, PLAIN, m.decimal_mod),
        "rgb": (3, 3, PLAIN, m.colour),
        "sln": (3, 3, PLAIN, a.straight_line),
        "syd": (4, 4, PLAIN, a.years_digits),
        "nper": (3, 5, PLAIN, a.periods),
        "pmt": (3, 5, PLAIN, a.payment),
        "pv": (3, 5, PLAIN, a.present_value),
        "fv": (3, 5, PLAIN, a.future_value),
        "rate": (3, 6, PLAIN, a.rate),
        "ipmt": (4, 6, PLAIN, a.interest),
        "ppmt": (4, 6, PLAIN, a.principal),
    })  # fmt: skip
    return table


def call(mathematics, entry, arguments, degrees):
    """Applies one catalogue entry to values whose count has been checked."""
    _, _, angle, operation = entry
    numbers = [to_number(argument) for argument in arguments]
    if angle == ANGLE_IN:
        numbers[0] = (mathematics.to_radians if degrees else mathematics.radians_over_turns)(numbers[0])
    result = operation(*numbers)
    if angle == ANGLE_OUT:
        result = (mathematics.to_degrees if degrees else mathematics.degrees_over_turns)(result)
    return result
