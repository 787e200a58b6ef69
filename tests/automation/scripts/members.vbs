' Every member by name from VBScript, right and wrong. Prints each failure and, at the end, how many
' checks were made. The test that runs this answers the boxes and compares their texts. Arguments: a
' folder to write in.
Option Explicit
On Error Resume Next

Dim checks, failures, model, folder
checks = 0
failures = 0
folder = WScript.Arguments(0)
Set model = CreateObject("Quarvel.LPModel")

Sub Check(what, got, wanted)
  checks = checks + 1
  If Err.Number <> 0 Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": error " & Err.Number & " " & Err.Source & ": " & Err.Description
  ElseIf TypeName(got) <> TypeName(wanted) Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": " & TypeName(got) & " instead of " & TypeName(wanted)
  ElseIf got <> wanted Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": " & got & " instead of " & wanted
  End If
  Err.Clear
End Sub

Sub CheckError(what, number, source, description)
  checks = checks + 1
  If Err.Number <> number Or Err.Source <> source Or Err.Description <> description Then
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": error " & Err.Number & " [" & Err.Source & "] [" & Err.Description & "]"
  End If
  Err.Clear
End Sub

Sub CheckColumnError(what)
  CheckError what, -2147220974, "LPModel.PropertyGetColumn()", "Quarvel.dll error: column 9 is out of range.  " & vbCrLf & "Columns range from 0 to 2."
End Sub

Sub CheckRowError(what)
  CheckError what, -2147220972, "LPModel.PropertyGetRow()", "Quarvel.dll error: row 9 is out of range.  " & vbCrLf & "Rows range from 0 to 1."
End Sub

Sub CheckElementError(what, number, source, last)
  CheckError what, number, source, "Quarvel.dll error: element 7 is out of range.  " & vbCrLf & "Elements in this row range from 0 to " & last & "."
End Sub

Sub CheckTypeMismatch(what)
  CheckError what, 13, "", "Type mismatch"
End Sub

Sub CheckSubscript(what)
  CheckError what, 9, "", "Subscript out of range"
End Sub

Dim unused, i, gradient(3), point, answer, yes

' A model by hand.
model.MakeNewModel
Check "AddRow", model.AddRow("COST"), CInt(-1)
model.SetRowType(0) = "N"
Check "AddRow", model.AddRow("LIM"), CInt(-1)
model.SetRowType(1) = "L"
For Each i In Array("X", "Y", "Z")
  Check "AddColumn", model.AddColumn(i), CInt(-1)
Next
model.AddElement 0, 0, 1
model.AddElement 0, 1, 2
model.AddElement 1, 1, -3.5
model.AddElement 1, 2, 4
Check "AddElement", model.NumberOfElements, CLng(4)
model.AddElement 0, 9, 1
Check "AddElement out of range", model.NumberOfElements, CLng(4)
Check "AddRow twice", model.AddRow("LIM"), CInt(0)
Check "AddColumn without a name", model.AddColumn(""), CInt(0)

' The public variables.
model.strMPSFile = "a.mps"
Check "strMPSFile", model.strMPSFile, "a.mps"
model.ReadMPSFileErr = -1
Check "ReadMPSFileErr", model.ReadMPSFileErr, CInt(-1)
model.ReadMPSFileErr = 70000
checks = checks + 1
If Err.Number <> 6 Then failures = failures + 1 : WScript.Echo "FAILED ReadMPSFileErr: error " & Err.Number
Err.Clear
model.frmViewEquationsIsShowing = True
Check "frmViewEquationsIsShowing", model.frmViewEquationsIsShowing, True
Check "ViewEquationsWindowIsShowing", model.ViewEquationsWindowIsShowing, True
Check "ViewEquationsWindowIsShowing", model.ViewEquationsWindowIsShowing(), True
model.frmViewEquationsIsShowing = False
model.showFrm = "kept"
Check "showFrm", model.showFrm, "kept"
Set model.showFrm = model
Check "showFrm as an object", model.showFrm.NumberOfRows, CLng(2)
model.showFrm = Empty

' Columns.
i = 1
Check "ColElementrow", model.ColElementrow(i, 1), CLng(1)
unused = model.ColElementrow(9, 7) : CheckColumnError "ColElementrow"
unused = model.ColElementrow(0, 7) : CheckElementError "ColElementrow", -2147220973, "LPModel.PropertyGetColumn()", 0
Check "ColElementvalue", model.ColElementvalue(i, 1), -3.5
unused = model.ColElementvalue(9, 7) : CheckColumnError "ColElementvalue"
unused = model.ColElementvalue(0, 7) : CheckElementError "ColElementvalue", -2147220973, "LPModel.PropertyGetColumn()", 0
Check "ColNumberElements", model.ColNumberElements(i), CLng(2)
unused = model.ColNumberElements(9) : CheckColumnError "ColNumberElements"
model.SetColUpperBound(i) = 7.5
Check "ColUpperBound", model.ColUpperBound(i), 7.5
unused = model.ColUpperBound(9) : CheckColumnError "ColUpperBound"
model.SetColUpperBound(9) = 5 : Check "SetColUpperBound out of range", Err.Number, CLng(0)
model.SetColUpperBound(i) = "many" : CheckTypeMismatch "SetColUpperBound"
model.SetColLowerBound(i) = "-1.5"
Check "ColLowerBound", model.ColLowerBound(i), -1.5
unused = model.ColLowerBound(9) : CheckColumnError "ColLowerBound"
model.SetColLowerBound(9) = 5 : Check "SetColLowerBound out of range", Err.Number, CLng(0)
model.SetColLowerBound(i) = Null : CheckTypeMismatch "SetColLowerBound"
model.SetColName(0) = "NEW"
Check "ColName", model.ColName(0), "NEW"
unused = model.ColName(9) : CheckColumnError "ColName"
model.SetColName(9) = "N" : Check "SetColName out of range", Err.Number, CLng(0)
model.SetColName(0) = "Y" : Check "SetColName of another", model.ColName(0), "NEW"
model.SetColName(0) = Null : CheckTypeMismatch "SetColName"
model.SetColType(0) = "I"
Check "ColType", model.ColType(0), "I"
unused = model.ColType(9) : CheckColumnError "ColType"
model.SetColType(9) = "I" : Check "SetColType out of range", Err.Number, CLng(0)
model.SetColType(0) = "B" : Check "SetColType of no type", model.ColType(0), "I"

' Rows.
Check "RowEquation", model.RowEquation(1), " - 3.5*Y + 4*Z  <=  0"
unused = model.RowEquation(9) : CheckRowError "RowEquation"
Check "ElementValue", model.ElementValue(1, 1), -3.5
unused = model.ElementValue(9, 9) : CheckError "ElementValue", -2147220972, "LPModel.PropertyGetRow()", "Quarvel.dll error: row out of range."
unused = model.ElementValue(0, 9) : CheckError "ElementValue", -2147220974, "LPModel.PropertyGetColumn()", "Quarvel.dll error: column out of range."
Check "RowElementCol", model.RowElementCol(1, i), CLng(2)
unused = model.RowElementCol(9, 7) : CheckRowError "RowElementCol"
unused = model.RowElementCol(0, 7) : CheckElementError "RowElementCol", -2147220971, "LPModel.PropertyGetRow()", 1
Check "RowElementValue", model.RowElementValue(1, i), 4.0
unused = model.RowElementValue(9, 7) : CheckRowError "RowElementValue"
unused = model.RowElementValue(0, 7) : CheckElementError "RowElementValue", -2147220971, "LPModel.PropertyGetRow()", 1
model.SetRowElementValue(0, 1) = 2.5
Check "SetRowElementValue", model.ElementValue(0, 1), 2.5
model.SetRowElementValue(0, 7) = 2.5 : Check "SetRowElementValue out of range", Err.Number, CLng(0)
model.SetRowName(0) = "GOAL"
Check "RowName", model.RowName(0), "GOAL"
unused = model.RowName(9) : CheckRowError "RowName"
model.SetRowName(0) = "A B" : Check "SetRowName with a blank", model.RowName(0), "GOAL"
model.SetRowName(9) = "R" : Check "SetRowName out of range", Err.Number, CLng(0)
Check "RowNumberElements", model.RowNumberElements(i), CLng(2)
unused = model.RowNumberElements(9) : CheckRowError "RowNumberElements"
model.SetRowType(1) = "E"
Check "RowType", model.RowType(1), "E"
unused = model.RowType(9) : CheckRowError "RowType"
model.SetRowType(1) = "X" : Check "SetRowType of no type", model.RowType(1), "E"
model.SetRowType(9) = "L" : CheckSubscript "SetRowType"
model.SetRowLowerBound(1) = 3
Check "RowLowerBound", model.RowLowerBound(1), 3.0
unused = model.RowLowerBound(9) : CheckRowError "RowLowerBound"
model.SetRowLowerBound(9) = 5 : Check "SetRowLowerBound out of range", Err.Number, CLng(0)
model.SetRowUpperBound(1) = True
Check "RowUpperBound", model.RowUpperBound(1), -1.0
unused = model.RowUpperBound(9) : CheckRowError "RowUpperBound"
model.SetRowUpperBound(9) = 5 : Check "SetRowUpperBound out of range", Err.Number, CLng(0)

' Rows as functions.
Check "RowGradient", model.RowGradient(1, gradient), CInt(-1)
Check "Gradient", gradient(0) & " " & gradient(1) & " " & gradient(2) & " " & TypeName(gradient(3)), "0 -3.5 4 Empty"
unused = model.RowGradient(9, gradient) : CheckSubscript "RowGradient"
unused = model.RowGradient(1, Array(0)) : CheckSubscript "RowGradient with a short array"
point = Array(1, 2, 3.5)
answer = 0
Check "RowBodyValue", model.RowBodyValue(i, point, answer), CInt(-1)
Check "Answer", answer, 7.0
unused = model.RowBodyValue(1, Array(1), answer) : CheckSubscript "RowBodyValue"
unused = model.RowBodyValue(9, point, answer) : CheckSubscript "RowBodyValue"
unused = model.RowBodyValue(0, 5, answer)
checks = checks + 1
If Err.Number <> 13 Then failures = failures + 1 : WScript.Echo "FAILED RowBodyValue: error " & Err.Number
Err.Clear

' The model as a whole.
model.SetModelName = "TOUR"
Check "ModelName", model.ModelName, "TOUR"
model.SetModelDescription = "Two" & vbCrLf & "lines"
Check "ModelDescription", model.ModelDescription, "Two" & vbCrLf & "lines"
Check "NumberOfRows", model.NumberOfRows, CLng(2)
Check "NumberOfColumns", model.NumberOfColumns, CLng(3)
Check "NumberOfBindingRows", model.NumberOfBindingRows, CLng(1)
Check "NumBindingRows", model.NumBindingRows, CLng(1)
Check "NumberOfNonBindingRows", model.NumberOfNonBindingRows, CLng(1)
Check "NumNonBindingRows", model.NumNonBindingRows, CLng(1)
Check "BindingRowIndex", model.BindingRowIndex(0), CLng(1)
unused = model.BindingRowIndex(9) : CheckError "BindingRowIndex", -2147220974, "LPModel.BindingRowIndex()", "Quarvel.dll error: column 9 is out of range.  " & vbCrLf & "The valid range for BindnigRowIndex is from 0 to 0."
Check "NonBindingRowIndex", model.NonBindingRowIndex(0), CLng(0)
unused = model.NonBindingRowIndex(9) : CheckError "NonBindingRowIndex", -2147220974, "LPModel.NonBindingRowIndex()", "Quarvel.dll error: column 9 is out of range.  " & vbCrLf & "The valid range for NonBindnigRowIndex is from 0 to 0."
yes = True
model.SetDefaultToPlusMinusInfinity yes
Check "SetDefaultToPlusMinusInfinity", Err.Number, CLng(0)

' Files and boxes.
model.DisplayAuthor
Check "DisplayAuthor", Err.Number, CLng(0)
Dim path : path = folder & "\vb.mps"
Check "SaveMPSFile", model.SaveMPSFile(path), CInt(-1)
Check "SaveMPSFile without a path", model.SaveMPSFile(""), CInt(1)
Check "FileLocation", model.FileLocation, path
model.strMPSFile = path
Check "StartFileReding", model.StartFileReding(), CInt(-1)
Check "StartFileReding", model.RowName(0), "GOAL"
model.ViewRow 9, True
model.ViewCol 9, True
model.ViewBindingRow 9, True
model.ViewNonBindingRow 9, yes
Check "views out of range", Err.Number, CLng(0)

' Deleting.
Check "DeleteElement", model.DeleteElement(0, 0), CInt(-1)
Check "DeleteElement", model.RowNumberElements(0), CLng(1)
Check "DeleteElement out of range", model.DeleteElement(9, 0), CInt(0)
unused = model.DeleteElement(1, 9) : CheckSubscript "DeleteElement"
Check "DeleteColumn", model.DeleteColumn(1), CInt(-1)
Check "DeleteColumn", model.NumberOfColumns, CLng(2)
Check "DeleteRow", model.DeleteRow(0), CInt(-1)
Check "DeleteRow", model.NumberOfRows, CLng(1)
Check "DeleteRow of the only one", model.DeleteRow(0), CInt(-1)
Check "DeleteRow of the only one", model.NumberOfRows, CLng(1)

' What does not exist.
unused = model.NoSuchMember
checks = checks + 1
If Err.Number <> 438 Then failures = failures + 1 : WScript.Echo "FAILED NoSuchMember: error " & Err.Number
Err.Clear
unused = model.RowName(0, 1)
checks = checks + 1
If Err.Number <> 450 Then failures = failures + 1 : WScript.Echo "FAILED RowName of two: error " & Err.Number
Err.Clear

Set model = Nothing
WScript.Echo checks & " checks, " & failures & " failed"
