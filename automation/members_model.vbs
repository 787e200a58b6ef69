Function SmallModel()
  Set SmallModel = CreateObject("Quarvel.LPModel")
  SmallModel.MakeNewModel
  SmallModel.AddRow "COST"
  SmallModel.SetRowType(0) = "N"
  SmallModel.AddRow "LIMIT"
  SmallModel.SetRowType(1) = "L"
  SmallModel.SetRowUpperBound(1) = 10
  SmallModel.AddColumn "X"
  SmallModel.AddColumn "Y"
  SmallModel.AddElement 0, 0, 1  ' COST:  1*X + 2*Y
  SmallModel.AddElement 0, 1, 2
  SmallModel.AddElement 1, 0, 3  ' LIMIT: 3*X + 4*Y <= 10
  SmallModel.AddElement 1, 1, 4
End Function

Set model = SmallModel()
