#!/usr/bin/env python3
"""What follows from the rows: commands, items, exports, and what is shown of an operation."""

from __future__ import annotations

import unittest

from fixture import SENDS_NOTHING, SET_CURVE, CatalogueTest

from catalogue import describe, expected_exports, exported_classes
from model import Function, Method


class Derived(CatalogueTest):
    def command(self, name: str) -> Method:
        return next(method for method in self.read().methods if method.command == name)

    def item(self, name: str) -> Function:
        return next(call for call in self.read().item_calls if call.item == name)

    def test_a_set_stores_what_the_matching_get_reads(self) -> None:
        stored, read = self.command("CMD_LAMP_SETLEVEL").state, self.command("CMD_LAMP_GETLEVEL").state
        self.assertTrue(stored.is_set)
        self.assertFalse(read.is_set)
        self.assertEqual(stored.name, read.name)
        self.assertEqual([key.index for key in stored.keys], [0])
        self.assertEqual([value.index for value in stored.values], [1])

    def test_a_record_is_stored_field_by_field(self) -> None:
        values = self.command("CMD_LAMP_SETCOLOR").state.values
        self.assertEqual([value.index for value in values], [1, 2, 3, 4, 6])

    def test_item_commands_dispatch_by_item(self) -> None:
        self.assertTrue(self.command("CMD_LAMP_SETITEM").items)
        item = self.item("CMDID_LAMP_SET_TIMER")
        self.assertEqual((item.item_value, item.method.command), (0x1001, "CMD_LAMP_SETITEM"))
        self.assertEqual([key.index for key in item.state.keys], [1])
        self.assertEqual([value.index for value in item.state.values], [2])

    def test_a_state_may_hold_a_constant(self) -> None:
        self.change("level[lamp] = level", "level[lamp] = LAMP_RIGHT")
        values = self.command("CMD_LAMP_SETLEVEL").state.values
        self.assertEqual([(value.index, value.literal) for value in values], [(None, 1)])

    def test_a_method_that_sends_nothing_is_no_command(self) -> None:
        self.change(SET_CURVE, f"{SENDS_NOTHING} curve=unused | Never built. |")
        catalogue = self.read()
        self.assertNotIn(None, [method.value for method in catalogue.methods])
        self.assertIn("Lamp::setCurve(double*, int)", expected_exports(catalogue))
        self.assertIn("sends nothing", describe(catalogue.operation("Lamp::setCurve")))

    def test_the_steps_of_a_function_are_shown(self) -> None:
        self.change("Color const* pColor) | - |", "Color const* pColor) | Lamp::getLevel then Lamp::setLevel |")
        shown = describe(self.read().operation("linux_tv_Lamp_getColor"))
        self.assertIn("calls: Lamp::getLevel, then Lamp::setLevel", shown)

    def test_a_class_with_a_virtual_method_is_polymorphic(self) -> None:
        self.assertEqual(exported_classes(self.read()), {"android::Link": True, "Lamp": True})


if __name__ == "__main__":
    unittest.main()
