"""What two models differ in."""

from __future__ import annotations

import dataclasses
import math
from typing import Any, Iterator, Optional, Union

from . import _core
from .model import Model
from .numbers import number, whole
from .reading import Source, read


@dataclasses.dataclass(frozen=True)
class Difference:
    """One difference, or a note of the order where is_note. `row` and `column` are names, None where it is
    about none; `before` and `after` are 0 where it is about no number."""

    kind: str
    """"row-went", "column-came", "row-upper", "element-value" ...: docs/json.md lists them."""
    is_note: bool
    row: Optional[str]
    column: Optional[str]
    before: float
    after: float


class Differences:
    """What `diff` found. True where there is a difference; `count` counts all, notes left out."""

    def __init__(self, count: int, found: list[Difference]) -> None:
        self.count = count
        self.found = found

    def __bool__(self) -> bool:
        return self.count > 0

    def __len__(self) -> int:
        return len(self.found)

    def __iter__(self) -> Iterator[Difference]:
        return iter(self.found)

    def __repr__(self) -> str:
        return f"<{self.count} differences>"


def diff(a: Union[Model, Source], b: Union[Model, Source], *, absolute: float = 0.0, relative: float = 0.0,
         most: int = 1_000_000) -> Differences:
    """What two models, or two files, differ in by the names of their rows and columns. Numbers that are no further
    apart than `absolute`, or `relative` times the larger one, count as one. At most `most` are listed."""
    listed = min(whole(most, "most"), 2**31)
    one, other = _model(a), _model(b)
    count, told = _core.compare(one._core, other._core, number(absolute, "absolute"), number(relative, "relative"), listed)
    return Differences(count, [_difference(one, other, difference) for difference in told])


def _model(given: Union[Model, Source]) -> Model:
    return given if isinstance(given, Model) else read(given)


def _difference(a: Model, b: Model, told: dict[str, Any]) -> Difference:
    def name(kind: str) -> Optional[str]:
        for model, number in ((a, told[f"{kind}_in_a"]), (b, told[f"{kind}_in_b"])):
            if number >= 0:
                return model._core.row_name(number) if kind == "row" else model._core.column_name(number)
        return None

    before, after = told["before"], told["after"]
    if told["kind"].endswith(("-lower", "-upper")):
        before, after = _bound(before), _bound(after)
    return Difference(told["kind"], told["is_note"], name("row"), name("column"), before, after)


def _bound(stored: float) -> float:
    """A bound that is none is infinite."""
    return math.copysign(math.inf, stored) if abs(stored) >= 1e10 else stored
