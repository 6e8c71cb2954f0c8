"""What help shows of the functions: sentences of the headers and of the catalogue, in sources of their own."""

from __future__ import annotations

from cxx import Arrays, array, includes, row, source, text
from docs import Doc
from model import Operation


def texts_declaration(count: int) -> str:
    return f"extern const FunctionTexts kTexts[{count}];"


def _null_rule(operation: Operation) -> str:
    names = list(dict.fromkeys(refusal.parameter for refusal in operation.refusals))
    return f"A null {' or '.join(names)} is refused with nothing sent." if names else ""


def _row(operation: Operation, doc: Doc, arrays: Arrays) -> str:
    sentences = [text(doc.parameters.get(parameter.name)) for parameter in operation.signature.parameters]
    texts = [doc.brief, doc.details, doc.returns, _null_rule(operation), operation.irregular]
    return row([*(text(each) for each in texts), arrays.name("const char*", sentences, "Sentence")])


def texts_source(operations: list[Operation], docs: dict[str, Doc]) -> str:
    """The sentences for these functions, in their order."""
    arrays = Arrays()
    rows = [_row(operation, docs.get(operation.name, Doc()), arrays) for operation in operations]
    return source(
        includes(["wire/Function.h"]),
        "kelutv::wire",
        shown=[array("const FunctionTexts kTexts", rows)],
        hidden=arrays.definitions(),
        declared=[texts_declaration(len(rows))],
    )
