"""All tests of the station, in one process, so that the interpreter starts once."""

from __future__ import annotations

import sys
import unittest
from pathlib import Path

sys.path[:0] = [str(Path(__file__).resolve().parent)]

TESTS = ("completion_test", "page_test", "plan_test", "report_test", "resuming_test", "screen_test", "station_test")

if __name__ == "__main__":
    suite = unittest.defaultTestLoader.loadTestsFromNames(TESTS)
    sys.exit(not unittest.TextTestRunner(verbosity=1).run(suite).wasSuccessful())
