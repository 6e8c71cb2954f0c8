"""The typed form of the catalogue: what every operation sends, what comes back, what a television keeps."""

from __future__ import annotations

from dataclasses import dataclass, field

from headers import Headers, Signature
from tables import Place


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
    record field it comes from (`prescale.integer`, `*size`); a fixed number has a `literal` instead of a source. What a
    function works out itself is `computed` and has no source either.
    """

    kind: str
    source: str
    type: str
    literal: int | None = None
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
    """An enumeration or an inclusive range."""

    enumeration: str | None = None
    low: int | None = None
    high: int | None = None


@dataclass(frozen=True)
class LogLine:
    """A text the class logs: `event` is call, null (a refused null argument), success or failure."""

    event: str
    priority: str
    text: str


@dataclass(frozen=True)
class Method:
    """A class method; one that sends nothing has neither command nor value nor overload nor reply."""

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
    state: State | None
    items: bool
    values: dict[str, ValueSet]
    irregular: str | None

    @property
    def name(self) -> str:
        return f"{self.owner}::{self.signature.name}"


@dataclass(frozen=True)
class Output:
    """An output of a C function: item buffer entry `index` (as a flag when `flag`), or the method's result.

    Of a result that is a list, the `entries` or their `count`.
    """

    target: str
    index: int | None
    flag: bool = False
    part: str | None = None


@dataclass(frozen=True)
class Function:
    """A C function; `request` and `reply` are those of the method it calls, in terms of its own parameters.

    One that calls several methods has them as its `steps`, in order, and none as its `method`.
    """

    place: Place
    module: str
    signature: Signature
    method: Method | None
    arguments: tuple[str, ...]
    item: str | None
    item_value: int | None
    request: tuple[WireItem, ...]
    reply: Reply | None
    null: tuple[str, ...]
    result: str
    outputs: tuple[Output, ...]
    state: State | None
    values: dict[str, ValueSet]
    irregular: str | None
    steps: tuple[Method, ...] = ()

    @property
    def name(self) -> str:
        return self.signature.name


@dataclass
class Module:
    name: str
    place: Place
    owner: str | None
    header: str | None
    prefix: str
    c_header: str
    item_set: str | None
    item_get: str | None
    log_tag: str | None
    methods: list[Method] = field(default_factory=list)
    functions: list[Function] = field(default_factory=list)

    def method(self, name: str) -> Method | None:
        return next((method for method in self.methods if method.signature.name == name), None)


@dataclass
class Catalogue:
    headers: Headers
    overloads: dict[str, Overload]
    link_classes: dict[str, bool]
    link_symbols: list[str]
    modules: list[Module] = field(default_factory=list)

    @property
    def methods(self) -> list[Method]:
        """Every method that sends a command."""
        return [method for module in self.modules for method in module.methods if method.command]

    @property
    def functions(self) -> list[Function]:
        return [function for module in self.modules for function in module.functions]

    @property
    def operations(self) -> list[Method | Function]:
        return [*(method for module in self.modules for method in module.methods), *self.functions]

    def operation(self, name: str) -> Method | Function | None:
        return next((operation for operation in self.operations if operation.name == name), None)
