"""A model as tables, as a solver's arguments, as counts, as what a pickle keeps."""

from __future__ import annotations

import dataclasses
from typing import TYPE_CHECKING, Any, Iterator

import numpy as np
import numpy.typing as npt

from .errors import Error, Problem, ValueRefused

if TYPE_CHECKING:
    import pandas

    from . import _core
    from .model import Model

Doubles = npt.NDArray[np.float64]
_OWN = ("_core", "_path", "_problems")


@dataclasses.dataclass(frozen=True)
class ScipyModel:
    """A model for scipy.optimize, which minimises: `sign` is -1 where the model is to be maximised, and the
    model's own objective is `sign * result.fun + c0`. `rows` has the numbers of the rows that are constraints."""

    milp: dict[str, Any]
    """For `milp(**...)`."""
    linprog: dict[str, Any]
    """For `linprog(**...)`, with the integrality of its columns."""
    sign: int
    c0: float
    rows: npt.NDArray[np.int64]

    def objective(self, fun: float) -> float:
        """The model's objective where scipy's is `fun`."""
        return self.sign * fun + self.c0


def to_scipy(model: Model) -> ScipyModel:
    import scipy.optimize
    import scipy.sparse
    row_lb, row_ub = model.row_lb, model.row_ub
    lb, ub, integrality = model.lb, model.ub, model.integrality
    sign = -1 if model.sense == "max" else 1
    cost = sign * model.c
    limited = np.flatnonzero(np.isfinite(row_lb) | np.isfinite(row_ub))
    matrix = model.A_csr[limited]
    low, high = row_lb[limited], row_ub[limited]
    equal = low == high
    has_low, has_high = np.isfinite(low) & ~equal, np.isfinite(high) & ~equal
    milp = {"c": cost, "integrality": integrality, "bounds": scipy.optimize.Bounds(lb, ub),
            "constraints": scipy.optimize.LinearConstraint(matrix.tocsc(), low, high) if limited.size else ()}
    upper = scipy.sparse.vstack([matrix[has_high], -matrix[has_low]], format="csc")
    linprog = {"c": cost, "A_ub": upper, "b_ub": np.concatenate([high[has_high], -low[has_low]]),
               "A_eq": matrix[equal].tocsc(), "b_eq": low[equal], "bounds": np.column_stack([lb, ub]),
               "integrality": integrality, "method": "highs"}
    return ScipyModel(milp, linprog, sign, model.c0, limited)


def to_pandas(model: Model) -> tuple[pandas.DataFrame, pandas.DataFrame, pandas.DataFrame]:
    import pandas
    row_names, column_names = model.row_names, model.column_names
    rows = pandas.DataFrame({"type": _letters(model), "lower": model.row_lb, "upper": model.row_ub},
                            index=pandas.Index(row_names, name="row"))
    columns = pandas.DataFrame({"integer": model.integrality.astype(bool), "lower": model.lb, "upper": model.ub,
                                "cost": model.c}, index=pandas.Index(column_names, name="column"))
    starts, indices, values = model._core.matrix_by_columns()
    elements = pandas.DataFrame({
        "row": np.asarray(row_names, dtype=object)[indices],
        "column": np.repeat(np.asarray(column_names, dtype=object), np.diff(starts)), "value": values})
    return rows, columns, elements


def _letters(model: Model) -> list[str]:
    return [chr(code) for code in model._core.row_types().tolist()]


def violations(model: Model, point: Doubles, tolerance: float) -> dict[str, float]:
    if not tolerance >= 0:
        raise ValueRefused("A tolerance is 0 or more")
    # Of what is infinite.
    with np.errstate(invalid="ignore"):
        return _violations(model, point, tolerance)


def _violations(model: Model, point: Doubles, tolerance: float) -> dict[str, float]:
    activities = model.evaluate(point)
    found: dict[str, float] = {}
    for names, values, lower, upper in ((model.row_names, activities, model.row_lb, model.row_ub),
                                        (model.column_names, point, model.lb, model.ub)):
        below = np.where(np.isneginf(lower) & ~np.isnan(values), -np.inf, lower - values)
        above = np.where(np.isposinf(upper) & ~np.isnan(values), -np.inf, values - upper)
        amount = np.maximum(below, above)
        # Not a number keeps no limits.
        for number in np.flatnonzero(~(amount <= tolerance)).tolist():
            found[names[number]] = max(float(amount[number]), found.get(names[number], 0.0))
    whole = np.abs(point - np.round(point))
    for number in np.flatnonzero((model.integrality == 1) & ~(whole <= tolerance)).tolist():
        found.setdefault(model._core.column_name(number), float(whole[number]))
    return found


def stats(model: Model) -> dict[str, Any]:
    rows, columns = model.shape
    types = model._core.row_types()
    values = np.abs(model._core.matrix_by_columns()[2])
    values = values[values > 0]
    lb, ub = model.lb, model.ub
    return {
        "rows": rows, "columns": columns, "elements": model.nnz,
        "density": model.nnz / (rows * columns) if rows and columns else 0.0,
        "row_types": {letter: int(np.count_nonzero(types == ord(letter))) for letter in "NGLER"},
        "integer_columns": int(np.count_nonzero(model.integrality)),
        "binary_columns": int(np.count_nonzero((model.integrality == 1) & (lb == 0) & (ub == 1))),
        "free_columns": int(np.count_nonzero(np.isinf(lb) & np.isinf(ub))),
        "fixed_columns": int(np.count_nonzero(lb == ub)),
        "smallest": float(values.min()) if values.size else None,
        "largest": float(values.max()) if values.size else None}


def state(model: Model) -> dict[str, Any]:
    """All that a model holds; lists of rows come back in the order of the columns."""
    return {"version": 1, "texts": model._core.texts()[:2], "facts": model._core.facts(),
            "more": {name: value for name, value in model.__dict__.items() if name not in _OWN},
            "path": model._path, "problems": model._problems, "rows": (model.row_names, model.row_lb, model.row_ub),
            "columns": (model.column_names, model.lb, model.ub, model.integrality),
            "elements": model._core.matrix_by_columns()}


def restore(model: Model, kept: Any) -> None:
    """ValueRefused for what `state` has not made."""
    if not isinstance(kept, dict):
        raise ValueRefused(f"The pickle of a model has a dict, not {type(kept).__name__}")
    if kept.get("version") != 1:
        raise ValueRefused("The pickle is of another version of the package")
    try:
        _fill(model._core, kept)
        path, problems, more = kept["path"], kept["problems"], dict(kept.get("more", {}))
        if not isinstance(path, str) or not all(isinstance(problem, Problem) for problem in problems):
            raise TypeError("its path or its problems are others")
    except (Error, ArithmeticError, LookupError, TypeError, ValueError) as error:
        raise ValueRefused(f"The pickle is damaged: {error}") from error
    model._path, model._problems = path, tuple(problems)
    model.__dict__.update(more)


def _fill(core: _core.Model, kept: dict[str, Any]) -> None:
    name, description = kept["texts"]
    core.set_name(name)
    core.set_description(description)
    for row, lower, upper in _together(kept["rows"]):
        core.add_row(row, lower, upper)
    for column, lower, upper, integer in _together(kept["columns"]):
        core.add_column(column, lower, upper, bool(integer))
    starts, rows, values = kept["elements"]
    core.add_elements(rows, np.repeat(np.arange(len(starts) - 1, dtype=np.int32), np.diff(starts)), values)
    core.set_facts(kept["facts"])


def _together(lists: Any) -> Iterator[tuple[Any, ...]]:
    if len({len(each) for each in lists}) != 1:
        raise ValueError("its lists have different lengths")
    return zip(*lists)
