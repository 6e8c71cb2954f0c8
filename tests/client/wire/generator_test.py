#!/usr/bin/env python3
"""What the wire table expects of each shape of request, reply and result, spelt out for a small catalogue."""

from __future__ import annotations

import struct
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
FOLDERS = ["tests/catalogue", "wire/generator", "tests/client/wire"]
sys.path[:0] = [str(ROOT / folder) for folder in FOLDERS]

from torch_fixture import TorchTest  # noqa: E402

from arguments import build_calls  # noqa: E402
from generate_wire_table import TestRows, WireTable, sends_one_request  # noqa: E402
from outcomes import Outcomes, request_payload  # noqa: E402

UNTOUCHED = "1515870810*"
FILLED = "x*255"


def words(*numbers: int) -> bytes:
    return struct.pack(f"<{len(numbers)}i", *numbers)


class GeneratorTest(TorchTest):
    def setUp(self) -> None:
        super().setUp()
        self.catalogue = self.read()

    def prepare(self, name: str) -> None:
        self.operation = self.catalogue.operation(name)
        self.call = build_calls(self.operation, self.catalogue.headers)[0]
        self.outcomes = Outcomes(self.operation, self.catalogue.headers, self.call)

    def payload(self, name: str) -> bytes:
        self.prepare(name)
        return request_payload(self.operation.request, self.call)

    def answers(self, name: str) -> list[tuple[bytes, str, str]]:
        """The reply behind a result of 0, what must be seen and what must be logged; the service's error comes last."""
        self.prepare(name)
        answers = self.outcomes.answers()
        self.assertEqual(answers[-1].reply, words(3, 1, 2))
        self.assertTrue(all(answer.reply.startswith(words(0)) for answer in answers[:-1]))
        return [(answer.reply[4:], answer.observed, answer.log) for answer in answers]

    def failure(self, name: str) -> tuple[str, str]:
        self.prepare(name)
        outcome = self.outcomes.failure()
        return outcome.observed, outcome.log

    def refusals(self, name: str) -> list[tuple[str, str, str]]:
        self.prepare(name)
        outcomes = [(refusal.parameter, self.outcomes.refused(refusal)) for refusal in self.operation.refusals]
        return [(parameter, outcome.observed, outcome.log) for parameter, outcome in outcomes]


class Requests(GeneratorTest):
    def test_a_double_goes_out_bit_by_bit(self) -> None:
        self.assertEqual(self.payload("Torch::setGain"), struct.pack("<d", 11.25))

    def test_a_text_of_utf_16(self) -> None:
        self.assertEqual(self.payload("Torch::setLabel"), words(5) + "alpha\0".encode("utf-16-le"))

    def test_blocks_are_as_long_as_said(self) -> None:
        self.assertEqual(self.payload("Torch::setPoints"), words(4, 1001, 1002, 1003, 1004))
        self.assertEqual(self.payload("Lamp::setCurve"), words(4) + struct.pack("<4d", 1.25, 2.25, 3.25, 4.25))

    def test_the_text_of_an_item_stands_where_the_method_puts_it(self) -> None:
        self.assertEqual(self.payload("Torch::setText"), words(11) + b"charlie\0" + words(22))
        self.assertEqual(self.payload("Torch::clearTitle"), words(0x1001) + b"\0\0\0\0" + words(0))

    def test_a_marker_lies_in_the_range_of_the_row(self) -> None:
        self.assertEqual(self.payload("Torch::beam"), words(1, 22))
        self.assertEqual(self.payload("Shine"), words(1, 11))


class Replies(GeneratorTest):
    def test_a_block_that_is_led_by_its_count(self) -> None:
        full, empty, short, negative, error = self.answers("Torch::getPoints")
        self.assertEqual(full[0], words(3, 142, 143, 144))
        self.assertEqual(full[1], f"result=0;points=[142 143 144 {UNTOUCHED}253];count=[3 {UNTOUCHED}255];")
        self.assertEqual(empty[:2], (words(0), f"result=0;points=[{UNTOUCHED}256];count=[0 {UNTOUCHED}255];"))
        self.assertEqual(short[0], words(5, 142, 143))
        self.assertEqual(short[1], f"result=0;points=[142 143 {UNTOUCHED}254];count=[5 {UNTOUCHED}255];")
        self.assertEqual(negative[:2], (words(-1), f"result=0;points=[{UNTOUCHED}256];count=[-1 {UNTOUCHED}255];"))
        self.assertEqual(error[1], f"result=-1;points=[{UNTOUCHED}256];count=[{UNTOUCHED}256];")

    def test_doubles_are_shown_in_full_and_zero_where_the_reply_ends(self) -> None:
        full, zeros, short, _ = self.answers("Torch::getCurve")
        self.assertEqual(full[0], struct.pack("<4d", 71.25, 72.25, 73.25, 74.25))
        self.assertEqual(full[1], "result=0;curve=[71.25 72.25 73.25 74.25 -0.5*252];")
        self.assertEqual(zeros[:2], (bytes(32), "result=0;curve=[0*4 -0.5*252];"))
        self.assertEqual(short[:2], (struct.pack("<2d", 71.25, 72.25), "result=0;curve=[71.25 72.25 0*2 -0.5*252];"))

    def test_a_fallback_ends_its_text(self) -> None:
        text, _, missing, unended, error = self.answers("Torch::getName")
        self.assertEqual(text, (b"foxtrot\0", "result=0;name=foxtrot;", ""))
        self.assertEqual(missing, (b"", "result=0;name=nobody;", "E/TORCH: empty;"))
        self.assertEqual(unended, (b"abcd", "result=0;name=nobody;", "E/TORCH: empty;"))
        self.assertEqual(error[1:], ("result=0;name=nobody;", "E/TORCH: failed;"))
        self.assertEqual(self.failure("Torch::getName"), ("result=0;name=nobody;", "E/TORCH: failed;"))

    def test_characters_do_not(self) -> None:
        text, _, missing, unended, error = self.answers("Torch::getMaker")
        self.assertEqual(text[1], "result=0;maker=foxtrot;")
        for answer in (missing, unended, error):
            self.assertEqual(answer[1:], ("result=0;maker=errorx*250;", ""))

    def test_a_missing_text_is_a_failure_of_its_own_or_like_any_other(self) -> None:
        missing = self.answers("Torch::getText")[2]
        self.assertEqual(missing, (b"", f"result=-1;text={FILLED};", "E/TORCH: error, (none);"))


class Layers(GeneratorTest):
    def test_what_a_composed_method_logs_goes_out_first(self) -> None:
        self.assertEqual(self.answers("TitleOf")[0][1:], ("result=0;text=foxtrot;", "I/TORCH: reading;"))
        failed = f"result=-1;text={FILLED};", "I/TORCH: reading;E/TORCH: error, (none);"
        self.assertEqual(self.failure("TitleOf"), failed)

    def test_a_result_passes_through_every_layer(self) -> None:
        self.assertEqual(self.answers("Torch::timerNow")[0][1], "result=71;")
        self.assertEqual(self.failure("Torch::timerNow")[0], "result=0;")
        self.assertEqual(self.answers("MakerOf")[0][1], "result=0;maker=foxtrot;")
        self.assertEqual(self.answers("TimerOf")[0][1], f"result=0;pMinutes=[71 {UNTOUCHED}255];")
        self.assertEqual(self.failure("TimerOf")[0], f"result=-1;pMinutes=[0 {UNTOUCHED}255];")

    def test_an_item_may_fill_the_caller_s_buffer(self) -> None:
        self.assertIn(" 325 1515870810];", self.answers("Torch::timer")[0][1])

    def test_a_null_meets_the_first_test_on_the_way(self) -> None:
        self.assertEqual(self.refusals("TitleOf"), [("text", f"result=-1;text={FILLED};", "E/TORCH: no title;")])
        self.assertEqual(self.refusals("Torch::timer")[0][2], "E/LAMP: no buffer;")
        self.assertEqual(self.refusals("Torch::named"), [("name", f"result=0;name={FILLED};", "E/TORCH: no name;")])
        self.assertEqual(self.refusals("Torch::isOpen"), [("sure", "result=1;sure=1;", "")])
        observed = f"result=-1;pKinds=[{UNTOUCHED}256];pCount=[{UNTOUCHED}256];"
        self.assertEqual(self.refusals("KindsOf"), [("path", observed, "E/TORCH: no path;")])


class Sources(GeneratorTest):
    def body(self, name: str) -> str:
        self.prepare(name)
        rows = TestRows(self.catalogue, self.catalogue.module(self.operation.module))
        rows.call_function(self.operation, self.call)
        return next(iter(rows.calls))

    def test_a_constructed_object_is_made_for_the_call(self) -> None:
        self.assertIn("Torch().setGain(11.25)", self.body("Torch::setGain"))
        self.assertIn("Lamp::instance()->getLevel(11)", self.body("Lamp::getLevel"))

    def test_what_has_no_marker_is_empty(self) -> None:
        body = self.body("Torch::watch")
        self.assertIn("std::vector<int> kinds;", body)
        call = "watch(nullptr, static_cast<TORCH_KIND_E>(22), static_cast<TORCH_KEY_E>(33), &kinds)"
        self.assertIn(call, body)

    def test_a_null_replaces_one_argument(self) -> None:
        self.assertIn("setLabel(null == 1 ? nullptr : \"alpha\")", self.body("Torch::setLabel"))
        self.assertIn("getName(null == 1 ? nullptr : name.values)", self.body("Torch::getName"))

    def test_an_operation_that_works_an_argument_out_is_left_to_a_test_by_hand(self) -> None:
        self.assertTrue(sends_one_request(self.catalogue.operation("Shine")))
        self.change_torch("Torch::beam(level) | - | same", "Torch::beam(computed) | - | irregular")
        self.change_torch("irregular | - | - | - | - | - | - |", "irregular | - | - | - | - | - | It thinks. |")
        self.assertFalse(sends_one_request(self.read().operation("Shine")))

    def test_every_operation_that_sends_has_a_row(self) -> None:
        table = WireTable(self.catalogue, self.catalogue.module("torch"))
        text = table.source()
        self.assertEqual(len(table.rows.all), 25)
        self.assertIn('{"Torch_isOpen_true", ', text)
        self.assertIn('{"Torch_isOpen_false", ', text)


if __name__ == "__main__":
    unittest.main()
