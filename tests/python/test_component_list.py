"""The members that Python has, held to the one list of members, which is read here without the build's help."""

import ast
import inspect
import re
import subprocess
import sys

import pytest

import quarvel
from component_models import IDL, ROOT
from quarvel import _component
from quarvel.component import LPModel

KINDS = {"": "method", "propget": "get", "propput": "let", "propputref": "set"}


def listed():
    """(name, kind, [(type, name)], result) of each member, in the list's order."""
    text = re.sub(r"//.*", "", IDL.read_text())
    text = re.sub(r"/\*.*?\*/", "", text)
    inside = text[text.index("interface _LPModel"):text.index("coclass")]
    found = []
    for match in re.finditer(r"\[((?:[^\]\"]|\"[^\"]*\")*)\]\s*HRESULT (\w+)\((.*?)\);", inside, re.S):
        attributes, name, arguments = match.groups()
        kind = KINDS[(re.match(r"prop\w+", attributes) or [""])[0]]
        values, result = [], ""
        for directions, type_name, argument in re.findall(r"\[([^\]]*)\]\s*(\S+) (\w+)", arguments):
            if "retval" in directions:
                result = type_name[:-1]
            else:
                values.append((type_name.rstrip("*"), argument))
        found.append((name, kind, values, result))
    return found


def test_the_list_has_all_members():
    assert len(listed()) == 71
    assert len({(name, kind) for name, kind, _, _ in listed()}) == 71


def test_python_has_the_members_of_the_list_in_its_order():
    rows = _component.members()
    assert [(row[0], row[1]) for row in rows] == [(name, kind) for name, kind, _, _ in listed()]
    for (name, kind, values, result), row in zip(listed(), rows):
        assert row[2] == ", ".join(f"{type_name} {argument}" for type_name, argument in values), name
        assert row[3] == result, name
        assert row[4], name


def test_each_member_is_bound_with_the_types_of_the_list():
    for name, kind, values, result in listed():
        types = next(row[5] for row in _component.members() if row[:2] == (name, kind))
        if name == "showFrm":  # kept in Python
            assert types is None
        else:
            assert types == ", ".join(type_name for type_name, _ in values) + ": " + result, (name, kind)


def test_the_class_has_each_member_and_nothing_else_but_what_is_told():
    names = {name for name, _, _, _ in listed()}
    public = {name for name in dir(LPModel) if not name.startswith("_")}
    writes = {"Set" + name for name in names if name.startswith("Set") and name != "SetDefaultToPlusMinusInfinity"}
    assert public == names | writes | {"desktop"}


def test_methods_have_the_arguments_of_the_list():
    for name, kind, values, _ in listed():
        if kind == "method":
            parameters = list(inspect.signature(getattr(LPModel, name)).parameters.values())[1:]
            assert [p.name for p in parameters] == [argument for _, argument in values], name
            optional = [p.name for p in parameters if p.default is not inspect.Parameter.empty]
            assert optional == (["Answer"] if name == "RowBodyValue" else []), name
            assert getattr(LPModel, name).__doc__, name


def stub_class():
    tree = ast.parse((ROOT / "python" / "quarvel" / "component.pyi").read_text())
    return next(node for node in tree.body if isinstance(node, ast.ClassDef) and node.name == "LPModel")


def test_the_stub_has_each_member_with_its_arguments():
    functions, decorators_of = {}, {}
    for node in stub_class().body:
        if isinstance(node, ast.FunctionDef):
            functions.setdefault(node.name, node)  # of a property its read
            decorators_of.setdefault(node.name, set()).update(ast.unparse(d) for d in node.decorator_list)
    words = {"long": "int", "short": "int", "double": "float", "VARIANT_BOOL": "bool", "BSTR": "str", "": "None"}
    for name, kind, values, result in listed():
        assert name in functions, name
        node = functions[name]
        decorators = decorators_of[name]
        if kind == "method":
            assert [a.arg for a in node.args.args[1:]] == [argument for _, argument in values], name
            if name not in ("RowGradient", "RowBodyValue"):
                assert ast.unparse(node.returns) == words[result], name
        elif kind == "get" and name != "showFrm":
            assert "property" in decorators, name
            wanted = words[result] if not values else {
                1: f"_Indexed[{words[result]}]", 2: f"_Indexed2[{words[result]}]"}[len(values)]
            assert ast.unparse(node.returns) == wanted, name
        elif kind == "let":
            assert "property" in decorators or f"{name}.setter" in decorators, name
        if name.startswith("Set") and kind == "let":
            assert [a.arg for a in functions["Set" + name].args.args[1:]] == [a for _, a in values], name


def mypy(*arguments):
    pytest.importorskip("mypy.api", reason="mypy is not installed")
    return subprocess.run([sys.executable, "-m", "mypy", "--no-incremental", "--cache-dir=/dev/null",
                           "--follow-imports=silent", *arguments],
                          capture_output=True, text=True, check=False,
                          env={"MYPYPATH": str(ROOT / "python"), "PATH": "/usr/bin:/bin"})


def test_stubs_and_sources_pass_the_strict_type_checker(tmp_path):
    script = tmp_path / "script.py"
    script.write_text(
        "from quarvel.component import Dispatch, LPModel, LPModelError, ScriptedDesktop\n"
        "model = LPModel(ScriptedDesktop(boxes={'conflict': 'yes'}))\n"
        "names: list[str] = [model.RowName(i) for i in range(model.NumberOfRows)]\n"
        "model.SetRowUpperBound[0] = 7.5\n"
        "model.SetRowElementValue[0, 1] = '3'\n"
        "result, gradient = model.RowGradient(0, [0.0] * model.NumberOfColumns)\n"
        "first: float = gradient[0]\n"
        "try:\n    Dispatch('Quarvel.LPModel').ColName(5)\n"
        "except LPModelError as error:\n    number: int = error.number\n")
    done = mypy("--strict", str(script), str(ROOT / "python" / "quarvel" / "component.pyi"),
                str(ROOT / "python" / "quarvel" / "_desktop.py"))
    assert done.returncode == 0, done.stdout + done.stderr


def test_the_type_checker_finds_a_wrong_use(tmp_path):
    script = tmp_path / "script.py"
    script.write_text("import quarvel.component as c\nc.LPModel().RowNames(1)\nx: int = c.LPModel().RowName(1)\n")
    done = mypy("--strict", str(script))
    assert done.returncode == 1
    assert "RowNames" in done.stdout and "Incompatible types" in done.stdout, done.stdout


def test_names_are_found_in_any_case():
    model = LPModel(quarvel.ScriptedDesktop())
    model.makenewmodel()
    assert model.ADDROW(rowname="A") == -1
    model.setrowtype[0] = "G"
    model.SETMODELNAME = "Upper"
    assert (model.rowtype(0), model.modelname, model.numberofrows) == ("G", "Upper", 1)
    assert model.SetSetRowName(row=0, value="B") is None
    assert model.rOwNaMe[0] == "B"


def test_a_name_of_no_member_is_an_attribute_error():
    model = LPModel(quarvel.ScriptedDesktop())
    with pytest.raises(AttributeError, match="no member RowNames"):
        model.RowNames(1)
    with pytest.raises(AttributeError, match="no member ModelNme"):
        model.ModelNme = "x"
    with pytest.raises(AttributeError):
        model.NumberOfRows = 3
    with pytest.raises(AttributeError):
        model.RowName = "x"


def test_a_wrong_count_of_arguments_is_a_type_error():
    model = LPModel(quarvel.ScriptedDesktop())
    for call in (lambda: model.RowName(), lambda: model.RowName(0, 1), lambda: model.AddRow(),
                 lambda: model.AddElement(0, 1), lambda: model.RowGradient(0), lambda: model.RowName(row=1),
                 lambda: model.SetRowName(0), lambda: model.SetRowName[0], lambda: model.MakeNewModel(1)):
        with pytest.raises(TypeError):
            call()
    with pytest.raises(TypeError):
        model.RowName[0] = "x"
