#!/usr/bin/env python3
"""Writes the wire tables: of every module each operation, its request bytes, and what each answer must come to."""

from __future__ import annotations

import sys
from collections.abc import Callable
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path[:0] = [str(ROOT / "catalogue"), str(ROOT / "wire" / "generator")]

from arguments import Call, build_calls  # noqa: E402
from calls import COMPUTED  # noqa: E402
from cxx import Arrays, array, boolean, bytes_view, includes, row, source, text, text_or_null  # noqa: E402
from model import Catalogue, Method, Module, Operation  # noqa: E402
from outcomes import Outcomes, request_payload  # noqa: E402
from program import Sources, run  # noqa: E402


def sends_one_request(operation: Operation) -> bool:
    """Whether a call sends one request of which every item is known."""
    while not isinstance(operation, Method):
        if operation.callee is None or COMPUTED in operation.arguments:
            return False
        operation = operation.callee
    return operation.command is not None


class TestRows:
    """The rows of one module in the making: the calls, and the arrays that name them."""

    def __init__(self, catalogue: Catalogue, module: Module):
        self.catalogue = catalogue
        self.module = module
        self.calls: dict[str, str] = {}
        self.arrays = Arrays()
        self.all: list[str] = []

    def _target(self, operation: Operation) -> str:
        if operation.owner is None:
            return operation.name
        constructed = self.catalogue.module(operation.module).constructed
        return f"{operation.owner}{'().' if constructed else '::instance()->'}{operation.signature.name}"

    def _result_lines(self, operation: Operation, call: str) -> list[str]:
        record = self.catalogue.headers.records.get(operation.signature.result)
        if record is None:
            return [f'observed.add("result", {call});']
        fields = [f'observed.add("result.{field.name}", result.{field.name});' for field in record.fields]
        return [f"const auto result = {call};", *fields]

    def call_function(self, operation: Operation, call: Call) -> str:
        """The name of a function that makes the call and says what it gave back."""
        arguments = dict(call.arguments)
        for position, refusal in enumerate(operation.refusals, 1):
            arguments[refusal.parameter] = f"null == {position} ? nullptr : {arguments[refusal.parameter]}"
        lines = [
            *call.setup,
            *self._result_lines(operation, f"{self._target(operation)}({', '.join(arguments.values())})"),
            *(f'observed.add("{label}", {expression});' for label, expression in call.expressions.items()),
        ]
        null = "int null" if operation.refusals else "int"
        body = f"void %s(Observed& observed, {null}) {{\n" + "\n".join(f"    {line}" for line in lines) + "\n}"
        return self.calls.setdefault(body, f"call{len(self.calls)}")

    def source(self, row_type: str, header: str) -> str:
        """The whole source: the rows are offered as the module's."""
        if not self.all:
            return f"// Generated from the catalogue: nothing of module {self.module.name} is tested here.\n"
        headers = [header for header in (self.module.header, self.module.c_header) if header]
        return source(
            includes([header], headers),
            "kelutv::test",
            shown=[],
            hidden=[
                "using namespace std::string_view_literals;",
                *(body.replace("%s", name, 1) for body, name in self.calls.items()),
                *self.arrays.definitions(),
                array(f"constexpr {row_type} kRows", self.all),
                f"const Offered<{row_type}> offered(kRows);",
            ],
        )


class WireTable:
    """The rows of one module's operations."""

    def __init__(self, catalogue: Catalogue, module: Module):
        self.catalogue = catalogue
        self.module = module
        self.rows = TestRows(catalogue, module)

    @staticmethod
    def _is_numbers_only(operation: Operation, call: Call) -> bool:
        """Whether nothing but numbers goes in or comes out."""
        texts = any(not isinstance(value, (int, float)) for value in call.sent.values())
        return not call.setup and not texts and operation.method.reply.shape != "parcel"

    def _answers(self, outcomes: Outcomes) -> str:
        cells = ([bytes_view(o.reply), text_or_null(o.observed), text_or_null(o.log)] for o in outcomes.answers())
        return self.rows.arrays.name("Answer", [row(each) for each in cells])

    def _refusals(self, operation: Operation, outcomes: Outcomes) -> str:
        rows = []
        for refusal in operation.refusals:
            outcome = outcomes.refused(refusal)
            rows.append(row([text(refusal.parameter), text_or_null(outcome.observed), text_or_null(outcome.log)]))
        return self.rows.arrays.name("RefusedNull", rows)

    def _add(self, operation: Operation, call: Call) -> None:
        outcomes = Outcomes(operation, self.catalogue.headers, call)
        failure = outcomes.failure()
        name = "_".join([operation.name.replace("::", "_"), *("true" if flag else "false" for flag in call.flags)])
        cells = [
            text(name),
            self.rows.call_function(operation, call),
            f"0x{operation.method.value:04X}",
            bytes_view(request_payload(operation.request, call)),
            self._answers(outcomes),
            self._refusals(operation, outcomes),
            text_or_null(failure.observed),
            text_or_null(failure.log),
            boolean(self._is_numbers_only(operation, call)),
        ]
        self.rows.all.append(row(cells))

    def source(self) -> str:
        for operation in self.module.operations:
            if sends_one_request(operation):
                for call in build_calls(operation, self.catalogue.headers):
                    self._add(operation, call)
        return self.rows.source("WireOperation", "client/wire/WireTable.h")


def per_module(prefix: str, text_of: Callable[[Catalogue, Module], str]) -> Sources:
    """One source for each module, `<prefix><module>.cpp`."""
    return lambda catalogue, _: {
        f"{prefix}{module.name}.cpp": text_of(catalogue, module) for module in catalogue.modules
    }


sources = per_module("wire_table_", lambda catalogue, module: WireTable(catalogue, module).source())

if __name__ == "__main__":
    sys.exit(run(__doc__, sources))
