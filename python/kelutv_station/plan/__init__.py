"""Plans: what is done with each unit, read from a file and checked before a unit is touched."""
