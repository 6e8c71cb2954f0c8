#!/usr/bin/env python3
"""Which pairs there are for the states of a small catalogue, and what each getter must show."""

from __future__ import annotations

import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / folder) for folder in ("tests/catalogue", "wire/generator", "tests/simulator")]

from generate_pairs import PairTable  # noqa: E402
from torch_fixture import TorchTest  # noqa: E402

UNTOUCHED = "1515870810*"


class GeneratePairs(TorchTest):
    def text(self, module: str = "torch") -> str:
        catalogue = self.read()
        return PairTable(catalogue, catalogue.module(module)).source()

    def pairs(self, module: str = "torch") -> list[str]:
        return re.findall(r'^    \{"(\w+_then_\w+)", ', self.text(module), re.M)

    def shown(self, module: str = "torch") -> list[str]:
        return re.findall(r'\{call\d+, "(.*?)"\}', self.text(module))

    def test_every_set_with_every_get(self) -> None:
        pairs = self.pairs("lamp")
        self.assertEqual(len(pairs), 4)
        self.assertIn("linux_tv_Lamp_setLevel_then_Lamp_getLevel", pairs)

    def test_a_count_leads_what_was_set(self) -> None:
        self.assertIn("Torch_setPoints_then_Torch_getPoints", self.pairs())
        shown = f"result=0;points=[1001 1002 1003 1004 {UNTOUCHED}252];count=[4 {UNTOUCHED}255];"
        self.assertIn(shown, self.shown())

    def test_doubles_fill_as_much_as_is_asked_for(self) -> None:
        self.change("int setPoints(int* points", "int setPoints(double* points", "include/kelutv/Torch.h")
        self.change_torch("int setPoints(int* points", "int setPoints(double* points")
        self.change_torch("ints(points, length)", "doubles(points, length)")
        self.change_torch("points = points | set, back getPoints", "curve = points | set, back getCurve")
        self.change_torch("curve | curve | - | zero-or-fail | - |", "curve | curve | - | zero-or-fail | curve |")
        self.assertIn("result=0;curve=[1.25 2.25 3.25 4.25 -0.5*252];", self.shown())

    def test_texts_come_back_whole(self) -> None:
        self.assertIn("Torch_setTitle_then_Torch_title", self.pairs())
        self.assertIn("result=0;text=alpha;", self.shown())

    def test_an_irregular_getter_is_left_to_a_test_by_hand(self) -> None:
        self.change_torch("zero-or-fail | points | read | - | - | - |", "irregular | points | read | - | - | Own. |")
        self.assertNotIn("Torch_setPoints_then_Torch_getPoints", self.pairs())

    def test_a_key_out_of_the_getter_s_range(self) -> None:
        self.change("level[lamp] | read | lamp=LAMP_E | - |", "level[lamp] | read | lamp=200..300 | - |")
        self.assertEqual([pair for pair in self.pairs("lamp") if "Level" in pair], [])

    def test_the_setter_goes_for_a_key_that_the_getter_has_fixed(self) -> None:
        self.change("(LAMP_E lamp, int minutes) | set", "(int lamp, int minutes) | set")
        self.change("(LAMP_E lamp, int minutes)", "(int lamp, int minutes)", "include/kelutv/linux_lamp.h")
        self.change("int* pMinutes) | get(CMDID_LAMP_GET_TIMER, lamp)", "int* pMinutes) | get(CMDID_LAMP_GET_TIMER, 1)")
        self.change("timer[lamp] |", "timer[1] |")
        self.change("set, back linux_tv_Lamp_getTimer", "set")
        self.change("item[0] | timer[1] | read | - | - | - |", FIXED)
        self.assertIn("linux_tv_Lamp_setTimer(1, 22)", self.text("lamp"))


FIXED = "item[0] | timer[1] | read | - | - | The lamp does not count. |"


if __name__ == "__main__":
    unittest.main()
