// Controls come and go in a script, one after the other and several at once; each is used in every way that a script has.
function NewFunction(equation) {
  return { Equation: equation, Enabled: true, DrawStyle: 0, DrawColor: 255, QuickRedraw: false };
}
function Check(what, value, expected) {
  if (value != expected) WScript.Echo("FAILED " + what + ": " + value + ", not " + expected);
}
function ArrayOf(functions) {
  var dictionary = new ActiveXObject("Scripting.Dictionary");
  dictionary.Add(0, null);
  for (var i = 0; i < functions.length; ++i) dictionary.Add(i + 1, functions[i]);
  return dictionary.Items();
}
function Live(graph, shared) {
  var y1 = NewFunction("k*x"), y2 = NewFunction("1/x");
  Check("ZX", graph.ZX, 4);
  Check("RedrawAll", graph.RedrawAll, false);
  if (shared) graph.VarTable = shared;
  Check("Change", graph.VarTable.Change("k", 2), true);
  graph.PlotPixelStep = 25;
  graph.SetYArray(ArrayOf([y1, y2]), false);
  Check("not drawn", y1.QuickRedraw, false);
  graph.PlotAllY();
  Check("drawn", y1.QuickRedraw, true);
  Check("RedrawAll", graph.RedrawAll, false);
  graph.ZTrig();
  graph.ZDec();
  graph.ZInt();
  graph.ZNum(0.1);
  graph.ZStandard();
  Check("Xmax", graph.Xmax, 10);
  graph.ZoomInXY();
  graph.ZoomOutXY();
  graph.ZoomInPixel(200, 150);
  graph.ZoomOutPixel(200, 150);
  graph.MoveRangeToPointXY();
  graph.ShowGrid = true;
  graph.PlotStyle = 1;
  graph.PlotAllY();
  graph.XMinStringEval = "-2*k";
  Check("XMinStr", graph.XMinStr, "-2*k");
  Check("Xmin", graph.Xmin, -4);
  graph.PrepareGraph();
  Check("RedrawAll", graph.RedrawAll, true);
  graph.ToolBarVisible = false;
  Check("ToolBarVisible", graph.ToolBarVisible, false);
  graph.PenWidth = 2;
  Check("PenWidth", graph.GetGraphPicture().PenWidth, 2);
  Check("width", graph.GetGraphWidth(), graph.PIC.ScaleWidth);
  graph.SetYArray(ArrayOf([y1]));
}
for (var life = 1; life <= 5; ++life) {
  var one = new ActiveXObject("Plotvane.Graph");
  Live(one, null);
  var other = new ActiveXObject("Plotvane.Graph");
  Live(other, one.VarTable);
  one = null;
  CollectGarbage();
  other.PlotAllY();
  other = null;
  CollectGarbage();
}
WScript.Echo("done");
