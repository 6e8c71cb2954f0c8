#!/usr/bin/env python3
"""What the tables say of effects, held against names: each exception stands here with its reason."""

from __future__ import annotations

import re
import unittest

from fixture import ROOT

from effects import CHANGES, reads_back
from model import Catalogue, Function, Operation
from reader import read_catalogue

GETS = re.compile(r"(?:linux_tv_[A-Za-z]+_)?(?:[Gg]et|[Ii]s)(?![a-z])")
RISKS = re.compile(
    r"RESET|RESTORE|ERASE|DELETE|_DEL_|BURN|(?<!BO)OTP|OTA_|UPGRADE|UPDATE|REBOOT|SUSPEND|STANDBY|FACTORYMODE|AGING"
    r"|MACADDRESS|MACHINEINFO|SN(?![A-Z])|KEY|EEP|EEROM|NVM|HDCP|FORMAT|IMPORT|PRESETCHANNEL|2MW|_REG$|PWM|GPIO|PANEL"
    r"|LVDS|DDR|WATCHDOG|UART|LASER_ITEM|ITEM_(?:STR)?VALUE|ITEM_STRING_VALUE|NT72315|MOTOR|EYE_SHIELD|CALIBRATION|DEBUG_MODE"
)

NO_READS = {
    "Picture::getVideoScreenShot": "writes a file",
    "linux_tv_Picture_getVideoScreenShot": "writes a file",
    "Picture::getDolbyHdrPicMode": "sends nothing",
}
NO_GETS = {
    "linux_tv_Factory_getWBWhitePattern": "what this process remembers",
}
HARMLESS = {
    "CMD_PICTURE_SETDREAMPANEL": "a picture setting of that name",
    "CMD_FACTORY_SET_DREAM_PANEL_DELTA_VALUE": "a step of the picture setting of that name",
    "CMD_SYSTEM_SETSTANDBYREASON": "names a reason, enters nothing",
    "CMD_SYSTEM_SETLSADCKEY": "switches the buttons at the set",
    "CMD_SYSTEM_SET_REPOKEYEVENT": "a press of a button",
    "CMD_SOURCE_SENDRCPKEY": "a press of a button",
    "CMD_FACTORY_SETSINGLEKEYMODE": "what the one button does",
    "CMD_SYSTEM_SET_BOX_OUTPUT_FORMAT": "a format of pictures",
    "CMDID_FACTORY_SET_HOTKEY": "switches buttons",
    "CMDID_FACTORY_SET_HOTEL_KEYPAD": "switches the buttons at the set",
}
NOT_PUT_BACK = {
    "Audio::setAudioItemStrValue": "an item is set under one number and read under another",
    "Factory::setInternetTime": "a clock goes on meanwhile",
}


def sent_name(operation: Operation) -> str:
    """The item or, without one, the command that an operation sends."""
    if isinstance(operation, Function) and operation.item is None and operation.callee:
        return sent_name(operation.callee)
    item = operation.item if isinstance(operation, Function) else None
    return item or (operation.method.command if operation.method and operation.method.command else "")


class Judgements(unittest.TestCase):
    catalogue: Catalogue

    @classmethod
    def setUpClass(cls) -> None:
        cls.catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")

    def own(self) -> list[Operation]:
        """The operations that do not merely forward to another one."""
        return [o for o in self.catalogue.operations if not isinstance(o, Function) or o.item or not o.callee]

    def test_what_is_called_get_or_is_reads(self) -> None:
        named = {o.name for o in self.catalogue.operations if GETS.match(o.signature.name) and o.effect.kind != "read"}
        self.assertEqual(named, set(NO_READS))

    def test_what_reads_sends_a_command_that_says_so(self) -> None:
        said = re.compile(r"GET|IS(?![A-Z])|IS_|OLEDENABLED|ISNEED|ISHAS|ISOPERATOR")
        readers = [o for o in self.own() if o.effect.kind == "read" and not getattr(o, "steps", ())]
        self.assertEqual({o.name for o in readers if not said.search(sent_name(o))}, set(NO_GETS))

    def test_what_the_name_of_a_command_warns_of_is_dangerous(self) -> None:
        changing = [o for o in self.catalogue.operations if o.effect.kind in CHANGES and not o.effect.dangerous]
        self.assertEqual({sent_name(o) for o in changing if RISKS.search(sent_name(o))}, set(HARMLESS))

    def test_a_generic_item_may_be_anything(self) -> None:
        setters = [o for o in self.catalogue.methods if o.items and o.effect.kind == "set"]
        self.assertGreater(len(setters), 0)
        self.assertEqual([o.name for o in setters if not o.effect.dangerous], [])

    def test_every_set_whose_state_is_read_names_the_getter(self) -> None:
        readers = [o for o in self.own() if o.effect.kind == "read"]
        setters = [o for o in self.own() if o.effect.kind == "set" and o.state and not o.effect.back]
        readable = {s.name for s in setters if any(reads_back(reader, s) for reader in readers)}
        self.assertEqual(readable, set(NOT_PUT_BACK))


if __name__ == "__main__":
    unittest.main()
