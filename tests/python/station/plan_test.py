"""Plans that are wrong are refused with the place, what is wrong and what is allowed."""

from __future__ import annotations

import tempfile
import unittest
from pathlib import Path
from typing import Any

from kelutv import enums, records
from kelutv_station.conversation import Conversation
from kelutv_station.plan.limits import Limit, limit_of
from kelutv_station.plan.outputs import named
from kelutv_station.plan.plan import Call, PlanError, Prompt, Wait
from kelutv_station.plan.reading import plan_of, read_plan
from kelutv_station.program import with_units
from kelutv_station.tool import Tool, ToolError

from plans import BURN, CHANGED, CONVERSATION, READ, UNIT, VOLUME, plan_with, ready_with


class Plans(unittest.TestCase):
    def assert_refused(self, message: str, *steps: dict[str, Any], **members: Any) -> None:
        with self.assertRaises(PlanError) as raised:
            ready_with(*steps, **members)
        self.assertIn(message, str(raised.exception))

    def test_say_which_step_is_wrong_and_what_is_allowed(self) -> None:
        self.assert_refused(
            "line.toml: step 2 'read': there is no hgih; the nearest is high; allowed: ", VOLUME, {**READ, "hgih": 3})
        self.assert_refused("line.toml: step 1: needs name, a text", {"call": "audio.getVolume"})
        self.assert_refused("step 1 'x': needs one of call, wait, prompt, picture, snapshot, none is there", {"name": "x"})
        self.assert_refused("prompt, picture, snapshot, call, wait is there", {**READ, "wait": "volumeChanged"})
        self.assert_refused("'read': low must be a number, not '30'", {**READ, "low": "30"})
        self.assert_refused("'read': low is 50, which is above high, 40", {**READ, "low": 50})
        self.assert_refused("'read': timeout must be above 0 and at most 86400 seconds, not 0", {**READ, "timeout": 0})
        self.assert_refused("'read': repeat must be true or false, not 'no'", {**READ, "repeat": "no"})
        self.assert_refused("'read': matches is no regular expression", {**READ, "matches": "("})
        self.assert_refused("limits of width: has no bounds; allowed: low, high", {**VOLUME, "limits": {"width": {}}})
        self.assert_refused("steps: there are two of the name 'read'", READ, READ)
        self.assert_refused("line.toml: has no steps")
        self.assert_refused("there is no titel; the nearest is title", READ, titel="x")

    def test_are_held_against_the_interface(self) -> None:
        self.assert_refused("step 1 'read': there is no function", {**READ, "call": "audio.getVolum"})
        self.assert_refused("nearest: audio.getVolume", {**READ, "call": "audio.getVolum"})
        self.assert_refused(
            "'volume': unit A1: audio.setVolume: channel: 'speker' is not one of speaker",
            {**VOLUME, "arguments": ["speker", 1]})
        self.assert_refused("audio.getVolume takes 1 argument: channel; there are 0", {**READ, "arguments": []})
        self.assert_refused(
            "'changed': volumeChanged has no field vol; it has: channel, volume", VOLUME, {**CHANGED, "fields": {"vol": 3}})
        self.assert_refused("'changed': channel: 'speker' is not one of", VOLUME, {**CHANGED, "fields": {"channel": "speker"}})
        self.assert_refused("'look': there is no snapshot golden.json", {"name": "look", "snapshot": "golden.json"})

    def test_limit_what_a_function_gives(self) -> None:
        timing = {"name": "timing", "call": "sourcemanager.getTimingInfo"}
        language = {"name": "language", "call": "systemsetting.getLanguage"}
        self.assert_refused(
            "step 1 'timing': sourcemanager.getTimingInfo gives no widht to be limited; it gives: width, height, frameRate",
            {**timing, "limits": {"widht": {"equals": 720}}})
        self.assert_refused("audio.setVolume gives no result to be limited; it gives: nothing", {**VOLUME, "low": 0})
        self.assert_refused("'language': result: 'englis' is not one of KQ_LANG_", {**language, "equals": "englis"})
        self.assert_refused("'language': result: 'x' is not one of", {**language, "one_of": ["english", "x"]})
        ready_with(language | {"equals": "english"}, {**timing, "limits": {"width": {"equals": 720}}})

    def test_name_results_by_what_they_are_of(self) -> None:
        channel = {"name": "channel", "call": "GetHotelBootChannel", "limits": {"pChannel": {"low": 1}}}
        self.assertEqual(list(ready_with(channel).plan.steps[0].limits), ["pChannel"])
        self.assertEqual(named((1, 7), ("pTvmode", "pChannel")), {"pTvmode": 1, "pChannel": 7})
        self.assertEqual(named((0, 1, 7), ("pTvmode", "pChannel")), {"result": 0, "pTvmode": 1, "pChannel": 7})
        self.assertEqual(named([1, 7], ("list",)), {"result": [1, 7]})
        self.assertEqual(named(None, ()), {})
        record = records.KeluRect(1, 2, 3, 4)
        self.assertEqual(list(named(record, ("pRect",)).values()), [1, 2, 3, 4])
        self.assertEqual([name.partition(".")[0] for name in named((record, 5), ("a", "b"))], ["a"] * 4 + ["b"])

    def test_name_what_is_dangerous(self) -> None:
        self.assert_refused('step 1 \'burn\': factory.setMacAddress is dangerous', BURN)
        self.assert_refused('allow = ["factory.setMacAddress"]', BURN)
        self.assert_refused("allow: no step calls factory.setMacAddress", READ, allow=["factory.setMacAddress"])
        self.assert_refused("allow: no step calls audio.getVolume, or it is not dangerous", READ, allow=["audio.getVolume"])
        self.assert_refused(
            "'judge': factory.setMacAddress is dangerous",
            {"name": "judge", "picture": "Good?", "show": {"call": BURN["call"], "arguments": BURN["arguments"]}})
        self.assertEqual(ready_with(BURN, allow=["linux_tv_Factory_setMacAddress"]).plan.steps[0].repeat, False)

    def test_repeat_what_is_not_dangerous(self) -> None:
        steps = ready_with(VOLUME, {**READ, "repeat": False}, BURN, allow=["factory.setMacAddress"]).plan.steps
        self.assertEqual([step.repeat for step in steps], [True, False, False])
        self.assertTrue(ready_with({**BURN, "repeat": True}, allow=["factory.setMacAddress"]).plan.steps[0].repeat)

    def test_fill_in_the_values_of_units(self) -> None:
        mac = {**BURN, "arguments": ["{mac}"]}
        unit = {**UNIT, "values": {"mac": "02:00:00:12:34:56"}}
        ready = ready_with(mac, allow=["factory.setMacAddress"], unit=[unit])
        self.assertEqual(ready.calls["A1", "burn"].arguments, ([2, 0, 0, 0x12, 0x34, 0x56],))
        self.assert_refused(
            "step 1 'burn': unit A1 has no value 'mac' for {mac}; it has: serial", mac, allow=["factory.setMacAddress"])
        self.assertEqual(ready_with(VOLUME).calls["A1", "volume"].arguments, (0, 35))

    def arguments_of(self, call: str, *arguments: Any, **members: Any) -> tuple[Any, ...]:
        return ready_with({"name": "x", "call": call, "arguments": list(arguments)}, **members).calls["A1", "x"].arguments

    def test_give_arguments_of_the_declared_types(self) -> None:
        self.assertEqual(self.arguments_of("audio.setVolume", "0", "0x23"), (0, 35))
        self.assertEqual(self.arguments_of("audio.enableSubWoofer", "on"), (True,))
        self.assertEqual(self.arguments_of("audio.setNRAttr", {"onOff": True, "value": "2"}), (records.NRAttrData(True, 2),))
        self.assertEqual(self.arguments_of("factory.setOverscan", {"x": 1, "height": 4}), (records.KeluRect(1, 0, 0, 4),))
        window = {"window": "KELU_TV_WINDOW_SUB", "cropRect": {"topOffset": 7}}
        attributes = records.KELU_TV_WINDOW_ATTR_S(enums.KELU_TV_WINDOW_E.SUB, records.KELU_TV_CROP_RECT_S(topOffset=7))
        self.assertEqual(self.arguments_of("video.setWindowAttr", "KELU_TV_SRC_HDMI1", window), (9, attributes))
        self.assertEqual(self.arguments_of("factory.setMacAddress", ["1", 2], allow=["factory.setMacAddress"]), ([1, 2],))
        (equalizer,) = self.arguments_of("audio.setPEQAttr", {"intBandNum": 1, "stEqParam": [{"intfreq": 5}]})
        bands = (records.KELU_TV_SND_PEQ_BAND_ATTR_S(intfreq=5), *[records.KELU_TV_SND_PEQ_BAND_ATTR_S()] * 9)
        self.assertEqual(equalizer, records.KELU_TV_SND_PEQ_ATTR_S(1, bands))
        command = "systemsetting.sendCmdToTVServer"
        for value in ("hex:0102", [1, "2"]):
            self.assertEqual(self.arguments_of(command, 1, value, 8, allow=[command]), (1, b"\1\2", 8))
        self.assertEqual(self.arguments_of("audio.setPEQAttr", None), (None,))
        for value, message in (("onOff=true", "'x': unit A1: stNRInfo must be a table, not 'onOff=true'"), ({"value": 1.5}, "1.5")):
            self.assert_refused(message, {"name": "x", "call": "audio.setNRAttr", "arguments": [value]})

    def test_need_units_that_differ(self) -> None:
        self.assert_refused("names no units; give each as [[unit]] or by --unit", READ, unit=[])
        self.assert_refused("units: there are two of the name 'A1'", READ, unit=[UNIT, {**UNIT, "runtime_dir": "two"}])
        self.assert_refused(
            "runtime_dir of units: there are two of the name 'one'", READ, unit=[UNIT, {**UNIT, "serial": "A2"}])
        self.assert_refused("unit 1: needs runtime_dir, a text", READ, unit=[{"serial": "A1"}])
        self.assert_refused("unit 1: values has texts and whole numbers", READ, unit=[{**UNIT, "values": {"serial": "B"}}])

    def test_take_units_of_the_command_line(self) -> None:
        plan = with_units(plan_with(READ, unit=[{**UNIT, "limit": 7}]), ["A1=elsewhere", "A2=two"])
        units = [(unit.serial, unit.runtime_dir, unit.limit) for unit in plan.units]
        self.assertEqual(units, [("A1", "elsewhere", 7), ("A2", "two", None)])
        with self.assertRaisesRegex(PlanError, "--unit A2: must be SERIAL=DIRECTORY"):
            with_units(plan, ["A2"])

    def test_are_toml_or_python(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            toml, python, text = (Path(folder) / f"line.{ending}" for ending in ("toml", "py", "txt"))
            toml.write_text('[[step]]\nname = "read"\ncall = "audio.getVolume"\narguments = ["speaker"]\nlow = 30\nhigh = 40\n')
            python.write_text(f"PLAN = {{'step': [{READ!r}]}}\n")
            self.assertEqual(read_plan(toml).steps, read_plan(python).steps)
            toml.write_text("[[step\n")
            self.assertRaisesRegex(PlanError, r"line\.toml: .*line 1", read_plan, toml)
            python.write_text("PLAN = {}['step']\n")
            self.assertRaisesRegex(PlanError, r"line\.py: KeyError: 'step'", read_plan, python)
            python.write_text("plan = {}\n")
            self.assertRaisesRegex(PlanError, r"line\.py: sets no PLAN", read_plan, python)
            self.assertRaisesRegex(PlanError, r"a plan is a file that ends in \.toml or \.py", read_plan, text)
            toml.unlink()
            self.assertRaisesRegex(PlanError, r"line\.toml: No such file or directory", read_plan, toml)

    def test_have_all_kinds_of_steps(self) -> None:
        plan = plan_of({"step": [READ, CHANGED, {"name": "plug", "prompt": "Plug it in.", "stop": True}]}, "line.toml", Path())
        self.assertEqual([type(step) for step in plan.steps], [Call, Wait, Prompt])
        self.assertEqual([step.stop for step in plan.steps], [False, False, True])


class Tools(unittest.TestCase):
    def test_must_end_well(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            program = Path(folder) / "kelutv"
            program.write_text("#!/bin/sh\necho out of order >&2\nexit 7\n")
            program.chmod(0o755)
            tool = Tool(str(program))
            self.assertRaisesRegex(ToolError, "kelutv describe: exit code 7: out of order", tool.run, "describe")
            self.assertEqual(tool.run("describe", allowed=(0, 7)).code, 7)
            conversation = Conversation(tool)
            self.assertRaisesRegex(ToolError, "kelutv repl cannot be asked: ", conversation.ask, "describe")
            program.unlink()
            self.assertRaisesRegex(ToolError, "cannot run .*/kelutv: No such file", conversation.ask, "describe")

    def test_are_asked_in_their_own_words(self) -> None:
        for text in ("it's #1", '"', "\\ \t $x", "é", "", "two\nlines", "--"):
            words = ("encode", "factory.upgradeEP9169IC", "--", text)
            self.assertEqual(CONVERSATION.ask(*words), Tool().run(*words).documents[0], text)
        for words in (("describe", "audio.getVolum"), ("describe",), ("encode", "audio.setVolume", "speaker", "x")):
            with self.assertRaises(ToolError) as by_itself:
                Tool().run(*words)
            with self.assertRaises(ToolError) as among_others:
                CONVERSATION.ask(*words)
            self.assertEqual(str(among_others.exception), str(by_itself.exception))


class Limits(unittest.TestCase):
    def test_include_their_bounds(self) -> None:
        limit = Limit(low=30, high=40)
        self.assertEqual([value for value in (29, 30, 40, 41) if limit.allows(value)], [30, 40])
        self.assertFalse(limit.allows("35"))
        self.assertFalse(limit.allows(float("nan")))

    def test_hold_for_each_number_of_a_list(self) -> None:
        self.assertTrue(Limit(low=0).allows([0, 1]))
        self.assertFalse(Limit(low=0).allows([0, -1]))
        self.assertFalse(Limit(low=0).allows([]))

    def test_know_texts_and_names(self) -> None:
        self.assertTrue(Limit(equals="english").allows(1, "KQ_LANG_ENGLISH"))
        self.assertTrue(Limit(equals=1).allows(1, "KQ_LANG_ENGLISH"))
        self.assertFalse(Limit(equals="glish").allows(1, "KQ_LANG_ENGLISH"))
        self.assertTrue(Limit(one_of=("german", "english")).allows(1, "KQ_LANG_ENGLISH"))
        self.assertTrue(Limit(matches="V[0-9]+").allows("V12"))
        self.assertFalse(Limit(matches="V[0-9]+").allows("V12b"))
        self.assertTrue(Limit(equals=[1, 2]).allows((1, 2)))

    def test_come_back_from_documents(self) -> None:
        for limit in (Limit(), Limit(low=0, high=2.5, unit="V"), Limit(one_of=(1, "x")), Limit(equals=False)):
            self.assertEqual(limit_of(limit.document()), limit)


if __name__ == "__main__":
    unittest.main()
