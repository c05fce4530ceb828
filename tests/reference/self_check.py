#!/usr/bin/env python3
"""Checks the reference itself, with cases worked out by hand from the calculator's rules."""

import sys

from calc_reference import Session, option_parser, run_with_deep_stack

DIVIDED = "err|11|0|Division by zero|"
OVERFLOW = "err|6|0|Overflow|"
BAD_ARGUMENT = "err|5|0|Invalid procedure call or argument|"
TOO_DEEP = "err|28|0|Out of stack space|"
UNDEFINED_VALUE = "err|0|11||Undefined function value. Function is not defined at the specified value(s)."
UNKNOWN = "err|0|12||Undefined function or identifier."
REFUSED = "err|0|9||Cannot store to id. The specified id name may be reserved for a constant."
MISSING = "err|0|4||Missing Argument(s)."
TOO_MANY = "err|0|5||Too many arguments."
TOLERATED = "err|0|0||"


def syntax(spelling):
    return f"err|0|1||Syntax error '{spelling}'"


# Options, then lines in one table of variables, each with its report ("ok|" is left out, "|" stands for a tab).
CASES = [
    (
        "",
        [
            # Tokens
            (" \t\r3 ", "3"),
            ("1x", syntax("x")),
            ("PI-pi", "0"),
            ("2e3", "2000"),
            ("2E3", "2000"),
            ("2e3x", syntax("x")),
            ("2 e3", syntax("e3")),
            ("2 e 3", "2000"),
            ("2e 3", "2000"),
            ("1.5e-3", "0.0015"),
            ("e5", UNKNOWN),
            ("e", syntax("e")),
            ("2ex", syntax("ex")),
            ("&O17e2", "1500"),
            ("&H1e3", "483"),
            ("&HfF", "255"),
            ("&q17", "15"),
            ("&B101", "5"),
            ("&HFFFFFFFF", "4294967295"),
            ("&D1.5", "1.5"),
            ("&B102", "err|0|6||Invalid base digits '102'"),
            ("&O8", "err|0|6||Invalid base digits '8'"),
            ("&H", "err|0|6||Invalid base digits ''"),
            ("&D", syntax("")),
            ("&Z1", "err|0|7||Invalid base specification '&z'"),
            ("1+&", "err|0|7||Invalid base specification '&'"),
            ("&\t", "err|0|7||Invalid base specification '&\\t'"),
            ("1..2", syntax("1..2")),
            (".", syntax(".")),
            ("a=<5", syntax("<")),
            ("9" * 309, OVERFLOW),
            ("\u00e9", syntax("\u00e9")),
            ("1\u20ac", syntax("\u20ac")),
            ("", syntax("")),
            # Precedence
            ("2^3^2", "64"),
            ("-2^2", "-4"),
            ("2^-2^2", "0.0625"),
            ("2e-3^2", "2E-09"),
            ("50%", "0.5"),
            ("2^3%", "0.08"),
            ("7\\2*2", "1"),
            ("7 mod 3*2", "1"),
            ("1<2==True", "True"),
            ("not 1 < 2 and 3 < 2", "False"),
            ("1+not 5", "-5"),
            ("2--3", syntax("--")),
            ("1*--2", syntax("2")),
            ("3!!", "720"),
            ("1<2<3", "True"),
            ("12 or 3", "15"),
            ("-7 \\ 2", "-3"),
            ("-7 mod 3", "-1"),
            ("2.5 \\ 1", "2"),
            ("3.5 \\ 1", "4"),
            ("5 imp 3", "-5"),
            ("5 eqv 3", "-7"),
            # Statements and stores
            ("1+2;3*4", "3 : 12"),
            ("1;;2", "1 : 2"),
            ("1;", syntax("")),
            (";1", syntax(";")),
            ("x=5", "5"),
            ("5->x", "5"),
            ("1->a->b", "1"),
            ("b=>c", "1"),
            ("2*x=3+4", "14"),
            ("x", "7"),
            ("x=7.5 8", syntax("8")),
            ("x", "7.5"),
            ("n++", "0"),
            ("n", "1"),
            ("++n", "2"),
            ("--m", "-1"),
            ("n-->1", "True"),
            ("n", "1"),
            ("pi=3", REFUSED),
            ("++g", REFUSED),
            ("5->3", "err|0|10||Cannot store to variable; a variable is not specified."),
            ("sin=5", "5"),
            ("sin", "err|0|14||Syntax error. Expecting opening parenthesis but got: ''"),
            ("w=1<2", "True"),
            ("w+1", "0"),
            # Brackets and calls
            ("(1+2]", "err|0|2||Expected a match to '(', and got ']'"),
            ("3 4", syntax("4")),
            ("[{(1)}]", "1"),
            ("1)", syntax(")")),
            ("abs[-3]", "3"),
            ("abs(1]", "err|0|2||Expected a match to '(', and got ']'"),
            ("abs()", MISSING),
            ("abs(1,2)", TOO_MANY),
            ("abs(1 2)", "err|0|15||Syntax error. Expecting closing parenthesis but got: '2'"),
            ("abs(,1)", syntax(",")),
            ("abs(1", "err|0|15||Syntax error. Expecting closing parenthesis but got: ''"),
            ("abs(", syntax("")),
            ("foo(1)", UNKNOWN),
            ("x(1)", syntax("(")),
            ("1/0", DIVIDED),
            ("1/0*&z", DIVIDED),
            ("1/0&z", "err|0|7||Invalid base specification '&z'"),
            # Functions
            ("factorial(5)", "120"),
            ("factorial(2.5)", "2"),
            ("170!/169!", "170"),
            ("171!", OVERFLOW),
            ("40000!", OVERFLOW),
            ("ncr(5,2)", "10"),
            ("npr(5,2)", "20"),
            ("gcf(12,18)", "6"),
            ("gcd(0,0)", DIVIDED),
            ("lcm(4,6)", "12"),
            ("decimalmod(370,360)", "10"),
            ("decimalmod(-370,360)", "-10"),
            ("round(2.567,2)", "2.57"),
            ("round(-2.5)", "-2"),
            ("sin(pi)", "0"),
            ("cos(pi/2)", "0"),
            ("tan(pi/2)", UNDEFINED_VALUE),
            ("log(100)", "2"),
            ("ln(0)", BAD_ARGUMENT),
            ("sqr(-1)", BAD_ARGUMENT),
            ("0^-1", DIVIDED),
            ("(-8)^(1/3)", BAD_ARGUMENT),
            ("1e308*10", OVERFLOW),
            ("0/0", DIVIDED),
            ("rgb(0,0,255)", "16711680"),
            ("asin(2)", BAD_ARGUMENT),
            ("asin(-1)", DIVIDED),
            ("2147483648\\1", OVERFLOW),
            ("-2147483648\\-1", OVERFLOW),
            ("-2147483648 mod -1", "0"),
            ("sln(10,4,0)", DIVIDED),
            ("pmt(0,12,1200)", "-100"),
            ("fv(0.1,2,-100)", "210"),
            ("pv(0.1,1,0,-110)", "100"),
            ("syd(100,10,2,3)", BAD_ARGUMENT),
            ("ppmt(0,1,12,1200)", "-100"),
            # Random numbers
            ("rnd(1)", "0.705547511577606"),
            ("rnd(0)", "0.705547511577606"),
            ("rnd(5)", "0.533424019813538"),
            ("rnd(1)", "0.579518616199493"),
            ("rnd(-1)-rnd(-1)", "0"),
            ("randomint(6,1) <= 6", "True"),
            ("rnd()", MISSING),
            # Calculus
            ("ss(k,k,1,10)", "55"),
            ("k", "10"),
            ("ss(1/k,k,-1,1)", "0"),
            ("k", "10"),
            ("ss(k,k,1,0)", "0"),
            ("ss(k,k,1,9,0)", UNDEFINED_VALUE),
            ("der(x^2,x,3)", "6.00999999999985"),
            ("x", "7.5"),
            ("der(1/u,u,0)", UNDEFINED_VALUE),
            ("u", "0"),
            ("nder(0,x^2,x,1)", UNDEFINED_VALUE),
            ("nder(1,x^2,x,3)==der(x^2,x,3)", "True"),
            ("nder(40000,x,x,1)", OVERFLOW),
            ("di(x,x,0,1,.25)", "0.375"),
            ("ss(k 2,k,1,3)", syntax("2")),
            ("ss((1],k,1,3)", "err|0|2||Expected a match to '(', and got ']'"),
            ("ss(1,2,3,4)", "err|0|13||Expecting a variable name and got the unexpected input: '2'"),
            ("ss(,k,1,3)", syntax(",")),
            ("ss(1,pi,1,3)", REFUSED),
            ("ss(1,pi,3,1)", "0"),
            ("ss(1;2,k,1,3)", "err|0|8||Result is not numeric. A numeric result is required."),
            ("ss(k<2,k,1,3)", "-1"),
            ("ss(1,k,1e20,2e20)", UNDEFINED_VALUE),
            ("ss(k,k,1)", MISSING),
            ("ss(k,k,1,2,1,1)", TOO_MANY),
            # Number texts
            ("1e14", "100000000000000"),
            ("1e15", "1E+15"),
            (".0001", "0.0001"),
            (".00001", "1E-05"),
            ("-0", "0"),
            ("2/3", "0.666666666666667"),
            # Nesting
            ("(" * 1023 + "1" + ")" * 1023, "1"),
            ("(" * 1024 + "1" + ")" * 1024, TOO_DEEP),
            ("(" * 1023 + "1+1" + ")" * 1023, TOO_DEEP),
            ("ss(" + "(" * 1022 + "k" + ")" * 1022 + ",k,1,2)", "3"),
            ("ss(" + "(" * 1023 + "k" + ")" * 1023 + ",k,1,2)", TOO_DEEP),
        ],
    ),
    (
        "--mode fixed --places 2",
        [
            ("3.14159", "3.14"),
            ("2", "2"),
            (".5", ".5"),
            ("-.25", "-.25"),
            ("1<2", "True"),
            ("2.5", "2.5"),
            ("1e20", "100000000000000000000"),
            ("1;.125", "1 : .13"),
        ],
    ),
    (
        "--mode fixed --places 127",
        [
            ("1/3", ".333333333333333"),
            ("1e200", OVERFLOW),
        ],
    ),
    (
        "--mode fixed --places -2",
        [
            ("1250", "1300"),
            ("-1250", "-1200"),
        ],
    ),
    (
        "--mode hexadecimal",
        [
            ("255", "&HFF"),
            ("-1", "&HFFFFFFFF"),
            ("2.5", "&H2"),
            ("2147483648", OVERFLOW),
            ("1<2", "&HFFFFFFFF"),
        ],
    ),
    (
        "--mode octal",
        [
            ("8", "&O10"),
            ("-1", "&O37777777777"),
        ],
    ),
    (
        "--mode binary",
        [
            ("5", "&B101"),
            ("-1", "&B" + "1" * 16),
            ("-32769", "&B" + "1" * 16 + "0" + "1" * 15),
            ("2^64", OVERFLOW),
            ("2^53", "&B1" + "0" * 53),
            ("1<1", "&B0"),
        ],
    ),
    (
        "--degrees",
        [
            ("sin(30)", "0.5"),
            ("atn(1)", "45"),
            ("asin(1)", "90"),
            ("sin(90)", "1"),
        ],
    ),
    (
        "--numeric",
        [
            ("1;2", "err|0|8||Result is not numeric. A numeric result is required."),
            ("1<2", "True"),
            ("5", "5"),
        ],
    ),
    (
        "--graph",
        [
            ("1/0", TOLERATED),
            ("sqr(-1)", TOLERATED),
            ("pi=3", TOLERATED),
            ("tan(pi/2)", UNDEFINED_VALUE),
            ("1e309", OVERFLOW),
        ],
    ),
    (
        "--replay",
        [
            ("&H10+1", "17"),
            ("x++", "1"),
            ("x", "2"),
            ("1/0*2+5", DIVIDED),
            ("ss(k,k,1,10)", "55"),
            ("2 2", syntax("2")),
        ],
    ),
]


def check():
    failures = 0
    for words, column in CASES:
        session = Session(option_parser().parse_args(words.split()))
        for line, report in column:
            expected = report if report.startswith("err|") else "ok|" + report
            actual = session.report(line.encode()).decode().replace("\t", "|")
            if actual != expected:
                failures += 1
                print(f"{words} {line[:80]!r}: expected {expected!r}, got {actual!r}")
    print(f"{sum(len(column) for _, column in CASES)} cases, {failures} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(run_with_deep_stack(check))
