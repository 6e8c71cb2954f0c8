"""A small catalogue with headers of its own, in a temporary folder, for tests that break one line of it."""

from __future__ import annotations

import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "catalogue"))

from model import Catalogue  # noqa: E402
from reader import read_catalogue  # noqa: E402
from tables import CatalogueError  # noqa: E402

COMMANDS = """
typedef enum ATV_CMD_ID_E KELUTV_INT_ENUM {
    CMD_LAMP_SETLEVEL = 0x1000, /**< level = 99 in a comment */
    CMD_LAMP_GETLEVEL = 0x1001,
    CMD_LAMP_SETITEM = 0x1002,
    CMD_LAMP_GETITEM = 0x1003,
    CMD_LAMP_SETCOLOR = 0x1004,
    CMD_LAMP_GETCOLOR = 0x1005,
    CMD_LAMP_SETCURVE = 0x1006,
} ATV_CMD_ID_E;
typedef enum KELU_TV_CMDID_E KELUTV_INT_ENUM {
    CMDID_LAMP_SET_TIMER = 0x1001,
    CMDID_LAMP_GET_TIMER = 0x1002,
} KELU_TV_CMDID_E;
typedef enum LAMP_E KELUTV_INT_ENUM {
    LAMP_LEFT = 0,
    LAMP_RIGHT = 1,
    LAMP_BUTT = 2,
} LAMP_E;
typedef struct Color {
    bool on;
    int rgb[3]; /**< Red; green; blue. */
} Color;
"""

CLASS = """
class KELUTV_API Lamp {
public:
    static Lamp* instance();
    Lamp(const Lamp&) = delete;
    int setLevel(int lamp, int level);
    int getLevel(int lamp);
    virtual int setItem(int cmdID, int param1, int param2);
    int getItem(int cmdID, int param1, int* pData);
    int setColor(int lamp, Color const* color);
    Color getColor(int lamp);
    int setCurve(double* curve, int length);

private:
    Lamp();
};
"""

FUNCTIONS = """
KELUTV_API int linux_tv_Lamp_setLevel(int lamp, int level);
KELUTV_API int linux_tv_Lamp_setTimer(LAMP_E lamp, int minutes);
KELUTV_API int linux_tv_Lamp_getTimer(LAMP_E lamp, int* pMinutes);
KELUTV_API int linux_tv_Lamp_getColor(const Color *pColor);
"""

LINK = """
## Overloads

| overload | reply | log |
|---|---|---|
| exeCmdSet(int, int, int) | status | transaction |
| exeCmdSet(int, int, int, int) | status | transaction |
| exeCmdSet(int, android::Parcel const&) | status | transaction |
| exeCmdGet(int, int) | value | - |
| exeCmdGet(int, int, android::Parcel&) | parcel | - |
| exeCmdGet(int, int, int, android::Parcel&) | parcel | - |
| invoke(android::Parcel const&, android::Parcel*) | status | - |

## Classes

| class | polymorphic |
|---|---|
| android::Link | yes |

## Exported symbols

| symbol |
|---|
| android::Link::self() |
"""

LAMP = """# Lamp

## Module

| key | value |
|---|---|
| class | `Lamp` |
| header | `kelutv/Lamp.h` |
| C prefix | `linux_tv_Lamp_` |
| C header | `kelutv/linux_lamp.h` |
| item set | `setItem` |
| item get | `getItem` |
| log tag | LAMP |

## Methods

| method | command | value | call | sends | reply | null | log | result | state | effect | values | pointers | irregular |
|---|---|---|---|---|---|---|---|---|---|---|---|---|---|
| int setLevel(int lamp, int level) | CMD_LAMP_SETLEVEL | 0x1000 | exeCmdSet(int, int, int) | lamp, level | status | - | - | status | level[lamp] = level | set, back getLevel, kept | lamp=LAMP_E, level=1..9 | - | - |
| int getLevel(int lamp) | CMD_LAMP_GETLEVEL | 0x1001 | exeCmdGet(int, int) | lamp | value | - | - | value | level[lamp] | read | lamp=LAMP_E | - | - |
| virtual int setItem(int cmdID, int param1, int param2) | CMD_LAMP_SETITEM | 0x1002 | exeCmdSet(int, int, int, int) | cmdID, param1, param2 | status | - | - | status | items | set, dangerous | - | - | Goes through the slot. |
| int getItem(int cmdID, int param1, int* pData) | CMD_LAMP_GETITEM | 0x1003 | exeCmdGet(int, int, int, android::Parcel&) | cmdID, param1 | ints[255] -> pData | pData | null "no buffer"; failure debug "failed" | zero-or-fail | items | read | - | - | - |
| int setColor(int lamp, Color const* color) | CMD_LAMP_SETCOLOR | 0x1004 | exeCmdSet(int, android::Parcel const&) | lamp, color, 0, color.on | status | - | - | status | color[lamp] = color | set, back getColor | - | - | - |
| Color getColor(int lamp) | CMD_LAMP_GETCOLOR | 0x1005 | exeCmdGet(int, int, android::Parcel&) | lamp | Color | - | - | record | color[lamp] | read | - | - | - |
| int setCurve(double* curve, int length) | CMD_LAMP_SETCURVE | 0x1006 | exeCmdSet(int, android::Parcel const&) | length, doubles(curve, length) | status | - | - | status | - | action, not kept, dangerous | - | - | - |

## C functions

| function | calls | null | result | outputs | state | effect | values | pointers | irregular |
|---|---|---|---|---|---|---|---|---|---|
| int linux_tv_Lamp_setLevel(int lamp, int level) | Lamp::setLevel(lamp, level) | - | same | - | - | - | - | - | - |
| int linux_tv_Lamp_setTimer(LAMP_E lamp, int minutes) | set(CMDID_LAMP_SET_TIMER, lamp, minutes) | - | same | - | timer[lamp] = minutes | set, back linux_tv_Lamp_getTimer | - | - | - |
| int linux_tv_Lamp_getTimer(LAMP_E lamp, int* pMinutes) | get(CMDID_LAMP_GET_TIMER, lamp) | pMinutes | same | *pMinutes = item[0] | timer[lamp] | read | - | - | - |
| int linux_tv_Lamp_getColor(Color const* pColor) | - | - | irregular | - | - | print-only | - | - | Gives a fixed colour. |
"""

ENUMERATIONS = """# Enumerations

## End markers

| enumeration | end marker |
|---|---|
| LAMP_E | LAMP_BUTT |
"""

SET_CURVE = (
    "| CMD_LAMP_SETCURVE | 0x1006 | exeCmdSet(int, android::Parcel const&) | length, doubles(curve, length) "
    "| status | - | - | status | - | action, not kept, dangerous | - | - | - |"
)

SENDS_NOTHING = "| - | - | - | - | - | - | - | irregular | - | print-only | - |"


class CatalogueTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.write("include/kelutv/commands.h", COMMANDS)
        self.write("include/kelutv/Lamp.h", CLASS)
        self.write("include/kelutv/linux_lamp.h", FUNCTIONS)
        self.write("catalogue/link.md", LINK)
        self.write("catalogue/enumerations.md", ENUMERATIONS)
        self.write("catalogue/lamp.md", LAMP)

    def write(self, name: str, text: str) -> None:
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def read(self) -> Catalogue:
        return read_catalogue(self.folder / "catalogue", self.folder / "include")

    def change(self, old: str, new: str, name: str = "catalogue/lamp.md") -> int:
        """Replaces the first occurrence and returns the number of its line."""
        text = (self.folder / name).read_text(encoding="utf-8")
        self.assertIn(old, text)
        self.write(name, text.replace(old, new, 1))
        return text[: text.index(old)].count("\n") + 1

    def complaints(self) -> list[str]:
        with self.assertRaises(CatalogueError) as raised:
            self.read()
        return raised.exception.messages

    def assert_complaint(self, line: int, message: str, name: str = "catalogue/lamp.md") -> None:
        self.assertIn(f"{self.folder / name}:{line}: {message}", self.complaints())
