' Controls come and go in a script, one after the other and several at once; each is used in every way that a script has.
Option Explicit
Class YFunction
  Public Equation
  Public Enabled
  Public DrawStyle
  Public DrawColor
  Public QuickRedraw
End Class

Function NewFunction(equation)
  Dim y
  Set y = New YFunction
  y.Equation = equation : y.Enabled = True : y.DrawStyle = 0 : y.DrawColor = 255 : y.QuickRedraw = False
  Set NewFunction = y
End Function

Sub Check(what, value, expected)
  If value <> expected Then WScript.Echo "FAILED " & what & ": " & value & ", not " & expected
End Sub

Sub Live(graph, shared)
  Dim y(2), table
  Check "ZX", graph.ZX, 4
  Check "RedrawAll", graph.RedrawAll, False
  Set y(1) = NewFunction("k*x")
  Set y(2) = NewFunction("1/x")
  If Not shared Is Nothing Then Set graph.VarTable = shared
  Set table = graph.VarTable
  Check "Change", table.Change("k", 2), True
  graph.PlotPixelStep = 25
  graph.SetYArray y, False
  Check "not drawn", y(1).QuickRedraw, False
  graph.PlotAllY
  Check "drawn", y(1).QuickRedraw, True
  Check "RedrawAll", graph.RedrawAll, False
  graph.ZTrig
  graph.ZDec
  graph.ZInt
  graph.ZNum 0.1
  graph.ZStandard
  Check "Xmax", graph.Xmax, 10
  graph.ZoomInXY
  graph.ZoomOutXY
  graph.ZoomInPixel 200, 150
  graph.ZoomOutPixel 200, 150
  graph.MoveRangeToPointXY
  graph.ShowGrid = True
  graph.PlotStyle = 1
  graph.PlotAllY
  graph.XMinStringEval = "-2*k"
  Check "XMinStr", graph.XMinStr, "-2*k"
  Check "Xmin", graph.Xmin, -4
  graph.PrepareGraph
  Check "RedrawAll", graph.RedrawAll, True
  graph.ToolBarVisible = False
  Check "ToolBarVisible", graph.ToolBarVisible, False
  graph.PenWidth = 2
  Check "PenWidth", graph.GetGraphPicture.PenWidth, 2
  Check "width", graph.GetGraphWidth, graph.PIC.ScaleWidth
  graph.SetYArray y
End Sub

Dim life, one, other
For life = 1 To 5
  Set one = CreateObject("Plotvane.Graph")
  Live one, Nothing
  Set other = CreateObject("Plotvane.Graph")
  Live other, one.VarTable
  Set one = Nothing
  other.PlotAllY
  Set other = Nothing
Next
WScript.Echo "done"
