"""The simulator and the tool, from Python."""

from __future__ import annotations

import json
import os
import tempfile
import unittest
import unittest.mock
from pathlib import Path

from package import PATIENCE, QUIET, SPEAKER, WithTelevision, kelutv
from kelutv import enums


class DrivingTest(WithTelevision):
    def test_sources_and_signals(self) -> None:
        hdmi = enums.KELU_TV_SRC_E.KELU_TV_SRC_HDMI1
        self.simulator.unplug("hdmi1")
        self.assertNotIn(hdmi, self.tv.sourcemanager.get_avail_source_list())
        self.simulator.plug("hdmi1")
        self.assertIn(hdmi, self.tv.sourcemanager.get_avail_source_list())
        self.simulator.signal("atv", "720p50")
        self.assertEqual(self.tv.sourcemanager.get_timing_info().height, 720)

    def test_keys_are_told(self) -> None:
        with self.tv.events(timeout=PATIENCE) as events:
            self.simulator.key("volume_up")
            event = next(events)
        self.assertEqual((event.name, event.fields["key"].value), ("keyUsed", 115))

    def test_states(self) -> None:
        self.simulator.set("audio.volume[speaker]", 41)
        self.assertEqual(self.simulator.get("audio.volume[speaker]"), [41])
        self.assertEqual(self.tv.audio.get_volume(SPEAKER), 41)

    def test_a_line_that_is_refused(self) -> None:
        with self.assertRaisesRegex(kelutv.SimulatorError, "plug bogus: source: 'bogus' is not one of"):
            self.simulator.plug("bogus")
        with self.assertRaisesRegex(ValueError, "line ends"):
            self.simulator.do("plug hdmi1\nplug hdmi2")

    def test_what_it_shows(self) -> None:
        self.assertIn(str(self.simulator.runtime_dir), repr(self.simulator))


class LifeOfASimulatorTest(unittest.TestCase):
    def test_its_folder_goes_with_it(self) -> None:
        with kelutv.Simulator(messages=QUIET) as simulator:
            folder = simulator.runtime_dir
            self.assertTrue(folder.is_dir())
        self.assertFalse(folder.exists())
        self.assertFalse(simulator.is_running)

    def test_what_keeps_it_from_starting(self) -> None:
        with self.assertRaisesRegex(kelutv.SimulatorError, "did not start, exit code 2"):
            kelutv.Simulator(faults=["nonsense"], messages=QUIET)
        with kelutv.Simulator(messages=QUIET) as first, self.assertRaisesRegex(kelutv.SimulatorError, "exit code 1"):
            kelutv.Simulator(runtime_dir=first.runtime_dir, messages=QUIET)

    def test_what_is_asked_when_it_has_gone(self) -> None:
        with kelutv.Simulator(messages=QUIET) as simulator:
            simulator.do("faults")
            simulator.kill()
            for _ in range(3):
                with self.assertRaisesRegex(kelutv.SimulatorError, "faults: no simulator answers|no simulator"):
                    simulator.do("faults")

    def test_a_simulator_that_says_more_at_once(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            program = Path(folder) / "kelutv-simulator"
            program.write_text("#!/bin/sh\nprintf 'kelutv-simulator: ready (TVBaseService)\\nscenario: ended\\n'\n")
            program.chmod(0o755)
            with unittest.mock.patch.dict(os.environ, KELUTV_SIMULATOR=str(program)):
                with kelutv.Simulator(messages=QUIET) as simulator:
                    self.assertEqual(simulator.wait(PATIENCE), 0)

    def test_a_scenario_to_its_end(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            scenario = Path(folder) / "short.scenario"
            scenario.write_text("unplug hdmi1\nat 1s plug hdmi1\n", encoding="utf-8")
            with kelutv.Simulator(scenario=scenario, speed=100, exit_at_end=True, messages=QUIET) as simulator:
                self.assertEqual(simulator.wait(PATIENCE), 0)
                with self.assertRaisesRegex(kelutv.SimulatorError, "no simulator"):
                    simulator.plug("hdmi1")

    def test_a_configuration_and_faults(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            config = Path(folder) / "tv.json"
            config.write_text(json.dumps({"audio": {"volume": {"initial": 9}}}), encoding="utf-8")
            with kelutv.Simulator(config=config, faults=["CMD_AUDIO_GETSOUNDMODE error -5"], messages=QUIET) as simulator:
                with simulator.television(PATIENCE, QUIET) as tv:
                    self.assertEqual(tv.audio.get_volume(SPEAKER), 9)
                    with self.assertRaises(kelutv.ServiceRefused):
                        tv.audio.get_sound_mode()


class ToolTest(WithTelevision):
    def test_snapshots_and_their_difference(self) -> None:
        tool = kelutv.Tool(self.simulator.runtime_dir, timeout=PATIENCE * 3)
        with tempfile.TemporaryDirectory() as folder:
            before, after = Path(folder) / "before.json", Path(folder) / "after.json"
            self.tv.audio.set_volume(SPEAKER, 20)
            tool.snapshot(before)
            self.tv.audio.set_volume(SPEAKER, 21)
            tool.snapshot(after)
            self.assertIn("volume", json.dumps(tool.snapshot_difference(before, after)))

    def test_recordings(self) -> None:
        tool = kelutv.Tool(self.simulator.runtime_dir, timeout=PATIENCE * 3)
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "recording.jsonl"
            tool.record(path, tool_path(), "get", "volume")
            self.assertIn("CMD_AUDIO_GETVOLUME", tool.run("recording", "show", str(path)))

    def test_compliance(self) -> None:
        tool = kelutv.Tool(self.simulator.runtime_dir, timeout=PATIENCE * 3)
        with tempfile.TemporaryDirectory() as folder:
            report = Path(folder) / "report.json"
            self.assertTrue(tool.compliance(report, "form.audio.getVolume*"))
            self.assertIn("form.audio.getVolume", report.read_text(encoding="utf-8"))
            self.simulator.fault("CMD_AUDIO_GETVOLUME short 4")
            self.assertFalse(tool.compliance(report, "form.audio.getVolume*"))
            with self.assertRaisesRegex(kelutv.ToolError, "exit code 2"):
                tool.compliance(report, "--nonsense")

    def test_a_command_that_fails(self) -> None:
        with self.assertRaises(kelutv.ToolError) as caught:
            kelutv.Tool(self.simulator.runtime_dir).run("call", "audio.setVolume", "speaker", "4711")
        self.assertEqual(caught.exception.code, 4)
        self.assertIn("value out of range", str(caught.exception))


def tool_path() -> str:
    from kelutv.tool import program

    return program("kelutv")


if __name__ == "__main__":
    unittest.main()
