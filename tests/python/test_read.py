"""Reading: files, bytes, packed ones, problems, progress, Ctrl-C, two threads."""

import bz2
import gzip
import lzma
import os
import resource
import shutil
import signal
import subprocess
import threading
import time

import pytest
import quarvel

from conftest import SMALL, large, python, wait_until

BROKEN = SMALL.replace(b"    X         NEED      1.0", b"    X         NEEDED    1.0")


def test_a_file_has_its_counts_and_its_path(small_file):
    m = quarvel.read(small_file)
    assert (m.shape, m.nnz, m.name, m.path) == ((4, 3), 8, "SMALL", str(small_file))
    assert [problem.severity for problem in m.problems] == ["adapted"] * 2


def zstd(data):
    if shutil.which("zstd") is None:
        pytest.skip("there is no zstd")
    return subprocess.run(["zstd", "-q", "-c"], input=data, stdout=subprocess.PIPE, check=True).stdout


PACKERS = pytest.mark.parametrize("ending, pack", [
    (".gz", gzip.compress), (".bz2", bz2.compress), (".xz", lzma.compress), (".zst", zstd), ("", bytes)])


@PACKERS
def test_packed_files_and_bytes_are_read_by_what_they_hold(tmp_path, ending, pack):
    for path in (tmp_path / ("a.mps" + ending), tmp_path / "b.mps"):
        path.write_bytes(pack(SMALL))
        m = quarvel.read(str(path))
        assert (m.nnz, m.path) == (8, str(path))
    for kind in (bytes, bytearray, memoryview):
        assert quarvel.read(kind(pack(SMALL))).nnz == 8


@PACKERS
def test_a_pipe_is_read_once_packed_or_not(tmp_path, ending, pack):
    path = tmp_path / "pipe"
    os.mkfifo(path)
    writer = threading.Thread(target=path.write_bytes, args=(pack(BROKEN),))
    writer.start()
    heard = []
    m = quarvel.read(path, problems="collect", progress=lambda done, all: heard.append((done, all)))
    writer.join()
    assert m.nnz == 7 and [p.name for p in m.problems if p.severity == "error"] == ["no-such-row"]
    assert heard[-1] == (len(pack(BROKEN)),) * 2


@PACKERS
def test_progress_of_what_is_packed_is_that_of_the_file(tmp_path, ending, pack):
    path = tmp_path / ("a.mps" + ending)
    path.write_bytes(pack(large()))
    heard = []
    quarvel.read(path, progress=lambda done, all: heard.append((done, all)))
    assert heard == sorted(heard) and {all for _, all in heard} == {path.stat().st_size}
    assert heard[-1][0] == heard[-1][1] > heard[0][0] > 0


def test_an_empty_text_is_one_when_it_is_packed_too():
    for source in (b"", gzip.compress(b"")):
        told = quarvel.check(source)
        assert told.lines == 0 and not told.has_endata


def test_what_is_packed_badly_or_in_other_ways_is_told():
    for packed, told in ((gzip.compress(SMALL)[:40], "too early"), (b"\x28\xb5\x2f\xfd" + SMALL, "zstd data are damaged"),
                         (b"PK\x03\x04" + SMALL, "zip archive"), (gzip.compress(bz2.compress(SMALL)), "packed twice")):
        with pytest.raises(quarvel.ReadError, match=told):
            quarvel.read(packed)


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


@pytest.mark.parametrize("work", ["read", "check"])
def test_ctrl_c_ends_the_wait_for_a_silent_pipe(tmp_path, work):
    path = tmp_path / "pipe"
    os.mkfifo(path)
    process = python(f"import quarvel, sys; quarvel.{work}(sys.argv[1])", path)
    with open(path, "wb", buffering=0) as pipe:
        pipe.write(SMALL[:100])
        wait_until(lambda: sleeps(process.pid))
        process.send_signal(signal.SIGINT)
        assert process.communicate(timeout=60)[1].splitlines()[-1] == "KeyboardInterrupt"


def sleeps(process):
    """Whether it has slept for a while."""
    for _ in range(10):
        time.sleep(0.02)
        with open(f"/proc/{process}/stat") as told:
            if told.read().rpartition(")")[2].split()[0] != "S":
                return False
    return True


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
