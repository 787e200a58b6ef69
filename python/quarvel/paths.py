"""Names of files, as Python has them and as the module takes them."""

from __future__ import annotations

import os
from typing import Union

from .errors import ValueRefused

Path = Union[str, bytes, "os.PathLike[str]", "os.PathLike[bytes]"]


def named(path: Path) -> tuple[str, bytes]:
    """The path as a text, and as the system's bytes. TypeError for what is none, such as an open file."""
    try:
        text = os.fsdecode(path)
    except TypeError:
        raise TypeError(f"a path is a str, bytes or a pathlib path, not {type(path).__name__}") from None
    try:
        encoded = os.fsencode(text)
    except UnicodeEncodeError:
        raise ValueRefused("The path has letters that no file name has") from None
    if b"\0" in encoded:
        raise ValueRefused("The path has a zero byte")
    return text, encoded
