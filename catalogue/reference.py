#!/usr/bin/env python3
"""Comments for the reference pages: what the catalogue knows of every command and item.

    python3 catalogue/reference.py FILE

Writes the comments to FILE. Every other value of the public headers has its comment beside it.
"""

from __future__ import annotations

import argparse
import sys
from pathlib import Path

from catalogue import request_text
from folders import add_folder_options, read_named_catalogue
from model import Catalogue, Function, Method, ReplyField
from tables import CatalogueError

COMMANDS = "ATV_CMD_ID_E"
ITEMS = "KELU_TV_CMDID_E"

_REPLIES = {"status": "the result alone", "value": "one int32"}


def _field_text(field: ReplyField) -> str:
    kind = field.kind
    if field.count or field.repeated:
        kind += f", {field.count} of them" if field.count else ", to the end"
    return kind if field.name == field.kind else f"{field.name} ({kind})"


def _arguments_text(operation: Method | Function) -> str:
    return f"Arguments: `{request_text(operation.request)}`." if operation.request else "No arguments."


def _command_text(method: Method | None) -> str:
    if method is None:
        return "No operation of the library sends it."
    text = f"Sent by {method.name}(). {_arguments_text(method)}"
    if method.result == "irregular" and method.overload.name.startswith("invoke"):
        return f"{text} The method tells of the answer."
    fields = ", ".join(_field_text(field) for field in method.reply.fields)
    answer = _REPLIES.get(method.reply.shape) or f"`{fields}`"
    return f"{text} Answer: {answer}."


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


def main(argv: list[str] | None = None) -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    add_folder_options(parser)
    parser.add_argument("file", type=Path, help="where to write")
    arguments = parser.parse_args(argv)
    try:
        texts = value_texts(read_named_catalogue(arguments))
    except CatalogueError as error:
        print(error, file=sys.stderr)
        return 1
    comments = (f"/** @var {name}\n * {text}\n */\n" for name, text in texts.items())
    arguments.file.write_text("".join(comments), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
