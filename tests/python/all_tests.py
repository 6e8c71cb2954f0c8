"""All tests of the package for Python, in one process, so that the interpreter starts once."""

from __future__ import annotations

import sys
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE)]

TESTS = ("bytes_test", "docs_test", "events_test", "failures_test", "life_test", "results_test", "simulator_test")

if __name__ == "__main__":
    suite = unittest.defaultTestLoader.loadTestsFromNames(TESTS)
    sys.exit(not unittest.TextTestRunner(verbosity=1).run(suite).wasSuccessful())
