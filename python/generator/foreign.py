"""What the foreign function interface is told: every C function, and the shim."""

from __future__ import annotations

from contextlib import redirect_stdout
from io import StringIO
from pathlib import Path
from tempfile import TemporaryDirectory

from cffi import FFI
from headers import Parameter
from model import Catalogue
from plan import Plan
from wrappers import shim_parameters

SHIM_HEADER = Path(__file__).resolve().parents[1] / "shim" / "Interface.h"
_BEGIN, _END = "/* begin of what Python reads */", "/* end of what Python reads */"


def _shim_declarations() -> str:
    return SHIM_HEADER.read_text(encoding="utf-8").split(_BEGIN)[1].split(_END)[0].replace("KELUTV_API ", "")


def _direct(parameter: Parameter) -> str:
    if parameter.type.endswith("*"):
        return "void *"
    return {"unsigned int": "unsigned int", "bool": "_Bool", "double": "double"}.get(parameter.type, "int")


def _declaration(plan: Plan, catalogue: Catalogue) -> str:
    if plan.is_direct:
        signature = plan.operation.signature
        result = "_Bool" if signature.result == "bool" else "int"
        return f"{result} {plan.symbol}({', '.join(map(_direct, signature.parameters)) or 'void'});"
    parameters = ", ".join(each.replace("bool ", "_Bool ") for each in shim_parameters(plan, catalogue))
    return f"int {plan.symbol}({parameters or 'void'});"


def declarations(catalogue: Catalogue, modules: dict[str, list[Plan]]) -> str:
    functions = [_declaration(plan, catalogue) for plans in modules.values() for plan in plans]
    return "\n".join([_shim_declarations(), *functions]) + "\n"


def foreign_source(declared: str) -> str:
    """The module `_foreign`, which needs neither a compiler nor a parser any more."""
    ffi = FFI()
    ffi.cdef(declared)
    ffi.set_source("kelutv._foreign", None)
    with TemporaryDirectory() as folder:
        made = Path(folder) / "_foreign.py"
        with redirect_stdout(StringIO()):
            ffi.emit_python_code(str(made))
        return made.read_text(encoding="utf-8")
