#!/usr/bin/env python3
"""The catalogue of the library's operations: reading, checking, and what other programs derive from it.

    python3 catalogue/catalogue.py check                 every table against headers, comments and tests
    python3 catalogue/catalogue.py list                  every operation, one a line
    python3 catalogue/catalogue.py list --effect set --effect dangerous
                                                         only those with these effects
    python3 catalogue/catalogue.py exports               every symbol the library exports
    python3 catalogue/catalogue.py show Audio::setMute   one operation in full
"""

from __future__ import annotations

import argparse
import difflib
import re
import sys
from pathlib import Path

from comments import check_comments
from docs import read_docs
from effects import EFFECTS, effect_text, has_effect
from folders import ROOT, add_folder_options, read_named_catalogue
from model import Catalogue, Function, Method, Operation, WireItem
from ranges import range_text
from tables import CatalogueError


def expected_exports(catalogue: Catalogue) -> list[str]:
    """The demangled functions and objects that the library must export, type information apart."""
    symbols = [function.name for function in catalogue.functions]
    methods = [method for module in catalogue.modules for method in module.class_methods]
    symbols += [f"{method.owner}::{catalogue.headers.demangled(method.signature)}" for method in methods]
    owners = [module.owner for module in catalogue.modules if module.owner and not module.constructed]
    symbols += [f"{owner}::instance()" for owner in owners]
    symbols += [f"android::TVBaseClient::{overload}" for overload in catalogue.overloads]
    return symbols + catalogue.link_symbols


def exported_classes(catalogue: Catalogue) -> dict[str, bool]:
    """Every exported class and whether it is polymorphic."""
    classes = dict(catalogue.link_classes)
    for module in catalogue.modules:
        if module.owner:
            classes[module.owner] = any(method.signature.virtual for method in module.class_methods)
    return classes


def irregular_markers(tests: Path) -> dict[str, str]:
    """The operations that hand-written tests name by a comment `// irregular: NAME`, each with its place."""
    markers = {}
    for path in sorted(tests.rglob("*.cpp")):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            match = re.fullmatch(r"\s*// irregular: (.+)", line)
            for name in re.split(r",\s*", match[1].strip()) if match else []:
                markers.setdefault(name, f"{path}:{number}")
    return markers


def check_irregular(catalogue: Catalogue, tests: Path) -> list[str]:
    """Complaints about irregular rows without a test, and about markers that name no operation or a regular one."""
    markers = irregular_markers(tests)
    untested = [o for o in catalogue.operations if o.irregular and o.name not in markers]
    complaints = [
        f"{o.place}: {o.name} is irregular, but no test under {tests} says '// irregular: {o.name}'" for o in untested
    ]
    for name, place in markers.items():
        operation = catalogue.operation(name)
        if operation is None:
            complaints.append(f"{place}: '{name}' is not an operation of the catalogue{_nearest(catalogue, name)}")
        elif operation.irregular is None:
            complaints.append(f"{place}: the marker is stale, {name} is a regular row at {operation.place}")
    return complaints


def _nearest(catalogue: Catalogue, name: str) -> str:
    close = difflib.get_close_matches(name, [operation.name for operation in catalogue.operations], 1)
    return f"; the nearest is {close[0]}" if close else ""


def request_text(request: tuple[WireItem, ...]) -> str:
    """What follows the command in a request, for a reader."""
    texts = [f"{item.source} ({item.kind}{f', {item.length} of them' if item.length else ''})" for item in request]
    return ", ".join(texts) or "nothing"


def _result_text(operation: Operation) -> str:
    return f"returns: {operation.result}; -1 means: {operation.minus_one}"


def _method_lines(method: Method) -> list[str]:
    if method.command is None:
        return ["sends nothing"]
    return [
        f"{method.command} 0x{method.value:04X}, {method.overload.name}",
        f"sends: {request_text(method.request)}",
        f"reply: {method.reply.shape}" + "".join(f" {field.name}" for field in method.reply.fields),
        _result_text(method),
    ]


def _function_lines(function: Function) -> list[str]:
    if function.steps:
        return [f"calls: {', then '.join(step.name for step in function.steps)}"]
    if function.callee is None:
        return ["sends nothing"]
    lines = [f"calls: {function.callee.name}({', '.join(function.arguments)})"]
    return lines + [f"sends: {request_text(function.request)}", _result_text(function)]


def describe(operation: Operation) -> str:
    """One operation for a reader."""
    lines = _method_lines(operation) if isinstance(operation, Method) else _function_lines(operation)
    lines.append(f"effect: {effect_text(operation.effect)}")
    if operation.null:
        lines.append(f"null is refused, nothing sent: {', '.join(operation.null)}")
    for name, values in operation.values.items():
        lines.append(f"{name}: {values.enumeration or range_text(values)}")
    if operation.irregular:
        lines.append(f"irregular: {operation.irregular}")
    return "\n".join([f"{operation.name}", f"  {operation.signature}", *(f"  {line}" for line in lines)])


def _check(catalogue: Catalogue, arguments: argparse.Namespace) -> int:
    complaints = check_irregular(catalogue, arguments.tests)
    complaints += check_comments(catalogue, read_docs(arguments.include))
    for complaint in complaints:
        print(complaint, file=sys.stderr)
    if not complaints:
        methods = sum(len(module.class_methods) for module in catalogue.modules)
        print(f"{methods} methods and {len(catalogue.functions)} C functions are in order")
    return 1 if complaints else 0


def _list(catalogue: Catalogue, arguments: argparse.Namespace) -> int:
    for operation in catalogue.operations:
        if all(has_effect(operation.effect, word) for word in arguments.effect):
            print(operation.name)
    return 0


def _exports(catalogue: Catalogue, _: argparse.Namespace) -> int:
    for symbol in sorted(expected_exports(catalogue)):
        print(symbol)
    return 0


def _show(catalogue: Catalogue, arguments: argparse.Namespace) -> int:
    operation = catalogue.operation(arguments.name)
    if operation is None:
        print(f"no operation '{arguments.name}'{_nearest(catalogue, arguments.name)}", file=sys.stderr)
        return 1
    print(describe(operation))
    return 0


def _arguments(argv: list[str] | None) -> argparse.Namespace:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    add_folder_options(parser)
    commands = parser.add_subparsers(required=True)
    check = commands.add_parser("check", help="check the tables")
    check.add_argument("--tests", type=Path, default=ROOT / "tests", help="folder of the hand-written tests")
    check.set_defaults(run=_check)
    listing = commands.add_parser("list", help="list the operations")
    listing.add_argument("--effect", action="append", choices=EFFECTS, default=[], help="only with this effect")
    listing.set_defaults(run=_list)
    commands.add_parser("exports", help="list the exported symbols").set_defaults(run=_exports)
    show = commands.add_parser("show", help="show one operation")
    show.add_argument("name", help="Audio::setMute or linux_tv_Audio_setMute")
    show.set_defaults(run=_show)
    return parser.parse_args(argv)


def main(argv: list[str] | None = None) -> int:
    arguments = _arguments(argv)
    try:
        return arguments.run(read_named_catalogue(arguments), arguments)
    except CatalogueError as error:
        print(error, file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main())
