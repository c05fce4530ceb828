' What a script does with the control after it was registered from the unpacked package.
Option Explicit
Class YFunction
  Public Equation
  Public Enabled
  Public DrawStyle
  Public DrawColor
  Public QuickRedraw
End Class
Dim graph, functions(1), y, table, weight, found
Set y = New YFunction
y.Equation = "sin(x)": y.Enabled = True: y.DrawStyle = 1: y.DrawColor = 255: y.QuickRedraw = False
Set functions(1) = y
Set graph = CreateObject("Plotvane.Graph")
graph.SetYArray functions
Set table = graph.VarTable
table.LoadOriginalChemData
found = table.GetIdValue("O", weight)
WScript.Echo y.QuickRedraw & " " & weight
