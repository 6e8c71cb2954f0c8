"""A station that tests televisions side by side, by a plan: `kelutv-station PLAN`."""
