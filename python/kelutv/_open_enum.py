"""Enumerations that take every number."""

from __future__ import annotations

from enum import IntEnum


class OpenEnum(IntEnum):
    """Values of the interface; a number without a name is kept as `UNKNOWN_<number>`."""

    @classmethod
    def _missing_(cls, value: object) -> OpenEnum | None:
        if not isinstance(value, int):
            return None
        member = int.__new__(cls, value)
        member._name_ = f"UNKNOWN_{value}"
        member._value_ = value
        return member

    def __reduce_ex__(self, protocol: object) -> tuple[type[OpenEnum], tuple[int]]:
        # By its number: by its name, as some versions do, one without a name is not found again.
        return type(self), (self._value_,)

    @property
    def is_known(self) -> bool:
        """Whether the interface has a name for the number."""
        return self._value_ in type(self)._value2member_map_
