"""Arrays, rows and columns, edits, simplifying, copies, how a model is shown."""

import copy
import pickle

import numpy as np
import pytest
import quarvel

from conftest import SMALL, python

INF = np.inf


@pytest.fixture
def m():
    return quarvel.read(SMALL)


def test_arrays_hold_the_model(m):
    sparse = pytest.importorskip("scipy.sparse")
    wanted = [[3, -2, 0], [1, 1, 0], [1, 0, 2], [0, 1, -1]]
    assert sparse.isspmatrix_csc(m.A) and m.A.toarray().tolist() == wanted
    assert sparse.isspmatrix_csr(m.A_csr) and m.A_csr.toarray().tolist() == wanted
    assert (m.c.tolist(), m.c0, m.sense, m.objective) == ([3, -2, 0], 10, "max", "COST")
    assert (m.lb.tolist(), m.ub.tolist()) == ([0, 0, -INF], [INF, 3, INF])
    assert (m.row_lb.tolist(), m.row_ub.tolist()) == ([-INF, -INF, 1, 0], [INF, 4, INF, 0])
    assert m.integrality.tolist() == [0, 1, 0]
    assert (m.row_names, m.column_names) == (["COST", "LIMIT", "NEED", "SAME"], ["X", "Y", "Z"])


def test_records_are_found_by_number_and_name(m):
    row = m.rows["LIMIT"]
    assert (row.number, row.name, row.type, row.lower, row.upper) == (1, "LIMIT", "L", -INF, 4)
    assert row.equation == " + 1*X + 1*Y  <=  4" and row.elements == {"X": 1, "Y": 1}
    column = m.columns[-2]
    assert (column.name, column.is_integer, column.upper, column.elements) == ("Y", True, 3, {
        "COST": -2, "LIMIT": 1, "SAME": 1})
    assert [row.name for row in m.rows] == m.row_names and len(m.columns) == 3
    assert "X" in m.columns and "Q" not in m.columns and m.coefficient("NEED", "Z") == 2
    with pytest.raises(KeyError) as raised:
        m.rows["Q"]
    assert isinstance(raised.value, quarvel.NoSuchName) and str(raised.value) == "There is no row of the name Q"
    for number in (4, -5):
        with pytest.raises(quarvel.NumberError):
            m.rows[number]


def test_a_point_is_evaluated(m):
    assert m.evaluate([1, 2, 2]).tolist() == [-1, 3, 5, 0]
    assert m.violations([1, 2, 2]) == {}
    assert m.violations([4, 1.5, 0]) == {"LIMIT": 1.5, "SAME": 1.5, "Y": 0.5}
    assert "X" in m.violations([np.nan, 2, 2])
    with pytest.raises(quarvel.NumberError):
        m.evaluate([1, 2])


def test_stats_and_tables(m):
    stats = m.stats()
    assert stats["row_types"] == {"N": 1, "G": 1, "L": 1, "E": 1, "R": 0}
    assert (stats["integer_columns"], stats["free_columns"], stats["largest"]) == (1, 1, 3)
    pytest.importorskip("pandas")
    rows, columns, elements = m.to_pandas()
    assert rows.loc["LIMIT", "upper"] == 4 and columns.loc["Y", "integer"]
    assert len(elements) == 8 and elements.value.sum() == 6
    assert elements[elements.column == "Z"].row.tolist() == ["SAME", "NEED"]


def test_edits_are_made_together(m):
    with m.edit() as e:
        assert e.add_row("MORE", upper=7, elements={"X": 5}) == 4
        e.add_column("W", integer=True, elements={"MORE": 2, 0: 1})
        e.set_coefficient("LIMIT", "X", 9)
        e.set_row_bounds("NEED", 2, 8)
        e.set_column_bounds(0, -1, 1)
        e.set_integer("X")
        e.rename_row("SAME", "EQUAL")
        e.rename_column(1, "YY")
        e.remove_row("LIMIT")
    assert m.row_names == ["COST", "NEED", "EQUAL", "MORE"] and m.column_names == ["X", "YY", "Z", "W"]
    assert m.rows["MORE"].elements == {"X": 5, "W": 2} and m.rows["NEED"].type == "R"
    assert (m.columns["X"].lower, m.columns["X"].is_integer) == (-1, True)


def test_a_failed_edit_takes_all_back(m):
    before = m.copy()
    row = m.rows["LIMIT"]
    with pytest.raises(quarvel.NameRefused):
        with m.edit() as e:
            e.remove_column("X")
            e.rename_row(0, "FIRST")
            e.add_row("has blank")
    assert not quarvel.diff(before, m) and m.objective == "COST"
    assert row.name == "LIMIT"
    with pytest.raises(quarvel.ValueRefused):
        e.add_row("LATE")
    with pytest.raises(quarvel.ValueRefused):
        with m.edit() as e:
            e.set_coefficient(0, 0, np.nan)


def test_simplifying_tells_what_it_did():
    m = quarvel.from_arrays([[1, 1], [2, 0]], [1, 1], row_ub=[4, 6], name="S")
    done = m.simplify()
    assert (done.removed_rows, done.is_stopped, m.shape, m.columns["C1"].upper) == (1, False, (2, 2), 3)
    assert any("R2" in line for line in done.log)
    conflict = quarvel.from_arrays([[1, 1], [2, 0]], row_lb=[0, 10], row_ub=[4, 10], ub=3)
    assert conflict.copy().simplify("remove-row").conflicts == 1
    assert conflict.simplify("reset-bounds").conflicts == 1
    with pytest.raises(quarvel.ValueRefused):
        m.simplify("guess")
    # The sign of a coefficient is not looked at, as with the component; that is said.
    turned = quarvel.from_arrays([[1, 1], [-2, 0]], row_ub=[4, -6])
    with pytest.warns(quarvel.ModelAltered, match="row R2 became bounds as if its coefficient were positive"):
        done = turned.simplify()
    assert (len(done.altered), turned.columns["C1"].upper) == (1, 3)
    # A row with one limit asks nothing, as with the component.
    crossing = quarvel.from_arrays([[1, 1], [2, 0]], row_ub=[4, -6])
    assert (crossing.simplify().conflicts, crossing.columns["C1"].lower, crossing.columns["C1"].upper) == (0, 0, -3)


def test_models_of_arrays_have_what_is_given():
    sparse = pytest.importorskip("scipy.sparse")
    for A in ([[1, 0], [2, 3]], sparse.csr_matrix([[1, 0], [2, 3]])):
        m = quarvel.from_arrays(A, [5, 6], row_lb=[1, -INF], row_ub=[1, 9], ub=[INF, 1], integrality=[0, 1],
                                row_names=["A", "B"], column_names=["P", "Q"], sense="max", c0=2, name="M")
        assert m.A.toarray().tolist() == [[5, 6], [1, 0], [2, 3]] and m.nnz == 5
        assert [row.type for row in m.rows] == ["N", "E", "L"] and m.columns["Q"].is_integer
        assert (m.objective, m.sense, m.c0, m.name) == ("COST", "max", 2, "M")
    for wrong in ({"ub": [1, 2, 3]}, {"row_names": ["A"]}, {"lb": np.nan}):
        with pytest.raises(quarvel.ValueRefused):
            quarvel.from_arrays([[1, 0], [2, 3]], **wrong)


def test_copies_are_models_of_their_own(m):
    m.description = "two\nlines"
    for other in (m.copy(), copy.copy(m), copy.deepcopy(m), pickle.loads(pickle.dumps(m))):
        assert not quarvel.diff(m, other)
        assert (other.sense, other.c0, other.objective, other.description) == ("max", 10, "COST", "two\nlines")
        other.columns
        with other.edit() as e:
            e.rename_column("X", "OTHER")
        assert m.column_names[0] == "X"


def test_differences_have_names(m):
    other = m.copy()
    with other.edit() as e:
        e.set_row_bounds("LIMIT", upper=5)
        e.set_coefficient("NEED", "Z", 2.001)
    found = quarvel.diff(m, other)
    assert found and found.count == 2
    kinds = {(d.kind, d.row, d.column, d.before, d.after) for d in found if not d.is_note}
    assert ("row-upper", "LIMIT", None, 4, 5) in kinds
    assert quarvel.diff(m, other, absolute=0.01).count == 1
    assert not quarvel.diff(m, m)


def test_a_model_is_shown(m):
    assert repr(m) == "<Model SMALL: 4 rows, 3 columns, 8 elements>"
    assert repr(m.columns["Y"]) == "<Column 1 Y: integer [0, 3]>"
    m.name = "<b>"
    html = m._repr_html_()
    assert "&lt;b&gt;" in html and html.count("<rect") == 8 and "4 rows" in html
    assert quarvel.Model()._repr_html_().count("<rect") == 0


def test_ctrl_c_ends_a_simplification_and_a_comparison():
    program = """
import os, quarvel, signal, sys, threading
m = quarvel.from_arrays([[1.0]], [1.0], row_ub=1)
with m.edit() as e:
    for i in range(60000):
        e.add_column(f"X{i}")
        e.add_row(f"S{i}", upper=5, elements={i + 1: 1})
other = m.copy()
with other.edit() as e:
    for i in range(60000):
        e.set_coefficient(i + 2, i + 1, 2)
def interrupt(done, all):
    os.kill(os.getpid(), signal.SIGINT)
try:
    m.simplify(progress=interrupt)
except KeyboardInterrupt:
    print("simplification", m.evaluate(m.lb).shape[0] == m.shape[0])
timer = threading.Timer(0.01, interrupt, (0, 0))
timer.start()
try:
    for _ in range(1000):
        quarvel.diff(m, other)
except KeyboardInterrupt:
    print("comparison")
"""
    out, errors = python(program).communicate(timeout=120)
    assert out.split() == ["simplification", "True", "comparison"], errors
