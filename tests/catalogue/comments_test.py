#!/usr/bin/env python3
"""Comments that say another thing than the row, or than the comment of the operation that is called."""

from __future__ import annotations

import unittest

from fixture import CatalogueTest
from torch_fixture import TorchTest

from comments import check_comments
from docs import Doc, read_docs

METHOD = "    int setLevel(int lamp, int level);"
FUNCTION = "KELUTV_API int linux_tv_Lamp_setLevel(int lamp, int level);"


def comment(lamp: str, level: str, returns: str = "0.") -> str:
    return f"/** Sets it.\n * @param lamp {lamp}\n * @param level {level}\n * @return {returns} */\n"


class Comments(CatalogueTest):
    def comment_method(self, *texts: str) -> None:
        self.change(METHOD, comment(*texts) + METHOD, "include/kelutv/Lamp.h")

    def comment_function(self, *texts: str) -> None:
        self.change(FUNCTION, comment(*texts) + FUNCTION, "include/kelutv/linux_lamp.h")

    def said(self) -> list[str]:
        return check_comments(self.read(), read_docs(self.folder / "include"))

    def test_equal_comments_are_in_order(self) -> None:
        self.comment_method("One of `LAMP_E`.", "The level.")
        self.comment_function("One of `LAMP_E`.", "The level.")
        self.assertEqual(self.said(), [])

    def test_two_comments_on_one_argument(self) -> None:
        self.comment_method("One of `LAMP_E`.", "The level.")
        self.comment_function("One of `LAMP_E`.", "The brightness.")
        [complaint] = self.said()
        self.assertIn("lamp.md:", complaint)
        self.assertIn(
            "comments differ on 'level' of linux_tv_Lamp_setLevel, 'The brightness.', and 'level' of Lamp::setLevel, "
            "'The level.'",
            complaint,
        )

    def test_two_comments_on_one_result(self) -> None:
        self.comment_method("One of `LAMP_E`.", "The level.", "0; -1 when the lamp is out.")
        self.comment_function("One of `LAMP_E`.", "The level.", "The old level; -1 when the lamp is out.")
        [complaint] = self.said()
        self.assertIn("comments differ on the result of linux_tv_Lamp_setLevel, 'The old level; -1 when", complaint)

    def test_room_without_a_bound(self) -> None:
        self.comment_method("One of `LAMP_E`.", "Must have room for all the service sends.")
        self.comment_function("One of `LAMP_E`.", "Must have room for all the service sends.")
        complaints = self.said()
        self.assertEqual(len(complaints), 2)
        self.assertIn("the comment of Lamp::setLevel asks for room in 'level', but not for how much", complaints[0])

    def test_room_with_a_bound(self) -> None:
        self.comment_method("One of `LAMP_E`.", "Must have room for all the service sends, 1,040,380 bytes at most.")
        self.comment_function("One of `LAMP_E`.", "Must have room for all the service sends, 1,040,380 bytes at most.")
        self.assertEqual(self.said(), [])

    def test_each_layer_has_failures_of_its_own(self) -> None:
        self.comment_method("One of `LAMP_E`.", "The level.", "0; -1 when the lamp is out.")
        self.comment_function("One of `LAMP_E`.", "The level.", "0; -1 when the lamp is out or gone.")
        self.assertEqual(self.said(), [])

    def test_each_layer_speaks_of_null_for_itself(self) -> None:
        self.comment_method("One of `LAMP_E`.", "The level. Must not be null.")
        self.comment_function("One of `LAMP_E`.", "The level; null is refused.")
        self.assertEqual(self.said(), [])

    def test_an_argument_of_another_type_has_a_comment_of_its_own(self) -> None:
        self.change("int level);", "bool level);", "include/kelutv/linux_lamp.h")
        self.change("linux_tv_Lamp_setLevel(int lamp, int level)", "linux_tv_Lamp_setLevel(int lamp, bool level)")
        function = FUNCTION.replace("int level", "bool level")
        self.comment_method("One of `LAMP_E`.", "The level.")
        self.change(function, comment("One of `LAMP_E`.", "True is bright.") + function, "include/kelutv/linux_lamp.h")
        self.assertEqual(self.said(), [])

    def test_an_enumeration_that_the_row_does_not_have(self) -> None:
        self.comment_method("One of `LAMP_E`.", "One of `LAMP_E`.", "One of `LAMP_E`.")
        complaints = self.said()
        self.assertEqual(len(complaints), 2)
        self.assertIn("the comment of Lamp::setLevel says 'LAMP_E' of level, the row nothing", complaints[0])
        self.assertIn("the comment of Lamp::setLevel says 'LAMP_E' of return, the row nothing", complaints[1])

    def test_a_function_has_the_value_sets_of_what_it_calls(self) -> None:
        self.comment_function("One of `LAMP_E`.", "The level.")
        self.assertEqual(self.said(), [])
        self.change("lamp=LAMP_E, level=1..9", "level=1..9")
        [complaint] = self.said()
        self.assertIn("the comment of linux_tv_Lamp_setLevel says 'LAMP_E' of lamp, the row nothing", complaint)

    def comment_item(self, text: str, returns: str = "0.") -> None:
        declaration = "    int getItem(int cmdID, int param1, int* pData);"
        told = f"/** Reads it.\n * @param cmdID,param1 Which.\n * @param pData {text}\n * @return {returns} */\n"
        self.change(declaration, told + declaration, "include/kelutv/Lamp.h")

    def test_a_null_that_is_refused_is_told_of(self) -> None:
        self.comment_item("Receives 255 ints.")
        [complaint] = self.said()
        self.assertIn("'pData' of Lamp::getItem may be null by its row, its comment says nothing of it", complaint)

    def test_a_refusal_may_stand_with_the_result(self) -> None:
        self.comment_item("Receives 255 ints.", "0; -1 for a null `pData`, with nothing sent.")
        self.assertEqual(self.said(), [])

    def test_a_null_that_does_harm_is_not_allowed(self) -> None:
        self.comment_item("Receives 255 ints; null drops them.")
        self.change("| ints[255] -> pData | pData | null \"no buffer\"; failure", "| ints[255] -> pData | - | failure")
        [complaint] = self.said()
        self.assertIn("'pData' of Lamp::getItem must not be null by its row, its comment says otherwise", complaint)

    def test_what_is_no_enumeration_with_values_is_passed_over(self) -> None:
        self.comment_method("One of `LAMP_E`.", "One of `Color`, of `nothing`, of `LAMP_E` and so on.")
        self.assertEqual(self.said(), [])


class Names(TorchTest):
    def said(self, name: str, *parts: object) -> list[str]:
        complaints = check_comments(self.read(), {name: Doc(*parts)})
        return [complaint.partition(f"the comment of {name} names ")[2] for complaint in complaints]

    def test_the_command_of_the_operation_called_may_be_named(self) -> None:
        self.assertEqual(self.said("Shine", "Forwards to `Torch::beam`, which sends `CMD_LAMP_SETLEVEL`."), [])

    def test_another_command(self) -> None:
        said = self.said("Shine", "Sends `CMD_LAMP_GETLEVEL`.")
        self.assertEqual(said, ["CMD_LAMP_GETLEVEL, which the row does not send"])

    def test_another_item(self) -> None:
        said = self.said("linux_tv_Lamp_setTimer", "Sends the item `CMDID_LAMP_GET_TIMER` with `CMD_LAMP_SETITEM`.")
        self.assertEqual(said, ["CMDID_LAMP_GET_TIMER, which the row does not send"])

    def test_an_operation_further_down(self) -> None:
        said = self.said("Shine", "Calls `Torch::beam`, then `Lamp::setLevel`.")
        self.assertEqual(said, ["Lamp::setLevel, which the row does not call"])

    def test_every_part_of_a_comment_counts(self) -> None:
        parameters = {"level": "As for `CMD_TORCH_WATCH`."}
        said = self.said("Torch::beam", "", "Forwards to `linux_tv_Lamp_setTimer`.", parameters, "As `CIDMD_X`.")
        self.assertEqual([complaint.partition(",")[0] for complaint in said],
                         ["CMD_TORCH_WATCH", "CIDMD_X", "linux_tv_Lamp_setTimer"])


if __name__ == "__main__":
    unittest.main()
