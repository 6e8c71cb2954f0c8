"""What help shows of the functions: sentences of the headers and of the catalogue, in sources of their own."""

from __future__ import annotations

from cxx import Arrays, array, includes, row, source, text
from docs import Doc
from model import Module, Operation


def texts_declaration(module: Module, count: int) -> str:
    return f"extern const FunctionTexts kTextsOf_{module.name}[{count}];"


class TextSource:
    """The C++ source of what help shows of one module's functions."""

    def __init__(self, docs: dict[str, Doc], module: Module):
        self.docs = docs
        self.module = module
        self.arrays = Arrays()

    @staticmethod
    def _null_rule(operation: Operation) -> str:
        names = list(dict.fromkeys(refusal.parameter for refusal in operation.refusals))
        return f"A null {' or '.join(names)} is refused with nothing sent." if names else ""

    def _row(self, operation: Operation) -> str:
        doc = self.docs.get(operation.name, Doc())
        sentences = [text(doc.parameters.get(parameter.name)) for parameter in operation.signature.parameters]
        texts = [doc.brief, doc.details, doc.returns, self._null_rule(operation), operation.irregular]
        return row([*(text(each) for each in texts), self.arrays.name("const char*", sentences, "Sentence")])

    def source(self, operations: list[Operation]) -> str:
        rows = [self._row(operation) for operation in operations]
        return source(
            includes(["tools/kelutv/Function.h"]),
            "kelutv::tool",
            shown=[array(f"const FunctionTexts kTextsOf_{self.module.name}", rows)],
            hidden=self.arrays.definitions(),
            declared=[texts_declaration(self.module, len(operations))],
        )
