"""What the tests share: a small model, and the folder of real ones."""

import os
import pathlib
import signal
import subprocess
import sys
import time

import pytest

PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent

SMALL = b"""NAME          SMALL
OBJSENSE
    MAX
ROWS
 N  COST
 L  LIMIT
 G  NEED
 E  SAME
COLUMNS
    X         COST      3.0        LIMIT     1.0
    X         NEED      1.0
    M1        'MARKER'             'INTORG'
    Y         COST      -2.0       LIMIT     1.0
    Y         SAME      1.0
    M2        'MARKER'             'INTEND'
    Z         SAME      -1.0       NEED      2.0
RHS
    RHS       COST      -10.0      LIMIT     4.0
    RHS       NEED      1.0
BOUNDS
 UP BND       Y         3.0
 FR BND       Z
ENDATA
"""




def large(rows=60000):
    """The bytes of a model whose rows have two coefficients each."""
    lines = ["NAME L", "ROWS", " N COST"] + [f" L R{i}" for i in range(rows)] + ["COLUMNS"]
    lines += [f" X{i} COST 1 R{i} 2\n X{i} R{(i + 1) % rows} 3" for i in range(rows)]
    return ("\n".join(lines) + "\nENDATA\n").encode()


# A sanitizer's library is for this interpreter and those that load the package, and for no other program.
PRELOADED = {name: value for name, value in os.environ.items() if name == "LD_PRELOAD"}
os.environ.pop("LD_PRELOAD", None)


def python_environment():
    """That of an interpreter which loads the package that is tested."""
    return {**os.environ, **PRELOADED}


def python(program, *arguments, **environment):
    """A Python that has begun to run the program, with the package that is tested."""
    return subprocess.Popen([sys.executable, "-c", program, *map(str, arguments)], text=True,
                            env=python_environment() | environment,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE, preexec_fn=hear_interrupts)


def hear_interrupts():
    signal.signal(signal.SIGINT, signal.default_int_handler)


def wait_until(condition, seconds=60):
    """Fails where it does not come."""
    end = time.monotonic() + seconds
    while not condition():
        assert time.monotonic() < end, "it did not come"
        time.sleep(0.002)


@pytest.fixture(autouse=True)
def interrupts():
    """Ctrl-C is heard, also where whoever started the tests has it ignored."""
    before = signal.signal(signal.SIGINT, signal.default_int_handler)
    yield
    signal.signal(signal.SIGINT, before)


@pytest.fixture
def small_file(tmp_path):
    path = tmp_path / "small.mps"
    path.write_bytes(SMALL)
    return path


@pytest.fixture
def data():
    folder = pathlib.Path(os.environ.get("QUARVEL_DATA", PROJECT.parent / "shared/data"))
    if not folder.is_dir():
        pytest.skip(f"there is no folder {folder} of real models")
    return folder
