' A tour of the component from VBScript: read, query, edit, simplify, save, view.
'   cscript //nologo tour.vbs
Option Explicit

Dim model, i, row, path
Set model = CreateObject("Quarvel.LPModel")

' Read: the user chooses the file.
If model.ReadMPSFile() <> -1 Then
  WScript.Echo "No model was read."
  WScript.Quit 1
End If

' Query: all numbers start at 0.
WScript.Echo model.ModelName & ": " & model.NumberOfRows & " rows, " & model.NumberOfColumns & " columns, " & model.NumberOfElements & " elements"
For i = 0 To model.NumberOfRows - 1
  WScript.Echo model.RowName(i) & ":" & model.RowEquation(i)
Next

' A row's value at a point: the arrays count from 0 too, and the answer comes back in a variable.
' Slots that the model has no columns for are not looked at.
Dim point(99), answer
For i = 0 To UBound(point)
  point(i) = 1
Next
model.RowBodyValue 0, point, answer
WScript.Echo model.RowName(0) & " at ones: " & answer

' Edit: a limit of 200 on the first column, as a row of its own.
model.AddRow "CAP"
row = model.NumberOfRows - 1
model.SetRowType(row) = "L"
model.SetRowUpperBound(row) = 200
model.AddElement row, 0, 1

' A bad number is an error that tells what was wrong; nothing changes.
On Error Resume Next
model.RowName row + 1
If Err.Number <> 0 Then WScript.Echo "error " & Err.Number & " from " & Err.Source
On Error GoTo 0

' Simplify: the row becomes a bound of its column.
model.SimplifyMPSModel
WScript.Echo model.ColName(0) & " is at most " & model.ColUpperBound(0)

' Save beside the file that was read.
path = Left(model.FileLocation, Len(model.FileLocation) - 4) & "_tour.mps"
WScript.Echo "saved: " & model.SaveMPSFile(path)

' View, without editing; the call returns when the window is closed.
model.ViewEquations False
