#!/usr/bin/env python3
"""The check that the reference pages show everything and that their links lead somewhere."""

from __future__ import annotations

import contextlib
import io
import unittest

from fixture import CatalogueTest

from catalogue import expected_exports
from pages import Pages, dead_links, header_values, main, missing

VALUES = (
    "CMD_LAMP_SETLEVEL CMD_LAMP_GETLEVEL CMD_LAMP_SETITEM CMD_LAMP_GETITEM CMD_LAMP_SETCOLOR CMD_LAMP_GETCOLOR "
    "CMD_LAMP_SETCURVE CMDID_LAMP_SET_TIMER CMDID_LAMP_GET_TIMER LAMP_LEFT LAMP_RIGHT LAMP_BUTT"
).split()

COMMENT = "<briefdescription><para>Told.</para></briefdescription><detaileddescription/>"
BARE = "<briefdescription>\n</briefdescription><detaileddescription>\n</detaileddescription>"


def member(name: str, comment: str = COMMENT, values: str = "", protection: str = "public") -> str:
    return f'<memberdef kind="x" prot="{protection}"><name>{name}</name>{values}{comment}</memberdef>'


def value(name: str, comment: str = COMMENT) -> str:
    return f"<enumvalue><name>{name}</name>{comment}</enumvalue>"


class ReferencePages(CatalogueTest):
    def setUp(self) -> None:
        super().setUp()
        self.include = self.folder / "include"
        self.symbols = expected_exports(self.read())
        (self.folder / "xml").mkdir()
        (self.folder / "html").mkdir()
        headers = [str(path.relative_to(self.include)) for path in self.include.rglob("*.h")]
        self.files = [f'<compounddef kind="file">{COMMENT}<location file="{name}"/></compounddef>' for name in headers]
        self.members = [member(symbol.split("(")[0]) for symbol in self.symbols]
        self.values = [value(name) for name in VALUES]

    def complaints(self) -> list[str]:
        members = "".join([*self.members, member("E", values="".join(self.values))])
        content = f"<doxygen>{''.join(self.files)}<compounddef>{members}</compounddef></doxygen>"
        (self.folder / "xml" / "all.xml").write_text(content, encoding="utf-8")
        return missing(Pages(self.folder / "xml"), self.symbols, self.include)

    def without_comment(self, rows: list[str], name: str) -> None:
        place = next(index for index, row in enumerate(rows) if name in row)
        rows[place] = rows[place].replace(COMMENT, BARE)

    def links(self, **pages: str) -> list[str]:
        for name, text in pages.items():
            (self.folder / "html" / f"{name}.html").write_text(text, encoding="utf-8")
        return dead_links(self.folder / "html")

    def test_nothing_is_missing_when_all_is_there(self) -> None:
        self.assertEqual(self.complaints(), [])

    def test_a_header_without_a_comment_is_named(self) -> None:
        self.without_comment(self.files, "kelutv/commands.h")
        self.assertEqual(self.complaints(), ["kelutv/commands.h: no comment with @file"])

    def test_a_function_without_a_comment_is_named(self) -> None:
        self.without_comment(self.members, "linux_tv_Lamp_setTimer")
        self.assertEqual(self.complaints(), ["linux_tv_Lamp_setTimer: 0 of 1 on the pages with a comment"])

    def test_a_method_that_is_not_shown_is_named(self) -> None:
        self.members = [row for row in self.members if "Lamp::getColor" not in row]
        self.assertEqual(self.complaints(), ["Lamp::getColor: 0 of 1 on the pages with a comment"])

    def test_every_overload_counts(self) -> None:
        place = next(index for index, row in enumerate(self.members) if "android::TVBaseClient::exeCmdSet" in row)
        count = sum("android::TVBaseClient::exeCmdSet<" in row for row in self.members)
        self.assertGreater(count, 1)
        del self.members[place]
        complaint = f"android::TVBaseClient::exeCmdSet: {count - 1} of {count} on the pages with a comment"
        self.assertEqual(self.complaints(), [complaint])

    def test_a_private_member_needs_no_comment(self) -> None:
        place = next(index for index, row in enumerate(self.members) if "Lamp::setCurve" in row)
        self.members[place] = member("Lamp::setCurve", BARE, protection="private")
        self.assertEqual(self.complaints(), [])

    def test_a_value_without_a_comment_is_named(self) -> None:
        self.without_comment(self.values, "LAMP_RIGHT")
        self.assertEqual(self.complaints(), ["value LAMP_RIGHT has no comment"])

    def test_values_are_found_in_every_form(self) -> None:
        header = self.include / "kelutv" / "commands.h"
        text = "enum { ONE, /**< , TWO */\n THREE = 1 << 3,\n FOUR = 4 };\nenum class E : int { FIVE };\n"
        header.write_text(f"{text}void f(enum G);\n", encoding="utf-8")
        self.assertEqual(header_values(self.include), ["ONE", "THREE", "FOUR", "FIVE"])

    def test_a_link_to_no_page_is_named(self) -> None:
        dead = self.links(index='<a class="el" href="wire.html">wire</a><a href="https://example.org/x">out</a>')
        self.assertEqual(dead, ["index.html: the link to wire.html leads nowhere"])

    def test_a_link_to_no_place_is_named(self) -> None:
        texts = {"index": '<a href="wire.html#a1">1</a><a href="wire.html#a2">2</a>', "wire": '<a id="a1"></a>'}
        self.assertEqual(self.links(**texts), ["index.html: the link to wire.html#a2 leads nowhere"])

    def test_the_command_says_what_is_missing(self) -> None:
        folders = ["--catalogue", str(self.folder / "catalogue"), "--include", str(self.include), str(self.folder)]
        for comment, status, text in ((COMMENT, 0, ""), (BARE, 1, "value LAMP_LEFT has no comment\n")):
            self.values[VALUES.index("LAMP_LEFT")] = value("LAMP_LEFT", comment)
            self.complaints()
            with contextlib.redirect_stderr(io.StringIO()) as errors, contextlib.redirect_stdout(io.StringIO()):
                self.assertEqual(main(folders), status)
            self.assertEqual(errors.getvalue(), text)


if __name__ == "__main__":
    unittest.main()
