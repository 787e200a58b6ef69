"""Reading: files, bytes, packed ones, problems, progress, Ctrl-C, two threads."""

import bz2
import gzip
import lzma
import os
import resource
import signal
import threading

import pytest
import quarvel

from conftest import SMALL

BROKEN = SMALL.replace(b"    X         NEED      1.0", b"    X         NEEDED    1.0")


def large(rows=60000):
    lines = ["NAME L", "ROWS", " N COST"] + [f" L R{i}" for i in range(rows)] + ["COLUMNS"]
    lines += [f" X{i} COST 1 R{i} 2\n X{i} R{(i + 1) % rows} 3" for i in range(rows)]
    return ("\n".join(lines) + "\nENDATA\n").encode()


def test_a_file_has_its_counts_and_its_path(small_file):
    m = quarvel.read(small_file)
    assert (m.shape, m.nnz, m.name, m.path) == ((4, 3), 8, "SMALL", str(small_file))
    assert [problem.severity for problem in m.problems] == ["adapted"] * 2


@pytest.mark.parametrize("ending, pack", [
    (".gz", gzip.compress), (".bz2", bz2.compress), (".xz", lzma.compress), ("", bytes)])
def test_packed_files_and_bytes_are_read(tmp_path, ending, pack):
    path = tmp_path / ("a.mps" + ending)
    path.write_bytes(pack(SMALL))
    assert quarvel.read(str(path)).nnz == 8
    assert quarvel.read(pack(SMALL)).nnz == 8


def test_an_empty_text_is_one_when_it_is_packed_too():
    for source in (b"", gzip.compress(b"")):
        told = quarvel.check(source)
        assert told.lines == 0 and not told.has_endata


def test_a_broken_pack_and_zstd_are_told(tmp_path):
    with pytest.raises(quarvel.ReadError, match="broken"):
        quarvel.read(gzip.compress(SMALL)[:40])
    with pytest.raises(quarvel.ReadError, match="zstd"):
        quarvel.read(b"\x28\xb5\x2f\xfd" + SMALL)


def test_problems_are_raised_with_their_places():
    with pytest.raises(quarvel.ReadError) as raised:
        quarvel.read(BROKEN)
    assert isinstance(raised.value, quarvel.Error)
    problem = raised.value.problems[0]
    assert (problem.severity, problem.name, problem.line, problem.item) == ("error", "no-such-row", 11, "NEEDED")
    assert "NEEDED" in problem.text and problem.code.startswith("E")
    assert "line 11" in str(raised.value)


def test_problems_are_collected_and_the_other_lines_read():
    m = quarvel.read(BROKEN, problems="collect")
    assert m.nnz == 7
    assert [problem.name for problem in m.problems if problem.severity == "error"] == ["no-such-row"]


def test_a_file_that_is_not_there_is_a_read_error(tmp_path):
    for problems in ("raise", "collect"):
        with pytest.raises(quarvel.ReadError) as raised:
            quarvel.read(tmp_path / "none.mps", problems=problems)
        assert raised.value.problems


def test_options_are_checked_and_used():
    assert quarvel.read(SMALL, default_lower=float("-inf")).lb.tolist() == [float("-inf")] * 3
    for wrong in ({"default_lower": 1.0}, {"dialect": "x"}, {"columns": "x"}, {"problems": "x"}):
        with pytest.raises(quarvel.ValueRefused):
            quarvel.read(SMALL, **wrong)


def test_check_tells_and_raises_nothing(tmp_path):
    assert quarvel.check(SMALL).errors == 0
    told = quarvel.check(BROKEN)
    assert (told.is_good, told.errors) == (False, 1)
    assert "no-such-row" in [problem.name for problem in told.problems]
    assert not quarvel.check(tmp_path / "none.mps").is_good


def test_progress_is_heard_and_may_stop():
    heard = []
    text = large()
    quarvel.read(text, progress=lambda done, all: heard.append((done, all)))
    assert heard and heard == sorted(heard)
    assert all(0 < done <= of == len(text) for done, of in heard)
    with pytest.raises(quarvel.ReadError, match="stopped"):
        quarvel.read(large(), progress=lambda done, all: False)
    with pytest.raises(ZeroDivisionError):
        quarvel.read(large(), progress=lambda done, all: 1 // 0)


def test_ctrl_c_ends_a_read(tmp_path):
    path = tmp_path / "pipe"
    os.mkfifo(path)
    text = large(20000)

    def write():
        try:
            with open(path, "wb", buffering=0) as pipe:
                for start in range(0, len(text), 4096):
                    if start == 40960:
                        os.kill(os.getpid(), signal.SIGINT)
                    if start > 40960:
                        stop.wait(0.02)
                    pipe.write(text[start:start + 4096])
        except BrokenPipeError:
            broken.set()

    broken, stop = threading.Event(), threading.Event()
    writer = threading.Thread(target=write)
    core = quarvel.Model()._core
    writer.start()
    try:
        with pytest.raises(KeyboardInterrupt):
            core.read_file(str(path), quarvel.reading._options(0, "wide", "by-line", "", False, False, 20), None)
    finally:
        stop.set()
        writer.join()
    assert broken.is_set()
    assert core.counts() == (0, 0, 0)


def test_other_threads_run_and_are_refused_the_model():
    core = quarvel.Model()._core
    seen = []

    def look(done, all):
        # From within the call, and from another thread while the call waits for this function.
        def elsewhere():
            try:
                core.counts()
            except quarvel.BusyError as error:
                seen.append(error)
        thread = threading.Thread(target=elsewhere)
        thread.start()
        thread.join()
        elsewhere()

    core.read_bytes(large(), quarvel.reading._options(0, "wide", "by-line", "", False, False, 20), look)
    assert len(seen) >= 2
    assert core.counts()[0] == 60001


def test_a_thousand_reads_take_no_more_memory(small_file):
    def read(times):
        for _ in range(times):
            m = quarvel.read(small_file)
            m.A_csr, m.row_names, m.lb
            quarvel.read(BROKEN, problems="collect")
    pytest.importorskip("scipy")
    read(200)
    before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    read(1000)
    assert resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before < 1024  # KiB
