// A tour of the component from JScript: read, query, edit, simplify, save, view.
//   cscript //nologo tour.js

var model = new ActiveXObject("Quarvel.LPModel");

// Read: the user chooses the file.
if (model.ReadMPSFile() != -1) {
  WScript.Echo("No model was read.");
  WScript.Quit(1);
}

// Query: all numbers start at 0.
WScript.Echo(model.ModelName + ": " + model.NumberOfRows + " rows, " + model.NumberOfColumns +
    " columns, " + model.NumberOfElements + " elements");
for (var i = 0; i < model.NumberOfRows; ++i) {
  WScript.Echo(model.RowName(i) + ":" + model.RowEquation(i));
}

// A row's value at a point. JScript passes numbers by value, so that RowBodyValue's answer cannot
// come back; the row's coefficients do, into an array of the script.
var gradient = new Array(model.NumberOfColumns);
model.RowGradient(0, gradient);
var answer = 0;
for (i = 0; i < gradient.length; ++i) answer += gradient[i];
WScript.Echo(model.RowName(0) + " at ones: " + answer);

// Edit: a limit of 200 on the first column, as a row of its own.
model.AddRow("CAP");
var row = model.NumberOfRows - 1;
model.SetRowType(row) = "L";
model.SetRowUpperBound(row) = 200;
model.AddElement(row, 0, 1);

// A bad number is an error that tells what was wrong; nothing changes. JScript has no source of
// errors.
try {
  model.RowName(row + 1);
} catch (error) {
  WScript.Echo("error " + error.number + " from LPModel.PropertyGetRow()");
}

// Simplify: the row becomes a bound of its column.
model.SimplifyMPSModel();
WScript.Echo(model.ColName(0) + " is at most " + model.ColUpperBound(0));

// Save beside the file that was read.
var location = model.FileLocation;
var path = location.substr(0, location.length - 4) + "_tour.mps";
WScript.Echo("saved: " + model.SaveMPSFile(path));

// View, without editing; the call returns when the window is closed.
model.ViewEquations(false);
