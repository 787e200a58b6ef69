"""One tour, two components: scripts of the automation object, here and under Wine, print the same."""

import os
import pty
import random
import shutil
import subprocess
import sys

import pytest

import quarvel
from component_models import ROOT, environment
from quarvel.component import LPModelError, ScriptedDesktop

AUTOMATION = ROOT / "examples" / "automation"
DLL = ROOT / "build" / "windows-x64" / "Quarvel.dll"
LINE_OF_WINDOWS = "\nfrom win32com.client import VARIANT, gencache, pythoncom\n"
LINE_OF_THE_PACKAGE = "\nfrom quarvel.component import VARIANT, gencache, pythoncom\n"


def test_the_tour_for_pywin32_is_taken_with_one_changed_line(tmp_path):
    """A user at a terminal chooses the file. tests/automation/script_test.cpp has the scripts of Windows print
    the same text."""
    text = (AUTOMATION / "tour.py").read_text()
    assert text.count(LINE_OF_WINDOWS) == 1
    script = tmp_path / "tour.py"
    script.write_text(text.replace(LINE_OF_WINDOWS, LINE_OF_THE_PACKAGE))
    shutil.copy(ROOT / "examples" / "transport.mps", tmp_path)
    user, terminal = pty.openpty()
    os.write(user, b"transport.mps\n\nno\nno\nno\n")
    done = subprocess.run([sys.executable, str(script)], stdin=terminal, stderr=terminal, stdout=subprocess.PIPE,
                          cwd=tmp_path, text=True, timeout=60, check=False, env=environment())
    said = os.read(user, 100_000).decode()
    os.close(user)
    os.close(terminal)
    assert done.stdout == (AUTOMATION / "tour.txt").read_text(), said
    assert " UP " in (tmp_path / "transport_tour.mps").read_text()
    assert "Identify the MPS file to open" in said and "Set Default Bounds" in said


class Journey:
    """Random calls of one model. Each is made here, and noted as VBScript with what it gave."""

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.desktop = ScriptedDesktop()
        self.model = quarvel.LPModel(self.desktop)
        self.script, self.printed = [], []

    def take(self, name, statement, call):
        """A call that shows a box is left out: it has changed nothing, and nobody is there to close it."""
        self.desktop.boxes.clear()
        try:
            shown = self.show(call())
        except LPModelError as error:
            text = error.description.replace("\r\n", "|")
            shown = f"error {error.number} [{error.source}] [{text}]"
        if not self.desktop.boxes:
            self.script.append(statement)
            self.printed.append(f"{name} {shown}")

    def show(self, value):
        if isinstance(value, tuple):
            return " ".join(self.show(item) for item in value)
        if isinstance(value, bool) or value is None:
            return str(value)
        return f"{value:.15g}" if isinstance(value, float) else str(value)

    def get(self, name, *arguments):
        given = ", ".join(map(str, arguments))
        query = f"model.{name}({given})" if arguments else f"model.{name}"
        self.take(name, f'r = {query} : Show "{name}", r', lambda: self.read(name, arguments))

    def read(self, name, arguments):
        value = getattr(self.model, name)
        return value(*arguments) if arguments else value

    def write(self, name, *arguments):
        *places, value = arguments
        given = f"({', '.join(map(str, places))})" if places else ""
        literal = {True: "True", False: "False", None: "Null"}.get(value) if not isinstance(value, (str, int, float)) \
            or isinstance(value, bool) else f'"{value}"' if isinstance(value, str) else str(value)
        self.take(name, f'model.{name}{given} = {literal} : Show "{name}", "None"',
                  lambda: getattr(self.model, name)(*arguments))

    def call(self, name, *arguments):
        given = ", ".join(f'"{value}"' if isinstance(value, str) else str(value) for value in arguments)
        self.take(name, f'r = "None" : r = model.{name}({given}) : Show "{name}", r',
                  lambda: getattr(self.model, name)(*arguments))

    def step(self):
        number = self.random.randint
        row, column, k = number(-1, 8), number(-1, 8), number(-1, 4)
        kind = number(0, 9)
        value = self.random.choice([1, -2, 2.5, -0.75, "7.25", "1E3", "many", None, True, 10000000000])
        if kind == 0:
            self.call(self.random.choice(["AddRow", "AddColumn"]), f"N{number(0, 40)}")
        elif kind == 1:
            self.take("AddElement", f'model.AddElement {row}, {column}, {k}.5 : Show "AddElement", "None"',
                      lambda: self.model.AddElement(row, column, float(f"{k}.5")))
        elif kind == 2:
            self.write(self.random.choice(["SetColUpperBound", "SetColLowerBound", "SetRowLowerBound",
                                           "SetRowUpperBound"]), row, value)
        elif kind == 3:
            self.write("SetRowElementValue", row, k, value)
            self.write("SetRowType", row, self.random.choice(["N", "L", "G", "E", "R"]))
        elif kind == 4:
            self.write(self.random.choice(["SetRowName", "SetColName"]), row,
                       self.random.choice([f"M{number(0, 99)}", 12.5, None]))
            self.write("SetColType", column, self.random.choice("IR"))
        elif kind == 5 and number(0, 3) == 0:
            self.call(self.random.choice(["DeleteRow", "DeleteColumn"]), row)
            self.call("DeleteElement", row, k)
        elif kind == 6:
            self.functions(row)
        else:
            self.look(row, column, k)

    def functions(self, row):
        columns = self.model.NumberOfColumns
        size = columns + self.random.choice([0, 0, 1, -1])
        if size < 1:
            return
        point = [self.random.choice([1, 2.5, -4]) for _ in range(size)]
        self.take("RowGradient", f'g = Array({", ".join("0" * size)}) : r = model.RowGradient({row}, g) : '
                  f'Show "RowGradient", r & Joined(g)',
                  lambda: self.model.RowGradient(row, [0] * size))
        self.take("RowBodyValue", f'a = 0 : r = model.RowBodyValue({row}, Array({", ".join(map(str, point))}), a) : '
                  f'Show "RowBodyValue", r & " " & a',
                  lambda: self.model.RowBodyValue(row, point, 0)[::2])

    def look(self, row, column, k):
        for name in ("NumberOfRows", "NumberOfColumns", "NumberOfElements", "NumBindingRows", "NumNonBindingRows"):
            self.get(name)
        self.get("ElementValue", row, column)
        for name in ("RowName", "RowType", "RowEquation", "RowLowerBound", "RowUpperBound", "RowNumberElements",
                     "BindingRowIndex", "NonBindingRowIndex"):
            self.get(name, row)
        for name in ("ColName", "ColType", "ColUpperBound", "ColLowerBound", "ColNumberElements"):
            self.get(name, column)
        for name, i in (("RowElementCol", row), ("RowElementValue", row), ("ColElementrow", column),
                        ("ColElementvalue", column)):
            self.get(name, i, k)


VBSCRIPT = """Option Explicit
On Error Resume Next
Dim model, r, a, g
Function Joined(values)
  Dim i
  For i = 0 To UBound(values)
    Joined = Joined & " " & CDbl(values(i))
  Next
End Function
Sub Show(name, value)
  If Err.Number <> 0 Then
    WScript.Echo name & " error " & Err.Number & " [" & Err.Source & "] [" & Replace(Err.Description, vbCrLf, "|") & "]"
    Err.Clear
  Else
    WScript.Echo name & " " & value
  End If
End Sub
Set model = CreateObject("Quarvel.LPModel")
model.MakeNewModel
"""


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def wine(*arguments, prefix, **more):
    environment = dict(os.environ, QUARVEL_WINEPREFIX=str(prefix), QUARVEL_WINE_LATE="1")
    return subprocess.run([str(ROOT / "cmake" / "wine.sh"), *map(str, arguments)], env=environment, text=True,
                          capture_output=True, timeout=240, check=False, **more)


@pytest.fixture(scope="module")
def registered(tmp_path_factory):
    """A Windows of its own in which the component is registered."""
    if shutil.which("wine") is None:
        pytest.skip("Wine is not installed")
    if not DLL.exists():
        pytest.skip("build/windows-x64/Quarvel.dll is not built")
    prefix = tmp_path_factory.mktemp("wine")
    done = wine("regsvr32", "/s", DLL, prefix=prefix)
    assert done.returncode == 0, done.stdout
    yield prefix
    wine("--stop", prefix=prefix)


@pytest.mark.parametrize("seed", [1, 2, 3])
def test_random_calls_give_what_the_automation_object_gives(registered, tmp_path, seed):
    journey = Journey(seed)
    journey.model.MakeNewModel()
    for _ in range(600):
        journey.step()
    journey.write("SetModelName", f"J{seed}")
    here, there = tmp_path / "here.mps", tmp_path / "there.mps"
    assert journey.model.SaveMPSFile(here) == -1
    assert sum(" error " in line for line in journey.printed) > 50
    assert len({line.split()[0] for line in journey.printed}) > 30
    script = tmp_path / "journey.vbs"
    script.write_text(VBSCRIPT + "\n".join(journey.script) + f'\nmodel.SaveMPSFile "{windows_path(there)}"\n',
                      encoding="ascii", newline="\r\n")
    done = wine("cscript", "//nologo", windows_path(script), prefix=registered)
    # Each line that differs, with what was called.
    lines = done.stdout.splitlines()
    pairs = [(statement, ours, theirs) for statement, ours, theirs in zip(journey.script, journey.printed, lines)
             if ours != theirs]
    assert not pairs, pairs[:5]
    assert done.returncode == 0, done.stdout + done.stderr
    assert len(lines) == len(journey.printed)
    assert here.read_bytes() == there.read_bytes()
