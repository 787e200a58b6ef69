"""Reading files and texts."""

from __future__ import annotations

import dataclasses
import os
from typing import Any, Callable, Literal, Optional, Union

from . import _core
from .errors import Problem, ReadError, UnreadFile, ValueRefused
from .model import Model
from .numbers import whole
from .paths import named

Source = Union[str, "os.PathLike[str]", bytes, bytearray, memoryview]
Progress = Callable[[int, int], Optional[bool]]
_BYTES = (bytes, bytearray, memoryview)
_READ, _FAILED, _REFUSED, _STOPPED = range(4)
_DIALECTS = {"wide": 0, "component": 1}
_COLUMNS = {"by-line": 0, "fixed": 1, "free": 2}


def read(source: Source, default_lower: float = 0.0, *, dialect: str = "wide", columns: str = "by-line",
         objective: str = "", negative_upper_frees_lower: bool = False, lint: bool = False,
         problems: Literal["raise", "collect"] = "raise", kept_of_each: int = 20,
         progress: Optional[Progress] = None) -> Model:
    """Reads a model from a file, packed by gzip, bzip2, xz or zstd or not, or from its bytes.

    `default_lower` is the lower bound of columns that get none: 0 or -inf. With problems="raise" a file with
    errors is a ReadError that has `kept_of_each` of each code; with "collect" the model is what the other lines say, and
    `Model.problems` has them. `progress(done, all)` is called about ten times a second with bytes, of the file
    as it stands there, and at the end; all is 0 for a pipe. False stops the read, and so does Ctrl-C. While it
    reads, other threads run."""
    if problems not in ("raise", "collect"):
        raise ValueRefused(f'problems is "raise" or "collect", not {problems!r}')
    options = _options(default_lower, dialect, columns, objective, negative_upper_frees_lower, lint, kept_of_each)
    core, result = _result(source, options, progress)
    found = tuple(Problem(**problem) for problem in result["problems"])
    if result["outcome"] == _STOPPED:
        raise ReadError("The read was stopped", found)
    errors = [problem for problem in found if problem.severity == "error"]
    if result["outcome"] == _FAILED:
        raise UnreadFile(_summary(source, result["errors"], errors or list(found)), found)
    if result["outcome"] != _READ or (result["errors"] != 0 and problems == "raise"):
        raise ReadError(_summary(source, result["errors"], errors or list(found)), found)
    model = Model._of(core)
    model._problems = found
    if not isinstance(source, _BYTES):
        model._path = named(source)[0]
    return model


@dataclasses.dataclass(frozen=True)
class Check:
    """What there is to say about a file."""

    problems: tuple[Problem, ...]
    errors: int
    adapted: int
    warnings: int
    lines: int
    has_endata: bool

    @property
    def is_good(self) -> bool:
        """Read, and no line was passed over as an error."""
        return self.errors == 0

    def __str__(self) -> str:
        return "\n".join(str(problem) for problem in self.problems) or "no problems"


def check(source: Source, *, dialect: str = "wide", columns: str = "by-line", kept_of_each: int = 20,
          progress: Optional[Progress] = None) -> Check:
    """Reads a file and looks at what is legal and risky too; nothing of it is raised. A check that was stopped has
    not seen the whole file, and is a ReadError."""
    _, result = _result(source, _options(0.0, dialect, columns, "", False, True, kept_of_each), progress)
    found = tuple(Problem(**problem) for problem in result["problems"])
    if result["outcome"] == _STOPPED:
        raise ReadError("The check was stopped", found)
    return Check(found, result["errors"], result["adapted"],
                 result["warnings"], result["lines"], result["has_endata"])


def _result(source: Source, options: dict[str, Any], progress: Optional[Progress]) -> tuple[_core.Model, dict[str, Any]]:
    core = _core.Model()
    if isinstance(source, _BYTES):
        return core, core.read_bytes(bytes(source), options, progress)
    if hasattr(source, "read"):
        raise TypeError("an open file is not read: give its path, or its bytes with file.read()")
    return core, core.read_file(named(source)[1], options, progress)


def _options(default_lower: float, dialect: str, columns: str, objective: str, negative_upper_frees_lower: bool,
             lint: bool, kept_of_each: int) -> dict[str, Any]:
    if default_lower not in (0.0, float("-inf")):
        raise ValueRefused("default_lower is 0 or -inf")
    if dialect not in _DIALECTS:
        raise ValueRefused(f"There is no dialect {dialect!r}: " + ", ".join(_DIALECTS))
    if columns not in _COLUMNS:
        raise ValueRefused(f"There are no columns {columns!r}: " + ", ".join(_COLUMNS))
    if not isinstance(objective, str):
        raise TypeError(f"objective is the name of a row, not {type(objective).__name__}")
    return {"dialect": _DIALECTS[dialect], "columns": _COLUMNS[columns], "objective": objective, "lint": bool(lint),
            "infinite_default_bounds": default_lower != 0.0, "kept_of_each": min(whole(kept_of_each, "kept_of_each"), 2**31),
            "negative_upper_frees_lower": bool(negative_upper_frees_lower)}


def _summary(source: Source, count: int, problems: list[Problem]) -> str:
    where = "the bytes" if isinstance(source, _BYTES) else named(source)[0] or "an empty path"
    first = str(problems[0]) if problems else f"errors: {count}" if count else "it could not be read"
    more = f" (and {count - 1} more)" if count > 1 else ""
    return f"{where}: {first}{more}"
