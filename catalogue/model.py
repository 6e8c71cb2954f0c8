"""The typed form of the catalogue: what every operation sends, what comes back, what a television keeps."""

from __future__ import annotations

from dataclasses import dataclass, field
from typing import TYPE_CHECKING

from headers import Enumeration, Headers, Record, Signature
from tables import Place

if TYPE_CHECKING:
    from parameters import ParameterInfo


@dataclass(frozen=True)
class Overload:
    """One command call: how its reply is read and when it logs "invoke failure"."""

    name: str
    reply: str
    log: str

    @property
    def arguments(self) -> list[str]:
        """The types after the command identifier, without the parcel that receives the reply."""
        types = [part.strip() for part in self.name[self.name.index("(") + 1 : -1].split(",")]
        if types[0] == "int":
            del types[0]
        return [part for part in types if part not in ("android::Parcel&", "android::Parcel*")]


@dataclass(frozen=True)
class WireItem:
    """One item of a request.

    `kind` is int32, double, cstring, str16, or ints, doubles, bytes with a `length`. `source` is the parameter or
    record field it comes from (`prescale.integer`, `*size`); a fixed number or text has a `literal` instead of a
    source. What a function works out itself is `computed` and has no source either.
    """

    kind: str
    source: str
    type: str
    literal: int | str | None = None
    length: str | None = None
    computed: bool = False


@dataclass(frozen=True)
class ReplyField:
    """One field of a parcel reply: int, bool, double, cstring, ints, doubles or a record.

    `count` is a number, the name of an earlier field or parameter, or a product of parameters (`width*height`); a
    `repeated` field fills the rest of the reply.
    `target` is the parameter that receives it; without one it belongs to the return value.
    """

    kind: str
    name: str
    count: str | None = None
    repeated: bool = False
    target: str | None = None


@dataclass(frozen=True)
class Reply:
    shape: str
    fields: tuple[ReplyField, ...] = ()


@dataclass(frozen=True)
class Operand:
    """A value in a state rule: the request item at `index`, or a `literal`."""

    index: int | None
    literal: int | None = None


@dataclass(frozen=True)
class State:
    """What a television keeps: a set stores `values` under `name` and `keys`, a get (no values) reads them back."""

    name: str
    keys: tuple[Operand, ...] = ()
    values: tuple[Operand, ...] | None = None

    @property
    def is_set(self) -> bool:
        return self.values is not None


@dataclass(frozen=True)
class ValueSet:
    """An enumeration, or what is known of the values of a number: an inclusive range, its unit, step and default."""

    enumeration: str | None = None
    low: int | None = None
    high: int | None = None
    unit: str | None = None
    step: int | float | None = None
    default: int | float | None = None

    @property
    def bounded(self) -> bool:
        """Whether both ends of the range are known."""
        return self.low is not None and self.high is not None

    def holds(self, value: int | float) -> bool:
        """Whether a number lies in the range as far as that is known."""
        return (self.low is None or self.low <= value) and (self.high is None or value <= self.high)


@dataclass(frozen=True)
class Pointer:
    """What a row itself says of one pointer, beyond what its other cells tell.

    `direction` is in, out, inout or unused. `room` is how many entries go in or must have room, nothing for one alone;
    `count` is the parameter that receives how many were written.
    """

    direction: str | None = None
    room: str | None = None
    null: bool = False
    count: str | None = None
    led_by_length: bool = False


@dataclass(frozen=True)
class Effect:
    """What an operation does to a television.

    `kind` is read, set, action or print-only. `back` names the operation that reads what a set is about to change,
    with the same keys, so that the set can put it back. `kept` tells whether the change outlasts power off; nothing
    when that is not known. What is `dangerous` may lose what nothing puts back or leave the set unusable.
    """

    kind: str
    back: str | None = None
    kept: bool | None = None
    dangerous: bool = False


@dataclass(frozen=True)
class LogLine:
    """A text that a class logs under its tag.

    `event` is call, null (a refused null argument), success, failure or missing (the answer lacks its text).
    """

    event: str
    priority: str
    text: str
    tag: str | None


@dataclass(frozen=True)
class Output:
    """An output of an operation that calls another: item buffer entry `index` (as a flag when `flag`), or the result.

    Of a result that is a list, the `entries` or their `count`.
    """

    target: str
    index: int | None
    flag: bool = False
    part: str | None = None


@dataclass(frozen=True)
class Layer:
    """What an operation makes of the result of the one it calls; `call_log` goes out before the call."""

    result: str
    returns: str
    outputs: tuple[Output, ...] = ()
    call_log: tuple[LogLine, ...] = ()


@dataclass(frozen=True)
class Refusal:
    """A null `parameter` with which nothing is sent; `result` passes through the `layers` above the test."""

    parameter: str
    result: int | list
    log: tuple[LogLine, ...]
    layers: tuple[Layer, ...] = ()


def refusals(null: tuple[str, ...], log: tuple[LogLine, ...], signature: Signature) -> tuple[Refusal, ...]:
    """The refusals of an operation that tests its parameters `null` itself."""
    result = [] if "<" in signature.result else 1 if signature.result == "bool" else -1
    lines = tuple(line for line in log if line.event == "null")
    return tuple(Refusal(name, result, lines) for name in null)


@dataclass(frozen=True)
class Method:
    """A class method; one that sends nothing has neither command nor value nor overload nor reply.

    `fallback` is the text that results `fallback` and `characters` leave behind after a failure. `minus_one` is what a
    result of -1 means: failure, value, or empty when the answer held nothing. With `status_is_value` the service's
    result word is the value that is read, and no failure.
    """

    place: Place
    module: str
    owner: str
    signature: Signature
    command: str | None
    value: int | None
    overload: Overload | None
    request: tuple[WireItem, ...]
    reply: Reply | None
    null: tuple[str, ...]
    log: tuple[LogLine, ...]
    result: str
    fallback: str | None
    state: State | None
    effect: Effect
    items: bool
    values: dict[str, ValueSet]
    pointers: dict[str, Pointer]
    irregular: str | None
    minus_one: str
    status_is_value: bool

    @property
    def name(self) -> str:
        return f"{self.owner}::{self.signature.name}"

    @property
    def method(self) -> Method:
        """The method that sends."""
        return self

    @property
    def called(self) -> tuple[Operation, ...]:
        return ()

    @property
    def layers(self) -> tuple[Layer, ...]:
        return ()

    @property
    def refusals(self) -> tuple[Refusal, ...]:
        return refusals(self.null, self.log, self.signature)


@dataclass(frozen=True)
class Function:
    """A C function or, with an `owner`, a composed method: it leaves the sending to the operation that it calls.

    `request`, `reply`, `layers` and `refusals` are those of the whole chain down to the `method` that sends, in terms
    of its own parameters. One that makes several calls has them as its `steps`, in order, and no `callee`. `minus_one`
    is as for a method.
    """

    place: Place
    module: str
    owner: str | None
    signature: Signature
    callee: Method | Function | None
    arguments: tuple[str, ...]
    item: str | None
    item_value: int | None
    request: tuple[WireItem, ...]
    reply: Reply | None
    null: tuple[str, ...]
    log: tuple[LogLine, ...]
    result: str
    outputs: tuple[Output, ...]
    layers: tuple[Layer, ...]
    refusals: tuple[Refusal, ...]
    state: State | None
    effect: Effect
    values: dict[str, ValueSet]
    pointers: dict[str, Pointer]
    irregular: str | None
    minus_one: str
    steps: tuple[Method | Function, ...] = ()

    @property
    def name(self) -> str:
        return f"{self.owner}::{self.signature.name}" if self.owner else self.signature.name

    @property
    def called(self) -> tuple[Operation, ...]:
        """The operations that it calls itself, in order."""
        return self.steps or ((self.callee,) if self.callee else ())

    @property
    def method(self) -> Method | None:
        return self.callee.method if self.callee else None

    @property
    def status_is_value(self) -> bool:
        return self.method is not None and self.method.status_is_value


Operation = Method | Function


@dataclass
class Module:
    """One table; `pairs` names the methods behind `set`, `get`, `settext` and `gettext`.

    The object of a class is its `instance()` unless it is `constructed` by applications.
    """

    name: str
    place: Place
    owner: str | None
    header: str | None
    constructed: bool
    prefixes: tuple[str, ...]
    c_header: str | None
    pairs: dict[str, str | None]
    log_tag: str | None
    methods: list[Method] = field(default_factory=list)
    composed: list[Function] = field(default_factory=list)
    functions: list[Function] = field(default_factory=list)

    @property
    def class_methods(self) -> list[Operation]:
        return [*self.methods, *self.composed]

    @property
    def operations(self) -> list[Operation]:
        return [*self.class_methods, *self.functions]

    def method(self, name: str | None) -> Method | None:
        return next((method for method in self.methods if method.signature.name == name), None)


@dataclass(frozen=True)
class PlatformRecord:
    """A record of a platform header; its fields are those that matter, nested ones with their path."""

    header: str
    record: Record


@dataclass(frozen=True)
class EventField:
    """One field of a payload, `size` bytes long; with a size of 0 it takes all that is left.

    `type` is one of `events.TYPE_SIZES` or an enumeration.
    """

    name: str
    type: str
    size: int

    @property
    def is_open(self) -> bool:
        return self.size == 0


@dataclass(frozen=True)
class Event:
    """What a television publishes under the identifiers from `first` to `last`."""

    place: Place
    first: int
    last: int
    name: str
    fields: tuple[EventField, ...]
    when: str


@dataclass
class Events:
    """The events in the order of their table, and the enumerations that only payloads have.

    `meanings` are those of the enumerators of these.
    """

    rows: list[Event] = field(default_factory=list)
    enumerations: dict[str, Enumeration] = field(default_factory=dict)
    meanings: dict[str, str] = field(default_factory=dict)


@dataclass
class Catalogue:
    """`parameters` says what every parameter is for, by the name of the operation."""

    headers: Headers
    overloads: dict[str, Overload]
    link_classes: dict[str, bool]
    link_symbols: list[str]
    platform_records: dict[str, PlatformRecord] = field(default_factory=dict)
    modules: list[Module] = field(default_factory=list)
    parameters: dict[str, tuple[ParameterInfo, ...]] = field(default_factory=dict)
    events: Events = field(default_factory=Events)

    @property
    def methods(self) -> list[Method]:
        """Every method that sends a command."""
        return [method for module in self.modules for method in module.methods if method.command]

    @property
    def functions(self) -> list[Function]:
        return [function for module in self.modules for function in module.functions]

    @property
    def item_calls(self) -> list[Function]:
        """Every C function and composed method that reads or writes one item."""
        return [call for module in self.modules for call in [*module.composed, *module.functions] if call.item]

    @property
    def operations(self) -> list[Operation]:
        class_methods = (method for module in self.modules for method in module.class_methods)
        return [*class_methods, *self.functions]

    def module(self, name: str) -> Module | None:
        return next((module for module in self.modules if module.name == name), None)

    def operation(self, name: str) -> Operation | None:
        return next((operation for operation in self.operations if operation.name == name), None)
