"""The calls themselves: a function for each that takes its arguments from a frame and leaves the result there."""

from __future__ import annotations

from cells import pointee
from headers import Parameter
from model import Module, Operation


class Thunks:
    """The calls of one module's functions."""

    def __init__(self, module: Module):
        self.module = module
        self._definitions: list[str] = []

    def definitions(self) -> list[str]:
        return self._definitions

    @staticmethod
    def _argument(index: int, parameter: Parameter) -> str:
        base = pointee(parameter.type)
        if base.startswith("std::"):
            return "frame.devices()"
        if parameter.type.endswith("*"):
            return f"frame.pointer<{base}>({index})"
        return f"frame.value<{parameter.type}>({index})"

    def _target(self, operation: Operation) -> str:
        if not operation.owner:
            return operation.name
        made = "()." if self.module.constructed else "::instance()->"
        return f"{operation.owner}{made}{operation.signature.name}"

    def name(self, operation: Operation) -> str:
        """The name of a function that makes the call."""
        arguments = ", ".join(self._argument(i, p) for i, p in enumerate(operation.signature.parameters))
        call = f"{self._target(operation)}({arguments})"
        body = f"{call};" if operation.signature.result == "void" else f"frame.store({call});"
        name = f"call{len(self._definitions)}"
        frame = "frame" if "frame" in body else "/*frame*/"
        self._definitions.append(f"void {name}(CallFrame& {frame}) {{ {body} }}")
        return name
