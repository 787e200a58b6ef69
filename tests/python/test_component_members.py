"""Every member of quarvel.LPModel, right and wrong."""

import copy
import pickle

import numpy
import pytest

import quarvel
from component_models import ROOT, small_model
from quarvel.component import VARIANT, Dispatch, LPModelError, gencache, pythoncom

COLUMN_9 = (-2147220974, "LPModel.PropertyGetColumn()",
            "Quarvel.dll error: column 9 is out of range.  \r\nColumns range from 0 to 2.")
ROW_9 = (-2147220972, "LPModel.PropertyGetRow()",
         "Quarvel.dll error: row 9 is out of range.  \r\nRows range from 0 to 1.")
TYPE_MISMATCH = (13, "", "Type mismatch")
SUBSCRIPT = (9, "", "Subscript out of range")
OVERFLOW = (6, "", "Overflow")


def element_7(number, source, last):
    return (number, source,
            f"Quarvel.dll error: element 7 is out of range.  \r\nElements in this row range from 0 to {last}.")


@pytest.fixture
def model():
    return small_model()


def raises(wanted, call):
    with pytest.raises(LPModelError) as caught:
        call()
    error = caught.value
    assert (error.number, error.source, error.description) == wanted
    assert isinstance(error, quarvel.Error)


def refused(model, text, call):
    call()
    box = model.desktop.boxes.pop()
    assert (box.text, box.buttons, box.title) == (text, (1,), "Quarvel")


def test_adding(model):
    assert model.NumberOfElements == 4
    refused(model, "Invalid row or column given when attempting to AddElement()", lambda: model.AddElement(0, 9, 1))
    assert model.NumberOfElements == 4
    refused(model, "Row not added:  that name is already in use", lambda: model.AddRow("LIM"))
    assert model.AddRow("LIM") == 0
    refused(model, "Column not added:  empty name given", lambda: model.AddColumn(""))
    assert model.AddColumn("") == 0
    assert model.AddColumn(5) == -1
    assert (model.ColName(3), model.ColLowerBound(3), model.ColUpperBound(3)) == ("5", 0.0, 1e10)


def test_public_variables(model):
    assert (model.strMPSFile, model.ReadMPSFileErr, model.showFrm) == ("", 0, None)
    model.strMPSFile = "a.mps"
    assert model.strMPSFile == "a.mps"
    model.ReadMPSFileErr = -1
    assert model.ReadMPSFileErr == -1
    raises(OVERFLOW, lambda: setattr(model, "ReadMPSFileErr", 70000))
    model.frmViewEquationsIsShowing = True
    assert model.frmViewEquationsIsShowing is True
    assert model.ViewEquationsWindowIsShowing() is True
    model.frmViewEquationsIsShowing = "false"
    assert model.frmViewEquationsIsShowing is False
    raises(TYPE_MISMATCH, lambda: setattr(model, "frmViewEquationsIsShowing", "maybe"))
    model.showFrm = model
    assert model.showFrm.NumberOfRows == 2


def test_columns(model):
    assert (model.ColElementrow(1, 1), model.ColElementvalue(1, 1), model.ColNumberElements(1)) == (1, -3.5, 2)
    for query in (lambda: model.ColElementrow(9, 7), lambda: model.ColElementvalue(9, 7),
                  lambda: model.ColNumberElements(9), lambda: model.ColUpperBound(9),
                  lambda: model.ColLowerBound(9), lambda: model.ColName(9), lambda: model.ColType(9)):
        raises(COLUMN_9, query)
    for query in (lambda: model.ColElementrow(0, 7), lambda: model.ColElementvalue(0, 7)):
        raises(element_7(-2147220973, "LPModel.PropertyGetColumn()", 0), query)


def test_writes_of_columns(model):
    model.SetColUpperBound[1] = 7.5
    assert model.ColUpperBound(1) == 7.5
    refused(model, "Invalid Column number when attempting to SetColUpperBound()",
            lambda: model.SetColUpperBound(9, 5))
    raises(TYPE_MISMATCH, lambda: model.SetColUpperBound(1, "many"))
    model.SetColLowerBound(1, "-1.5")
    assert model.ColLowerBound(1) == -1.5
    refused(model, "Invalid Column number when attempting to SetColLowerBound()",
            lambda: model.SetColLowerBound(9, 5))
    raises(TYPE_MISMATCH, lambda: model.SetColLowerBound(1, None))
    model.SetSetColName(0, "NEW")
    assert model.ColName(0) == "NEW"
    refused(model, "Invalid Column number when attempting to SetColName()", lambda: model.SetColName(9, "N"))
    refused(model, "That name is already in use", lambda: model.SetColName(0, "Y"))
    raises(TYPE_MISMATCH, lambda: model.SetColName(0, None))
    assert model.ColName(0) == "NEW"
    model.SetColType(0, "I")
    assert model.ColType(0) == "I"
    refused(model, "Invalid Column number when attempting to SetColType()", lambda: model.SetColType(9, "I"))
    refused(model, "Invalid Column Type", lambda: model.SetColType(0, "B"))
    assert model.ColType(0) == "I"


def test_rows(model):
    assert model.RowEquation(1) == " - 3.5*Y + 4*Z  <=  0"
    assert (model.ElementValue(1, 1), model.ElementValue(1, 0)) == (-3.5, 0.0)
    assert (model.RowElementCol(1, 1), model.RowElementValue(1, 1)) == (2, 4.0)
    assert (model.RowName(1), model.RowNumberElements(1), model.RowType(1)) == ("LIM", 2, "L")
    assert (model.RowLowerBound(1), model.RowUpperBound(1)) == (0.0, 0.0)
    for query in (lambda: model.RowEquation(9), lambda: model.RowElementCol(9, 7),
                  lambda: model.RowElementValue(9, 7), lambda: model.RowName(9),
                  lambda: model.RowNumberElements(9), lambda: model.RowType(9),
                  lambda: model.RowLowerBound(9), lambda: model.RowUpperBound(9)):
        raises(ROW_9, query)
    for query in (lambda: model.RowElementCol(0, 7), lambda: model.RowElementValue(0, 7)):
        raises(element_7(-2147220971, "LPModel.PropertyGetRow()", 1), query)
    raises((-2147220972, "LPModel.PropertyGetRow()", "Quarvel.dll error: row out of range."),
           lambda: model.ElementValue(9, 9))
    raises((-2147220974, "LPModel.PropertyGetColumn()", "Quarvel.dll error: column out of range."),
           lambda: model.ElementValue(0, 9))


def test_writes_of_rows(model):
    model.SetRowElementValue[0, 1] = 2.5
    assert model.ElementValue(0, 1) == 2.5
    refused(model, "Invalid Element number when attempting to SetRowElementValue()",
            lambda: model.SetRowElementValue(0, 7, 2.5))
    model.SetRowName(0, "GOAL")
    assert model.RowName(0) == "GOAL"
    refused(model, "Spaces are not allowed in row names", lambda: model.SetRowName(0, "A B"))
    refused(model, "Invalid Row number when attempting to SetRowName()", lambda: model.SetRowName(9, "R"))
    model.SetRowType(1, "E")
    assert model.RowType(1) == "E"
    refused(model, "Invalid Row Type", lambda: model.SetRowType(1, "X"))
    raises(SUBSCRIPT, lambda: model.SetRowType(9, "L"))
    model.SetRowLowerBound(1, 3)
    assert model.RowLowerBound(1) == 3.0
    refused(model, "Invalid Row number when attempting to SetRowLowerBound()", lambda: model.SetRowLowerBound(9, 5))
    model.SetRowUpperBound(1, True)
    assert model.RowUpperBound(1) == -1.0
    refused(model, "Invalid Row number when attempting to SetRowUpperBound()", lambda: model.SetRowUpperBound(9, 5))


def test_rows_as_functions(model):
    assert model.RowGradient(1, [7, 7, 7, 7]) == (-1, (0.0, -3.5, 4.0, 7.0))
    assert model.RowGradient(1, numpy.zeros(3)) == (-1, (0.0, -3.5, 4.0))
    raises(SUBSCRIPT, lambda: model.RowGradient(9, [0, 0, 0]))
    raises(SUBSCRIPT, lambda: model.RowGradient(1, [0]))
    raises(TYPE_MISMATCH, lambda: model.RowGradient(1, "123"))
    raises(TYPE_MISMATCH, lambda: model.RowGradient(1, [None] * 3))
    assert model.RowBodyValue(1, [1, 2, 3.5]) == (-1, (1.0, 2.0, 3.5), 7.0)
    assert model.RowBodyValue(1, numpy.array([1, 2, 3.5]), "unused")[2] == 7.0
    raises(SUBSCRIPT, lambda: model.RowBodyValue(1, [1], 0))
    raises(SUBSCRIPT, lambda: model.RowBodyValue(9, [1, 2, 3], 0))
    raises(TYPE_MISMATCH, lambda: model.RowBodyValue(0, 5, 0))


def test_variables_by_reference_get_what_comes_back(model):
    array, answer = VARIANT(pythoncom.VT_BYREF | pythoncom.VT_ARRAY | pythoncom.VT_R8, [0.0] * 3), VARIANT(5, 0.0)
    assert model.RowGradient(VARIANT(3, 1), array)[0] == -1
    assert array.value == (0.0, -3.5, 4.0)
    model.RowBodyValue(1, array, answer)
    assert answer.value == 3.5 * 3.5 + 16
    # A failure leaves the sum so far: the point has no third number.
    answer.value = "old"
    raises(SUBSCRIPT, lambda: model.RowBodyValue(1, [1, 2], answer))
    assert isinstance(answer.value, float)


def test_the_model_as_a_whole(model):
    model.SetModelName = "TOUR"
    assert model.ModelName == "TOUR"
    model.SetModelName(12.5)
    assert model.ModelName == "12.5"
    raises(TYPE_MISMATCH, lambda: model.SetSetModelName(None))
    model.SetModelDescription = "Two\r\nlines \N{GREEK SMALL LETTER LAMDA}"
    assert model.ModelDescription == "Two\r\nlines \N{GREEK SMALL LETTER LAMDA}"
    assert (model.NumberOfRows, model.NumberOfColumns) == (2, 3)
    assert (model.NumberOfBindingRows, model.NumBindingRows) == (1, 1)
    assert (model.NumberOfNonBindingRows, model.NumNonBindingRows) == (1, 1)
    assert (model.BindingRowIndex(0), model.NonBindingRowIndex(0)) == (1, 0)
    for name in ("BindingRowIndex", "NonBindingRowIndex"):
        misspelt = name.replace("Binding", "Bindnig")
        raises((-2147220974, f"LPModel.{name}()", "Quarvel.dll error: column 9 is out of range.  \r\n"
                f"The valid range for {misspelt} is from 0 to 0."), lambda: getattr(model, name)(9))
    assert model.SetDefaultToPlusMinusInfinity(True) is None
    assert repr(model) == "<LPModel '12.5': 2 rows, 3 columns, 4 elements>"


def test_files(model, tmp_path):
    path = tmp_path / "m\N{LATIN SMALL LETTER O WITH DIAERESIS}del.mps"
    assert model.SaveMPSFile(path) == -1
    assert model.SaveMPSFile("") == 1
    assert model.FileLocation == str(path)
    model.desktop = quarvel.ScriptedDesktop(boxes={"offer-to-simplify": "no", "read-problem": "no"})
    model.strMPSFile = path
    assert model.strMPSFile == str(path)
    assert model.StartFileReding() == -1
    assert (model.ReadMPSFileErr, model.RowName(0), model.NumberOfElements) == (-1, "COST", 4)
    model.strMPSFile = str(tmp_path / "missing.mps")
    assert model.StartFileReding() == 0
    assert model.ReadMPSFileErr == 0
    assert "File not found" in model.desktop.boxes[1].text, model.desktop.boxes


def test_reading_and_saving_by_dialogs(tmp_path):
    desktop = quarvel.ScriptedDesktop(files=[ROOT / "examples" / "transport.mps", tmp_path / "out", None, None],
                                      choices=[None, None], boxes={"offer-to-simplify": "no"})
    model = quarvel.LPModel(desktop)
    assert model.ReadMPSFile() == -1
    assert (model.ModelName, model.NumberOfRows) == ("TRANSPORT", 6)
    assert desktop.files[0].title == "Identify the MPS file to open"
    assert desktop.choices[0].title == "Set Default Bounds"
    assert model.SaveAsMPSFile() == -1
    assert (tmp_path / "out").exists() or (tmp_path / "out.mps").exists() or (tmp_path / "out.MPS").exists()
    assert desktop.files[1].saving and desktop.files[1].title == "Save As..."
    assert model.SaveAsMPSFile() == 0
    assert model.ReadMPSFile() == 1
    assert model.ModelName == "TRANSPORT"


def test_views_without_windows(model):
    for call, text in (
            (lambda: model.ViewRow(9, True), "row 9 is out of range.  \r\nRows range from 0 to 1."),
            (lambda: model.ViewCol(9, True), "column 9 is out of range.  \r\nColumns range from 0 to 2."),
            (lambda: model.ViewBindingRow(9, 1), "row 9 is out of range.  \r\nBinding rows range from 0 to 0."),
            (lambda: model.ViewNonBindingRow(9, 0), "row 9 is out of range.  \r\nNon-Binding Rows range from 0 to 0.")):
        refused(model, "Quarvel.dll error: " + text, call)
    for call in (lambda: model.ViewEquations(False), lambda: model.ViewCol(1, False), lambda: model.ViewRow(0, False),
                 lambda: model.ViewNonBindingRow(0, False), lambda: model.ViewBindingRow(0, False)):
        assert call() is None
        assert model.ViewEquationsWindowIsShowing() is False
    assert model.desktop.windows == ["Model Viewer"] * 5


def test_about(model):
    model.DisplayAuthor()
    assert [box.kind for box in model.desktop.boxes] == ["about"]
    assert "Quarvel" in model.desktop.boxes[0].text


def test_simplifying():
    model = small_model(boxes={"offer-log": "no"})
    model.AddRow("CAP")
    model.SetRowType(2, "L")
    model.SetRowUpperBound(2, 6)
    model.AddElement(2, 0, 2)
    assert model.SimplifyMPSModel() is None
    assert (model.NumberOfRows, model.ColUpperBound(0)) == (2, 3.0)


def test_deleting(model):
    assert model.DeleteElement(0, 0) == -1
    assert model.RowNumberElements(0) == 1
    assert model.DeleteElement(9, 0) == 0
    raises(SUBSCRIPT, lambda: model.DeleteElement(1, 9))
    assert (model.DeleteColumn(1), model.NumberOfColumns) == (-1, 2)
    assert (model.DeleteRow(0), model.NumberOfRows) == (-1, 1)
    refused(model, "Cannot remove the only row.\r\nRename it instead of removing it and creating a new one.",
            lambda: model.DeleteRow(0))
    assert model.NumberOfRows == 1


def test_new_models(model):
    model.MakeNewModel()
    assert (model.NumberOfRows, model.NumberOfColumns, model.ModelName) == (0, 0, "")
    seen = []
    model.desktop = quarvel.Desktop(
        Window=lambda caption: seen.append((caption, model.ViewEquationsWindowIsShowing())))
    assert model.NewMPSModel() is None
    assert seen == [("Model Viewer", True)]


def test_a_model_without_anything():
    model = quarvel.LPModel(quarvel.ScriptedDesktop())
    assert (model.NumberOfRows, model.NumberOfColumns, model.NumberOfElements) == (0, 0, 0)
    assert (model.ModelName, model.FileLocation, model.ModelDescription) == ("", "", "")
    with pytest.raises(LPModelError) as caught:
        model.RowName(0)
    assert caught.value.number == -2147220972
    assert model.SaveMPSFile("/nowhere/x.mps") == 1
    assert [box.text for box in model.desktop.boxes] == ["Path not found"]


def test_numbers_are_converted_as_the_automation_object_does(model):
    assert model.ColName("1") == "Y"
    assert model.ColName(1.5) == "Z"  # halves go to the even neighbour
    assert model.ColName(0.5) == "X"
    assert model.ColName(numpy.int64(1)) == "Y"
    raises(OVERFLOW, lambda: model.ColName(2**31))
    raises(OVERFLOW, lambda: model.ColName(10**400))
    raises(OVERFLOW, lambda: model.ColName(float("nan")))
    raises(TYPE_MISMATCH, lambda: model.ColName("x"))
    raises(TYPE_MISMATCH, lambda: model.ColName(None))
    raises(TYPE_MISMATCH, lambda: model.ColName(object()))
    raises(TYPE_MISMATCH, lambda: model.AddRow("\ud800"))
    raises(ROW_9, lambda: model.RowName(i=9))
    model.SetRowName(0, True)
    assert model.RowName(0) == "True"


def test_errors_are_those_of_pywin32_too(model):
    with pytest.raises(pythoncom.com_error) as caught:
        model.RowName(9)
    error = caught.value
    assert error.hresult == -2147352567
    assert error.excepinfo == (0, ROW_9[1], ROW_9[2], None, 0, ROW_9[0])
    assert str(error).endswith("(error 0x80040214 from LPModel.PropertyGetRow())")
    again = pickle.loads(pickle.dumps(error))
    assert (type(again), again.args) == (LPModelError, error.args)
    with pytest.raises(LPModelError) as caught:
        model.SetRowType(9, "L")
    assert caught.value.excepinfo[5] == -2146828279


def test_makers_of_scripts():
    assert isinstance(Dispatch("Quarvel.LPModel"), quarvel.LPModel)
    assert isinstance(gencache.EnsureDispatch("quarvel.lpmodel"), quarvel.LPModel)
    raises((-2147221005, "", "Invalid class string: Quarvel.Other"), lambda: Dispatch("Quarvel.Other"))


def test_models_are_not_copied(model):
    for way in (copy.copy, copy.deepcopy, pickle.dumps):
        with pytest.raises(TypeError, match="neither copied nor pickled"):
            way(model)
