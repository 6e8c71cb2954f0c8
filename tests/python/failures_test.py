"""What of a call that failed is said, under every fault of an answer, of the link and of the service."""

from __future__ import annotations

import threading
import time
import unittest

from package import PATIENCE, QUIET, SPEAKER, WithTelevision, kelutv
from kelutv import records


class FaultsTest(WithTelevision):
    def failure(self, kind: type[kelutv.TelevisionError], line: str) -> kelutv.TelevisionError:
        """What reading the volume says under a fault."""
        self.simulator.fault(line)
        with self.assertRaises(kind) as caught:
            self.tv.audio.get_volume(SPEAKER)
        self.simulator.clear_faults()
        self.assertIs(type(caught.exception), kind)
        self.assertEqual(caught.exception.function, "audio.get_volume")
        return caught.exception

    def test_a_refusal_has_its_number_and_name(self) -> None:
        error = self.failure(kelutv.ServiceRefused, "CMD_AUDIO_GETVOLUME error -107")
        self.assertEqual(error.status, -107)
        self.assertIn("value out of range", str(error))

    def test_a_refused_set(self) -> None:
        with self.assertRaises(kelutv.ServiceRefused) as caught:
            self.tv.audio.set_volume(SPEAKER, 4711)
        self.assertEqual(str(caught.exception), "audio.set_volume: the service answered -107, value out of range")

    def test_a_refusal_of_what_gives_zero_in_every_case(self) -> None:
        self.simulator.fault("CMD_AUDIO_GETNRATTR error 7")
        with self.assertRaises(kelutv.ServiceRefused) as caught:
            self.tv.audio.get_nr_attr()
        self.assertEqual(caught.exception.status, 7)

    def test_a_refused_flag_is_not_true(self) -> None:
        self.simulator.fault("CMD_AUDIO_GETMUTE error 7")
        with self.assertRaises(kelutv.ServiceRefused):
            self.tv.audio.get_mute(SPEAKER)

    def test_answers_that_are_not_as_they_should_be(self) -> None:
        for line in ("short 0", "short 3", "short 4", "short 7", "long 1", "long 8"):
            with self.subTest(line):
                self.failure(kelutv.MalformedReply, f"CMD_AUDIO_GETVOLUME {line}")

    def test_a_short_record(self) -> None:
        self.simulator.fault("CMD_SOURCE_GETTIMMINGINFO short 12")
        with self.assertRaises(kelutv.MalformedReply):
            self.tv.sourcemanager.get_timing_info()

    def test_a_count_beyond_its_list(self) -> None:
        self.simulator.fault("CMD_FACTORY_GET_CTL_VOLUME count 2147483647")
        with self.assertRaises(kelutv.MalformedReply):
            self.tv.factory.get_sound_curve_ctl_data()

    def test_a_text_without_an_end(self) -> None:
        self.simulator.fault("CMD_FACTORY_GETPANELID unterminated")
        with self.assertRaises(kelutv.MalformedReply):
            self.tv.factory.get_panel_id()

    def test_a_late_answer_is_right(self) -> None:
        self.simulator.fault("CMD_AUDIO_GETVOLUME delay 50ms once")
        self.assertGreaterEqual(self.tv.audio.get_volume(SPEAKER), 0)

    def test_what_the_library_refuses_sends_nothing(self) -> None:
        self.simulator.fault("any error -1")
        with self.assertRaises(kelutv.LibraryRefused) as caught:
            self.tv.audio.set_drc_attr(None)
        self.assertIn("nothing was sent", str(caught.exception))


class TimeTest(WithTelevision):
    def test_a_call_that_takes_too_long_is_given_up(self) -> None:
        self.simulator.fault("CMD_AUDIO_GETVOLUME delay 60s")
        begin = time.monotonic()
        with self.assertRaisesRegex(kelutv.Timeout, "audio.get_volume: no answer within 0.2 s"):
            self.tv.within(0.2).audio.get_volume(SPEAKER)
        self.assertLess(time.monotonic() - begin, 5)
        self.simulator.clear_faults()
        self.assertGreaterEqual(self.tv.audio.get_volume(SPEAKER), 0)

    def test_a_limit_of_one_call_by_name(self) -> None:
        self.simulator.fault("CMD_AUDIO_GETVOLUME delay 60s")
        with self.assertRaises(kelutv.Timeout):
            self.tv.call("linux_tv_Audio_getVolume", SPEAKER, timeout=0.1)

    def test_a_limit_counts_while_another_call_has_the_worker(self) -> None:
        self.simulator.fault("CMD_AUDIO_GETVOLUME delay 60s")
        failures: list[kelutv.TelevisionError] = []

        def wait() -> None:
            try:
                self.tv.within(1).audio.get_volume(SPEAKER)
            except kelutv.TelevisionError as error:
                failures.append(error)

        other = threading.Thread(target=wait)
        with self.tv.events(timeout=PATIENCE):
            other.start()
            while not self.tv._remote._lock.locked():  # type: ignore[union-attr]
                time.sleep(0.001)
            with self.assertRaisesRegex(kelutv.Timeout, "another call did not return"):
                self.tv.within(0.1).audio.get_sound_mode()
        other.join(PATIENCE)
        self.assertEqual([type(error) for error in failures], [kelutv.Timeout])

    def test_closing_and_connecting_anew_end_a_call(self) -> None:
        self.simulator.fault("CMD_AUDIO_GETVOLUME delay 60s")
        for end in (kelutv.Television.reconnect, kelutv.Television.close):
            with self.subTest(end.__name__), self.simulator.television(messages=QUIET) as tv:
                tv.connect()
                failures: list[Exception] = []

                def wait(tv: kelutv.Television = tv, failures: list[Exception] = failures) -> None:
                    try:
                        tv.audio.get_volume(SPEAKER)
                    except kelutv.TelevisionError as error:
                        failures.append(error)

                other = threading.Thread(target=wait)
                other.start()
                while not tv._remote._lock.locked():  # type: ignore[union-attr]
                    time.sleep(0.001)
                begin = time.monotonic()
                end(tv)
                self.assertLess(time.monotonic() - begin, PATIENCE)
                other.join(PATIENCE)
                self.assertEqual([type(error) for error in failures], [kelutv.LinkLost])

    def test_a_short_limit_is_not_for_the_start_of_a_worker(self) -> None:
        with self.simulator.television(messages=QUIET) as tv:
            # No interpreter starts so fast, and a worker that stands answers in less than a tenth of it.
            for _ in range(10):
                try:
                    tv.within(0.03).audio.get_sound_mode()
                    break
                except kelutv.Timeout:
                    continue
            else:
                self.fail("no call was made in time")

    def test_a_limit_of_connecting_is_for_the_start_of_a_worker_too(self) -> None:
        with self.simulator.television(messages=QUIET) as tv:
            # No interpreter starts so fast.
            with self.assertRaisesRegex(kelutv.Timeout, "connect: no answer within 0.002 s"):
                tv.connect(timeout=0.002)
            tv.connect(timeout=PATIENCE)
            self.assertGreaterEqual(tv.audio.get_volume(SPEAKER), 0)
            with self.assertRaisesRegex(ValueError, "timeout is 0, more than 0 is allowed"):
                tv.connect(timeout=0)

    def test_limits_without_an_end(self) -> None:
        for seconds in (1e7, 1e300, float("inf")):
            self.assertGreaterEqual(self.tv.within(seconds).audio.get_volume(SPEAKER), 0)
        with self.assertRaisesRegex(ValueError, "seconds is nan"):
            self.tv.within(float("nan"))


class LossTest(unittest.TestCase):
    def test_no_service(self) -> None:
        with kelutv.Simulator(messages=QUIET) as simulator:
            folder = simulator.runtime_dir
            with simulator.television(timeout=PATIENCE, messages=QUIET) as tv:
                simulator.kill()
                with self.assertRaisesRegex(kelutv.NoService, f"there is no television service: .*{folder}"):
                    tv.audio.get_volume(SPEAKER)

    def test_a_lost_link_is_made_anew_by_the_next_call(self) -> None:
        with kelutv.Simulator(messages=QUIET) as first, first.television(PATIENCE, QUIET) as tv:
            tv.audio.set_volume(SPEAKER, 30)
            first.fault("CMD_AUDIO_GETVOLUME die before")
            with self.assertRaises(kelutv.LinkLost) as caught:
                tv.audio.get_volume(SPEAKER)
            self.assertEqual(caught.exception.status, -32)
            self.assertIn("DEAD_OBJECT", str(caught.exception))
            self.assertEqual(first.wait(PATIENCE), 3)
            with kelutv.Simulator(runtime_dir=first.runtime_dir, messages=QUIET):
                tv.audio.set_volume(SPEAKER, 31)
                self.assertEqual(tv.audio.get_volume(SPEAKER), 31)

    def test_the_answer_before_the_end_is_right(self) -> None:
        with kelutv.Simulator(messages=QUIET) as simulator, simulator.television(PATIENCE, QUIET) as tv:
            simulator.set("audio.volume[speaker]", 33)
            simulator.fault("CMD_AUDIO_GETVOLUME die after")
            self.assertEqual(tv.audio.get_volume(SPEAKER), 33)
            self.assertEqual(simulator.wait(PATIENCE), 3)

    def test_reconnect(self) -> None:
        with kelutv.Simulator(messages=QUIET) as simulator, simulator.television(PATIENCE, QUIET) as tv:
            tv.connect()
            before = tv._remote._worker.process.pid  # type: ignore[union-attr]
            tv.reconnect()
            self.assertNotEqual(tv._remote._worker.process.pid, before)  # type: ignore[union-attr]
            self.assertEqual(tv.audio.get_volume(SPEAKER), simulator.get("audio.volume[speaker]")[0])

    def test_a_worker_that_ends(self) -> None:
        with kelutv.Simulator(messages=QUIET) as simulator, simulator.television(PATIENCE, QUIET) as tv:
            tv.connect()
            tv._remote._worker.process.kill()  # type: ignore[union-attr]
            with self.assertRaisesRegex(kelutv.LinkLost, "the process that held the link ended .SIGKILL."):
                tv.audio.get_volume(SPEAKER)
            self.assertGreaterEqual(tv.audio.get_volume(SPEAKER), 0)

    def test_a_closed_television(self) -> None:
        tv = kelutv.Television("/nowhere")
        tv.close()
        with self.assertRaisesRegex(ValueError, "closed"):
            tv.audio.get_volume(SPEAKER)

    def test_several_at_once_and_every_level(self) -> None:
        with kelutv.Simulator(messages=QUIET) as one, kelutv.Simulator(messages=QUIET, level=30) as other:
            with one.television(PATIENCE, QUIET) as first, other.television(PATIENCE, QUIET) as second:
                self.assertEqual(second.level, 30)
                first.audio.set_volume(SPEAKER, 11)
                second.audio.set_volume(SPEAKER, 22)
                self.assertEqual((first.audio.get_volume(SPEAKER), second.audio.get_volume(SPEAKER)), (11, 22))
                self.assertEqual((one.get("audio.volume[speaker]"), other.get("audio.volume[speaker]")), ([11], [22]))


class ErrorsTest(unittest.TestCase):
    def test_they_are_of_one_family(self) -> None:
        for kind in (
            kelutv.ServiceRefused, kelutv.MalformedReply, kelutv.LibraryRefused, kelutv.NoService, kelutv.LinkLost,
            kelutv.Timeout,
        ):
            self.assertTrue(issubclass(kind, kelutv.TelevisionError))

    def test_records_compare(self) -> None:
        self.assertEqual(records.KeluRect(1, 2, 3, 4), records.KeluRect(1, 2, 3, 4))


if __name__ == "__main__":
    unittest.main()
