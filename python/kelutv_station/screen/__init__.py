"""The screen of the operator."""
