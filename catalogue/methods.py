"""The rows of `## Methods`: class methods that send one command each, or nothing."""

from __future__ import annotations

import re

import cells
from effects import read_effect
from headers import Headers, parse_signature
from model import Catalogue, Method, Module, WireItem
from tables import Row, RowError

METHOD_COLUMNS = "method command value call sends reply null log result state effect values pointers irregular".split()
STATUS_AS_VALUE = "status as value"
METHOD_RESULTS = [
    *("status", STATUS_AS_VALUE, "value", "bool", "zero-or-fail", "zero", "record", "list"),
    *('fallback "TEXT"', 'characters "TEXT"', "irregular"),
]


def read_method(catalogue: Catalogue, module: Module, row: Row) -> None:
    """Adds the row's method to its module."""
    headers = catalogue.headers
    signature = parse_signature(row["method"])
    if module.method(signature.name):
        raise RowError(f"{signature.name} stands twice")
    sends_nothing = row["command"] == "-"
    if sends_nothing:
        _check_sends_nothing(row)
    overload = catalogue.overloads.get(row["call"])
    if overload is None and not sends_nothing:
        raise RowError(f"'{row['call']}' is not a command call of link.md")
    request = cells.parse_sends(row["sends"], signature, headers)
    stated, minus_one = cells.parse_minus_one(row["result"])
    result, fallback = cells.parse_result(stated, METHOD_RESULTS)
    status_is_value = result == STATUS_AS_VALUE
    items = row["state"] == "items"
    if items != (signature.name in module.pairs.values()):
        raise RowError("state 'items' belongs to the module's item and text pairs, and to these only")
    method = Method(
        place=row.place,
        module=module.name,
        owner=module.owner,
        signature=signature,
        command=cells.parse_optional(row["command"]),
        value=None if sends_nothing else _command_value(row, headers),
        overload=overload,
        request=request,
        reply=cells.parse_reply(row["reply"], signature, headers),
        null=cells.parse_null(row["null"], signature, headers),
        log=cells.parse_log(row["log"], module.log_tag),
        result="status" if status_is_value else result,
        fallback=fallback,
        state=None if items else cells.parse_state(row["state"], request, headers),
        effect=read_effect(row["effect"], module.owner),
        items=items,
        values=cells.parse_values(row["values"], signature, headers),
        pointers=cells.parse_pointers(row["pointers"], signature, headers),
        irregular=cells.parse_optional(row["irregular"]),
        minus_one=minus_one or ("value" if status_is_value or result == "value" else "failure"),
        status_is_value=status_is_value,
    )
    if not sends_nothing:
        _check_overload(method)
        _check_result(method, headers)
    cells.check_irregular(method.result, method.irregular)
    module.methods.append(method)


def _command_value(row: Row, headers: Headers) -> int:
    commands = headers.enumerations["ATV_CMD_ID_E"].values
    if row["command"] not in commands:
        raise RowError(f"unknown command '{row['command']}'")
    if not re.fullmatch(r"0x[0-9A-F]+", row["value"]):
        raise RowError(f"value '{row['value']}' is not hexadecimal in the form 0x2008")
    if int(row["value"], 16) != commands[row["command"]]:
        raise RowError(f"{row['command']} is 0x{commands[row['command']]:04X}, not {row['value']}")
    return int(row["value"], 16)


def _wire_type(item: WireItem) -> str:
    return {"int32": "int", "cstring": "char const*", "bytes": "unsigned char*"}.get(item.kind, item.kind)


def _check_sends_nothing(row: Row) -> None:
    filled = [column for column in ("value", "call", "sends", "reply", "state") if row[column] != "-"]
    if filled:
        raise RowError(f"a method without a command sends nothing, but has: {', '.join(filled)}")
    if row["result"] != "irregular":
        raise RowError("a method without a command has the result 'irregular'")


def _check_overload(method: Method) -> None:
    if method.reply.shape != method.overload.reply:
        raise RowError(f"{method.overload.name} gives a {method.overload.reply} reply, not {method.reply.shape}")
    expected = [{"char*": "char const*", "int*": "int"}.get(t, t) for t in method.overload.arguments]
    sent = [_wire_type(item) for item in method.request]
    if "android::Parcel const&" in expected:
        expected = expected[: expected.index("android::Parcel const&")]
        sent = sent[: len(expected)]
    if sent != expected:
        raise RowError(f"{method.overload.name} sends ({', '.join(expected)}), the row sends ({', '.join(sent)})")


def _gives_one_text(method: Method) -> bool:
    fields = method.reply.fields
    return len(fields) == 1 and fields[0].kind == "cstring" and fields[0].target is not None


def _check_result(method: Method, headers: Headers) -> None:
    returned = method.signature.result
    fits = {
        "status": method.reply.shape == "status",
        "value": method.reply.shape != "status",
        "bool": returned == "bool",
        "zero-or-fail": method.reply.shape != "value",
        "zero": method.reply.shape == "parcel",
        "record": returned in headers.records,
        "list": "list<" in returned or "vector<" in returned,
        "fallback": _gives_one_text(method),
        "characters": _gives_one_text(method),
        "irregular": True,
    }
    if not fits[method.result]:
        raise RowError(f"result '{method.result}' does not fit a {method.reply.shape} reply returned as {returned}")
