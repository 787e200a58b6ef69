"""How a notebook shows a model: its counts, and where its coefficients stand."""

from __future__ import annotations

import html as text
from typing import TYPE_CHECKING

import numpy as np

if TYPE_CHECKING:
    from .model import Model

_MOST = 64


def html(model: Model) -> str:
    rows, columns = model.shape
    name = text.escape(model.name or "without a name")
    sense = {"min": "minimise", "max": "maximise"}.get(model.sense, "objective")
    objective = text.escape(model.objective or "none")
    head = (f"<b>{name}</b><br>{rows:,} rows, {columns:,} columns ({int(model.integrality.sum()):,} integer), "
            f"{model.nnz:,} elements<br>{sense}: {objective}")
    return f'<div>{head}<br>{svg(model)}</div>'


def svg(model: Model) -> str:
    """The matrix in at most 64 by 64 squares: the darker, the more of a square's places have a coefficient."""
    rows, columns = model.shape
    if not model.nnz:
        return ""
    high, wide = min(rows, _MOST), min(columns, _MOST)
    starts, indices, _ = model._core.matrix_by_columns()
    across = np.repeat(np.arange(columns, dtype=np.int64), np.diff(starts)) * wide // columns
    down = indices.astype(np.int64) * high // rows
    counts = np.bincount(down * wide + across, minlength=high * wide).astype(float)
    shades = 0.25 + 0.75 * counts / counts.max()
    squares = "".join(f'<rect x="{at % wide}" y="{at // wide}" width="1" height="1" fill-opacity="{shades[at]:.2f}"/>'
                      for at in np.flatnonzero(counts).tolist())
    size = f'width="{max(4 * wide, 16)}" height="{max(4 * high, 16)}"'
    return (f'<svg {size} viewBox="0 0 {wide} {high}" role="img" '
            f'aria-label="where the coefficients stand" style="border:1px solid #888;fill:#146">{squares}</svg>')
