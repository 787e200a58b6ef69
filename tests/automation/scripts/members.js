// Every member by name from JScript, right and wrong. Prints each failure and, at the end, how many
// checks were made. The test that runs this answers the boxes and compares their texts. Arguments: a
// folder to write in. JScript shows an error's number and description, not its source.

var checks = 0;
var failures = 0;
var folder = WScript.Arguments(0);
var model = new ActiveXObject("Quarvel.LPModel");

function Fail(text) {
  failures++;
  WScript.Echo("FAILED " + text);
}

function Check(what, got, wanted) {
  checks++;
  if (typeof got != typeof wanted || got !== wanted) {
    Fail(what + ": " + got + " (" + typeof got + ") instead of " + wanted);
  }
}

function CheckError(what, number, description, action) {
  checks++;
  try {
    action();
  } catch (error) {
    if (error.number != number || error.description != description) {
      Fail(what + ": error " + error.number + " [" + error.description + "]");
    }
    return;
  }
  Fail(what + ": no error");
}

var COLUMN = -2147220974, COLUMN_ELEMENT = -2147220973, ROW = -2147220972, ROW_ELEMENT = -2147220971;
var SUBSCRIPT = -2146828279, MISMATCH = -2146828275;

function CheckColumnError(what, action) {
  CheckError(what, COLUMN,
      "Quarvel.dll error: column 9 is out of range.  \r\nColumns range from 0 to 2.", action);
}
function CheckRowError(what, action) {
  CheckError(what, ROW, "Quarvel.dll error: row 9 is out of range.  \r\nRows range from 0 to 1.", action);
}
function CheckElementError(what, number, last, action) {
  CheckError(what, number, "Quarvel.dll error: element 7 is out of range.  \r\n" +
      "Elements in this row range from 0 to " + last + ".", action);
}
function CheckSubscript(what, action) { CheckError(what, SUBSCRIPT, "Subscript out of range", action); }
function CheckMismatch(what, action) { CheckError(what, MISMATCH, "Type mismatch", action); }

// A model by hand.
model.MakeNewModel();
Check("AddRow", model.AddRow("COST"), -1);
model.SetRowType(0) = "N";
Check("AddRow", model.AddRow("LIM"), -1);
model.SetRowType(1) = "L";
var names = ["X", "Y", "Z"];
for (var n = 0; n < names.length; ++n) Check("AddColumn", model.AddColumn(names[n]), -1);
model.AddElement(0, 0, 1);
model.AddElement(0, 1, 2);
model.AddElement(1, 1, -3.5);
model.AddElement(1, 2, 4);
Check("AddElement", model.NumberOfElements, 4);
model.AddElement(0, 9, 1);
Check("AddElement out of range", model.NumberOfElements, 4);
Check("AddRow twice", model.AddRow("LIM"), 0);
Check("AddColumn without a name", model.AddColumn(""), 0);

// The public variables.
model.strMPSFile = "a.mps";
Check("strMPSFile", model.strMPSFile, "a.mps");
model.ReadMPSFileErr = -1;
Check("ReadMPSFileErr", model.ReadMPSFileErr, -1);
checks++;
try {
  model.ReadMPSFileErr = 70000;
  Fail("ReadMPSFileErr: no error");
} catch (error) {
  Check("ReadMPSFileErr after a number too great", model.ReadMPSFileErr, -1);
}
model.frmViewEquationsIsShowing = true;
Check("frmViewEquationsIsShowing", model.frmViewEquationsIsShowing, true);
Check("ViewEquationsWindowIsShowing", model.ViewEquationsWindowIsShowing(), true);
model.frmViewEquationsIsShowing = false;
model.showFrm = "kept";
Check("showFrm", model.showFrm, "kept");
var kept = {size: 5};
model.showFrm = kept;
Check("showFrm as an object", model.showFrm.size, 5);
model.showFrm = null;

// Columns.
Check("ColElementrow", model.ColElementrow(1, 1), 1);
CheckColumnError("ColElementrow", function() { model.ColElementrow(9, 7); });
CheckElementError("ColElementrow", COLUMN_ELEMENT, 0, function() { model.ColElementrow(0, 7); });
Check("ColElementvalue", model.ColElementvalue(1, 1), -3.5);
CheckColumnError("ColElementvalue", function() { return model.ColElementvalue(9, 7); });
CheckElementError("ColElementvalue", COLUMN_ELEMENT, 0, function() { model.ColElementvalue(0, 7); });
Check("ColNumberElements", model.ColNumberElements(1), 2);
CheckColumnError("ColNumberElements", function() { return model.ColNumberElements(9); });
model.SetColUpperBound(1) = 7.5;
Check("ColUpperBound", model.ColUpperBound(1), 7.5);
CheckColumnError("ColUpperBound", function() { return model.ColUpperBound(9); });
model.SetColUpperBound(9) = 5;
CheckMismatch("SetColUpperBound", function() { model.SetColUpperBound(1) = "many"; });
model.SetColLowerBound(1) = "-1.5";
Check("ColLowerBound", model.ColLowerBound(1), -1.5);
CheckColumnError("ColLowerBound", function() { return model.ColLowerBound(9); });
model.SetColLowerBound(9) = 5;
CheckMismatch("SetColLowerBound", function() { model.SetColLowerBound(1) = null; });
model.SetColName(0) = "NEW";
Check("ColName", model.ColName(0), "NEW");
CheckColumnError("ColName", function() { return model.ColName(9); });
model.SetColName(9) = "N";
model.SetColName(0) = "Y";
Check("SetColName of another", model.ColName(0), "NEW");
CheckMismatch("SetColName", function() { model.SetColName(0) = null; });
model.SetColType(0) = "I";
Check("ColType", model.ColType(0), "I");
CheckColumnError("ColType", function() { return model.ColType(9); });
model.SetColType(9) = "I";
model.SetColType(0) = "B";
Check("SetColType of no type", model.ColType(0), "I");

// Rows.
Check("RowEquation", model.RowEquation(1), " - 3.5*Y + 4*Z  <=  0");
CheckRowError("RowEquation", function() { return model.RowEquation(9); });
Check("ElementValue", model.ElementValue(1, 1), -3.5);
CheckError("ElementValue", ROW, "Quarvel.dll error: row out of range.",
    function() { return model.ElementValue(9, 9); });
CheckError("ElementValue", COLUMN, "Quarvel.dll error: column out of range.",
    function() { return model.ElementValue(0, 9); });
Check("RowElementCol", model.RowElementCol(1, 1), 2);
CheckRowError("RowElementCol", function() { return model.RowElementCol(9, 7); });
CheckElementError("RowElementCol", ROW_ELEMENT, 1, function() { model.RowElementCol(0, 7); });
Check("RowElementValue", model.RowElementValue(1, 1), 4);
CheckRowError("RowElementValue", function() { return model.RowElementValue(9, 7); });
CheckElementError("RowElementValue", ROW_ELEMENT, 1, function() { model.RowElementValue(0, 7); });
model.SetRowElementValue(0, 1) = 2.5;
Check("SetRowElementValue", model.ElementValue(0, 1), 2.5);
model.SetRowElementValue(0, 7) = 2.5;
model.SetRowName(0) = "GOAL";
Check("RowName", model.RowName(0), "GOAL");
CheckRowError("RowName", function() { return model.RowName(9); });
model.SetRowName(0) = "A B";
Check("SetRowName with a blank", model.RowName(0), "GOAL");
model.SetRowName(9) = "R";
Check("RowNumberElements", model.RowNumberElements(1), 2);
CheckRowError("RowNumberElements", function() { return model.RowNumberElements(9); });
model.SetRowType(1) = "E";
Check("RowType", model.RowType(1), "E");
CheckRowError("RowType", function() { return model.RowType(9); });
model.SetRowType(1) = "X";
Check("SetRowType of no type", model.RowType(1), "E");
CheckSubscript("SetRowType", function() { model.SetRowType(9) = "L"; });
model.SetRowLowerBound(1) = 3;
Check("RowLowerBound", model.RowLowerBound(1), 3);
CheckRowError("RowLowerBound", function() { return model.RowLowerBound(9); });
model.SetRowLowerBound(9) = 5;
model.SetRowUpperBound(1) = true;
Check("RowUpperBound", model.RowUpperBound(1), -1);
CheckRowError("RowUpperBound", function() { return model.RowUpperBound(9); });
model.SetRowUpperBound(9) = 5;

// Rows as functions. A script's own array is written into; an answer is not, since JScript passes
// numbers by value.
var gradient = [9, 9, 9, 9];
Check("RowGradient", model.RowGradient(1, gradient), -1);
Check("Gradient", gradient.join(" "), "0 -3.5 4 9");
CheckSubscript("RowGradient", function() { return model.RowGradient(9, gradient); });
CheckSubscript("RowGradient with a short array", function() { return model.RowGradient(1, [0]); });
Check("RowBodyValue", model.RowBodyValue(1, [1, 2, 3.5], 0), -1);
CheckSubscript("RowBodyValue", function() { return model.RowBodyValue(1, [1], 0); });
CheckSubscript("RowBodyValue", function() { return model.RowBodyValue(9, [1, 2, 3], 0); });

// The model as a whole.
model.SetModelName = "TOUR";
Check("ModelName", model.ModelName, "TOUR");
model.SetModelDescription = "Two\r\nlines";
Check("ModelDescription", model.ModelDescription, "Two\r\nlines");
Check("NumberOfRows", model.NumberOfRows, 2);
Check("NumberOfColumns", model.NumberOfColumns, 3);
Check("NumberOfBindingRows", model.NumberOfBindingRows, 1);
Check("NumBindingRows", model.NumBindingRows, 1);
Check("NumberOfNonBindingRows", model.NumberOfNonBindingRows, 1);
Check("NumNonBindingRows", model.NumNonBindingRows, 1);
Check("BindingRowIndex", model.BindingRowIndex(0), 1);
CheckError("BindingRowIndex", COLUMN, "Quarvel.dll error: column 9 is out of range.  \r\n" +
    "The valid range for BindnigRowIndex is from 0 to 0.",
    function() { return model.BindingRowIndex(9); });
Check("NonBindingRowIndex", model.NonBindingRowIndex(0), 0);
CheckError("NonBindingRowIndex", COLUMN, "Quarvel.dll error: column 9 is out of range.  \r\n" +
    "The valid range for NonBindnigRowIndex is from 0 to 0.",
    function() { return model.NonBindingRowIndex(9); });
model.SetDefaultToPlusMinusInfinity(true);

// Files and boxes.
model.DisplayAuthor();
var path = folder + "\\js.mps";
Check("SaveMPSFile", model.SaveMPSFile(path), -1);
Check("SaveMPSFile without a path", model.SaveMPSFile(""), 1);
Check("FileLocation", model.FileLocation, path);
model.strMPSFile = path;
Check("StartFileReding", model.StartFileReding(), -1);
Check("StartFileReding", model.RowName(0), "GOAL");
model.ViewRow(9, true);
model.ViewCol(9, true);
model.ViewBindingRow(9, true);
model.ViewNonBindingRow(9, true);

// Deleting.
Check("DeleteElement", model.DeleteElement(0, 0), -1);
Check("DeleteElement", model.RowNumberElements(0), 1);
Check("DeleteElement out of range", model.DeleteElement(9, 0), 0);
CheckSubscript("DeleteElement", function() { return model.DeleteElement(1, 9); });
Check("DeleteColumn", model.DeleteColumn(1), -1);
Check("DeleteColumn", model.NumberOfColumns, 2);
Check("DeleteRow", model.DeleteRow(0), -1);
Check("DeleteRow", model.NumberOfRows, 1);
Check("DeleteRow of the only one", model.DeleteRow(0), -1);
Check("DeleteRow of the only one", model.NumberOfRows, 1);

// A wrong count of arguments: one number from engines that translate the code, another from those
// that do not.
checks++;
try {
  model.RowName(0, 1);
  Fail("RowName of two: no error");
} catch (error) {
  if (error.number != -2146827838 && error.number != -2147352562) {
    Fail("RowName of two: error " + error.number);
  }
}

model = null;
WScript.Echo(checks + " checks, " + failures + " failed");
