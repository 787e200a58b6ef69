"""What the package raises. Each is an Error, and what Python's own programs would expect beside."""

from __future__ import annotations

import dataclasses
from typing import Sequence


class Error(Exception):
    """Anything that the package refuses or that failed in it."""


class NumberError(Error, IndexError):
    """There is no row, column or element of that number, or an array has another length."""


class NoSuchName(Error, KeyError):
    """There is no row or column of that name."""

    def __str__(self) -> str:
        return str(self.args[0]) if self.args else ""


class NameRefused(Error, ValueError):
    """No row or column may have that name: it is empty, has a blank, or is another's."""


class ValueRefused(Error, ValueError):
    """Not finite, or no bound, type or fact of a model."""


class ModelAltered(UserWarning):
    """Simplifying made another model: `Simplified.altered` has the rows."""


class FullError(Error, OverflowError):
    """One more than a model can count."""


class BusyError(Error, RuntimeError):
    """The model is in use by another call, of this thread or of another."""


class FileError(Error, OSError):
    """The system has refused something."""


@dataclasses.dataclass(frozen=True)
class Problem:
    """One thing that there is to say about a file."""

    severity: str
    """"error": the line is passed over; "adapted": it is read in spite of the plain dialect; "warning"."""
    code: str
    """"E110": docs/problems.md has an entry for each. It never changes."""
    name: str
    """"no-such-row". It never changes."""
    line: int
    """From 1; 0 for a problem of no line."""
    column: int
    """Where in the line, in characters from 1; 0: the whole line."""
    length: int
    text: str
    """The line, as far as it is shown."""
    item: str
    """The name of the row or column that it is about."""
    message: str
    expected: str

    def __str__(self) -> str:
        place = f"line {self.line}: " if self.line else ""
        return f"{place}{self.code} {self.message}"


class ReadError(Error):
    """A file that could not be read, or that has lines which say no model."""

    def __init__(self, text: str, problems: Sequence[Problem] = ()) -> None:
        super().__init__(text, tuple(problems))
        self.problems = tuple(problems)

    def __str__(self) -> str:
        return str(self.args[0])


class WriteError(Error):
    """A model that was not written. `receipt` tells what it would have lost."""

    def __init__(self, text: str, receipt: object = None) -> None:
        super().__init__(text, receipt)
        self.receipt = receipt

    def __str__(self) -> str:
        return str(self.args[0])


class UnreadFile(ReadError, FileError):
    """A file that is not there, or that the system or its packing does not give."""

    def __new__(cls, text: str, problems: Sequence[Problem] = ()) -> UnreadFile:
        # With the second word the first one would be taken for the system's number of the error.
        return OSError.__new__(cls, text)  # type: ignore[call-arg]


class UnwrittenFile(WriteError, FileError):
    """A file that the system does not take."""

    def __new__(cls, text: str, receipt: object = None) -> UnwrittenFile:
        return OSError.__new__(cls, text)  # type: ignore[call-arg]
