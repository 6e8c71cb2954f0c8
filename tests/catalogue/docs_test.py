#!/usr/bin/env python3
"""The comments of the public headers: what belongs to which declaration, and what it says."""

from __future__ import annotations

import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "catalogue"))

from docs import Doc, parse_doc, read_docs  # noqa: E402
from meanings import read_meanings  # noqa: E402
from reader import read_catalogue  # noqa: E402

HEADER = """
/**
 * @file
 * A lamp.
 */
#include <kelutv/export.h>

/** Kinds. There are some. */
typedef enum KIND { LAMP_LEFT = 0, /**< on the left */ LAMP_BARE = 1, } KIND;

/** A beam. */
typedef struct BEAM {
    int width; /**< In degrees,
                * from edge to edge. */
    int bare;
    KIND kinds[4]; /**< Of the lamps. */
} BEAM;

/** @name Sets of lamps @{ */

/** Lights all. */
KELUTV_API int linux_tv_Lamp_all(void);
KELUTV_API int linux_tv_Lamp_none(void);
/** @} */
KELUTV_API int linux_tv_Lamp_bare(void);

/** One lamp. */
class KELUTV_API Lamp {
public:
    /** The one. */
    static Lamp* instance();

    /**
     * @name Levels: see above
     * Reads or sets.
     * @{
     */
    int getLevel(int channel);
    /** Sets it. */
    virtual int setLevel(int channel,
                         int level);
    /** @} */

private:
    int mLevel;
};

/** Outside. */
KELUTV_API int linux_tv_Lamp_after(void);
"""


class ParseDoc(unittest.TestCase):
    def test_takes_a_comment_apart(self) -> None:
        doc = parse_doc(
            """/**
             * Sets the level, 0.5 say. Sends
             * `CMD`: `level`.
             *
             * Another paragraph.
             * @param channel One of
             *        `CHANNEL_E`.
             * @param red, green Parts.
             * @return 0; -1 on failure.
             */"""
        )
        self.assertEqual(doc.brief, "Sets the level, 0.5 say.")
        self.assertEqual(doc.details, "Sends `CMD`: `level`.\nAnother paragraph.")
        self.assertEqual(doc.parameters, {"channel": "One of `CHANNEL_E`.", "red": "Parts.", "green": "Parts."})
        self.assertEqual(doc.returns, "0; -1 on failure.")

    def test_takes_a_short_comment(self) -> None:
        self.assertEqual(parse_doc("/** Says something */"), Doc("Says something"))


class ReadDocs(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        (Path(folder.name) / "kelutv").mkdir()
        (Path(folder.name) / "kelutv" / "lamp.h").write_text(HEADER, encoding="utf-8")
        self.docs = {name: doc.brief for name, doc in read_docs(Path(folder.name)).items()}
        self.meanings = read_meanings(Path(folder.name))

    def test_gives_each_declaration_its_own_or_its_groups(self) -> None:
        self.assertEqual(self.docs["linux_tv_Lamp_all"], "Lights all.")
        self.assertEqual(self.docs["linux_tv_Lamp_none"], "Sets of lamps.")
        self.assertEqual(self.docs["Lamp::getLevel"], "Reads or sets.")
        self.assertEqual(self.docs["Lamp::setLevel"], "Sets it.")
        self.assertEqual(self.docs["linux_tv_Lamp_after"], "Outside.")

    def test_gives_nothing_to_one_without(self) -> None:
        self.assertNotIn("linux_tv_Lamp_bare", self.docs)

    def test_gives_types_and_what_stands_in_them_their_meanings(self) -> None:
        self.assertEqual(self.meanings, {
            "KIND": "Kinds. There are some.",
            "LAMP_LEFT": "on the left",
            "BEAM": "A beam.",
            "BEAM.width": "In degrees, from edge to edge.",
            "BEAM.kinds": "Of the lamps.",
        })

    def test_every_type_and_value_has_a_meaning(self) -> None:
        headers = read_catalogue(ROOT / "catalogue", ROOT / "include").headers
        meanings = read_meanings(ROOT / "include")
        requests = ("ATV_CMD_ID_E", "KELU_TV_CMDID_E")
        enumerations = [each for name, each in headers.enumerations.items() if each.values and name not in requests]
        expected = {each.name for each in enumerations} | {name for each in enumerations for name in each.values}
        expected |= set(headers.records) | {f"{r.name}.{f.name}" for r in headers.records.values() for f in r.fields}
        self.assertEqual(expected - meanings.keys(), set())

    def test_covers_every_operation(self) -> None:
        docs = read_docs(ROOT / "include")
        operations = read_catalogue(ROOT / "catalogue", ROOT / "include").operations
        self.assertEqual([op.name for op in operations if op.name not in docs], [])


if __name__ == "__main__":
    unittest.main()
