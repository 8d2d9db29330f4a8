from typing import Any

# Every function of ktl but batch, with quantities of pint.
def __getattr__(name: str) -> Any: ...
