"""What calls take and give."""

from __future__ import annotations

import pickle
import pydoc
import unittest

from package import SPEAKER, WithTelevision, kelutv
from kelutv import enums, records


class NumbersTest(WithTelevision):
    def test_errors_name_the_argument(self) -> None:
        for call, message in (
            (lambda: self.tv.audio.set_volume(SPEAKER, "loud"), "audio.set_volume: vol: 'loud' is no whole number"),
            (lambda: self.tv.audio.set_volume(SPEAKER, 1.5), "audio.set_volume: vol: 1.5 is no whole number"),
            (lambda: self.tv.audio.set_nr_attr(None), "audio.set_nr_attr: stNRInfo: must not be None"),
            (lambda: self.tv.audio.set_nr_attr(3), "audio.set_nr_attr: stNRInfo: 3 is no records.NRAttrData"),
            (lambda: self.tv.factory.set_mac_address("02"), "factory.set_mac_address: pMacAddr: "),
            (lambda: self.tv.eep.get_tv_flash_eep_multi(0x8A00, "x"), "eep.get_tv_flash_eep_multi: u32Len: 'x' is no"),
        ):
            with self.assertRaises((TypeError, ValueError)) as raised:
                call()
            self.assertTrue(str(raised.exception).startswith(message), str(raised.exception))

    def test_a_value_that_was_set_is_read(self) -> None:
        self.assertIsNone(self.tv.audio.set_volume(SPEAKER, 35))
        self.assertEqual(self.tv.audio.get_volume(SPEAKER), 35)

    def test_the_original_names_are_the_same_functions(self) -> None:
        self.tv.audio.linux_tv_Audio_setVolume(SPEAKER, 36)
        self.assertEqual(self.tv.audio.linux_tv_Audio_getVolume(SPEAKER), 36)
        self.assertEqual(self.tv.call("linux_tv_Audio_getVolume", SPEAKER), 36)
        self.assertEqual(self.tv.call("audio.get_volume", SPEAKER), 36)

    def test_methods_without_a_c_function(self) -> None:
        self.tv.audio.set_input_volume(44)
        self.assertEqual(self.tv.audio.getInputVolume(), 44)
        self.assertEqual(self.tv.call("Audio::getInputVolume"), 44)

    def test_flags_are_bools(self) -> None:
        self.tv.audio.set_mute(SPEAKER, True)
        self.assertIs(self.tv.audio.get_mute(SPEAKER), True)
        self.tv.audio.set_mute(SPEAKER, False)
        self.assertIs(self.tv.audio.get_mute(SPEAKER), False)

    def test_enumerators_come_back_as_such(self) -> None:
        self.tv.audio.set_sound_mode(enums.KELU_TV_SNDMODE_E(1))
        mode = self.tv.audio.get_sound_mode()
        self.assertIsInstance(mode, enums.KELU_TV_SNDMODE_E)
        self.assertEqual(mode, 1)
        self.assertTrue(mode.is_known)

    def test_a_number_without_a_name_is_kept(self) -> None:
        self.simulator.set("audio.soundMode", 4711)
        mode = self.tv.audio.get_sound_mode()
        self.assertIsInstance(mode, enums.KELU_TV_SNDMODE_E)
        self.assertEqual((mode, mode.name, mode.is_known), (4711, "UNKNOWN_4711", False))
        self.assertEqual(pickle.loads(pickle.dumps(mode)), mode)
        self.assertIn("4711", repr(mode))

    def test_minus_one_may_be_a_value(self) -> None:
        self.simulator.set("audio.avSync", -1)
        self.assertEqual(self.tv.audio.get_av_sync(), -1)


class MemoryTest(WithTelevision):
    def test_texts(self) -> None:
        self.simulator.set("factory.panelID", '"Küche 43"')
        self.assertEqual(self.tv.factory.get_panel_id(), "Küche 43")

    def test_a_text_that_has_no_bytes(self) -> None:
        with self.assertRaisesRegex(ValueError, "factory.set_uart_data: .*surrogates"):
            self.tv.factory.set_uart_data("\ud800")

    def test_a_record_that_was_set_is_read(self) -> None:
        level = records.NRAttrData(True, 3)
        self.tv.audio.set_nr_attr(level)
        self.assertEqual(self.tv.audio.get_nr_attr(), level)
        self.assertEqual(repr(level), "NRAttrData(onOff=True, value=3)")

    def test_a_record_as_the_result(self) -> None:
        scale = records.PreScaleInfo(3, 5)
        self.tv.audio.set_pre_scale(SPEAKER, scale)
        self.assertEqual(self.tv.audio.get_pre_scale(SPEAKER), scale)

    def test_timing(self) -> None:
        self.simulator.signal("atv", "1080p60")
        timing = self.tv.sourcemanager.get_timing_info()
        self.assertEqual((timing.width, timing.height, timing.frameRate), (1920, 1080, 60))
        self.assertIs(timing.interlace, False)

    def test_several_outputs_are_a_tuple(self) -> None:
        self.simulator.set("factory.hotelBootChannel", 1, -7)
        self.assertEqual(self.tv.hotel.get_hotel_boot_channel(), (1, -7))

    def test_arrays_go_in_and_come_out(self) -> None:
        self.tv.eep.set_tv_flash_eep_multi(0x8A00, [1, 2, 255])
        self.assertEqual(self.tv.eep.get_tv_flash_eep_multi(0x8A00, 4), [1, 2, 255, 0])

    def test_numbers_out_of_their_range_are_refused(self) -> None:
        with self.assertRaisesRegex(ValueError, "eep.set_tv_flash_eep_multi: u32Address is 16, 35328 to 35836 are allowed"):
            self.tv.eep.set_tv_flash_eep_multi(16, [1])

    def test_lists_of_enumerators(self) -> None:
        sources = self.tv.sourcemanager.get_source_list()
        self.assertIn(enums.KELU_TV_SRC_E.KELU_TV_SRC_HDMI1, sources)
        self.assertIsInstance(sources[0], enums.KELU_TV_SRC_E)

    def test_devices(self) -> None:
        first = self.tv.hdmicec.get_device_list_info()[0]
        self.assertEqual((first.logAddr, first.hdmiDevPort, first.phyAddr, first.deVName), (4, 0, "1.0.0.0", "Disc player"))

    def test_a_block_for_the_data_callback(self) -> None:
        self.tv.vbimanager.regist_vbi_data_callback()
        with self.tv.vbi_data(timeout=5) as blocks:
            self.tv.vbimanager.vbi_data_callback(7, b"\x01\x02\x03")
            self.assertEqual(next(blocks), kelutv.VbiData(7, b"\x01\x02\x03"))


class ArgumentsTest(WithTelevision):
    def test_wrong_ones_are_named_and_nothing_is_sent(self) -> None:
        self.tv.audio.set_volume(SPEAKER, 12)
        for arguments in ((SPEAKER, "loud"), (SPEAKER, 1 << 40), (SPEAKER,)):
            with self.subTest(arguments), self.assertRaisesRegex((TypeError, OverflowError), "audio.set_volume"):
                self.tv.call("audio.set_volume", *arguments)
        self.assertEqual(self.tv.audio.get_volume(SPEAKER), 12)

    def test_records_are_checked(self) -> None:
        with self.assertRaisesRegex(TypeError, "audio.set_nr_attr: .* is no records.NRAttrData"):
            self.tv.audio.set_nr_attr(3)  # type: ignore[arg-type]
        with self.assertRaisesRegex(ValueError, "records.NRAttrData.value"):
            self.tv.audio.set_nr_attr(records.NRAttrData(True, "x"))  # type: ignore[arg-type]

    def test_texts_hold_no_zero(self) -> None:
        with self.assertRaisesRegex(ValueError, "zero character"):
            self.tv.pcmplayer.start_play("a\0b", False, False)

    def test_names_that_do_not_exist(self) -> None:
        with self.assertRaisesRegex(ValueError, "there is no function 'audio.setLoudness'"):
            self.tv.call("audio.setLoudness")
        with self.assertRaises(AttributeError):
            self.tv.bogus  # type: ignore[attr-defined] # noqa: B018

    def test_options_of_a_television(self) -> None:
        for options, words in (
            ({"level": 27}, "28, 29, 30"),
            ({"timeout": 0}, "more than 0"),
            ({"in_process": True, "timeout": 1}, "in_process"),
            ({"most_events": 0}, "at least 1"),
        ):
            with self.subTest(options), self.assertRaisesRegex(ValueError, words):
                kelutv.Television(**options)  # type: ignore[arg-type]


class HelpTest(unittest.TestCase):
    def test_help_says_meaning_units_and_values(self) -> None:
        from kelutv.modules.audio import Audio

        text = pydoc.render_doc(Audio.set_av_sync, renderer=pydoc.plaintext)
        self.assertIn("ms", text)
        text = pydoc.render_doc(Audio.set_volume, renderer=pydoc.plaintext)
        for words in ("Sets the volume of one output channel", "KELU_TV_AUDIO_CHANNEL_E", "linux_tv_Audio_setVolume", "CMD_AUDIO_SETVOLUME"):
            self.assertIn(words, text)

    def test_every_function_has_words(self) -> None:
        from samples import functions

        for row in functions():
            module, name = row[1].split(".")
            function = getattr(getattr(kelutv.Television(), module), name)
            with self.subTest(row[1]):
                self.assertGreater(len(function.__doc__.splitlines()[0]), 10)

    def test_everything_shows_what_it_is(self) -> None:
        tv = kelutv.Television("/somewhere", timeout=1)
        self.assertEqual(repr(tv), "<Television in /somewhere by a worker>")
        self.assertEqual(repr(tv.audio), "<functions of the module audio>")
        self.assertEqual(repr(tv.within(2)), "<<Television in /somewhere by a worker> within 2 s>")
        tv.close()
        self.assertEqual(repr(tv), "<Television in /somewhere by a worker, closed>")


if __name__ == "__main__":
    unittest.main()
