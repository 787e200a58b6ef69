"""What nobody should give, and some do: wrong types, shapes and letters are refused as such, and change nothing."""

import copy
import gc
import io
import os
import pathlib
import pickle
import signal
import sys
import threading

import numpy as np
import pytest
import quarvel

from conftest import SMALL

INF = np.inf
SURROGATE = "\ud800"


@pytest.fixture
def m():
    return quarvel.read(SMALL)


@pytest.mark.parametrize("key, error", [
    (4, quarvel.NumberError), (-5, quarvel.NumberError), (2**70, quarvel.NumberError), (1.0, TypeError),
    (None, TypeError), (b"COST", TypeError), ((0,), TypeError), ("cost", quarvel.NoSuchName), ("", quarvel.NoSuchName),
    (SURROGATE, quarvel.NoSuchName), (np.float64(1), TypeError)])
def test_a_row_that_is_not_there(m, key, error):
    with pytest.raises(error):
        m.rows[key]
    assert key not in m.rows


def test_rows_have_slices_and_numbers_of_numpy(m):
    assert [row.name for row in m.rows[1:3]] == m.row_names[1:3]
    assert [row.name for row in m.rows[::-1]] == m.row_names[::-1] and m.columns[9:] == []
    assert m.rows[np.int64(-1)].name == m.rows[np.str_("SAME")].name == "SAME"


def test_a_row_that_has_gone_is_told_in_one_sentence(m):
    row = m.rows[3]
    with m.edit() as e:
        e.remove_row(3)
    with pytest.raises(quarvel.NumberError) as raised:
        row.name
    assert str(raised.value) == "row 3 is out of range"


@pytest.mark.parametrize("point, error", [
    ([1, 2], quarvel.NumberError), ([[1, 2, 3]], quarvel.NumberError), (None, TypeError),
    ([1j, 1, 1], quarvel.ValueRefused), (["a"] * 3, TypeError), (["1"] * 3, TypeError), ([1, None, 1], TypeError),
    (np.array([1, "1", 1], dtype=object), TypeError), ([[1], [1, 2], 1], quarvel.ValueRefused), ([10**400] * 3, quarvel.ValueRefused),
    (np.ma.array([1.0, 1, 1], mask=[0, 1, 0]), quarvel.ValueRefused), (np.zeros(3, "M8[D]"), TypeError),
    (np.zeros(3, [("x", float)]), TypeError), ({}, TypeError)])
def test_a_point_of_another_kind(m, point, error):
    for look in (m.evaluate, m.violations):
        with pytest.raises(error):
            look(point)


@pytest.mark.parametrize("dtype", ["f2", ">f8", "i1", "?", "O"])
def test_points_of_any_real_numbers(m, dtype):
    assert m.evaluate(np.array([1, 1, 1]).astype(dtype)).tolist() == [1, 2, 3, 0]
    assert m.evaluate(np.ones(6)[::2]).tolist() == [1, 2, 3, 0]
    assert m.evaluate(np.ma.array([1, 1, 1], mask=False)).tolist() == [1, 2, 3, 0]


def test_a_tolerance_is_no_less_than_nothing(m):
    for tolerance in (-1, np.nan):
        with pytest.raises(quarvel.ValueRefused):
            m.violations([0, 0, 0], tolerance)


@pytest.mark.parametrize("attribute, value, error", [
    ("sense", "MAX", ValueError), ("sense", None, ValueError), ("c0", np.nan, ValueError), ("c0", None, TypeError),
    ("objective", "LIMIT", ValueError), ("objective", 3, TypeError), ("objective", SURROGATE, ValueError),
    ("name", None, TypeError), ("name", SURROGATE, ValueError), ("description", None, TypeError),
    ("description", SURROGATE, ValueError)])
def test_facts_of_another_kind(m, attribute, value, error):
    before = getattr(m, attribute)
    with pytest.raises(error):
        setattr(m, attribute, value)
    assert getattr(m, attribute) == before


def test_a_new_model_has_a_text_for_its_name():
    for name in (0, None, [], b""):
        with pytest.raises(TypeError):
            quarvel.Model(name)


def test_no_objective_may_be_named(m):
    m.objective = None
    assert m.objective == "COST"


@pytest.mark.parametrize("given, error", [
    (dict(A=[1, 2]), ValueError), (dict(A=None), TypeError), (dict(A=np.array([[1j]])), ValueError),
    (dict(A=[[1, np.nan]]), ValueError), (dict(A=[[1]], c=[1, 2]), ValueError), (dict(A=[[1]], c=np.array([1j])), ValueError),
    (dict(A=[[1]], lb=INF), ValueError), (dict(A=[[1]], integrality=2), ValueError), (dict(A=[[1]], integrality=np.nan), ValueError),
    (dict(A=[[1, 1]], column_names="AB"), TypeError), (dict(A=[[1, 1]], column_names=["A", "A"]), quarvel.NameRefused),
    (dict(A=[[1]], column_names=[SURROGATE]), quarvel.NameRefused), (dict(A=[[1]], column_names=[b"A"]), TypeError),
    (dict(A=[[1]], name=5), TypeError), (dict(A=[[1]], name=0), TypeError), (dict(A=[[1]], name=[]), TypeError),
    (dict(A=[[None]]), TypeError), (dict(A=[["1"]]), TypeError), (dict(A=[[1]], lb="1"), TypeError),
    (dict(A=np.ma.array([[1, 2]], mask=[[0, 1]])), quarvel.ValueRefused),
    (dict(A=[[1, 2]], ub=np.ma.array([1, 2], mask=[0, 1])), quarvel.ValueRefused)])
def test_arrays_of_another_kind(given, error):
    with pytest.raises(error):
        quarvel.from_arrays(**given)


def test_sparse_arrays_of_another_kind():
    sparse = pytest.importorskip("scipy.sparse")
    with pytest.raises(quarvel.ValueRefused):
        quarvel.from_arrays(sparse.csr_matrix([[1j]]))


@pytest.mark.parametrize("edit", [
    lambda e: e.add_row("MORE", elements={"X": 1, "Q": 1}), lambda e: e.add_row("MORE", elements={"X": np.nan}),
    lambda e: e.add_column("MORE", elements={"NEED": 1, 9: 1}), lambda e: e.add_column("MORE", elements={"NEED": "1"}),
    lambda e: e.add_row(SURROGATE), lambda e: e.add_row(b"MORE"), lambda e: e.add_row("MORE", np.nan),
    lambda e: e.set_row_bounds("NEED", INF), lambda e: e.set_coefficient(0, 0, None), lambda e: e.rename_row(0, "NEED"),
    lambda e: e.remove_row(slice(1)), lambda e: e.__enter__()])
def test_an_edit_that_is_refused_changes_nothing(m, edit):
    before = m.copy()
    with m.edit() as e:
        with pytest.raises((quarvel.Error, TypeError)):
            edit(e)
    assert not quarvel.diff(before, m) and m.row_names == before.row_names and m.column_names == before.column_names


def test_edits_within_edits_are_taken_back_with_them(m):
    names = m.row_names
    with pytest.raises(ZeroDivisionError):
        with m.edit() as outer:
            outer.add_row("OUTER")
            with pytest.raises(KeyError):
                with m.edit() as inner:
                    inner.add_row("INNER")
                    raise KeyError
            assert m.row_names == [*names, "OUTER"]
            1 // 0
    assert m.row_names == names


def test_paths_of_every_kind_are_written_and_read(m, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    names = ["a.mps", "ä \U0001F600.mps", os.fsdecode(b"\xff.mps")]
    for name in names:
        for path in (name, pathlib.Path(name), os.fsencode(name)):
            m.write(path)
            assert m.path == name and quarvel.read(name).path == name
        assert not quarvel.diff(m, pathlib.Path(name))
    assert sorted(os.listdir()) == sorted(names)
    with pytest.raises(quarvel.ReadError):
        quarvel.read(os.fsdecode(b"\xfe.mps"))


@pytest.mark.parametrize("path, error", [
    ("a\0b.mps", ValueError), (SURROGATE, ValueError), (3, TypeError), (None, TypeError), (io.BytesIO(), TypeError)])
def test_what_is_no_path(m, path, error):
    for work in (m.write, quarvel.read, quarvel.check, lambda path: quarvel.diff(m, path)):
        with pytest.raises(error):
            work(path)


def test_an_empty_path_and_a_folder_are_refused(m, tmp_path):
    for path in ("", tmp_path):
        with pytest.raises(quarvel.Error):
            m.write(path)
        with pytest.raises(quarvel.ReadError):
            quarvel.read(path)


@pytest.mark.parametrize("option, error", [
    (dict(objective=None), TypeError), (dict(kept_of_each=-1), ValueError), (dict(problems=None), ValueError),
    (dict(kept_of_each=1.5), TypeError), (dict(kept_of_each=np.inf), TypeError), (dict(kept_of_each=np.nan), TypeError),
    (dict(progress=3), TypeError), (dict(default_lower=np.nan), ValueError), (dict(objective=SURROGATE), ValueError)])
def test_options_of_another_kind(option, error):
    with pytest.raises(error):
        quarvel.read(SMALL, **option)


class Named(quarvel.Model):
    """With what its maker adds."""

    def __init__(self, label, notes):
        super().__init__("NAMED")
        self.label, self.notes = label, notes


def test_a_derived_class_keeps_what_it_adds():
    model = Named("mine", ["a"])
    for protocol in range(pickle.HIGHEST_PROTOCOL + 1):
        other = pickle.loads(pickle.dumps(model, protocol))
        assert (type(other), other.label, other.notes, other.name) == (Named, "mine", ["a"], "NAMED")
    assert copy.copy(model).notes is model.copy().notes is model.notes
    one, same = copy.deepcopy([model, model])
    assert one is same and type(one) is Named and one.notes == ["a"] and one.notes is not model.notes


@pytest.mark.parametrize("part, kept", [
    ("texts", ()), ("texts", (1, 2)), ("facts", {}), ("facts", None), ("rows", None), ("rows", (["A"], [0], [0])),
    ("columns", (["X"], [0], [0])), ("columns", (["X", "Y", "Z"], [0], [0], [0])), ("elements", (1, 2)),
    ("elements", ([0, 9], [0], [1.0])), ("elements", ([0, -1], [0], [1.0])), ("elements", ([1, 0], [99], [1.0])),
    ("elements", (None, None, None)), ("path", 3), ("problems", 3), ("problems", (3,)), ("more", 3)])
def test_a_damaged_pickle_is_refused(m, part, kept):
    state = m.__getstate__()
    assert quarvel.Model.__new__(quarvel.Model).__setstate__(state) is None
    for damaged in ({**state, part: kept}, {name: value for name, value in state.items() if name != part}):
        if part == "more" and part not in damaged:
            continue  # what a derived class adds may be missing
        with pytest.raises(quarvel.ValueRefused):
            quarvel.Model.__new__(quarvel.Model).__setstate__(damaged)


def test_no_pickle_at_all_is_refused():
    for state in (None, 3, "text", [], np.zeros(3)):
        with pytest.raises(quarvel.ValueRefused):
            quarvel.Model.__new__(quarvel.Model).__setstate__(state)


def test_a_pickle_of_another_version_and_a_row_are_refused(m):
    with pytest.raises(quarvel.ValueRefused):
        quarvel.Model().__setstate__({**m.__getstate__(), "version": 2})
    with pytest.raises(TypeError):
        pickle.dumps(m.rows[0])


def test_errors_are_pickled_with_what_they_have():
    with pytest.raises(quarvel.ReadError) as raised:
        quarvel.read(b"NAME\nROWS\n N C\nCOLUMNS\n X Z 1\nENDATA\n")
    assert pickle.loads(pickle.dumps(raised.value)).problems == raised.value.problems
    with pytest.raises(quarvel.WriteError) as raised:
        quarvel.Model().to_bytes()
    assert pickle.loads(pickle.dumps(raised.value)).receipt == raised.value.receipt


def test_every_public_name_has_its_words():
    for name in ("Model", "Row", "Column", "Edit", "Receipt", "Problem", "Simplified", "Check", "Difference"):
        kind = getattr(quarvel, name) if hasattr(quarvel, name) else getattr(quarvel.errors, name)
        assert kind.__doc__
        for member, value in vars(kind).items():
            if not member.startswith("_") and (callable(value) or isinstance(value, property)):
                assert value.__doc__, f"{name}.{member}"


@pytest.mark.parametrize("value", ["5", b"5", bytearray(b"5"), np.array("5"), None, [1, 2]])
def test_what_is_no_number_is_refused_where_one_is_wanted(m, value):
    with m.edit() as e:
        for call in (lambda: e.set_coefficient(0, 0, value), lambda: e.set_row_bounds(0, value),
                     lambda: e.set_column_bounds(0, 0, value), lambda: e.add_row("R", elements={0: value}),
                     lambda: e.add_column("K", value), lambda: setattr(m, "c0", value),
                     lambda: m.violations([1, 2, 3], value), lambda: quarvel.diff(m, m, absolute=value)):
            with pytest.raises(TypeError, match="is a number, not a"):
                call()


@pytest.mark.parametrize("value", [1 + 2j, np.complex128(1), 10 ** 400])
def test_numbers_that_are_no_doubles_are_refused(m, value):
    with m.edit() as e:
        for call in (lambda: e.set_coefficient(0, 0, value), lambda: e.set_row_bounds(0, value),
                     lambda: e.add_row("R", elements={0: value}), lambda: setattr(m, "c0", value)):
            with pytest.raises(quarvel.ValueRefused):
                call()


def test_a_name_is_a_text_and_its_own_is_free(m):
    with m.edit() as e:
        for call in (lambda: e.rename_row(0, None), lambda: e.rename_column(0, 3), lambda: e.add_row(None),
                     lambda: quarvel.from_arrays([[1]], column_names=[1])):
            with pytest.raises(TypeError, match="name is a str, not a"):
                call()
        e.rename_row(0, m.rows[0].name)
        e.rename_column(0, m.columns[0].name)
        with pytest.raises(quarvel.NameRefused):
            e.rename_column(0, m.columns[1].name)


def test_edits_are_taken_back_behind_the_call_of_another_thread(m, tmp_path):
    names, goes, ends = m.row_names, threading.Event(), threading.Event()

    def wait(done, all):
        goes.set()
        ends.wait(10)

    writer = threading.Thread(target=lambda: m.write(tmp_path / "a.mps", progress=wait))
    with pytest.raises(RuntimeError, match="of the block"):
        with m.edit() as e:
            e.rename_row(0, "CHANGED")
            writer.start()
            goes.wait(10)
            threading.Timer(0.05, ends.set).start()
            raise RuntimeError("of the block")
    writer.join()
    assert m.row_names == names


def test_errors_that_are_not_kept_are_errors():
    bad = b"ROWS\n N COST\n L LIMIT\nCOLUMNS\n X COST 1 LIMTI 2\nENDATA\n"
    with pytest.raises(quarvel.ReadError, match="the bytes: errors: 1"):
        quarvel.read(bad, kept_of_each=0)
    assert quarvel.read(bad, problems="collect", kept_of_each=0).row_names == ["COST", "LIMIT"]


@pytest.mark.parametrize("no", [False, np.False_])
def test_a_check_that_is_stopped_is_no_good_one(no):
    many_columns = b"ROWS\n N C\nCOLUMNS\n" + b"".join(b" X%d C 1\n" % j for j in range(20000)) + b"ENDATA\n"
    with pytest.raises(quarvel.ReadError, match="The check was stopped"):
        quarvel.check(many_columns, progress=lambda done, all: no)
    assert quarvel.check(many_columns, progress=lambda done, all: np.True_).is_good


def test_files_that_the_system_refuses_are_errors_of_the_system_too(m, tmp_path):
    with pytest.raises(OSError) as read:
        quarvel.read(tmp_path / "none.mps")
    assert isinstance(read.value, quarvel.ReadError) and str(read.value).endswith("E901 File not found")
    again = pickle.loads(pickle.dumps(read.value))
    assert (type(again), str(again), again.problems) == (quarvel.UnreadFile, str(read.value), read.value.problems)
    with pytest.raises(OSError) as written:
        m.write(tmp_path / "none" / "a.mps")
    assert isinstance(written.value, quarvel.WriteError) and "was not written: Path not found" in str(written.value)
    with pytest.raises(quarvel.ReadError) as bad:
        quarvel.read(b"ROWS\n Q A\nENDATA\n")
    assert not isinstance(bad.value, OSError)


@pytest.mark.skipif(not hasattr(os, "mkfifo"), reason="this system has no such pipes")
def test_a_wait_for_a_reader_of_a_pipe_ends_with_ctrl_c(m, tmp_path):
    os.mkfifo(tmp_path / "pipe")
    timer = threading.Timer(0.2, os.kill, (os.getpid(), signal.SIGINT))
    timer.start()
    with pytest.raises(KeyboardInterrupt):
        m.write(tmp_path / "pipe")
    timer.join()


def test_limits_that_are_none_are_kept_by_all_but_what_is_no_number():
    wide = quarvel.from_arrays([[1e308, 1e308]], [1, 1])
    assert wide.violations([1e5, 0]) == {}
    assert list(wide.violations([np.nan, 0])) == ["COST", "R1", "C1"]
    assert list(quarvel.from_arrays([[1, 2]], ub=5, integrality=1).violations([2 + 5e-10, 1], 0)) == ["C1"]


def test_a_description_keeps_its_lines(m):
    for text in ("a\x0bb\u2028c", "a\n\nb", "a\r\nb\rc"):
        m.description = text
        assert m.description == text.replace("\r\n", "\n").replace("\r", "\n")


def use(m):
    """Everything once that makes something, and what is refused."""
    m.row_names, m.c, m.lb, m.stats(), repr(m), m._repr_html_(), m.rows["NEED"].elements, m.evaluate([1, 2, 3])
    other = pickle.loads(pickle.dumps(copy.copy(m)))
    with pytest.raises(KeyError):
        with other.edit() as e:
            e.add_row("R", elements={"X": 1})
            e.rename_column("X", "W")
            m.rows["NONE"]
    with pytest.raises(quarvel.NameRefused):
        with other.edit() as e:
            e.add_row("has blank")
    other.simplify(), quarvel.diff(m, other), quarvel.check(other.to_bytes()), m.violations([9, 9, 9])
    with pytest.raises(ZeroDivisionError):
        other.to_bytes(), quarvel.read(SMALL, progress=lambda done, all: 1 // 0)


@pytest.mark.skipif(sys.getallocatedblocks() == 0, reason="this Python does not count its blocks")
def test_a_thousand_rounds_keep_nothing(m):
    for _ in range(400):
        use(m)
    gc.collect()
    before = sys.getallocatedblocks()
    for _ in range(1000):
        use(m)
    gc.collect()
    assert sys.getallocatedblocks() - before < 500  # one kept in each round makes 1000
