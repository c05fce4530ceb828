#!/usr/bin/env python3
"""Attacks the calculator program from outside: options, number texts of options, and variable files."""

import os
import subprocess
import sys
import tempfile

ALL_WELL, SOMETHING_FAILED, BAD_USAGE = 0, 1, 2

# Words after "calc", exit status, standard output (None: not looked at).
COMMAND_LINES = [
    ("1+1", 0, "2\n"),
    ("1+1 2*3", 0, "2\n6\n"),
    ("x=2 x^3", 0, "2\n8\n"),
    ("1/0 2", 1, "2\n"),
    ("-- -5", 0, "-5\n"),
    ("--mode hexadecimal 255", 0, "&HFF\n"),
    ("--mode octal 8", 0, "&O10\n"),
    ("--mode binary 5", 0, "&B101\n"),
    ("--mode decimal .5", 0, "0.5\n"),
    ("--mode fixed .5", 0, "1\n"),
    ("--mode fixed --places 2 1/3", 0, ".33\n"),
    ("--mode=fixed --places=2 1/3", 0, ".33\n"),
    ("--places 2 --mode fixed 1/3", 0, ".33\n"),
    ("--places 2 1/3", 0, "0.333333333333333\n"),
    ("--mode fixed --places 127 1/3", 0, ".333333333333333\n"),
    ("--mode fixed --places -100 5", 0, "0\n"),
    ("--mode fixed --places 0 2.5", 0, "3\n"),
    ("--mode fixed --places -1 25", 0, "30\n"),
    ("--degrees sin(30)", 0, "0.5\n"),
    ("--numeric 1;2", 1, ""),
    ("--graph 1/0", 1, ""),
    ("--replay &H10+1", 0, "17\n"),
    ("--report tsv 1/0", 1, "err\t11\t0\tDivision by zero\t\n"),
    ("--report tsv 1 )", 1, "ok\t1\nerr\t0\t1\t\tSyntax error ')'\n"),
    ("--report text 1", 0, "1\n"),
    ("--help", 0, None),
    ("--mode hex 1", 2, ""),
    ("--mode", 2, ""),
    ("--mode fixed5 1", 2, ""),
    ("--places 128 1", 2, ""),
    ("--places -101 1", 2, ""),
    ("--places", 2, ""),
    ("--places abc 1", 2, ""),
    ("--places 1.5 1", 2, ""),
    ("--places 1e2 1", 2, ""),
    ("--places 2x 1", 2, ""),
    ("--places 99999999999999999999 1", 2, ""),
    ("--places -99999999999999999999 1", 2, ""),
    ("--report xml 1", 2, ""),
    ("--report", 2, ""),
    ("--nosuch 1", 2, ""),
    ("--variables", 2, ""),
    ("--degrees=maybe 1", 2, ""),
]

# Content of a variable file that can be read, a line to calculate, its result.
GOOD_FILES = [
    (b"", "1", "1"),
    (b'"x",2.5,2,""\r\n', "x*2", "5"),
    (b'"x",2.5,2,""\n"y",3,2,"no end"', "x*y", "7.5"),
    (b'\xef\xbb\xbf"x",2.5,2,""\r\n', "x", "2.5"),
    (b'\r\n\r\n"x",1E-05,2,""\r\n\n"y",-2,2,""\r\n', "x*y", "-2E-05"),
    (b'"x",#TRUE#,2,""\r\n', "x", "True"),
    (b'"x",,2,""\r\n', "x+1", "1"),
    (b'"x","say ""hi""",2,""\r\n', "x", 'say "hi"'),
    (b'"x","two\r\nlines",2,""\r\n', "x", "two\r\nlines"),
    (b'"X",1,2,""\r\n"x",2,2,""\r\n', "x", "2"),
    (b'"x",1,2,"a, ""quoted"", description"\r\n', "x", "1"),
    (b'"pi",3,2,""\r\n', "pi", "3"),
    (b'"x",1.7976931348623157E+308,2,""\r\n', "x/1e308", "1.79769313486232"),
]

# Content of a damaged variable file, and the error that the program shows.
BAD_FILES = [
    (b'"x",1,2\r\n', "Input past end of file"),
    (b'"x",1,2,"",5\r\n', "Input past end of file"),
    (b'"x",1,2,"open\r\n', "Input past end of file"),
    (b'"x"\r\n', "Input past end of file"),
    (b'"good",1,2,""\r\n"x",1,2,"open', "Input past end of file"),
    (b'"x",word,2,""\r\n', "Type mismatch"),
    (b'"x",1,two,""\r\n', "Type mismatch"),
    (b'"x",1,"two",""\r\n', "Type mismatch"),
    (b'"x",#MAYBE#,2,""\r\n', "Type mismatch"),
]
GARBAGE_FILES = [
    b"\0" * 50,
    b"\xff\xfe\x00",
    bytes(range(256)) * 8,
    b'"' * 999,
    b"," * 999,
    b'"x",1e99999,2,""\r\n',
    b'"x",1,1e99,""\r\n',
]


class Attack:
    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.failures = 0
        self.count = 0

    def run(self, words, lines=b""):
        return subprocess.run([self.program, "calc", *words], input=lines, capture_output=True, timeout=30)

    def expect(self, condition, what, done):
        self.count += 1
        if not condition:
            self.failures += 1
            print(f"{what}: exit status {done.returncode}, output {done.stdout!r}, errors {done.stderr[:300]!r}")

    def options(self):
        for line, status, output in COMMAND_LINES:
            done = self.run(line.split())
            right = done.returncode == status and (output is None or done.stdout == output.encode())
            told = bool(done.stderr) if status == BAD_USAGE else True
            self.expect(right and told, "calc " + line, done)

    def lines(self):
        for text, reports in (
            (b"1\n2", b"ok\t1\nok\t2\n"),
            (b"1\r\n2\r\n", b"ok\t1\nok\t2\n"),
            (b"x=1\n1/0\nx\n", b"ok\t1\nerr\t11\t0\tDivision by zero\t\nok\t1\n"),
            (b"\n1\n", b"err\t0\t1\t\tSyntax error ''\nok\t1\n"),
            (b"1\0\n2\n", b"err\t0\t1\t\tSyntax error '\0'\nok\t2\n"),
            (b"&\t\n", b"err\t0\t7\t\tInvalid base specification '&\\t'\n"),
            (b"", b""),
        ):
            done = self.run(["--report", "tsv"], text)
            self.expect(done.stdout == reports, f"lines {text!r}", done)

    def path(self, name):
        return os.path.join(self.folder, name)

    def file_with(self, content):
        with open(self.path("variables.txt"), "wb") as file:
            file.write(content)
        return self.path("variables.txt")

    def content(self):
        with open(self.path("variables.txt"), "rb") as file:
            return file.read()

    def good_files(self):
        for content, line, result in GOOD_FILES:
            done = self.run(["--variables", self.file_with(content), line])
            right = done.returncode == ALL_WELL and done.stdout == result.encode() + b"\n"
            self.expect(right, f"file {content!r}", done)

    def bad_files(self):
        for content, message in BAD_FILES:
            done = self.run(["--variables", self.file_with(content), "1"])
            told = done.returncode == SOMETHING_FAILED and message.encode() in done.stderr and not done.stdout
            self.expect(told and self.content() == content, f"file {content!r}", done)
        for content in GARBAGE_FILES:
            done = self.run(["--variables", self.file_with(content), "1"])
            kept = done.returncode == ALL_WELL or self.content() == content
            self.expect(done.returncode in (ALL_WELL, SOMETHING_FAILED) and kept, f"file {content[:40]!r}", done)

    def bad_paths(self):
        for path in (self.folder, self.path("none/x.txt"), "", self.path("variables.txt") + "/x"):
            done = self.run(["--variables", path, "1"])
            self.expect(done.returncode in (SOMETHING_FAILED, BAD_USAGE) or path == "", f"path {path!r}", done)

    def whole(self):
        self.options()
        self.lines()
        self.good_files()
        self.bad_files()
        self.bad_paths()
        print(f"{self.count} attacks, {self.failures} failures")
        return 1 if self.failures else 0


def main():
    with tempfile.TemporaryDirectory() as folder:
        return Attack(sys.argv[1], folder).whole()


if __name__ == "__main__":
    sys.exit(main())
