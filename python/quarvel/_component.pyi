# The compiled module: see component.py, which is what to use.

from typing import Any

class Core:
    desktop: Any
    def __init__(self, desktop: Any) -> None: ...
    def call(self, member: int, *arguments: Any) -> Any: ...

def members() -> list[tuple[str, str, str, str, str, str | None]]: ...
