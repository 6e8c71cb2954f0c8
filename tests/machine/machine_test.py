#!/usr/bin/env python3
"""What machine.py makes of a machine's words and silences, and fetch-kernel of an archive that gives nothing."""

import io
import os
import subprocess
import tempfile
import unittest

import machine

HERE = os.path.dirname(os.path.abspath(__file__))
GOOD = """machine: start one
[==========] 3 tests from 2 test suites ran. (5 ms total)
[  PASSED  ] 3 tests.
machine: end one exit 0 after 0.1 s
machine: start two
E/kqdroid something is said
[==========] 1 test from 1 test suite ran. (5 ms total)
[  PASSED  ] 1 test.
machine: end two exit 0 after 0.2 s
machine kernel: binder: 64:64 transaction failed 29189/-22, size 4-0 line 3044
machine: done
"""


class JudgeTest(unittest.TestCase):
    def assert_fails(self, console, reason, names=("one", "two")):
        with self.assertRaises(machine.Failure) as caught:
            machine.judge(console, names)
        self.assertIn(reason, str(caught.exception))

    def test_counts_what_passed(self):
        self.assertEqual(machine.judge(GOOD, ["one", "two"]), 4)

    def test_wants_every_program_that_is_listed(self):
        self.assert_fails(GOOD, "three: no result", ("one", "two", "three"))

    def test_wants_a_list(self):
        self.assert_fails(GOOD, "no program is listed", ())

    def test_a_program_may_not_fail(self):
        for ending in ("exit 1", "signal 11", "timed out"):
            self.assert_fails(GOOD.replace("end two exit 0", f"end two {ending}"), f"two: {ending}")

    def test_a_program_may_not_leave_tests_out(self):
        self.assert_fails(GOOD.replace("[  PASSED  ] 1 test.", "[  PASSED  ] 0 tests.\n[  SKIPPED ] 1 test."),
                          "two: left tests out")
        self.assert_fails(GOOD.replace("[  PASSED  ] 1 test.", "[  PASSED  ] 1 test.\n\n  YOU HAVE 1 DISABLED TEST"),
                          "two: left tests out")

    def test_a_program_may_not_run_nothing(self):
        self.assert_fails(GOOD.replace("3 tests", "0 tests"), "one: ran no tests")

    def test_a_program_tells_what_it_ran(self):
        self.assert_fails(GOOD.replace("[  PASSED  ] 3 tests.\n", ""), "one: did not tell what it ran")
        self.assert_fails(GOOD.replace("[  PASSED  ] 3 tests.", "[  PASSED  ] 2 tests."), "one: did not tell what it ran")

    def test_the_kernel_may_not_break(self):
        for line in ("Kernel panic - not syncing: Attempted to kill init!", "Internal error: Oops: 5 [#1] SMP ARM",
                     "BUG: kernel NULL pointer dereference", "machine kernel: WARNING: CPU: 0 PID: 1 at binder.c:1",
                     "Out of memory: Killed process 64 (wire_table_test)"):
            self.assert_fails(GOOD.replace("machine: done", f"[   12.0] {line}\nmachine: done"), line)

    def test_the_drivers_protocol_may_not_be_broken(self):
        line = "machine kernel: binder: 64:64 BC_FREE_BUFFER u00 no match"
        self.assert_fails(GOOD.replace("machine: done", f"{line}\nmachine: done"), line)

    def test_the_machine_comes_to_its_end(self):
        self.assert_fails(GOOD.replace("machine: done\n", ""), "it did not come to its end")


class ConsoleTest(unittest.TestCase):
    def console(self, script, boot_seconds=10, run_seconds=10):
        self.log = io.BytesIO()
        return machine.console_of(["sh", "-c", script], self.log, boot_seconds, run_seconds)

    def assert_ended(self, script, reason, **seconds):
        with self.assertRaises(machine.Failure) as caught:
            self.console(script, **seconds)
        self.assertEqual(str(caught.exception), reason)

    def test_is_what_the_machine_prints(self):
        self.assertEqual(self.console("printf 'one\\r\\ntwo\\r\\n' && printf three >&2"), "one\ntwo\nthree")
        self.assertEqual(self.log.getvalue(), b"one\ntwo\nthree")

    def test_of_a_machine_that_starts_nothing_ends(self):
        self.assert_ended("echo boots; exec sleep 60", "started no program in 0.2 s", boot_seconds=0.2)

    def test_of_a_machine_that_hangs_ends(self):
        self.assert_ended("echo 'machine: start one'; echo 'machine: start two'; exec sleep 60",
                          "not done after 1 s, in two", run_seconds=1)
        self.assertEqual(self.log.getvalue(), b"machine: start one\nmachine: start two\n")

    def test_of_a_machine_that_never_stops_talking_ends(self):
        self.assert_ended("echo 'machine: start one'; exec yes", "not done after 1 s, in one", run_seconds=1)


class FetchTest(unittest.TestCase):
    """With an archive that gives only so much."""

    SOURCE = "echo 'deb http://archive bookworm main'"
    KERNEL = "echo linux-image-6.1.0-9-armmp"

    def assert_says(self, complaint, source="true", lists="false", kernel="true"):
        with tempfile.TemporaryDirectory() as place:
            self.program(place, "apt-get", f'case "$*" in *indextargets*) {source} ;; *update) {lists} ;; *) exit 100 ;; esac')
            self.program(place, "apt-cache", kernel)
            target = os.path.join(place, "kernel")
            fetch = subprocess.run([os.path.join(HERE, "fetch-kernel"), "armhf", target], check=False, capture_output=True,
                                   text=True, env={**os.environ, "PATH": place + ":" + os.environ["PATH"]})
            self.assertEqual(fetch.returncode, 1)
            self.assertEqual(fetch.stderr.splitlines()[-1], "fetch-kernel: " + complaint)
            self.assertEqual(os.listdir(target), [])

    @staticmethod
    def program(place, name, script):
        path = os.path.join(place, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\n{script}\n")
        os.chmod(path, 0o755)

    def test_says_when_there_is_no_archive(self):
        self.assert_says("this machine names no source of Debian bookworm packages")

    def test_says_when_the_archive_does_not_answer(self):
        self.assert_says("there is no linux-image-6.1.0-*-armmp to be had", source=self.SOURCE)

    def test_says_when_the_kernel_does_not_come(self):
        self.assert_says("linux-image-6.1.0-9-armmp cannot be fetched", source=self.SOURCE, lists="true", kernel=self.KERNEL)

    def test_fetches_nothing_that_is_there(self):
        with tempfile.TemporaryDirectory() as place:
            for name in ("vmlinuz", "binder_linux.ko"):
                self.program(place, name, "")
            self.assertEqual(subprocess.run([os.path.join(HERE, "fetch-kernel"), "amd64", place], check=False,
                                            env={"PATH": "/usr/bin:/bin"}).returncode, 0)
            self.assertEqual(sorted(os.listdir(place)), ["binder_linux.ko", "vmlinuz"])


if __name__ == "__main__":
    unittest.main()
