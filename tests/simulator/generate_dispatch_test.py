"""What the generator of the command table makes of good and bad defaults."""

from __future__ import annotations

import contextlib
import io
import json
import re
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "simulator"))

import generate_dispatch  # noqa: E402


class GenerateDispatch(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.catalogue = generate_dispatch.read_catalogue(ROOT / "catalogue", ROOT / "include")

    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.defaults = Path(folder.name) / "defaults.json"
        self.table = Path(folder.name) / "table.cpp"

    def generate(self, defaults: str) -> tuple[int, str]:
        """The exit code and what stands on standard error."""
        self.defaults.write_text(defaults, encoding="utf-8")
        command = ["generate_dispatch.py", str(self.table), "--defaults", str(self.defaults)]
        errors = io.StringIO()
        with mock.patch.object(generate_dispatch, "read_catalogue", return_value=self.catalogue):
            with mock.patch.object(sys, "argv", command), contextlib.redirect_stderr(errors):
                return generate_dispatch.main(), errors.getvalue()

    def assert_refused(self, defaults: dict, *words: str) -> None:
        code, errors = self.generate(json.dumps(defaults))
        self.assertEqual(code, 1)
        for word in ("defaults.json", *words):
            self.assertIn(word, errors)
        self.assertFalse(self.table.exists())

    def test_writes_every_command_in_ascending_order(self) -> None:
        self.assertEqual(self.generate("{}"), (0, ""))
        table = self.table.read_text(encoding="utf-8")
        rows = table[table.index("kCommands[]") : table.index("kItems[]")]
        values = [int(value, 16) for value in re.findall(r", (0x[0-9A-F]+), (?:true|false)}", rows)]
        self.assertEqual(values, sorted({method.value for method in self.catalogue.methods}))

    def test_writes_what_the_television_starts_with(self) -> None:
        self.assertEqual(self.generate('{"audio": {"outputList": {"initial": ["a\\"b", 7]}}}'), (0, ""))
        self.assertIn(r'{{0, "a\"b"}, {7, nullptr}}', self.table.read_text(encoding="utf-8"))

    def test_refuses_a_state_that_the_catalogue_does_not_have(self) -> None:
        self.assert_refused({"audio": {"loudness": {"initial": 1}}}, "audio.loudness")
        self.assert_refused({"radio": {"volume": {"initial": 1}}}, "radio.volume")

    def test_refuses_an_unknown_setting(self) -> None:
        self.assert_refused({"audio": {"volume": {"begin": 1}}}, "audio.volume", "initial")
        self.assert_refused({"audio": {"volume": 1}}, "audio.volume", "initial")

    def test_refuses_values_that_are_neither_integers_nor_texts(self) -> None:
        self.assert_refused({"audio": {"volume": {"initial": [1, None]}}}, "audio.volume", "None")
        self.assert_refused({"audio": {"volume": {"initial": 0.5}}}, "audio.volume", "0.5")
        self.assert_refused({"audio": {"mute": {"initial": True}}}, "audio.mute", "True")

    def test_refuses_a_range_that_is_none(self) -> None:
        for bounds in ([100, 0], [0], [0, "100"]):
            self.assert_refused({"audio": {"volume": {"range": bounds}}}, "audio.volume", "LOWEST")

    def test_refuses_an_event_that_is_no_name(self) -> None:
        self.assert_refused({"audio": {"volume": {"event": "k1; }"}}}, "audio.volume", "event")

    def test_refuses_what_is_not_json(self) -> None:
        code, errors = self.generate("{")
        self.assertEqual(code, 1)
        self.assertIn("defaults.json: Expecting", errors)


if __name__ == "__main__":
    unittest.main()
