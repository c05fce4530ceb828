#!/usr/bin/env python3
"""Types at the calculator through a pseudo terminal, and interrupts the commands at work."""

import os
import pty
import select
import signal
import subprocess
import sys
import tempfile
import termios
import time
import unittest

PROGRAM = sys.argv[1]
PATIENCE = 20  # seconds; a loaded machine is slow, a hanging program is slower
LONG_SUM = "ss(k,k,1,10^12)"
UP, DOWN, LEFT = "\033[A", "\033[B", "\033[D"
CTRL_C, CTRL_D = "\x03", "\x04"


class Terminal:
    """A program whose standard input, output and errors are one terminal; it keeps its history in `state`."""

    def __init__(self, state, *words):
        self.shown = ""
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.environ["TERM"] = "vt100"
            os.environ["XDG_STATE_HOME"] = state
            os.execv(PROGRAM, [PROGRAM, *words])

    def hang_up(self):
        if self.terminal is not None:
            os.close(self.terminal)
        self.terminal = None

    def close(self):
        self.hang_up()
        if self.pid:
            os.kill(self.pid, signal.SIGKILL)
            os.waitpid(self.pid, 0)

    def type(self, text):
        os.write(self.terminal, text.encode())

    def wait_for(self, text):
        """Reads until `text` is shown; gives what stood before it and drops both."""
        end = time.monotonic() + PATIENCE
        while text not in self.shown:
            ready, _, _ = select.select([self.terminal], [], [], max(0, end - time.monotonic()))
            if not ready:
                raise AssertionError(f"waited for {text!r}, the terminal shows {self.shown!r}")
            try:
                self.shown += os.read(self.terminal, 4096).decode()
            except OSError:
                raise AssertionError(f"ended before {text!r}, the terminal shows {self.shown!r}") from None
        before, self.shown = self.shown.split(text, 1)
        return before

    def wait_for_prompt(self):
        """Until the prompt is shown and keys are keys: the editor takes the terminal over just after it."""
        self.wait_for("> ")
        end = time.monotonic() + PATIENCE
        while termios.tcgetattr(self.terminal)[3] & termios.ICANON:
            if time.monotonic() > end:
                raise AssertionError("the line editor does not take the terminal over")
            time.sleep(0.01)

    def enter(self, line, result):
        self.type(line + "\r")
        self.wait_for(f"\n{result}\r\n")
        self.wait_for_prompt()

    def end(self):
        self.type(CTRL_D)
        if self.status() != 0:
            raise AssertionError("the program did not end well")

    def status(self):
        end = time.monotonic() + PATIENCE
        ended, status = os.waitpid(self.pid, os.WNOHANG)
        while not ended:
            if time.monotonic() > end:
                raise AssertionError("the program does not end")
            time.sleep(0.02)
            ended, status = os.waitpid(self.pid, os.WNOHANG)
        self.pid = 0
        return os.waitstatus_to_exitcode(status)


class Typed(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.state = os.path.join(self.folder.name, "state")
        self.history = os.path.join(self.state, "plotvane", "history")
        self.variables = os.path.join(self.folder.name, "variables.txt")

    def calculator(self):
        terminal = Terminal(self.state, "calc", "--variables", self.variables)
        self.addCleanup(terminal.close)
        terminal.wait_for_prompt()
        return terminal

    def read(self, path):
        with open(path, encoding="utf-8", newline="") as file:
            return file.read()


class Prompt(Typed):
    def setUp(self):
        super().setUp()
        self.terminal = self.calculator()

    def test_results_follow_the_lines(self):
        self.terminal.enter("2^10", "1024")
        self.terminal.enter("1/0", "Division by zero")

    def test_the_end_of_input_saves_the_variables(self):
        self.terminal.enter("length=2.5", "2.5")
        self.terminal.end()
        self.assertEqual(self.read(self.variables), '"length",2.5,2,""\r\n')

    def test_a_request_to_end_saves_what_was_typed(self):
        self.terminal.enter("length=2.5", "2.5")
        os.kill(self.terminal.pid, signal.SIGTERM)
        self.assertEqual(self.terminal.status(), 128 + signal.SIGTERM)
        self.assertEqual(self.read(self.variables), '"length",2.5,2,""\r\n')
        self.assertEqual(self.read(self.history), "length=2.5\n")

    def test_a_request_to_end_stops_a_calculation(self):
        self.terminal.enter("length=2.5", "2.5")
        self.terminal.type(LONG_SUM + "\r")
        self.terminal.wait_for("working, 1 s")
        os.kill(self.terminal.pid, signal.SIGTERM)
        self.assertEqual(self.terminal.status(), 128 + signal.SIGTERM)
        self.assertIn('"length",2.5,2,""', self.read(self.variables))

    def test_a_terminal_that_goes_away_saves_what_was_typed(self):
        self.terminal.enter("length=2.5", "2.5")
        self.terminal.hang_up()
        self.assertEqual(self.terminal.status(), 128 + signal.SIGHUP)
        self.assertEqual(self.read(self.variables), '"length",2.5,2,""\r\n')

    def test_up_and_down_walk_the_history(self):
        self.terminal.enter("1+1", "2")
        self.terminal.enter("20+2", "22")
        self.terminal.enter(UP + UP, "2")
        self.terminal.enter(UP + UP + UP + DOWN + DOWN, "2")

    def test_the_line_can_be_edited(self):
        self.terminal.enter("17" + LEFT + "\x7f2", "27")

    def test_tab_completes_functions_and_variables(self):
        self.terminal.enter("FACTO\t(5)", "120")
        self.terminal.enter("length=4", "4")
        self.terminal.enter("leng\t*2", "8")
        self.terminal.enter("2+arcs\te\t(1)", "2")

    def test_tab_lists_what_is_possible(self):
        self.terminal.type("arcs\t")
        self.terminal.wait_for("arcsech  arcsinh")
        self.terminal.wait_for("> arcs")
        self.terminal.enter("inh(0)", "0")

    def test_tab_on_nothing_types_nothing(self):
        self.terminal.enter("1+\t1", "2")
        self.terminal.enter("nosuchname\t=3", "3")

    def test_help_shows_the_form_and_one_line(self):
        self.terminal.type("help PMT\r")
        self.terminal.wait_for("pmt(rate, nper, pv [, fv [, due]])  payment per period of an annuity (fv 0, due 0)\r\n")
        self.terminal.wait_for_prompt()

    def test_help_alone_lists_all_functions(self):
        self.terminal.type("help\r")
        self.assertIn(" arcsech ", self.terminal.wait_for(" ppmt\r\n"))

    def test_help_on_an_unknown_name_says_so(self):
        self.terminal.type("help nosuch\r")
        self.terminal.wait_for('There is no function "nosuch"; help lists all of them.\r\n')
        self.terminal.enter("help=5", "5")

    def test_control_c_drops_the_line(self):
        self.terminal.type("1+2+" + CTRL_C)
        self.terminal.wait_for("^C")
        self.terminal.wait_for_prompt()
        self.terminal.enter("7", "7")

    def test_control_c_stops_a_calculation_and_the_prompt_returns(self):
        self.terminal.enter("k=3", "3")
        self.terminal.type(LONG_SUM + "\r")
        self.terminal.wait_for("working, 1 s (Ctrl-C stops)")
        self.terminal.type(CTRL_C)
        self.terminal.wait_for("User interrupt occurred\r\n")
        self.terminal.wait_for_prompt()
        self.terminal.enter("k", "3")


class History(Typed):
    def test_the_next_session_begins_with_the_lines_of_this_one(self):
        first = self.calculator()
        first.enter("20+2", "22")
        first.enter("1+1", "2")
        first.end()
        second = self.calculator()
        second.enter(UP + UP, "22")
        second.end()
        self.assertEqual(self.read(self.history), "20+2\n1+1\n20+2\n")

    def test_two_sessions_at_a_time_both_leave_their_lines(self):
        first, second = self.calculator(), self.calculator()
        first.enter("1+1", "2")
        second.enter("20+2", "22")
        first.end()
        second.end()
        self.assertEqual(self.read(self.history), "1+1\n20+2\n")

    def test_only_its_owner_may_read_it(self):
        calculator = self.calculator()
        calculator.enter("1+1", "2")
        calculator.end()
        self.assertEqual(os.stat(self.history).st_mode & 0o777, 0o600)
        self.assertEqual(os.stat(self.state).st_mode & 0o777, 0o700)

    def test_only_the_last_thousand_lines_are_kept(self):
        os.makedirs(os.path.dirname(self.history))
        with open(self.history, "w", encoding="utf-8") as file:
            file.writelines(f"{line}\n" for line in range(1000))
        calculator = self.calculator()
        calculator.enter("5555", "5555")
        calculator.end()
        self.assertEqual(self.read(self.history).split(), [str(line) for line in range(1, 1000)] + ["5555"])

    def test_a_place_that_cannot_be_written_is_no_trouble(self):
        with open(self.state, "w", encoding="utf-8") as file:
            file.write("not a folder")
        calculator = self.calculator()
        calculator.enter("1+1", "2")
        calculator.end()
        self.assertEqual(self.read(self.state), "not a folder")

    def test_lines_of_no_terminal_leave_none(self):
        subprocess.run([PROGRAM, "calc"], input=b"1+1\n", check=True, env={"XDG_STATE_HOME": self.state})
        self.assertFalse(os.path.exists(self.state))

    def test_without_a_place_of_its_own_it_lies_in_the_home(self):
        home = os.path.join(self.folder.name, "home")
        os.mkdir(home)
        os.environ["HOME"], before = home, os.environ.get("HOME", "/")
        self.addCleanup(os.environ.__setitem__, "HOME", before)
        terminal = Terminal("relative", "calc")  # a relative folder does not count
        self.addCleanup(terminal.close)
        terminal.wait_for_prompt()
        terminal.enter("1+1", "2")
        terminal.end()
        self.assertEqual(self.read(os.path.join(home, ".local", "state", "plotvane", "history")), "1+1\n")


class Interrupts(unittest.TestCase):
    """Commands without a terminal, stopped by the signal that Ctrl-C sends."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def interrupt(self, *words, after=0.5, lines=None, by=signal.SIGINT):
        process = subprocess.Popen(
            [PROGRAM, *words], stdin=subprocess.PIPE if lines is not None else subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE
        )
        if lines is not None:
            process.stdin.write(lines)
            process.stdin.flush()
        time.sleep(after)
        process.send_signal(by)
        try:
            process.wait(timeout=PATIENCE)
        finally:
            process.kill()
        output = process.stdout.read()
        for pipe in (process.stdin, process.stdout, process.stderr):
            if pipe:
                pipe.close()
        return process.returncode, output

    def test_calc_keeps_the_variable_file(self):
        with open(self.path("variables.txt"), "w", encoding="utf-8") as file:
            file.write('"k",3,2,""\n')
        status, output = self.interrupt("calc", "--variables", self.path("variables.txt"), "k=5", LONG_SUM, "1+1")
        self.assertEqual(status, 130)
        self.assertEqual(output, b"5\n")
        self.assertEqual(os.listdir(self.folder.name), ["variables.txt"])
        with open(self.path("variables.txt"), encoding="utf-8") as file:
            self.assertEqual(file.read(), '"k",3,2,""\n')

    def test_calc_that_waits_for_a_line_ends(self):
        self.assertEqual(self.interrupt("calc", lines=b"1+1\n"), (130, b"2\n"))

    def test_plot_leaves_the_old_picture(self):
        for name in ("picture.png", "picture.svg"):
            with open(self.path(name), "wb") as file:
                file.write(b"the picture before")
            status, _ = self.interrupt("plot", "x^2", "ss(sin(k*x),k,1,10^6)", "-o", self.path(name))
            self.assertEqual(status, 130)
            with open(self.path(name), "rb") as file:
                self.assertEqual(file.read(), b"the picture before")
        self.assertEqual(sorted(os.listdir(self.folder.name)), ["picture.png", "picture.svg"])

    def test_a_request_to_end_leaves_the_files_as_they_were(self):
        with open(self.path("variables.txt"), "w", encoding="utf-8") as file:
            file.write('"k",3,2,""\n')
        status, _ = self.interrupt("calc", "--variables", self.path("variables.txt"), "k=5", LONG_SUM, by=signal.SIGTERM)
        self.assertEqual(status, 128 + signal.SIGTERM)
        status, _ = self.interrupt("plot", "ss(sin(k*x),k,1,10^6)", "-o", self.path("picture.png"), by=signal.SIGTERM)
        self.assertEqual(status, 128 + signal.SIGTERM)
        self.assertEqual(os.listdir(self.folder.name), ["variables.txt"])
        with open(self.path("variables.txt"), encoding="utf-8") as file:
            self.assertEqual(file.read(), '"k",3,2,""\n')

    def test_table_ends_after_a_whole_row(self):
        status, output = self.interrupt("table", "x", "ss(k,k,1,10^(x*3))", "--from", "1", "--to", "9", "--step", "1")
        self.assertEqual(status, 130)
        self.assertTrue(output.startswith(b"1\t1\t500500\n"))
        self.assertTrue(output.endswith(b"\n"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
