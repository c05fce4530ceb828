// JScript objects as functions, in the array that a dictionary makes; by-value arguments for every property.
function NewFunction(equation, color) {
  return { Equation: equation, Enabled: true, DrawStyle: 0, DrawColor: color, QuickRedraw: false };
}
function Check(what, value, expected) {
  if (value != expected) WScript.Echo("FAILED " + what + ": " + value + ", not " + expected);
}
var graph = new ActiveXObject("Plotvane.Graph");
var functions = new ActiveXObject("Scripting.Dictionary");
var y1 = NewFunction("sin(x)", 255), y2 = NewFunction("1/x", 65280);
functions.Add(0, null);
functions.Add(1, y1);
functions.Add(2, y2);
graph.SetYArray(functions.Items());
Check("cache of Y1", y1.QuickRedraw, true);
Check("cache of Y2", y2.QuickRedraw, true);
Check("RedrawAll", graph.RedrawAll, false);
graph.DegreeMode = true;
Check("DegreeMode", graph.DegreeMode, true);
graph.XMinStringEval = "2^3";
Check("Xmin", graph.Xmin, 8);
graph.PlotPixelStep = 5;
Check("PlotPixelStep", graph.PlotPixelStep, 5);
graph.PIC.PenWidth = 3;
Check("PenWidth", graph.PenWidth, 3);
var table = graph.VarTable;
Check("Change", table.Change("k", 2.5), true);
Check("IdExists", table.IdExists("K"), true);
var failed = 0;
try {
  graph.SetYArray("no array");
} catch (error) {
  failed = error.number & 0xFFFF;
}
Check("error", failed, 13);
WScript.Echo("done");
