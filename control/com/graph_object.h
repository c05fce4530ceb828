// GraphObject: the COM object `Plotvane.Graph`: the portable control and its window behind the interfaces
// that hosts of controls expect.
//
// Nothing here but translation: a method clears its outputs, calls the portable control, converts, returns.
// Every method that does more than hand out a value runs inside Enter: the object stays alive until it
// returns whatever the host does meanwhile, it has its own floating-point state, and a failure leaves as a
// status with error information.
//
// One source file for each group of interfaces: graph_object.cpp (making and ending, dispatch, class
// information, events), graph_fields.cpp, graph_properties.cpp and graph_methods.cpp (_Graph),
// ole_object.cpp, in_place.cpp, ole_control.cpp, view_object.cpp, data_object.cpp, persistence.cpp.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <memory>
#include <utility>

#include "Plotvane.h"
#include "control/com/connection_points.h"
#include "control/com/fence.h"
#include "control/com/host_function.h"
#include "control/com/implements.h"
#include "control/com/site.h"
#include "control/com/surface_object.h"
#include "control/com/table_object.h"
#include "control/graph.h"
#include "control/win32/control_window.h"

namespace plotvane::control::com {

template <>
struct BaseOf<::_Graph> {
  using Type = IDispatch;
};

class GraphObject final
    : public Implements<::_Graph, ISupportErrorInfo, IProvideClassInfo2, IConnectionPointContainer,
                        IOleObject, IOleControl, IOleInPlaceObject, IOleInPlaceActiveObject, IViewObjectEx,
                        IDataObject, IPersistStreamInit, IPersistStorage, IPersistPropertyBag,
                        IQuickActivate> {
 public:
  // For the class factory.
  [[nodiscard]] static ComPtr<IUnknown> Create(IUnknown* outer);

  GraphObject();
  ~GraphObject() override = default;

  // ---- IDispatch ----
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD kinds, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* badArgument) noexcept override;

  // ---- _Graph, in the order of its function table ----
  HRESULT STDMETHODCALLTYPE get_PIC(IDispatch** value) noexcept override;
  HRESULT STDMETHODCALLTYPE putref_PIC(IDispatch* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_W(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_W(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_H(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_H(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_W_2(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_W_2(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_H_2(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_H_2(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_Xmax(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_Xmax(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_Xmin(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_Xmin(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_Ymax(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_Ymax(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_Ymin(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_Ymin(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_Xscl(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_Xscl(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_Yscl(double* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_Yscl(double value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ShowAxis(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ShowAxis(VARIANT_BOOL value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ShowAxisDivisions(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ShowAxisDivisions(VARIANT_BOOL value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ShowGrid(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ShowGrid(VARIANT_BOOL value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_RedrawAll(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_RedrawAll(VARIANT_BOOL value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_GCStyle(GraphCoordStyle* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_GCStyle(GraphCoordStyle value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_PlotStyle(DrawType* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_PlotStyle(DrawType value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_RedrawGridOnResize(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_RedrawGridOnResize(VARIANT_BOOL value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_RedrawAxisOnResize(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_RedrawAxisOnResize(VARIANT_BOOL value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ZX(float* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ZX(float value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ZY(float* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ZY(float value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ZXStr(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ZXStr(BSTR value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ZYStr(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ZYStr(BSTR value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_XMinStr(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_XMinStr(BSTR value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_XMaxStr(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_XMaxStr(BSTR value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_YMinStr(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_YMinStr(BSTR value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_YMaxStr(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_YMaxStr(BSTR value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_XSclStr(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_XSclStr(BSTR value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_YSclStr(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_YSclStr(BSTR value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_DegreeMode(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_DegreeMode(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE PlotAllY() noexcept override;
  HRESULT STDMETHODCALLTYPE EvaluateAndPlotEachPoint() noexcept override;
  HRESULT STDMETHODCALLTYPE PlotPointXY() noexcept override;
  HRESULT STDMETHODCALLTYPE MoveRangeToPointXY() noexcept override;
  HRESULT STDMETHODCALLTYPE ZoomInXY() noexcept override;
  HRESULT STDMETHODCALLTYPE ZoomOutXY() noexcept override;
  HRESULT STDMETHODCALLTYPE ZoomOutPixel(float* pixelX, float* pixelY) noexcept override;
  HRESULT STDMETHODCALLTYPE ZoomInPixel(float* pixelX, float* pixelY) noexcept override;
  HRESULT STDMETHODCALLTYPE ZBoxPixel() noexcept override;
  HRESULT STDMETHODCALLTYPE ZStandard() noexcept override;
  HRESULT STDMETHODCALLTYPE ZTrig() noexcept override;
  HRESULT STDMETHODCALLTYPE ZNum(double* pixelSize) noexcept override;
  HRESULT STDMETHODCALLTYPE ZInt() noexcept override;
  HRESULT STDMETHODCALLTYPE ZDec() noexcept override;
  HRESULT STDMETHODCALLTYPE PrepareGraph() noexcept override;
  HRESULT STDMETHODCALLTYPE SetYArray(VARIANT* functions, VARIANT* redrawGraph) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ZXStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_ZYStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_XMinStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_XMaxStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_YMinStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_YMaxStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_XSclStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_YSclStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ZXStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ZYStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_XMinStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_XMaxStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_YMinStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_YMaxStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_XSclStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_YSclStringEval(BSTR* value) noexcept override;
  HRESULT STDMETHODCALLTYPE ShowFormatEditor() noexcept override;
  HRESULT STDMETHODCALLTYPE get_ToolBarVisible(VARIANT_BOOL* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_ToolBarVisible(VARIANT_BOOL value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_VarTable(VARIANT* value) noexcept override;
  HRESULT STDMETHODCALLTYPE putref_VarTable(VARIANT* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_PenWidth(short* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_PenWidth(short* value) noexcept override;
  HRESULT STDMETHODCALLTYPE put_PlotPixelStep(short* value) noexcept override;
  HRESULT STDMETHODCALLTYPE get_PlotPixelStep(short* value) noexcept override;
  HRESULT STDMETHODCALLTYPE GetGraphHDC(LONG* value) noexcept override;
  HRESULT STDMETHODCALLTYPE GetGraphWidth(LONG* value) noexcept override;
  HRESULT STDMETHODCALLTYPE GetGraphHeight(LONG* value) noexcept override;
  HRESULT STDMETHODCALLTYPE GetGraphPicture(VARIANT* value) noexcept override;

  // ---- ISupportErrorInfo ----
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

  // ---- IProvideClassInfo2 ----
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) noexcept override;

  // ---- IConnectionPointContainer ----
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

  // ---- IOleObject ----
  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) noexcept override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) noexcept override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR application, LPCOLESTR document) noexcept override;
  HRESULT STDMETHODCALLTYPE Close(DWORD saving) noexcept override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) noexcept override;
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, BOOL creation, DWORD reserved) noexcept override;
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) noexcept override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                                   const RECT* position) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
  HRESULT STDMETHODCALLTYPE Update() noexcept override;
  HRESULT STDMETHODCALLTYPE IsUpToDate() noexcept override;
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) noexcept override;
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* type) noexcept override;
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* extent) noexcept override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* extent) noexcept override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advises) noexcept override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) noexcept override;

  // ---- IOleControl ----
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) noexcept override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) noexcept override;
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) noexcept override;
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) noexcept override;

  // ---- IOleWindow, IOleInPlaceObject, IOleInPlaceActiveObject ----
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) noexcept override;
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() noexcept override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() noexcept override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(const RECT* position, const RECT* clip) noexcept override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() noexcept override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) noexcept override;
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL active) noexcept override;
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL active) noexcept override;
  HRESULT STDMETHODCALLTYPE ResizeBorder(const RECT* border, IOleInPlaceUIWindow* window,
                                         BOOL frame) noexcept override;
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) noexcept override;

  // ---- IViewObjectEx ----
  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* target,
                                 HDC targetContext, HDC context, const RECTL* bounds,
                                 const RECTL* windowBounds, BOOL(STDMETHODCALLTYPE* proceed)(ULONG_PTR),
                                 ULONG_PTR proceedArgument) noexcept override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* target,
                                        HDC targetContext, LOGPALETTE** colours) noexcept override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* aspectInfo,
                                   DWORD* freeze) noexcept override;
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD freeze) noexcept override;
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* target,
                                      SIZEL* extent) noexcept override;
  HRESULT STDMETHODCALLTYPE GetRect(DWORD aspect, RECTL* rect) noexcept override;
  HRESULT STDMETHODCALLTYPE GetViewStatus(DWORD* status) noexcept override;
  HRESULT STDMETHODCALLTYPE QueryHitPoint(DWORD aspect, const RECT* bounds, POINT point, LONG close,
                                          DWORD* hit) noexcept override;
  HRESULT STDMETHODCALLTYPE QueryHitRect(DWORD aspect, const RECT* bounds, const RECT* rect, LONG close,
                                         DWORD* hit) noexcept override;
  HRESULT STDMETHODCALLTYPE GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* target,
                                             HDC targetContext, DVEXTENTINFO* info,
                                             SIZEL* extent) noexcept override;

  // ---- IDataObject ----
  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override;
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) noexcept override;
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) noexcept override;
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* wanted, FORMATETC* canonical) noexcept override;
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept override;
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                    DWORD* connection) noexcept override;
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD connection) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** advises) noexcept override;

  // ---- IPersist, IPersistStreamInit, IPersistStorage, IPersistPropertyBag ----
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) noexcept override;
  HRESULT STDMETHODCALLTYPE IsDirty() noexcept override;
  HRESULT STDMETHODCALLTYPE InitNew() noexcept override;
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) noexcept override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) noexcept override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) noexcept override;
  HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) noexcept override;
  HRESULT STDMETHODCALLTYPE Load(IStorage* storage) noexcept override;
  HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) noexcept override;
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) noexcept override;
  HRESULT STDMETHODCALLTYPE HandsOffStorage() noexcept override;
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* errors) noexcept override;
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept override;

  // ---- IQuickActivate ----
  HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept override;
  HRESULT STDMETHODCALLTYPE SetContentExtent(SIZEL* extent) noexcept override;
  HRESULT STDMETHODCALLTYPE GetContentExtent(SIZEL* extent) noexcept override;

 private:
  // What the window tells the container, as the methods of the same names below.
  class WindowNews final : public win32::ControlWindowHost {
   public:
    explicit WindowNews(GraphObject& object) noexcept : mObject(object) {}
    void GotFocus() override { mObject.WindowGotFocus(); }
    void LostFocus() override { mObject.WindowLostFocus(); }
    void EnableModeless(bool enable) override { mObject.EnableHostWindows(enable); }

   private:
    GraphObject& mObject;
  };

  void FinalRelease() noexcept override;

  // A method's body: see above.
  template <typename Body>
  HRESULT Enter(Body&& body) noexcept {
    const win32::OwnFloatingPoint ownState;  // around the release too: it may end the object
    const ComPtr<IUnknown> alive(Identity());
    return Fence(std::forward<Body>(body));
  }

  // ---- Events ----
  void RaisePlotDone();
  void NotifyWritten(DISPID property);
  // After a successful write of a property.
  template <typename Body>
  HRESULT Write(DISPID property, Body&& body) noexcept;
  // The value that the body answers, cleared on failure.
  template <typename Out, typename Body>
  HRESULT Read(Out* out, Body&& body) noexcept;

  // ---- Objects handed to hosts ----
  [[nodiscard]] ComPtr<IDispatch> SurfaceForHost(const std::shared_ptr<graph::DrawingSurface>& surface);
  [[nodiscard]] ComPtr<IDispatch> TableForHost(const std::shared_ptr<platform::VariableTable>& table);

  // ---- In place ----
  // Takes the window into the container's; the other two end what is there, and do nothing when nothing is.
  HRESULT ActivateInPlace(bool withUserInterface);
  HRESULT EnterInPlace();
  HRESULT ActivateUserInterface();
  void DeactivateUserInterface() noexcept;
  void DeactivateInPlace() noexcept;
  void ShowPartWithin(const RECT& position, const RECT* clip);
  void WindowGotFocus();
  void WindowLostFocus();
  void EnableHostWindows(bool enable);
  void ReadDesignMode();

  // ---- Size and picture ----
  void TakeSize(PixelSize size);
  void DrawPicture(HDC context, const RECT& bounds);
  void PictureChanged() noexcept;

  // The descriptions of _Graph, loaded when they are first asked for.
  [[nodiscard]] ITypeInfo& TypeInfo();
  [[nodiscard]] ITypeInfo& FunctionTable();
  ComPtr<ITypeInfo> mTypeInfo;
  ComPtr<ITypeInfo> mFunctionTable;

  WindowNews mWindowNews{*this};
  std::shared_ptr<win32::ControlWindow> mWindow;
  std::shared_ptr<Graph> mGraph;

  HostFunctions mFunctions;
  ComPtr<SurfaceObject> mSurfaceObject;  // what PIC answered last, so that one surface is one object
  ComPtr<TableObject> mTableObject;      // the same for VarTable

  ComPtr<ConnectionPoint> mEvents;
  ComPtr<ConnectionPoint> mPropertyChanges;
  int mFreezes = 0;
  int mHeldEvents = 0;  // events that happened while frozen

  Site mSite;
  SIZEL mExtent;  // in hundredths of a millimetre
  ComPtr<IOleAdviseHolder> mAdvises;
  ComPtr<IDataAdviseHolder> mDataAdvises;
  ComPtr<IAdviseSink> mViewSink;
  DWORD mViewAspects = 0;
  DWORD mViewFlags = 0;

  // Counts activations and deactivations, so that an activation notices that a call to the host undid it.
  unsigned mActivation = 0;
  bool mInPlaceActive = false;
  bool mUserInterfaceActive = false;
  ComPtr<IOleInPlaceSite> mInPlaceSite;
  ComPtr<IOleInPlaceFrame> mFrame;
  ComPtr<IOleInPlaceUIWindow> mDocument;
};

}  // namespace plotvane::control::com
