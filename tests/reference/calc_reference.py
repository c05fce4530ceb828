#!/usr/bin/env python3
"""Prints what `plotvane calc --report tsv` should print for the same options and lines."""

import argparse
import sys
import threading

from plotvane_reference.arithmetic import Inexactness
from plotvane_reference.expression import Expression, Shared
from plotvane_reference.failure import Failure
from plotvane_reference.mathematics import Mathematics
from plotvane_reference.number_rules import text_of
from plotvane_reference.random_generator import RandomGenerator
from plotvane_reference.variables import Variables, read_records

MODES = ("decimal", "fixed", "octal", "hexadecimal", "binary")


class Session:
    """One run of the calculator: options, one table, one random generator; a report line for every input line.

    With `most_work`, for comparisons, NotComparable is raised by lines that take more evaluations than that, or
    whose results another correct program need not have.
    """

    def __init__(self, options, most_work=None):
        self.options = options
        self.inexactness = Inexactness(gives_up=most_work is not None)
        self.mathematics = Mathematics(self.inexactness, RandomGenerator())
        self.shared = Shared(Variables(), self.mathematics, most_work)
        self.expression = Expression(
            self.shared, options.mode, options.places, degrees=options.degrees, numeric_only=options.numeric
        )

    def load_file(self):
        if not self.options.variables:
            return
        with open(self.options.variables, "rb") as file:
            for record in read_records(file.read()):
                self.shared.table.load(*record)

    def report(self, line):
        """The report line for one input line, both as bytes."""
        self.inexactness.tolerance = 0.0
        self.shared.work = 0
        try:
            fields = ["ok", text_of(self._result(line.decode("latin-1")))]
        except Failure as failure:
            fields = self._failed(failure)
        return "\t".join(map(escaped, fields)).encode("latin-1")

    def _result(self, text):
        if not self.options.replay:
            return self.expression.evaluate(text)
        tokens = []
        try:
            self.expression.evaluate(text, record=tokens)
        except Failure:
            pass
        return self.expression.replay(tokens)

    def _failed(self, failure):
        """A tolerated failure is not recorded: the numbers and texts stay as the evaluation's start cleared them."""
        if self.options.graph and failure.is_tolerated_while_graphing():
            return ["err", "0", "0", "", ""]
        numbers = [str(failure.standard), str(failure.custom)]
        return ["err", *numbers, failure.standard_text(), failure.custom_text]

    def snapshot(self):
        return dict(self.shared.table.records), self.mathematics.generator.state

    def give_back(self, snapshot):
        self.shared.table.records, self.mathematics.generator.state = snapshot


def escaped(text):
    return text.replace("\t", "\\t").replace("\r", "\\r").replace("\n", "\\n")


def option_parser():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--mode", choices=MODES, default="decimal")
    parser.add_argument("--places", type=int, default=0)
    parser.add_argument("--variables")
    for flag in ("degrees", "numeric", "graph", "replay"):
        parser.add_argument("--" + flag, action="store_true")
    parser.add_argument("expressions", nargs="*")
    return parser


def run_with_deep_stack(work):
    """The deepest accepted nesting needs more frames than Python allows by default."""
    sys.setrecursionlimit(50000)
    threading.stack_size(512 * 1024 * 1024)
    results = []
    thread = threading.Thread(target=lambda: results.append(work()))
    thread.start()
    thread.join()
    return results[0] if results else 70


def main():
    options = option_parser().parse_args()
    session = Session(options)
    session.load_file()
    lines = [text.encode("utf-8", "surrogateescape") for text in options.expressions]
    failed = False
    for line in lines or (line.rstrip(b"\n") for line in sys.stdin.buffer):
        report = session.report(line)
        failed = failed or report.startswith(b"err")
        sys.stdout.buffer.write(report + b"\n")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(run_with_deep_stack(main))
