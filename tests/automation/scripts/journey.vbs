' What a user does in windows: chooses a file to read, looks at the model, saves it elsewhere. The
' test that runs this is the user.
Option Explicit
Dim model : Set model = CreateObject("Quarvel.LPModel")
WScript.Echo "read " & model.ReadMPSFile()
WScript.Echo model.ModelName & model.RowEquation(1)
model.ViewEquations True
WScript.Echo "showing " & CInt(model.ViewEquationsWindowIsShowing)
model.ViewRow 1, False
WScript.Echo "showing " & CInt(model.ViewEquationsWindowIsShowing)
WScript.Echo "saved " & model.SaveAsMPSFile()
model.NewMPSModel
WScript.Echo "new " & model.NumberOfRows & model.ModelName
