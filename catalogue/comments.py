"""What comments of the public headers and rows of the catalogue must agree on."""

from __future__ import annotations

import re
from collections.abc import Iterable

from docs import Doc
from model import Catalogue, Function, Operation
from value_sets import all_values, passed_on

_COMMANDS = re.compile(r"\b(?:CMD|CMDID|CIDMD)_\w+")
_CALLEES = re.compile(r"(?:(?:[Ff]orwards? to|[Cc]alls) |, then )`(\w+::\w+|linux_tv_\w+)`")


def _without_null(text: str) -> list[str]:
    """What is said besides null, of which each layer says its own."""
    return [part for part in re.split(r"[.;]\s*", text) if part and not re.search(r"\bnull\b", part, re.I)]


def _only_forwards(operation: Operation) -> bool:
    """Whether this is a C function that means what it calls, not one item or area of it."""
    return isinstance(operation, Function) and operation.callee is not None and not (operation.item or operation.owner)


def _argument_complaints(function: Function, docs: dict[str, Doc]) -> Iterable[str]:
    types = {parameter.name: parameter.type for parameter in function.signature.parameters}
    their_types = {parameter.name: parameter.type for parameter in function.callee.signature.parameters}
    for theirs, ours in passed_on(function):
        if types[ours] != their_types[theirs]:
            continue
        texts = [docs[name].parameters.get(parameter, "") for name, parameter in
                 ((function.name, ours), (function.callee.name, theirs))]
        if _without_null(texts[0]) != _without_null(texts[1]):
            yield (f"{function.place}: comments differ on '{ours}' of {function.name}, '{texts[0]}', and "
                   f"'{theirs}' of {function.callee.name}, '{texts[1]}'")


def _result_complaints(function: Function, docs: dict[str, Doc]) -> Iterable[str]:
    """Of a result that is handed on: what stands before a semicolon is told of success, the same for both."""
    if function.result != "same" or function.signature.result != function.callee.signature.result:
        return
    texts = [docs[name].returns for name in (function.name, function.callee.name)]
    told = [re.split(r"[.;]", text)[0] for text in texts]
    if told[0] != told[1]:
        yield (f"{function.place}: comments differ on the result of {function.name}, '{texts[0]}', and "
               f"{function.callee.name}, '{texts[1]}'")


def _enumeration_said(text: str, catalogue: Catalogue) -> str | None:
    """The one enumeration with values whose members a text speaks of."""
    said = set(re.findall(r"\bof `(\w+)`", text)) & catalogue.headers.enumerations.keys()
    known = [name for name in said if catalogue.headers.enumerations[name].values]
    return known[0] if len(known) == 1 and "and so on" not in text else None


def _value_complaints(operation: Operation, doc: Doc, catalogue: Catalogue) -> Iterable[str]:
    values = all_values(operation)
    for name, text in [*doc.parameters.items(), ("return", doc.returns)]:
        said = _enumeration_said(text, catalogue)
        held = values[name].enumeration if name in values else None
        if said and said != held:
            yield (f"{operation.place}: the comment of {operation.name} says '{said}' of {name}, "
                   f"the row {held or 'nothing'}")


def _sent_by(operation: Operation) -> set[str]:
    """Every command and item that goes out when an operation is called."""
    if not isinstance(operation, Function):
        return {operation.command} if operation.command else set()
    item = {operation.item} if operation.item else set()
    return item.union(*(_sent_by(callee) for callee in operation.called))


def _name_complaints(operation: Operation, doc: Doc) -> Iterable[str]:
    words = " ".join([doc.brief, doc.details, *doc.parameters.values(), doc.returns])
    callees, sent = {callee.name for callee in operation.called}, _sent_by(operation)
    for name in _COMMANDS.findall(words):
        if name not in sent:
            yield f"{operation.place}: the comment of {operation.name} names {name}, which the row does not send"
    for name in _CALLEES.findall(words):
        if name not in callees:
            yield f"{operation.place}: the comment of {operation.name} names {name}, which the row does not call"


def _null_complaints(operation: Operation, doc: Doc, catalogue: Catalogue) -> Iterable[str]:
    """Of pointers whose comment and row differ on whether null may be passed; a refusal may stand with the result."""
    for parameter in catalogue.parameters[operation.name]:
        text = doc.parameters.get(parameter.name, "")
        told = re.search(r"\bnull\b", f"{text} {doc.returns}", re.I) and "ust not be null" not in text
        if text and parameter.type.endswith("*") and parameter.allows_null != bool(told):
            says = "may be" if parameter.allows_null else "must not be"
            yield (f"{operation.place}: '{parameter.name}' of {operation.name} {says} null by its row, "
                   f"its comment says {'otherwise' if told else 'nothing of it'}")


def _room_complaints(operation: Operation, doc: Doc) -> Iterable[str]:
    """Of rooms for all that comes, without the most that can come."""
    for name, text in doc.parameters.items():
        if re.search(r"\broom for all\b|decides the length", text, re.I) and not re.search(r"\d (bytes )?at most", text):
            yield f"{operation.place}: the comment of {operation.name} asks for room in '{name}', but not for how much"


def check_comments(catalogue: Catalogue, docs: dict[str, Doc]) -> list[str]:
    """Complaints about comments that differ on one argument or result, or that name what the row does not have.

    Of a row these are its value sets, what it calls, what commands and items it sends, and where null may be passed. A
    comment that asks for room must say how much.
    """
    documented = [operation for operation in catalogue.operations if operation.name in docs]
    complaints: list[str] = []
    for operation in documented:
        complaints += _value_complaints(operation, docs[operation.name], catalogue)
        complaints += _name_complaints(operation, docs[operation.name])
        complaints += _null_complaints(operation, docs[operation.name], catalogue)
        complaints += _room_complaints(operation, docs[operation.name])
        if _only_forwards(operation) and operation.callee.name in docs:
            complaints += _argument_complaints(operation, docs)
            complaints += _result_complaints(operation, docs)
    return complaints
