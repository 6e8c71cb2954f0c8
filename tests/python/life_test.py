"""What calls and events leave behind, and how a process ends in the middle of them."""

from __future__ import annotations

import os
import select
import tempfile
import unittest
from pathlib import Path

from package import LONG, PATIENCE, PATIENCE_WITH_PROGRAMS, QUIET, SPEAKER, WithTelevision, kelutv, run_python

COSTS = Path(__file__).resolve().parents[2] / "bench/programs/python_calls.py"
CALLS = 10_000 if LONG else 1_000
ROUNDS = 200 if LONG else 3

WEAR = """
import gc, os, sys, threading
import kelutv

def held():
    with open("/proc/self/statm") as file:
        return len(os.listdir("/proc/self/fd")), len(os.listdir("/proc/self/task")), int(file.read().split()[1]) * 4

def rounds(count):
    before = events.dropped
    for number in range(count):
        tv.audio.set_volume(0, number % 2)
        tv.audio.get_nr_attr()
        tv.sourcemanager.get_source_list()
        tv.factory.get_panel_id()
        tv.hdmicec.get_device_list_info()
        if number % 50 == 0:
            with tv.events(timeout=patience) as more:
                tv.audio.set_volume(0, 2)
                next(more)
    # A change more for each stream.
    sent = count + (count + 49) // 50
    taken = 0
    while taken + events.dropped - before < sent:
        next(events)
        taken += 1

in_process, calls, patience = sys.argv[1] == "in_process", int(sys.argv[2]), float(sys.argv[3])
tv = kelutv.Television(in_process=in_process, messages=None if in_process else -3)
tv.audio.set_volume(0, 50)
events = tv.events(timeout=patience)
rounds(calls // 4)
gc.collect()
before = held()
rounds(calls)
gc.collect()
after = held()
print(*(b - a for a, b in zip(before, after)))
events.close()
tv.close()
"""

ENDING = """
import sys, threading
import kelutv

tv = kelutv.Television(in_process=sys.argv[1] == "in_process", messages=None if sys.argv[1] == "in_process" else -3)
begun = threading.Barrier(4)

def call():
    first = True
    while True:
        tv.audio.set_volume(0, 3)
        tv.sourcemanager.get_source_list()
        if first:
            begun.wait()
        first = False

def listen():
    events = tv.events()
    begun.wait()
    for event in events:
        pass

for work in (call, call, listen):
    threading.Thread(target=work, daemon=True).start()
begun.wait()
print("done")
"""


class LifeTest(WithTelevision):
    def wear(self, kind: str) -> None:
        done = run_python(WEAR, kind, str(CALLS), str(PATIENCE_WITH_PROGRAMS), runtime_dir=self.simulator.runtime_dir)
        self.assertEqual(done.returncode, 0, done.stderr)
        descriptors, threads, kilobytes = map(int, done.stdout.split())
        self.assertEqual((descriptors, threads), (0, 0))
        # What one call left behind in bytes would show as so many kilobytes in a thousand.
        self.assertLess(kilobytes, 1024)

    def test_calls_and_events_leave_nothing_in_this_process(self) -> None:
        self.wear("in_process")

    def test_calls_and_events_leave_nothing_by_a_worker(self) -> None:
        self.wear("worker")

    def test_a_process_ends_in_the_middle_of_calls_and_events(self) -> None:
        for kind in ("in_process", "worker"):
            for number in range(ROUNDS):
                with self.subTest(kind, round=number):
                    done = run_python(ENDING, kind, runtime_dir=self.simulator.runtime_dir)
                    self.assertEqual((done.returncode, done.stdout), (0, "done\n"), done.stderr)
                    self.assertNotIn("Traceback", done.stderr)
                    self.assertNotIn("terminate", done.stderr)

    def test_development_mode_has_nothing_to_say(self) -> None:
        code = (
            "import kelutv, sys\n"
            "with kelutv.Simulator(messages=-3) as s, s.television(20, -3) as tv:\n"
            "    with tv.events(20) as events:\n"
            "        tv.audio.set_volume(0, 3)\n"
            "        s.event('0x84000', b'x')\n"
            "        next(events)\n"
            "    print(tv.audio.get_volume(0))\n"
            "forgotten = kelutv.Television(sys.argv[1], messages=-3)\n"
            "try:\n"
            "    forgotten.audio.get_volume(0)\n"
            "except kelutv.NoService:\n"
            "    print('none')\n"
        )
        with tempfile.TemporaryDirectory() as folder:
            done = run_python(code, folder, options=("-X", "dev", "-W", "error"))
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "3\nnone\n", ""))

    def test_a_worker_ends_with_its_television(self) -> None:
        tv = kelutv.Television(self.simulator.runtime_dir, messages=QUIET)
        tv.connect()
        process = tv._remote._worker.process  # type: ignore[union-attr]
        del tv
        self.assertIsNotNone(process.wait(PATIENCE))

    def test_a_worker_ends_with_its_process(self) -> None:
        code = (
            "import kelutv, os, signal\n"
            "tv = kelutv.Television(messages=-3)\n"
            "tv.connect()\n"
            "print(tv._remote._worker.process.pid, flush=True)\n"
            "os.kill(os.getpid(), signal.SIGKILL)\n"
        )
        self.simulator.fault("CMD_AUDIO_GETVOLUME delay 60s")
        done = run_python(code, runtime_dir=self.simulator.runtime_dir)
        self.assertEqual(done.returncode, -9)
        self.assertTrue(ends(int(done.stdout)))

    def test_calls_of_several_threads_of_this_process(self) -> None:
        code = (
            "import kelutv, threading\n"
            "tv = kelutv.Television(in_process=True)\n"
            "found = []\n"
            "def call(channel):\n"
            "    for value in range(100):\n"
            "        tv.audio.set_volume(channel, value)\n"
            "        if tv.audio.get_volume(channel) != value: return\n"
            "        if tv.factory.get_panel_id() == '': return\n"
            "    found.append(channel)\n"
            "threads = [threading.Thread(target=call, args=(channel,)) for channel in range(6)]\n"
            "[each.start() for each in threads]\n"
            "[each.join() for each in threads]\n"
            "print(sorted(found))\n"
        )
        done = run_python(code, runtime_dir=self.simulator.runtime_dir)
        self.assertEqual(done.stdout, "[0, 1, 2, 3, 4, 5]\n", done.stderr)

    def test_what_calls_cost_can_be_measured(self) -> None:
        done = run_python(f"import runpy, sys; sys.argv[1:] = ['2']; runpy.run_path({str(COSTS)!r}, run_name='__main__')")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([line.split(" us ")[0].rsplit(maxsplit=1)[0] for line in done.stdout.splitlines()], [
            "the C function, numbers", "in the process, numbers", "the C function, a record", "in the process, a record",
            "by a worker, numbers",
        ])

    def test_calls_release_the_interpreter(self) -> None:
        code = (
            "import kelutv, threading\n"
            "simulator = kelutv.Simulator(messages=-3)\n"
            "tv = kelutv.Television(simulator.runtime_dir, in_process=True)\n"
            "tv.audio.get_volume(0)\n"
            "simulator.fault('CMD_AUDIO_GETVOLUME delay 10s once')\n"
            "begun = threading.Event()\n"
            "def wait():\n"
            "    begun.set()\n"
            "    try:\n"
            "        tv.audio.get_volume(0)\n"
            "    except kelutv.LinkLost:\n"
            "        print('lost')\n"
            "thread = threading.Thread(target=wait)\n"
            "thread.start()\n"
            "begun.wait()\n"
            "while 'GETVOLUME' in ' '.join(simulator.do('faults')): pass\n"
            "simulator.kill()\n"
            "thread.join()\n"
        )
        done = run_python(code)
        # A call that kept the interpreter would have its answer before the simulator could be killed.
        self.assertEqual(done.stdout, "lost\n", done.stderr)

    def test_signals_of_a_terminal_do_not_end_a_worker(self) -> None:
        code = (
            "import kelutv, os, signal\n"
            "os.setsid()\n"
            "tv = kelutv.Television(messages=-3)\n"
            "tv.connect()\n"
            "for number in (signal.SIGINT, signal.SIGHUP):\n"
            "    signal.signal(number, lambda *_: None)\n"
            "    os.killpg(0, number)\n"
            "print(tv.audio.get_volume(0) >= 0)\n"
        )
        done = run_python(code, runtime_dir=self.simulator.runtime_dir)
        self.assertEqual(done.stdout, "True\n", done.stderr)


def ends(pid: int) -> bool:
    """Whether a process ends within the patience of the tests."""
    try:
        descriptor = os.pidfd_open(pid)
    except ProcessLookupError:
        return True
    try:
        return bool(select.select([descriptor], [], [], PATIENCE)[0])
    finally:
        os.close(descriptor)


if __name__ == "__main__":
    unittest.main()
