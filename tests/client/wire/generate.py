#!/usr/bin/env python3
"""Writes the wire tables: of every module each operation, its request bytes, and what each answer must come to."""

from __future__ import annotations

import argparse
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "catalogue"))

from arguments import Call, build_calls  # noqa: E402
from calls import COMPUTED  # noqa: E402
from folders import add_folder_options, read_named_catalogue  # noqa: E402
from model import Catalogue, Method, Module, Operation  # noqa: E402
from outcomes import Outcomes, request_payload  # noqa: E402
from tables import CatalogueError  # noqa: E402


def bytes_literal(data: bytes) -> str:
    """A string view literal, four bytes to a group."""
    groups = [data[i : i + 4] for i in range(0, len(data), 4)] or [b""]
    return " ".join('"' + "".join(f"\\x{byte:02x}" for byte in group) + '"' for group in groups) + "sv"


def text_literal(text: str | None) -> str:
    if text is None:
        return "nullptr"
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n") + '"'


def sends_one_request(operation: Operation) -> bool:
    """Whether a call sends one request of which every item is known."""
    while not isinstance(operation, Method):
        if operation.callee is None or COMPUTED in operation.arguments:
            return False
        operation = operation.callee
    return operation.command is not None


class Source:
    """The C++ source of one module in the making: the calls, and the tables that name them."""

    def __init__(self, catalogue: Catalogue, module: Module):
        self.catalogue = catalogue
        self.module = module
        self.calls: dict[str, str] = {}
        self.tables: dict[str, str] = {}
        self.rows: list[str] = []

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

    def table(self, row_type: str, rows: list[str]) -> str:
        """The name of a table with these rows; equal tables are written once."""
        if not rows:
            return "{}"
        body = f"constexpr {row_type} %s[] = {{\n" + "\n".join(f"    {row}," for row in rows) + "\n};"
        return self.tables.setdefault(body, f"kTable{len(self.tables)}")

    def text(self, row_type: str, includes: list[str]) -> str:
        """The whole source: the rows are offered as the module's."""
        headers = [header for header in (self.module.header, self.module.c_header) if header]
        rows = "\n".join(f"    {row}," for row in self.rows)
        return "\n\n".join(
            [
                "// Generated from the catalogue.\n" + "\n".join(f"#include <{header}>" for header in headers),
                "\n".join(f'#include "{include}"' for include in includes),
                "namespace kelutv::test {\n\nusing namespace std::string_view_literals;\n\nnamespace {",
                *(body % name for body, name in self.calls.items()),
                *(body % name for body, name in self.tables.items()),
                f"constexpr {row_type} kRows[] = {{\n{rows}\n}};",
                f"const Offered<{row_type}> offered(kRows);",
                "} // namespace\n\n} // namespace kelutv::test\n",
            ]
        )


class WireTable:
    """The rows of one module's operations."""

    def __init__(self, catalogue: Catalogue, module: Module):
        self.catalogue = catalogue
        self.module = module
        self.source = Source(catalogue, module)

    @staticmethod
    def _is_numbers_only(operation: Operation, call: Call) -> bool:
        """Whether nothing but numbers goes in or comes out."""
        texts = any(not isinstance(value, (int, float)) for value in call.sent.values())
        return not call.setup and not texts and operation.method.reply.shape != "parcel"

    def _answers(self, outcomes: Outcomes) -> str:
        cells = ([bytes_literal(o.reply), text_literal(o.observed), text_literal(o.log)] for o in outcomes.answers())
        return self.source.table("Answer", [f"{{{', '.join(row)}}}" for row in cells])

    def _refusals(self, operation: Operation, outcomes: Outcomes) -> str:
        rows = []
        for refusal in operation.refusals:
            outcome = outcomes.refused(refusal)
            rows.append(f'{{"{refusal.parameter}", {text_literal(outcome.observed)}, {text_literal(outcome.log)}}}')
        return self.source.table("RefusedNull", rows)

    def _add(self, operation: Operation, call: Call) -> None:
        outcomes = Outcomes(operation, self.catalogue.headers, call)
        failure = outcomes.failure()
        name = "_".join([operation.name.replace("::", "_"), *("true" if flag else "false" for flag in call.flags)])
        cells = [
            text_literal(name),
            self.source.call_function(operation, call),
            f"0x{operation.method.value:04X}",
            bytes_literal(request_payload(operation.request, call)),
            self._answers(outcomes),
            self._refusals(operation, outcomes),
            text_literal(failure.observed),
            text_literal(failure.log),
            str(self._is_numbers_only(operation, call)).lower(),
        ]
        self.source.rows.append(f"{{{', '.join(cells)}}}")

    def text(self) -> str:
        for operation in self.module.operations:
            if sends_one_request(operation):
                for call in build_calls(operation, self.catalogue.headers):
                    self._add(operation, call)
        if not self.source.rows:
            return "// Generated from the catalogue: no operation of this module sends anything.\n"
        return self.source.text("WireOperation", ["client/wire/WireTable.h"])


def write_if_changed(path: Path, text: str) -> None:
    """Leaves an equal file alone, so that nothing that is made of it is made again."""
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def write_tables(description: str, table: type, argv: list[str] | None = None) -> int:
    """The command line `FOLDER PREFIX` with the options for folders: writes PREFIX<module>.cpp for every module."""
    parser = argparse.ArgumentParser(description=description)
    add_folder_options(parser)
    parser.add_argument("folder", type=Path, help="where to write")
    parser.add_argument("prefix", help="what the names of the sources begin with")
    arguments = parser.parse_args(argv)
    try:
        catalogue = read_named_catalogue(arguments)
        for module in catalogue.modules:
            text = table(catalogue, module).text()
            write_if_changed(arguments.folder / f"{arguments.prefix}{module.name}.cpp", text)
    except (CatalogueError, ValueError) as error:
        print(error, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(write_tables(__doc__, WireTable))
