"""What the generator makes of good and bad catalogues."""

from __future__ import annotations

import contextlib
import io
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / folder) for folder in ("wire/generator", "tests/catalogue")]

import generate  # noqa: E402
from interface import InterfaceTables  # noqa: E402
from program import GenerationError  # noqa: E402
from torch_fixture import TorchTest  # noqa: E402
from vocabulary import Vocabulary  # noqa: E402


VALUES = "int, unsigned int, bool, double, char, unsigned char, an enumeration, a record"


class Generate(TorchTest):
    def setUp(self) -> None:
        super().setUp()
        self.written = self.folder / "written"

    def generate(self) -> tuple[int, str]:
        """The exit code and what stands on standard error."""
        folders = ["--catalogue", str(self.folder / "catalogue"), "--include", str(self.folder / "include")]
        self.written.mkdir()
        errors = io.StringIO()
        with contextlib.redirect_stderr(errors):
            return generate.main([*folders, str(self.written)]), errors.getvalue()

    def test_writes_every_command_in_ascending_order(self) -> None:
        self.change_torch("CMD_TORCH_SETTEXT | 0x2000", "CMD_TORCH_SETTEXT | 0x3000")
        self.change("CMD_TORCH_SETTEXT = 0x2000", "CMD_TORCH_SETTEXT = 0x3000", "include/kelutv/commands.h")
        self.assertEqual(self.generate(), (0, ""))
        table = (self.written / "interface.cpp").read_text(encoding="utf-8")
        rows = table[table.index("kCommands[]") : table.index("kItems[]")]
        commands = re.findall(r', (0x[0-9A-F]+), (?:true|false), "(\w+)"}', rows)
        lamp = [(value, "lamp") for value in range(0x1000, 0x1007)]
        torch = [(value, "torch") for value in [*range(0x2001, 0x200C), 0x3000]]
        self.assertEqual([(int(value, 16), module) for value, module in commands], lamp + torch)

    def test_tells_of_a_catalogue_that_is_wrong(self) -> None:
        line = self.change_torch("CMD_TORCH_SETTEXT | 0x2000", "CMD_TORCH_SETTEXT | 2000")
        code, errors = self.generate()
        place = self.folder / "catalogue/torch.md"
        self.assertEqual(code, 1)
        self.assertIn(f"{place}:{line}: value '2000' is not hexadecimal in the form 0x2008\n", errors)
        self.assertEqual(list(self.written.iterdir()), [])

    def assert_refused(self, place: str, line: int, message: str) -> None:
        self.assertEqual(self.generate(), (1, f"{self.folder / place}:{line}: {message}\n"))
        self.assertEqual(list(self.written.iterdir()), [])

    def test_says_where_a_parameter_or_a_result_has_no_form_in_memory(self) -> None:
        self.change("int TimerOf(int* pMinutes)", "int TimerOf(float* pMinutes)", "include/kelutv/torch.h")
        line = self.change_torch("int TimerOf(int* pMinutes)", "int TimerOf(float* pMinutes)")
        self.assert_refused("catalogue/torch.md", line, f"a value of type float is none of: {VALUES}")

    def test_says_where_a_field_has_no_form_in_memory(self) -> None:
        lines = (self.folder / "include/kelutv/commands.h").read_text(encoding="utf-8").splitlines()
        comment = "/* Two\nlines. */\n"
        self.change("typedef struct Grid {", comment + "typedef struct Grid {", "include/kelutv/commands.h")
        self.change("char names[2][3];", "char names[2][3];\n    long size;", "include/kelutv/commands.h")
        line = lines.index("typedef struct Grid {") + 1 + comment.count("\n")
        self.assert_refused("include/kelutv/commands.h", line, f"a value of type long is none of: {VALUES}")

    def test_says_where_a_block_has_no_known_end(self) -> None:
        line = self.change_torch("length, ints(points, length) | status", "ints(points, 3), length | status")
        message = "points is not the last item and its length is not sent"
        self.assert_refused("catalogue/torch.md", line, message)


class Shapes(TorchTest):
    """What the rows of a small catalogue come to."""

    def tables(self) -> InterfaceTables:
        catalogue = self.read()
        return InterfaceTables(catalogue, Vocabulary(catalogue))

    def table(self) -> str:
        return self.tables().source()

    def rows(self, name: str) -> list[str]:
        table = self.table()
        return re.findall(r"^    (\{.*\}),$", table[table.index(f"{name}[]") :].split("};")[0], re.M)

    def reply_of(self, command: str) -> str:
        (row,) = [row for row in self.rows("Command kCommands") if f'"{command}"' in row]
        (name,) = re.findall(r"kReplyField\w+", row)
        (rows,) = re.findall(rf"ReplyField {name}\[\] = \{{(.*?)\n\}};", self.table(), re.S)
        return " ".join(rows.split()).rstrip(",")

    def test_composed_methods_add_no_commands(self) -> None:
        self.assertEqual(len(self.rows("Command kCommands")), 19)

    def test_each_item_stands_once(self) -> None:
        keys = [tuple(row[1:].split(", ")[:2]) for row in self.rows("Item kItems")]
        self.assertEqual(keys, [("0x1002", "4097"), ("0x1003", "4098"), ("0x2000", "4097"), ("0x2001", "4098")])

    def test_rows_of_an_item_may_differ_in_names_but_not_in_what_is_kept(self) -> None:
        self.change_torch("timer[LAMP_LEFT]", "timer[0]")
        tables = self.tables()
        with self.assertRaisesRegex(GenerationError, "CMDID_LAMP_GET_TIMER differs from its row at"):
            tables.source()

    def test_a_count_leads_what_is_left(self) -> None:
        fields = self.reply_of("CMD_TORCH_GETPOINTS")
        self.assertEqual(fields, "{Encoding::Int32, nullptr, nullptr, -2}, {Encoding::Ints, nullptr, nullptr, -1}")

    def test_doubles_and_texts(self) -> None:
        self.assertRegex(self.reply_of("CMD_TORCH_GETCURVE"), r"^\{Encoding::Doubles, nullptr, nullptr, -1, kLengths\d+\}$")
        self.assertEqual(self.reply_of("CMD_TORCH_GETNAME"), "{Encoding::CString, nullptr, nullptr, 1}")
        self.assertIn('{Encoding::String16, "label", nullptr, -1}', self.table())
        self.assertIn('{Encoding::Double, "gain", nullptr, -1}', self.table())

    def test_a_foreign_item_is_kept_by_the_module_of_its_command(self) -> None:
        self.assertIn('"lamp.timer", "lamp"', self.table())
        self.assertNotIn('"torch.timer"', self.table())


if __name__ == "__main__":
    unittest.main()
