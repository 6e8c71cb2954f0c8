"""Every function of the package sends the very bytes that the tool says of it."""

from __future__ import annotations

import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [os.environ["KELUTV_PYTHON"], str(HERE), str(HERE.parent)]

from samples import arguments, functions  # noqa: E402
from support.television import PATIENCE, own_environment  # noqa: E402

TOOL = os.environ["KELUTV_TOOL"]


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

    def sent(self) -> list[str]:
        """Every request that a Python program sends that calls them all."""
        recording = self.folder / "recording.jsonl"
        service = subprocess.Popen([os.environ["KELUTV_SERVICE"]], env=self.environment)
        try:
            done = subprocess.run(
                [TOOL, "record", "-o", str(recording), "--", sys.executable, "-B", str(HERE / "call_everything.py")],
                env=self.environment, capture_output=True, text=True, timeout=PATIENCE, check=False,
            )
        finally:
            service.kill()
            service.wait()
        self.assertEqual((done.returncode, done.stdout), (0, ""), done.stderr[-3000:])
        lines = [json.loads(line) for line in recording.read_text(encoding="utf-8").splitlines()]
        return [line["request"] for line in lines if "request" in line]

    def test_every_function_sends_what_the_tool_says(self) -> None:
        expected, sent = self.expected(), self.sent()
        self.assertGreater(len(expected), 700)
        for index, (function, request) in enumerate(expected):
            self.assertEqual(sent[index : index + 1], [request], f"request {index}, by {function}")
        self.assertEqual(len(sent), len(expected))


if __name__ == "__main__":
    unittest.main()
