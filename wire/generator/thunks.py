"""The calls themselves, one for each function: it takes its arguments from a frame and leaves the result there."""

from __future__ import annotations

from cells import pointee
from cxx import array, includes, source
from headers import Parameter
from model import Catalogue, Operation


def _argument(index: int, parameter: Parameter) -> str:
    base = pointee(parameter.type)
    if base.startswith("std::"):
        return "frame.devices()"
    if parameter.type.endswith("*"):
        return f"frame.pointer<{base}>({index})"
    return f"frame.value<{parameter.type}>({index})"


def _target(operation: Operation, catalogue: Catalogue) -> str:
    if not operation.owner:
        return operation.name
    made = "()." if catalogue.module(operation.module).constructed else "::instance()->"
    return f"{operation.owner}{made}{operation.signature.name}"


def _thunk(name: str, operation: Operation, catalogue: Catalogue) -> str:
    arguments = ", ".join(_argument(i, parameter) for i, parameter in enumerate(operation.signature.parameters))
    call = f"{_target(operation, catalogue)}({arguments})"
    body = f"{call};" if operation.signature.result == "void" else f"frame.store({call});"
    return f"void {name}(CallFrame& {'frame' if 'frame' in body else '/*frame*/'}) {{ {body} }}"


def thunks_source(catalogue: Catalogue, operations: list[Operation]) -> str:
    """The calls of these functions, in their order."""
    names = [f"call{index}" for index in range(len(operations))]
    headers = sorted({header for module in catalogue.modules for header in (module.header, module.c_header) if header})
    return source(
        includes(["tools/kelutv/calls/CallFrame.h", "tools/kelutv/calls/Thunks.h"], headers),
        "kelutv::tool",
        shown=["wire::Rows<Thunk> allThunks() { return kThunks; }"],
        hidden=[
            *(_thunk(name, operation, catalogue) for name, operation in zip(names, operations)),
            array("constexpr Thunk kThunks", names),
        ],
    )
