"""The modules of functions: one class each, whose methods say what they take and give."""

from __future__ import annotations

import re

from docs import Doc
from model import Catalogue, ValueSet
from parameters import ParameterInfo
from plan import Plan, base_type, element_code, safe
from ranges import range_text
from texts_of import doc_lines
from vocabulary_files import DEVICES, HEAD

_NUMBERS = {"?": "bool", "d": "float"}
# What a result says of a failure in C is an exception here.
_OF_FAILURE = re.compile(
    r"[;,] (?:-1|also|all 0|both parts 0)(?: in the same type)? ?(?:when|for|if)[^;.]*fail[^;.]*|, a failure included"
)
_REASONS = (
    "Raises ServiceRefused, MalformedReply, LinkLost or NoService, and Timeout beyond a limit; see TelevisionError."
)


class ModuleFiles:
    def __init__(self, catalogue: Catalogue, docs: dict[str, Doc]):
        self.catalogue = catalogue
        self.headers = catalogue.headers
        self.docs = docs

    def _named(self, type_name: str, values: ValueSet | None) -> str | None:
        name = values.enumeration if values and values.enumeration else type_name
        found = self.headers.enumerations.get(name)
        return name if found and found.values else None

    def _is_record(self, name: str) -> bool:
        return name in self.headers.records or name in self.catalogue.platform_records

    def _number(self, type_name: str, values: ValueSet | None, comes_out: bool) -> str:
        named = self._named(type_name, values)
        if named:
            return f"enums.{named}" if comes_out else f"enums.{named} | int"
        return _NUMBERS.get(element_code(type_name, self.catalogue), "int")

    def type_of(self, parameter: ParameterInfo, comes_out: bool) -> str:
        base = base_type(parameter)
        if parameter.kind == "text":
            return "str"
        if parameter.kind == "list":
            return f"list[records.{DEVICES}]"
        if parameter.kind == "array" and parameter.direction != "unused" and not self._is_record(base):
            if parameter.element in ("void", "unsigned char"):
                return "bytes"
            sequence = "list" if comes_out else "Sequence"
            return f"{sequence}[{self._number(parameter.element, parameter.values, comes_out)}]"
        if self._is_record(base):
            return f"list[records.{base}]" if parameter.kind == "array" else f"records.{base}"
        return self._number(base, parameter.values, comes_out)

    def result_type(self, plan: Plan) -> str:
        parts = []
        if plan.gives_result:
            declared = plan.operation.signature.result
            if declared.startswith("std::"):
                parts.append("list[str]")
            elif self._is_record(declared):
                parts.append(f"records.{declared}")
            elif plan.operation.result == "bool" or plan.operation.result.endswith("!= 0"):
                parts.append("bool")
            else:
                parts.append(self._number(declared, plan.result_values, True))
        parts += [self.type_of(each, True) for each in plan.outputs]
        if len(parts) > 1:
            return f"tuple[{', '.join(parts)}]"
        return parts[0] if parts else "None"

    def _with_values(self, words: str, type_name: str, values: ValueSet | None) -> str:
        """The words, and behind them what they do not say of the values."""
        named = self._named(type_name, values)
        if named:
            said = words.replace(f"`{named}`", f"enums.{named}")
            return said if said != words else f"{words} One of enums.{named}.".strip()
        return f"{words} {range_text(values)}.".strip() if values and not values.enumeration else words

    def _paragraphs(self, plan: Plan) -> list[str]:
        operation, doc = plan.operation, self.docs.get(plan.operation.name, Doc())
        said = [doc.brief or f"{operation.name}."]
        said += [each for each in doc.details.split("\n") if each]
        for each in [*plan.inputs, *plan.outputs]:
            words = doc.parameters.get(each.name, "")
            element = each.element if each.kind == "array" else base_type(each)
            given = "" if each in plan.inputs else "Comes back. "
            text = given + self._with_values(words, element, each.values)
            said += [f"{safe(each.name)}: {text.strip()}"] if text.strip() else []
        if plan.gives_result:
            words = _OF_FAILURE.sub("", doc.returns)
            said += [f"Returns: {self._with_values(words, operation.signature.result, plan.result_values)}"]
        said += [operation.irregular] if operation.irregular else []
        sent = operation.method.command if operation.method and operation.method.command else ""
        calls = f"C: {operation.name}" if not operation.owner else f"C++: {operation.name}"
        said.append(f"{calls}{f', sends {sent}' if sent else ''}.{' Dangerous.' if operation.effect.dangerous else ''}")
        return said + ([_REASONS] if plan.needs_service else [])

    def _method(self, plan: Plan, row: int) -> list[str]:
        inputs = [each for each in plan.inputs if each.direction != "unused"]
        declared = ["self", *(f"{safe(each.name)}: {self._input_type(each)}" for each in inputs)]
        result = self.result_type(plan)
        given = ", ".join([str(row), *(safe(each.name) for each in inputs)])
        lines = [f"    def {plan.name}({', '.join(declared)}) -> {result}:"]
        lines += doc_lines(self._paragraphs(plan), "        ")
        if result == "None":
            lines.append(f"        self._call({given})")
        else:
            lines += [f"        result: {result} = self._call({given})", "        return result"]
        if plan.original != plan.name:
            lines += ["", f"    {plan.original} = {plan.name}"]
        return [*lines, ""]

    def _input_type(self, parameter: ParameterInfo) -> str:
        return self.type_of(parameter, False) + (" | None" if parameter.allows_null else "")

    def class_name(self, module: str) -> str:
        return {name.lower(): name for name in ("SourceManager", "SystemSetting")}.get(module, module.capitalize())

    def source(self, module: str, plans: list[Plan], first_row: int) -> str:
        body: list[str] = []
        for offset, plan in enumerate(plans):
            body += self._method(plan, first_row + offset)
        text = "\n".join(body)
        imports = ["from collections.abc import Sequence\n\n"] if "Sequence[" in text else []
        names = [name for name in ("enums", "records") if f"{name}." in text.replace("One of enums.", "")]
        imports += [f"from .. import {', '.join(names)}\n"] if names else []
        imports += ["from .._module import Module\n\n"]
        name = self.class_name(module)
        imports += [f'__all__ = ["{name}"]\n\n\n']
        doc = f'class {name}(Module):\n    """The functions of the module {module}."""\n\n'
        return HEAD.format(title=f"The functions of the module {module}.") + "".join(imports) + doc + text.rstrip("\n") + "\n"

    def television_modules(self, modules: list[str]) -> str:
        names = {module: self.class_name(module) for module in modules}
        lines = [HEAD.format(title="The modules of a television.")]
        lines[0] += "from collections.abc import Callable\nfrom importlib import import_module\n"
        lines[0] += "from typing import TYPE_CHECKING, Any\n\nif TYPE_CHECKING:\n"
        lines += [f"    from .modules.{module} import {name}" for module, name in names.items()]
        lines += ["", "_CLASSES = {"]
        lines += [f'    "{module}": "{name}",' for module, name in names.items()]
        lines += ["}", "", "", "class Modules:"]
        lines += ['    """What has the modules as attributes, each loaded on its first use."""', ""]
        lines += ["    _call: Callable[..., Any]"]
        lines += [f"    {module}: {name}" for module, name in names.items()]
        lines += ["", "    if not TYPE_CHECKING:", "", "        def __getattr__(self, name: str) -> Any:"]
        lines += ["            if name not in _CLASSES:"]
        lines += ["                raise AttributeError(f\"{type(self).__name__} has no attribute '{name}'\")"]
        lines += ['            kind = getattr(import_module(f".modules.{name}", __package__), _CLASSES[name])']
        lines += ["            setattr(self, name, kind(self._call))", "            return getattr(self, name)"]
        return "\n".join(lines) + "\n"
