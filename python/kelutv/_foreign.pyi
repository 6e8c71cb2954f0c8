from typing import Any

ffi: Any
