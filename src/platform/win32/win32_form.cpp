#include "platform/win32/win32_form.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "platform/win32/folder_dialog.h"
#include "platform/win32/form_size.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

constexpr UINT kFirstControl = 1000;
constexpr WORD kProgramIcon = 1;
constexpr LPARAM kWithAlt = 1 << 29;  // In the second parameter of a key's message.
constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

DWORD ExtendedStyle(Border border) {
  return border == Border::FixedToolWindow ? WS_EX_TOOLWINDOW : WS_EX_DLGMODALFRAME;
}

HANDLE ProgramIcon(int width_metric, int height_metric) {
  return LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kProgramIcon), IMAGE_ICON,
                    GetSystemMetrics(width_metric), GetSystemMetrics(height_metric), LR_SHARED);
}

}  // namespace

ATOM RegisterFormClass() {
  WNDCLASSEXW form{};
  form.cbSize = sizeof form;
  form.lpfnWndProc = Win32Form::WindowProcedure;
  form.hInstance = GetModuleHandleW(nullptr);
  form.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  form.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  form.lpszClassName = L"PanelkitForm";
  return RegisterClassExW(&form);
}

Win32Form::Win32Form(const FormDescription& description, const ScreenScale& scale, HWND owner,
                     Win32EventLoop& loop)
    : loop_(loop) {
  static const ATOM form_class = RegisterFormClass();
  window_ = CreateWindowExW(ExtendedStyle(description.border), MAKEINTATOM(form_class),
                            Wide(description.title).c_str(), kStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                            scale.PixelsX(description.width), scale.PixelsY(description.height),
                            owner, nullptr, GetModuleHandleW(nullptr), this);
  if (window_ == nullptr) throw std::runtime_error("Windows makes no window");
  if (description.border == Border::FixedDialog) {
    SendMessageW(window_, WM_SETICON, ICON_SMALL,
                 reinterpret_cast<LPARAM>(ProgramIcon(SM_CXSMICON, SM_CYSMICON)));
    SendMessageW(window_, WM_SETICON, ICON_BIG,
                 reinterpret_cast<LPARAM>(ProgramIcon(SM_CXICON, SM_CYICON)));
  }
  menu_.emplace(window_, description.menu);
  if (!description.help_menu.empty()) {
    const std::string caption = MenuNamed(description.help_menu).Caption();
    help_key_ = static_cast<unsigned char>(caption.at(caption.find('&') + 1));
  }
  scale_ = FitWorkArea(window_, description, scale);
  font_ = CreateFormFont(scale_);
  AddControls(description);
  loop_.Add(window_, [this](MSG& message) { return Filter(message); });
}

Win32Form::~Win32Form() {
  loop_.Remove(window_);
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  strips_.clear();
  browsers_.clear();  // Before the windows that they lie in.
  DestroyWindow(window_);
  DeleteObject(font_);
}

// In the order of their tab indexes, which is the order in which Windows steps through them.
void Win32Form::AddControls(const FormDescription& description) {
  std::vector<ControlDescription> controls(description.controls.begin(),
                                           description.controls.end());
  std::sort(controls.begin(), controls.end(),
            [](const auto& a, const auto& b) { return a.tab_index < b.tab_index; });
  UINT id = kFirstControl;
  for (const ControlDescription& control : controls) AddControl(control, id++);
}

void Win32Form::AddControl(const ControlDescription& control, UINT id) {
  const std::string name(control.name);
  if (control.kind == ControlKind::WebBrowser) {
    auto& pane = browsers_.try_emplace(name, window_, control, scale_, id, loop_).first->second;
    strips_.try_emplace(name, window_, pane, scale_, font_, loop_);
    return;
  }
  const HWND window = CreateControl(window_, control, scale_, id);
  if (window == nullptr) throw std::runtime_error("Windows makes no control");
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
  switch (control.kind) {
    case ControlKind::Label:
      labels_.try_emplace(name, window, std::string(control.content));
      break;
    case ControlKind::ProgressBar:
      bars_.try_emplace(name, window);
      break;
    case ControlKind::PictureBox:
      pictures_.emplace(id, control.content);
      break;
    default:
      buttons_.emplace(id, name);
      break;
  }
}

Label& Win32Form::LabelNamed(std::string_view name) {
  return EntryNamed(labels_, name);
}

ProgressBar& Win32Form::ProgressBarNamed(std::string_view name) {
  return EntryNamed(bars_, name);
}

WebBrowser& Win32Form::BrowserNamed(std::string_view name) {
  return EntryNamed(browsers_, name);
}

void Win32Form::OnClick(std::string_view name, std::function<void()> handler) {
  clicks_.insert_or_assign(std::string(name), std::move(handler));
}

std::vector<std::string> Win32Form::ChooseFolders(const std::string& title) {
  return AskForFolders(window_, title);
}

// The pane's control takes no drops itself, so those on it come to the form.
void Win32Form::OnDrop(std::function<void(const std::vector<std::string>& paths)> handler) {
  drop_ = std::move(handler);
  DragAcceptFiles(window_, TRUE);
}

void Win32Form::Dropped(HDROP drop) {
  constexpr UINT kCount = 0xFFFFFFFF;
  std::vector<std::string> paths;
  for (UINT i = 0; i < DragQueryFileW(drop, kCount, nullptr, 0); ++i) {
    std::wstring path(DragQueryFileW(drop, i, nullptr, 0), L'\0');
    DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size() + 1));
    paths.push_back(Utf8(path));
  }
  DragFinish(drop);
  loop_.Post(alive_, [this, paths] { drop_(paths); });
}

// Not by ShowWindow, which shows a process's first window as its shortcut asks for: maximised or
// minimised, where a window of fixed size cannot be brought back from.
void Win32Form::Show() {
  if (IsIconic(window_)) ShowWindow(window_, SW_RESTORE);
  SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
  SetForegroundWindow(window_);
}

Twips Win32Form::Width() const {
  return scale_.TwipsX(SizeOf(window_).cx);
}

Twips Win32Form::Height() const {
  return scale_.TwipsY(SizeOf(window_).cy);
}

void Win32Form::MoveTo(Twips left, Twips top) {
  SetWindowPos(window_, nullptr, scale_.PixelsX(left), scale_.PixelsY(top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// A page takes its keys first, but for those of the menu; elsewhere Tab and Enter work as in a
// dialog.
bool Win32Form::Filter(MSG& message) {
  for (auto& [name, browser] : browsers_) browser.Notice(message);
  if (message.message == WM_KEYDOWN && message.wParam == VK_F1 && help_key_ != 0) {
    PostMessageW(window_, WM_SYSCOMMAND, SC_KEYMENU, help_key_);
    return true;
  }
  for (auto& [name, strip] : strips_) {
    if (strip.Takes(message)) return true;
  }
  for (auto& [name, browser] : browsers_) {
    if (!browser.HasFocus()) continue;
    return IsForWindow(message) || browser.Translate(message) ||
           EntryNamed(strips_, name).TakesTab(message);
  }
  // Windows itself presses only default buttons by Enter.
  if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN &&
      buttons_.contains(GetDlgCtrlID(message.hwnd))) {
    SendMessageW(message.hwnd, BM_CLICK, 0, 0);
    return true;
  }
  return IsDialogMessageW(window_, &message) != 0;
}

/// Keys of the window that the page would keep for itself: Alt with a letter or digit, Alt+F4, F10.
/// Other keys with Alt, and Shift+F10, are the page's.
bool Win32Form::IsForWindow(MSG& message) const {
  if (message.message == WM_SYSCHAR) {
    SendMessageW(window_, WM_SYSCOMMAND, SC_KEYMENU, static_cast<LPARAM>(message.wParam));
    return true;
  }
  if (message.message != WM_SYSKEYDOWN) return false;
  const WPARAM key = message.wParam;
  const bool has_alt = (message.lParam & kWithAlt) != 0;
  if (key == VK_F4 && has_alt) {
    PostMessageW(window_, WM_SYSCOMMAND, SC_CLOSE, 0);
    return true;
  }
  if (key == VK_F10 && !has_alt && GetKeyState(VK_SHIFT) >= 0 && GetKeyState(VK_CONTROL) >= 0) {
    PostMessageW(window_, WM_SYSCOMMAND, SC_KEYMENU, 0);
    return true;
  }
  const bool is_command = (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
  if (is_command) TranslateMessage(&message);  // Into the WM_SYSCHAR above.
  return is_command;
}

void Win32Form::FocusFirst() const {
  SetFocus(IsChild(window_, last_focus_) ? last_focus_
                                         : GetNextDlgTabItem(window_, nullptr, FALSE));
}

// The handler may destroy this form, and with it the functions kept here.
void Win32Form::Clicked(const std::string& name) {
  loop_.Post(alive_, [this, name] {
    const auto click = clicks_.find(name);
    if (click == clicks_.end()) return;
    const std::function<void()> handler = click->second;
    handler();
  });
}

void Win32Form::Closed() {
  Hide();
  loop_.Post(alive_, [this] {
    const std::function<void()> handler = close_;
    if (handler) handler();
  });
}

void Win32Form::Command(UINT id) {
  if (const auto button = buttons_.find(id); button != buttons_.end()) {
    Clicked(button->second);
  } else if (const auto item = menu_->NameOf(id)) {
    Clicked(*item);
  }
}

LRESULT Win32Form::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_COMMAND:
      Command(LOWORD(wparam));
      return 0;
    case WM_CLOSE:
      Closed();
      return 0;
    case WM_DRAWITEM:
      if (const auto picture = pictures_.find(static_cast<UINT>(wparam));
          picture != pictures_.end()) {
        DrawPicture(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam), picture->second, scale_);
      }
      return TRUE;
    case WM_DROPFILES:
      Dropped(reinterpret_cast<HDROP>(wparam));
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wparam) == WA_INACTIVE) last_focus_ = GetFocus();
      break;
    case WM_SETFOCUS:
      FocusFirst();
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wparam, lparam);
}

LRESULT CALLBACK Win32Form::WindowProcedure(HWND window, UINT message, WPARAM wparam,
                                            LPARAM lparam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lparam);
    auto* form = static_cast<Win32Form*>(creation->lpCreateParams);
    form->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(form));
  }
  auto* form = reinterpret_cast<Win32Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return form != nullptr ? form->Handle(message, wparam, lparam)
                         : DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace panelkit::windows
