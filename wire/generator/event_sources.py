"""What comes of the table of events: the rows for C++, the header for applications, the reference page."""

from __future__ import annotations

import re

from cxx import array, includes, row, source, text
from events import MODULES
from model import Catalogue, Event, EventField
from program import GenerationError

FIELD_TYPES = {
    "int8": "Int8",
    "uint8": "UInt8",
    "int16": "Int16",
    "uint16": "UInt16",
    "int32": "Int32",
    "bool": "Int32",
    "text": "Text",
    "bytes": "Bytes",
}
INTEGERS = {"int8": "int8_t", "uint8": "uint8_t", "int16": "int16_t", "uint16": "uint16_t"}
NUMBER = "int32_t"
REST = {"text": "characters up to a zero", "bytes": "bytes to the end of the payload"}
HEADER_COMMENT = """\
/**
 * @file
 * Events of the simulated television.
 *
 * The modules are those of KELU_EM_MODE_E; the numbers within them and the payloads are the simulated television's own. A
 * real television has others.
 */
"""
PAGE_TEXT = """\
# Events of the simulated television {#simulated_events}

What kelutv-simulator publishes. The modules, the upper half of an identifier, are those of KELU_EM_MODE_E; the numbers
within a module and the payloads are the simulated television's own, and a real television has others. The identifiers and a
structure for each payload are in kelutv-simulator/events.h.

An event is published once for each change, before the call that made it returns. Setting a value that is there already, or
being refused, is no change. The fields of a payload follow each other without gaps, numbers in the byte order of the
machine. `bool` is an int32 of 0 or 1, an enumeration is an int32.

"""


def constant(event: Event) -> str:
    """`KELU_SIM_EVENT_VOLUME_CHANGED`."""
    return "KELU_SIM_EVENT_" + re.sub(r"(?<!^)([A-Z])", r"_\1", event.name).upper()


class EventSources:
    def __init__(self, catalogue: Catalogue):
        self.events = catalogue.events
        self.headers = catalogue.headers

    def _identifier(self, number: int) -> str:
        modules = self.headers.enumerations[MODULES].values.items()
        (module,) = (name for name, value in modules if value == number & ~0xFFFF)
        return f"{module} + {number & 0xFFFF}"

    def table(self) -> str:
        """The source of `simulatedEvents`."""
        fields = [
            array(f"    static const EventField kFields{index}", map(self._field_row, event.fields))
            for index, event in enumerate(self.events.rows)
            if event.fields
        ]
        rows = [self._event_row(index, event) for index, event in enumerate(self.events.rows)]
        return source(
            includes(["wire/events/Event.h"]),
            "kelutv::wire",
            hidden=self._enumeration_lines(),
            shown=[
                "Rows<Event> simulatedEvents() {",
                *fields,
                array("    static const Event kEvents", rows),
                "    return kEvents;\n}",
            ],
        )

    def _enumeration_lines(self) -> list[str]:
        lines = []
        for name, enumeration in self.events.enumerations.items():
            values = [row([text(each), str(value)]) for each, value in enumeration.values.items()]
            lines.append(array(f"constexpr Enumerator k{name}Values", values))
            lines.append(f"constexpr Enumeration k{name} = {row([text(name), f'k{name}Values'])};")
        return lines

    def _field_row(self, field: EventField) -> str:
        names = "nullptr"
        if field.type not in FIELD_TYPES:
            own = field.type in self.events.enumerations
            names = f"&k{field.type}" if own else f"findEnumeration({text(field.type)})"
        return row([text(field.name), f"FieldType::{FIELD_TYPES.get(field.type, 'Int32')}", names])

    @staticmethod
    def _event_row(index: int, event: Event) -> str:
        fields = f"kFields{index}" if event.fields else "{}"
        return row([f"0x{event.first:X}", f"0x{event.last:X}", text(event.name), fields, text(event.when)])

    def header(self) -> str:
        """`<kelutv-simulator/events.h>`."""
        parts = [HEADER_COMMENT + "#ifndef KELUTV_SIMULATOR_EVENTS_H\n#define KELUTV_SIMULATOR_EVENTS_H\n"]
        parts.append("#include <kelutv/events.h>\n\n#include <stdint.h>\n")
        parts.append(self._identifiers())
        for name, enumeration in self.events.enumerations.items():
            values = [f"    {e} = {v}, /**< {self.events.meanings[e]} */" for e, v in enumeration.values.items()]
            parts.append(self._enumeration(name, "Values in payloads of the simulated television.", values))
        parts += [self._structure(event) for event in self.events.rows if any(f.size for f in event.fields)]
        return "\n".join([*parts, "#endif\n"])

    def _identifiers(self) -> str:
        values = []
        for event in self.events.rows:
            values.append(f"    {constant(event)} = {self._identifier(event.first)}, /**< {event.when} */")
            if event.last != event.first:
                last = f"The last identifier of #{constant(event)}."
                values.append(f"    {constant(event)}_LAST = {self._identifier(event.last)}, /**< {last} */")
        return self._enumeration("KELU_SIM_EVENT_E", "Identifiers of the simulated television's events.", values)

    @staticmethod
    def _enumeration(name: str, comment: str, values: list[str]) -> str:
        lines = [f"/** {comment} */", f"typedef enum {name} KELUTV_INT_ENUM {{", *values, f"}} {name};\n"]
        return "\n".join(lines)

    def _structure(self, event: Event) -> str:
        name, offset, members = f"{constant(event)}_S", 0, []
        for field in event.fields:
            if field.is_open:
                continue
            if offset % field.size:
                raise GenerationError(event.place, f"a compiler would leave a gap before field {field.name}")
            offset += field.size
            members.append(f"    {INTEGERS.get(field.type, NUMBER)} {field.name}; /**< {self._meaning(field)} */")
        rest = [f" Behind it: {f.name}, {REST[f.type]}." for f in event.fields if f.is_open]
        comment = f"/** Payload of #{constant(event)}.{''.join(rest)} */"
        return "\n".join([comment, f"typedef struct {name} {{", *members, f"}} {name};\n"])

    @staticmethod
    def _meaning(field: EventField) -> str:
        if field.type == "bool":
            return "1 for yes, 0 for no."
        return "A number." if field.type in FIELD_TYPES else f"Of #{field.type}."

    def page(self) -> str:
        """A page in Markdown."""
        lines = ["| identifier | event | payload | when |", "|---|---|---|---|"]
        for event in self.events.rows:
            last = f" to 0x{event.last:X}" if event.last != event.first else ""
            fields = "<br>".join(f"{field.name}: {field.type}" for field in event.fields) or "none"
            lines.append(f"| 0x{event.first:X}{last} | {event.name}, #{constant(event)} | {fields} | {event.when} |")
        return PAGE_TEXT + "\n".join(lines) + "\n"
