#!/usr/bin/env python3
"""The reader: what it understands of a good table, and what it says of each kind of bad row."""

from __future__ import annotations

import unittest

from fixture import SENDS_NOTHING, SET_CURVE, CatalogueTest


class GoodTables(CatalogueTest):
    def test_a_method_is_read_in_full(self) -> None:
        method = self.read().operation("Lamp::setLevel")
        self.assertEqual(str(method.signature), "int setLevel(int lamp, int level)")
        self.assertEqual((method.command, method.value), ("CMD_LAMP_SETLEVEL", 0x1000))
        self.assertEqual([item.source for item in method.request], ["lamp", "level"])
        self.assertEqual(method.values["lamp"].enumeration, "LAMP_E")
        self.assertEqual((method.values["level"].low, method.values["level"].high), (1, 9))
        self.assertEqual(method.place.line, 19)

    def test_a_record_stands_for_its_fields(self) -> None:
        request = self.read().operation("Lamp::setColor").request
        sources = ["lamp", "color.on", "color.rgb[0]", "color.rgb[1]", "color.rgb[2]", "0", "color.on"]
        self.assertEqual([item.source for item in request], sources)
        self.assertEqual(request[5].literal, 0)

    def test_a_block_has_a_length(self) -> None:
        block = self.read().operation("Lamp::setCurve").request[1]
        self.assertEqual((block.kind, block.source, block.length), ("doubles", "curve", "length"))

    def test_a_parcel_reply_names_its_fields(self) -> None:
        field = self.read().operation("Lamp::getItem").reply.fields[0]
        self.assertEqual((field.kind, field.count, field.target), ("ints", "255", "pData"))

    def test_a_reply_may_be_as_long_as_a_product(self) -> None:
        self.change("ints[255]", "ints[cmdID*param1]")
        self.assertEqual(self.read().operation("Lamp::getItem").reply.fields[0].count, "cmdID*param1")
        argument = self.read().operation("linux_tv_Lamp_getTimer").reply.fields[0].count
        self.assertEqual(argument, "CMDID_LAMP_GET_TIMER*lamp")

    def test_a_method_may_send_nothing(self) -> None:
        self.change(SET_CURVE, f"{SENDS_NOTHING} curve=unused | Never built. |")
        catalogue = self.read()
        method = catalogue.operation("Lamp::setCurve")
        self.assertEqual((method.command, method.value, method.overload, method.reply), (None, None, None, None))
        self.assertNotIn(method, catalogue.methods)

    def test_a_function_may_take_several_steps(self) -> None:
        self.change("Color const* pColor) | - |", "Color const* pColor) | Lamp::getLevel then Lamp::setLevel |")
        function = self.read().operation("linux_tv_Lamp_getColor")
        self.assertEqual([step.name for step in function.steps], ["Lamp::getLevel", "Lamp::setLevel"])
        self.assertEqual((function.method, function.request), (None, ()))

    def test_a_method_may_build_its_own_request(self) -> None:
        self.change("int setCurve(double* curve", "int setCurve(void* curve", "include/kelutv/Lamp.h")
        self.change("int setCurve(double* curve", "int setCurve(void* curve")
        self.change(
            "exeCmdSet(int, android::Parcel const&) | length, doubles(curve, length) | status | - | - | status",
            "invoke(android::Parcel const&, android::Parcel*) | length, bytes(curve, length) | status | - "
            '| success debug "sent" | zero-or-fail',
        )
        method = self.read().operation("Lamp::setCurve")
        self.assertEqual(method.overload.arguments, ["android::Parcel const&"])
        self.assertEqual([(item.kind, item.length) for item in method.request], [("int32", None), ("bytes", "length")])
        self.assertEqual([(line.event, line.priority) for line in method.log], [("success", "debug")])

    def test_a_method_may_hide_a_failure(self) -> None:
        self.change("zero-or-fail", "zero")
        self.assertEqual(self.read().operation("Lamp::getItem").result, "zero")

    def test_an_item_argument_may_be_computed(self) -> None:
        self.change("set, back linux_tv_Lamp_getTimer | - | - | - |", "set | - | - | Doubles the minutes. |")
        self.change("lamp, minutes) | - | same | - | timer[lamp] = minutes |", "lamp, computed) | - | same | - | - |")
        request = self.read().operation("linux_tv_Lamp_setTimer").request
        self.assertEqual([item.computed for item in request], [False, False, True])

    def test_a_module_may_have_no_c_functions(self) -> None:
        self.change("| `kelutv/linux_lamp.h` |", "| - |")
        text = (self.folder / "catalogue/lamp.md").read_text(encoding="utf-8")
        self.write("catalogue/lamp.md", text[: text.index("## C functions")])
        self.assertEqual(self.read().functions, [])

    def test_a_typedef_of_int_is_an_enumeration_without_names(self) -> None:
        self.write("include/kelutv/state.h", "typedef int LAMP_STATE_E;\n")
        self.assertEqual(self.read().headers.enumerations["LAMP_STATE_E"].values, {})

    def test_a_list_is_handed_on_with_its_count(self) -> None:
        self.change("Color getColor(int lamp);", "std::list<int> getColor(int lamp);", "include/kelutv/Lamp.h")
        self.change("| Color getColor(int lamp)", "| std::list<int> getColor(int lamp)")
        self.change("| Color | - | - | record |", "| int... | - | - | list |")
        self.change(
            "get(CMDID_LAMP_GET_TIMER, lamp) | pMinutes | same | *pMinutes = item[0] | timer[lamp] | read",
            "Lamp::getColor(lamp) | pMinutes | list | pMinutes[] = result, *pMinutes = count | - | -",
        )
        self.change("set, back linux_tv_Lamp_getTimer", "set")
        function = self.read().operation("linux_tv_Lamp_getTimer")
        self.assertEqual(function.result, "list")
        outputs = [(output.target, output.part) for output in function.outputs]
        self.assertEqual(outputs, [("pMinutes", "entries"), ("pMinutes", "count")])

    def test_logged_texts_have_an_event_and_a_priority(self) -> None:
        lines = [(line.event, line.priority, line.text) for line in self.read().operation("Lamp::getItem").log]
        self.assertEqual(lines, [("null", "error", "no buffer"), ("failure", "debug", "failed")])

    def test_an_item_function_sends_its_module_s_item_command(self) -> None:
        function = self.read().operation("linux_tv_Lamp_setTimer")
        self.assertEqual((function.item, function.item_value), ("CMDID_LAMP_SET_TIMER", 0x1001))
        self.assertEqual([item.source for item in function.request], ["CMDID_LAMP_SET_TIMER", "lamp", "minutes"])
        self.assertEqual(function.request[0].literal, 0x1001)

    def test_a_declaration_may_take_several_lines(self) -> None:
        self.change("setTimer(LAMP_E lamp, int", "setTimer(LAMP_E lamp,\n        int", "include/kelutv/linux_lamp.h")
        self.assertEqual(len(self.read().operation("linux_tv_Lamp_setTimer").signature.parameters), 2)

    def test_types_compare_whatever_the_place_of_const(self) -> None:
        function = self.read().operation("linux_tv_Lamp_getColor")
        self.assertEqual(function.signature.parameters[0].type, "Color const*")


class BadTables(CatalogueTest):
    def test_unknown_section(self) -> None:
        line = self.change("## C functions", "## C operations")
        expected = "Module, Methods, Composed methods, C functions"
        self.assert_complaint(line, f"unknown section 'C operations', expected one of: {expected}")

    def test_section_twice(self) -> None:
        line = self.change("## C functions", "## Methods")
        self.assert_complaint(line, "section 'Methods' stands twice")

    def test_table_outside_a_section(self) -> None:
        self.change("# Lamp\n", "# Lamp\n\n| a |\n")
        self.assert_complaint(3, "a table outside of any known section")

    def test_unknown_and_missing_column(self) -> None:
        line = self.change("| null | result | outputs |", "| nil | result | outputs |")
        self.assert_complaint(
            line,
            "unknown column 'nil', expected: function | calls | null | result | outputs | state | effect | values | pointers "
            "| irregular",
        )
        self.assert_complaint(line, "missing column 'null'")

    def test_wrong_number_of_cells(self) -> None:
        line = self.change("| value | level[lamp] |", "| value |")
        self.assert_complaint(line, "13 cells, but the table has 14 columns")

    def test_empty_cell(self) -> None:
        line = self.change("| Color | - | - | record |", "| Color |  | - | record |")
        self.assert_complaint(line, "empty cell in column 'null', write - for nothing")

    def test_incomplete_module(self) -> None:
        self.change("| log tag | LAMP |\n", "")
        self.assert_complaint(
            3,
            "section 'Module' needs these keys once each: class, header, C prefix, C header, item set, item get, log tag; "
            "it may have: object, text set, text get",
        )


class BadMethods(CatalogueTest):
    def assert_bad(self, old: str, new: str, message: str) -> None:
        self.assert_complaint(self.change(old, new), message)

    def test_not_a_declaration(self) -> None:
        message = "'getLevel' is not a declaration: TYPE NAME(TYPE NAME, ...)"
        self.assert_bad("int getLevel(int lamp) |", "getLevel |", message)

    def test_parameter_without_name(self) -> None:
        self.assert_bad("int getLevel(int lamp) |", "int getLevel(lamp) |", "parameter 'lamp' needs a type and a name")

    def test_parameter_twice(self) -> None:
        self.assert_bad(
            "(int lamp, int level) | CMD",
            "(int lamp, int lamp) | CMD",
            "'int setLevel(int lamp, int lamp)' names a parameter twice",
        )

    def test_method_twice(self) -> None:
        self.assert_bad("| int getLevel(int lamp) |", "| int setLevel(int lamp) |", "setLevel stands twice")

    def test_unknown_command(self) -> None:
        self.assert_bad("CMD_LAMP_GETLEVEL", "CMD_LAMP_GETLEVL", "unknown command 'CMD_LAMP_GETLEVL'")

    def test_wrong_value(self) -> None:
        self.assert_bad("0x1001", "0x1002", "CMD_LAMP_GETLEVEL is 0x1001, not 0x1002")

    def test_value_in_another_form(self) -> None:
        self.assert_bad("0x1001", "4097", "value '4097' is not hexadecimal in the form 0x2008")

    def test_unknown_call(self) -> None:
        self.assert_bad("exeCmdGet(int, int)", "exeCmdGet(bool)", "'exeCmdGet(bool)' is not a command call of link.md")

    def test_sending_what_is_no_parameter(self) -> None:
        self.assert_bad("| lamp | value |", "| lump | value |", "'lump' is not a parameter of getLevel")

    def test_sending_what_is_no_field(self) -> None:
        self.assert_bad("color.on |", "color.off |", "'color.off' is not a field of color (Color const*)")

    def test_sending_a_pointer(self) -> None:
        message = "'pData' of type int* has no wire form; name what is sent of it"
        self.assert_bad("| cmdID, param1 | ints", "| cmdID, pData | ints", message)

    def test_unknown_block(self) -> None:
        message = "unknown block 'floats', expected one of: ints, doubles, bytes, str16"
        self.assert_bad("doubles(curve", "floats(curve", message)

    def test_block_of_another_type(self) -> None:
        message = "ints(curve, length): curve is double*, not a pointer to int"
        self.assert_bad("doubles(curve", "ints(curve", message)

    def test_block_without_length(self) -> None:
        message = "doubles(curve) takes a pointer and a length"
        self.assert_bad("doubles(curve, length)", "doubles(curve)", message)

    def test_sending_more_than_the_call_does(self) -> None:
        message = "exeCmdGet(int, int) sends (int), the row sends (int, int)"
        self.assert_bad("| lamp | value |", "| lamp, lamp | value |", message)

    def test_reply_of_another_shape(self) -> None:
        message = "exeCmdGet(int, int) gives a value reply, not status"
        self.assert_bad("| lamp | value |", "| lamp | status |", message)

    def test_unknown_reply_type(self) -> None:
        self.assert_bad("| lamp | Color |", "| lamp | Colour |", "unknown reply type 'Colour'")

    def test_reply_without_count(self) -> None:
        message = "reply field 'ints -> pData': ints and doubles, and only these, need a count"
        self.assert_bad("ints[255]", "ints", message)

    def test_reply_into_a_value(self) -> None:
        self.assert_bad("-> pData", "-> param1", "reply target 'param1' is not a pointer")

    def test_null_of_a_value(self) -> None:
        self.assert_bad("pData | pData |", "pData | param1 |", "null names 'param1', which is not a pointer")

    def test_bad_log(self) -> None:
        message = "log 'never \"no buffer\"' is not call|null|success|failure|missing [error|debug|info] \"TEXT\""
        self.assert_bad('null "no buffer"', 'never "no buffer"', message)

    def test_unknown_result(self) -> None:
        message = (
            "result 'word' is not one of: status, status as value, value, bool, zero-or-fail, zero, record, "
            'list, fallback "TEXT", characters "TEXT", irregular'
        )
        self.assert_bad("| value | level[lamp]", "| word | level[lamp]", message)

    def test_result_that_does_not_fit(self) -> None:
        message = "result 'bool' does not fit a value reply returned as int"
        self.assert_bad("| value | level[lamp]", "| bool | level[lamp]", message)

    def test_irregular_result_without_a_sentence(self) -> None:
        message = "result 'irregular' needs a sentence in column 'irregular'"
        self.assert_bad("| value | level[lamp]", "| irregular | level[lamp]", message)

    def test_state_of_what_is_not_sent(self) -> None:
        self.assert_bad("| level[lamp] |", "| level[lump] |", "state names 'lump', which is not sent")

    def test_bad_state(self) -> None:
        message = "state 'level lamp' is not NAME[KEYS] or NAME[KEYS] = VALUES"
        self.assert_bad("| level[lamp] |", "| level lamp |", message)

    def test_items_outside_the_item_pair(self) -> None:
        message = "state 'items' belongs to the module's item and text pairs, and to these only"
        self.assert_bad("| level[lamp] |", "| items |", message)

    def test_missing_value_set(self) -> None:
        message = "'LUMP_E' is neither an enumeration of the public headers nor a range LEAST..GREATEST"
        self.assert_bad("lamp=LAMP_E", "lamp=LUMP_E", message)

    def test_values_of_no_parameter(self) -> None:
        self.assert_bad("lamp=LAMP_E", "lump=LAMP_E", "'lump' is not a parameter of setLevel")

    def test_empty_range(self) -> None:
        self.assert_bad("1..9", "9..1", "range '9..1' is empty")

    def test_empty_list_entry(self) -> None:
        self.assert_bad("lamp=LAMP_E,", "lamp=LAMP_E,,", "'lamp=LAMP_E,, level=1..9' has an empty entry")


    def test_product_of_unknown_factors(self) -> None:
        self.assert_bad("ints[255]", "ints[param1*lump]", "'lump' is not a parameter of getItem")

    def test_row_without_a_command_that_sends(self) -> None:
        message = "a method without a command sends nothing, but has: value, call, sends, reply"
        self.assert_bad("CMD_LAMP_SETCURVE", "-", message)

    def test_row_without_a_command_with_a_result(self) -> None:
        message = "a method without a command has the result 'irregular'"
        self.assert_bad(SET_CURVE, "| - | - | - | - | - | - | - | status | - | print-only | - | - | - |", message)


class BadFunctions(CatalogueTest):
    def assert_bad(self, old: str, new: str, message: str) -> None:
        self.assert_complaint(self.change(old, new), message)

    def test_foreign_prefix(self) -> None:
        message = "linux_tv_Lump_setLevel does not begin with linux_tv_Lamp_"
        self.assert_bad("linux_tv_Lamp_setLevel", "linux_tv_Lump_setLevel", message)

    def test_function_twice(self) -> None:
        self.assert_bad("linux_tv_Lamp_setTimer", "linux_tv_Lamp_setLevel", "linux_tv_Lamp_setLevel stands twice")

    def test_bad_call(self) -> None:
        message = (
            "'Lamp.setLevel' is not OPERATION(ARGUMENTS), set(ITEM, ...), get(ITEM, ...), settext(ITEM, ...), "
            "gettext(ITEM, ...) or OPERATION then OPERATION"
        )
        self.assert_bad("Lamp::setLevel(lamp, level)", "Lamp.setLevel", message)

    def test_unknown_method(self) -> None:
        self.assert_bad("Lamp::setLevel", "Lamp::setLvl", "Lamp::setLvl is not in the catalogue")

    def test_wrong_number_of_arguments(self) -> None:
        self.assert_bad("setLevel(lamp, level) |", "setLevel(lamp) |", "Lamp::setLevel takes 2 arguments, not 1")

    def test_unknown_argument(self) -> None:
        message = "'lump' is not a parameter of linux_tv_Lamp_setLevel"
        self.assert_bad("Lamp::setLevel(lamp", "Lamp::setLevel(lump", message)

    def test_unused_parameter(self) -> None:
        message = "parameter 'level' is neither passed on nor written"
        self.assert_bad("Lamp::setLevel(lamp, level)", "Lamp::setLevel(lamp, LAMP_LEFT)", message)

    def test_unknown_item(self) -> None:
        message = "set() needs an item of KELU_TV_CMDID_E first"
        self.assert_bad("CMDID_LAMP_SET_TIMER", "CMDID_LAMP_SET_TIME", message)

    def test_wrong_number_of_item_arguments(self) -> None:
        message = "Lamp::getItem takes 3 arguments, not 4"
        self.assert_bad("get(CMDID_LAMP_GET_TIMER, lamp)", "get(CMDID_LAMP_GET_TIMER, lamp, pMinutes, 0)", message)

    def test_item_call_of_a_module_without_items(self) -> None:
        self.change("| item set | `setItem` |", "| item set | - |")
        self.assertIn("module lamp has no item call 'set'", "\n".join(self.complaints()))

    def test_item_result_without_an_item(self) -> None:
        line = self.change("level) | - | same |", "level) | - | item[0] |")
        self.assert_complaint(line, "result 'item[0]' without an item call")

    def test_output_through_a_value(self) -> None:
        self.assert_bad("*pMinutes = item[0]", "*lamp = item[0]", "output 'lamp' is not a pointer")

    def test_item_output_without_an_item(self) -> None:
        message = "an output names an item entry, but the function makes no item call"
        self.change("timer[lamp] | read", "timer[lamp] | -")
        self.assert_bad("get(CMDID_LAMP_GET_TIMER, lamp)", "Lamp::getLevel(lamp)", message)

    def test_result_without_a_call(self) -> None:
        self.assert_bad("| - | - | irregular |", "| - | - | same |", "result 'same' without a call")

    def test_bad_output(self) -> None:
        message = (
            "output '*pMinutes = 0' is not *P or P->FIELD = item[N], item[N] != 0 or result, "
            "nor P[] = result or *P = count"
        )
        self.assert_bad("*pMinutes = item[0]", "*pMinutes = 0", message)

    def test_part_of_a_list_where_there_is_none(self) -> None:
        message = "an output is part of a list, but the result is not 'list'"
        self.assert_bad("*pMinutes = item[0]", "*pMinutes = count", message)

    def test_list_result_without_a_list(self) -> None:
        message = "result 'list' without a call that gives a list"
        self.assert_bad("level) | - | same |", "level) | - | list |", message)

    def test_unknown_step(self) -> None:
        message = "Lamp::setLvl is not in the catalogue"
        self.assert_bad("Color const* pColor) | - |", "Color const* pColor) | Lamp::getLevel then Lamp::setLvl |", message)

    def test_several_calls_with_one_result(self) -> None:
        message = "a function with several calls has the result 'irregular'"
        calls = "Lamp::getLevel then Lamp::setLevel | - | zero | - | - | set |"
        self.assert_bad("Lamp::setLevel(lamp, level) | - | same | - | - | - |", calls, message)

    def test_computed_argument_without_a_sentence(self) -> None:
        message = "a computed argument needs a sentence in column 'irregular'"
        self.assert_bad("lamp, minutes) | - | same | - | timer[lamp] = minutes", "lamp, computed) | - | same | - | -", message)

    def test_state_without_an_item(self) -> None:
        message = "only an item call has a state of its own"
        self.assert_bad("level) | - | same | - | - |", "level) | - | same | - | level[lamp] = level |", message)

    def test_state_shared_with_a_method(self) -> None:
        self.change("timer[lamp] = minutes", "level[lamp] = minutes")
        self.assertIn("state 'level' is also an item's", "\n".join(self.complaints()))


class Headers(CatalogueTest):
    def test_row_that_no_header_declares(self) -> None:
        self.change("int getLevel(int lamp);", "int getLevel(int light);", "include/kelutv/Lamp.h")
        self.assert_complaint(3, "Lamp does not declare: int getLevel(int lamp)")
        self.assert_complaint(3, "Lamp declares what has no row: int getLevel(int light)")

    def test_function_without_row(self) -> None:
        new = "KELUTV_API int linux_tv_Lamp_off(void);\nKELUTV_API int linux_tv_Lamp_setLevel("
        self.change("KELUTV_API int linux_tv_Lamp_setLevel(", new, "include/kelutv/linux_lamp.h")
        self.assert_complaint(3, "kelutv/linux_lamp.h declares what has no row: int linux_tv_Lamp_off()")

    def test_missing_header(self) -> None:
        self.change("kelutv/linux_lamp.h", "kelutv/linux_lump.h")
        self.assert_complaint(3, "no public header declares kelutv/linux_lump.h")

    def test_bad_link_row(self) -> None:
        line = self.change("| exeCmdGet(int, int) | value |", "| exeCmdGet(int, int) | word |", "catalogue/link.md")
        self.assert_complaint(line, "reply 'word' is not one of: status, value, parcel", "catalogue/link.md")


if __name__ == "__main__":
    unittest.main()
