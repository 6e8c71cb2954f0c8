#!/usr/bin/env python3
"""What every parameter is for: what the other cells tell, what the column `pointers` adds, and what nothing tells."""

from __future__ import annotations

import unittest

from fixture import SENDS_NOTHING, SET_CURVE
from torch_fixture import TORCH_FILE, TorchTest

from parameters import ParameterInfo

HEADER = "include/kelutv/Torch.h"
SET_POINTS = "| int setPoints(int* points, int length) |"
SENT = "length, ints(points, length) | status | - | - | status | points = points | set, back getPoints |"
UNSENT = "length | status | - | - | status | - | set |"
KINDS = "Torch::getKinds(path) | - | list | pKinds[] = result, *pCount = count | - | - | - | - | - |"


class ParametersTest(TorchTest):
    def parameter(self, operation: str, name: str) -> ParameterInfo:
        return next(each for each in self.read().parameters[operation] if each.name == name)

    def brief(self, operation: str, name: str) -> tuple[str, str, str | None, str | None]:
        found = self.parameter(operation, name)
        return found.direction, found.kind, found.room, found.count

    def own_kinds(self, pointers: str) -> None:
        """Lets KindsOf make its list itself."""
        self.change_torch(KINDS, f"- | - | irregular | - | - | read | - | {pointers} | It counts itself. |")


class ToldByOtherCells(ParametersTest):
    def test_what_is_sent_goes_in(self) -> None:
        self.assertEqual(self.brief("Lamp::setColor", "color"), ("in", "record", None, None))
        self.assertEqual(self.brief("Torch::setText", "text"), ("in", "text", None, None))

    def test_a_block_has_its_length_and_the_length_counts_it(self) -> None:
        self.assertEqual(self.brief("Lamp::setCurve", "curve"), ("in", "array", "length", None))
        self.assertEqual(self.brief("Lamp::setCurve", "length"), ("length", "value", None, None))
        self.assertEqual(self.parameter("Lamp::setCurve", "curve").element, "double")

    def test_a_number_that_counts_what_comes_out_is_given(self) -> None:
        self.assertEqual(self.brief("Torch::getCurve", "curve"), ("out", "array", "length", None))
        self.assertEqual(self.brief("Torch::getCurve", "length"), ("in", "value", None, None))

    def test_a_reply_target_is_written(self) -> None:
        self.assertEqual(self.brief("Lamp::getItem", "pData"), ("out", "array", "255", None))
        self.assertEqual(self.brief("Torch::getName", "name"), ("out", "text", None, None))

    def test_a_block_that_its_count_leads_is_as_long_as_an_answer(self) -> None:
        self.assertEqual(self.brief("Torch::getPoints", "points"), ("out", "array", "answer", "count"))
        self.assertEqual(self.brief("Torch::getPoints", "count"), ("out", "value", None, None))

    def test_a_number_that_is_sent_and_counted_goes_both_ways(self) -> None:
        call = "exeCmdGet(int, int, android::Parcel&) | *count | int n"
        self.change_torch("exeCmdGet(int, android::Parcel&) | - | int n", call)
        self.change_torch("set, back getPoints", "set")
        self.assertEqual(self.brief("Torch::getPoints", "count"), ("inout", "value", None, None))

    def test_outputs_are_written(self) -> None:
        self.assertEqual(self.brief("TimerOf", "pMinutes"), ("out", "value", None, None))
        self.assertEqual(self.brief("KindsOf", "pKinds"), ("out", "array", "answer", "pCount"))
        self.assertEqual(self.brief("KindsOf", "pCount"), ("out", "value", None, None))

    def test_a_refused_null_may_be_passed(self) -> None:
        self.assertTrue(self.parameter("Lamp::getItem", "pData").allows_null)
        self.assertFalse(self.parameter("Lamp::setCurve", "curve").allows_null)

    def test_an_item_is_one_of_the_items(self) -> None:
        self.assertEqual(self.parameter("Lamp::getItem", "cmdID").values.enumeration, "KELU_TV_CMDID_E")


class ToldByTheCallee(ParametersTest):
    def test_a_pointer_that_is_passed_on_keeps_what_it_is_for(self) -> None:
        self.assertEqual(self.brief("Torch::timer", "minutes"), ("out", "array", "255", None))
        self.assertTrue(self.parameter("Torch::timer", "minutes").allows_null)

    def test_values_are_passed_on(self) -> None:
        self.assertEqual(self.parameter("Shine", "level").values.high, 30)

    def test_null_is_passed_on(self) -> None:
        row = "maker | read | - | - | - |\n| int getPoints"
        self.change_torch(row, row.replace("read | - | - |", "read | - | maker=null |"))
        self.change_torch("Torch::getMaker(maker) | maker |", "Torch::getMaker(maker) | - |")
        self.assertTrue(self.parameter("MakerOf", "maker").allows_null)

    def test_the_length_is_the_caller_s(self) -> None:
        self.change_torch("| Torch::getName(name) |", "| Torch::getCurve(name, 4) |")
        for name in (TORCH_FILE, HEADER):
            self.change("int named(char* name)", "int named(double* name)", name)
        self.assertEqual(self.brief("Torch::named", "name"), ("out", "array", "4", None))

    def test_bytes_are_what_the_callee_makes_of_them(self) -> None:
        self.change_torch("int timer(int* minutes)", "int timer(void* minutes)")
        self.change("int timer(int* minutes)", "int timer(void* minutes)", HEADER)
        self.assertEqual(self.parameter("Torch::timer", "minutes").element, "int")


class ToldByPointers(ParametersTest):
    def test_room_and_count(self) -> None:
        self.own_kinds("pKinds=out[254] counted by pCount")
        self.assertEqual(self.brief("KindsOf", "pKinds"), ("out", "array", "254", "pCount"))
        self.assertEqual(self.brief("KindsOf", "pCount"), ("out", "value", None, None))

    def test_null(self) -> None:
        self.own_kinds("pKinds=out[answer] null counted by pCount, pCount=null")
        self.assertTrue(self.parameter("KindsOf", "pKinds").allows_null)
        self.assertTrue(self.parameter("KindsOf", "pCount").allows_null)
        self.assertFalse(self.parameter("KindsOf", "path").allows_null)

    def test_a_block_that_begins_with_its_length(self) -> None:
        pointers = "curve=in[length] led by its length"
        self.change(SET_CURVE, f"{SENDS_NOTHING} {pointers} | Never built. |")
        curve = self.parameter("Lamp::setCurve", "curve")
        self.assertEqual((curve.direction, curve.room, curve.led_by_length), ("in", "length", True))
        self.assertEqual(self.brief("Lamp::setCurve", "length"), ("length", "value", None, None))

    def test_what_is_not_used(self) -> None:
        self.own_kinds("pKinds=unused null, pCount=inout")
        self.assertEqual(self.brief("KindsOf", "pKinds"), ("unused", "value", None, None))
        self.assertEqual(self.brief("KindsOf", "pCount"), ("inout", "value", None, None))

    def test_a_callback(self) -> None:
        callback = self.parameter("Torch::watch", "callback")
        self.assertEqual((callback.direction, callback.kind, callback.allows_null), ("in", "callback", True))
        self.assertEqual(self.brief("Torch::watch", "kinds"), ("out", "list", None, None))

    def test_several_records(self) -> None:
        self.change("int linux_tv_Lamp_getColor(Color const* pColor)", "int linux_tv_Lamp_getColor(Color* pColor)")
        self.change("(const Color *pColor)", "(Color *pColor)", "include/kelutv/linux_lamp.h")
        self.change("| - | Gives a fixed colour. |", "| pColor=out[3] | Gives a fixed colour. |")
        self.assertEqual(self.brief("linux_tv_Lamp_getColor", "pColor"), ("out", "array", "3", None))


class Untold(ParametersTest):
    def test_a_pointer_of_unknown_direction(self) -> None:
        message = "nothing tells whether 'sure' is read or written; column 'pointers' must"
        self.assert_bad_torch("| sure=out |", "| - |", message)

    def test_an_output_of_an_operation_that_calls_nothing(self) -> None:
        line = self.change_torch(KINDS, "- | - | irregular | - | - | read | - | pCount=out | It counts itself. |")
        message = "nothing tells whether 'pKinds' is read or written; column 'pointers' must"
        self.assert_complaint(line, message, TORCH_FILE)

    def test_bytes_of_unknown_length(self) -> None:
        self.change("int setPoints(int* points, int length)", "int setPoints(void* points, int length)", HEADER)
        self.change_torch(SET_POINTS, SET_POINTS.replace("int* points", "void* points"))
        line = self.change_torch(f"{SENT} - | - |", f"{UNSENT} - | points=in |")
        self.assert_complaint(line, "nothing tells how many bytes 'points' has; column 'pointers' must", TORCH_FILE)

    def test_a_callee_with_an_error_of_its_own(self) -> None:
        self.change_torch("Torch::getName(name)", "Torch::isOpen(name)")
        self.change_torch("| sure=out |", "| - |")
        self.assertIn("Torch::isOpen, which is called, has an error of its own", "\n".join(self.complaints()))


class BadPointers(ParametersTest):
    def assert_bad_pointers(self, pointers: str, message: str) -> None:
        line = self.change_torch(KINDS, f"- | path | irregular | - | - | read | - | {pointers} | It counts itself. |")
        self.assert_complaint(line, message, TORCH_FILE)

    def test_no_form(self) -> None:
        form = "is not POINTER=in|out|inout|unused[ROOM] null counted by POINTER led by its length"
        self.assert_bad_pointers("pKinds=written", f"'pKinds=written' {form}")

    def test_nothing_said(self) -> None:
        form = "is not POINTER=in|out|inout|unused[ROOM] null counted by POINTER led by its length"
        self.assert_bad_pointers("pKinds=", f"'pKinds=' {form}")

    def test_no_parameter(self) -> None:
        self.assert_bad_pointers("pKind=out", "'pKind' is not a parameter of KindsOf")

    def test_no_pointer(self) -> None:
        unchanged = "level) | - | same | - | - | - | -"
        line = self.change_torch(f"{unchanged} | - | - |", f"{unchanged} | level=in | - |")
        self.assert_complaint(line, "pointers names 'level', which is int", TORCH_FILE)

    def test_named_twice(self) -> None:
        self.assert_bad_pointers("pKinds=out, pKinds=null", "pointers names a parameter twice")

    def test_room_of_nothing(self) -> None:
        self.assert_bad_pointers("pKinds=out[size]", "'size' is not a parameter of KindsOf")

    def test_room_that_is_no_number(self) -> None:
        self.assert_bad_pointers("pKinds=out[2*path]", "room '2*path': path is char const*, not a whole number")

    def test_count_that_is_no_int(self) -> None:
        message = "pKinds is counted by 'path', which is char const*, not int*"
        self.assert_bad_pointers("pKinds=out[9] counted by path", message)

    def test_null_that_is_refused(self) -> None:
        message = "'path' may be null in column 'pointers', yet its null is refused"
        self.assert_bad_pointers("path=null, pKinds=out, pCount=out", message)

    def test_what_other_cells_tell(self) -> None:
        message = "column 'pointers' repeats the direction of 'pMinutes', which other cells tell"
        written = "*pMinutes = item[0] | timer[LAMP_LEFT] | read | -"
        self.assert_bad_torch(f"{written} | - |", f"{written} | pMinutes=out |", message)

    def test_null_that_the_callee_allows(self) -> None:
        message = "column 'pointers' repeats the null of 'minutes', which other cells tell"
        kept = "LAMP_LEFT, minutes) | - | - | irregular | - | timer[LAMP_LEFT] | read | -"
        self.change_torch("LAMP_LEFT, minutes) | - | - | same |", "LAMP_LEFT, minutes) | - | - | irregular |")
        self.assert_bad_torch(f"{kept} | - | - |", f"{kept} | minutes=null | It looks itself. |", message)


class MinusOne(ParametersTest):
    def meaning(self, operation: str) -> tuple[str, bool]:
        found = self.read().operation(operation)
        return found.minus_one, found.status_is_value

    def test_it_follows_from_the_result(self) -> None:
        self.assertEqual(self.meaning("Lamp::setLevel"), ("failure", False))
        self.assertEqual(self.meaning("Lamp::getLevel"), ("value", False))
        self.assertEqual(self.meaning("Lamp::getItem"), ("failure", False))
        self.assertEqual(self.meaning("Torch::timerNow"), ("value", False))
        self.assertEqual(self.meaning("KindsOf"), ("empty", False))
        self.assertEqual(self.meaning("Torch::named"), ("failure", False))

    def test_a_result_that_is_passed_on(self) -> None:
        passed_on = "| - | same | - | - | - | - | - |"
        self.change(f"Lamp::setLevel(lamp, level) {passed_on} - |", f"Lamp::getLevel(lamp) {passed_on} Sends none. |")
        self.assertEqual(self.meaning("linux_tv_Lamp_setLevel"), ("value", False))

    def test_the_service_s_result_may_be_the_value(self) -> None:
        self.change_torch("| gain | status | - | - | status |", "| gain | status | - | - | status as value |")
        self.assertEqual(self.meaning("Torch::setGain"), ("value", True))
        self.assertEqual(self.read().operation("Torch::setGain").result, "status")

    def test_an_irregular_row_says_it(self) -> None:
        self.assertEqual(self.meaning("linux_tv_Lamp_getColor"), ("failure", False))
        self.change("| irregular | - |", "| irregular, -1 empty | - |")
        self.assertEqual(self.meaning("linux_tv_Lamp_getColor"), ("empty", False))

    def test_a_meaning_that_is_none(self) -> None:
        message = "-1 means 'nothing', which is not one of: failure, value, empty"
        self.assert_complaint(self.change("| irregular | - |", "| irregular, -1 nothing | - |"), message)

    def test_a_regular_row_does_not_say_it(self) -> None:
        line = self.change("| value | level[lamp]", "| value, -1 failure | level[lamp]")
        self.assert_complaint(line, "what -1 means follows from result 'value'")


class PlatformRecords(ParametersTest):
    def test_their_fields(self) -> None:
        self.add("| Port | `tv/port.h` | int plug.kind, unsigned int plug.number |")
        record = self.read().platform_records["Port"]
        fields = [(field.type, field.name) for field in record.record.fields]
        self.assertEqual(record.header, "tv/port.h")
        self.assertEqual(fields, [("int", "plug.kind"), ("unsigned int", "plug.number")])

    def test_a_field_of_unknown_type(self) -> None:
        line = self.add("| Port | `tv/port.h` | Kind plug.kind |")
        message = "field 'Kind plug.kind' is not TYPE PATH with the type int, unsigned int, bool or double"
        self.assert_complaint(line, message, "catalogue/link.md")

    def add(self, row: str) -> int:
        text = (self.folder / "catalogue/link.md").read_text(encoding="utf-8")
        text += f"\n## Platform records\n\n| record | header | fields |\n|---|---|---|\n{row}\n"
        self.write("catalogue/link.md", text)
        return text.count("\n")


if __name__ == "__main__":
    unittest.main()
