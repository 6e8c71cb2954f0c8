"""What the package makes of each operation: its names, what it takes from the caller and what it gives."""

from __future__ import annotations

import keyword
import re
from dataclasses import dataclass

from cells import ANSWER, pointee
from functions import offered, short_name
from model import Catalogue, Function, Operation, ValueSet
from parameters import ParameterInfo
from value_sets import all_values

PREFIX = "kelutv_python_"
# Names in which capital letters do not begin the words.
_WORDS = {
    "24G": "_24g",
    "AVsync": "AvSync",
    "CSTenhancer": "CstEnhancer",
    "UDisk": "Udisk",
    "IChip": "Ichip",
}
_TYPES = ("bool", "bytes", "float", "int", "list", "str", "tuple")
_STATUSES = ("status", "zero", "zero-or-fail", "fallback", "characters")
_OUTPUTS = ("out", "inout")


def snake(name: str) -> str:
    """`getVolume` as `get_volume`, `SetHDMIPort` as `set_hdmi_port`."""
    for words, apart in _WORDS.items():
        name = name.replace(words, apart)
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


def safe(name: str) -> str:
    """A name that is neither a keyword nor that of a type in annotations."""
    return f"{name}_" if keyword.iskeyword(name) or name in _TYPES else name


@dataclass(frozen=True)
class Plan:
    """One function of the package.

    `symbol` is what is called: the C function itself, or one of the shim where there is none or where values travel that
    are neither numbers nor memory. `reply_size` are the bytes of an answer that needs no closer look, 0 where every
    answer does.
    """

    operation: Operation
    parameters: tuple[ParameterInfo, ...]
    name: str
    original: str
    symbol: str
    gives_result: bool
    result_values: ValueSet | None
    reply_size: int
    needs_service: bool

    @property
    def is_direct(self) -> bool:
        return not self.symbol.startswith(PREFIX)

    @property
    def inputs(self) -> list[ParameterInfo]:
        """What the caller gives."""
        return [each for each in self.parameters if is_given(each)]

    @property
    def outputs(self) -> list[ParameterInfo]:
        """What comes back besides the result; a count of what a list has is not told again."""
        counts = {each.count for each in self.parameters}
        return [
            each
            for each in self.parameters
            if each.direction in _OUTPUTS and each.name not in counts
        ]


def is_given(parameter: ParameterInfo) -> bool:
    return parameter.direction in ("in", "inout") and parameter.kind != "callback"


def is_by_value(parameter: ParameterInfo) -> bool:
    return not parameter.type.endswith("*")


def _needs_shim(operation: Operation, parameters: tuple[ParameterInfo, ...], catalogue: Catalogue) -> bool:
    if operation.owner or _is_compound(operation.signature.result, catalogue):
        return True
    return any(
        each.kind in ("callback", "list") or (each.kind == "record" and is_by_value(each)) for each in parameters
    )


def _is_compound(type_name: str, catalogue: Catalogue) -> bool:
    return type_name.startswith("std::") or type_name in catalogue.headers.records


def _result_kind(operation: Operation) -> str:
    """The result's kind where only forwarding stands between it and the operation that sends."""
    if operation.result == "same" and isinstance(operation, Function) and operation.callee:
        return _result_kind(operation.callee)
    return operation.result


def _gives_result(operation: Operation, has_outputs: bool) -> bool:
    """Whether the result says more than that the call went well."""
    if operation.signature.result == "void":
        return False
    kind = _result_kind(operation)
    if operation.status_is_value or kind in ("value", "record"):
        return True
    if kind in _STATUSES or has_outputs:
        return False
    return operation.effect.kind == "read"


def _reply_size(operation: Operation) -> int:
    method = operation.method
    if method is None or method.reply is None or operation.called and len(operation.called) > 1:
        return 0
    return {"status": 4, "value": 8}.get(method.reply.shape, 0)


def _needs_service(operation: Operation) -> bool:
    if operation.called:
        return any(_needs_service(each) for each in operation.called)
    return bool(operation.method and operation.method.command) or operation.module == "notify"


def plans(catalogue: Catalogue) -> dict[str, list[Plan]]:
    """Every function of the package, by module and in the order of the catalogue."""
    found: dict[str, list[Plan]] = {module.name: [] for module in catalogue.modules}
    taken: set[tuple[str, str]] = set()
    for index, operation in enumerate(offered(catalogue)):
        module = catalogue.module(operation.module)
        name = safe(snake(short_name(operation, module).split(".", 1)[1]))
        if (module.name, name) in taken:
            name = snake(operation.name.removeprefix("linux_tv_"))
        taken.add((module.name, name))
        parameters = catalogue.parameters[operation.name]
        has_outputs = any(each.direction in _OUTPUTS for each in parameters)
        shimmed = _needs_shim(operation, parameters, catalogue)
        found[module.name].append(
            Plan(
                operation=operation,
                parameters=parameters,
                name=name,
                original=operation.signature.name,
                symbol=f"{PREFIX}call_{index}" if shimmed else operation.name,
                gives_result=_gives_result(operation, has_outputs),
                result_values=all_values(operation).get("return"),
                reply_size=_reply_size(operation),
                needs_service=_needs_service(operation),
            )
        )
    return {name: each for name, each in found.items() if each}


def element_code(type_name: str, catalogue: Catalogue) -> str:
    """What a number is in memory, by the letter that the module struct has for it."""
    if type_name in catalogue.headers.enumerations:
        return "i"
    return {"int": "i", "unsigned int": "I", "bool": "?", "double": "d", "void": "B", "unsigned char": "B"}[type_name]


def base_type(parameter: ParameterInfo) -> str:
    return pointee(parameter.type)


def room_is_answer(parameter: ParameterInfo) -> bool:
    return parameter.room == ANSWER or (parameter.kind == "text" and parameter.room is None)
