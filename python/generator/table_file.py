"""The table by which the package calls: one row a function."""

from __future__ import annotations

from model import Catalogue, ValueSet
from parameters import ParameterInfo
from plan import Plan, base_type, element_code, is_by_value, room_is_answer, safe
from vocabulary_files import HEAD, RecordFiles

_ROWS = '''
# Of a parameter: name, role, letter of its numbers, enumeration or record, room, may be None, least, greatest.
# Roles: number, text, array and record go in, those with "out" before them come out; length counts the array whose name
# its room has; list is the shim's; null is never looked at; inout is a number that goes both ways.
Parameter = tuple[str, str, str, str, str, bool, "int | None", "int | None"]
# Of a function: full name, module and short name, symbol, parameters, letter of the result ("" for none that is given
# on, "r" for a record, "l" for a list), enumeration or record of the result, bytes of an answer that needs no closer look,
# whether -1 is a failure, whether the result word is a value, whether it needs the service.
Row = tuple[str, str, str, "tuple[Parameter, ...]", str, str, int, bool, bool, bool]
'''


class TableFile:
    def __init__(self, catalogue: Catalogue, records: RecordFiles):
        self.catalogue = catalogue
        self.headers = catalogue.headers
        self.records = records

    def _named(self, type_name: str, values: ValueSet | None) -> str:
        name = values.enumeration if values and values.enumeration else type_name
        found = self.headers.enumerations.get(name)
        return name if found and found.values else ""

    def _role(self, parameter: ParameterInfo) -> str:
        if parameter.direction == "unused" or parameter.kind == "callback":
            return "null" if parameter.direction == "unused" and parameter.kind != "callback" else "callback"
        if parameter.direction == "length":
            return "length"
        if parameter.direction == "inout":
            return "inout"
        kind = "number" if parameter.kind == "value" else parameter.kind
        if parameter.led_by_length:
            kind = "block"
        if kind == "number" and parameter.direction == "in" and not is_by_value(parameter):
            kind = "pointed"
        return kind if parameter.direction == "in" else f"out {kind}" if kind != "list" else "list"

    def _parameter(self, plan: Plan, parameter: ParameterInfo) -> str:
        base, role = base_type(parameter), self._role(parameter)
        record = base if base in self.records.records else ""
        is_number = parameter.kind in ("value", "array") and not record and role not in ("null", "callback")
        code = element_code(parameter.element, self.catalogue) if is_number else "r" if record else ""
        named = record or (self._named(parameter.element, parameter.values) if is_number else "")
        values = parameter.values
        low, high = (values.low, values.high) if values and values.bounded else (None, None)
        room = self._room(plan, parameter, role)
        return repr((safe(parameter.name), role, code, named, room, parameter.allows_null, low, high))

    @staticmethod
    def _room(plan: Plan, parameter: ParameterInfo, role: str) -> str:
        if role == "length":
            return next(each.name for each in plan.parameters if each.room == parameter.name and each.direction == "in")
        if parameter.count:
            return f"{'' if room_is_answer(parameter) else parameter.room} by {parameter.count}"
        return "" if room_is_answer(parameter) else parameter.room or ""

    def _result(self, plan: Plan) -> tuple[str, str]:
        declared = plan.operation.signature.result
        if declared in self.headers.records:
            return "r", declared
        if declared.startswith("std::"):
            return "l", ""
        if not plan.gives_result:
            return "", ""
        if plan.operation.result == "bool" or plan.operation.result.endswith("!= 0"):
            return "?", ""
        return element_code(declared, self.catalogue), self._named(declared, plan.result_values)

    def _row(self, module: str, plan: Plan) -> str:
        operation = plan.operation
        parameters = "".join(f"{self._parameter(plan, each)}, " for each in plan.parameters)
        tail = (
            *self._result(plan),
            plan.reply_size,
            operation.minus_one == "failure" and operation.signature.result not in ("bool", "void"),
            operation.status_is_value,
            plan.needs_service,
        )
        head = f'"{operation.name}", "{module}.{plan.name}", "{plan.symbol}", ({parameters.rstrip()})'
        return f"    ({head}, {', '.join(map(repr, tail))}),"

    def source(self, modules: dict[str, list[Plan]]) -> str:
        lines = [HEAD.format(title="What the package calls, and where records keep their fields.") + _ROWS.lstrip("\n")]
        lines.append("FUNCTIONS: tuple[Row, ...] = (")
        lines += [self._row(module, plan) for module, plans in modules.items() for plan in plans]
        lines += [")", "", "# Of a field: name in C, name, letter or s for a text and r for a record, count, enumeration or record,"]
        lines += ["# room of a text.", *self.records.layouts()]
        return "\n".join(lines) + "\n"
