"""A model: its arrays, its rows and columns by number or name, what is done to it."""

from __future__ import annotations

import copy
import dataclasses
import operator
import re
import time
import warnings
from types import TracebackType
from typing import (TYPE_CHECKING, Any, Callable, Generic, Iterator, Optional, SupportsIndex, TypeVar, Union,
                    overload)

import numpy as np
import numpy.typing as npt

from . import _core, picture, tables, writing
from .errors import BusyError, ModelAltered, NoSuchName, NumberError, Problem, ValueRefused
from .numbers import number as a_number
from .numbers import real
from .paths import Path, named

if TYPE_CHECKING:
    import pandas
    import scipy.sparse

Doubles = npt.NDArray[np.float64]
Key = Union[SupportsIndex, str]
_SENSES = ("", "min", "max")
_CONFLICTS = {"end": 0, "remove-row": 1, "reset-bounds": 2}


class _Record:
    """A row or column by its number: a look at the model, which shows what it holds now."""

    def __init__(self, core: _core.Model, number: int) -> None:
        self._core = core
        self.number = number


class Row(_Record):
    """A row by its number: a look at the model, which shows what it holds now."""

    @property
    def name(self) -> str:
        """Its name."""
        return self._core.row_name(self.number)

    @property
    def type(self) -> str:
        """"N" without limits, "G", "L", "E", or "R" for two limits that differ."""
        return self._core.row_type(self.number)

    @property
    def lower(self) -> float:
        """Its lower limit; -inf where it has none."""
        return self._core.bounds_of_row(self.number)[0]

    @property
    def upper(self) -> float:
        """Its upper limit; inf where it has none."""
        return self._core.bounds_of_row(self.number)[1]

    @property
    def equation(self) -> str:
        """As the component writes it: " + 3*X + 1*Y  <=  4"."""
        return self._core.equation(self.number)

    @property
    def elements(self) -> dict[str, float]:
        """The coefficients by the names of their columns; of a pair that is there twice, the first."""
        numbers, values = self._core.row_elements(self.number)
        return _first_of_each((self._core.column_name(j) for j in numbers.tolist()), values.tolist())

    def __repr__(self) -> str:
        return f"<Row {self.number} {self.name}: {self.equation.strip()[:200]}>"


class Column(_Record):
    """A column by its number: a look at the model, which shows what it holds now."""

    @property
    def name(self) -> str:
        """Its name."""
        return self._core.column_name(self.number)

    @property
    def is_integer(self) -> bool:
        """Whether only whole numbers are its values."""
        return self._core.column_is_integer(self.number)

    @property
    def lower(self) -> float:
        """Its lower bound; -inf where it has none."""
        return self._core.bounds_of_column(self.number)[0]

    @property
    def upper(self) -> float:
        """Its upper bound; inf where it has none."""
        return self._core.bounds_of_column(self.number)[1]

    @property
    def elements(self) -> dict[str, float]:
        """The coefficients by the names of their rows; of a pair that is there twice, the first."""
        numbers, values = self._core.column_elements(self.number)
        return _first_of_each((self._core.row_name(i) for i in numbers.tolist()), values.tolist())

    def __repr__(self) -> str:
        kind = "integer " if self.is_integer else ""
        return f"<Column {self.number} {self.name}: {kind}[{self.lower:g}, {self.upper:g}]>"


RecordType = TypeVar("RecordType", bound=_Record)


class Records(Generic[RecordType]):
    """All rows or all columns: by number from 0, from the end where it is negative, by name, or by a slice."""

    def __init__(self, core: _core.Model, kind: type[RecordType]) -> None:
        self._core = core
        self._kind = kind

    def __len__(self) -> int:
        return self._core.counts()[0 if self._kind is Row else 1]

    @overload
    def __getitem__(self, key: Key) -> RecordType: ...

    @overload
    def __getitem__(self, key: slice) -> list[RecordType]: ...

    def __getitem__(self, key: Union[Key, slice]) -> Union[RecordType, list[RecordType]]:
        if isinstance(key, slice):
            return [self._kind(self._core, number) for number in range(*key.indices(len(self)))]
        return self._kind(self._core, _number(self._core, key, self._kind is Row))

    def __contains__(self, name: object) -> bool:
        return isinstance(name, str) and _find(self._core, name, self._kind is Row) is not None

    def __iter__(self) -> Iterator[RecordType]:
        return (self._kind(self._core, number) for number in range(len(self)))

    def __repr__(self) -> str:
        return f"<{len(self)} {'rows' if self._kind is Row else 'columns'}>"


@dataclasses.dataclass(frozen=True)
class Simplified:
    """What simplifying has done.

    altered has a sentence for each row that became other bounds than it was: the sign of a coefficient is not looked
    at, and a ranged row that tightens one bound of its column moves the other."""

    log: list[str]
    altered: list[str]
    conflicts: int
    removed_rows: int
    removed_columns: int
    is_stopped: bool


class Model:
    """One linear or mixed-integer model. Arrays are copies: changing them changes no model."""

    def __init__(self, name: str = "") -> None:
        self._core = _core.Model()
        self._problems: tuple[Problem, ...] = ()
        self._path = ""
        if name != "":
            self.name = name

    @classmethod
    def _of(cls, core: _core.Model) -> Model:
        model = cls.__new__(cls)
        model._core, model._problems, model._path = core, (), ""
        return model

    # --- as a whole ---
    @property
    def name(self) -> str:
        """The name of the model."""
        return self._core.texts()[0]

    @name.setter
    def name(self, name: str) -> None:
        self._core.set_name(_text(name, "name"))

    @property
    def description(self) -> str:
        """The comment lines behind the name, joined by line ends."""
        return self._core.texts()[1].replace("\r\n", "\n")

    @description.setter
    def description(self, description: str) -> None:
        self._core.set_description("\r\n".join(re.split("\r\n|\r|\n", _text(description, "description"))))

    @property
    def path(self) -> str:
        """The file that it was read from or written to last; empty when there is none."""
        return self._path

    @property
    def problems(self) -> tuple[Problem, ...]:
        """What there was to say about the file, twenty of each code unless the read was asked for more."""
        return self._problems

    @property
    def shape(self) -> tuple[int, int]:
        """How many rows and columns there are, the objective's row included."""
        return self._core.counts()[:2]

    @property
    def nnz(self) -> int:
        """How many coefficients there are."""
        return self._core.counts()[2]

    @property
    def sense(self) -> str:
        """"min", "max", or empty where the file does not say."""
        return _SENSES[self._core.facts()["sense"]]

    @sense.setter
    def sense(self, sense: str) -> None:
        if sense not in _SENSES:
            raise ValueRefused('The sense is "min", "max" or empty')
        self._set_facts(sense=_SENSES.index(sense))

    @property
    def objective(self) -> Optional[str]:
        """The name of the objective's row: the one that the file names, or the first without limits."""
        named = self._core.facts()["objective"]
        if named:
            return str(named)
        free = np.flatnonzero(self._core.row_types() == ord("N"))
        return self._core.row_name(int(free[0])) if free.size else None

    @objective.setter
    def objective(self, name: Optional[str]) -> None:
        if name is not None and not isinstance(name, str):
            raise TypeError(f"the objective is the name of a row, not a {type(name).__name__}")
        self._set_facts(objective=name or "")

    @property
    def c0(self) -> float:
        """What is added to the objective."""
        return float(self._core.facts()["objective_constant"])

    @c0.setter
    def c0(self, value: float) -> None:
        self._set_facts(objective_constant=a_number(value, "c0"))

    def _set_facts(self, **changes: Any) -> None:
        self._core.set_facts({**self._core.facts(), **changes})

    # --- rows and columns ---
    @property
    def rows(self) -> Records[Row]:
        """All rows, by number or name."""
        return Records(self._core, Row)

    @property
    def columns(self) -> Records[Column]:
        """All columns, by number or name."""
        return Records(self._core, Column)

    @property
    def row_names(self) -> list[str]:
        """The names of all rows, in their order."""
        return self._core.row_names()

    @property
    def column_names(self) -> list[str]:
        """The names of all columns, in their order."""
        return self._core.column_names()

    # --- arrays ---
    @property
    def A(self) -> scipy.sparse.csc_matrix:
        """All rows, the objective's too, by columns: one copy. Pairs that are there twice stand there twice."""
        return self._sparse("csc_matrix", self._core.matrix_by_columns())

    @property
    def A_csr(self) -> scipy.sparse.csr_matrix:
        """The same by rows."""
        return self._sparse("csr_matrix", self._core.matrix_by_rows())

    def _sparse(self, kind: str, arrays: tuple[npt.NDArray[np.int32], npt.NDArray[np.int32], Doubles]) -> Any:
        import scipy.sparse
        starts, indices, values = arrays
        return getattr(scipy.sparse, kind)((values, indices, starts), shape=self.shape, copy=False)

    @property
    def c(self) -> Doubles:
        """The coefficients of the objective."""
        name = self.objective
        cost = np.zeros(self.shape[1])
        if name is not None:
            numbers, values = self._core.row_elements(_number(self._core, name, True))
            np.add.at(cost, numbers, values)
        return cost

    @property
    def lb(self) -> Doubles:
        """The lower bounds of the columns."""
        return self._core.column_bounds()[0]

    @property
    def ub(self) -> Doubles:
        """The upper bounds of the columns."""
        return self._core.column_bounds()[1]

    @property
    def row_lb(self) -> Doubles:
        """The lower limits of the rows."""
        return self._core.row_bounds()[0]

    @property
    def row_ub(self) -> Doubles:
        """The upper limits of the rows."""
        return self._core.row_bounds()[1]

    @property
    def integrality(self) -> npt.NDArray[np.uint8]:
        """1 for an integer column, 0 for another."""
        return self._core.integrality()

    def coefficient(self, row: Key, column: Key) -> float:
        """0 where there is none."""
        return self._core.coefficient(_number(self._core, row, True), _number(self._core, column, False))

    # --- looking ---
    def evaluate(self, x: npt.ArrayLike) -> Doubles:
        """The activity of every row at a point."""
        return self._core.activities(_point(x, self.shape[1]))

    def violations(self, x: npt.ArrayLike, tolerance: float = 1e-9) -> dict[str, float]:
        """The rows and columns whose limits the point does not keep, and by how much; an integer column also where
        its value is no whole number. Of a row and a column of one name, by the larger amount. What is not a number
        keeps nothing."""
        return tables.violations(self, _point(x, self.shape[1]), a_number(tolerance, "a tolerance"))

    def stats(self) -> dict[str, Any]:
        """Counts and the sizes of the numbers."""
        return tables.stats(self)

    def to_pandas(self) -> tuple[pandas.DataFrame, pandas.DataFrame, pandas.DataFrame]:
        """Rows, columns and elements, each a table."""
        return tables.to_pandas(self)

    def to_scipy(self) -> tables.ScipyModel:
        """What scipy.optimize.milp and linprog take: `milp(**m.to_scipy().milp)`."""
        return tables.to_scipy(self)

    # --- changing ---
    def edit(self) -> Edit:
        """`with m.edit() as e:` makes all the changes of the block, or none where it raises."""
        return Edit(self)

    def simplify(self, on_conflict: str = "end",
                 progress: Optional[Callable[[float, float], Optional[bool]]] = None) -> Simplified:
        """Rows of one element become bounds of their column; empty columns and rows go. on_conflict tells what
        becomes of a row that no value of its column keeps: "end", "remove-row" or "reset-bounds".

        The automation component's rules are kept, also where they make another model: then ModelAltered, a warning, is
        given, and the rows stand in `altered`."""
        if on_conflict not in _CONFLICTS:
            raise ValueRefused(f"on_conflict is one of {', '.join(_CONFLICTS)}, not {on_conflict!r}")
        told = self._core.simplify(_CONFLICTS[on_conflict], progress)
        told["log"] = told["log"].splitlines()
        if told["altered"]:
            more = len(told["altered"]) - 1
            warnings.warn("the simplified model is another one: " + told["altered"][0] + (f" (and {more} more)" if more else ""),
                          ModelAltered, stacklevel=2)
        return Simplified(**told)

    # --- writing ---
    def write(self, path: Path, layout: str = "free", *, allow_changes: bool = False,
              strict: bool = False, progress: Optional[writing.Progress] = None) -> writing.Receipt:
        """Writes the model, packed where the name ends in .gz, .bz2, .xz or .zst, and reads it back.

        layout: "free", words apart by blanks; "fixed", refused where a name or value does not fit its column;
        "component", as the automation component saves. WriteError where the file would lose limits, bounds or
        types, unless allow_changes; with strict where it would lose anything. `progress(part, 1.0)` is called about
        ten times a second, and at the end. False stops the write, and so does Ctrl-C: then the file is the old one."""
        receipt = writing.write(self._core, path, layout, allow_changes, strict, progress)
        self._path = named(path)[0]
        return receipt

    def to_bytes(self, layout: str = "free", *, allow_changes: bool = False, strict: bool = False) -> bytes:
        """What `write` would write."""
        return writing.to_bytes(self._core, layout, allow_changes, strict)

    # --- copies and pictures ---
    def copy(self) -> Model:
        """Another model with all that this one holds."""
        model = self._of(self._core.copy())
        model.__dict__.update({name: kept for name, kept in self.__dict__.items() if name != "_core"})
        return model

    def __copy__(self) -> Model:
        return self.copy()

    def __deepcopy__(self, memo: dict[int, Any]) -> Model:
        model = self._of(self._core.copy())
        memo[id(self)] = model
        model.__dict__.update({name: copy.deepcopy(kept, memo) for name, kept in self.__dict__.items()
                               if name != "_core"})
        return model

    def __getstate__(self) -> dict[str, Any]:
        return tables.state(self)

    def __setstate__(self, state: dict[str, Any]) -> None:
        self._core = _core.Model()
        tables.restore(self, state)

    def __repr__(self) -> str:
        try:
            rows, columns, elements = self._core.counts()
        except BusyError:
            return "<Model, busy>"
        return f"<Model {self.name or 'without a name'}: {rows} rows, {columns} columns, {elements} elements>"

    def _repr_html_(self) -> str:
        return picture.html(self)


class Edit:
    """Changes of a model, by number or name. They are made at once; an exception in the block takes all back."""

    def __init__(self, model: Model) -> None:
        self._model = model
        self._core = model._core
        self._before: Optional[_core.Model] = None

    def __enter__(self) -> Edit:
        if self._before is not None:
            raise ValueRefused("These edits have begun already: m.edit() gives others")
        self._before = self._core.copy()
        return self

    def __exit__(self, kind: Optional[type[BaseException]], error: Optional[BaseException],
                 trace: Optional[TracebackType]) -> None:
        if error is not None and self._before is not None:
            self._take_back(self._before)
        self._before = None

    def _take_back(self, before: _core.Model) -> None:
        """Another thread's call, which does not know of the edits, is waited for."""
        while True:
            try:
                return self._core.take(before)
            except BusyError:
                time.sleep(0.005)

    def _row(self, key: Key) -> int:
        self._check_open()
        return _number(self._core, key, True)

    def _column(self, key: Key) -> int:
        self._check_open()
        return _number(self._core, key, False)

    def _check_open(self) -> None:
        if self._before is None:
            raise ValueRefused("Edits are made within `with m.edit() as e:`")

    def add_row(self, name: str, lower: float = -np.inf, upper: float = np.inf,
                elements: Optional[dict[Key, float]] = None) -> int:
        """Gives the row's number. What is refused of its elements adds no row."""
        self._check_open()
        given = [(self._column(column), _value(value)) for column, value in dict(elements or {}).items()]
        row = self._core.add_row(_text(name, "name"), a_number(lower, "a limit"), a_number(upper, "a limit"))
        for number, value in given:
            self._core.set_coefficient(row, number, value)
        return row

    def add_column(self, name: str, lower: float = 0.0, upper: float = np.inf, integer: bool = False,
                   elements: Optional[dict[Key, float]] = None) -> int:
        """Gives the column's number. What is refused of its elements adds no column."""
        self._check_open()
        given = [(self._row(row), _value(value)) for row, value in dict(elements or {}).items()]
        column = self._core.add_column(_text(name, "name"), a_number(lower, "a bound"), a_number(upper, "a bound"),
                                       bool(integer))
        for number, value in given:
            self._core.set_coefficient(number, column, value)
        return column

    def set_coefficient(self, row: Key, column: Key, value: float) -> None:
        """Sets it, or adds it where there is none; of a pair that is there twice, the first. 0 is stored."""
        self._core.set_coefficient(self._row(row), self._column(column), a_number(value, "a coefficient"))

    def set_row_bounds(self, row: Key, lower: float = -np.inf, upper: float = np.inf) -> None:
        """Sets both limits: one that is not given is none."""
        self._core.set_row_bounds(self._row(row), a_number(lower, "a limit"), a_number(upper, "a limit"))

    def set_column_bounds(self, column: Key, lower: float = 0.0, upper: float = np.inf) -> None:
        """Sets both bounds: a lower one that is not given is 0, an upper one none."""
        self._core.set_column_bounds(self._column(column), a_number(lower, "a bound"), a_number(upper, "a bound"))

    def set_integer(self, column: Key, integer: bool = True) -> None:
        """Makes the column an integer one, or a continuous one."""
        self._core.set_column_integer(self._column(column), bool(integer))

    def rename_row(self, row: Key, name: str) -> None:
        """Gives the row a name that no other row has."""
        number = self._row(row)
        if self._core.find_row(_text(name, "name")) != number:
            self._core.rename_row(number, name)

    def rename_column(self, column: Key, name: str) -> None:
        """Gives the column a name that no other column has."""
        number = self._column(column)
        if self._core.find_column(_text(name, "name")) != number:
            self._core.rename_column(number, name)

    def remove_row(self, row: Key) -> None:
        """Its coefficients go with it."""
        self._core.remove_row(self._row(row))

    def remove_column(self, column: Key) -> None:
        """Rows that have no other coefficient go too."""
        self._core.remove_column(self._column(column))


def _value(given: float) -> float:
    value = a_number(given, "a coefficient")
    if not np.isfinite(value):
        raise ValueRefused("The value is not finite")
    return value


def _text(given: str, what: str) -> str:
    if not isinstance(given, str):
        raise TypeError(f"the {what} is a str, not a {type(given).__name__}")
    return given


def _point(x: npt.ArrayLike, columns: int) -> Doubles:
    point = real(x, "A point")
    if point.shape != (columns,):
        raise NumberError(f"A point has one number for each of {columns} columns, not the shape {point.shape}")
    return point


def _find(core: _core.Model, name: str, is_row: bool) -> Optional[int]:
    return core.find_row(name) if is_row else core.find_column(name)


def _number(core: _core.Model, key: Key, is_row: bool) -> int:
    kind = "row" if is_row else "column"
    if isinstance(key, str):
        number = _find(core, key, is_row)
        if number is None:
            raise NoSuchName(f"There is no {kind} of the name {key}")
        return number
    try:
        number = operator.index(key)
    except TypeError:
        raise TypeError(f"a {kind} has a number or a name, not a {type(key).__name__}") from None
    count = core.counts()[0 if is_row else 1]
    if not -count <= number < count:
        raise NumberError(f"There is no {kind} {number}: there are {count}")
    return number % count


def _first_of_each(names: Iterator[str], values: list[float]) -> dict[str, float]:
    elements: dict[str, float] = {}
    for name, value in zip(names, values):
        elements.setdefault(name, value)
    return elements
