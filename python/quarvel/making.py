"""Models of arrays."""

from __future__ import annotations

from typing import Any, Optional, Sequence

import numpy as np
import numpy.typing as npt

from .errors import ValueRefused
from .model import Model
from .numbers import real


def from_arrays(A: Any, c: Optional[npt.ArrayLike] = None, *, row_lb: npt.ArrayLike = -np.inf,
                row_ub: npt.ArrayLike = np.inf, lb: npt.ArrayLike = 0.0, ub: npt.ArrayLike = np.inf,
                integrality: npt.ArrayLike = 0, row_names: Optional[Sequence[str]] = None,
                column_names: Optional[Sequence[str]] = None, sense: str = "", c0: float = 0.0,
                objective: str = "COST", name: str = "") -> Model:
    """A model of a matrix, dense or of scipy.sparse, whose rows are the constraints. With `c` a row without limits
    stands before them, of the name `objective`. One number for a whole array of bounds is good. Zeros of a dense
    matrix are no coefficients; those that a sparse one stores are. Names are R1, R2 ... and C1, C2 ... unless given."""
    rows, columns, values, shape = _triples(A)
    bounds = [_all(row_lb, shape[0]), _all(row_ub, shape[0]), _all(lb, shape[1]), _all(ub, shape[1])]
    integer = _all(integrality, shape[1])
    if not np.isin(integer, (0, 1)).all():
        raise ValueRefused("The integrality of a column is 0 or 1")
    model = Model(name)
    core = model._core
    first = 0
    if c is not None:
        if not isinstance(objective, str):
            raise TypeError(f"objective is the name of a row, not a {type(objective).__name__}")
        cost = _all(c, shape[1])
        core.add_row(objective, -np.inf, np.inf)
        first = 1
    for row, low, high in zip(_names(row_names, shape[0], "R"), bounds[0].tolist(), bounds[1].tolist()):
        core.add_row(row, low, high)
    for column, low, high, whole in zip(_names(column_names, shape[1], "C"), bounds[2].tolist(), bounds[3].tolist(),
                                        integer.tolist()):
        core.add_column(column, low, high, bool(whole))
    if c is not None:
        used = np.flatnonzero(cost).astype(np.int32)
        core.add_elements(np.zeros(used.size, dtype=np.int32), used, cost[used])
        core.set_facts({**core.facts(), "objective": objective})
    core.add_elements((rows + first).astype(np.int32), columns.astype(np.int32), values)
    model.sense = sense
    model.c0 = c0
    return model


def _triples(A: Any) -> tuple[Any, Any, npt.NDArray[np.float64], tuple[int, int]]:
    if hasattr(A, "tocoo"):
        sparse = A.tocoo()
        return sparse.row, sparse.col, real(sparse.data, "A matrix"), (sparse.shape[0], sparse.shape[1])
    dense = real(A, "A matrix")
    if dense.ndim != 2:
        raise ValueRefused("A matrix has two dimensions")
    rows, columns = np.nonzero(dense)
    return rows, columns, dense[rows, columns], (dense.shape[0], dense.shape[1])


def _all(given: npt.ArrayLike, count: int) -> npt.NDArray[np.float64]:
    array = real(given, "An array")
    if array.ndim == 0:
        return np.full(count, float(array))
    if array.shape != (count,):
        raise ValueRefused(f"An array has {array.shape} entries, not {count}")
    return array


def _names(given: Optional[Sequence[str]], count: int, letter: str) -> Sequence[str]:
    if given is None:
        return [f"{letter}{number}" for number in range(1, count + 1)]
    if isinstance(given, str):
        raise TypeError("names are a list of str, not one str")
    if len(given) != count:
        raise ValueRefused(f"There are {len(given)} names, not {count}")
    for name in given:
        if not isinstance(name, str):
            raise TypeError(f"a name is a str, not a {type(name).__name__}")
    return given
