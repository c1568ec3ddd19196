#include "platform/win32/win32_controls.h"

#include <commctrl.h>

#include <cmath>

#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

/// What a kind of control is to Windows.
struct ControlClass {
  const wchar_t* name;
  DWORD style;
  DWORD extended_style;
};

ControlClass ClassOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::ProgressBar:
      return {PROGRESS_CLASSW, 0, 0};
    case ControlKind::PictureBox:
      return {L"STATIC", SS_OWNERDRAW, WS_EX_STATICEDGE};
    case ControlKind::CommandButton:
      return {L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, 0};
    default:
      // A text that is too long for its label ends in dots and stays on its line.
      return {L"STATIC", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, 0};
  }
}

bool ShowsItsText(ControlKind kind) {
  return kind == ControlKind::Label || kind == ControlKind::CommandButton;
}

}  // namespace

HWND CreateControl(HWND form, const ControlDescription& control, const ScreenScale& scale,
                   UINT id) {
  const ControlClass kind = ClassOf(control.kind);
  const std::wstring text =
      Wide(ShowsItsText(control.kind) ? control.content : control.accessible_name);
  const int left = scale.PixelsX(control.left);
  const int top = scale.PixelsY(control.top);
  return CreateWindowExW(
      kind.extended_style, kind.name, text.c_str(), WS_CHILD | WS_VISIBLE | kind.style, left, top,
      scale.PixelsX(control.left + control.width) - left,
      scale.PixelsY(control.top + control.height) - top, form,
      reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
}

HFONT CreateFormFont(const ScreenScale& scale) {
  constexpr double kPointsPerInch = 72;
  LOGFONTW font{};
  // Downwards, so that a text that fits on one screen fits on all.
  font.lfHeight = -static_cast<LONG>(std::floor(kFormFontPoints * scale.dpi_y / kPointsPerInch));
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = DEFAULT_CHARSET;
  std::wstring(L"MS Shell Dlg").copy(font.lfFaceName, LF_FACESIZE - 1);
  return CreateFontIndirectW(&font);
}

void DrawPicture(const DRAWITEMSTRUCT& box, const std::string& picture, const ScreenScale& scale) {
  constexpr int kDpiOfPictures = 96;
  FillRect(box.hDC, &box.rcItem, GetSysColorBrush(COLOR_3DFACE));
  const HANDLE bitmap = LoadImageW(GetModuleHandleW(nullptr), Wide(picture).c_str(), IMAGE_BITMAP,
                                   0, 0, LR_CREATEDIBSECTION);
  BITMAP size{};
  if (bitmap == nullptr || GetObjectW(bitmap, sizeof size, &size) == 0) return;
  const HDC memory = CreateCompatibleDC(box.hDC);
  const HGDIOBJ old = SelectObject(memory, bitmap);
  SetStretchBltMode(box.hDC, HALFTONE);
  SetBrushOrgEx(box.hDC, 0, 0, nullptr);
  StretchBlt(box.hDC, 0, 0, MulDiv(size.bmWidth, scale.dpi_x, kDpiOfPictures),
             MulDiv(size.bmHeight, scale.dpi_y, kDpiOfPictures), memory, 0, 0, size.bmWidth,
             size.bmHeight, SRCCOPY);
  SelectObject(memory, old);
  DeleteDC(memory);
  DeleteObject(bitmap);
}

void Win32Label::SetCaption(const std::string& caption) {
  caption_ = caption;
  SetWindowTextW(window_, Wide(caption).c_str());
}

void Win32ProgressBar::SetMin(int min) {
  min_ = min;
  Show();
}

void Win32ProgressBar::SetMax(int max) {
  max_ = max;
  Show();
}

void Win32ProgressBar::SetValue(int value) {
  value_ = value;
  Show();
}

void Win32ProgressBar::Show() const {
  // Some versions of the control fall back to 0 to 100 for a range of nothing.
  const bool empty = max_ <= min_;
  SendMessageW(window_, PBM_SETRANGE32, static_cast<WPARAM>(min_), empty ? min_ + 1 : max_);
  SendMessageW(window_, PBM_SETPOS, static_cast<WPARAM>(empty ? min_ : value_), 0);
}

}  // namespace panelkit::windows
