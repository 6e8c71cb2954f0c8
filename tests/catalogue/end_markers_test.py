#!/usr/bin/env python3
"""The end markers of enumerations: what is marked, and what the reader makes of a doubtful enumerator."""

from __future__ import annotations

import unittest

from fixture import CatalogueTest

FILE = "catalogue/enumerations.md"
HEADER = "include/kelutv/commands.h"
MARKER = "| LAMP_E | LAMP_BUTT |"
VALUES = "\n\n## Values that look like end markers\n\n| enumeration | value |\n|---|---|\n"


class EndMarkers(CatalogueTest):
    def test_a_marker_stays_an_enumerator_but_is_no_real_value(self) -> None:
        lamp = self.read().headers.enumerations["LAMP_E"]
        self.assertEqual(lamp.end_markers, ("LAMP_BUTT",))
        self.assertEqual(lamp.values, {"LAMP_LEFT": 0, "LAMP_RIGHT": 1, "LAMP_BUTT": 2})
        self.assertEqual(lamp.real_values, {"LAMP_LEFT": 0, "LAMP_RIGHT": 1})
        self.assertEqual(self.read().headers.enumerator("LAMP_BUTT"), 2)

    def test_a_range_may_have_one_too(self) -> None:
        self.change("LAMP_RIGHT = 1,", "LAMP_RIGHT = 1,\n    LAMP_SIDE_MAX = 1,", HEADER)
        self.change(MARKER, f"{MARKER}\n| LAMP_E | LAMP_SIDE_MAX |", FILE)
        self.assertEqual(set(self.read().headers.enumerations["LAMP_E"].real_values), {"LAMP_LEFT", "LAMP_RIGHT"})

    def test_what_looks_like_one_stands_in_a_table(self) -> None:
        names = [f"LAMP_FAR_{end}" for end in ("BUTT", "MAX", "NUM", "COUNT", "TOTAL", "END", "LAST", "BUTT_Color")]
        self.change("LAMP_RIGHT = 1,", "LAMP_RIGHT = 1, " + "".join(f"{name} = 3, " for name in names), HEADER)
        place = f"{self.folder / FILE}:1: LAMP_E: "
        expected = [f"{place}{n} looks like an end marker, but no table of enumerations.md names it" for n in names]
        self.assertEqual(self.complaints(), expected)

    def test_a_value_may_look_like_one(self) -> None:
        self.change("LAMP_RIGHT = 1,", "LAMP_RIGHT = 1, LAMP_ORDER_NUM = 3,", HEADER)
        self.change(MARKER, f"{MARKER}{VALUES}| LAMP_E | LAMP_ORDER_NUM |", FILE)
        self.assertIn("LAMP_ORDER_NUM", self.read().headers.enumerations["LAMP_E"].real_values)

    def test_a_value_that_looks_like_none(self) -> None:
        line = self.change(MARKER, f"{MARKER}{VALUES}| LAMP_E | LAMP_LEFT |", FILE)
        self.assert_complaint(line + 6, "'LAMP_LEFT' does not look like an end marker", FILE)

    def test_an_unknown_enumeration(self) -> None:
        line = self.change(MARKER, "| LUMP_E | LAMP_BUTT |", FILE)
        self.assert_complaint(line, "'LUMP_E' is not an enumeration of the public headers", FILE)

    def test_an_enumerator_of_another_enumeration(self) -> None:
        line = self.change(MARKER, "| LAMP_E | CMD_LAMP_GETLEVEL |", FILE)
        self.assert_complaint(line, "'CMD_LAMP_GETLEVEL' is not an enumerator of LAMP_E", FILE)

    def test_one_that_stands_twice(self) -> None:
        line = self.change(MARKER, f"{MARKER}\n{MARKER}", FILE)
        self.assert_complaint(line + 1, "'LAMP_BUTT' stands twice", FILE)


if __name__ == "__main__":
    unittest.main()
