#!/usr/bin/env python3
"""The reader as a program: check, list, exports, show."""

from __future__ import annotations

import contextlib
import io
import unittest

from fixture import CatalogueTest

import catalogue


class CommandLine(CatalogueTest):
    def run_with(self, *arguments: str) -> tuple[int, str, str]:
        folders = ["--catalogue", str(self.folder / "catalogue"), "--include", str(self.folder / "include")]
        out, err = io.StringIO(), io.StringIO()
        with contextlib.redirect_stdout(out), contextlib.redirect_stderr(err):
            code = catalogue.main([*folders, *arguments])
        return code, out.getvalue(), err.getvalue()

    def check_with(self, test: str) -> tuple[int, str, str]:
        self.write("tests/client/lamp_test.cpp", test)
        return self.run_with("check", "--tests", str(self.folder / "tests"))

    def test_check_is_content_with_a_test_for_every_irregular_row(self) -> None:
        code, out, err = self.check_with("// irregular: Lamp::setItem\n  // irregular: linux_tv_Lamp_getColor\n")
        self.assertEqual((code, err), (0, ""))
        self.assertEqual(out, "7 methods and 4 C functions are in order\n")

    def test_check_misses_the_test_of_an_irregular_row(self) -> None:
        code, _, err = self.check_with("// irregular: linux_tv_Lamp_getColor\n")
        self.assertEqual(code, 1)
        self.assertIn("lamp.md:21: Lamp::setItem is irregular, but no test under", err)

    def test_check_refuses_a_marker_that_names_nothing(self) -> None:
        code, _, err = self.check_with("// irregular: Lamp::setItem, linux_tv_Lamp_getColor, Lamp::setLvel\n")
        self.assertEqual(code, 1)
        self.assertIn("'Lamp::setLvel' is not an operation of the catalogue; the nearest is Lamp::setLevel", err)

    def test_check_refuses_the_marker_of_a_regular_row(self) -> None:
        markers = "// irregular: Lamp::setItem, linux_tv_Lamp_getColor\n// irregular: Lamp::setLevel\n"
        code, _, err = self.check_with(markers)
        self.assertEqual(code, 1)
        place = self.folder / "tests/client/lamp_test.cpp"
        row = self.folder / "catalogue/lamp.md"
        self.assertEqual(err, f"{place}:2: the marker is stale, Lamp::setLevel is a regular row at {row}:19\n")

    def test_check_shows_every_bad_row(self) -> None:
        self.change("CMD_LAMP_GETLEVEL", "CMD_LAMP_NONE")
        self.change("| lamp | Color |", "| lamp | Colour |")
        code, out, err = self.run_with("check")
        self.assertEqual((code, out), (1, ""))
        self.assertIn("lamp.md:20: unknown command 'CMD_LAMP_NONE'", err)
        self.assertIn("lamp.md:24: unknown reply type 'Colour'", err)

    def test_list(self) -> None:
        code, out, _ = self.run_with("list")
        self.assertEqual(code, 0)
        self.assertEqual(out.splitlines()[0], "Lamp::setLevel")
        self.assertEqual(out.splitlines()[-1], "linux_tv_Lamp_getColor")

    def test_list_may_be_asked_for_effects(self) -> None:
        code, out, _ = self.run_with("list", "--effect", "set", "--effect", "back")
        self.assertEqual(code, 0)
        backed = ["Lamp::setLevel", "Lamp::setColor", "linux_tv_Lamp_setLevel", "linux_tv_Lamp_setTimer"]
        self.assertEqual(out.splitlines(), backed)
        _, out, _ = self.run_with("list", "--effect", "dangerous")
        self.assertEqual(out.splitlines(), ["Lamp::setItem", "Lamp::setCurve"])

    def test_exports(self) -> None:
        code, out, _ = self.run_with("exports")
        self.assertEqual(code, 0)
        symbols = out.splitlines()
        self.assertIn("Lamp::setColor(int, Color const*)", symbols)
        self.assertIn("Lamp::instance()", symbols)
        self.assertIn("linux_tv_Lamp_getTimer", symbols)
        self.assertIn("android::TVBaseClient::exeCmdGet(int, int)", symbols)
        self.assertIn("android::Link::self()", symbols)

    def test_show(self) -> None:
        code, out, _ = self.run_with("show", "Lamp::setCurve")
        self.assertEqual(code, 0)
        self.assertIn("sends: length (int32), curve (doubles, length of them)", out)

    def test_show_suggests_the_nearest(self) -> None:
        code, _, err = self.run_with("show", "linux_tv_Lamp_getTime")
        self.assertEqual(code, 1)
        self.assertEqual(err, "no operation 'linux_tv_Lamp_getTime'; the nearest is linux_tv_Lamp_getTimer\n")


if __name__ == "__main__":
    unittest.main()
