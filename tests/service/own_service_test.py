"""Services that are built on the base: the example, and a project that has just been written."""

from __future__ import annotations

import itertools
import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests"))

from support.television import PATIENCE, Television, own_environment  # noqa: E402

TOOL, EXAMPLE = os.environ["KELUTV_TOOL"], os.environ["KELUTV_EXAMPLE_SERVICE"]
COMPONENTS = ("runtime", "development", "platform", "platform_development")
REFUSED = 4
BUILD_PATIENCE = 120
RUN_PATIENCE = 100


class OwnService(unittest.TestCase):
    def serve(self, program: str) -> Television:
        return self.enterContext(Television(program))

    def ask(self, television: Television, *words: str) -> subprocess.CompletedProcess[str]:
        return subprocess.run(
            [TOOL, *words], env=television.environment, capture_output=True, text=True, timeout=PATIENCE, check=False
        )

    def output(self, television: Television, *words: str) -> str:
        run = self.ask(television, *words)
        self.assertEqual((run.returncode, run.stderr), (0, ""), words)
        return run.stdout

    def assert_refused(self, television: Television, result: str, *words: str) -> None:
        run = self.ask(television, *words)
        self.assertEqual(run.returncode, REFUSED, words)
        self.assertIn(f"the service answered {result}\n", run.stderr)


    def assert_complies(self, television: Television, *choice: str) -> str:
        """No check of the compliance run fails. Gives the line with the numbers of verdicts."""
        folder = self.enterContext(tempfile.TemporaryDirectory())
        run = subprocess.run(
            [TOOL, "compliance", *choice],
            cwd=folder,
            env=television.environment,
            capture_output=True,
            text=True,
            timeout=RUN_PATIENCE,
            check=False,
        )
        self.assertEqual(run.returncode, 0, run.stdout[-10_000:] + run.stderr)
        return run.stdout.splitlines()[-1]


class Example(OwnService):
    def setUp(self) -> None:
        self.television = self.serve(EXAMPLE)

    def test_gives_what_was_set(self) -> None:
        self.assertEqual(self.output(self.television, "get", "volume"), "20\n")
        self.output(self.television, "set", "volume", "35")
        self.output(self.television, "set", "sound-mode", "movie")
        self.assertEqual(self.output(self.television, "get", "volume", "sound-mode"), "volume 35\nsound-mode movie\n")

    def test_gives_lists_and_records(self) -> None:
        self.assertEqual(
            self.output(self.television, "call", "audio.getOutputList"), 'result: ["speaker", "headphone", "spdif"]\n'
        )
        self.output(self.television, "call", "audio.setDRCAttr", "intthrhd=20,intLimit=7")
        read = json.loads(self.output(self.television, "call", "audio.getDRCAttr", "--json"))
        self.assertEqual(read["outputs"], {"stDrcAttr": {"intthrhd": 20, "intLimit": 7}})

    def test_refuses_what_cannot_be(self) -> None:
        self.assert_refused(self.television, "-107, value out of range", "call", "audio.setVolume", "speaker", "101")
        self.assertEqual(self.output(self.television, "get", "volume"), "20\n")

    def test_refuses_what_is_not_the_sound(self) -> None:
        self.assert_refused(self.television, "-112, not provided", "call", "picture.getBrightness")

    def test_has_a_mute_key(self) -> None:
        for mute in ("on\n", "off\n"):
            self.output(self.television, "call", "audio.ModifyMute")
            self.assertEqual(self.output(self.television, "get", "mute"), mute)

    def test_tells_of_a_change(self) -> None:
        command = [TOOL, "monitor", "--event", "volumeChanged", "--count", "1", "--json", "--timeout", str(PATIENCE)]
        with subprocess.Popen(command, env=self.television.environment, stdout=subprocess.PIPE, text=True) as monitor:
            # One of the changes comes when it listens.
            for volume in itertools.cycle((35, 36)):
                self.output(self.television, "set", "volume", str(volume))
                if monitor.poll() is not None:
                    break
            event = json.loads(monitor.stdout.readline())
        self.assertEqual(event["name"], "volumeChanged")

    def test_complies(self) -> None:
        verdicts = self.assert_complies(self.television, "audio")
        self.assertNotRegex(verdicts, "[1-9][0-9]* failed|refused|inconclusive")

    def test_is_the_only_one(self) -> None:
        second = subprocess.run(
            [EXAMPLE], env=self.television.environment, capture_output=True, text=True, timeout=PATIENCE, check=False
        )
        self.assertEqual(second.returncode, 1)
        self.assertIn("tv-service: another process already serves TVBaseService\n", second.stderr)
        self.assertEqual(self.output(self.television, "get", "volume"), "20\n")


class Project(OwnService):
    """A project is built with what is installed, and refuses everything; where a build to be installed is named."""

    build = ""
    package = ""

    @classmethod
    def setUpClass(cls) -> None:
        cls.build, cls.package = os.environ["KELUTV_BUILD"], os.environ["KELUTV_CMAKE_PACKAGE"]

    def run_step(self, *command: str) -> None:
        run = subprocess.run(
            command, env=own_environment(), capture_output=True, text=True, timeout=BUILD_PATIENCE, check=False
        )
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)

    def test_refuses_everything(self) -> None:
        folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        for component in COMPONENTS:
            self.run_step("cmake", "--install", self.build, "--prefix", str(folder / "prefix"), "--component", component)
        project = folder / "my-tv"
        self.run_step(TOOL, "new-service", str(project), "--module", "audio")
        package = f"-Dkelutvbaseclient_DIR={folder / 'prefix' / self.package}"
        self.run_step("cmake", "-G", "Ninja", "-S", str(project), "-B", str(project / "build"), package)
        self.run_step("cmake", "--build", str(project / "build"))
        self.run_step("cmake", "--install", str(project / "build"), "--prefix", str(folder / "installed"))
        self.assertIn(
            "ExecStart=", (folder / "installed/lib/systemd/system/my-tv.service").read_text(encoding="utf-8")
        )
        self.assert_refuses(str(folder / "installed/bin/my-tv"))

    def assert_refuses(self, program: str) -> None:
        television = self.serve(program)
        self.assert_refused(television, "-112, not provided", "call", "audio.setVolume", "speaker", "35")
        self.assert_refused(television, "-112, not provided", "call", "picture.getBrightness")
        self.assertIn(" refused", self.assert_complies(television))
        self.assertEqual(television.end(), 0)


if __name__ == "__main__":
    unittest.main()
