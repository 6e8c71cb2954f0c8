"""What recordings are converted to is read by those for whom it is made: a packet viewer's rules, JSON, the simulator."""

from __future__ import annotations

import json
import os
import struct
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "tests"))

from support.television import PATIENCE, Television  # noqa: E402

TOOL, SIMULATOR = os.environ["KELUTV_TOOL"], os.environ["KELUTV_SIMULATOR"]
CHANGES = """\
set audio.volume[speaker] = 41
set audio.maxVolume[speaker] = 88
set factory.panelID = "PANEL \\"7\\""
set sourcemanager.curSource[0] = hdmi2
set systemsetting.menuLanguage = german
"""
#Read, refuse, change behind the program's back, tell of something, set.
SCRIPT = """\
get volume
sim fault CMD_AUDIO_GETVOLUME error -5 once
get volume
sim set audio.volume[speaker] = 77
get volume
sim event 0x6FF01 0a0b
set volume 12
"""


class Converted(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def run_tool(self, television: Television, *words: str, given: str = "") -> subprocess.CompletedProcess[str]:
        return subprocess.run([TOOL, *words], env=television.environment, input=given, capture_output=True, text=True,
                              timeout=PATIENCE)

    def record(self, television: Television, *program: str, given: str = "") -> list[dict]:
        file = self.folder / "recording.jsonl"
        run = self.run_tool(television, "record", "--events", "-o", str(file), "--", *program, given=given)
        self.assertIn(" recorded in ", run.stderr)
        return [json.loads(line) for line in file.read_text(encoding="utf-8").splitlines()]

    def record_with_events(self, television: Television, count: int, given: str) -> None:
        """Records the interactive tool, which is told what is given and ends when as many events are recorded."""
        file = self.folder / "recording.jsonl"
        command = [TOOL, "record", "--events", "-o", str(file), "--", TOOL, "repl"]
        with subprocess.Popen(command, env=television.environment, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, text=True) as recorder:
            self.addCleanup(recorder.kill)
            recorder.stdin.write(given)
            recorder.stdin.flush()
            self.wait_for_events(file, count)
            self.assertIn(" recorded in ", recorder.communicate(timeout=PATIENCE)[1])

    def wait_for_events(self, file: Path, count: int) -> None:
        deadline = time.monotonic() + PATIENCE
        while not file.exists() or file.read_text(encoding="utf-8").count('"kind":"event"') < count:
            self.assertLess(time.monotonic(), deadline, f"{count} events are not in {file}")
            time.sleep(0.01)

    def converted(self, form: str) -> Path:
        file = self.folder / form
        subprocess.run([TOOL, "recording", "convert", str(self.folder / "recording.jsonl"), "--to", form, "-o", str(file)],
                       check=True, timeout=PATIENCE)
        return file

    def test_a_config_gives_the_television_that_was_recorded(self) -> None:
        def calls(television: Television) -> list[tuple[str, str]]:
            lines = self.record(television, TOOL, "doctor", "--event", "0")
            return [(line["request"], line["reply"]) for line in lines if line["kind"] == "transaction"]

        with Television(SIMULATOR) as first:
            asked = calls(first)
            run = self.run_tool(first, "sim", "-", given=CHANGES)
            self.assertEqual((run.returncode, run.stderr), (0, ""))
            changed = calls(first)
        self.assertGreater(len([pair for pair in zip(asked, changed, strict=True) if pair[0] != pair[1]]), 4)
        with Television(SIMULATOR, "--config", str(self.converted("config"))) as second:
            self.assertEqual(calls(second), changed)

    def test_a_scenario_does_what_nobody_asked_for(self) -> None:
        with Television(SIMULATOR) as television:
            self.record_with_events(television, 3, SCRIPT)
        scenario = self.converted("scenario")
        lines = scenario.read_text(encoding="utf-8").splitlines()
        self.assertIn("fault CMD_AUDIO_GETVOLUME nth 2 error -5", lines)
        steps = [line.split(maxsplit=2)[2] for line in lines if line.startswith("at ")]
        self.assertIn("set audio.volume[0] = 77", steps)
        self.assertIn("event 0x6FF01 0a0b", steps)
#The events of these two changes would come twice.
        self.assertNotIn("event 0x60001 000000004d000000", steps)
        self.assertNotIn("event 0x60001 000000000c000000", steps)
        played = subprocess.run([SIMULATOR, "--scenario", str(scenario), "--speed", "100", "--exit-at-end"],
                                env={**television.environment, "KQDROID_RUNTIME_DIR": str(self.folder / "runtime")},
                                capture_output=True, text=True, timeout=PATIENCE)
        self.assertEqual(played.returncode, 0, played.stderr)

    def test_packets_hold_every_byte(self) -> None:
        with Television(SIMULATOR) as television:
            lines = self.record(television, TOOL, "repl", given=SCRIPT)
        content = self.converted("pcapng").read_bytes()
        packets, at = [], 0
        kinds = []
        while at < len(content):
            kind, length = struct.unpack_from("=II", content, at)
            self.assertEqual(length % 4, 0)
            self.assertEqual(struct.unpack_from("=I", content, at + length - 4), (length,))
            kinds.append(kind)
            if kind == 6:
                interface, high, low, captured, original = struct.unpack_from("=5I", content, at + 8)
                self.assertEqual(captured, original)
                packets.append((interface, high << 32 | low, content[at + 28 : at + 28 + captured]))
            at += length
        self.assertEqual(kinds[:3], [0x0A0D0D0A, 1, 1])
        self.assertEqual(content[8:12], struct.pack("=I", 0x1A2B3C4D))
        expected: list[tuple[int, bytes]] = []
        for line in lines:
            if line["kind"] == "transaction":
                expected += [(0, bytes.fromhex(line["request"])), (0, bytes.fromhex(line["reply"]))]
            elif line["kind"] == "event":
                expected.append((1, struct.pack("=I", line["event"]) + bytes.fromhex(line["payload"])))
        self.assertEqual([(interface, data) for interface, _, data in packets], expected)
        seconds = packets[0][1] / 1e9
        self.assertLess(abs(seconds - (self.folder / "recording.jsonl").stat().st_mtime), PATIENCE)

    def test_spans_are_as_long_as_calls(self) -> None:
        with Television(SIMULATOR) as television:
            lines = self.record(television, TOOL, "repl", given=SCRIPT)
        events = json.loads(self.converted("trace-event").read_text(encoding="utf-8"))["traceEvents"]
        calls = [line for line in lines if line["kind"] == "transaction"]
        spans = [event for event in events if event["ph"] == "X"]
        self.assertEqual([span["name"] for span in spans], [call["decoded"]["request"]["command"] for call in calls])
        for span, call in zip(spans, calls, strict=True):
            self.assertAlmostEqual(span["ts"], call["time"] / 1000, places=3)
            self.assertAlmostEqual(span["dur"], call["duration"] / 1000, places=3)
            self.assertEqual((span["pid"], span["tid"]), (call["process"], call["thread"]))
        moments = [event["name"] for event in events if event["ph"] == "i"]
        self.assertEqual(len(moments), len([line for line in lines if line["kind"] == "event"]))

    def test_another_form_is_refused(self) -> None:
        run = subprocess.run([TOOL, "recording", "convert", "-", "--to", "pcap"], stdin=subprocess.DEVNULL,
                             capture_output=True, text=True, timeout=PATIENCE)
        self.assertEqual(run.returncode, 2)
        self.assertIn("--to takes config, pcapng, scenario, trace-event, not 'pcap'", run.stderr)


if __name__ == "__main__":
    unittest.main()
