' What a script does with the control after it was registered from the unpacked package.
Option Explicit
Class YFunction
  Public Equation, Enabled, DrawStyle, DrawColor, QuickRedraw
End Class
Dim graph, functions(1)
Set graph = CreateObject("Plotvane.Graph")
Set functions(1) = New YFunction
functions(1).Equation = "sin(x)"
functions(1).Enabled = True
functions(1).DrawStyle = 1
functions(1).DrawColor = 255
functions(1).QuickRedraw = False
graph.SetYArray functions
graph.VarTable.LoadOriginalChemData
Dim weight
graph.VarTable.GetIdValue "O", weight
WScript.Echo functions(1).QuickRedraw & " " & weight
