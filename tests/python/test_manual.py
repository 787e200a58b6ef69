"""The examples of docs/python.md give what stands there.

QUARVEL_WRITE_PAGES=1 in the environment writes what they give into the page instead."""

import contextlib
import doctest
import io
import os
import re
import shutil

import pytest

from conftest import PROJECT

PAGE = PROJECT / "docs/python.md"


def with_outputs(page):
    """The page with what each example prints."""
    names = {}

    def anew(block):
        text = ""
        for example in doctest.DocTestParser().get_examples(block[1]):
            lines = example.source.rstrip("\n").split("\n")
            text += ">>> " + "\n... ".join(lines) + "\n"
            printed = io.StringIO()
            with contextlib.redirect_stdout(printed), contextlib.redirect_stderr(printed):
                exec(compile(example.source, "<python.md>", "single"), names)
            text += printed.getvalue()
        return f"```python\n{text}\n```"

    return re.sub(r"```python\n(.*?)```", anew, page, flags=re.S)


def test_the_examples_of_the_page(tmp_path, monkeypatch):
    pytest.importorskip("scipy")
    shutil.copytree(PROJECT / "examples", tmp_path / "examples")
    monkeypatch.chdir(tmp_path)
    page = PAGE.read_text()
    made = with_outputs(page)
    if "QUARVEL_WRITE_PAGES" in os.environ:
        PAGE.write_text(made)
    assert page.count(">>> ") > 20
    assert made == page or "QUARVEL_WRITE_PAGES" in os.environ
