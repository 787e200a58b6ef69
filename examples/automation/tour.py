"""A tour of the component from Python: read, query, edit, simplify, save, view.

Needs pywin32. Where there is no Windows it needs the package quarvel, and one line is another one:

    from quarvel.component import VARIANT, gencache, pythoncom

Set... members are properties with arguments, which Python cannot assign to: the generated class of
EnsureDispatch has a method for each.
"""

import sys

from win32com.client import VARIANT, gencache, pythoncom

model = gencache.EnsureDispatch("Quarvel.LPModel")

# Read: the user chooses the file.
if model.ReadMPSFile() != -1:
    sys.exit("No model was read.")

# Query: all numbers start at 0.
print(f"{model.ModelName}: {model.NumberOfRows} rows, {model.NumberOfColumns} columns, "
      f"{model.NumberOfElements} elements")
for i in range(model.NumberOfRows):
    print(f"{model.RowName(i)}:{model.RowEquation(i)}")

# A row's value at a point: arrays and answers that come back are variants by reference.
point = VARIANT(pythoncom.VT_BYREF | pythoncom.VT_ARRAY | pythoncom.VT_R8,
                [1.0] * model.NumberOfColumns)
answer = VARIANT(pythoncom.VT_BYREF | pythoncom.VT_R8, 0.0)
model.RowBodyValue(0, point, answer)
print(f"{model.RowName(0)} at ones: {answer.value:g}")

# Edit: a limit of 200 on the first column, as a row of its own.
model.AddRow("CAP")
row = model.NumberOfRows - 1
model.SetSetRowType(row, "L")
model.SetSetRowUpperBound(row, 200)
model.AddElement(row, 0, 1)

# A bad number is an error that tells what was wrong; nothing changes.
try:
    model.RowName(row + 1)
except pythoncom.com_error as error:
    _, source, description, _, _, number = error.excepinfo
    print(f"error {number} from {source}")

# Simplify: the row becomes a bound of its column.
model.SimplifyMPSModel()
print(f"{model.ColName(0)} is at most {model.ColUpperBound(0):g}")

# Save beside the file that was read.
print("saved:", model.SaveMPSFile(model.FileLocation[:-4] + "_tour.mps"))

# View, without editing; the call returns when the window is closed.
model.ViewEquations(False)
