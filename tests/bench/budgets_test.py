"""What is read of callgrind's dumps, and what a table of budgets says to them."""

from __future__ import annotations

import os
import sys
import tempfile
import unittest
from collections import Counter
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench" / "instructions"))

import callgrind  # noqa: E402
import measure  # noqa: E402
import table  # noqa: E402
from callgrind import Counts, Function  # noqa: E402
from table import Row  # noqa: E402

# As callgrind writes it: names are spelled out once, a line behind calls= has what the call cost altogether.
DUMP = """\
# callgrind format
version: 1
creator: callgrind-3.19.0
pid: 7
part: 3
thread: 1

desc: Trigger: Client Request: set_int 50

positions: line
events: Ir sysCount sysTime sysCpuTime
summary: 640 100 12 13

ob=(1) /usr/lib/liblink.so.1
fl=(1) send.c
fn=(1) send
7 100 100 5 6
+3 20
fi=(2) inline.h
-1 5
fe=(1)
cob=(2) /usr/lib/libc.so.6
cfi=(3) malloc.c
cfn=(2) malloc
calls=50 12
* 400 0 0 0

ob=(2)
fl=(3)
fn=(2)
9 300
fn=(3) walk(Node*)
9 10
cfn=(4) walk(Node*)'2
calls=3 9
* 90
fn=(4)
9 5
cob=(1)
cfi=(1)
cfn=(1)
calls=2 7
* 60

totals: 640 100 12 13
"""

SEND = Function("send", "liblink.so.1")
MALLOC = Function("malloc", "libc.so.6")
WALK = Function("walk(Node*)", "libc.so.6")


def row(instructions: int, allocations: int = 0, **functions: int) -> Row:
    return Row({"instructions": instructions, "allocations": allocations}, functions)


class Dumps(unittest.TestCase):
    def setUp(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder, "dump.3-01")
            path.write_text(DUMP)
            self.dump = callgrind.read_dump(path)

    def test_has_the_name_that_the_program_gave_and_its_thread(self) -> None:
        self.assertEqual((self.dump.name, self.dump.thread), ("set_int 50", 1))

    def test_counts_what_each_function_does_itself(self) -> None:
        self.assertEqual(self.dump.counts.functions, Counter({SEND: 125, MALLOC: 300, WALK: 15}))
        self.assertEqual(self.dump.counts.instructions, 440)

    def test_counts_system_calls_and_allocations(self) -> None:
        self.assertEqual((self.dump.counts.system_calls, self.dump.counts.allocations), (100, 50))

    def test_leaves_out_a_program(self) -> None:
        self.assertEqual(self.dump.counts.without("libc.so.6").functions, Counter({SEND: 125}))

    def test_come_in_the_order_of_their_numbers(self) -> None:
        paths = [Path(name) for name in ("dump.10-01", "dump.2-02", "dump.2-01", "dump-01")]
        self.assertEqual([path.name for path in sorted(paths, key=measure.order_of)],
                         ["dump-01", "dump.2-01", "dump.2-02", "dump.10-01"])


class Calls(unittest.TestCase):
    def test_cost_the_difference_of_two_numbers_of_calls(self) -> None:
        few = Counts(Counter({SEND: 5070, MALLOC: 900}), 100, 50)
        many = Counts(Counter({SEND: 15070, MALLOC: 900}), 300, 150)
        self.assertEqual(many.minus(few).divided(100), Counts(Counter({SEND: 100, MALLOC: 0}), 2, 1))

    def test_hide_nothing_that_only_a_few_of_them_do(self) -> None:
        self.assertEqual(Counts(Counter(), 1, 1).divided(100), Counts(Counter(), 1, 1))
        self.assertEqual(Counts(Counter(), 101, 200).divided(100), Counts(Counter(), 2, 2))
        self.assertEqual(Counts(Counter(), 0, 0).divided(100), Counts(Counter(), 0, 0))

    def test_are_compared_with_a_finished_request(self) -> None:
        rows = measure.call_rows({"finished_request": Counts(Counter({SEND: 800}), 2, 0),
                                  "set_int": Counts(Counter({SEND: 810, MALLOC: 40}), 2, 1)})
        self.assertEqual(rows["set_int"].figures,
                         {"instructions": 850, "above_transact": 50, "allocations": 1, "system_calls": 2})
        self.assertEqual(rows["set_int"].functions, {"send": 810, "malloc": 40})


class Services(unittest.TestCase):
    def test_that_never_get_ready_are_given_up(self) -> None:
        with mock.patch.object(measure, "PATIENCE", 0.01), self.assertRaisesRegex(measure.MeasureError, "did not get ready"):
            with measure.serving(["tail", "-f", "/dev/null"], dict(os.environ)):
                self.fail("it is not ready")


class Budgets(unittest.TestCase):
    def test_bear_three_per_cent(self) -> None:
        self.assertEqual(table.compare({"set": row(1030)}, {"set": row(1000)}), [])

    def test_name_the_functions_that_have_grown_most_first(self) -> None:
        budget = row(1000, send=500, copy=300, look=200)
        wrong = table.compare({"set": row(1100, send=520, copy=380, look=204)}, {"set": budget})
        self.assertEqual(wrong, ["set: 1,100 instructions, 10.0% above the budget of 1,000; grown: copy +80, send +20"])

    def test_name_a_function_that_was_not_among_the_expensive(self) -> None:
        wrong = table.compare({"set": row(1100, send=1000, added=100)}, {"set": row(1000, send=1000)})
        self.assertIn("grown: added +80", wrong[0])

    def test_say_when_many_have_grown_a_little(self) -> None:
        small = {f"f{number}": 10 for number in range(10)}
        wrong = table.compare({"set": row(1100, send=1000, **small)}, {"set": row(1000, send=1000)})
        self.assertIn("grown: functions with less than 2% each", wrong[0])

    def test_bear_no_allocation_more(self) -> None:
        self.assertEqual(table.compare({"set": row(1000, allocations=1)}, {"set": row(1000)}),
                         ["set: 1 allocations, allowed are 0"])

    def test_bear_less(self) -> None:
        self.assertEqual(table.compare({"set": row(10)}, {"set": row(1000, allocations=1)}), [])

    def test_miss_no_row(self) -> None:
        self.assertEqual(table.compare({"new": row(10)}, {"old": row(10)}),
                         ["new: has no budget", "old: has a budget, but was not measured"])

    def test_miss_no_figure(self) -> None:
        wrong = table.compare({"set": row(10)}, {"set": Row({"instructions": 10})})
        self.assertEqual(wrong, ["set: has instructions, allocations, its budget instructions"])


class File(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = Path(self.folder.name, "budgets.toml")

    def test_is_read_as_written(self) -> None:
        rows = {"set": Row({"instructions": 1000, "allocations": 1}, {'operator""_s(char const*, \\)': 900, "send": 100}),
                "get": row(10, get=10)}
        table.write(self.path, rows)
        self.assertEqual(table.read(self.path), rows)

    def test_keeps_the_expensive_functions_only(self) -> None:
        table.write(self.path, {"set": row(1000, send=980, small=19, large=20)})
        self.assertEqual(table.read(self.path)["set"].functions, {"send": 980, "large": 20})

    def test_cuts_long_names(self) -> None:
        name = "f" * 200
        self.assertEqual(table.summed(Counts(Counter({Function(name, "a"): 1, Function(name, "b"): 2}))),
                         {"f" * 107 + "...": 3})

    def test_that_comes_along_has_the_shapes_and_commands_that_are_measured(self) -> None:
        rows = table.read(ROOT / "bench/instructions/budgets.toml")
        self.assertLessEqual({measure.FINISHED, "set_two_ints", "get_int", "read_item", *measure.COMMANDS}, rows.keys())


if __name__ == "__main__":
    unittest.main()
