"""The shim's functions: for methods, and where values travel that are neither numbers nor memory."""

from __future__ import annotations

from cells import pointee
from cxx import includes
from model import Catalogue
from parameters import ParameterInfo
from plan import Plan, is_by_value


def _declared(parameter: ParameterInfo) -> str | None:
    """As the shim's function takes it; nothing for what the shim has itself."""
    if parameter.kind in ("callback", "list"):
        return None
    if parameter.type.endswith("*") or parameter.kind == "record":
        return f"void* {parameter.name}"
    return f"{_number(parameter)} {parameter.name}"


def _number(parameter: ParameterInfo) -> str:
    return parameter.type if parameter.type in ("int", "unsigned int", "bool", "double") else "int"


def _argument(parameter: ParameterInfo) -> str:
    base = pointee(parameter.type)
    if parameter.kind == "callback":
        return "&takeVbiData" if base == "KELU_VBI_DATA_CALLBACK" else "&takeEvent"
    if parameter.kind == "list":
        return "&list"
    if parameter.kind == "record" and is_by_value(parameter):
        return f"*static_cast<const {base}*>({parameter.name})"
    if parameter.type.endswith("*"):
        constant = "const " if parameter.type.endswith("const*") else ""
        return f"static_cast<{constant}{base}*>({parameter.name})"
    if _number(parameter) == parameter.type:
        return parameter.name
    return f"static_cast<{parameter.type}>({parameter.name})"


def _target(plan: Plan, catalogue: Catalogue) -> str:
    operation = plan.operation
    if not operation.owner:
        return operation.name
    made = "()." if catalogue.module(operation.module).constructed else "::instance()->"
    return f"{operation.owner}{made}{operation.signature.name}"


def _body(plan: Plan, catalogue: Catalogue) -> list[str]:
    operation = plan.operation
    call = f"{_target(plan, catalogue)}({', '.join(map(_argument, plan.parameters))})"
    listed = next((each for each in plan.parameters if each.kind == "list"), None)
    declared = operation.signature.result
    if listed:
        return [f"{pointee(listed.type)} list;", f"const int result = {call};", "keepList(list);", "return result;"]
    if declared.startswith("std::"):
        return [f"keepList({call});", "return 0;"]
    if declared in catalogue.headers.records:
        return [f"*static_cast<{declared}*>(given) = {call};", "return 0;"]
    if declared == "void":
        return [f"{call};", "return 0;"]
    return [f"return static_cast<int>({call});"]


def shim_parameters(plan: Plan, catalogue: Catalogue) -> list[str]:
    given = ["void* given"] if plan.operation.signature.result in catalogue.headers.records else []
    return given + [text for text in map(_declared, plan.parameters) if text]


def _wrapper(plan: Plan, catalogue: Catalogue) -> str:
    head = f"KELUTV_API int {plan.symbol}({', '.join(shim_parameters(plan, catalogue))})"
    lines = "".join(f"    {line}\n" for line in _body(plan, catalogue))
    return f"{head} {{\n{lines}}}"


def _layouts(catalogue: Catalogue) -> str:
    rows = [
        f'    {{"{name}.{field.name}", offsetof({name}, {field.name})}},'
        for name, record in all_records(catalogue).items()
        for field in record
    ]
    rows += [f'    {{"{name}", sizeof({name})}},' for name in all_records(catalogue)]
    rows = sorted(rows)
    return "constexpr kelutv_python_place kPlaces[] = {\n" + "\n".join(rows) + "\n};"


def all_records(catalogue: Catalogue) -> dict[str, tuple]:
    """The fields of every record, those of the platform's by their path."""
    found = {name: record.fields for name, record in catalogue.headers.records.items()}
    found |= {name: each.record.fields for name, each in catalogue.platform_records.items()}
    return dict(sorted(found.items()))


def wrappers_source(catalogue: Catalogue, modules: dict[str, list[Plan]]) -> str:
    headers = sorted({header for module in catalogue.modules for header in (module.header, module.c_header) if header})
    platform = dict.fromkeys(record.header for record in catalogue.platform_records.values())
    shimmed = [plan for each in modules.values() for plan in each if not plan.is_direct]
    parts = [
        "// Generated from the catalogue and the public headers.",
        includes(["python/shim/Events.h", "python/shim/Interface.h", "python/shim/Lists.h"], [*headers, *platform, "cstddef"]),
        "\nusing kelutv::python::keepList;\nusing kelutv::python::takeEvent;\nusing kelutv::python::takeVbiData;\n",
        "namespace {\n",
        _layouts(catalogue),
        "\n} // namespace\n",
        'extern "C" {\n',
        "KELUTV_API const kelutv_python_place* kelutv_python_places(void) { return kPlaces; }",
        "KELUTV_API unsigned int kelutv_python_place_count(void) { return sizeof kPlaces / sizeof *kPlaces; }\n",
        "\n\n".join(_wrapper(plan, catalogue) for plan in shimmed),
        "\n}",
    ]
    return "\n".join(parts) + "\n"
