"""Fixtures for tests of programs that use a television, simulated or real."""
