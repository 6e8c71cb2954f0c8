#!/usr/bin/env python3
"""Comments for the reference pages: what the catalogue knows of every command, item, C function and method.

    python3 catalogue/reference.py FILE

Writes the comments to FILE. Those of functions and methods say what goes over the wire; doxygen puts them behind the
comments of the headers. Every other value of the public headers has its comment beside it.
"""

from __future__ import annotations

import argparse
import re
import sys
from pathlib import Path

from catalogue import request_text
from folders import add_folder_options, read_named_catalogue
from model import Catalogue, Function, LogLine, Method, Operation, ReplyField
from tables import CatalogueError

COMMANDS = "ATV_CMD_ID_E"
ITEMS = "KELU_TV_CMDID_E"

_REPLIES = {"status": "the result alone", "value": "one int32"}
_EVENTS = {
    "call": "before the call",
    "null": "for a null argument",
    "success": "after success",
    "failure": "after a failure",
    "missing": "for an answer without its text",
}


def _field_text(field: ReplyField) -> str:
    kind = field.kind
    if field.count or field.repeated:
        kind += f", {field.count} of them" if field.count else ", to the end"
    return kind if field.name == field.kind else f"{field.name} ({kind})"


def _arguments_text(operation: Operation) -> str:
    return f"Arguments: `{request_text(operation.request)}`." if operation.request else "No arguments."


def _command_text(method: Method | None) -> str:
    if method is None:
        return "No operation of the library sends it."
    return f"Sent by {method.name}(). {_arguments_text(method)} {_answer_text(method)}"


def _answer_text(operation: Operation) -> str:
    method = operation.method
    if method.result == "irregular" and method.overload.name.startswith("invoke"):
        return "The method tells of the answer."
    fields = ", ".join(_field_text(field) for field in operation.reply.fields)
    answer = _REPLIES.get(operation.reply.shape) or f"`{fields}`"
    return f"Answer: {answer}."


def _item_text(name: str, calls: list[Function]) -> str:
    if name.endswith("_MODULE_START"):
        return "The base of a module, no item."
    if not calls:
        return "No operation of the library names it."
    users = " and ".join(f"{call.name}()" for call in calls)
    return f"Travels inside #{calls[0].method.command}, sent by {users}. {_arguments_text(calls[0])}"


def value_texts(catalogue: Catalogue) -> dict[str, str]:
    """What to say of every command and item, by name."""
    methods = {method.command: method for method in catalogue.methods}
    enumerations = catalogue.headers.enumerations
    texts = {name: _command_text(methods.get(name)) for name in enumerations[COMMANDS].values}
    for name in enumerations[ITEMS].values:
        texts[name] = _item_text(name, [call for call in catalogue.item_calls if call.item == name])
    return texts


def _call_text(operation: Operation) -> str:
    """What an operation sends, or whom it calls for that."""
    if len(operation.called) > 1:
        return f"Calls {', then '.join(f'{step.name}()' for step in operation.called)}."
    method = operation.method
    if method is None or method.command is None:
        return "Sends nothing."
    sends = f"#{method.command}. {_arguments_text(operation)} {_answer_text(operation)}"
    return f"Sends {sends}" if operation is method else f"Calls {operation.callee.name}(), which sends {sends}"


def _escaped(text: str) -> str:
    """A text as it is, without meaning for doxygen."""
    return re.sub(r"([\\@#%&$<>\"])", r"\\\1", text.replace("\n", "\\n"))


def _log_text(line: LogLine) -> str:
    tag = f"tag {_escaped(line.tag)}" if line.tag else "without a tag"
    return f'{_EVENTS[line.event]} \\"{_escaped(line.text)}\\", {line.priority}, {tag}'


def _wire_text(operation: Operation) -> str:
    sentences = [_call_text(operation)]
    if operation.log:
        sentences.append(f"Logs {'; '.join(_log_text(line) for line in operation.log)}.")
    if operation.irregular:
        sentences.append(operation.irregular)
    return " ".join(sentences)


def wire_texts(catalogue: Catalogue) -> dict[str, str]:
    """What every C function and method does on the wire, by its declaration."""
    texts = {}
    for operation in catalogue.operations:
        owner = f"{operation.owner}::" if operation.owner else ""
        parameters = ", ".join(f"{parameter.type} {parameter.name}" for parameter in operation.signature.parameters)
        texts[f"{operation.signature.result} {owner}{operation.signature.name}({parameters})"] = _wire_text(operation)
    return texts


def main(argv: list[str] | None = None) -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    add_folder_options(parser)
    parser.add_argument("file", type=Path, help="where to write")
    arguments = parser.parse_args(argv)
    try:
        catalogue = read_named_catalogue(arguments)
    except CatalogueError as error:
        print(error, file=sys.stderr)
        return 1
    comments = [f"/** @var {name}\n * {text}\n */\n" for name, text in value_texts(catalogue).items()]
    for declaration, text in wire_texts(catalogue).items():
        comments.append(f"/** @fn {declaration}\n * @par On the wire\n * {text}\n */\n")
    arguments.file.write_text("".join(comments), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
