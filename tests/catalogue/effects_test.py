#!/usr/bin/env python3
"""The column `effect`: its grammar, what a forwarder takes over, and what a getter must read to put a set back."""

from __future__ import annotations

import unittest

from torch_fixture import TORCH_FILE, TorchTest

from catalogue import describe
from effects import has_effect
from model import Effect

SET_LEVEL = "set, back getLevel, kept"
SET_TIMER = "set, back linux_tv_Lamp_getTimer"
OTHER_STATE = "which does not read with the same keys the state that"


class Good(TorchTest):
    def effect(self, name: str) -> Effect:
        return self.read().operation(name).effect

    def test_every_word_is_read(self) -> None:
        self.assertEqual(self.effect("Lamp::setLevel"), Effect("set", "Lamp::getLevel", True, False))
        self.assertEqual(self.effect("Lamp::setCurve"), Effect("action", None, False, True))
        self.assertEqual(self.effect("Lamp::getLevel"), Effect("read", None, None, False))
        self.assertEqual(self.effect("linux_tv_Lamp_getColor"), Effect("print-only", None, None, False))

    def test_words_may_stand_in_any_order(self) -> None:
        self.change(SET_LEVEL, "set, dangerous, not kept, back getLevel")
        self.assertEqual(self.effect("Lamp::setLevel"), Effect("set", "Lamp::getLevel", False, True))

    def test_a_getter_may_be_of_another_class(self) -> None:
        self.change(SET_LEVEL, "set, back Lamp::getLevel")
        self.assertEqual(self.effect("Lamp::setLevel").back, "Lamp::getLevel")

    def test_a_forwarder_has_the_effect_of_what_it_calls(self) -> None:
        for name in ("linux_tv_Lamp_setLevel", "Torch::beam", "Shine"):
            self.assertEqual(self.effect(name), Effect("set", "Lamp::getLevel", True, False), name)
        self.assertEqual(self.effect("TitleOf").kind, "read")

    def test_a_forwarder_may_have_one_of_its_own(self) -> None:
        self.change_torch("beam(level) | - | same | - | - | -", "beam(level) | - | same | - | - | action, dangerous")
        self.assertEqual(self.effect("Shine"), Effect("action", None, None, True))

    def test_a_forwarder_of_a_fixed_value_puts_nothing_back(self) -> None:
        self.change_torch("(LAMP_RIGHT, level)", "(LAMP_RIGHT, 3)")
        self.change_torch("level=20..30 | - | - |", "level=20..30 | - | Shines at 3 always. |")
        self.assertEqual(self.effect("Torch::beam"), Effect("set", None, True, False))

    def test_an_item_is_put_back_by_the_item_that_reads_it(self) -> None:
        self.assertEqual(self.effect("linux_tv_Lamp_setTimer").back, "linux_tv_Lamp_getTimer")

    def test_several_calls_vouch_for_themselves(self) -> None:
        calls, effect = "Lamp::getLevel then Lamp::setLevel", "set, back linux_tv_Lamp_getColor"
        row = f"{calls} | - | irregular | - | - | {effect} | - | - | Twice. |"
        self.change("Lamp::setLevel(lamp, level) | - | same | - | - | - | - | - | - |", row)
        self.change("| print-only |", "| read |")
        self.assertEqual(self.effect("linux_tv_Lamp_setLevel").back, "linux_tv_Lamp_getColor")

    def test_it_is_shown(self) -> None:
        catalogue = self.read()
        shown = describe(catalogue.operation("linux_tv_Lamp_setLevel"))
        self.assertIn("effect: set, put back by what Lamp::getLevel reads, kept beyond power off", shown)
        shown = describe(catalogue.operation("Lamp::setCurve"))
        self.assertIn("effect: action, not kept beyond power off, dangerous", shown)

    def test_it_can_be_asked_for(self) -> None:
        effect = Effect("set", "Lamp::getLevel", False, True)
        held = [word for word in ("read", "set", "action", "print-only", "back", "kept", "dangerous")
                if has_effect(effect, word)]
        self.assertEqual(held, ["set", "back", "dangerous"])


class Bad(TorchTest):
    def assert_bad(self, old: str, new: str, message: str) -> None:
        self.assert_complaint(self.change(old, new), message)

    def test_an_unknown_kind(self) -> None:
        message = "effect 'change' is not one of: read, set, action, print-only"
        self.assert_bad(SET_LEVEL, "change, kept", message)

    def test_an_unknown_word(self) -> None:
        words = "set may have, once each: 'back GETTER', 'kept' or 'not kept', 'dangerous'"
        message = f"effect 'set, harmless': 'harmless' does not fit; {words}"
        self.assert_bad(SET_LEVEL, "set, harmless", message)

    def test_a_word_twice(self) -> None:
        row = SET_LEVEL
        for twice in ("kept, not kept", "dangerous, dangerous", "back getLevel, back getLevel"):
            self.change(row, row := f"set, {twice}")
            self.assertIn(f"effect 'set, {twice}': '{twice.split(', ')[1]}' does not fit", "\n".join(self.complaints()))

    def test_a_read_is_never_dangerous(self) -> None:
        message = "effect 'read, dangerous': 'dangerous' does not fit; nothing follows read"
        self.assert_bad("level[lamp] | read", "level[lamp] | read, dangerous", message)

    def test_an_action_is_not_put_back(self) -> None:
        words = "action may have, once each: 'kept' or 'not kept', 'dangerous'"
        message = f"effect 'action, back getLevel': 'back getLevel' does not fit; {words}"
        self.assert_bad(SET_LEVEL, "action, back getLevel", message)

    def test_no_effect_where_nothing_is_called(self) -> None:
        message = "effect '-' belongs to an operation that only forwards to another one"
        self.assert_bad(SET_LEVEL, "-", message)
        self.assert_bad("| print-only |", "| - |", message)
        self.assert_bad("timer[lamp] | read", "timer[lamp] | -", message)

    def test_what_the_callee_says_already(self) -> None:
        line = self.change_torch("TitleOf(char* text) | Torch::title(text) | - | same | - | - | -",
                                 "TitleOf(char* text) | Torch::title(text) | - | same | - | - | read")
        self.assert_complaint(line, "effect 'read' is that of Torch::title, write -", TORCH_FILE)

    def test_a_getter_that_is_not_there(self) -> None:
        message = "back names Lamp::getLvel, which is not in the catalogue; the nearest is Lamp::getLevel"
        self.assert_bad(SET_LEVEL, "set, back getLvel", message)

    def test_a_getter_that_does_not_read(self) -> None:
        message = "back names Lamp::setCurve, whose effect is action, not read"
        self.assert_bad(SET_LEVEL, "set, back setCurve", message)

    def test_a_getter_of_another_state(self) -> None:
        message = f"back names Lamp::getColor, {OTHER_STATE} Lamp::setLevel stores"
        self.assert_bad(SET_LEVEL, "set, back getColor", message)

    def test_a_getter_with_another_key(self) -> None:
        self.change("timer[lamp] | read", "timer[LAMP_LEFT] | read")
        line = self.change(SET_TIMER, SET_TIMER)
        message = f"back names linux_tv_Lamp_getTimer, {OTHER_STATE} linux_tv_Lamp_setTimer stores"
        self.assert_complaint(line, message)

    def test_a_getter_that_asks_for_more(self) -> None:
        self.change("level[lamp] = level", "level = level")
        line = self.change("level[lamp] | read", "level | read")
        self.change("int getLevel(int lamp)", "int getLevel(int light)")
        self.change("| lamp | value |", "| light | value |")
        self.change("read | lamp=LAMP_E", "read | light=LAMP_E")
        self.change("int getLevel(int lamp)", "int getLevel(int light)", "include/kelutv/Lamp.h")
        self.assert_complaint(line - 1, f"back names Lamp::getLevel, {OTHER_STATE} Lamp::setLevel stores")

    def test_a_part_that_is_worked_out_and_not_stored(self) -> None:
        self.change("CMDID_LAMP_SET_TIMER, lamp, minutes)", "CMDID_LAMP_SET_TIMER, lamp, computed)")
        self.change("timer[lamp] = minutes", "timer[lamp] = 1")
        line = self.change(f"{SET_TIMER} | - | - | -", f"{SET_TIMER} | - | - | Doubles the minutes.")
        message = f"back names linux_tv_Lamp_getTimer, {OTHER_STATE} linux_tv_Lamp_setTimer stores"
        self.assert_complaint(line, message)

    def test_a_getter_of_another_module(self) -> None:
        line = self.change_torch("title = name | set, back title", "title = name | set, back timer")
        self.assert_complaint(line, f"back names Torch::timer, {OTHER_STATE} Torch::setTitle stores", TORCH_FILE)


if __name__ == "__main__":
    unittest.main()
