#!/usr/bin/env python3
"""Holds the calculator program against the reference over generated lines.

    compare.py PROGRAM [--lines N] [--seed S] [--show D]

Lines run in batches: one set of options and one table of variables each. Every report must be identical to the
character, but for numbers that have gone through an elementary function (the last of 15 digits may differ, or
more where the line magnifies that) or an annuity formula (a relative 1E-9). Lines about whose result two correct
programs may disagree are left out. Exit status 1 when anything differs.
"""

import argparse
import re
import subprocess
import sys
import tempfile

from calc_reference import Session, option_parser, run_with_deep_stack
from generate_lines import LineGenerator, random_options, variable_file
from plotvane_reference.failure import NotComparable

BATCH_LINES = 400
MOST_WORK = 4000
SECONDS_PER_BATCH = 60
OPENING_LINES = [b"x=2.5", b"y=-3", b"k=4", b"t=.5", b"a=7", b"b_1=100"]
NUMBER = re.compile(rb"-?(?:\d+\.?\d*|\.\d+)(?:E[+-]\d+)?")


def make_batch(generator, words, count):
    """Lines with what the reference reports for them and how exact that is, then the lines of the saved file."""
    session = Session(option_parser().parse_args(words), MOST_WORK)
    session.load_file()
    batch = []
    for line in OPENING_LINES + [generator.line() for _ in range(count)]:
        before = session.snapshot()
        try:
            batch.append((line, session.report(line), session.inexactness.tolerance))
        except NotComparable:
            session.give_back(before)
    return batch, [(b"(saved file)", *record) for record in session.shared.table.saved()]


def run_program(program, words, lines):
    command = [program, "calc", "--report", "tsv", *words]
    done = subprocess.run(command, input=b"".join(line + b"\n" for line in lines), stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, timeout=SECONDS_PER_BATCH)
    reports = done.stdout.split(b"\n")[:-1]
    failed = any(report.startswith(b"err") for report in reports)
    if done.stderr or done.returncode != int(failed):
        sys.stderr.buffer.write(done.stderr)
        reports.append(b"(exit status %d)" % done.returncode)
    return reports


def write_variables(filed):
    """The program saves into the file, so every batch gets it anew."""
    with open(filed.name, "w", newline="") as file:
        file.write(variable_file())


def read_file(path):
    with open(path, "rb") as file:
        return file.read()


def agree(expected, actual, tolerance):
    if expected == actual:
        return True
    if tolerance == 0 or NUMBER.sub(b"#", expected) != NUMBER.sub(b"#", actual):
        return False
    pairs = zip(map(float, NUMBER.findall(expected)), map(float, NUMBER.findall(actual)))
    return all(abs(a - b) <= tolerance * max(abs(a), abs(b)) for a, b in pairs)


def differences(batch, reports):
    for index in range(max(len(batch), len(reports))):
        line, expected, tolerance = batch[index] if index < len(batch) else (b"", b"(no line)", 0.0)
        actual = reports[index] if index < len(reports) else b"(no report)"
        if not agree(expected, actual, tolerance):
            yield line, expected, actual


def show(words, line, expected, actual):
    print("options: " + " ".join(words))
    for title, text in (("line", line), ("reference", expected), ("program", actual)):
        shown = text.decode("utf-8", "backslashreplace")
        print(f"  {title + ':':11}{shown if len(shown) < 400 else shown[:200] + ' ... ' + shown[-200:]!r}")


def compare(options, filed):
    """After the first difference of a batch the tables may differ, so only that one counts."""
    generator = LineGenerator(options.seed)
    lines = failures = 0
    while lines < options.lines and failures < options.show:
        words = random_options(generator)
        generator.filed = generator.chance(0.3)
        words += ["--variables", filed.name] if generator.filed else []
        write_variables(filed)
        batch, saved = make_batch(generator, words, min(BATCH_LINES, options.lines - lines))
        lines += min(BATCH_LINES, options.lines - lines)
        reports = run_program(options.program, words, [line for line, _, _ in batch])
        if generator.filed:
            batch += saved
            reports += read_file(filed.name).split(b"\r\n")[:-1]
        for difference in differences(batch, reports):
            show(words, *difference)
            failures += 1
            if not options.every:
                break
    print(f"{lines} lines, {failures} differences, seed {options.seed}")
    return 1 if failures else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--lines", type=int, default=20000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--show", type=int, default=20, help="stop after so many differences")
    parser.add_argument("--every", action="store_true", help="go on in a batch after its first difference")
    options = parser.parse_args()
    with tempfile.NamedTemporaryFile("w", suffix=".txt") as filed:
        return run_with_deep_stack(lambda: compare(options, filed))


if __name__ == "__main__":
    sys.exit(main())
