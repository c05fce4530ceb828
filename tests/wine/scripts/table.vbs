' A table and a surface of a script's own classes; values come back by reference.
Option Explicit
Class Table
  Private values
  Public changes
  Private Sub Class_Initialize
    Set values = CreateObject("Scripting.Dictionary")
    changes = 0
  End Sub
  Public Function GetIdValue(id, ByRef value)
    GetIdValue = values.Exists(LCase(id))
    If values.Exists(LCase(id)) Then value = values.Item(LCase(id))
  End Function
  Public Function Change(id, value)
    values.Item(LCase(id)) = value
    changes = changes + 1
    Change = True
  End Function
End Class

Class YFunction
  Public Equation
  Public Enabled
  Public DrawStyle
  Public DrawColor
  Public QuickRedraw
End Class

Class Surface
  Public PenWidth
  Public lines
  Private Sub Class_Initialize
    PenWidth = 1
    lines = 0
  End Sub
  Public Property Get ScaleWidth
    ScaleWidth = 200
  End Property
  Public Property Get ScaleHeight
    ScaleHeight = 100
  End Property
  Public Sub Clear
    lines = 0
  End Sub
  Public Sub Refresh
  End Sub
  Public Sub SetPixel(x, y, color)
  End Sub
  Public Sub DrawLine(x1, y1, x2, y2, color)
    lines = lines + 1
  End Sub
End Class

Sub Check(what, value, expected)
  If value <> expected Then WScript.Echo "FAILED " & what & ": " & value & ", not " & expected
End Sub

Dim graph, mine, y(1), v
Set graph = CreateObject("Plotvane.Graph")
Set mine = New Table
Set graph.VarTable = mine
mine.Change "a", 2
mine.Change "x", 7
Set y(1) = New YFunction
y(1).Equation = "a*x" : y(1).Enabled = True : y(1).DrawStyle = 0 : y(1).DrawColor = 255 : y(1).QuickRedraw = False
graph.PlotPixelStep = 20
mine.changes = 0
graph.SetYArray y
Check "stores of x", mine.changes, 22
mine.GetIdValue "x", v
Check "x afterwards", v, 7
graph.XMinStringEval = "a*4"
Check "Xmin", graph.Xmin, 8
graph.XMinStringEval = "-10"
graph.PrepareGraph

Dim picture
Set picture = New Surface
Set graph.PIC = picture
Check "width", graph.GetGraphWidth, 200
graph.PlotAllY
If picture.lines < 30 Then WScript.Echo "FAILED lines: " & picture.lines
WScript.Echo "done"
