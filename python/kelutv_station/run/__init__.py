"""Runs: a plan carried out with units side by side, and the journal that survives a crash."""
