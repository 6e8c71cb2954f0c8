"""The station at work with simulated televisions, faulty ones among them, and killed at any moment."""

from __future__ import annotations

import json
import os
import random
import signal
import subprocess
import tempfile
import time
import unittest
from contextlib import ExitStack, suppress
from pathlib import Path
from typing import Any
from unittest.mock import Mock
from xml.etree import ElementTree

import kelutv
from kelutv._channel import is_readable
from kelutv_station.run.journal import Journal
from kelutv_station.run.performing import Equipment, Outcome, Performer
from kelutv_station.run.questions import Questions
from kelutv_station.run.results import Verdict
from kelutv_station.run.station import Station
from kelutv_station.tool import Tool

from plans import CHANGED, READ, VOLUME, ready_with
from televisions import PATIENCE, Run, TracedTelevision

# More kills follow where none of them met a step under way.
MOST_KILLS = 90
KILLS = 50 if os.environ.get("KELUTV_TORTURE") == "long" else 3
LINE = """
PLAN = {
    "title": "Line", "allow": ["factory.setMacAddress"],
    "step": [
        {"name": "volume", "call": "audio.setVolume", "arguments": ["speaker", 35]},
        {"name": "volume changed", "wait": "volumeChanged", "fields": {"channel": "speaker", "volume": 35}},
        {"name": "read volume", "call": "audio.getVolume", "arguments": ["speaker"], "low": 30, "high": 40, "unit": "%"},
        {"name": "language", "call": "systemsetting.getLanguage", "equals": "english"},
        {"name": "picture size", "call": "sourcemanager.getTimingInfo", "limits": {"width": {"equals": 720}}},
        {"name": "burn", "call": "factory.setMacAddress", "arguments": [[2, 0, 0, 1, 2, 3]]},
        {"name": "burned", "call": "factory.getMacAddress", "matches": "02:00:00:01:02:03"},
    ],
}
"""
# Numbers of the round tell its requests from those of all others.
ROUND = """
PLAN = {{
    "title": "Round", "allow": ["factory.setMacAddress", "factory.setKeyData"],
    "step": [
        {{"name": "prepare", "call": "audio.setVolume", "arguments": ["headphone", {number}]}},
        {{"name": "burn", "call": "factory.setMacAddress", "arguments": [[2, 0, 0, 0, 0, {number}]]}},
        {{"name": "burned", "call": "factory.getMacAddress", "matches": "02:00:00:00:00:{number:02X}"}},
        {{"name": "once", "call": "audio.setVolume", "arguments": ["speaker", {number}], "repeat": False}},
        {{"name": "changed", "wait": "volumeChanged", "fields": {{"channel": "speaker", "volume": {number}}}, "timeout": 5}},
        {{"name": "read", "call": "audio.getVolume", "arguments": ["headphone"], "equals": {number}}},
        {{"name": "key", "call": "factory.setKeyData", "arguments": ["netflix", [{number}, {number}], 0, 0]}},
        {{"name": "end", "call": "audio.getVolume", "arguments": ["headphone"], "equals": {number}}},
    ],
}}
"""
ROUND_STEPS = ["prepare", "burn", "burned", "once", "changed", "read", "key", "end"]
ONCE = {
    "burn": "CMD_FACTORY_SETMACADDRESS(length=6, pMacAddr=[2, 0, 0, 0, 0, {number}])",
    "once": "CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol={number})",
    "key": "pData=[{number}, {number}]",
}


class Fixture(unittest.TestCase):
    def setUp(self) -> None:
        self.stack = self.enterContext(ExitStack())
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def television(self, *options: str) -> TracedTelevision:
        return self.stack.enter_context(TracedTelevision(*options))

    def run_of(self, plan: str, televisions: dict[str, TracedTelevision], name: str = "line") -> Run:
        folder = self.folder / name
        folder.mkdir()
        return Run(folder, plan, televisions)


class Lines(Fixture):
    def test_fail_faulty_units_alone(self) -> None:
        faults = {
            "U03": ("--fault", "CMD_AUDIO_GETVOLUME error -5"),
            "U11": ("--fault", "CMD_SOURCE_GETTIMMINGINFO die before"),
        }
        units = {f"U{number:02}": self.television(*faults.get(f"U{number:02}", ())) for number in range(1, 17)}
        run = self.run_of(LINE, units)
        code, output = run.go("--html", "page.html")
        self.assertEqual(code, 1, output)
        self.assertIn("Line: 14 of 16 units passed (87.5 %)", output)
        verdicts = {(each["unit"], each["step"]): each["verdict"] for each in run.results()}
        self.assertEqual(len(verdicts), 16 * 7)
        self.assertEqual({key: verdict for key, verdict in verdicts.items() if verdict != "pass"}, {
            ("U03", "read volume"): "fail", ("U11", "picture size"): "fail",
            ("U11", "burn"): "left out", ("U11", "burned"): "left out"})
        suites = ElementTree.parse(run.folder / "line.run" / "junit.xml").getroot()
        self.assertEqual([suite.get("name") for suite in suites if suite.get("failures") != "0"], ["U03", "U11"])
        self.assert_measured(run.results())
        self.assertIn("87.5 %", (run.folder / "page.html").read_text(encoding="utf-8"))

    def assert_measured(self, results: list[dict[str, Any]]) -> None:
        measured = {each["step"]: each["measurements"] for each in results if each["unit"] == "U01"}
        self.assertEqual(measured["read volume"], [
            {"name": "result", "value": 35, "enumerator": None, "limit": {"low": 30, "high": 40, "unit": "%"},
             "verdict": "pass"}])
        language = measured["language"][0]
        self.assertEqual((language["value"], language["enumerator"]), (1, "KQ_LANG_ENGLISH"))
        self.assertEqual({each["name"]: each["value"] for each in measured["picture size"]}["height"], 576)

    def test_hold_back_what_is_wrong_before_a_unit_is_touched(self) -> None:
        television = self.television()
        run = self.run_of(LINE.replace('"allow": ["factory.setMacAddress"],', ""), {"A1": television})
        code, output = run.go()
        self.assertEqual((code, run.journal.exists()), (2, False))
        self.assertIn("line.py: step 6 'burn': factory.setMacAddress is dangerous", output)
        run = self.run_of(LINE, {"A1": television}, "page")
        code, output = run.go("--html", "nowhere/page.html")
        self.assertEqual((code, run.journal.exists()), (2, False))
        self.assertIn("--html nowhere/page.html: there is no directory nowhere", output)
        television.end()
        self.assertEqual(television.count("CMD_"), 0)

    def test_keep_a_unit_within_its_time(self) -> None:
        steps = [
            {"name": "slow", "call": "audio.getVolume", "arguments": ["speaker"], "timeout": 0.2},
            {"name": "quick", "call": "audio.getVolume", "arguments": ["headphone"]},
            {"name": "volume", "call": "audio.setVolume", "arguments": ["speaker", 35]},
            {"name": "changed", "wait": "volumeChanged"},
        ]
        slow = self.television("--fault", "CMD_AUDIO_GETVOLUME delay 3600s once")
        run = self.run_of(f"PLAN = {{'step': {steps!r}}}\n", {"A1": slow})
        code, output = run.go()
        self.assertEqual((code, [each["verdict"] for each in run.results()]), (1, ["fail", "pass", "pass", "pass"]), output)
        units = [{"serial": "A1", "runtime_dir": slow.runtime_dir, "limit": 0.000001}]
        run = self.run_of(f"PLAN = {{'step': {steps!r}, 'unit': {units!r}}}\n", {}, "limited")
        run.go()
        self.assertEqual(
            [each["reason"] for each in run.results()],
            ["the 1e-06 s of the unit are over", *["behind 'slow': fail"] * 3])

    def test_bound_each_step_by_what_is_left_of_the_unit(self) -> None:
        slow = self.television("--fault", "CMD_AUDIO_GETVOLUME delay 3600s once")
        steps = [
            {"name": "slow", "call": "audio.getVolume", "arguments": ["speaker"], "timeout": PATIENCE / 2},
            {"name": "quick", "call": "audio.getVolume", "arguments": ["headphone"]},
        ]
        units = [{"serial": "A1", "runtime_dir": slow.runtime_dir, "limit": 1}]
        run = self.run_of(f"PLAN = {{'step': {steps!r}, 'unit': {units!r}}}\n", {})
        code, output = run.go()
        self.assertEqual((code, [each["verdict"] for each in run.results()]), (1, ["fail", "fail"]), output)
        self.assertLess(run.results()[0]["seconds"], PATIENCE / 4)
        self.assertEqual(run.results()[1]["reason"], "the 1 s of the unit are over", output)

    def test_call_with_records_and_texts(self) -> None:
        steps = [
            {"name": "noise", "call": "audio.setNRAttr", "arguments": [{"onOff": True, "value": 2}]},
            {"name": "noise read", "call": "audio.getNRAttr", "limits": {"onOff": {"equals": True}, "value": {"equals": 2}}},
            {"name": "volume", "call": "audio.setVolume", "arguments": ["speaker", "35"]},
        ]
        run = self.run_of(f"PLAN = {{'step': {steps!r}}}\n", {"A1": self.television()})
        code, output = run.go()
        self.assertEqual(code, 0, output)

    def test_keep_snapshots_of_units_apart(self) -> None:
        """Serial numbers that differ only in a character that no file name can have."""
        golden = self.television()
        take = [os.environ["KELUTV_TOOL"], "snapshot", "--quiet", "-o", str(self.folder / "golden.json")]
        subprocess.run(take, env=golden.environment, check=True)
        serials = ("TV/1", "TV_1")
        steps = [{"name": "golden", "snapshot": "../golden.json"}]
        run = self.run_of(f"PLAN = {{'step': {steps!r}}}\n", {serial: self.television() for serial in serials})
        run.go()
        self.assertEqual(len(list((run.folder / "line.run" / "snapshots").iterdir())), len(serials))

    def test_end_the_step_under_way_when_interrupted(self) -> None:
        """Ctrl-C reaches all processes of the terminal."""
        take = [os.environ["KELUTV_TOOL"], "snapshot", "--quiet", "-o", str(self.folder / "golden.json")]
        subprocess.run(take, env=self.television().environment, check=True)
        for under_way in (
            {"name": "golden", "snapshot": "../golden.json", "settings": True},
            {"name": "read", "call": "audio.getVolume", "arguments": ["speaker"]},
        ):
            television = self.television("--fault", "CMD_AUDIO_GETVOLUME delay 300ms once")
            steps = [under_way, {"name": "volume", "call": "audio.setVolume", "arguments": ["speaker", 35]}]
            run = self.run_of(f"PLAN = {{'step': {steps!r}}}\n", {"A1": television}, under_way["name"])
            process = run.start()
            television.meet("CMD_")
            os.killpg(process.pid, signal.SIGINT)
            output, _ = process.communicate(timeout=PATIENCE)
            self.assertEqual((process.returncode, [each["verdict"] for each in run.results()]), (5, ["pass"]), output)

    def test_go_on_when_nobody_reads(self) -> None:
        process = self.run_of(LINE, {"A1": self.television()}).start()
        process.stdout.close()
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertIn("A1", (self.folder / "line" / "line.run" / "results.jsonl").read_text(encoding="utf-8"))

    def test_compare_with_a_golden_unit(self) -> None:
        """A third unit has no television."""
        golden, other = self.television(), self.television()
        tool = os.environ["KELUTV_TOOL"]
        take = [tool, "snapshot", "--quiet", "-o", str(self.folder / "golden.json")]
        subprocess.run(take, env=golden.environment, check=True)
        subprocess.run([tool, "set", "volume", "77"], env=other.environment, check=True, capture_output=True)
        plan = """PLAN = {'step': [{'name': 'golden', 'snapshot': '../golden.json', 'settings': True}]}"""
        run = self.run_of(plan, {"A1": golden, "A2": other})
        run.units += ["--unit", "A3=nowhere"]
        code, output = run.go()
        self.assertEqual((code, [each["verdict"] for each in run.results()]), (1, ["pass", "fail", "error"]), output)
        self.assertIn("audio.volume", run.results()[1]["reason"])
        self.assertIn("no television service", run.results()[2]["reason"])


class Gone:
    """A television that goes away once it has said something."""

    connecting = 0.0

    def connect(self, timeout: float) -> None:
        self.connecting = timeout

    def call(self, function: str, *arguments: Any, timeout: float | None = None) -> Any:
        """Does nothing."""

    def events(self) -> Gone:
        self._left = [kelutv.Event(0, b"")]
        return self

    def take(self, seconds: float) -> kelutv.Event | None:
        if self._left:
            return self._left.pop()
        raise kelutv.LinkLost("events", "the link is gone")

    def close(self) -> None:
        """It has gone."""


class Connections(unittest.TestCase):
    def test_say_what_ended_a_wait(self) -> None:
        ready = ready_with(VOLUME, {**CHANGED, "timeout": PATIENCE})
        equipment = Equipment(lambda unit: Gone(), Questions(lambda: None), Tool(), Path())
        performer = Performer(ready, ready.plan.units[0], equipment)
        self.addCleanup(performer.close)
        performer.perform(ready.plan.steps[0])
        self.assertEqual(
            performer.perform(ready.plan.steps[1]), Outcome(Verdict.FAIL, "events: the link is gone", ends_unit=True))

    def test_are_made_within_the_time_of_the_unit(self) -> None:
        ready, television = ready_with(VOLUME), Gone()
        equipment = Equipment(lambda unit: television, Questions(lambda: None), Tool(), Path())
        performer = Performer(ready, ready.plan.units[0], equipment)
        performer.perform(ready.plan.steps[0])
        self.assertEqual(television.connecting, 20)
        performer.perform(ready.plan.steps[0], 7)
        self.assertTrue(0 < television.connecting <= 7)

    def test_count_no_event_of_an_earlier_step(self) -> None:
        """It has come to the connection and waits there while the next step begins."""
        simulator = self.enterContext(kelutv.Simulator(messages=subprocess.DEVNULL))
        television = self.enterContext(simulator.television(PATIENCE, subprocess.DEVNULL))
        any_change = {"name": "changed", "wait": "volumeChanged", "timeout": 0.2}
        ready = ready_with(VOLUME, {**READ, "low": 0}, any_change)
        equipment = Equipment(lambda unit: television, Questions(lambda: None), Tool(), Path())
        performer = Performer(ready, ready.plan.units[0], equipment)
        performer.perform(ready.plan.steps[0])
        worker = television._remote._worker
        self.assertTrue(is_readable(worker.notices.fileno(), time.monotonic() + PATIENCE))
        outcomes = [performer.perform(step) for step in ready.plan.steps[1:]]
        self.assertEqual([outcome.verdict for outcome in outcomes], [Verdict.PASS, Verdict.FAIL], outcomes)

    def test_go_on_when_a_result_cannot_be_shown(self) -> None:
        ready, folder = ready_with(VOLUME, {**VOLUME, "name": "again"}), Path(self.enterContext(tempfile.TemporaryDirectory()))
        journal = Journal(folder / "journal.jsonl", ready.plan, resume=False)
        self.addCleanup(journal.close)
        equipment = Equipment(lambda unit: Gone(), Questions(lambda: None), Tool(), folder)
        with Station(ready, journal, equipment, Mock(side_effect=UnicodeEncodeError("utf-8", "x", 0, 1, "no"))) as station:
            self.assertTrue(station.wait(PATIENCE))
        self.assertEqual(list(journal.histories["A1"].results), ["volume", "again"])


class Resumed(Fixture):
    def test_leave_a_unit_that_was_ended_alone(self) -> None:
        """The station is gone before the steps behind are left out, by a crash or by the operator's `q`."""
        steps = [
            {"name": "volume", "call": "audio.setVolume", "arguments": ["speaker", 35], "stop": True},
            {"name": "changed", "wait": "volumeChanged"},
            {"name": "burn", "call": "factory.setMacAddress", "arguments": [[2, 0, 0, 1, 2, 3]]},
        ]
        television = self.television("--fault", "CMD_AUDIO_SETVOLUME error -5")
        run = self.run_of(f"PLAN = {{'allow': ['factory.setMacAddress'], 'step': {steps!r}}}\n", {"A1": television})
        run.go()
        before = run.results()
        run.journal.write_bytes(b"".join(run.journal.read_bytes().splitlines(keepends=True)[:3]))
        code, output = run.go("--resume")
        self.assertEqual((code, run.results()), (1, before), output)
        self.assertEqual([each["verdict"] for each in before], ["fail", "left out", "left out"])
        television.end()
        self.assertEqual((television.count("CMD_AUDIO_SETVOLUME"), television.count("CMD_FACTORY_SETMACADDRESS")), (1, 0))


class Crashes(Fixture):
    """Each request takes 20 ms to be answered, so that a kill meets steps under way."""

    def test_lose_nothing_and_repeat_nothing(self) -> None:
        units = {serial: self.television("--fault", "any delay 20ms") for serial in ("A1", "A2")}
        begun, ended = self.measure(self.run_of(ROUND.format(number=99), units, "whole"))
        seed = random.randrange(2**32)
        chance, runs, met = random.Random(seed), {}, 0
        while len(runs) < KILLS or (not met and len(runs) < MOST_KILLS):
            number = len(runs) + 1
            runs[number] = self.run_of(ROUND.format(number=number), units, f"round{number}")
            self.kill(runs[number], chance.uniform(begun * 0.8, ended))
            met += self.has_step_under_way(runs[number])
            code, output = runs[number].go(*["--resume"] * runs[number].journal.exists())
            self.assertIn(code, (0, 1), f"seed {seed}, round {number}: {output}")
        self.assertGreater(met, 0, f"seed {seed}: no kill met a step under way")
        for television in units.values():
            television.end()
        for number, run in runs.items():
            with self.subTest(seed=seed, round=number):
                self.assert_whole(run, number, units)

    def measure(self, run: Run) -> tuple[float, float]:
        """After how long a run writes its journal, and ends."""
        start, before = time.monotonic(), time.time()
        code, output = run.go()
        self.assertEqual(code, 0, output)
        whole, last = time.monotonic() - start, run.journal.stat().st_mtime - before
        took = sum(each["seconds"] for each in run.results() if each["unit"] == "A1")
        return max(last - took, 0.0), min(whole, last)

    def kill(self, run: Run, moment: float) -> None:
        process = run.start()
        try:
            process.wait(moment)
        except subprocess.TimeoutExpired:
            process.send_signal(signal.SIGKILL)
        process.communicate(timeout=PATIENCE)

    def has_step_under_way(self, run: Run) -> bool:
        """Whether a unit has begun a step that has not ended."""
        last: dict[str, bool] = {}
        for line in run.journal.read_text(encoding="utf-8").splitlines()[1:] if run.journal.exists() else []:
            with suppress(ValueError):
                document = json.loads(line)
                last[document.get("unit") or document["result"]["unit"]] = "begun" in document
        return any(last.values())

    def assert_whole(self, run: Run, number: int, units: dict[str, TracedTelevision]) -> None:
        results = run.results()
        expected = [(unit, step) for unit in units for step in ROUND_STEPS]
        self.assertEqual([(each["unit"], each["step"]) for each in results], expected)
        for result in results:
            unit, step, verdict = result["unit"], result["step"], result["verdict"]
            if step in ONCE:
                count = units[unit].count(ONCE[step].format(number=number))
                self.assertIn((verdict, count), [("pass", 1), ("unknown", 0), ("unknown", 1)], result)
            elif step == "changed":
                self.assertIn(verdict, ("pass", "unknown"), result)
            elif step == "burned":
                count = units[unit].count(ONCE["burn"].format(number=number))
                self.assertEqual(verdict, "pass" if count else "fail", result)
            else:
                self.assertEqual(verdict, "pass", result)


if __name__ == "__main__":
    unittest.main()
