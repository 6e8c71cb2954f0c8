"""The screen of the operator, on a terminal of its own."""

from __future__ import annotations

import fcntl
import os
import pty
import re
import select
import signal
import struct
import subprocess
import tempfile
import termios
import time
import unittest
from pathlib import Path

from kelutv_station.run.questions import Question, Questions, Stopped
from kelutv_station.run.results import Verdict
from kelutv_station.run.station import Status
from kelutv_station.screen.drawing import View, drawing, wrapped
from kelutv_station.screen.terminal import LEAVE, keys_of

from plans import ended
from televisions import PATIENCE, STATION, Run, TracedTelevision

PLAN = """
SHOW = {"call": "audio.setVolume", "arguments": ["speaker", 36]}
PLAN = {"step": [
    {"name": "plug", "prompt": "Plug the disc player into HDMI 1."},
    {"name": "red", "picture": "Is all of it red?", "show": SHOW, "defects": ["dark spots", "lines"]},
    {"name": "read", "call": "audio.getVolume", "arguments": ["speaker"], "equals": 36},
]}
"""
ANSWERS = (("y", "good"), ("n", "bad"), ("1", "dark spots"))
RED = Question("A1", "red", "Is all of it red?", ANSWERS)
ESCAPE = re.compile("\x1b\\[[0-9;?]*[a-zA-Z]")


def rows_of(view: View, width: int = 80, height: int = 24) -> list[str]:
    """The rows without colours."""
    return [ESCAPE.sub("", row) for row in drawing(view, width, height)]


class Operator:
    """Somebody at the terminal of a station."""

    def __init__(self, run: Run, *options: str) -> None:
        self._terminal, other = pty.openpty()
        fcntl.ioctl(self._terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 80, 0, 0))
        self.before = termios.tcgetattr(other)
        self.process = subprocess.Popen(
            [*STATION, "line.py", *run.units, *options], cwd=run.folder, stdin=other, stdout=other, stderr=other,
            start_new_session=True)
        os.close(other)
        self.shown = ""

    def close(self) -> None:
        self.process.kill()
        self.process.wait()
        if self._terminal >= 0:
            self.hang_up()

    def hang_up(self) -> None:
        """Closes the terminal."""
        os.close(self._terminal)
        self._terminal = -1

    def press(self, key: str) -> None:
        os.write(self._terminal, key.encode())

    def see(self, pattern: str) -> str:
        """Waits until the terminal shows this behind what was seen before; gives it."""
        deadline = time.monotonic() + PATIENCE
        while not (found := re.search(pattern, self.shown, re.S)):
            ready, _, _ = select.select([self._terminal], [], [], max(deadline - time.monotonic(), 0))
            if not ready:
                raise AssertionError(f"no {pattern} in {self.shown!r}")
            self.shown += os.read(self._terminal, 65536).decode()
        self.shown = self.shown[found.end() :]
        return found[0]

    def end(self) -> int:
        """The exit code, once all that was shown has been read."""
        self.see(re.escape(LEAVE))
        return self.process.wait(PATIENCE)

    def modes(self) -> list[object]:
        return termios.tcgetattr(self._terminal)


class Screens(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def operator(self, units: dict[str, TracedTelevision], *options: str) -> Operator:
        self.run_of_plan = Run(self.folder, PLAN, units)
        operator = Operator(self.run_of_plan, *options)
        self.addCleanup(operator.close)
        return operator

    def test_take_one_key_for_each_answer(self) -> None:
        with TracedTelevision() as television:
            operator = self.operator({"A1": television})
            operator.see(r"A1: plug.*Plug the disc player.* y .*done.* n .*cannot be done.* q .*stop")
            operator.press("x")
            operator.press("y")
            operator.see(r"A1: red.*Is all of it red\?.* y .*good.* 1 .*dark spots.* 2 .*lines")
            operator.press("2")
            self.assertEqual(operator.end(), 1)
            self.assertEqual(operator.modes(), operator.before)
        self.assertEqual([(each["verdict"], each["reason"]) for each in self.run_of_plan.results()], [
            ("pass", ""), ("fail", "judged: lines"), ("pass", "")])

    def test_take_no_answer_to_a_question_that_nobody_has_seen(self) -> None:
        with TracedTelevision() as first, TracedTelevision() as second:
            operator = self.operator({"A1": first, "A2": second})
            operator.see("> A1.*next of 2")
            operator.press("\tn")
            operator.see("> A2.*A2: plug.*q .*stop")
            operator.press("yn")
            operator.see("> A1.*A1: plug.*q .*stop")
            operator.press("q")
            self.assertEqual(operator.end(), 5)
        self.assertEqual([(each["unit"], each["step"], each["verdict"]) for each in self.run_of_plan.results()], [
            ("A2", "plug", "pass")])

    def test_stop_and_go_on(self) -> None:
        with TracedTelevision() as first, TracedTelevision() as second:
            units = {"A1": first, "A2": second}
            operator = self.operator(units)
            operator.see("next of 2")
            operator.press("\t")
            operator.see("> A2.*A2: plug")
            operator.press("n")
            operator.see("A1: plug")
            operator.press("q")
            self.assertEqual(operator.end(), 5)
            operator = Operator(self.run_of_plan, "--resume")
            self.addCleanup(operator.close)
            for unit, step in (("A1", "plug"), ("A1", "red"), ("A2", "red")):
                self.answer(operator, unit, step)
            self.assertEqual(operator.end(), 1)
        verdicts = {(each["unit"], each["step"]): each["verdict"] for each in self.run_of_plan.results()}
        self.assertEqual([key for key, verdict in verdicts.items() if verdict != "pass"], [("A2", "plug")])

    def answer(self, operator: Operator, unit: str, step: str) -> None:
        """Turns to the question with the key Tab unless it is there already, and answers it well."""
        while unit not in operator.see("> A[12]") or step not in operator.see("A[12]: [a-z]+"):
            operator.press("\t")
        operator.press("y")

    def test_keep_the_run_of_a_terminal_that_is_closed(self) -> None:
        with TracedTelevision() as television:
            operator = self.operator({"A1": television})
            operator.see("Plug the disc player")
            operator.hang_up()
            self.assertEqual(operator.process.wait(PATIENCE), 5)
        self.assertEqual(self.run_of_plan.results(), [])

    def test_leave_the_terminal_as_it_was_when_ended(self) -> None:
        with TracedTelevision() as television:
            operator = self.operator({"A1": television})
            operator.see("Plug the disc player")
            operator.process.send_signal(signal.SIGTERM)
            self.assertEqual(operator.end(), 5)
            self.assertEqual(operator.modes(), operator.before)


class Drawings(unittest.TestCase):
    def view(self, units: int, *questions: Question) -> View:
        failed = Status(None, True, [ended("read", Verdict.FAIL)])
        statuses = [(f"A{number}", failed if number % 2 else Status("red")) for number in range(1, units + 1)]
        return View("Line", 3, statuses, questions, questions[0] if questions else None, None)

    def test_show_units_and_the_question(self) -> None:
        rows = rows_of(self.view(2, RED))
        self.assertEqual(rows[0].strip(), "Line    1 of 2 units done")
        self.assertEqual(rows[2].split(), [">", "A1", "1/3", "asks", "you", "read"])
        self.assertEqual(rows[3].split(), ["A2", "0/3", "under", "way", "red"])
        self.assertEqual(rows[5:], [" A1: red", " Is all of it red?", "", "  y  good   n  bad   1  dark spots   q  stop "])

    def test_fit_the_terminal(self) -> None:
        for width, height in ((80, 24), (40, 12), (20, 12)):
            with self.subTest(width=width):
                rows = rows_of(self.view(30, RED), width, height)
                self.assertLessEqual(max(map(len, rows)), width)
                self.assertLessEqual(len(rows), height)
                self.assertIn("A1: red", "\n".join(rows))

    def test_keep_text_from_moving_the_cursor(self) -> None:
        self.assertNotIn("\x1b", "".join(rows_of(self.view(1, Question("A1", "a\x1b[2Jb", "c\x1b[Hd", ANSWERS)))))
        self.assertEqual(wrapped("one two  three", 8), ["one two", "three"])

    def test_know_keys(self) -> None:
        self.assertEqual((keys_of(b"yn"), keys_of(b"\x1b[A"), keys_of(b"")), (["y", "n"], [], ["q"]))


class Asking(unittest.TestCase):
    def test_end_when_the_station_stops(self) -> None:
        questions = Questions(lambda: None)
        questions.stop()
        self.assertRaises(Stopped, questions.ask, RED)


if __name__ == "__main__":
    unittest.main()
