Attribute VB_Name = "QuarvelTour"
' A tour of the component from VBA: read, query, edit, simplify, save, view. Import this module and
' set a reference to "Quarvel" (Tools, References) for early binding.
Option Explicit

Public Sub QuarvelTour()
    Dim model As Quarvel.LPModel
    Set model = New Quarvel.LPModel

    ' Read: the user chooses the file.
    If model.ReadMPSFile() <> -1 Then
        MsgBox "No model was read."
        Exit Sub
    End If

    ' Query: all numbers start at 0.
    Debug.Print model.ModelName & ": " & model.NumberOfRows & " rows, " & _
        model.NumberOfColumns & " columns, " & model.NumberOfElements & " elements"
    Dim i As Long
    For i = 0 To model.NumberOfRows - 1
        Debug.Print model.RowName(i) & ":" & model.RowEquation(i)
    Next i

    ' A row's value at a point: arrays of Double that start at 0.
    Dim point() As Double
    ReDim point(0 To model.NumberOfColumns - 1)
    For i = 0 To UBound(point)
        point(i) = 1
    Next i
    Dim answer As Double
    model.RowBodyValue 0, point, answer
    Debug.Print model.RowName(0) & " at ones: " & answer

    ' Edit: a limit of 200 on the first column, as a row of its own.
    Dim row As Long
    model.AddRow "CAP"
    row = model.NumberOfRows - 1
    model.SetRowType(row) = "L"
    model.SetRowUpperBound(row) = 200
    model.AddElement row, 0, 1

    ' A bad number is an error that tells what was wrong; nothing changes.
    Dim unused As String
    On Error Resume Next
    unused = model.RowName(row + 1)
    If Err.Number <> 0 Then Debug.Print "error " & Err.Number & " from " & Err.Source
    On Error GoTo 0

    ' Simplify: the row becomes a bound of its column.
    model.SimplifyMPSModel
    Debug.Print model.ColName(0) & " is at most " & model.ColUpperBound(0)

    ' Save beside the file that was read.
    Dim path As String
    path = Left$(model.FileLocation, Len(model.FileLocation) - 4) & "_tour.mps"
    Debug.Print "saved: " & model.SaveMPSFile(path)

    ' View, without editing; the call returns when the window is closed.
    model.ViewEquations False
End Sub
