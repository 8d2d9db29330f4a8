from typing import Any

# Every function of ktl but batch, mix, exergy and saturation_by, with quantities of pint.
def __getattr__(name: str) -> Any: ...
