"""Events and how they are handed on."""

from __future__ import annotations

import asyncio
import os
import threading
import time
import unittest

from package import PATIENCE, QUIET, SPEAKER, WithTelevision, kelutv, run_python
from kelutv import enums
from kelutv._channel import is_readable
from kelutv._notices import EVENT, VBI_DATA, Hub, Listener, Notice

# The first event of KELU_EM_MODE_COMMON that the simulated television does not publish by itself.
OWN = 0x80000 + 0x4000


class OneNotice:
    """A source of one event, which the waiting thread has to be told of by the one that reads."""

    def __init__(self) -> None:
        self._end, self._other = os.pipe()

    def give(self) -> None:
        os.write(self._other, b"x")

    def end(self) -> None:
        os.write(self._other, b"e")

    def fileno(self) -> int:
        return self._end

    def take(self) -> tuple[list[Notice], bool]:
        given = os.read(self._end, 1)
        return [Notice(1, EVENT, OWN, given)] if given == b"x" else [], given != b"e"

    def close(self) -> None:
        os.close(self._end)
        os.close(self._other)


class EventsTest(WithTelevision):
    def test_a_change_is_told_with_its_fields(self) -> None:
        self.simulator.set("audio.volume[speaker]", 1)
        with self.tv.events(timeout=PATIENCE) as events:
            self.tv.audio.set_volume(SPEAKER, 27)
            event = next(events)
        self.assertEqual((event.name, event.module), ("volumeChanged", enums.KELU_EM_MODE_E.KELU_EM_MODE_VOLUME))
        self.assertEqual(event.fields, {"channel": SPEAKER, "volume": 27})
        self.assertIsInstance(event.fields["channel"], enums.KELU_TV_AUDIO_CHANNEL_E)
        self.assertIn("volume=27", str(event))

    def test_they_come_in_order_with_every_byte(self) -> None:
        with self.tv.events(timeout=PATIENCE) as events:
            sent = [bytes([i]) * i for i in range(50)]
            for payload in sent:
                self.simulator.event(OWN, payload)
            self.assertEqual([next(events) for _ in sent], [kelutv.Event(OWN, payload) for payload in sent])
            self.assertEqual(events.dropped, 0)

    def test_a_long_payload(self) -> None:
        payload = bytes(range(256)) * 200
        with self.tv.events(timeout=PATIENCE) as events:
            self.simulator.event(OWN, payload)
            self.assertEqual(next(events).payload, payload)

    def test_payloads_of_another_form_have_no_fields(self) -> None:
        self.assertEqual(kelutv.Event(0x60001, b"\x01").fields, {})
        self.assertIsNone(kelutv.Event(OWN, b"").name)

    def test_the_time_ends_the_stream(self) -> None:
        begin = time.monotonic()
        self.assertEqual(list(self.tv.events(timeout=0.1)), [])
        self.assertLess(time.monotonic() - begin, 5)

    def test_each_stream_has_all_events(self) -> None:
        with self.tv.events(timeout=PATIENCE) as one, self.tv.events(timeout=PATIENCE) as other:
            self.simulator.event(OWN, b"a")
            self.simulator.event(OWN, b"b")
            for stream in (one, other):
                self.assertEqual([next(stream).payload, next(stream).payload], [b"a", b"b"])

    def test_threads_wait_side_by_side(self) -> None:
        found: list[bytes] = []

        def take() -> None:
            with self.tv.events(timeout=PATIENCE) as events:
                ready.wait()
                found.append(next(events).payload)

        ready = threading.Barrier(4)
        threads = [threading.Thread(target=take) for _ in range(3)]
        for thread in threads:
            thread.start()
        ready.wait()
        self.simulator.event(OWN, b"x")
        for thread in threads:
            thread.join(PATIENCE)
        self.assertEqual(found, [b"x"] * 3)

    def test_what_does_not_fit_is_dropped_and_counted(self) -> None:
        with kelutv.Television(self.simulator.runtime_dir, messages=QUIET, most_events=4) as tv:
            with tv.events(timeout=PATIENCE) as events, self.tv.events(timeout=PATIENCE) as all_events:
                with tv.events(timeout=PATIENCE) as other:
                    for i in range(10):
                        self.simulator.event(OWN, bytes([i]))
                    self.assertEqual([next(all_events).payload[0] for _ in range(10)], list(range(10)))
                    # Who waits reads for all.
                    while next(other).payload != b"\x09":
                        pass
                found = [next(events).payload[0]]
                while found[-1] != 9:
                    found.append(next(events).payload[0])
                self.assertLessEqual(len(found), 4)
                self.assertEqual(found, list(range(10 - len(found), 10)))
                self.assertEqual(len(found) + events.dropped, 10)

    def test_who_waits_is_told_while_another_reads_on(self) -> None:
        source = OneNotice()
        self.addCleanup(source.close)
        hub = Hub(source)
        one, other = Listener(EVENT, 4), Listener(VBI_DATA, 4)
        for listener in (one, other):
            hub.listen(listener, lambda: 0)
        reader = threading.Thread(target=hub.next, args=(other, time.monotonic() + PATIENCE), daemon=True)
        reader.start()
        while hub.is_free():
            pass
        found: list[Notice | None] = []
        waiter = threading.Thread(target=lambda: found.append(hub.next(one, time.monotonic() + PATIENCE)), daemon=True)
        waiter.start()
        begin = time.monotonic()
        source.give()
        waiter.join(PATIENCE / 2)
        self.assertEqual(found, [Notice(1, EVENT, OWN, b"x")])
        self.assertLess(time.monotonic() - begin, PATIENCE / 2)
        source.end()
        reader.join(PATIENCE)
        self.assertFalse(hub.is_open)

    def test_a_stream_begins_when_it_is_made(self) -> None:
        """What the worker has and nobody has taken came before."""
        with self.simulator.television(PATIENCE, QUIET) as tv, tv.events(timeout=PATIENCE) as before:
            self.simulator.event(OWN, b"early")
            self.assertTrue(is_readable(before._hub.fileno(), time.monotonic() + PATIENCE))
            with tv.events(timeout=PATIENCE) as events:
                self.simulator.event(OWN, b"late")
                self.assertEqual((next(events).payload, events.dropped), (b"late", 0))
            self.assertEqual([next(before).payload, next(before).payload], [b"early", b"late"])

    def test_a_listener_hears_what_comes_while_it_begins(self) -> None:
        listener = Listener(EVENT, 4)
        notices = [Notice(number, EVENT, OWN, bytes([number])) for number in range(4, 8)]
        for notice in notices:
            listener.add(notice)
        listener.begin_behind(5)
        for notice in (*notices, Notice(8, VBI_DATA, OWN, b""), Notice(11, EVENT, OWN, b"")):
            listener.add(notice)
        self.assertEqual([notice.number for notice in listener.waiting], [6, 7, 11])
        self.assertEqual(listener.dropped, 2)

    def test_one_is_taken_within_a_time(self) -> None:
        with self.tv.events() as events:
            self.assertIsNone(events.take(0))
            self.simulator.event(OWN, b"x")
            self.assertEqual(events.take(PATIENCE), kelutv.Event(OWN, b"x"))
        with self.simulator.television(PATIENCE, QUIET) as tv, tv.events() as events:
            tv._remote._worker.process.kill()  # type: ignore[union-attr]
            self.assertRaises(kelutv.LinkLost, events.take, PATIENCE)

    def test_a_loss_ends_the_stream(self) -> None:
        with self.simulator.television(PATIENCE, QUIET) as tv:
            events = tv.events(timeout=PATIENCE)
            tv._remote._worker.process.kill()  # type: ignore[union-attr]
            with self.assertRaises(kelutv.LinkLost):
                next(events)


class AsyncEventsTest(WithTelevision):
    def test_async_for(self) -> None:
        async def take() -> list[int]:
            found = []
            stream = self.tv.events_async(timeout=PATIENCE)
            self.assertEqual(repr(stream), "<stream, 0 waiting, 0 dropped>")
            self.simulator.event(OWN, b"\x01")
            self.simulator.event(OWN, b"\x02")
            async for event in stream:
                found.append(event.payload[0])
                if len(found) == 2:
                    break
            stream.close()
            return found

        self.assertEqual(asyncio.run(take()), [1, 2])

    def test_two_tasks_and_the_end_of_the_time(self) -> None:
        async def count(seconds: float) -> int:
            async with self.tv.events_async(timeout=seconds) as stream:
                return len([event async for event in stream])

        async def both() -> list[int]:
            tasks = [asyncio.create_task(count(0.4)) for _ in range(2)]
            await asyncio.sleep(0)
            await asyncio.to_thread(self.simulator.event, OWN, b"")
            return await asyncio.gather(*tasks)

        self.assertEqual(asyncio.run(both()), [1, 1])

    def test_an_ended_link_is_no_work_for_the_loop(self) -> None:
        async def calls_of_the_loop(tv: kelutv.Television) -> int:
            stream, reads = tv.events_async(timeout=PATIENCE), 0
            hub = stream._hub
            read = hub.read

            def count() -> None:
                nonlocal reads
                reads += 1
                read()

            asyncio.get_running_loop().add_reader(stream._descriptor, count)
            tv._remote._worker.process.kill()  # type: ignore[union-attr]
            while hub.is_open:
                await asyncio.sleep(0)
            for _ in range(100):
                await asyncio.sleep(0)
            with self.assertRaises(kelutv.LinkLost):
                await stream.__anext__()
            return reads

        with self.simulator.television(PATIENCE, QUIET) as tv:
            self.assertLess(asyncio.run(calls_of_the_loop(tv)), 10)

    def test_a_forgotten_stream_leaves_nothing(self) -> None:
        async def forget() -> None:
            async for _ in self.tv.events_async(timeout=0.05):
                pass
            stream = self.tv.events_async(timeout=PATIENCE)
            self.simulator.event(OWN)
            async for _ in stream:
                break

        self.simulator.clear_faults()
        with self.tv.events(timeout=0.05) as first:
            before = len(os.listdir("/proc/self/fd"))
            asyncio.run(forget())
            self.tv.events(timeout=PATIENCE)
            self.assertEqual(len(os.listdir("/proc/self/fd")), before)
            self.assertEqual(list(first._hub._listeners), [first._listener])


IN_PROCESS = """
import sys, kelutv
simulator = kelutv.Simulator(runtime_dir=None, messages=-3)
tv = kelutv.Television(simulator.runtime_dir, in_process=True, most_events=4)
with tv.events(timeout=20) as events:
    simulator.event(0x84000, b"first")
    print(next(events).payload)
    for i in range(10):
        simulator.event(0x84000, bytes([i]))
    simulator.set("audio.volume[speaker]", 3)
    tv.audio.get_volume(0)
    taken = 1
    while (event := next(events)).id == 0x84000:
        taken += 1
    print(event.name, taken, events.dropped)
tv.factory.get_edid_type()
simulator.close()
"""


class InProcessTest(unittest.TestCase):
    def test_events_and_prints_of_this_process(self) -> None:
        done = run_python(IN_PROCESS, options=("-X", "dev"))
        lines = done.stdout.splitlines()
        self.assertEqual((done.returncode, lines[0]), (0, "b'first'"), done.stderr)
        # The oldest of more than four were dropped; how many came before the first was taken is the runtime's matter.
        name, taken, dropped = lines[1].split()
        self.assertEqual((name, int(taken) + int(dropped)), ("volumeChanged", 11))
        self.assertEqual(len(lines), 2, "what the library prints reached standard output")
        self.assertNotIn("Warning", done.stderr)


if __name__ == "__main__":
    unittest.main()
