"""The checks of what a person sees and does, with somebody who answers."""

from __future__ import annotations

import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2]))

from support.television import PATIENCE, Television  # noqa: E402

PROGRAM = os.environ["KELUTV_TOOL"]


class Person(unittest.TestCase):
    def setUp(self) -> None:
        self.television = self.enterContext(Television(os.environ["KELUTV_SIMULATOR"]))
        self.folder = self.enterContext(tempfile.TemporaryDirectory())

    def run_tool(self, *words: str, given: str = "") -> subprocess.CompletedProcess[str]:
        return subprocess.run(
            [PROGRAM, "--json", *words], env=self.television.environment, input=given, capture_output=True, text=True,
            timeout=PATIENCE, check=False, cwd=self.folder)

    def verdicts(self, output: str) -> dict[str, str]:
        documents = [json.loads(line) for line in output.splitlines()]
        return {each["id"]: each["verdict"] for each in documents if "id" in each}

    def test_is_asked_what_is_to_be_seen(self) -> None:
        run = self.run_tool("compliance", "person.factory.*", "--interactive", "--piped", given="y\nwhat?\nn\ns\n")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(self.verdicts(run.stdout), {
            "person.factory.setTestPattern.white": "passed",
            "person.factory.setTestPattern.black": "failed",
            "person.factory.setTestPattern.red": "left-out",
            "person.factory.setTestPattern.green": "left-out",
            "person.factory.setTestPattern.blue": "left-out",
            "state.television.unchanged": "passed",
        })
        self.assertEqual(run.stderr.count("Is the whole picture black? [y/n/s]"), 2)

    def unplugging(self, answered: str) -> str:
        """What becomes of the check when the simulated cable is taken out as it is asked for."""
        with subprocess.Popen(
            [PROGRAM, "--json", "compliance", "person.sourcemanager.hdmi1Unplugged", "--interactive", "--piped"],
            env=self.television.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            text=True, cwd=self.folder,
        ) as tool:
            assert tool.stdin is not None and tool.stderr is not None
            asked = ""
            while not asked.endswith("[y/n/s] "):
                character = tool.stderr.read(1)
                self.assertTrue(character, asked)
                asked += character
            self.assertEqual(self.run_tool("sim", "unplug hdmi1").returncode, 0)
            output, _ = tool.communicate(answered, timeout=PATIENCE)
        return self.verdicts(output)["person.sourcemanager.hdmi1Unplugged"]

    def test_does_what_an_event_tells_of(self) -> None:
        self.assertEqual(self.unplugging("y\n"), "passed")
        # It is out already, so that nothing happens.
        self.assertEqual(self.unplugging("y\n"), "failed")
        self.assertEqual(self.unplugging("n\n"), "left-out")

    def test_is_not_asked_on_a_pipe_without_being_told(self) -> None:
        run = self.run_tool("compliance", "person", "--interactive", given="y\n" * 20)
        self.assertEqual(run.returncode, 2)
        self.assertIn("--piped", json.loads(run.stderr)["error"]["message"])
        self.assertEqual(self.run_tool("compliance", "person").returncode, 2, "nobody is there")


if __name__ == "__main__":
    unittest.main()
