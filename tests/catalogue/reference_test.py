#!/usr/bin/env python3
"""The comments that the reference pages take from the catalogue."""

from __future__ import annotations

import contextlib
import io
import unittest

from fixture import SENDS_NOTHING, SET_CURVE, CatalogueTest

from reference import main, value_texts, wire_texts


class ReferencePages(CatalogueTest):
    def run_main(self) -> tuple[int, str]:
        folders = ["--catalogue", str(self.folder / "catalogue"), "--include", str(self.folder / "include")]
        with contextlib.redirect_stderr(io.StringIO()) as errors:
            status = main([*folders, str(self.folder / "values.dox")])
        return status, errors.getvalue()

    def test_a_command_names_its_method_arguments_and_answer(self) -> None:
        texts = value_texts(self.read())
        self.assertEqual(
            texts["CMD_LAMP_SETLEVEL"],
            "Sent by Lamp::setLevel(). Arguments: `lamp (int32), level (int32)`. Answer: the result alone.",
        )
        self.assertEqual(
            texts["CMD_LAMP_GETLEVEL"], "Sent by Lamp::getLevel(). Arguments: `lamp (int32)`. Answer: one int32."
        )
        self.assertIn("Answer: `pData (ints, 255 of them)`.", texts["CMD_LAMP_GETITEM"])
        self.assertIn("Answer: `Color`.", texts["CMD_LAMP_GETCOLOR"])

    def test_an_irregular_request_leaves_the_answer_to_the_method(self) -> None:
        call = "invoke(android::Parcel const&, android::Parcel*)"
        row = SET_CURVE.replace("exeCmdSet(int, android::Parcel const&)", call)
        row = row.replace("status | - | action", "irregular | - | action")
        row = row.replace("dangerous | - | - | - |", "dangerous | - | - | Reads as much as there is. |")
        self.change(SET_CURVE, row)
        self.assertEqual(
            value_texts(self.read())["CMD_LAMP_SETCURVE"],
            "Sent by Lamp::setCurve(). Arguments: `length (int32), curve (doubles, length of them)`. "
            "The method tells of the answer.",
        )

    def test_an_item_names_its_command_and_its_functions(self) -> None:
        self.assertEqual(
            value_texts(self.read())["CMDID_LAMP_SET_TIMER"],
            "Travels inside #CMD_LAMP_SETITEM, sent by linux_tv_Lamp_setTimer(). "
            "Arguments: `CMDID_LAMP_SET_TIMER (int32), lamp (int32), minutes (int32)`.",
        )

    def test_what_nothing_sends_says_so(self) -> None:
        added = "CMDID_LAMP_MODULE_START = 0x1000,\n    CMDID_LAMP_SPARE = 0x1003,\n    CMDID_LAMP_GET_TIMER"
        self.change("CMDID_LAMP_GET_TIMER", added, "include/kelutv/commands.h")
        self.change(SET_CURVE, f"{SENDS_NOTHING} curve=unused | Never built. |")
        texts = value_texts(self.read())
        self.assertEqual(texts["CMD_LAMP_SETCURVE"], "No operation of the library sends it.")
        self.assertEqual(texts["CMDID_LAMP_SPARE"], "No operation of the library names it.")
        self.assertEqual(texts["CMDID_LAMP_MODULE_START"], "The base of a module, no item.")

    def test_a_method_tells_what_it_sends_and_logs(self) -> None:
        texts = wire_texts(self.read())
        self.assertEqual(
            texts["int Lamp::setLevel(int lamp, int level)"],
            "Sends #CMD_LAMP_SETLEVEL. Arguments: `lamp (int32), level (int32)`. Answer: the result alone.",
        )
        self.assertEqual(
            texts["int Lamp::getItem(int cmdID, int param1, int* pData)"],
            "Sends #CMD_LAMP_GETITEM. Arguments: `cmdID (int32), param1 (int32)`. Answer: `pData (ints, 255 of them)`. "
            r"Logs for a null argument \"no buffer\", error, tag LAMP; after a failure \"failed\", debug, tag LAMP.",
        )

    def test_a_function_tells_whom_it_calls(self) -> None:
        texts = wire_texts(self.read())
        self.assertEqual(
            texts["int linux_tv_Lamp_setTimer(LAMP_E lamp, int minutes)"],
            "Calls Lamp::setItem(), which sends #CMD_LAMP_SETITEM. "
            "Arguments: `CMDID_LAMP_SET_TIMER (int32), lamp (int32), minutes (int32)`. Answer: the result alone.",
        )
        self.assertEqual(
            texts["int linux_tv_Lamp_getColor(Color const* pColor)"], "Sends nothing. Gives a fixed colour."
        )

    def test_several_calls_are_told_in_their_order(self) -> None:
        forwards = "| Lamp::setLevel(lamp, level) | - | same | - | - | - | - | - | - |"
        self.change(forwards, "| Lamp::setLevel then Lamp::getLevel | - | irregular | - | - | set | - | - | Two calls. |")
        self.assertEqual(
            wire_texts(self.read())["int linux_tv_Lamp_setLevel(int lamp, int level)"],
            "Calls Lamp::setLevel(), then Lamp::getLevel(). Two calls.",
        )

    def test_what_is_logged_means_nothing_to_doxygen(self) -> None:
        self.change('null "no buffer"', 'null "@see %s <\\n"')
        text = wire_texts(self.read())["int Lamp::getItem(int cmdID, int param1, int* pData)"]
        self.assertIn(r'for a null argument \"\@see \%s \<\\n\", error, tag LAMP', text)

    def test_the_comments_are_written(self) -> None:
        self.assertEqual(self.run_main(), (0, ""))
        written = (self.folder / "values.dox").read_text(encoding="utf-8")
        self.assertIn("/** @var CMD_LAMP_SETLEVEL\n * Sent by Lamp::setLevel().", written)
        self.assertEqual(written.count("@var"), 9)
        self.assertEqual(written.count("@fn"), 11)
        self.assertIn("/** @fn int Lamp::setLevel(int lamp, int level)\n * @par On the wire\n * Sends #CMD", written)

    def test_a_broken_table_is_reported(self) -> None:
        self.change("0x1000 | exeCmdSet", "0x1009 | exeCmdSet")
        status, errors = self.run_main()
        self.assertEqual(status, 1)
        self.assertIn("catalogue/lamp.md:", errors)


if __name__ == "__main__":
    unittest.main()
