"""A second module for the small catalogue: replies of every shape, a text pair, composed methods, calls across modules."""

from __future__ import annotations

from fixture import LINK, CatalogueTest

TYPES = """
typedef enum ATV_CMD_ID_E KELUTV_INT_ENUM {
    CMD_LAMP_SETLEVEL = 0x1000,
    CMD_LAMP_GETLEVEL = 0x1001,
    CMD_LAMP_SETITEM = 0x1002,
    CMD_LAMP_GETITEM = 0x1003,
    CMD_LAMP_SETCOLOR = 0x1004,
    CMD_LAMP_GETCOLOR = 0x1005,
    CMD_LAMP_SETCURVE = 0x1006,
    CMD_TORCH_SETTEXT = 0x2000,
    CMD_TORCH_GETTEXT = 0x2001,
    CMD_TORCH_GETNAME = 0x2002,
    CMD_TORCH_GETMAKER = 0x2003,
    CMD_TORCH_GETPOINTS = 0x2004,
    CMD_TORCH_GETCURVE = 0x2005,
    CMD_TORCH_SETLABEL = 0x2006,
    CMD_TORCH_SETGAIN = 0x2007,
    CMD_TORCH_WATCH = 0x2008,
    CMD_TORCH_SETPOINTS = 0x2009,
    CMD_TORCH_ISOPEN = 0x200A,
    CMD_TORCH_GETKINDS = 0x200B,
} ATV_CMD_ID_E;
typedef int TORCH_KIND_E;
typedef enum _TORCH_KEY_E KELUTV_INT_ENUM { TORCH_KEY_ON = 1 } TORCH_KEY_E;
typedef void (*TORCH_CALLBACK)(unsigned int type, void* data);
typedef struct Grid {
    char names[2][3];
} Grid;
"""

CLASS = """
class KELUTV_API Torch {
public:
    Torch();
    virtual ~Torch();
    int setText(int cmdID, int place, char const* text);
    int getText(int cmdID, int place, char* text);
    int getName(char* name);
    int getMaker(char* maker);
    int getPoints(int* points, int* count);
    int getCurve(double* curve, int length);
    int setLabel(char const* label);
    int setGain(double gain);
    int watch(TORCH_CALLBACK callback, TORCH_KIND_E kind, TORCH_KEY_E key, std::vector<int>* kinds);
    int setPoints(int* points, int length);
    bool isOpen(bool* sure);
    std::list<int> getKinds(char const* path);
    int beam(int level);
    int timer(int* minutes);
    int timerNow();
    int title(char* text);
    int setTitle(char const* name);
    int clearTitle();
    int named(char* name);
};
"""

FUNCTIONS = """
KELUTV_API int Shine(int level);
KELUTV_API int TimerOf(int* pMinutes);
KELUTV_API int TitleOf(char* text);
KELUTV_API bool MakerOf(char* maker);
KELUTV_API int KindsOf(char const* path, int* pKinds, int* pCount);
"""

OVERLOADS = """
| exeCmdGet(int, android::Parcel&) | parcel | - |
| exeCmdGet(int, android::Parcel const&, android::Parcel&) | parcel | failure |
| exeCmdSet(int) | status | transaction |
| exeCmdSet(int, int, char const*, int) | status | transaction |
| exeCmdGet(int) | value | - |
"""

METHODS = """
| method | command | value | call | sends | reply | null | log | result | state | effect | values | pointers | irregular |
|---|---|---|---|---|---|---|---|---|---|---|---|---|---|
| int setText(int cmdID, int place, char const* text) | CMD_TORCH_SETTEXT | 0x2000 | exeCmdSet(int, int, char const*, int) | cmdID, text, place | status | - | - | status | items | set | - | - | - |
| int getText(int cmdID, int place, char* text) | CMD_TORCH_GETTEXT | 0x2001 | exeCmdGet(int, int, int, android::Parcel&) | cmdID, place | cstring -> text | text | null "no text"; failure "error, (none)" | zero-or-fail | items | read | - | - | - |
| int getName(char* name) | CMD_TORCH_GETNAME | 0x2002 | exeCmdGet(int, android::Parcel&) | - | cstring -> name | name | null "no name"; failure "failed"; missing "empty" | fallback "nobody" | name | read | - | - | - |
| int getMaker(char* maker) | CMD_TORCH_GETMAKER | 0x2003 | exeCmdGet(int, android::Parcel&) | - | cstring -> maker | - | - | characters "error" | maker | read | - | - | - |
| int getPoints(int* points, int* count) | CMD_TORCH_GETPOINTS | 0x2004 | exeCmdGet(int, android::Parcel&) | - | int n -> count, ints[n] -> points | - | - | zero-or-fail | points | read | - | - | - |
| int getCurve(double* curve, int length) | CMD_TORCH_GETCURVE | 0x2005 | exeCmdGet(int, int, android::Parcel&) | length | doubles[length] -> curve | curve | - | zero-or-fail | - | read | - | - | - |
| int setLabel(char const* label) | CMD_TORCH_SETLABEL | 0x2006 | exeCmdSet(int, android::Parcel const&) | str16(label) | status | label | null "no label" | status | - | set | - | - | - |
| int setGain(double gain) | CMD_TORCH_SETGAIN | 0x2007 | exeCmdSet(int, android::Parcel const&) | gain | status | - | - | status | - | set | - | - | - |
| int watch(TORCH_CALLBACK callback, TORCH_KIND_E kind, TORCH_KEY_E key, std::vector<int>* kinds) | CMD_TORCH_WATCH | 0x2008 | exeCmdSet(int) | - | status | - | - | status | - | action | - | callback=in null, kinds=out | - |
| int setPoints(int* points, int length) | CMD_TORCH_SETPOINTS | 0x2009 | exeCmdSet(int, android::Parcel const&) | length, ints(points, length) | status | - | - | status | points = points | set, back getPoints | - | - | - |
| bool isOpen(bool* sure) | CMD_TORCH_ISOPEN | 0x200A | exeCmdGet(int) | - | value | sure | - | bool | - | read | - | sure=out | - |
| std::list<int> getKinds(char const* path) | CMD_TORCH_GETKINDS | 0x200B | exeCmdGet(int, android::Parcel const&, android::Parcel&) | path | int... | path | null "no path" | list | - | read | - | - | - |
"""

COMPOSED = """
| method | calls | null | log | result | outputs | state | effect | values | pointers | irregular |
|---|---|---|---|---|---|---|---|---|---|---|
| int beam(int level) | linux_tv_Lamp_setLevel(LAMP_RIGHT, level) | - | - | same | - | - | - | level=20..30 | - | - |
| int timer(int* minutes) | Lamp::getItem(CMDID_LAMP_GET_TIMER, LAMP_LEFT, minutes) | - | - | same | - | timer[LAMP_LEFT] | read | - | - | - |
| int timerNow() | Lamp::getItem(CMDID_LAMP_GET_TIMER, LAMP_RIGHT) | - | - | item[0] | - | timer[LAMP_RIGHT] | read | - | - | - |
| int title(char* text) | gettext(CMDID_LAMP_GET_TIMER, 0, text) | text | call info "reading"; null "no title" | same | - | title | read | - | - | - |
| int setTitle(char const* name) | settext(CMDID_LAMP_SET_TIMER, 0, name) | - | - | same | - | title = name | set, back title | - | - | - |
| int clearTitle() | settext(CMDID_LAMP_SET_TIMER, 0, "") | - | - | same | - | - | set | - | - | - |
| int named(char* name) | Torch::getName(name) | - | - | zero | - | - | - | - | - | - |
"""

TORCH = f"""# Torch

## Module

| key | value |
|---|---|
| class | `Torch` |
| header | `kelutv/Torch.h` |
| object | constructed |
| C prefix | - |
| C header | `kelutv/torch.h` |
| item set | - |
| item get | - |
| text set | `setText` |
| text get | `getText` |
| log tag | TORCH |

## Methods
{METHODS}
## Composed methods
{COMPOSED}
## C functions

| function | calls | null | result | outputs | state | effect | values | pointers | irregular |
|---|---|---|---|---|---|---|---|---|---|
| int Shine(int level) | Torch::beam(level) | - | same | - | - | - | - | - | - |
| int TimerOf(int* pMinutes) | Lamp::getItem(CMDID_LAMP_GET_TIMER, LAMP_LEFT) | - | same | *pMinutes = item[0] | timer[LAMP_LEFT] | read | - | - | - |
| int TitleOf(char* text) | Torch::title(text) | - | same | - | - | - | - | - | - |
| bool MakerOf(char* maker) | Torch::getMaker(maker) | maker | same | - | - | - | - | - | - |
| int KindsOf(char const* path, int* pKinds, int* pCount) | Torch::getKinds(path) | - | list | pKinds[] = result, *pCount = count | - | - | - | - | - |
"""

TORCH_FILE = "catalogue/torch.md"


class TorchTest(CatalogueTest):
    def setUp(self) -> None:
        super().setUp()
        commands = (self.folder / "include/kelutv/commands.h").read_text(encoding="utf-8")
        self.write("include/kelutv/commands.h", commands[commands.index("typedef enum KELU_TV_CMDID_E") :] + TYPES)
        self.write("include/kelutv/Torch.h", CLASS)
        self.write("include/kelutv/torch.h", FUNCTIONS)
        rows = "| exeCmdGet(int, int) |"
        self.write("catalogue/link.md", LINK.replace(rows, f"{OVERLOADS.strip()}\n{rows}"))
        self.write(TORCH_FILE, TORCH)

    def change_torch(self, old: str, new: str) -> int:
        return self.change(old, new, TORCH_FILE)

    def assert_bad_torch(self, old: str, new: str, message: str) -> None:
        self.assert_complaint(self.change_torch(old, new), message, TORCH_FILE)
