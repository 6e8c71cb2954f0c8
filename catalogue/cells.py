"""The grammar of the tables' cells."""

from __future__ import annotations

import re

import ranges
from headers import Headers, Signature
from model import LogLine, Operand, Output, Pointer, Reply, ReplyField, State, ValueSet, WireItem
from tables import RowError

_NUMBER = re.compile(r"-?(?:0[xX][0-9a-fA-F]+|\d+)")
_PATH = re.compile(r"\w+(?:\[\d+\])?(?:\.\w+(?:\[\d+\])?)*")
_BLOCKS = {"ints": ("int",), "doubles": ("double",), "bytes": ("char", "void"), "str16": ("char",)}
_SCALAR_TYPES = {"int", "unsigned int", "bool"}
_POINTER = re.compile(
    r"(\w+)=(?:(in|out|inout|unused)(?:\[([\w*]+)\])?)?( ?null)?(?: counted by (\w+))?( led by its length)?"
)
_MINUS_ONE = ("failure", "value", "empty")
ANSWER = "answer"
LOG_EVENTS = ("call", "null", "success", "failure", "missing")


def split_list(text: str, separator: str = ",") -> list[str]:
    """Splits at separators outside brackets and quotes; `-` is the empty list."""
    if text == "-":
        return []
    parts, depth, start, quoted = [], 0, 0, False
    for position, character in enumerate(text):
        quoted ^= character == '"'
        depth += 0 if quoted else (character in "([") - (character in ")]")
        if character == separator and depth == 0 and not quoted:
            parts.append(text[start:position].strip())
            start = position + 1
    parts.append(text[start:].strip())
    if "" in parts:
        raise RowError(f"'{text}' has an empty entry")
    return parts


def number_of(text: str, headers: Headers) -> int | None:
    """The value of a number or an enumerator; nothing for any other text."""
    if _NUMBER.fullmatch(text):
        return int(text, 0)
    return headers.enumerator(text)


def text_of(argument: str) -> str | None:
    """The text of a quoted literal; nothing for any other argument."""
    return argument[1:-1] if len(argument) > 1 and argument[0] == argument[-1] == '"' else None


def pointee(type_name: str) -> str:
    """The type without its pointer and const."""
    return re.sub(r"\s+const$", "", type_name.rstrip("*")) if type_name.endswith("*") else type_name


def record_leaves(headers: Headers, record: str, prefix: str) -> list[tuple[str, str]]:
    """The scalar fields of a record in order, each as (path, type)."""
    leaves = []
    for field in headers.records[record].fields:
        indexes = [f"[{i}]" for i in range(field.count)] if field.count else [""]
        for index in indexes:
            path = f"{prefix}.{field.name}{index}"
            if field.type in headers.records:
                leaves += record_leaves(headers, field.type, path)
            else:
                leaves.append((path, field.type))
    return leaves


def path_type(path: str, signature: Signature, headers: Headers) -> str:
    """The type of a parameter or, after a dot, of one of its record's fields."""
    root = re.match(r"\w+", path)[0]
    declared = signature.parameter(root).type
    if path == root:
        return declared
    leaves = dict(record_leaves(headers, pointee(declared), root)) if pointee(declared) in headers.records else {}
    if path not in leaves:
        raise RowError(f"'{path}' is not a field of {root} ({declared})")
    return leaves[path]


def _scalar_kind(path: str, type_name: str, headers: Headers) -> str:
    if type_name in _SCALAR_TYPES or type_name in headers.enumerations:
        return "int32"
    if type_name == "double":
        return "double"
    if type_name in ("char const*", "char*"):
        return "cstring"
    raise RowError(f"'{path}' of type {type_name} has no wire form; name what is sent of it")


def _block_item(kind: str, inner: str, signature: Signature, headers: Headers) -> WireItem:
    parts = split_list(inner)
    if len(parts) != (1 if kind == "str16" else 2):
        raise RowError(f"{kind}({inner}) takes {'a pointer' if kind == 'str16' else 'a pointer and a length'}")
    declared = path_type(parts[0], signature, headers)
    if not declared.endswith("*") or not any(name in declared for name in _BLOCKS[kind]):
        raise RowError(f"{kind}({inner}): {parts[0]} is {declared}, not a pointer to {' or '.join(_BLOCKS[kind])}")
    if len(parts) == 2 and number_of(parts[1], headers) is None:
        path_type(parts[1].lstrip("*"), signature, headers)
    return WireItem(kind, parts[0], declared, length=parts[1] if len(parts) == 2 else None)


def _send(text: str, signature: Signature, headers: Headers) -> list[WireItem]:
    block = re.fullmatch(r"(\w+)\((.*)\)", text)
    if block:
        if block[1] not in _BLOCKS:
            raise RowError(f"unknown block '{block[1]}', expected one of: {', '.join(_BLOCKS)}")
        return [_block_item(block[1], block[2], signature, headers)]
    number = number_of(text, headers)
    if number is not None:
        return [WireItem("int32", text, "int", literal=number)]
    path = text.lstrip("*")
    if not _PATH.fullmatch(path):
        raise RowError(f"'{text}' is not a parameter, a field, a number or a block such as ints(p, n)")
    declared = path_type(path, signature, headers)
    if text.startswith("*"):
        return [WireItem(_scalar_kind(text, pointee(declared), headers), text, pointee(declared))]
    if pointee(declared) in headers.records:
        leaves = record_leaves(headers, pointee(declared), path)
        return [WireItem(_scalar_kind(leaf, kind, headers), leaf, kind) for leaf, kind in leaves]
    return [WireItem(_scalar_kind(path, declared, headers), path, declared)]


def parse_sends(text: str, signature: Signature, headers: Headers) -> tuple[WireItem, ...]:
    """The items after the command identifier, in wire order; a record parameter stands for all its fields."""
    return tuple(item for part in split_list(text) for item in _send(part, signature, headers))


def _check_count(count: str, signature: Signature, headers: Headers, earlier: list[ReplyField]) -> None:
    counted = {field.name for field in earlier if field.kind == "int"}
    for factor in count.split("*"):
        if not factor.isdigit() and factor not in counted:
            path_type(factor, signature, headers)


def _reply_field(text: str, signature: Signature, headers: Headers, earlier: list[ReplyField]) -> ReplyField:
    match = re.fullmatch(r"(\w+)(?:\[(\w+(?:\*\w+)*)\])?(\.\.\.)?(?:\s+(\w+))?(?:\s*->\s*([\w.\[\]]+))?", text)
    if not match:
        raise RowError(f"reply field '{text}' is not TYPE[COUNT]... NAME -> TARGET")
    kind, count, repeated, name, target = match.groups()
    if kind not in ("int", "bool", "double", "cstring", "ints", "doubles") and kind not in headers.records:
        raise RowError(f"unknown reply type '{kind}'")
    if (kind in ("ints", "doubles")) != (count is not None):
        raise RowError(f"reply field '{text}': ints and doubles, and only these, need a count")
    if count:
        _check_count(count, signature, headers, earlier)
    if target and not path_type(target.split(".")[0], signature, headers).endswith("*"):
        raise RowError(f"reply target '{target}' is not a pointer")
    return ReplyField(kind, name or target or kind, count, repeated is not None, target)


def parse_reply(text: str, signature: Signature, headers: Headers) -> Reply | None:
    """`status`, `value`, or the fields of a parcel; nothing for a method that sends nothing."""
    if text == "-":
        return None
    if text in ("status", "value"):
        return Reply(text)
    fields: list[ReplyField] = []
    for part in split_list(text):
        fields.append(_reply_field(part, signature, headers, fields))
    return Reply("parcel", tuple(fields))


def _operands(text: str, request: tuple[WireItem, ...], headers: Headers) -> list[Operand]:
    """The request items that `text` names; a number, or an enumerator that is not sent, stands for itself."""
    found = [Operand(i) for i, item in enumerate(request) if re.match(rf"\*?{re.escape(text)}(?![\w])", item.source)]
    literal = number_of(text, headers)
    if literal is not None:
        return [Operand(None, literal)] if _NUMBER.fullmatch(text) or not found else found[:1]
    if not found:
        raise RowError(f"state names '{text}', which is not sent")
    return found


def parse_state(text: str, request: tuple[WireItem, ...], headers: Headers) -> State | None:
    """`volume[channel] = vol` for a set, `volume[channel]` for a get."""
    if text == "-":
        return None
    match = re.fullmatch(r"(\w+)(?:\[([^\]]+)\])?(?:\s*=\s*(.+))?", text)
    if not match:
        raise RowError(f"state '{text}' is not NAME[KEYS] or NAME[KEYS] = VALUES")
    keys = [op for part in split_list(match[2] or "-") for op in _operands(part, request, headers)]
    values = match[3] and tuple(op for part in split_list(match[3]) for op in _operands(part, request, headers))
    return State(match[1], tuple(keys), values or None)


def _value_set(text: str, headers: Headers) -> ValueSet:
    if text not in headers.enumerations:
        raise RowError(f"'{text}' is neither an enumeration of the public headers nor a range LEAST..GREATEST")
    return ValueSet(enumeration=text)


def parse_values(text: str, signature: Signature, headers: Headers) -> dict[str, ValueSet]:
    """`channel=KELU_TV_AUDIO_CHANNEL_E, return=KELU_TV_SNDMODE_E, attr.band=1..10, ms=?..? unit ms`."""
    found = {}
    for part in split_list(text):
        match = re.fullmatch(r"([\w.\[\]]+)=(\S.*)", part)
        if not match:
            raise RowError(f"'{part}' is not PARAMETER=ENUMERATION or PARAMETER=RANGE")
        if match[1] != "return":
            path_type(match[1], signature, headers)
        found[match[1]] = ranges.parse_range(match[2]) or _value_set(match[2], headers)
    return found


def _check_room(room: str, signature: Signature) -> None:
    for factor in room.split("*"):
        if not factor.isdigit() and signature.parameter(factor).type not in ("int", "unsigned int"):
            raise RowError(f"room '{room}': {factor} is {signature.parameter(factor).type}, not a whole number")


def _pointer(text: str, signature: Signature, headers: Headers) -> tuple[str, Pointer]:
    match = _POINTER.fullmatch(text)
    if not match or text.endswith("="):
        raise RowError(f"'{text}' is not POINTER=in|out|inout|unused[ROOM] null counted by POINTER led by its length")
    name, direction, room, null, count, led = match.groups()
    declared = signature.parameter(name).type
    if not declared.endswith("*") and declared not in headers.callbacks:
        raise RowError(f"pointers names '{name}', which is {declared}")
    if room and room != ANSWER:
        _check_room(room, signature)
    if count and signature.parameter(count).type != "int*":
        raise RowError(f"{name} is counted by '{count}', which is {signature.parameter(count).type}, not int*")
    return name, Pointer(direction, room, bool(null), count, bool(led))


def parse_pointers(text: str, signature: Signature, headers: Headers) -> dict[str, Pointer]:
    """`list=out[254] counted by size, path=null, block=in[length] led by its length`."""
    parts = split_list(text)
    found = dict(_pointer(part, signature, headers) for part in parts)
    if len(found) != len(parts):
        raise RowError("pointers names a parameter twice")
    return found


def parse_null(text: str, signature: Signature, headers: Headers) -> tuple[str, ...]:
    """The pointer parameters whose null gives -1 with nothing sent."""
    names = tuple(split_list(text))
    for name in names:
        if not path_type(name, signature, headers).endswith("*"):
            raise RowError(f"null names '{name}', which is not a pointer")
    return names


def parse_log(text: str, tag: str | None, events: tuple[str, ...] = LOG_EVENTS) -> tuple[LogLine, ...]:
    """`null "TEXT"; failure "TEXT"; success debug "TEXT"; call "TEXT"`, error priority where none is named."""
    lines = []
    for part in split_list(text, ";"):
        match = re.fullmatch(rf'({"|".join(events)})(?:\s+(error|debug|info))?\s+"(.*)"', part)
        if not match:
            raise RowError(f"log '{part}' is not {'|'.join(events)} [error|debug|info] \"TEXT\"")
        lines.append(LogLine(match[1], match[2] or "error", match[3], tag))
    return tuple(lines)


def parse_minus_one(text: str) -> tuple[str, str | None]:
    """The result without what -1 means, and that: `irregular, -1 value`."""
    result, comma, meaning = text.partition(", -1 ")
    if not comma:
        return text, None
    if meaning not in _MINUS_ONE:
        raise RowError(f"-1 means '{meaning}', which is not one of: {', '.join(_MINUS_ONE)}")
    if result != "irregular":
        raise RowError(f"what -1 means follows from result '{result}'")
    return result, meaning


def parse_result(text: str, allowed: list[str]) -> tuple[str, str | None]:
    """The kind of a result and, for one that names a text to fall back on, that text."""
    match = re.fullmatch(r'(\w+) "(.+)"', text)
    kind = f'{match[1]} "TEXT"' if match else text
    if kind not in allowed:
        raise RowError(f"result '{text}' is not one of: {', '.join(allowed)}")
    return (match[1], match[2]) if match else (text, None)


def _list_output(text: str) -> Output | None:
    match = re.fullmatch(r"(?:(\w+)\[\]\s*=\s*result|\*(\w+)\s*=\s*count)", text)
    if not match:
        return None
    return Output(match[1] or match[2], None, part="entries" if match[1] else "count")


def _plain_output(text: str) -> Output:
    match = re.fullmatch(r"(?:\*(\w+)|(\w+)->(\w+))\s*=\s*(?:item\[(\d+)\](\s*!=\s*0)?|result)", text)
    if not match:
        raise RowError(
            f"output '{text}' is not *P or P->FIELD = item[N], item[N] != 0 or result, nor P[] = result or *P = count"
        )
    return Output(match[1] or f"{match[2]}.{match[3]}", int(match[4]) if match[4] else None, match[5] is not None)


def _output(text: str, signature: Signature, headers: Headers) -> Output:
    output = _list_output(text) or _plain_output(text)
    if not path_type(output.target.split(".")[0], signature, headers).endswith("*"):
        raise RowError(f"output '{output.target}' is not a pointer")
    path_type(output.target, signature, headers)
    return output


def parse_outputs(text: str, signature: Signature, headers: Headers) -> tuple[Output, ...]:
    """What an operation writes itself: `*pEnable = item[0] != 0, pAttr->gain = item[1], *pInfo = result`.

    Of a list: `pModes[] = result, *pSize = count`.
    """
    return tuple(_output(part, signature, headers) for part in split_list(text))


def parse_optional(text: str) -> str | None:
    """A cell without markup; `-` is nothing."""
    return None if text == "-" else text.strip("`")


def check_irregular(result: str, irregular: str | None) -> None:
    """An irregular result is explained in the row's last column."""
    if result == "irregular" and irregular is None:
        raise RowError("result 'irregular' needs a sentence in column 'irregular'")
