"""What help shows of the interface: sentences of the headers and of the catalogue, in sources of their own."""

from __future__ import annotations

import re

from cxx import Arrays, array, includes, row, source, text
from docs import Doc
from model import Operation
from vocabulary import Vocabulary


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


def _field_meaning(vocabulary: Vocabulary, meanings: dict[str, str], record: str, path: str) -> str | None:
    """Of a field by its path; that of a nested record is what the inner one says."""
    *outer, last = (re.sub(r"\[.*", "", name) for name in path.split("."))
    for name in outer:
        record = next(field.type for field in vocabulary.fields(record) if field.name == name)
    return meanings.get(f"{record}.{last}")


def meanings_source(vocabulary: Vocabulary, meanings: dict[str, str]) -> str:
    """The sentences for all enumerations, enumerators, records and fields that have some, by ascending name."""
    said = {name: words for name, words in meanings.items() if "." not in name}
    for record in vocabulary.headers.records:
        for field in vocabulary.leaves(record):
            said[f"{record}.{field.name}"] = _field_meaning(vocabulary, meanings, record, field.name) or ""
    rows = [row([text(name), text(said[name])]) for name in sorted(said) if said[name]]
    return source(
        includes(["wire/Interface.h"]),
        "kelutv::wire",
        shown=["Rows<Meaning> allMeanings() { return kMeanings; }"],
        hidden=[array("constexpr Meaning kMeanings", rows)],
    )
