"""Models and paths that the tests of quarvel.LPModel share."""

import os
from pathlib import Path

import quarvel

from conftest import python_environment

ROOT = Path(__file__).resolve().parents[2]
IDL = ROOT / "automation" / "quarvel.idl"


def small_model(**desktop):
    """COST: 1*X + 2*Y and LIM: -3.5*Y + 4*Z <= 0, of three columns."""
    model = quarvel.LPModel(quarvel.ScriptedDesktop(**desktop))
    model.MakeNewModel()
    assert model.AddRow("COST") == -1
    model.SetRowType[0] = "N"
    assert model.AddRow("LIM") == -1
    model.SetRowType[1] = "L"
    for name in "XYZ":
        assert model.AddColumn(name) == -1
    model.AddElement(0, 0, 1)
    model.AddElement(0, 1, 2)
    model.AddElement(1, 1, -3.5)
    model.AddElement(1, 2, 4)
    return model


def environment():
    """What another Python needs to find the package that is tested."""
    return dict(python_environment(), PYTHONPATH=str(Path(quarvel.__file__).resolve().parents[1]))


def write_long_model(path, columns):
    """A file that takes a while to read: `columns` columns in 50 rows."""
    with open(path, "w", encoding="ascii") as file:
        file.write("NAME LONG\nROWS\n N COST\n" + "".join(f" L R{i}\n" for i in range(50)) + "COLUMNS\n")
        for j in range(columns):
            file.write(f"    C{j} COST 1 R{j % 50} 2\n    C{j} R{(j + 7) % 50} 3\n")
        file.write("RHS\n" + "".join(f"    RHS R{i} 10\n" for i in range(50)) + "ENDATA\n")
    return os.fspath(path)
