#!/usr/bin/env python3
"""check_man_page.py PROGRAM PAGE: the manual page tells of the same commands and options as --help does."""

import re
import subprocess
import sys

PROGRAM, PAGE = sys.argv[1:]
OPTION = re.compile(r"(?<![\w-])--?[a-z][a-z-]*")
EVERYWHERE = {"-h", "--help"}  # the page tells of these once


def help_text(*command):
    return subprocess.run([PROGRAM, *command, "--help"], capture_output=True, check=True, text=True).stdout


def options_of_help(*command):
    words = (line.split()[0] for line in help_text(*command).splitlines() if line.startswith("  -"))
    return {option for word in words for option in OPTION.findall(word.replace(",", " "))}


def commands_of_help():
    return set(re.findall(r"^  ([a-z]+) ", help_text().split("Subcommands:")[1], re.MULTILINE))


def sections_of_page():
    """What stands behind each .SS or .SH, by its heading."""
    with open(PAGE, encoding="utf-8") as file:
        parts = re.split(r"^\.S[HS] (.*)\n", file.read().replace(r"\-", "-"), flags=re.MULTILINE)
    return dict(zip(parts[1::2], parts[2::2]))


def options_of_section(text):
    tags = re.findall(r"^\.TP\n(.*)", text, re.MULTILINE)
    return {option for tag in tags for option in OPTION.findall(tag)}


sections = sections_of_page()
commands = commands_of_help()
assert len(commands) == 3, commands
expected = {"OPTIONS": options_of_help()} | {command: options_of_help(command) - EVERYWHERE for command in commands}
failed = False
for section, options in expected.items():
    told = options_of_section(sections.get(section, ""))
    for text, names in (("--help alone knows", options - told), ("the manual page alone knows", told - options)):
        if names:
            print(f"{section}: {text} {' '.join(sorted(names))}")
            failed = True
    if not options:
        print(f"{section}: --help shows no options")
        failed = True
sys.exit(failed)
