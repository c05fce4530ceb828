#include "hosts/desktop/function_panel.h"

#include <windowsx.h>

#include <commdlg.h>

#include "hosts/desktop/text.h"

namespace plotvane::desktop {

namespace {

// Identifiers of the controls of row i are these plus i.
constexpr int kEnabledId = 1000;
constexpr int kColourId = 1100;
constexpr int kEquationId = 1200;
constexpr int kErrorId = 1300;

constexpr COLORREF kErrorBackground = RGB(255, 224, 224);

// The row a control identifier belongs to, or kFunctionCount when it is none of the kind that starts at `first`.
std::size_t RowOf(int id, int first) {
  const int row = id - first;
  return row >= 0 && row < static_cast<int>(kFunctionCount) ? static_cast<std::size_t>(row) : kFunctionCount;
}

// "Y&1" … "Y&9", "Y1&0": Alt and the last digit go to the row.
std::wstring RowCaption(std::size_t index) {
  return index + 1 == kFunctionCount ? L"Y1&0" : L"Y&" + std::to_wstring(index + 1);
}

}  // namespace

FunctionPanel::FunctionPanel(HWND parent, FunctionDocument& document, Owner owner)
    : mParent(parent),
      mDocument(document),
      mOwner(std::move(owner)),
      mErrorBrush(::CreateSolidBrush(kErrorBackground)) {
  for (std::size_t index = 0; index < kFunctionCount; ++index) {
    const int id = static_cast<int>(index);
    Row& row = mRows[index];
    row.enabled =
        MakeChild(parent, L"BUTTON", RowCaption(index).c_str(), WS_TABSTOP | BS_AUTOCHECKBOX, kEnabledId + id);
    row.equation = MakeChild(parent, L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, kEquationId + id, WS_EX_CLIENTEDGE);
    row.colour = MakeChild(parent, L"BUTTON", (L"Colour of Y" + std::to_wstring(index + 1)).c_str(),
                           WS_TABSTOP | BS_OWNERDRAW, kColourId + id);
  }
  mError = MakeChild(parent, L"STATIC", L"", SS_NOPREFIX, kErrorId);
}

FunctionPanel::~FunctionPanel() { ::DeleteObject(mErrorBrush); }

void FunctionPanel::Refresh() {
  mShowing = true;
  for (std::size_t index = 0; index < kFunctionCount; ++index) ShowRow(index);
  mShowing = false;
  CheckAll();
}

void FunctionPanel::ShowRow(std::size_t index) {
  const graph::clsYGraph& function = *mDocument.Function(index);
  const Row& row = mRows[index];
  Button_SetCheck(row.enabled, function.Enabled ? BST_CHECKED : BST_UNCHECKED);
  ::SetWindowTextW(row.equation, ToWide(function.Equation).c_str());
  ::InvalidateRect(row.colour, nullptr, TRUE);
}

void FunctionPanel::CheckAll() {
  for (std::size_t index = 0; index < kFunctionCount; ++index) CheckRow(index);
  ShowError();
}

void FunctionPanel::CheckRow(std::size_t index) {
  std::string error = mOwner.check(mDocument.Function(index)->Equation);
  if (error == mRows[index].error) return;
  mRows[index].error = std::move(error);
  ::InvalidateRect(mRows[index].equation, nullptr, TRUE);
}

// That of the current row, otherwise the first that there is.
void FunctionPanel::ShowError() {
  std::size_t row = mCurrent;
  for (std::size_t index = 0; index < kFunctionCount && mRows[row].error.empty(); ++index) row = index;
  std::wstring text;
  if (!mRows[row].error.empty()) text = L"Y" + std::to_wstring(row + 1) + L": " + ToWide(mRows[row].error);
  ::SetWindowTextW(mError, text.c_str());
}

int FunctionPanel::Layout(const RECT& place, Scale scale, HFONT font) {
  const int height = scale(22);
  const int step = height + scale(4);
  const int labelWidth = scale(46);
  const int colourWidth = scale(22);
  int top = static_cast<int>(place.top);
  for (const Row& row : mRows) {
    const LONG equationLeft = place.left + labelWidth;
    const LONG equationRight = place.right - colourWidth - scale(4);
    Place(row.enabled, {place.left, top, equationLeft, top + height});
    Place(row.equation, {equationLeft, top, equationRight, top + height});
    Place(row.colour, {place.right - colourWidth, top, place.right, top + height});
    for (HWND window : {row.enabled, row.equation, row.colour}) SetFont(window, font);
    top += step;
  }
  SetFont(mError, font);
  Place(mError, {place.left, top, place.right, top + scale(32)});
  return top + scale(36);
}

bool FunctionPanel::OnCommand(int id, int notification) {
  if (const std::size_t row = RowOf(id, kEquationId); row < kFunctionCount) {
    if (notification == EN_CHANGE && !mShowing) EditEquation(row);
    if (notification == EN_SETFOCUS) {
      mCurrent = row;
      ShowError();
    }
    return true;
  }
  if (const std::size_t row = RowOf(id, kEnabledId); row < kFunctionCount) {
    if (notification == BN_CLICKED) EditEnabled(row);
    return true;
  }
  if (const std::size_t row = RowOf(id, kColourId); row < kFunctionCount) {
    if (notification == BN_CLICKED) ChooseColour(row);
    return true;
  }
  return false;
}

void FunctionPanel::EditEquation(std::size_t index) {
  mDocument.Function(index)->Equation = ToUtf8(WindowText(mRows[index].equation));
  mDocument.Touch(index);
  CheckRow(index);
  ShowError();
  mOwner.edited();
}

void FunctionPanel::EditEnabled(std::size_t index) {
  mDocument.Function(index)->Enabled = Button_GetCheck(mRows[index].enabled) == BST_CHECKED;
  mDocument.Touch(index);
  mOwner.edited();
}

void FunctionPanel::ChooseColour(std::size_t index) {
  std::array<COLORREF, 16> custom{};
  for (std::size_t i = 0; i < kFunctionCount; ++i) {
    custom[i] = static_cast<COLORREF>(mDocument.Function(i)->DrawColor);
  }
  CHOOSECOLORW choice{};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = mParent;
  choice.rgbResult = static_cast<COLORREF>(mDocument.Function(index)->DrawColor);
  choice.lpCustColors = custom.data();
  choice.Flags = CC_RGBINIT | CC_FULLOPEN;
  if (::ChooseColorW(&choice) == FALSE) return;
  mDocument.Function(index)->DrawColor = static_cast<std::int32_t>(choice.rgbResult);
  mDocument.Touch(index);
  ::InvalidateRect(mRows[index].colour, nullptr, TRUE);
  mOwner.edited();
}

bool FunctionPanel::OnDrawItem(const DRAWITEMSTRUCT& item) const {
  const std::size_t row = RowOf(static_cast<int>(item.CtlID), kColourId);
  if (row >= kFunctionCount) return false;
  RECT face = item.rcItem;
  HBRUSH brush = ::CreateSolidBrush(static_cast<COLORREF>(mDocument.Function(row)->DrawColor));
  ::DrawEdge(item.hDC, &face, (item.itemState & ODS_SELECTED) != 0 ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT | BF_ADJUST);
  ::FillRect(item.hDC, &face, brush);
  ::DeleteObject(brush);
  if ((item.itemState & ODS_FOCUS) != 0) {
    ::InflateRect(&face, -1, -1);
    ::DrawFocusRect(item.hDC, &face);
  }
  return true;
}

HBRUSH FunctionPanel::OnEditColour(HWND edit, HDC device) const {
  for (const Row& row : mRows) {
    if (row.equation != edit || row.error.empty()) continue;
    ::SetBkColor(device, kErrorBackground);
    ::SetTextColor(device, RGB(0, 0, 0));
    return mErrorBrush;
  }
  return nullptr;
}

}  // namespace plotvane::desktop
