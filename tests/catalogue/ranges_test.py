#!/usr/bin/env python3
"""What the tables say of numbers: range, unit, step and default, and what is not known of them."""

from __future__ import annotations

import unittest

from fixture import ROOT, CatalogueTest

from catalogue import describe
from model import ValueSet
from reader import read_catalogue

FORM = "LEAST..GREATEST [step NUMBER] [unit UNIT] [default NUMBER], with ? for what is not known"


class Ranges(CatalogueTest):
    def level(self, text: str) -> ValueSet:
        self.change("level=1..9", f"level={text}")
        return self.read().operation("Lamp::setLevel").values["level"]

    def test_everything_may_be_known(self) -> None:
        expected = ValueSet(low=-5, high=100, unit="percent", step=0.5, default=3)
        self.assertEqual(self.level("-5..100 step 0.5 unit percent default 3"), expected)

    def test_words_may_stand_in_any_order(self) -> None:
        self.assertEqual(self.level("0..8 default 2 unit s"), ValueSet(low=0, high=8, unit="s", default=2))

    def test_what_is_not_known(self) -> None:
        self.assertEqual(self.level("?..? step ? unit ms default ?"), ValueSet(unit="ms"))

    def test_one_end_may_be_known(self) -> None:
        level = self.level("1..?")
        self.assertEqual((level.low, level.high, level.bounded), (1, None, False))
        self.assertEqual([level.holds(value) for value in (0, 1, 10**6)], [False, True, True])

    def test_a_range_holds_its_ends(self) -> None:
        level = self.level("1..9")
        self.assertTrue(level.bounded)
        self.assertEqual([level.holds(value) for value in (0, 1, 9, 10)], [False, True, True, False])

    def test_it_is_shown(self) -> None:
        self.level("1..? step 0.5 unit ms default 4")
        shown = describe(self.read().operation("Lamp::setLevel"))
        self.assertIn("level: 1 to ? ms, in steps of 0.5, 4 by default", shown)

    def assert_bad(self, text: str, message: str) -> None:
        self.assert_complaint(self.change("level=1..9", f"level={text}"), message)

    def test_a_word_that_is_unknown_twice_or_without_a_value(self) -> None:
        row = "1..9"
        for text in ("1..9 units ms", "1..9 unit ms unit s", "1..9 step", "1..9 unit ms step", "1...9", "low..9"):
            line = self.change(f"level={row}", f"level={text}")
            self.assert_complaint(line, f"'{text}' is not {FORM}")
            row = text

    def test_a_step_that_is_no_number(self) -> None:
        self.assert_bad("1..9 step one", "'1..9 step one': step 'one' is not a number")

    def test_a_step_that_goes_nowhere(self) -> None:
        self.assert_bad("1..9 step 0", "range '1..9 step 0' has a step that is not above 0")

    def test_a_default_outside(self) -> None:
        self.assert_bad("1..9 default 10", "range '1..9 default 10' does not hold its default")

    def test_a_range_that_says_nothing(self) -> None:
        self.assert_bad("?..? unit ?", "range '?..? unit ?' says nothing, leave it out")


class Numbers(unittest.TestCase):
    def test_delays_are_in_milliseconds(self) -> None:
        catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
        for name in ("AVsync", "SPDIFOutputDelay"):
            self.assertEqual(catalogue.operation(f"Audio::set{name}").values["ms"], ValueSet(unit="ms"))
            self.assertEqual(catalogue.operation(f"Audio::get{name}").values["return"], ValueSet(unit="ms"))

    def test_a_gain_is_kept_in_thousandths(self) -> None:
        catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
        self.assertEqual(catalogue.operation("linux_tv_Factory_setAvcGain").values["value"].step, 0.001)


if __name__ == "__main__":
    unittest.main()
