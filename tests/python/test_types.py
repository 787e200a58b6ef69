"""The package's types, and those of a program that uses it."""

import importlib.util
import os
import pathlib
import subprocess
import sys

import pytest
import quarvel

PROGRAM = """
import quarvel
m: quarvel.Model = quarvel.read("a.mps", problems="collect")
name: str = m.rows["A"].equation
number: int = m.rows["A"].name  # wrong
"""


def mypy(*arguments, folder):
    return subprocess.run([sys.executable, "-m", "mypy", "--strict", "--cache-dir", str(folder / "cache"), *arguments],
                          cwd=folder, capture_output=True, text=True, check=False, env={**os.environ, "MYPYPATH": ""})


@pytest.mark.skipif(importlib.util.find_spec("mypy") is None, reason="mypy is not installed")
def test_types_hold(tmp_path):
    package = pathlib.Path(quarvel.__file__).parent
    files = [str(package / name) for name in (
        "errors.py", "numbers.py", "paths.py", "reading.py", "writing.py", "model.py", "tables.py", "picture.py",
        "making.py", "comparing.py")]
    run = mypy("--ignore-missing-imports", *files, folder=tmp_path)
    assert run.returncode == 0, run.stdout
    (tmp_path / "program.py").write_text(PROGRAM)
    run = mypy("--ignore-missing-imports", "program.py", folder=tmp_path)
    assert "program.py:5: error" in run.stdout and "Found 1 error" in run.stdout, run.stdout


def test_every_method_of_the_module_is_in_its_stub():
    stub = (pathlib.Path(quarvel.__file__).parent / "_core.pyi").read_text()
    for name in dir(quarvel._core.Model):
        if not name.startswith("_"):
            assert f"def {name}(" in stub
