"""What the reader makes of the table of events."""

from __future__ import annotations

import json
import unittest

from fixture import ROOT, CatalogueTest, read_catalogue
from model import EventField

MODULES = """
typedef enum KELU_EM_MODE_E KELUTV_INT_ENUM {
    KELU_EM_MODE_LAMP = 0x10000,
    KELU_EM_MODE_TORCH = 0x20000,
    KELU_EM_MODE_ODD = 0x20001,
} KELU_EM_MODE_E;
"""

EVENTS = """# Events

## Events

| identifier | event | payload | when |
|---|---|---|---|
| KELU_EM_MODE_LAMP+1 | levelChanged | lamp:LAMP_E, level:int32, kind:uint8 | Another level. |
| 0x10002 | lampNamed | state:TORCH_STATE_E, name:text | Another name. |
| KELU_EM_MODE_TORCH+0x10..KELU_EM_MODE_TORCH+0xFFFF | torchBlock | length:int32, data:bytes | A block. |
| 0x10003 | lampsTested | - | All lamps were tested. |

## Enumerations

| enumeration | enumerator | value | meaning |
|---|---|---|---|
| TORCH_STATE_E | TORCH_STATE_OFF | 0 | Off. |
| TORCH_STATE_E | TORCH_STATE_ON | 0x10 | On. |
"""

FILE = "catalogue/events.md"


class EventsTest(CatalogueTest):
    def setUp(self) -> None:
        super().setUp()
        self.write("include/kelutv/events.h", MODULES)
        self.write(FILE, EVENTS)

    def assert_wrong(self, old: str, new: str, message: str) -> None:
        self.assert_complaint(self.change(old, new, FILE), message, FILE)

    def test_reads_identifiers_fields_and_enumerations(self) -> None:
        events = self.read().events
        rows = [(row.name, row.first, row.last, row.when) for row in events.rows]
        self.assertEqual(
            rows,
            [
                ("levelChanged", 0x10001, 0x10001, "Another level."),
                ("lampNamed", 0x10002, 0x10002, "Another name."),
                ("torchBlock", 0x20010, 0x2FFFF, "A block."),
                ("lampsTested", 0x10003, 0x10003, "All lamps were tested."),
            ],
        )
        fields = (EventField("lamp", "LAMP_E", 4), EventField("level", "int32", 4), EventField("kind", "uint8", 1))
        self.assertEqual(events.rows[0].fields, fields)
        self.assertEqual([field.is_open for field in events.rows[1].fields], [False, True])
        self.assertEqual(events.rows[3].fields, ())
        self.assertEqual(events.enumerations["TORCH_STATE_E"].values, {"TORCH_STATE_OFF": 0, "TORCH_STATE_ON": 16})
        self.assertEqual(events.meanings["TORCH_STATE_ON"], "On.")

    def test_a_catalogue_without_the_file_has_none(self) -> None:
        (self.folder / FILE).unlink()
        self.assertEqual(self.read().events.rows, [])

    def test_refuses_identifiers_of_no_module(self) -> None:
        for wrong in ("KELU_EM_MODE_LAMP", "KELU_EM_MODE_ODD+1", "LAMP+1", "KELU_EM_MODE_LAMP+0x10000", "-1", "010"):
            with self.subTest(wrong):
                self.write(FILE, EVENTS)
                self.assert_wrong(
                    "KELU_EM_MODE_LAMP+1",
                    wrong,
                    f"identifier '{wrong}' is neither a number nor MODULE+NUMBER with a module of KELU_EM_MODE_E and a "
                    "number from 0 to 0xFFFF",
                )

    def test_refuses_identifiers_beyond_their_module(self) -> None:
        self.assert_wrong("0x10002", "7", "the upper half of identifier 7 is not a module of KELU_EM_MODE_E")
        self.write(FILE, EVENTS)
        self.assert_wrong("0x10002", "0x10002..0x20002", "the range 0x10002..0x20002 goes beyond its module")
        self.write(FILE, EVENTS)
        self.assert_wrong("0x10002", "0x10005..0x10004", "the range 0x10005..0x10004 is empty")

    def test_refuses_what_stands_twice(self) -> None:
        place = f"{self.folder / FILE}:9"
        self.assert_wrong("0x10003", "0x20020", f"identifier 0x20020 is that of torchBlock at {place}")
        self.write(FILE, EVENTS)
        self.assert_wrong("lampsTested", "TorchBlock", "event 'TorchBlock' is not a name such as volumeChanged")
        self.write(FILE, EVENTS)
        self.assert_wrong("lampsTested", "torchblock", f"event torchblock stands at {place} already")
        self.write(FILE, EVENTS)
        self.assert_wrong("level:int32", "lamp:int32", "field lamp stands twice")

    def test_refuses_fields_that_are_none(self) -> None:
        self.assert_wrong("lamp:LAMP_E", "lamp", "field 'lamp' is not NAME:TYPE")
        self.write(FILE, EVENTS)
        self.assert_wrong(
            "lamp:LAMP_E",
            "lamp:float",
            "type 'float' is neither an enumeration nor one of: int8, uint8, int16, uint16, int32, bool, text, bytes",
        )
        self.write(FILE, EVENTS)
        self.assert_wrong(
            "length:int32, data:bytes",
            "data:bytes, length:int32",
            "field data: bytes takes the rest of the payload and must be the last field",
        )

    def test_refuses_enumerators_that_are_none(self) -> None:
        for old, new, message in (
            ("TORCH_STATE_ON |", "TORCH_STATE_OFF |", "the enumerator TORCH_STATE_OFF exists already"),
            ("TORCH_STATE_ON |", "LAMP_LEFT |", "the enumerator LAMP_LEFT exists already"),
            ("TORCH_STATE_ON |", "on |", "'on' is not a name of capital letters, digits and underscores"),
            ("TORCH_STATE_E | TORCH_STATE_ON", "LAMP_E | L", "LAMP_E is an enumeration of the public headers already"),
            ("0x10 | On.", "high | On.", "value 'high' is not a number from 0 to 2147483647"),
        ):
            with self.subTest(new):
                self.write(FILE, EVENTS)
                self.assert_wrong(old, new, message)

    def test_refuses_other_tables(self) -> None:
        self.assert_wrong("## Events", "## Things", "unknown section 'Things', expected one of: Events, Enumerations")
        self.write(FILE, EVENTS)
        self.assert_wrong("| when |", "| then |", "missing column 'when'")


class SimulatedTelevision(unittest.TestCase):
    def test_has_its_first_events_where_they_always_were(self) -> None:
        rows = {row.name: row.first for row in read_catalogue(ROOT / "catalogue", ROOT / "include").events.rows}
        expected = {
            "sourceChanged": 0x40001,
            "signalChanged": 0x40002,
            "timingChanged": 0x40003,
            "sourcePlugged": 0x40004,
            "mode3dChanged": 0x50001,
            "volumeChanged": 0x60001,
            "muteChanged": 0x60002,
            "streamTypeChanged": 0x80001,
            "powerStateChanged": 0x80002,
            "keyUsed": 0x80003,
            "vbiBlock": 0x120001,
            "cecDeviceChanged": 0x1A0001,
            "cecPlayingChanged": 0x1A0002,
        }
        self.assertEqual({name: rows.get(name) for name in expected}, expected)

    def test_payloads_are_the_keys_and_values_of_the_states_that_have_them(self) -> None:
        catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
        setters = {f"{op.method.module}.{op.state.name}": op for op in catalogue.operations if op.state and op.state.is_set}
        rows = {row.name: row for row in catalogue.events.rows}
        configuration = json.loads((ROOT / "simulator/configuration/defaults.json").read_text(encoding="utf-8"))
        carried = {
            f"{module.name}.{state}": rows[settings["event"]]
            for module in catalogue.modules
            for state, settings in configuration.get(module.name, {}).items()
            if "event" in settings
        }
        self.assertGreater(len(carried), 100)
        for state in carried.keys() & setters.keys():
            rule, request = setters[state].state, setters[state].request
            operands = [request[o.index] for o in (*rule.keys, *(rule.values or ())) if o.index is not None]
            self.assertEqual(len(operands), len(carried[state].fields), state)
            for operand, field in zip(operands, carried[state].fields):
                values = setters[state].values.get(operand.source.lstrip("*"))
                names = values.enumeration if values and values.enumeration else operand.type
                if names in catalogue.headers.enumerations:
                    self.assertEqual(field.type, names, f"{state}: {field.name}")
                self.assertEqual(field.type == "text", operand.kind in ("cstring", "str16"), state)


if __name__ == "__main__":
    unittest.main()
