"""What the generator of the CEC devices makes of good and bad configurations."""

from __future__ import annotations

import contextlib
import io
import json
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "simulator"))

import generate_cec  # noqa: E402

DEVICE = {
    "logAddr": 4,
    "hdmiDevPort": 0,
    "name": 'A "disc"',
    "phyAddr": "1.0.0.0",
    "listText": "HDMI1",
    "plugged": True,
}


class GenerateCec(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.defaults = Path(folder.name) / "defaults.json"
        self.table = Path(folder.name) / "table.cpp"

    def generate(self, text: str) -> tuple[int, str]:
        """The exit code and what stands on standard error."""
        self.defaults.write_text(text, encoding="utf-8")
        command = ["generate_cec.py", str(self.table), "--defaults", str(self.defaults)]
        errors = io.StringIO()
        with mock.patch.object(sys, "argv", command), contextlib.redirect_stderr(errors):
            return generate_cec.main(), errors.getvalue()

    def assert_refused(self, cec: object, *words: str) -> None:
        code, errors = self.generate(json.dumps({"cec": cec}))
        self.assertEqual(code, 1)
        for word in ("defaults.json", *words):
            self.assertIn(word, errors)
        self.assertFalse(self.table.exists())

    def assert_device_refused(self, field: str, value: object) -> None:
        self.assert_refused({"arcPort": 1, "devices": [{**DEVICE, field: value}]}, field, str(value))

    def test_writes_every_device_and_the_port(self) -> None:
        self.assertEqual(self.generate(json.dumps({"cec": {"arcPort": 2, "devices": [DEVICE]}})), (0, ""))
        table = self.table.read_text(encoding="utf-8")
        self.assertIn(r'{4, 0, "A \"disc\"", "1.0.0.0", "HDMI1", true},', table)
        self.assertIn("cecArcPort() { return 2; }", table)

    def test_writes_a_table_without_devices(self) -> None:
        self.assertEqual(self.generate('{"cec": {"arcPort": 0, "devices": []}}'), (0, ""))
        self.assertIn("allCecDevices() { return {}; }", self.table.read_text(encoding="utf-8"))

    def test_refuses_devices_that_cannot_be(self) -> None:
        for address in (0, 15, -1, "4", True):
            self.assert_device_refused("logAddr", address)
        for port in (-1, "1"):
            self.assert_device_refused("hdmiDevPort", port)
        for address in ("1.0.0", "1.0.0.0.0", "1.0.0.g", ""):
            self.assert_device_refused("phyAddr", address)
        self.assert_device_refused("name", 7)
        self.assert_device_refused("plugged", 1)
        self.assert_device_refused("colour", "red")

    def test_refuses_an_address_that_is_there_twice(self) -> None:
        self.assert_refused({"arcPort": 1, "devices": [DEVICE, DEVICE]}, "twice")

    def test_refuses_other_shapes(self) -> None:
        self.assert_refused({"devices": []}, "arcPort")
        self.assert_refused({"arcPort": -1, "devices": []}, "arcPort", "-1")
        self.assert_refused([DEVICE], "arcPort")

    def test_refuses_what_is_not_json(self) -> None:
        code, errors = self.generate("{")
        self.assertEqual(code, 1)
        self.assertIn("defaults.json: Expecting", errors)


if __name__ == "__main__":
    unittest.main()
