' A script hands in functions of its own class, plots them and reads the range back.
Option Explicit
Class YFunction
  Public Equation
  Public Enabled
  Public DrawStyle
  Public DrawColor
  Public QuickRedraw
End Class

Function NewFunction(equation, color)
  Dim y
  Set y = New YFunction
  y.Equation = equation: y.Enabled = True: y.DrawStyle = 0: y.DrawColor = color: y.QuickRedraw = False
  Set NewFunction = y
End Function

Dim graph, functions(2), table, value, found
Set graph = CreateObject("Plotvane.Graph")
WScript.Echo "factors " & graph.ZX & " " & graph.ZY & " " & graph.GCStyle & " " & graph.PlotStyle & " " & graph.PlotPixelStep
Set functions(1) = NewFunction("sin(x)", 255)
Set functions(2) = NewFunction("x^2/10", 65280)
graph.SetYArray functions
WScript.Echo "range " & graph.Xmin & " " & graph.Xmax & " " & graph.Ymin & " " & graph.Ymax
WScript.Echo "size " & graph.GetGraphWidth & " x " & graph.GetGraphHeight
WScript.Echo "cached " & functions(1).QuickRedraw & " " & functions(2).QuickRedraw & " " & graph.RedrawAll
graph.ZTrig
WScript.Echo "trig " & graph.Xmin & " " & graph.Xmax
Set table = graph.VarTable
WScript.Echo "change " & table.Change("a", 5)
found = table.GetIdValue("A", value)
WScript.Echo "a " & found & " " & value
graph.XMinStringEval = "-a*2"
WScript.Echo "xmin " & graph.Xmin & " " & graph.XMinStringEval
graph.DegreeMode = True
WScript.Echo "degrees " & graph.DegreeMode & " " & graph.RedrawAll
On Error Resume Next
graph.SetYArray 5
WScript.Echo "error " & Err.Number & " " & Err.Source & ": " & Err.Description
Err.Clear
graph.NoSuchMember
WScript.Echo "error " & Err.Number
WScript.Echo "done"
