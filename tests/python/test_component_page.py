"""The examples of the manual's page on quarvel.LPModel print what stands there."""

import doctest
import re

from component_models import ROOT

PAGE = ROOT / "docs" / "python-component.md"


def test_the_examples_of_the_page(monkeypatch):
    monkeypatch.chdir(ROOT)
    examples = "\n".join(re.findall(r"^```pycon\n(.*?)^```$", PAGE.read_text(), re.S | re.M))
    test = doctest.DocTestParser().get_doctest(examples, {}, "python-component.md", str(PAGE), 0)
    assert len(test.examples) > 25
    told = []
    results = doctest.DocTestRunner(optionflags=doctest.ELLIPSIS).run(test, out=told.append)
    assert results.failed == 0, "".join(told)
