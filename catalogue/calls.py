"""The rows of `## Composed methods` and `## C functions`: operations that leave the sending to another one."""

from __future__ import annotations

import re
from collections.abc import Callable
from dataclasses import dataclass, replace

import cells
from effects import read_effect
from headers import Parameter, Signature, parse_signature
from model import Catalogue, Function, Layer, Method, Module, Operation, Refusal, Reply, ReplyField
from model import WireItem, refusals
from tables import Row, RowError

COMPOSED_COLUMNS = "method calls null log result outputs state effect values pointers irregular".split()
FUNCTION_COLUMNS = "function calls null result outputs state effect values pointers irregular".split()
RESULTS = ["same", "bool", "zero", "list", "item[N]", "item[N] != 0", "irregular"]
COMPUTED = "computed"
COMPOSED_EVENTS = ("call", "null")


@dataclass(frozen=True)
class _Call:
    """What the column `calls` says: the operation called and one argument for each of its parameters but, it may be,
    the last, a buffer that the caller has itself (`scratch`).
    """

    callee: Operation | None = None
    arguments: tuple[str, ...] = ()
    item: str | None = None
    scratch: bool = False
    steps: tuple[Operation, ...] = ()

    @property
    def names(self) -> dict[str, str]:
        parameters = self.callee.signature.parameters if self.callee else ()
        return dict(zip((parameter.name for parameter in parameters), self.arguments))


class CallReader:
    """Reads rows in any order, each after the rows that it calls."""

    def __init__(self, catalogue: Catalogue, complain: Callable[[Row, RowError], None]):
        self.catalogue = catalogue
        self.headers = catalogue.headers
        self.complain = complain
        self.known: dict[str, Operation | None] = {
            method.name: method for module in catalogue.modules for method in module.methods
        }
        self.waiting: dict[str, tuple[Module, Row, Signature]] = {}

    def add(self, module: Module, row: Row) -> None:
        """Takes note of a row; a composed method is one that has a column `method`."""
        composed = "method" in row.cells
        signature = parse_signature(row["method" if composed else "function"])
        if not composed and not signature.name.startswith(module.prefixes or ("",)):
            raise RowError(f"{signature.name} does not begin with {' or '.join(module.prefixes)}")
        name = f"{module.owner}::{signature.name}" if composed else signature.name
        if name in self.known or name in self.waiting:
            raise RowError(f"{signature.name} stands twice")
        self.waiting[name] = (module, row, signature)

    def read(self) -> None:
        """Adds every row's operation to its module, in the order of the rows."""
        waiting = dict(self.waiting)
        for name in waiting:
            self._read_waiting(name)
        for name, (module, _, _) in waiting.items():
            operation = self.known[name]
            if operation:
                (module.composed if operation.owner else module.functions).append(operation)

    def _read_waiting(self, name: str) -> None:
        if name not in self.waiting:
            return
        module, row, signature = self.waiting.pop(name)
        self.known[name] = None
        try:
            self.known[name] = self._operation(module, row, signature)
        except RowError as error:
            self.complain(row, error)

    def _called_by(self, name: str) -> Operation:
        self._read_waiting(name)
        if name not in self.known:
            raise RowError(f"{name} is not in the catalogue")
        operation = self.known[name]
        if operation is None:
            raise RowError(f"{name} calls this operation itself or has an error of its own")
        return operation

    def _operation(self, module: Module, row: Row, signature: Signature) -> Function:
        composed = "method" in row.cells
        owner = module.owner if composed else None
        call = self._call(module, row["calls"])
        self._check_arguments(call, signature)
        names = call.names
        request = tuple(self._substituted(wire, names) for wire in call.callee.request) if call.callee else ()
        outputs = cells.parse_outputs(row["outputs"], signature, self.headers)
        null = cells.parse_null(row["null"], signature, self.headers)
        log = cells.parse_log(row["log"], module.log_tag, COMPOSED_EVENTS) if composed else ()
        stated, minus_one = cells.parse_minus_one(row["result"])
        result = _result(stated, call)
        call_log = tuple(line for line in log if line.event == "call")
        layers = (*_layers(call, names), Layer(result, signature.result, outputs, call_log))
        function = Function(
            place=row.place,
            module=module.name,
            owner=owner,
            signature=signature,
            callee=call.callee,
            arguments=call.arguments,
            item=call.item,
            item_value=self.headers.enumerator(call.item) if call.item else None,
            request=request,
            reply=_retargeted_reply(call.callee.reply, names) if call.callee and call.callee.reply else None,
            null=null,
            log=log,
            result=result,
            outputs=outputs,
            layers=layers,
            refusals=(*refusals(null, log, signature), *_inherited(call, names, null, layers[-1])),
            state=cells.parse_state(row["state"], request, self.headers),
            effect=read_effect(row["effect"], owner, None if call.item else call.callee, request),
            values=cells.parse_values(row["values"], signature, self.headers),
            pointers=cells.parse_pointers(row["pointers"], signature, self.headers),
            irregular=cells.parse_optional(row["irregular"]),
            minus_one=minus_one or _minus_one(result, call),
            steps=call.steps,
        )
        _check(function, call)
        return function

    def _call(self, module: Module, text: str) -> _Call:
        if text == "-":
            return _Call()
        steps = text.split(" then ")
        if len(steps) > 1:
            return _Call(steps=tuple(self._called_by(name) for name in steps))
        match = re.fullmatch(r"((?:\w+::)?\w+)\((.*)\)", text)
        if not match:
            raise RowError(
                f"'{text}' is not OPERATION(ARGUMENTS), set(ITEM, ...), get(ITEM, ...), settext(ITEM, ...), "
                "gettext(ITEM, ...) or OPERATION then OPERATION"
            )
        callee = self._of_pair(module, match[1]) if match[1] in module.pairs else self._called_by(match[1])
        arguments = tuple(cells.split_list(match[2] or "-"))
        scratch = _leaves_out_the_buffer(callee, arguments)
        _check_argument_count(callee, arguments, scratch)
        item = self._item(callee, arguments)
        if match[1] in module.pairs and item is None:
            raise RowError(f"{match[1]}() needs an item of KELU_TV_CMDID_E first")
        return _Call(callee, arguments, item, scratch)

    def _of_pair(self, module: Module, word: str) -> Method:
        method = module.method(module.pairs[word])
        if method is None:
            raise RowError(f"module {module.name} has no item call '{word}'")
        return method

    def _item(self, callee: Operation, arguments: tuple[str, ...]) -> str | None:
        sends_items = callee.method is not None and callee.method.items
        items = self.headers.enumerations["KELU_TV_CMDID_E"].values
        return arguments[0] if sends_items and arguments and arguments[0] in items else None

    def _check_arguments(self, call: _Call, signature: Signature) -> None:
        for parameter in call.callee.signature.parameters if call.callee else ():
            argument = call.names.get(parameter.name, COMPUTED)
            if argument != COMPUTED and self._is_pointer(argument, signature) != parameter.type.endswith("*"):
                raise RowError(f"{parameter.name} of {call.callee.name} is {parameter.type}, not {argument}")

    def _is_pointer(self, argument: str, signature: Signature) -> bool:
        if cells.number_of(argument, self.headers) is not None:
            return False
        return cells.text_of(argument) is not None or cells.path_type(argument, signature, self.headers).endswith("*")

    def _substituted(self, wire: WireItem, names: dict[str, str]) -> WireItem:
        if wire.literal is not None or wire.computed:
            return wire
        stars, root, rest = re.fullmatch(r"(\*?)(\w+)(.*)", wire.source).groups()
        argument = names[root]
        if argument == COMPUTED:
            return WireItem(wire.kind, argument, wire.type, computed=True)
        text = cells.text_of(argument)
        literal = cells.number_of(argument, self.headers) if text is None else text
        length = names.get(wire.length, wire.length) if wire.length else None
        return WireItem(wire.kind, f"{stars}{argument}{rest}", wire.type, literal, length)


def _leaves_out_the_buffer(callee: Operation, arguments: tuple[str, ...]) -> bool:
    if callee.method is None or not callee.method.items or not callee.reply.fields:
        return False
    field, parameters = callee.reply.fields[0], callee.signature.parameters
    return field.kind == "ints" and field.target == parameters[-1].name and len(arguments) == len(parameters) - 1


def _check_argument_count(callee: Operation, arguments: tuple[str, ...], scratch: bool) -> None:
    count = len(callee.signature.parameters)
    if len(arguments) != count and not scratch:
        raise RowError(f"{callee.name} takes {count} arguments, not {len(arguments)}")


def _result(text: str, call: _Call) -> str:
    if re.fullmatch(r"item\[\d+\]( != 0)?", text):
        if not call.scratch:
            raise RowError(f"result '{text}' without an item call")
        return text
    result, _ = cells.parse_result(text, RESULTS)
    if call.callee is None and result in ("same", "bool"):
        raise RowError(f"result '{result}' without a call")
    if result == "list" and (call.callee is None or not _gives_list(call.callee)):
        raise RowError("result 'list' without a call that gives a list")
    return result


def _minus_one(result: str, call: _Call) -> str:
    if result == "same":
        return call.callee.minus_one
    if re.fullmatch(r"item\[\d+\]", result):
        return "value"
    return "empty" if result == "list" else "failure"


def _gives_list(operation: Operation) -> bool:
    return operation.result == "list" if isinstance(operation, Method) else operation.result == "same" and _gives_list(
        operation.callee
    )


def _uses(parameter: Parameter, texts: list[str]) -> bool:
    return any(re.match(rf"\*?{parameter.name}(?!\w)", text) for text in texts)


def _check(function: Function, call: _Call) -> None:
    cells.check_irregular(function.result, function.irregular)
    if any(output.index is not None for output in function.outputs) and not call.scratch:
        raise RowError("an output names an item entry, but the function makes no item call")
    if any(output.part for output in function.outputs) and function.result not in ("list", "irregular"):
        raise RowError("an output is part of a list, but the result is not 'list'")
    if COMPUTED in function.arguments and function.irregular is None:
        raise RowError("a computed argument needs a sentence in column 'irregular'")
    if function.steps and function.result != "irregular":
        raise RowError("a function with several calls has the result 'irregular'")
    if function.irregular:
        return
    used = [*function.arguments, *(output.target for output in function.outputs)]
    for parameter in function.signature.parameters:
        if not _uses(parameter, used):
            raise RowError(f"parameter '{parameter.name}' is neither passed on nor written")


def _retargeted(target: str, names: dict[str, str]) -> str | None:
    """The caller's name of what the callee knows as `target`; nothing when the caller keeps it to itself."""
    root, dot, rest = target.partition(".")
    return f"{names[root]}{dot}{rest}" if root in names and names[root] != COMPUTED else None


def _retargeted_reply(reply: Reply, names: dict[str, str]) -> Reply:
    def retarget(field: ReplyField) -> ReplyField:
        count = field.count and "*".join(names.get(factor, factor) for factor in field.count.split("*"))
        return replace(field, count=count, target=field.target and _retargeted(field.target, names))

    return Reply(reply.shape, tuple(retarget(field) for field in reply.fields))


def _retargeted_layer(layer: Layer, names: dict[str, str]) -> Layer:
    outputs = ((output, _retargeted(output.target, names)) for output in layer.outputs)
    return replace(layer, outputs=tuple(replace(output, target=target) for output, target in outputs if target))


def _layers(call: _Call, names: dict[str, str]) -> tuple[Layer, ...]:
    return tuple(_retargeted_layer(layer, names) for layer in call.callee.layers) if call.callee else ()


def _inherited(call: _Call, names: dict[str, str], null: tuple[str, ...], own: Layer) -> list[Refusal]:
    """What comes of the callee's refusals: of pointers that are passed on untested."""
    if call.callee is None or own.result == "irregular":
        return []
    found = []
    for refusal in call.callee.refusals:
        argument = names.get(refusal.parameter, COMPUTED)
        if argument in (COMPUTED, *null) or cells.text_of(argument) is not None:
            continue
        layers = (*(_retargeted_layer(layer, names) for layer in refusal.layers), own)
        found.append(Refusal(argument, refusal.result, (*own.call_log, *refusal.log), layers))
    return found
