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
sys.path[:0] = [str(ROOT / "simulator"), str(ROOT / "tests" / "catalogue")]

import generate_dispatch  # noqa: E402
from torch_fixture import TorchTest  # noqa: E402


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

    def test_starts_with_the_signal_of_the_current_source(self) -> None:
        sources = {
            "KELU_TV_SRC_HDMI1": {"sourcemanager.signalStatus": 1},
            "KELU_TV_SRC_HDMI2": {"picture.hdrStreamType": "KELU_TV_HDR_TYPE_HDR10"},
        }
        modules = {"sourcemanager": {"curSource": {"initial": "KELU_TV_SRC_HDMI2"}}, "sources": sources}
        self.assertEqual(self.generate(json.dumps(modules)), (0, ""))
        table = self.table.read_text(encoding="utf-8")
        arrays = dict(re.findall(r"constexpr InitialValue (\w+)\[\] = \{(.*)\};", table))
        starts = dict(re.findall(r'^    \{"(\w+\.\w+)", "\w+", (\w+),', table, re.M))
        self.assertEqual(arrays[starts["picture.hdrStreamType"]], "{1, nullptr}")
        self.assertEqual(arrays[starts["sourcemanager.signalStatus"]], "{0, nullptr}")

    def test_refuses_signals_that_fit_no_state(self) -> None:
        self.assert_refused({"sources": {"KELU_TV_SRC_ATV": {"sourcemanager.smell": 1}}}, "sourcemanager.smell")
        sources = {"KELU_TV_SRC_ATV": {"video.mode3d": 1}, "KELU_TV_SRC_VGA": {"video.mode3d": [1, 2]}}
        self.assert_refused({"sources": sources}, "video.mode3d", "lengths")

    def test_refuses_names_that_the_headers_do_not_have(self) -> None:
        self.assert_refused({"sources": {"KELU_TV_SRC_HDMI9": {}}}, "KELU_TV_SRC_HDMI9")
        by_key = {"picture": {"picModeEnable": {"initial": {"KELU_TV_HDR_TYPE_SUPER": [1]}}}}
        self.assert_refused(by_key, "picture.picModeEnable", "KELU_TV_HDR_TYPE_SUPER")

    def test_refuses_a_source_in_an_unknown_place(self) -> None:
        self.assert_refused({"sourcemanager": {"curSource": {"source": "window"}}}, "sourcemanager.curSource", "source")

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


class Shapes(TorchTest):
    """What the rows of a small catalogue come to."""

    def table(self) -> str:
        self.write("defaults.json", "{}")
        return generate_dispatch.TableWriter(self.read(), self.folder / "defaults.json").write()

    def rows(self, name: str) -> list[str]:
        table = self.table()
        return re.findall(r"^    (\{.*\}),$", table[table.index(f"{name}[]") :].split("};")[0], re.M)

    def reply_of(self, command: str) -> str:
        (row,) = [row for row in self.rows("Command kCommands") if f'"{command}"' in row]
        (name,) = re.findall(r"kReplyField\w+", row)
        return re.search(rf"ReplyField {name}\[\] = \{{(.*)\}};", self.table())[1]

    def test_composed_methods_add_no_commands(self) -> None:
        self.assertEqual(len(self.rows("Command kCommands")), 19)

    def test_each_item_stands_once(self) -> None:
        keys = [tuple(row[1:].split(", ")[:2]) for row in self.rows("Item kItems")]
        self.assertEqual(keys, [("0x1002", "4097"), ("0x1003", "4098"), ("0x2000", "4097"), ("0x2001", "4098")])

    def test_rows_of_an_item_may_differ_in_names_but_not_in_what_is_kept(self) -> None:
        self.change_torch("timer[LAMP_LEFT]", "timer[0]")
        defaults = self.folder / "defaults.json"
        self.write("defaults.json", "{}")
        writer = generate_dispatch.TableWriter(self.read(), defaults)
        with self.assertRaisesRegex(generate_dispatch.GenerationError, "CMDID_LAMP_GET_TIMER differs from its row at"):
            writer.write()

    def test_a_count_leads_what_is_left(self) -> None:
        fields = self.reply_of("CMD_TORCH_GETPOINTS")
        self.assertEqual(fields, "{Kind::Int32, nullptr, nullptr, -2}, {Kind::Ints, nullptr, nullptr, -1}")

    def test_doubles_and_texts(self) -> None:
        self.assertEqual(self.reply_of("CMD_TORCH_GETCURVE"), "{Kind::Doubles, nullptr, nullptr, -1}")
        self.assertEqual(self.reply_of("CMD_TORCH_GETNAME"), "{Kind::CString, nullptr, nullptr, 1}")
        self.assertIn('{Kind::String16, "label", nullptr, -1}', self.table())
        self.assertIn('{Kind::Double, "gain", nullptr, -1}', self.table())

    def test_a_foreign_item_is_kept_by_the_module_of_its_command(self) -> None:
        self.assertIn('"lamp.timer", "lamp"', self.table())
        self.assertNotIn('"torch.timer"', self.table())


if __name__ == "__main__":
    unittest.main()
