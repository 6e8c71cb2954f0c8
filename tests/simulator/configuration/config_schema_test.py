"""The schema of configurations against the simulator: what the schema refuses the simulator refuses, too."""

from __future__ import annotations

import json
import os
import re
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from jsonschema import Draft202012Validator

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "catalogue"))

from reader import read_catalogue  # noqa: E402

DOCUMENT = ROOT / "docs" / "simulator.md"
PATIENCE = 60
DEVICE = {
    "logAddr": 11,
    "hdmiDevPort": 3,
    "name": "Second player",
    "phyAddr": "4.0.0.0",
    "listText": "HDMI4 Second player",
    "plugged": True,
}
GOOD = [
    {},
    {"$schema": "config.schema.json"},
    {"audio": {"volume": {"initial": 35, "range": [0, 50]}, "outputList": {"initial": ["speaker"]}}},
    {"audio": None, "factory": {"panelID": {"initial": "PANEL-43"}, "passWord": {"initial": {"0": "1234"}}}},
    {"picture": {"hdrStreamType": {"event": None}}},
    {"signals": {"wide": {"sourcemanager.timingInfo": [2560, 1080, 75, 0, 1, 0, 0, 0, 1]}}},
    {"sources": {"KELU_TV_SRC_VGA": None, "KELU_TV_SRC_HDMI4": {"signal": "1080p60", "plugged": False}}},
    {"sources": {"KELU_TV_SRC_HDMI1": {"signal": "pal", "video.mode3d": "KELU_TV_3DMODE_FP"}}},
    {"cec": {"arcPort": 2, "devices": [DEVICE]}},
    {"cec": {"devices": []}},
]
BAD = [
    [],
    {"volume": 35},
    {"audio": 35},
    {"audio": {"volume": 35}},
    {"audio": {"volume": {"begin": 35}}},
    {"audio": {"volume": {"initial": True}}},
    {"audio": {"volume": {"initial": [1, [2]]}}},
    {"audio": {"volume": {"initial": 2147483648}}},
    {"audio": {"volume": {"range": [1]}}},
    {"audio": {"volume": {"range": [1, 2, 3]}}},
    {"audio": {"volume": {"range": [0, "100"]}}},
    {"audio": {"volume": {"event": "changed"}}},
    {"audio": {"volume": {"source": "window"}}},
    {"signals": {"wide": {"timing": [1]}}},
    {"signals": {"wide": {"sourcemanager.signalStatus": 0.5}}},
    {"sources": {"HDMI1": {}}},
    {"sources": {"KELU_TV_SRC_HDMI1": "1080p60"}},
    {"sources": {"KELU_TV_SRC_HDMI1": {"plugged": 1}}},
    {"sources": {"KELU_TV_SRC_HDMI1": {"colour": "red"}}},
    {"cec": {"port": 1}},
    {"cec": {"arcPort": -1}},
    {"cec": {"devices": {}}},
    *({"cec": {"devices": [{**DEVICE, "logAddr": address}]}} for address in (0, 15, "4", True)),
    *({"cec": {"devices": [{**DEVICE, "phyAddr": address}]}} for address in ("1.0.0", "1.0.0.0.0", "1.0.0.g", "")),
    {"cec": {"devices": [{**DEVICE, "hdmiDevPort": -1}]}},
    {"cec": {"devices": [{**DEVICE, "name": 7}]}},
    {"cec": {"devices": [{**DEVICE, "colour": "red"}]}},
    {"cec": {"devices": [{"logAddr": 4}]}},
]


class ConfigSchema(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.schema = json.loads((ROOT / "simulator" / "configuration" / "config.schema.json").read_text(encoding="utf-8"))
        cls.validator = Draft202012Validator(cls.schema)

    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def start(self, configuration: object) -> subprocess.Popen[str]:
        path = self.folder / "config.json"
        path.write_text(json.dumps(configuration), encoding="utf-8")
        program = [*os.environ.get("KELUTV_EMULATOR", "").split(), os.environ["KELUTV_SIMULATOR"]]
        return subprocess.Popen(
            [*program, "--config", str(path)],
            env={**os.environ, "KQDROID_RUNTIME_DIR": str(self.folder)},
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        )

    def test_is_a_schema(self) -> None:
        Draft202012Validator.check_schema(self.schema)

    def test_takes_the_defaults(self) -> None:
        defaults = json.loads((ROOT / "simulator" / "configuration" / "defaults.json").read_text(encoding="utf-8"))
        self.validator.validate(defaults)

    def test_knows_every_module(self) -> None:
        catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
        modules = {operation.method.module for operation in catalogue.operations if operation.state}
        self.assertEqual(set(self.schema["properties"]), modules | {"$schema", "signals", "sources", "cec"})

    def test_both_take_what_is_good(self) -> None:
        (documented,) = re.findall(r"```json\n(.*?)```", DOCUMENT.read_text(encoding="utf-8"), re.S)
        for sample in [*GOOD, json.loads(documented)]:
            with self.subTest(sample=sample), self.start(sample) as simulator:
                self.validator.validate(sample)
                ready = simulator.stdout.readline()
                simulator.send_signal(signal.SIGTERM)
                _, errors = simulator.communicate(timeout=PATIENCE)
                self.assertEqual((ready, errors), ("kelutv-simulator: ready (TVBaseService)\n", ""))

    def test_both_refuse_what_is_bad(self) -> None:
        for sample in BAD:
            with self.subTest(sample=sample), self.start(sample) as simulator:
                self.assertFalse(self.validator.is_valid(sample))
                output, errors = simulator.communicate(timeout=PATIENCE)
                self.assertEqual((simulator.returncode, output), (2, ""))
                self.assertTrue(errors.startswith(f"kelutv-simulator: {self.folder}/config.json: "), errors)


if __name__ == "__main__":
    unittest.main()
