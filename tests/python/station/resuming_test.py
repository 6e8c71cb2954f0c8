"""Where a unit goes on: nothing is lost, and nothing is done twice that must not be."""

from __future__ import annotations

import json
import os
import resource
import tempfile
import unittest
from dataclasses import replace
from pathlib import Path
from typing import Any
from unittest import mock

from kelutv_station.run.journal import History, Journal, JournalError
from kelutv_station.run.results import Measurement, Result, Verdict, result_of, worst
from kelutv_station.run.resuming import CRASHED, NO_EVENTS, Resumption, resumption_of
from kelutv_station.plan.limits import Limit

from plans import BURN, CHANGED, READ, VOLUME, ended, plan_with, ready_with

ALLOW = ["factory.setMacAddress"]
AGAIN = {**CHANGED, "name": "again"}


def history_of(steps: tuple[str, ...], *lines: str) -> History:
    """A unit that has begun steps, `volume`, and ended them, `volume.`, in this order; `volume!` failed, `volume#` ended it."""
    history = History()
    for line in lines:
        name = line.rstrip(".!#")
        if name != line:
            verdict = Verdict.PASS if line.endswith(".") else Verdict.FAIL
            history.end(replace(ended(name, verdict), ends_unit=line.endswith("#")))
        else:
            history.begin(name, list(steps[steps.index(name) + 1 :]))
    return history


class Resumptions(unittest.TestCase):
    def assert_goes_on(self, steps: list[dict[str, Any]], lines: str, expected: Resumption) -> None:
        names = {step["name"] for step in steps}
        plan = ready_with(*steps, allow=ALLOW if "burn" in names else []).plan
        history = history_of(tuple(step.name for step in plan.steps), *lines.split())
        self.assertEqual(resumption_of(plan.steps, history), expected)

    def test_begin_with_what_has_not_ended(self) -> None:
        steps = [VOLUME, READ]
        self.assert_goes_on(steps, "", Resumption(0, {}))
        self.assert_goes_on(steps, "volume", Resumption(0, {}))
        self.assert_goes_on(steps, "volume volume.", Resumption(1, {}))
        self.assert_goes_on(steps, "volume volume. read", Resumption(1, {}))
        self.assert_goes_on(steps, "volume volume. read read.", Resumption(2, {}))

    def test_leave_what_must_not_be_repeated_alone(self) -> None:
        steps = [VOLUME, BURN, READ]
        self.assert_goes_on(steps, "volume volume.", Resumption(1, {}))
        self.assert_goes_on(steps, "volume volume. burn", Resumption(2, {"burn": CRASHED}))
        self.assert_goes_on(steps, "volume volume. burn burn.", Resumption(2, {}))

    def test_bring_an_event_again(self) -> None:
        steps = [VOLUME, CHANGED, AGAIN, READ]
        self.assert_goes_on(steps, "volume volume.", Resumption(0, {}))
        self.assert_goes_on(steps, "volume volume. changed", Resumption(0, {}))
        self.assert_goes_on(steps, "volume volume. changed changed. again", Resumption(0, {}))
        self.assert_goes_on(steps, "volume volume. changed changed. again again.", Resumption(3, {}))
        self.assert_goes_on(steps, "volume volume. changed changed. again volume", Resumption(0, {}))
        self.assert_goes_on(steps, "volume volume. changed changed. again volume volume.", Resumption(0, {}))

    def test_bring_no_event_by_what_must_not_be_repeated(self) -> None:
        steps = [BURN, CHANGED, AGAIN, READ]
        nobody_knows = {"changed": NO_EVENTS, "again": NO_EVENTS}
        self.assert_goes_on(steps, "burn", Resumption(3, {"burn": CRASHED, **nobody_knows}))
        self.assert_goes_on(steps, "burn burn.", Resumption(3, nobody_knows))
        self.assert_goes_on(steps, "burn burn. changed", Resumption(3, nobody_knows))
        self.assert_goes_on(steps, "burn burn. changed changed.", Resumption(3, {"again": NO_EVENTS}))

    def test_begin_nothing_again_in_a_unit_that_was_ended(self) -> None:
        steps = [VOLUME, CHANGED, BURN]
        self.assert_goes_on(steps, "volume volume#", Resumption(1, {}))
        self.assert_goes_on(steps, "volume volume. changed changed#", Resumption(2, {}))

    def test_begin_nothing_again_that_failed(self) -> None:
        steps = [VOLUME, CHANGED, AGAIN, READ]
        self.assert_goes_on(steps, "volume volume! changed", Resumption(1, {}))
        self.assert_goes_on(steps, "volume volume. changed changed! again", Resumption(2, {}))

    def test_wait_once_where_that_must_not_be_repeated(self) -> None:
        steps = [VOLUME, {**CHANGED, "repeat": False}, AGAIN, READ]
        self.assert_goes_on(steps, "volume volume.", Resumption(0, {}))
        self.assert_goes_on(steps, "volume volume. changed", Resumption(3, {"changed": CRASHED, "again": NO_EVENTS}))
        self.assert_goes_on(steps, "volume volume. changed changed. again", Resumption(3, {"again": NO_EVENTS}))

    def test_wait_again_for_what_nothing_brings(self) -> None:
        self.assert_goes_on([CHANGED, READ], "changed", Resumption(0, {}))


class Journals(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = Path(folder.name) / "run" / "journal.jsonl"
        self.plan = plan_with(VOLUME, READ)

    def reopened(self, **options: bool) -> Journal:
        journal = Journal(self.path, self.plan, **{"resume": True, **options})
        self.addCleanup(journal.close)
        return journal

    def write(self) -> None:
        journal = Journal(self.path, self.plan, resume=False)
        journal.begin("A1", "volume", durable=True)
        journal.end(ended("volume", Verdict.FAIL, Measurement("result", 3, Limit(low=4))), durable=True)
        journal.begin("A1", "read", durable=False)
        journal.close()

    def test_remember(self) -> None:
        self.write()
        history = self.reopened().histories["A1"]
        self.assertEqual(history.results, {"volume": ended("volume", Verdict.FAIL, Measurement("result", 3, Limit(low=4)))})
        self.assertEqual((history.open, history.attempts), ("read", {"volume": 1, "read": 1}))

    def test_forget_a_line_that_a_crash_cut(self) -> None:
        self.write()
        whole = self.path.read_bytes()
        self.path.write_bytes(whole + b'{"unit": "A1", "resu')
        journal = self.reopened()
        self.assertEqual(journal.begin("A1", "read", durable=False), 2)
        self.assertEqual(self.path.read_bytes(), whole + b'{"unit": "A1", "begun": "read"}\n')

    def test_hold_whole_lines_when_the_disk_is_full(self) -> None:
        self.write()
        journal, whole = self.reopened(), self.path.read_bytes()
        before = resource.getrlimit(resource.RLIMIT_FSIZE)
        resource.setrlimit(resource.RLIMIT_FSIZE, (len(whole) + 10, before[1]))
        try:
            self.assertRaisesRegex(JournalError, "No space left", journal.begin, "A1", "read", durable=True)
        finally:
            resource.setrlimit(resource.RLIMIT_FSIZE, before)
        self.assertEqual(self.path.read_bytes(), whole)
        self.assertEqual(journal.begin("A1", "read", durable=True), 2)

    def test_belong_to_one_run(self) -> None:
        self.write()
        self.assertRaisesRegex(JournalError, "has a run already; --resume", self.reopened, resume=False)
        self.plan = plan_with(VOLUME)
        self.assertRaisesRegex(JournalError, "has a run of another plan", self.reopened)
        self.path.write_text('{"format": "something else"}\n')
        self.assertRaisesRegex(JournalError, "is no journal of this station", self.reopened)
        self.path.write_text("nothing\n")
        self.assertRaisesRegex(JournalError, "journal.jsonl:1: is no line of a journal", self.reopened)

    def test_go_on_only_with_what_there_is(self) -> None:
        self.assertRaisesRegex(JournalError, "there is no run to go on with; without --resume one begins", self.reopened)
        self.assertFalse(self.path.parent.exists())
        self.write()
        self.path.write_bytes(self.path.read_bytes()[:9])
        self.assertEqual(self.reopened().histories["A1"], History())

    def test_are_on_the_disk_with_their_folders(self) -> None:
        folder, synced = self.path.parents[1].resolve(), []
        self.path = folder / "one" / "two" / "journal.jsonl"
        with mock.patch("os.fsync", lambda descriptor: synced.append(os.readlink(f"/proc/self/fd/{descriptor}"))):
            self.write()
        self.assertLessEqual({str(folder), str(folder / "one"), str(folder / "one" / "two")}, set(synced))

    def test_belong_to_one_station(self) -> None:
        self.write()
        self.reopened()
        self.assertRaisesRegex(JournalError, "another station is at work", self.reopened)

    def test_refuse_lines_of_other_units_and_steps(self) -> None:
        self.write()
        for line in ({"unit": "B", "begun": "read"}, {"unit": "A1", "begun": "raed"}, {"unit": "A1", "result": {}}):
            with self.subTest(line=line):
                self.write_line(line)
                self.assertRaisesRegex(JournalError, "a line is no line of a journal", self.reopened)

    def write_line(self, line: dict[str, Any]) -> None:
        kept = self.path.read_bytes().splitlines(keepends=True)[:1]
        self.path.write_bytes(b"".join(kept) + f"{json.dumps(line)}\n".encode())


class Results(unittest.TestCase):
    def test_come_back_from_documents(self) -> None:
        result = Result(
            "A1", "read", Verdict.FAIL, "too loud",
            (Measurement("result", 50, Limit(high=40)), Measurement("mode", 1, Limit(), "X")), 1.5, 2, 0.5, True)
        self.assertEqual(result_of(json.loads(json.dumps(result.document()))), result)

    def test_are_as_grave_as_the_gravest(self) -> None:
        self.assertEqual(worst([Verdict.PASS, Verdict.UNKNOWN, Verdict.LEFT_OUT]), Verdict.UNKNOWN)
        self.assertEqual(worst([Verdict.ERROR, Verdict.FAIL]), Verdict.FAIL)
        self.assertEqual(worst([Verdict.PASS]), Verdict.PASS)


if __name__ == "__main__":
    unittest.main()
