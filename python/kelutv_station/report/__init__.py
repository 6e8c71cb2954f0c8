"""Reports: what a run found, as JSON lines, JUnit, text and a page."""
