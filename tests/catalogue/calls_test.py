#!/usr/bin/env python3
"""The reader: operations that call other operations, and the shapes that their rows may have."""

from __future__ import annotations

import unittest

from torch_fixture import TORCH_FILE, TorchTest

from catalogue import describe, expected_exports, exported_classes


class ComposedMethods(TorchTest):
    def test_one_belongs_to_the_class_and_sends_what_is_called(self) -> None:
        catalogue = self.read()
        beam = catalogue.operation("Torch::beam")
        self.assertEqual((beam.name, beam.owner, beam.method.name), ("Torch::beam", "Torch", "Lamp::setLevel"))
        self.assertEqual([item.source for item in beam.request], ["LAMP_RIGHT", "level"])
        self.assertEqual(beam.request[0].literal, 1)
        self.assertIn("calls: linux_tv_Lamp_setLevel(LAMP_RIGHT, level)", describe(beam))
        self.assertIn("Torch::beam(int)", expected_exports(catalogue))
        self.assertNotIn("Torch::beam", [method.name for method in catalogue.methods])

    def test_one_may_call_another_and_be_called(self) -> None:
        title = self.read().operation("TitleOf")
        self.assertEqual((title.callee.name, title.method.name), ("Torch::title", "Torch::getText"))
        self.assertEqual([layer.result for layer in title.layers], ["same", "same"])

    def test_one_must_be_declared(self) -> None:
        self.change_torch("int beam(int level) |", "int beam(int strength) |")
        self.change_torch("LAMP_RIGHT, level)", "LAMP_RIGHT, strength)")
        self.change_torch("level=20..30", "strength=20..30")
        self.assert_complaint(3, "Torch declares what has no row: int beam(int level)", TORCH_FILE)

    def test_a_module_may_have_nothing_else(self) -> None:
        text = (self.folder / TORCH_FILE).read_text(encoding="utf-8")
        self.write("catalogue/halo.md", text[: text.index("## Methods")].replace("Torch`", "Halo`") + HALO)
        self.change("| text set | `setText` |\n| text get | `getText` |\n", "", "catalogue/halo.md")
        self.change("`kelutv/torch.h`", "-", "catalogue/halo.md")
        self.write("include/kelutv/Halo.h", "class KELUTV_API Halo {\npublic:\n    int shine(int level);\n};\n")
        catalogue = self.read()
        self.assertEqual(catalogue.operation("Halo::shine").method.name, "Lamp::setLevel")
        self.assertEqual(exported_classes(catalogue)["Halo"], False)

    def test_its_texts_are_sent(self) -> None:
        request = self.read().operation("Torch::clearTitle").request
        sent = [(item.kind, item.literal) for item in request]
        self.assertEqual(sent, [("int32", 0x1001), ("cstring", ""), ("int32", 0)])

    def test_its_own_texts_are_logged_under_its_module(self) -> None:
        title = self.read().operation("Torch::title")
        logged = [(line.event, line.priority, line.text, line.tag) for line in title.log]
        self.assertEqual(logged, [("call", "info", "reading", "TORCH"), ("null", "error", "no title", "TORCH")])

    def test_it_logs_nothing_of_what_comes_back(self) -> None:
        message = "log 'failure \"no title\"' is not call|null [error|debug|info] \"TEXT\""
        self.assert_bad_torch('null "no title"', 'failure "no title"', message)

    def test_one_that_calls_itself(self) -> None:
        line = self.change_torch("Torch::getName(name) |", "Torch::named(name) |")
        message = "Torch::named calls this operation itself or has an error of its own"
        self.assert_complaint(line, message, TORCH_FILE)

    def test_one_with_the_name_of_a_method(self) -> None:
        self.assert_bad_torch("| int named(char* name) |", "| int getName(char* name) |", "getName stands twice")


FIXED_KEY = "0, minutes) | - | - | same | - | timer[0]"
HALO = """## Composed methods

| method | calls | null | log | result | outputs | state | effect | values | pointers | irregular |
|---|---|---|---|---|---|---|---|---|---|---|
| int shine(int level) | Lamp::setLevel(LAMP_LEFT, level) | - | - | same | - | - | - | - | - | - |
"""


class Nulls(TorchTest):
    def refusal(self, operation: str) -> tuple:
        (refusal,) = self.read().operation(operation).refusals
        return refusal.parameter, refusal.result, [(line.text, line.tag) for line in refusal.log]

    def test_its_own_test_comes_first(self) -> None:
        self.assertEqual(self.refusal("Torch::title"), ("text", -1, [("no title", "TORCH")]))
        self.assertEqual(self.refusal("TitleOf"), ("text", -1, [("no title", "TORCH")]))

    def test_without_one_the_test_of_what_is_called_counts(self) -> None:
        self.assertEqual(self.refusal("Torch::timer"), ("minutes", -1, [("no buffer", "LAMP")]))

    def test_a_call_is_logged_before_the_test_of_what_is_called(self) -> None:
        self.change_torch("LAMP_GET_TIMER, 0, text) | text |", "LAMP_GET_TIMER, 0, text) | - |")
        self.change_torch('call info "reading"; null "no title"', 'call info "reading"')
        self.assertEqual(self.refusal("Torch::title"), ("text", -1, [("reading", "TORCH"), ("no text", "TORCH")]))

    def test_a_bool_is_refused_as_true_and_a_list_as_empty(self) -> None:
        self.assertEqual(self.refusal("Torch::isOpen"), ("sure", 1, []))
        self.assertEqual(self.refusal("Torch::getKinds"), ("path", [], [("no path", "TORCH")]))
        self.assertEqual(self.refusal("MakerOf"), ("maker", 1, []))

    def test_what_an_irregular_function_does_with_null_is_not_known(self) -> None:
        self.change_torch("Torch::title(text) | - | same", "Torch::title(text) | - | irregular")
        self.change_torch("irregular | - | - | - | - | - | - |", "irregular | - | - | - | - | - | It looks itself. |")
        self.assertEqual(self.read().operation("TitleOf").refusals, ())


class Items(TorchTest):
    def test_a_text_item_is_a_service_item(self) -> None:
        (call,) = [call for call in self.read().item_calls if call.method.command == "CMD_TORCH_GETTEXT" and call.state]
        self.assertEqual((call.item, call.method.module, call.state.name), ("CMDID_LAMP_GET_TIMER", "torch", "title"))

    def test_an_item_of_another_module_belongs_to_that_module(self) -> None:
        calls = [call for call in self.read().item_calls if call.method.command == "CMD_LAMP_GETITEM"]
        self.assertEqual({(call.item, call.method.module) for call in calls}, {("CMDID_LAMP_GET_TIMER", "lamp")})
        self.assertEqual(len(calls), 4)

    def test_the_buffer_is_the_caller_s_or_the_function_s_own(self) -> None:
        catalogue = self.read()
        self.assertEqual(catalogue.operation("Torch::timer").reply.fields[0].target, "minutes")
        self.assertEqual(catalogue.operation("TimerOf").reply.fields[0].target, None)

    def test_an_enumerator_among_the_arguments_may_be_a_key(self) -> None:
        catalogue = self.read()
        self.assertEqual([key.index for key in catalogue.operation("Torch::timerNow").state.keys], [1])
        self.change_torch("LAMP_LEFT, minutes) | - | - | same | - | timer[LAMP_LEFT]", FIXED_KEY)
        self.assertEqual([key.literal for key in self.read().operation("Torch::timer").state.keys], [0])

    def test_an_entry_of_the_caller_s_buffer(self) -> None:
        message = "result 'item[0]' without an item call"
        self.assert_bad_torch("LAMP_LEFT, minutes) | - | - | same", "LAMP_LEFT, minutes) | - | - | item[0]", message)

    def test_a_text_pair_that_is_not_there(self) -> None:
        self.change_torch("| text get | `getText` |", "| text get | - |")
        self.assertIn("module torch has no item call 'gettext'", "\n".join(self.complaints()))

    def test_no_item_where_one_belongs(self) -> None:
        message = "gettext() needs an item of KELU_TV_CMDID_E first"
        self.assert_bad_torch("gettext(CMDID_LAMP_GET_TIMER", "gettext(LAMP_LEFT", message)


class Arguments(TorchTest):
    def test_a_number_for_a_pointer(self) -> None:
        self.assert_bad_torch("Torch::title(text)", "Torch::title(0)", "text of Torch::title is char*, not 0")

    def test_a_text_for_a_number(self) -> None:
        message = "level of linux_tv_Lamp_setLevel is int, not \"bright, too\""
        self.assert_bad_torch("(LAMP_RIGHT, level)", '(LAMP_RIGHT, "bright, too")', message)

    def test_an_unknown_operation(self) -> None:
        self.assert_bad_torch("Torch::beam(level)", "Torch::bean(level)", "Torch::bean is not in the catalogue")

    def test_an_operation_with_an_error_of_its_own(self) -> None:
        self.change_torch("linux_tv_Lamp_setLevel(LAMP_RIGHT, level)", "linux_tv_Lamp_setLvl(LAMP_RIGHT, level)")
        complaints = "\n".join(self.complaints())
        self.assertIn("linux_tv_Lamp_setLvl is not in the catalogue", complaints)
        self.assertIn("Torch::beam calls this operation itself or has an error of its own", complaints)


class Shapes(TorchTest):
    def test_a_fallback_names_its_text(self) -> None:
        catalogue = self.read()
        name, maker = catalogue.operation("Torch::getName"), catalogue.operation("Torch::getMaker")
        self.assertEqual((name.result, name.fallback), ("fallback", "nobody"))
        self.assertEqual((maker.result, maker.fallback), ("characters", "error"))

    def test_a_fallback_without_a_text_to_read(self) -> None:
        message = "result 'fallback' does not fit a parcel reply returned as int"
        self.assert_bad_torch("zero-or-fail | points", 'fallback "none" | points', message)

    def test_a_block_may_be_led_by_its_count(self) -> None:
        count, points = self.read().operation("Torch::getPoints").reply.fields
        self.assertEqual((count.name, count.target, points.count), ("n", "count", "n"))

    def test_a_count_that_nothing_gives(self) -> None:
        self.assert_bad_torch("ints[n]", "ints[m]", "'m' is not a parameter of getPoints")

    def test_a_separator_in_a_quoted_text(self) -> None:
        self.change_torch('failure "error, (none)"', 'failure "error; (none"; missing "gone)"')
        log = self.read().operation("Torch::getText").log
        self.assertEqual([line.text for line in log], ["no text", "error; (none", "gone)"])

    def test_a_reply_of_doubles(self) -> None:
        field = self.read().operation("Torch::getCurve").reply.fields[0]
        self.assertEqual((field.kind, field.count), ("doubles", "length"))


class Modules(TorchTest):
    def test_several_prefixes(self) -> None:
        self.change_torch("| C prefix | - |", "| C prefix | `Shine, TimerOf, TitleOf, Maker` |")
        message = "KindsOf does not begin with Shine or TimerOf or TitleOf or Maker"
        self.assertIn(message, "\n".join(self.complaints()))

    def test_keys_in_any_order(self) -> None:
        self.change_torch("| log tag | TORCH |\n", "")
        self.change_torch("| class | `Torch` |\n", "| log tag | TORCH |\n| class | `Torch` |\n")
        self.assertEqual(self.read().module("torch").log_tag, "TORCH")

    def test_key_twice(self) -> None:
        self.change_torch("| log tag | TORCH |\n", "| log tag | TORCH |\n| log tag | - |\n")
        self.assertIn("section 'Module' needs these keys once each", "\n".join(self.complaints()))

    def test_an_unknown_object(self) -> None:
        self.change_torch("| object | constructed |", "| object | borrowed |")
        self.assert_complaint(3, "object 'borrowed' is not one of: instance(), constructed", TORCH_FILE)


class Symbols(TorchTest):
    def test_a_constructed_class_has_no_instance(self) -> None:
        exports = expected_exports(self.read())
        self.assertNotIn("Torch::instance()", exports)
        self.assertIn("Lamp::instance()", exports)

    def test_typedefs_do_not_show(self) -> None:
        watch = "void (*)(unsigned int, void*), int, _TORCH_KEY_E, std::vector<int, std::allocator<int> >*"
        self.assertIn(f"Torch::watch({watch})", expected_exports(self.read()))

    def test_a_field_may_be_a_table(self) -> None:
        self.assertEqual(self.read().headers.records["Grid"].fields[0].count, 6)

    def test_an_unreadable_header(self) -> None:
        self.change("char names[2][3];", "char;", "include/kelutv/commands.h")
        self.assertIn("record field 'char' is not TYPE NAME or TYPE NAME[COUNT]", "\n".join(self.complaints()))


if __name__ == "__main__":
    unittest.main()
