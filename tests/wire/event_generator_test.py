"""What the generator makes of good and bad tables of events."""

from __future__ import annotations

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "wire" / "generator"), str(ROOT / "tests" / "catalogue")]

from events_test import EVENTS, FILE, MODULES  # noqa: E402
from fixture import CatalogueTest  # noqa: E402

from event_sources import EventSources  # noqa: E402
from program import GenerationError  # noqa: E402

TABLE = """\
// Generated from the catalogue and the public headers.
#include "wire/events/Event.h"

namespace kelutv::wire {

namespace {

constexpr Enumerator kTORCH_STATE_EValues[] = {
    {"TORCH_STATE_OFF", 0},
    {"TORCH_STATE_ON", 16},
};
constexpr Enumeration kTORCH_STATE_E = {"TORCH_STATE_E", kTORCH_STATE_EValues};

} // namespace

Rows<Event> simulatedEvents() {
    static const EventField kFields0[] = {
    {"lamp", FieldType::Int32, findEnumeration("LAMP_E")},
    {"level", FieldType::Int32, nullptr},
    {"kind", FieldType::UInt8, nullptr},
};
    static const EventField kFields1[] = {
    {"state", FieldType::Int32, &kTORCH_STATE_E},
    {"name", FieldType::Text, nullptr},
};
    static const EventField kFields2[] = {
    {"length", FieldType::Int32, nullptr},
    {"data", FieldType::Bytes, nullptr},
};
    static const Event kEvents[] = {
    {0x10001, 0x10001, "levelChanged", kFields0, "Another level."},
    {0x10002, 0x10002, "lampNamed", kFields1, "Another name."},
    {0x20010, 0x2FFFF, "torchBlock", kFields2, "A block."},
    {0x10003, 0x10003, "lampsTested", {}, "All lamps were tested."},
};
    return kEvents;
}

} // namespace kelutv::wire
"""

DECLARATIONS = """\
/** Identifiers of the simulated television's events. */
typedef enum KELU_SIM_EVENT_E KELUTV_INT_ENUM {
    KELU_SIM_EVENT_LEVEL_CHANGED = KELU_EM_MODE_LAMP + 1, /**< Another level. */
    KELU_SIM_EVENT_LAMP_NAMED = KELU_EM_MODE_LAMP + 2, /**< Another name. */
    KELU_SIM_EVENT_TORCH_BLOCK = KELU_EM_MODE_TORCH + 16, /**< A block. */
    KELU_SIM_EVENT_TORCH_BLOCK_LAST = KELU_EM_MODE_TORCH + 65535, /**< The last identifier of \
#KELU_SIM_EVENT_TORCH_BLOCK. */
    KELU_SIM_EVENT_LAMPS_TESTED = KELU_EM_MODE_LAMP + 3, /**< All lamps were tested. */
} KELU_SIM_EVENT_E;

/** Values in payloads of the simulated television. */
typedef enum TORCH_STATE_E KELUTV_INT_ENUM {
    TORCH_STATE_OFF = 0, /**< Off. */
    TORCH_STATE_ON = 16, /**< On. */
} TORCH_STATE_E;

/** Payload of #KELU_SIM_EVENT_LEVEL_CHANGED. */
typedef struct KELU_SIM_EVENT_LEVEL_CHANGED_S {
    int32_t lamp; /**< Of #LAMP_E. */
    int32_t level; /**< A number. */
    uint8_t kind; /**< A number. */
} KELU_SIM_EVENT_LEVEL_CHANGED_S;

/** Payload of #KELU_SIM_EVENT_LAMP_NAMED. Behind it: name, characters up to a zero. */
typedef struct KELU_SIM_EVENT_LAMP_NAMED_S {
    int32_t state; /**< Of #TORCH_STATE_E. */
} KELU_SIM_EVENT_LAMP_NAMED_S;

/** Payload of #KELU_SIM_EVENT_TORCH_BLOCK. Behind it: data, bytes to the end of the payload. */
typedef struct KELU_SIM_EVENT_TORCH_BLOCK_S {
    int32_t length; /**< A number. */
} KELU_SIM_EVENT_TORCH_BLOCK_S;

#endif
"""

ROWS = """\
| identifier | event | payload | when |
|---|---|---|---|
| 0x10001 | levelChanged, #KELU_SIM_EVENT_LEVEL_CHANGED | lamp: LAMP_E<br>level: int32<br>kind: uint8 | Another level. |
| 0x10002 | lampNamed, #KELU_SIM_EVENT_LAMP_NAMED | state: TORCH_STATE_E<br>name: text | Another name. |
| 0x20010 to 0x2FFFF | torchBlock, #KELU_SIM_EVENT_TORCH_BLOCK | length: int32<br>data: bytes | A block. |
| 0x10003 | lampsTested, #KELU_SIM_EVENT_LAMPS_TESTED | none | All lamps were tested. |
"""


class GenerateEvents(CatalogueTest):
    def setUp(self) -> None:
        super().setUp()
        self.write("include/kelutv/events.h", MODULES)
        self.write(FILE, EVENTS)

    def test_writes_the_table(self) -> None:
        self.assertEqual(EventSources(self.read()).table(), TABLE)

    def test_writes_the_header(self) -> None:
        header = EventSources(self.read()).header()
        self.assertTrue(header.startswith("/**\n * @file\n"))
        self.assertEqual(header[header.index("/** Identifiers") :], DECLARATIONS)

    def test_writes_the_page(self) -> None:
        page = EventSources(self.read()).page()
        self.assertTrue(page.startswith("# "))
        self.assertEqual(page[page.index("| identifier") :], ROWS)

    def test_refuses_a_structure_with_a_gap(self) -> None:
        line = self.change("lamp:LAMP_E, level:int32, kind:uint8", "kind:uint8, level:int32", FILE)
        with self.assertRaises(GenerationError) as raised:
            EventSources(self.read()).header()
        complaint = f"{self.folder / FILE}:{line}: a compiler would leave a gap before field level"
        self.assertEqual(str(raised.exception), complaint)


if __name__ == "__main__":
    unittest.main()
