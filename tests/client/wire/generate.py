#!/usr/bin/env python3
"""Writes the wire table of one module: every operation, its request bytes, and what each answer must come to."""

from __future__ import annotations

import argparse
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "catalogue"))

from arguments import Call, build_calls  # noqa: E402
from model import Catalogue, Function, Method, Module  # noqa: E402
from outcomes import Outcomes, request_payload  # noqa: E402
from reader import read_catalogue  # noqa: E402
from tables import CatalogueError  # noqa: E402


def bytes_literal(data: bytes) -> str:
    """A string view literal, four bytes to a group."""
    groups = [data[i : i + 4] for i in range(0, len(data), 4)] or [b""]
    return " ".join('"' + "".join(f"\\x{byte:02x}" for byte in group) + '"' for group in groups) + "sv"


def text_literal(text: str | None) -> str:
    if text is None:
        return "nullptr"
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n") + '"'


def _sends_one_request(operation: Method | Function) -> bool:
    method = operation if isinstance(operation, Method) else operation.method
    computed = any(item.computed for item in operation.request)
    return method is not None and method.command is not None and not computed


class ModuleWriter:
    def __init__(self, catalogue: Catalogue, module: Module):
        self.catalogue = catalogue
        self.module = module
        self.functions: list[str] = []
        self.answers: dict[str, str] = {}
        self.tables: list[str] = []
        self.rows: list[str] = []

    def _result_lines(self, operation: Method | Function) -> list[str]:
        records = self.catalogue.headers.records
        if operation.signature.result in records:
            fields = records[operation.signature.result].fields
            return [f'observed.add("result.{field.name}", result.{field.name});' for field in fields]
        return ['observed.add("result", result);']

    def _call_function(self, operation: Method | Function, call: Call, null: str | None = None) -> str:
        name = f"call{len(self.functions)}"
        arguments = ["nullptr" if p == null else text for p, text in call.arguments.items()]
        target = operation.name
        if isinstance(operation, Method):
            target = f"{operation.owner}::instance()->{operation.signature.name}"
        labels = {n: e for n, e in call.expressions.items() if n != null and not n.startswith(f"{null}.")}
        setup = [line for parameter, lines in call.setup.items() if parameter != null for line in lines]
        lines = [
            *setup,
            f"const auto result = {target}({', '.join(arguments)});",
            "Observed observed;",
            *self._result_lines(operation),
            *(f'observed.add("{label}", {expression});' for label, expression in labels.items()),
            "return observed.text();",
        ]
        body = "\n".join(f"    {line}" for line in lines)
        self.functions.append(f"std::string {name}() {{\n{body}\n}}")
        return name

    def _bare_function(self, operation: Method | Function, call: Call) -> str:
        """The call alone, for operations that take and give back nothing but numbers."""
        method = operation if isinstance(operation, Method) else operation.method
        if call.setup or method.reply.shape == "parcel" or any(text.startswith('"') for text in call.arguments.values()):
            return "nullptr"
        name = f"bare{len(self.functions)}"
        target = f"{operation.owner}::instance()->{operation.signature.name}" if operation is method else operation.name
        self.functions.append(f"void {name}() {{ {target}({', '.join(call.arguments.values())}); }}")
        return name

    def _answers(self, outcomes: Outcomes) -> str:
        entries = [
            f"    {{{bytes_literal(o.reply)}, {text_literal(o.observed)}, {text_literal(o.log)}}},"
            for o in outcomes.answers()
        ]
        body = "\n".join(entries)
        return self.answers.setdefault(body, f"kAnswers{len(self.answers)}")

    def _nulls(self, operation: Method | Function, call: Call, outcomes: Outcomes) -> str:
        entries = []
        for name in operation.null:
            observed, log = outcomes.refused(name)
            function = self._call_function(operation, call, name)
            entries.append(f'    {{"{name}", {function}, {text_literal(observed)}, {text_literal(log)}}},')
        if not entries:
            return "{}"
        table = f"kNulls{len(self.tables)}"
        self.tables.append(f"constexpr RefusedNull {table}[] = {{\n" + "\n".join(entries) + "\n};")
        return table

    def _add_call(self, operation: Method | Function, call: Call) -> None:
        method = operation if isinstance(operation, Method) else operation.method
        owner = next(module for module in self.catalogue.modules if module.name == method.module)
        outcomes = Outcomes(operation, owner, self.catalogue.headers, call)
        failure = outcomes.failure()
        name = "_".join([operation.name.replace("::", "_"), *("true" if flag else "false" for flag in call.flags)])
        function = self._call_function(operation, call)
        payload = bytes_literal(request_payload(operation.request, call))
        self.rows.append(
            f'    {{"{name}", {function}, 0x{method.value:04X}, {payload}, {self._answers(outcomes)},\n'
            f"     {self._nulls(operation, call, outcomes)}, {text_literal(failure.observed)}, "
            f"{text_literal(failure.log)}, {self._bare_function(operation, call)}}},"
        )

    def write(self) -> str:
        for operation in [*self.module.methods, *self.module.functions]:
            if _sends_one_request(operation):
                for call in build_calls(operation, self.catalogue.headers):
                    self._add_call(operation, call)
        if not self.rows:
            return "// Generated from the catalogue: no operation of this module sends anything.\n"
        suite = self.module.name.capitalize()
        headers = [header for header in (self.module.header, self.module.c_header) if header]
        answers = [f"constexpr Answer {name}[] = {{\n{body}\n}};" for body, name in self.answers.items()]
        rows = "\n".join(self.rows)
        return "\n\n".join(
            [
                "\n".join(["// Generated from the catalogue."] + [f"#include <{header}>" for header in headers]),
                '#include "client/wire/WireTable.h"\n\n#include <algorithm>\n#include <numeric>',
                "namespace kelutv::test {\n\nusing namespace std::string_view_literals;\n\nnamespace {",
                *self.functions,
                *answers,
                *self.tables,
                f"const WireOperation kOperations[] = {{\n{rows}\n}};",
                "} // namespace",
                f"INSTANTIATE_TEST_SUITE_P({suite}, WireTable, ::testing::ValuesIn(kOperations), operationName);",
                "} // namespace kelutv::test\n",
            ]
        )


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("module", help="name of the module's table, such as audio")
    parser.add_argument("output", type=Path, help="the C++ source to write")
    arguments = parser.parse_args()
    try:
        catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
    except CatalogueError as error:
        print(error, file=sys.stderr)
        return 1
    module = next((module for module in catalogue.modules if module.name == arguments.module), None)
    if module is None:
        names = ", ".join(module.name for module in catalogue.modules)
        print(f"no module '{arguments.module}' in the catalogue, there are: {names}", file=sys.stderr)
        return 1
    arguments.output.write_text(ModuleWriter(catalogue, module).write(), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
