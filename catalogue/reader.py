"""Reads the tables and the public headers into the typed model and holds them against each other."""

from __future__ import annotations

import re
from collections.abc import Callable
from pathlib import Path

import cells
from headers import Headers, Parameter, Signature, parse_signature, read_headers
from model import Catalogue, Function, Method, Module, Overload, Reply, ReplyField, WireItem
from tables import CatalogueError, Place, Row, RowError, Section, read_sections

METHOD_COLUMNS = "method command value call sends reply null log result state values irregular".split()
FUNCTION_COLUMNS = "function calls null result outputs state values irregular".split()
MODULE_COLUMNS = {"Module": ["key", "value"], "Methods": METHOD_COLUMNS, "C functions": FUNCTION_COLUMNS}
LINK_COLUMNS = {
    "Overloads": ["overload", "reply", "log"],
    "Classes": ["class", "polymorphic"],
    "Exported symbols": ["symbol"],
}
MODULE_KEYS = ["class", "header", "C prefix", "C header", "item set", "item get", "log tag"]
METHOD_RESULTS = ["status", "value", "bool", "zero-or-fail", "zero", "record", "list", "irregular"]
FUNCTION_RESULTS = ["same", "bool", "zero", "list", "item[N]", "item[N] != 0", "irregular"]
COMPUTED = "computed"
LINK_FILE = "link.md"


class _Reader:
    def __init__(self, folder: Path, headers: Headers):
        self.folder = folder
        self.headers = headers
        self.errors: list[str] = []
        self.catalogue = Catalogue(headers, {}, {}, [])

    def each(self, section: Section | None, read: Callable[[Row], None]) -> None:
        for row in section.rows if section else []:
            try:
                read(row)
            except RowError as error:
                self.errors.append(f"{row.place}: {error}")

    def sections(self, path: Path, columns: dict[str, list[str]]) -> dict[str, Section]:
        try:
            return read_sections(path, columns)
        except CatalogueError as error:
            self.errors += error.messages
            return {}

    def read(self) -> Catalogue:
        self._read_link()
        modules = []
        for path in sorted(self.folder.glob("*.md")):
            if path.name not in (LINK_FILE, "README.md"):
                sections = self.sections(path, MODULE_COLUMNS)
                module = self._read_module(path, sections) if sections else None
                if module:
                    modules.append((module, sections))
        for module, sections in modules:
            self.each(sections.get("Methods"), lambda row: self._read_method(module, row))
        for module, sections in modules:
            self.each(sections.get("C functions"), lambda row: self._read_function(module, row))
        self._check_item_states()
        for module in self.catalogue.modules:
            self._check_headers(module)
        if self.errors:
            raise CatalogueError(self.errors)
        return self.catalogue

    def _read_link(self) -> None:
        sections = self.sections(self.folder / LINK_FILE, LINK_COLUMNS)
        overloads, classes = self.catalogue.overloads, self.catalogue.link_classes
        self.each(sections.get("Overloads"), lambda row: overloads.update({row["overload"]: self._overload(row)}))
        self.each(sections.get("Classes"), lambda row: classes.update({row["class"]: row["polymorphic"] == "yes"}))
        self.each(sections.get("Exported symbols"), lambda row: self.catalogue.link_symbols.append(row["symbol"]))

    @staticmethod
    def _overload(row: Row) -> Overload:
        if not re.fullmatch(r"exeCmd[SG]et\(int.*\)|invoke\(.*\)", row["overload"]):
            raise RowError(f"'{row['overload']}' is not a command call")
        _one_of("reply", row["reply"], ["status", "value", "parcel"])
        _one_of("log", row["log"], ["transaction", "failure", "-"])
        return Overload(row["overload"], row["reply"], row["log"])

    def _read_module(self, path: Path, sections: dict[str, Section]) -> Module | None:
        section = sections.get("Module")
        values = {row["key"]: cells.parse_optional(row["value"]) for row in section.rows} if section else {}
        place = section.place if section else Place(path, 1)
        if list(values) != MODULE_KEYS:
            self.errors.append(f"{place}: section 'Module' needs exactly these keys: {', '.join(MODULE_KEYS)}")
            return None
        module = Module(path.stem, place, *values.values())
        self.catalogue.modules.append(module)
        return module

    def _read_method(self, module: Module, row: Row) -> None:
        signature = parse_signature(row["method"])
        if module.method(signature.name):
            raise RowError(f"{signature.name} stands twice")
        sends_nothing = row["command"] == "-"
        if sends_nothing:
            _check_sends_nothing(row)
        overload = self.catalogue.overloads.get(row["call"])
        if overload is None and not sends_nothing:
            raise RowError(f"'{row['call']}' is not a command call of {LINK_FILE}")
        request = cells.parse_sends(row["sends"], signature, self.headers)
        items = row["state"] == "items"
        if items != (signature.name in (module.item_set, module.item_get)):
            raise RowError("state 'items' belongs to the module's item set and item get, and to these only")
        method = Method(
            place=row.place,
            module=module.name,
            owner=module.owner,
            signature=signature,
            command=cells.parse_optional(row["command"]),
            value=None if sends_nothing else self._command_value(row),
            overload=overload,
            request=request,
            reply=cells.parse_reply(row["reply"], signature, self.headers),
            null=cells.parse_null(row["null"], signature, self.headers),
            log=cells.parse_log(row["log"]),
            result=_one_of("result", row["result"], METHOD_RESULTS),
            state=None if items else cells.parse_state(row["state"], request, self.headers),
            items=items,
            values=cells.parse_values(row["values"], signature, self.headers),
            irregular=cells.parse_optional(row["irregular"]),
        )
        if not sends_nothing:
            _check_overload(method)
            _check_method_result(method, self.headers)
        _check_irregular(method.result, method.irregular)
        module.methods.append(method)

    def _command_value(self, row: Row) -> int:
        commands = self.headers.enumerations["ATV_CMD_ID_E"].values
        if row["command"] not in commands:
            raise RowError(f"unknown command '{row['command']}'")
        if not re.fullmatch(r"0x[0-9A-F]+", row["value"]):
            raise RowError(f"value '{row['value']}' is not hexadecimal in the form 0x2008")
        if int(row["value"], 16) != commands[row["command"]]:
            raise RowError(f"{row['command']} is 0x{commands[row['command']]:04X}, not {row['value']}")
        return int(row["value"], 16)

    def _read_function(self, module: Module, row: Row) -> None:
        signature = parse_signature(row["function"])
        if not signature.name.startswith(module.prefix):
            raise RowError(f"{signature.name} does not begin with {module.prefix}")
        if self.catalogue.operation(signature.name):
            raise RowError(f"{signature.name} stands twice")
        steps = self._steps(row["calls"])
        method, arguments, item = (None, (), None) if steps else self._called(module, row["calls"])
        for argument in arguments:
            if argument != COMPUTED and cells.number_of(argument, self.headers) is None:
                cells.path_type(argument, signature, self.headers)
        names = dict(zip((p.name for p in method.signature.parameters), arguments)) if method else {}
        request = tuple(self._substituted(wire, names) for wire in method.request) if method else ()
        function = Function(
            place=row.place,
            module=module.name,
            signature=signature,
            method=method,
            arguments=arguments,
            item=item,
            item_value=self.headers.enumerator(item) if item else None,
            request=request,
            reply=_retargeted(method.reply, names) if method else None,
            null=cells.parse_null(row["null"], signature, self.headers),
            result=self._function_result(row["result"], method, item),
            outputs=cells.parse_outputs(row["outputs"], signature, self.headers),
            state=cells.parse_state(row["state"], request, self.headers),
            values=cells.parse_values(row["values"], signature, self.headers),
            irregular=cells.parse_optional(row["irregular"]),
            steps=steps,
        )
        _check_function(function)
        module.functions.append(function)

    def _steps(self, text: str) -> tuple[Method, ...]:
        """The methods of `CLASS::METHOD then CLASS::METHOD`; none for the one call of most functions."""
        names = text.split(" then ")
        return tuple(self._method(name) for name in names) if len(names) > 1 else ()

    def _method(self, name: str) -> Method:
        method = self.catalogue.operation(name)
        if not isinstance(method, Method):
            raise RowError(f"{name} is not in the catalogue")
        return method

    def _called(self, module: Module, text: str) -> tuple[Method | None, tuple[str, ...], str | None]:
        if text == "-":
            return None, (), None
        match = re.fullmatch(r"(?:(\w+)::)?(\w+)\((.*)\)", text)
        if not match:
            raise RowError(
                f"'{text}' is not CLASS::METHOD(ARGUMENTS), set(ITEM, ...), get(ITEM, ...) "
                "or CLASS::METHOD then CLASS::METHOD"
            )
        arguments = tuple(cells.split_list(match[3] or "-"))
        if match[1] is None:
            return self._called_item(module, match[2], arguments)
        method = self._method(f"{match[1]}::{match[2]}")
        _check_argument_count(method, arguments)
        return method, arguments, None

    def _called_item(
        self, module: Module, direction: str, arguments: tuple[str, ...]
    ) -> tuple[Method, tuple[str, ...], str]:
        pair = {"set": module.item_set, "get": module.item_get}
        method = module.method(pair.get(direction) or "")
        if method is None:
            raise RowError(f"module {module.name} has no item call '{direction}'")
        if not arguments or arguments[0] not in self.headers.enumerations["KELU_TV_CMDID_E"].values:
            raise RowError(f"{direction}() needs an item of KELU_TV_CMDID_E first")
        count = len(method.request)
        if len(arguments) != count:
            raise RowError(f"{direction}() takes an item and {count - 1} numbers, not {len(arguments) - 1}")
        return method, arguments, arguments[0]

    def _substituted(self, wire: WireItem, names: dict[str, str]) -> WireItem:
        if wire.literal is not None:
            return wire
        stars, root, rest = re.fullmatch(r"(\*?)(\w+)(.*)", wire.source).groups()
        argument = names[root]
        if argument == COMPUTED:
            return WireItem(wire.kind, argument, wire.type, computed=True)
        literal = cells.number_of(argument, self.headers)
        length = names.get(wire.length, wire.length) if wire.length else None
        return WireItem(wire.kind, f"{stars}{argument}{rest}", wire.type, literal, length)

    @staticmethod
    def _function_result(text: str, method: Method | None, item: str | None) -> str:
        if re.fullmatch(r"item\[\d+\]( != 0)?", text):
            if item is None:
                raise RowError(f"result '{text}' without an item call")
            return text
        _one_of("result", text, FUNCTION_RESULTS)
        if method is None and text in ("same", "bool"):
            raise RowError(f"result '{text}' without a call")
        if text == "list" and (method is None or method.result != "list"):
            raise RowError("result 'list' without a call that gives a list")
        return text

    def _check_item_states(self) -> None:
        stored = {(f.module, f.state.name) for f in self.catalogue.functions if f.state and f.state.is_set}
        for function in self.catalogue.functions:
            if function.state and function.item is None:
                self.errors.append(f"{function.place}: only an item call has a state of its own")
        for method in self.catalogue.methods:
            if method.state and (method.module, method.state.name) in stored:
                self.errors.append(f"{method.place}: state '{method.state.name}' is also an item's")

    def _check_headers(self, module: Module) -> None:
        if module.owner:
            declared = self.headers.methods.get(module.owner)
            self._check_declared(module, module.owner, declared, [m.signature for m in module.methods])
        if module.c_header is None:
            return
        declared = self.headers.functions.get(module.c_header)
        functions = list(declared.values()) if declared is not None else None
        self._check_declared(module, module.c_header, functions, [f.signature for f in module.functions])

    def _check_declared(
        self, module: Module, where: str, declared: list[Signature] | None, listed: list[Signature]
    ) -> None:
        if declared is None:
            self.errors.append(f"{module.place}: no public header declares {where}")
            return
        for missing in sorted({str(s) for s in listed} - {str(s) for s in declared}):
            self.errors.append(f"{module.place}: {where} does not declare: {missing}")
        for missing in sorted({str(s) for s in declared} - {str(s) for s in listed}):
            self.errors.append(f"{module.place}: {where} declares what has no row: {missing}")


def _one_of(column: str, text: str, allowed: list[str]) -> str:
    if text not in allowed:
        raise RowError(f"{column} '{text}' is not one of: {', '.join(allowed)}")
    return text


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


def _check_method_result(method: Method, headers: Headers) -> None:
    returned = method.signature.result
    fits = {
        "status": method.reply.shape == "status",
        "value": method.reply.shape != "status",
        "bool": returned == "bool",
        "zero-or-fail": method.reply.shape != "value",
        "zero": method.reply.shape == "parcel",
        "record": returned in headers.records,
        "list": "list<" in returned or "vector<" in returned,
        "irregular": True,
    }
    if not fits[method.result]:
        raise RowError(f"result '{method.result}' does not fit a {method.reply.shape} reply returned as {returned}")


def _check_irregular(result: str, irregular: str | None) -> None:
    if result == "irregular" and irregular is None:
        raise RowError("result 'irregular' needs a sentence in column 'irregular'")


def _check_argument_count(method: Method, arguments: tuple[str, ...]) -> None:
    count = len(method.signature.parameters)
    if len(arguments) != count:
        raise RowError(f"{method.name} takes {count} arguments, not {len(arguments)}")


def _uses(parameter: Parameter, texts: list[str]) -> bool:
    return any(re.match(rf"\*?{parameter.name}(?!\w)", text) for text in texts)


def _check_function(function: Function) -> None:
    _check_irregular(function.result, function.irregular)
    if any(output.index is not None for output in function.outputs) and function.item is None:
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


def _retargeted(reply: Reply | None, names: dict[str, str]) -> Reply | None:
    if reply is None:
        return None

    def retarget(field: ReplyField) -> ReplyField:
        if field.target is None:
            return field
        root, dot, rest = field.target.partition(".")
        target = f"{names[root]}{dot}{rest}" if root in names else None
        count = field.count and "*".join(names.get(factor, factor) for factor in field.count.split("*"))
        return ReplyField(field.kind, field.name, count, field.repeated, target)

    return Reply(reply.shape, tuple(retarget(field) for field in reply.fields))


def read_catalogue(folder: Path, include: Path) -> Catalogue:
    """Reads the catalogue in `folder` against the public headers below `include`; raises CatalogueError."""
    return _Reader(folder, read_headers(include)).read()
