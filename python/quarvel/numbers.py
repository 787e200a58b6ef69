"""Numbers as a user gives them."""

from __future__ import annotations

import operator
from typing import Any, SupportsIndex

import numpy as np
import numpy.typing as npt

from .errors import ValueRefused

_REAL = "biuf"


def real(given: Any, what: str) -> npt.NDArray[np.float64]:
    """The array as doubles. What numpy would make numbers of, and is none, such as "1" or None, is a TypeError;
    complex numbers and masked ones, which have no value, are refused."""
    if isinstance(given, np.ma.MaskedArray) and np.any(given.mask):
        raise ValueRefused(f"{what} has masked numbers")
    try:
        array = np.asarray(given)
    except ValueError as error:
        raise ValueRefused(f"{what} is no array: {error}") from None
    if array.dtype.kind == "c":
        raise ValueRefused(f"{what} has complex numbers")
    if array.dtype.kind == "O":
        for item in array.flat:
            if item is None or isinstance(item, (str, bytes)):
                raise TypeError(f"{what} has numbers, not {type(item).__name__}")
    elif array.dtype.kind not in _REAL:
        raise TypeError(f"{what} has numbers, not {array.dtype}")
    try:
        return array.astype(float)
    except (ValueError, OverflowError) as error:
        raise ValueRefused(f"{what} has what is no double: {error}") from None


def number(given: Any, what: str) -> float:
    """One number as a double, which may be infinite."""
    if isinstance(given, float):
        return float(given)
    kind = type(given).__name__
    try:
        array = real(given, what)
    except TypeError:
        raise TypeError(f"{what} is a number, not a {kind}") from None
    if array.ndim != 0:
        raise TypeError(f"{what} is a number, not a {kind}")
    return float(array)


def whole(given: SupportsIndex, what: str) -> int:
    """The number of something, 0 or more."""
    try:
        number = operator.index(given)
    except TypeError:
        raise TypeError(f"{what} is a whole number, not {type(given).__name__}") from None
    if number < 0:
        raise ValueRefused(f"{what} is 0 or more")
    return number
