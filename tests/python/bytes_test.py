"""Every function of the package sends the very bytes that the tool says of it."""

from __future__ import annotations

import json
import os
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [os.environ["KELUTV_PYTHON"], str(HERE), str(HERE.parent)]

from samples import arguments, functions  # noqa: E402
from support.television import PATIENCE, own_environment  # noqa: E402

TOOL = os.environ["KELUTV_TOOL"]
# Enough for every answer.
MOST_NUMBERS = 4096


def quoted(word: str) -> str:
    return f"'{word}'"


class BytesTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.environment = own_environment() | {
            "KQDROID_RUNTIME_DIR": str(self.folder / "runtime"),
            "PYTHONPATH": os.environ["KELUTV_PYTHON"],
            "PYTHONDONTWRITEBYTECODE": "1",
        }

    def expected(self) -> list[tuple[str, str]]:
        """Every request that the tool would send, with the function that sends it."""
        lines = [" ".join(["encode", row[0], *map(quoted, arguments(row)[1])]) for row in functions()]
        done = subprocess.run(
            [TOOL, "repl", "--json"], input="\n".join(lines), env=self.environment, capture_output=True, text=True,
            timeout=PATIENCE, check=False,
        )
        self.assertEqual(done.returncode, 0, done.stdout[-2000:] + done.stderr)
        documents = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual([each["function"] for each in documents], [row[0] for row in functions()])
        return [(each["function"], request) for each in documents for request in each["requests"]]

    def call_everything(self, *before: str) -> None:
        """Runs a Python program that calls all functions, behind a command that looks at it."""
        done = subprocess.run(
            [*before, sys.executable, "-B", str(HERE / "call_everything.py")], env=self.environment, capture_output=True,
            text=True, timeout=PATIENCE, check=False,
        )
        self.assertEqual((done.returncode, done.stdout), (0, ""), done.stderr[-3000:])

    def told_by(self, service: list[str], *before: str) -> list[str]:
        """The lines that a service prints while that program calls all functions."""
        with (self.folder / "printed").open("w+", encoding="utf-8") as printed:
            process = subprocess.Popen(service, env=self.environment, stdout=subprocess.PIPE, text=True)
            assert process.stdout is not None
            with process.stdout:
                self.assertIn("ready", process.stdout.readline())
                reader = threading.Thread(target=shutil.copyfileobj, args=(process.stdout, printed))
                reader.start()
                try:
                    self.call_everything(*before)
                finally:
                    process.terminate()
                    process.wait(PATIENCE)
                    reader.join(PATIENCE)
            printed.seek(0)
            return printed.read().splitlines()

    def sent(self) -> list[str]:
        """Every request to the simulated television, as the tool records it; the simulator tells of as many."""
        recording = self.folder / "recording.jsonl"
        printed = self.told_by([os.environ["KELUTV_SIMULATOR"], "--trace"], TOOL, "record", "-o", str(recording), "--")
        lines = [json.loads(line) for line in recording.read_text(encoding="utf-8").splitlines()]
        sent = [line["request"] for line in lines if "request" in line]
        self.assertEqual(sum(line.startswith("[") for line in printed), len(sent))
        return sent

    def sent_elsewhere(self, program: str) -> list[str]:
        """The same as a service prints it that is found in a folder and gives the same answer to everything."""
        self.environment["FOREIGN_FOLDER"] = str(self.folder)
        printed = self.told_by([program, "--answers", "00" * MOST_NUMBERS])
        return [line.split()[1] for line in printed if line.startswith("request ")]

    def test_every_function_sends_what_the_tool_says(self) -> None:
        foreign = os.environ.get("KELUTV_FOREIGN_SERVICE")
        expected, sent = self.expected(), self.sent_elsewhere(foreign) if foreign else self.sent()
        self.assertGreater(len(expected), 700)
        for index, (function, request) in enumerate(expected):
            self.assertEqual(sent[index : index + 1], [request], f"request {index}, by {function}")
        self.assertEqual(len(sent), len(expected))


if __name__ == "__main__":
    unittest.main()
