"""The column `effect`: what an operation does to a television."""

from __future__ import annotations

import difflib

from cells import split_list
from model import Catalogue, Effect, Function, Method, Operand, Operation, State, WireItem
from tables import RowError

KINDS = ("read", "set", "action", "print-only")
CHANGES = ("set", "action")
KEPT = {"kept": True, "not kept": False}
EFFECTS = (*KINDS, "back", "kept", "dangerous")


def read_effect(
    text: str, owner: str | None, callee: Operation | None = None, request: tuple[WireItem, ...] = ()
) -> Effect:
    """The effect of a row of class `owner`; `-` takes that of the `callee`, to which the row forwards `request`."""
    forwarded = _forwarded(callee, request) if callee else None
    if text == "-":
        if forwarded is None:
            raise RowError("effect '-' belongs to an operation that only forwards to another one")
        return forwarded
    effect = _parse(text, owner)
    if effect == forwarded:
        raise RowError(f"effect '{text}' is that of {callee.name}, write -")
    return effect


def _parse(text: str, owner: str | None) -> Effect:
    kind, *words = split_list(text)
    if kind not in KINDS:
        raise RowError(f"effect '{kind}' is not one of: {', '.join(KINDS)}")
    back: str | None = None
    kept: bool | None = None
    for word in words:
        if word.startswith("back ") and kind == "set" and back is None:
            back = _qualified(word.removeprefix("back ").strip(), owner)
        elif word in KEPT and kind in CHANGES and kept is None:
            kept = KEPT[word]
        elif word != "dangerous" or kind not in CHANGES or words.count(word) > 1:
            raise RowError(f"effect '{text}': '{word}' does not fit; {_grammar(kind)}")
    return Effect(kind, back, kept, "dangerous" in words)


def _grammar(kind: str) -> str:
    if kind not in CHANGES:
        return f"nothing follows {kind}"
    words = [*(["'back GETTER'"] if kind == "set" else []), "'kept' or 'not kept'", "'dangerous'"]
    return f"{kind} may have, once each: {', '.join(words)}"


def _qualified(name: str, owner: str | None) -> str:
    return f"{owner}::{name}" if owner and "::" not in name else name


def _forwarded(callee: Operation, request: tuple[WireItem, ...]) -> Effect:
    """The callee's effect; what a caller of fixed or computed values reads it cannot put back itself."""
    effect, state = callee.effect, state_of(callee)
    values = state.values if state and state.values else ()
    fixed = any(value.index is None or _is_fixed(request[value.index]) for value in values)
    return Effect(effect.kind, None if fixed else effect.back, effect.kept, effect.dangerous)


def _is_fixed(item: WireItem) -> bool:
    return item.computed or item.literal is not None


def state_of(operation: Operation) -> State | None:
    """The state of an operation or of the one that it forwards to; its operands index the request of either."""
    if operation.state or isinstance(operation, Method) or operation.callee is None:
        return operation.state
    return state_of(operation.callee)


def _operand(operand: Operand, request: tuple[WireItem, ...]) -> str:
    if operand.index is None:
        return str(operand.literal)
    item = request[operand.index]
    return item.source if item.literal is None else str(item.literal)


def reads_back(getter: Operation, setter: Operation) -> bool:
    """Whether the getter reads the state that the setter stores, asked with nothing but the setter's own arguments."""
    read, stored = state_of(getter), state_of(setter)
    if read is None or stored is None or read.is_set or not stored.is_set:
        return False
    if (getter.method.module, read.name) != (setter.method.module, stored.name):
        return False
    keys = [_operand(key, getter.request) for key in read.keys]
    same_keys = keys == [_operand(key, setter.request) for key in stored.keys]
    return same_keys and _asks_for_no_more(getter, setter) and _stores_what_it_computes(setter, stored)


def _asks_for_no_more(getter: Operation, setter: Operation) -> bool:
    known = {item.source for item in setter.request}
    return all(_is_fixed(item) or item.source in known for item in getter.request)


def _stores_what_it_computes(setter: Operation, stored: State) -> bool:
    indexes = {operand.index for operand in (*stored.keys, *(stored.values or ()))}
    return all(index in indexes for index, item in enumerate(setter.request) if item.computed)


def _vouches(getter: Operation, setter: Operation) -> bool:
    """Without a state on either side, as with several calls, the row itself says that the getter reads back."""
    return state_of(getter) is None and state_of(setter) is None and _asks_for_no_more(getter, setter)


def _complaint(catalogue: Catalogue, setter: Operation) -> str | None:
    name = setter.effect.back
    getter = catalogue.operation(name)
    if getter is None:
        close = difflib.get_close_matches(name, [operation.name for operation in catalogue.operations], 1)
        return f"back names {name}, which is not in the catalogue{f'; the nearest is {close[0]}' if close else ''}"
    if getter.effect.kind != "read":
        return f"back names {name}, whose effect is {getter.effect.kind}, not read"
    if not reads_back(getter, setter) and not _vouches(getter, setter):
        return f"back names {name}, which does not read with the same keys the state that {setter.name} stores"
    return None


def _is_its_own(operation: Operation) -> bool:
    forwards = isinstance(operation, Function) and operation.callee and not operation.item
    return not forwards or operation.effect.back != operation.callee.effect.back


def check_effects(catalogue: Catalogue) -> list[str]:
    """Complaints about getters that do not read what their set stores."""
    setters = [operation for operation in catalogue.operations if operation.effect.back and _is_its_own(operation)]
    complaints = ((setter, _complaint(catalogue, setter)) for setter in setters)
    return [f"{setter.place}: {complaint}" for setter, complaint in complaints if complaint]


def effect_text(effect: Effect) -> str:
    """One effect for a reader."""
    words = [effect.kind]
    if effect.back:
        words.append(f"put back by what {effect.back} reads")
    if effect.kept is not None:
        words.append("kept beyond power off" if effect.kept else "not kept beyond power off")
    if effect.dangerous:
        words.append("dangerous")
    return ", ".join(words)


def has_effect(effect: Effect, word: str) -> bool:
    """Whether an effect is of the kind or has the property that `word`, one of EFFECTS, names."""
    properties = {"back": effect.back is not None, "kept": effect.kept is True, "dangerous": effect.dangerous}
    return properties[word] if word in properties else effect.kind == word
