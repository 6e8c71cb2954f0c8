"""Reads the tables and the public headers into the typed model and holds them against each other."""

from __future__ import annotations

import re
from collections.abc import Callable
from pathlib import Path

import cells
import end_markers
import events
from calls import COMPOSED_COLUMNS, FUNCTION_COLUMNS, CallReader
from effects import check_effects
from headers import Field, Headers, Record, Signature, read_headers
from methods import METHOD_COLUMNS, read_method
from model import Catalogue, Module, Overload, PlatformRecord
from parameters import ParameterReader
from tables import CatalogueError, Place, Row, RowError, Section, read_sections

MODULE_COLUMNS = {
    "Module": ["key", "value"],
    "Methods": METHOD_COLUMNS,
    "Composed methods": COMPOSED_COLUMNS,
    "C functions": FUNCTION_COLUMNS,
}
LINK_COLUMNS = {
    "Overloads": ["overload", "reply", "log"],
    "Classes": ["class", "polymorphic"],
    "Exported symbols": ["symbol"],
    "Platform records": ["record", "header", "fields"],
}
REQUIRED_KEYS = ["class", "header", "C prefix", "C header", "item set", "item get", "log tag"]
OPTIONAL_KEYS = ["object", "text set", "text get"]
PAIR_KEYS = {"set": "item set", "get": "item get", "settext": "text set", "gettext": "text get"}
OBJECTS = ["instance()", "constructed"]
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
                self.complain(row, error)

    def complain(self, row: Row, error: RowError) -> None:
        self.errors.append(f"{row.place}: {error}")

    def sections(self, path: Path, columns: dict[str, list[str]]) -> dict[str, Section]:
        try:
            return read_sections(path, columns)
        except CatalogueError as error:
            self.errors += error.messages
            return {}

    def read(self) -> Catalogue:
        self._read_link()
        self._read_end_markers()
        self._read_events()
        modules = []
        for path in sorted(self.folder.glob("*.md")):
            if path.name not in (LINK_FILE, end_markers.FILE, events.FILE, "README.md"):
                sections = self.sections(path, MODULE_COLUMNS)
                module = self._read_module(path, sections) if sections else None
                if module:
                    modules.append((module, sections))
        for module, sections in modules:
            self.each(sections.get("Methods"), lambda row: read_method(self.catalogue, module, row))
        self._read_calls(modules)
        self._read_parameters()
        self._check_item_states()
        self.errors += check_effects(self.catalogue)
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

        records = self.catalogue.platform_records
        self.each(sections.get("Platform records"), lambda row: records.update({row["record"]: _platform_record(row)}))

    def _read_events(self) -> None:
        """A catalogue without the file has no events."""
        path = self.folder / events.FILE
        if path.exists():
            sections = self.sections(path, events.COLUMNS)
            self.catalogue.events = events.read_events(sections, self.headers, self.complain)

    def _read_parameters(self) -> None:
        reader = ParameterReader(self.catalogue)
        for operation in self.catalogue.operations:
            try:
                reader.read(operation)
            except RowError as error:
                self.errors.append(f"{operation.place}: {error}")

    def _read_end_markers(self) -> None:
        path = self.folder / end_markers.FILE
        sections = self.sections(path, end_markers.COLUMNS)
        unnamed = end_markers.read_end_markers(sections, self.headers, self.complain)
        self.errors += [f"{path}:1: {complaint}" for complaint in unnamed]

    @staticmethod
    def _overload(row: Row) -> Overload:
        if not re.fullmatch(r"exeCmd[SG]et\(int.*\)|invoke\(.*\)", row["overload"]):
            raise RowError(f"'{row['overload']}' is not a command call")
        _one_of("reply", row["reply"], ["status", "value", "parcel"])
        _one_of("log", row["log"], ["transaction", "failure", "-"])
        return Overload(row["overload"], row["reply"], row["log"])

    def _read_calls(self, modules: list[tuple[Module, dict[str, Section]]]) -> None:
        calls = CallReader(self.catalogue, self.complain)
        for module, sections in modules:
            for title in ("Composed methods", "C functions"):
                self.each(sections.get(title), lambda row: calls.add(module, row))
        calls.read()

    def _read_module(self, path: Path, sections: dict[str, Section]) -> Module | None:
        section = sections.get("Module")
        place = section.place if section else Place(path, 1)
        rows = section.rows if section else []
        values = {row["key"]: cells.parse_optional(row["value"]) for row in rows}
        if len(values) != len(rows) or not set(REQUIRED_KEYS) <= set(values) <= {*REQUIRED_KEYS, *OPTIONAL_KEYS}:
            self.errors.append(
                f"{place}: section 'Module' needs these keys once each: {', '.join(REQUIRED_KEYS)}; "
                f"it may have: {', '.join(OPTIONAL_KEYS)}"
            )
            return None
        made = values.get("object") or OBJECTS[0]
        if made not in OBJECTS:
            self.errors.append(f"{place}: object '{made}' is not one of: {', '.join(OBJECTS)}")
            return None
        module = Module(
            name=path.stem,
            place=place,
            owner=values["class"],
            header=values["header"],
            constructed=made == "constructed",
            prefixes=tuple(cells.split_list(values["C prefix"] or "-")),
            c_header=values["C header"],
            pairs={word: values.get(key) for word, key in PAIR_KEYS.items()},
            log_tag=values["log tag"],
        )
        self.catalogue.modules.append(module)
        return module

    def _check_item_states(self) -> None:
        calls = [call for module in self.catalogue.modules for call in [*module.composed, *module.functions]]
        stored = {(c.method.module, c.state.name) for c in self.catalogue.item_calls if c.state and c.state.is_set}
        for call in calls:
            if call.state and call.item is None:
                self.errors.append(f"{call.place}: only an item call has a state of its own")
        for method in self.catalogue.methods:
            if method.state and (method.module, method.state.name) in stored:
                self.errors.append(f"{method.place}: state '{method.state.name}' is also an item's")

    def _check_headers(self, module: Module) -> None:
        if module.owner:
            declared = self.headers.methods.get(module.owner)
            self._check_declared(module, module.owner, declared, [m.signature for m in module.class_methods])
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


def _platform_record(row: Row) -> PlatformRecord:
    """Fields such as `int port.kind, unsigned int port.number`."""
    fields = []
    for text in cells.split_list(row["fields"]):
        match = re.fullmatch(r"(int|unsigned int|bool|double) ([\w.]+)", text)
        if not match:
            raise RowError(f"field '{text}' is not TYPE PATH with the type int, unsigned int, bool or double")
        fields.append(Field(match[1], match[2]))
    return PlatformRecord(row["header"].strip("`"), Record(row["record"], tuple(fields), row.place))


def _one_of(column: str, text: str, allowed: list[str]) -> str:
    if text not in allowed:
        raise RowError(f"{column} '{text}' is not one of: {', '.join(allowed)}")
    return text


def read_catalogue(folder: Path, include: Path) -> Catalogue:
    """Reads the catalogue in `folder` against the public headers below `include`; raises CatalogueError."""
    try:
        headers = read_headers(include)
    except RowError as error:
        raise CatalogueError([f"{include}: {error}"]) from error
    return _Reader(folder, headers).read()
