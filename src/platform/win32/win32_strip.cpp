#include "platform/win32/win32_strip.h"

#include <algorithm>
#include <cwctype>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

constexpr Twips kGap = 90;
constexpr Twips kButtonHeight = 330;
constexpr Twips kHeight = 480;  // Two lines of text with room around them.
constexpr int kClose = 2000;    // The close button's id; the others count from 0.

wchar_t AccessKey(const std::wstring& caption) {
  const std::size_t mark = caption.find(L'&');
  return mark == std::wstring::npos ? L'\0' : caption.at(mark + 1);
}

}  // namespace

ATOM Win32Strip::RegisterStripClass() {
  WNDCLASSEXW strip{};
  strip.cbSize = sizeof strip;
  strip.lpfnWndProc = &WindowProcedure;
  strip.hInstance = GetModuleHandleW(nullptr);
  strip.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  strip.hbrBackground = GetSysColorBrush(COLOR_INFOBK);
  strip.lpszClassName = L"PanelkitStrip";
  return RegisterClassExW(&strip);
}

Win32Strip::Win32Strip(HWND form, Win32Browser& pane, const ScreenScale& scale, HFONT font,
                       Win32EventLoop& loop)
    : form_(form), pane_(pane), scale_(scale), font_(font), loop_(loop) {}

Win32Strip::~Win32Strip() {
  if (window_ != nullptr) DestroyWindow(window_);
}

void Win32Strip::Show(StripContent content) {
  Hide();
  content_ = std::move(content);
  static const ATOM strip_class = RegisterStripClass();
  const int height = scale_.PixelsY(kHeight);
  const RECT place = pane_.GiveRoom(height);
  const int width = place.right - place.left;
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, MAKEINTATOM(strip_class),
                            Wide(content_.sentence).c_str(),
                            WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, place.left, place.top, width,
                            height, form_, nullptr, GetModuleHandleW(nullptr), nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  AddControls(width, height);
  NotifyWinEvent(EVENT_SYSTEM_ALERT, window_, OBJID_CLIENT, CHILDID_SELF);
}

void Win32Strip::Hide() {
  if (window_ == nullptr) return;
  const bool had_focus = HasFocus();
  DestroyWindow(std::exchange(window_, nullptr));
  pane_.GiveRoom(0);
  if (had_focus) SetFocus(pane_.Window());
}

SIZE Win32Strip::Measured(const std::wstring& text, int width, UINT format) const {
  const HDC screen = GetDC(form_);
  const HGDIOBJ old = SelectObject(screen, font_);
  RECT place{0, 0, width, 0};
  DrawTextW(screen, text.c_str(), -1, &place, DT_CALCRECT | format);
  SelectObject(screen, old);
  ReleaseDC(form_, screen);
  return {place.right, place.bottom};
}

HWND Win32Strip::AddControl(const wchar_t* kind, const std::wstring& text, DWORD style, int id,
                            const RECT& place) const {
  const HWND control = CreateWindowExW(
      0, kind, text.c_str(), WS_CHILD | WS_VISIBLE | style, place.left, place.top,
      place.right - place.left, place.bottom - place.top, window_,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
  return control;
}

// The buttons stand at the right, the sentence has what they leave; Tab goes from left to right.
void Win32Strip::AddControls(int width, int height) {
  const int gap = scale_.PixelsX(kGap);
  const int button_height = scale_.PixelsY(kButtonHeight);
  const int top = (height - button_height) / 2;
  struct Button {
    std::wstring caption;
    int id;
    int width;
  };
  std::vector<Button> buttons;
  const auto add = [&](const std::wstring& caption, int id) {
    buttons.push_back(
        {caption, id, static_cast<int>(Measured(caption, 0, DT_SINGLELINE).cx) + 2 * gap});
  };
  for (const StripButton& button : content_.buttons) {
    add(Wide(button.caption), static_cast<int>(buttons.size()));
  }
  add(L"Close", kClose);
  int left = width;
  for (const Button& button : buttons) left -= button.width + gap;
  const std::wstring sentence = Wide(content_.sentence);
  const int text_height =
      static_cast<int>(Measured(sentence, left - 2 * gap, DT_WORDBREAK | DT_NOPREFIX).cy);
  const int text_top = std::max(0, (height - text_height) / 2);
  AddControl(L"STATIC", sentence, SS_LEFT | SS_NOPREFIX, -1,
             {gap, text_top, left - gap, height - text_top});
  for (const Button& button : buttons) {
    AddControl(L"BUTTON", button.caption, BS_PUSHBUTTON | WS_TABSTOP, button.id,
               {left, top, left + button.width, top + button_height});
    left += button.width + gap;
  }
}

bool Win32Strip::Takes(const MSG& message) {
  if (window_ == nullptr) return false;
  if (message.message == WM_SYSCHAR) {
    return PressesAccessKey(static_cast<wchar_t>(message.wParam));
  }
  if (message.message != WM_KEYDOWN) return false;
  if (message.wParam == VK_F6) {
    SetFocus(HasFocus() ? pane_.Window() : GetNextDlgTabItem(window_, nullptr, FALSE));
    return true;
  }
  if (!HasFocus()) return false;
  if (message.wParam == VK_ESCAPE) Hide();
  // Windows itself presses only default buttons by Enter.
  if (message.wParam == VK_RETURN) SendMessageW(message.hwnd, BM_CLICK, 0, 0);
  return message.wParam == VK_ESCAPE || message.wParam == VK_RETURN;
}

bool Win32Strip::TakesTab(const MSG& message) const {
  if (window_ == nullptr || message.message != WM_KEYDOWN || message.wParam != VK_TAB) return false;
  SetFocus(GetNextDlgTabItem(window_, nullptr, FALSE));
  return true;
}

bool Win32Strip::PressesAccessKey(wchar_t key) {
  for (std::size_t i = 0; i < content_.buttons.size(); ++i) {
    const wchar_t own = AccessKey(Wide(content_.buttons[i].caption));
    if (own == L'\0' || std::towlower(own) != std::towlower(key)) continue;
    Press(i);
    return true;
  }
  return false;
}

void Win32Strip::Press(std::size_t button) {
  loop_.Post(alive_, content_.buttons[button].on_click);
}

void Win32Strip::Command(UINT id) {
  if (id < content_.buttons.size()) Press(id);
  // Later: Hide destroys the button whose message this is.
  if (id == kClose) loop_.Post(alive_, [this] { Hide(); });
}

LRESULT CALLBACK Win32Strip::WindowProcedure(HWND window, UINT message, WPARAM wparam,
                                             LPARAM lparam) {
  auto* strip = reinterpret_cast<Win32Strip*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_COMMAND && strip != nullptr && lparam != 0) {
    strip->Command(LOWORD(wparam));
    return 0;
  }
  if (message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN) {
    const auto context = reinterpret_cast<HDC>(wparam);
    SetTextColor(context, GetSysColor(COLOR_INFOTEXT));
    SetBkColor(context, GetSysColor(COLOR_INFOBK));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_INFOBK));
  }
  return DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace panelkit::windows
