"""How a program ends: with models that live, in the middle of a call, in another interpreter."""

import os
import textwrap

import pytest

from conftest import SMALL, large, python


def run(program, *arguments, **environment):
    process = python(textwrap.dedent(program), *arguments, **environment)
    out, errors = process.communicate(timeout=120)
    return process.returncode, out, errors


@pytest.mark.parametrize("work", [
    "quarvel.read(sys.argv[1])", "quarvel.read(sys.argv[1], progress=lambda done, all: None)",
    "m.to_bytes()", "m.write(sys.argv[2], progress=lambda done, all: time.sleep(0.01))", "quarvel.diff(m, m.copy()); m.A",
    "model.SaveMPSFile(sys.argv[2])"])
def test_a_thread_that_nobody_waits_for_may_be_in_a_call(tmp_path, work):
    path = tmp_path / "large.mps"
    path.write_bytes(large())
    # What the thread's own variables hold is not given back.
    leaking = {"LSAN_OPTIONS": os.environ.get("LSAN_OPTIONS", "") + ":detect_leaks=0"}
    assert run(f"""
        import sys, threading, time
        import quarvel
        m = quarvel.read(sys.argv[1])
        model = quarvel.LPModel(quarvel.Desktop(Progress=lambda caption, part: time.sleep(0.01)))
        model.strMPSFile = sys.argv[1]
        model.ReadMPSFile()
        begun = threading.Event()
        def work():
            while True:
                begun.set()
                {work}
        threading.Thread(target=work, daemon=True).start()
        begun.wait()
        time.sleep(0.1)
        print("end")
        """, path, tmp_path / "out.mps", **leaking) == (0, "end\n", "")


def test_models_may_live_to_the_end(tmp_path):
    path = tmp_path / "small.mps"
    path.write_bytes(SMALL)
    assert run("""
        import sys
        import quarvel
        m = quarvel.read(sys.argv[1])
        sys.kept = [m, m.rows[0], m.edit().__enter__(), quarvel.LPModel()]
        print("end")
        """, path) == (0, "end\n", "")


def test_a_child_that_was_forked_has_the_models_of_its_parent(tmp_path):
    path = tmp_path / "small.mps"
    path.write_bytes(SMALL)
    assert run("""
        import os, sys
        import quarvel
        m = quarvel.read(sys.argv[1])
        child = os.fork()
        if child == 0:
            m.write(sys.argv[2])
            os._exit(0 if not quarvel.diff(m, sys.argv[2]) else 1)
        print(os.waitpid(child, 0)[1])
        """, path, tmp_path / "out.mps") == (0, "0\n", "")


def test_no_warning_comes_of_it(tmp_path):
    pytest.importorskip("scipy")
    pytest.importorskip("pandas")
    path = tmp_path / "small.mps"
    path.write_bytes(SMALL)
    assert run("""
        import sys, warnings
        import scipy.optimize, pandas  # which may have their own
        warnings.simplefilter("error")
        import numpy
        import quarvel
        m = quarvel.read(sys.argv[1])
        m.A, m.A_csr, m.to_scipy(), m.stats(), m.to_pandas(), m._repr_html_(), m.evaluate([1, 2, 3])
        m.violations([numpy.inf] * 3), m.violations([numpy.nan] * 3), quarvel.Model().stats()
        m.simplify(), m.write(sys.argv[2]), quarvel.diff(m, sys.argv[2]), quarvel.check(sys.argv[2])
        """, path, tmp_path / "out.mps") == (0, "", "")


def test_another_interpreter_of_the_process_is_refused_or_served():
    pytest.importorskip("_xxsubinterpreters")
    status, out, errors = run("""
        import _xxsubinterpreters
        import quarvel
        other = _xxsubinterpreters.create()
        try:
            _xxsubinterpreters.run_string(other, "import quarvel; print(quarvel.Model().shape)")
        except _xxsubinterpreters.RunFailedError as error:
            print("ImportError" in str(error) and "(0, 0)")
        _xxsubinterpreters.destroy(other)
        print(quarvel.Model().shape)
        """)
    assert (status, out) == (0, "(0, 0)\n(0, 0)\n"), errors


def test_without_scipy_and_pandas_the_rest_is_there(tmp_path):
    path = tmp_path / "small.mps"
    path.write_bytes(SMALL)
    status, out, errors = run("""
        import sys
        sys.modules["scipy"] = sys.modules["pandas"] = None
        import quarvel
        m = quarvel.read(sys.argv[1])
        m.c, m.stats(), m.evaluate([1, 2, 3]), m._repr_html_(), m.simplify(), quarvel.from_arrays([[1, 2]])
        for wanted in (lambda: m.A, m.to_scipy, m.to_pandas):
            try:
                wanted()
            except ImportError as error:
                print("scipy" in str(error) or "pandas" in str(error))
        """, path)
    assert (status, out) == (0, "True\n" * 3), errors
