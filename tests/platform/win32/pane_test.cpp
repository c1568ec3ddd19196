// The pane's parts as COM objects, each asked directly: what needs no HTML engine.
#include <windows.h>

#include <doctest/doctest.h>
#include <exdispid.h>
#include <mshtmdid.h>
#include <shobjidl.h>

#include <functional>

#include "platform/win32/browser_events.h"
#include "platform/win32/browser_host.h"
#include "platform/win32/win32_browser.h"
#include "platform/win32/windows_on_screen.h"
#include "platform/windows/wide.h"

namespace panelkit::test {
namespace {

using Microsoft::WRL::ComPtr;

/// Sends an event with these arguments, the last one first.
void Send(windows::BrowserEvents& events, DISPID event, std::vector<VARIANT> arguments) {
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  CHECK(events.Invoke(event, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                      nullptr) == S_OK);
  for (VARIANT& argument : arguments) VariantClear(&argument);
}

/// What the control finds in the cancel flag of such an event.
bool IsCancelled(windows::BrowserEvents& events, DISPID event, std::vector<VARIANT> arguments,
                 std::size_t cancel) {
  VARIANT_BOOL cancelled = VARIANT_FALSE;
  V_VT(&arguments[cancel]) = VT_BYREF | VT_BOOL;
  V_BOOLREF(&arguments[cancel]) = &cancelled;
  Send(events, event, std::move(arguments));
  return cancelled == VARIANT_TRUE;
}

VARIANT Text(const wchar_t* text) {
  VARIANT value{};
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = SysAllocString(text);
  return value;
}

VARIANT Number(LONG number) {
  VARIANT value{};
  V_VT(&value) = VT_UI4;
  V_I4(&value) = number;
  return value;
}

VARIANT Frame(IDispatch* frame) {
  VARIANT value{};
  V_VT(&value) = VT_DISPATCH;
  V_DISPATCH(&value) = frame;
  frame->AddRef();
  return value;
}

bool IsSilent(IWebBrowser2& control) {
  VARIANT_BOOL silent = VARIANT_FALSE;
  control.get_Silent(&silent);
  return silent != VARIANT_FALSE;
}

}  // namespace

TEST_CASE("The control may run and load by what the main frame shows, and ends with its window") {
  const Ole ole;
  const Window window;
  bool web = false;
  auto* host = new windows::BrowserHost(window.handle, {[&] { return web; }, [] {}});
  REQUIRE(host->Control() != nullptr);
  const auto allowed = [host] {
    ComPtr<IDispatch> ambient;
    VARIANT value{};
    REQUIRE(SUCCEEDED(host->QueryInterface(IID_PPV_ARGS(&ambient))));
    REQUIRE(SUCCEEDED(ambient->Invoke(DISPID_AMBIENT_DLCONTROL, IID_NULL, 0, DISPATCH_PROPERTYGET,
                                      nullptr, &value, nullptr, nullptr)));
    return V_I4(&value);
  };
  constexpr LONG kKeptOut = DLCTL_NO_SCRIPTS | DLCTL_NO_JAVA | DLCTL_NO_RUNACTIVEXCTLS |
                            DLCTL_NO_DLACTIVEXCTLS | DLCTL_NO_FRAMEDOWNLOAD | DLCTL_NO_CLIENTPULL |
                            DLCTL_FORCEOFFLINE;
  CHECK((allowed() & kKeptOut) == kKeptOut);
  CHECK((allowed() & (DLCTL_DLIMAGES | DLCTL_VIDEOS | DLCTL_BGSOUNDS)) == DLCTL_DLIMAGES);
  CHECK_FALSE(IsSilent(*host->Control()));  // Printing asks by a dialog.
  web = true;
  host->RulesChanged();
  CHECK(IsSilent(*host->Control()));  // A script may not.
  CHECK((allowed() & (kKeptOut & ~DLCTL_NO_DLACTIVEXCTLS)) == 0);
  host->Close();
  CHECK(GetWindow(window.handle, GW_CHILD) == nullptr);
  CHECK(host->Release() == 0);
}

TEST_CASE("A page gets a new window only by the user's click, and frames are told apart") {
  std::wstring log;
  const ComPtr<windows::BrowserEvents> events(new windows::BrowserEvents(
      {[&log](const std::wstring& address, bool is_main_frame) {
         log += address + (is_main_frame ? L" main|" : L" frame|");
         return address != L"http://no.example";
       },
       [&log](const std::wstring& address, bool user_acted) {
         log += L"new " + address + (user_acted ? L" by user|" : L"|");
       },
       [&log](const std::wstring& address) { log += address + L" has come|"; },
       [&log](const std::wstring& address) { log += address + L" loaded|"; },
       [&log](const std::wstring& address) { return !(log += address + L" has failed|").empty(); },
       [&log] { log += L"ended|"; }}));
  const auto new_window = [&](LONG flags) {
    return IsCancelled(*events.Get(), DISPID_NEWWINDOW3,
                       {Text(L"http://a.example"), Text(L""), Number(flags), {}, {}}, 3);
  };
  CHECK(new_window(NWMF_USERINITED | NWMF_FIRST));
  CHECK(new_window(NWMF_FIRST));
  CHECK(IsCancelled(*events.Get(), DISPID_NEWWINDOW2, {{}, {}}, 0));
  CHECK(windows::Utf8(log) == "new http://a.example by user|new http://a.example|new |");

  log.clear();
  const Ole ole;
  ComPtr<IWebBrowser2> pane;
  ComPtr<IWebBrowser2> frame;
  for (auto& control : {std::ref(pane), std::ref(frame)}) {
    REQUIRE(SUCCEEDED(CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER,
                                       IID_IWebBrowser2,
                                       reinterpret_cast<void**>(control.get().GetAddressOf()))));
  }
  events->ListenTo(*pane.Get());
  const auto navigates = [&](IWebBrowser2* where, const wchar_t* address) {
    return !IsCancelled(*events.Get(), DISPID_BEFORENAVIGATE2,
                        {{}, {}, {}, {}, {}, Text(address), Frame(where)}, 0);
  };
  CHECK(navigates(pane.Get(), L"http://a.example"));
  CHECK_FALSE(navigates(frame.Get(), L"http://no.example"));
  for (const auto& where : {frame, pane}) {
    Send(*events.Get(), DISPID_DOWNLOADCOMPLETE, {});  // Of the page before.
    Send(*events.Get(), DISPID_NAVIGATECOMPLETE2, {Text(L"about:blank"), Frame(where.Get())});
    Send(*events.Get(), DISPID_DOCUMENTCOMPLETE, {Text(L"about:blank"), Frame(where.Get())});
  }
  const auto fails = [&](IWebBrowser2* where, HRESULT status) {
    return IsCancelled(*events.Get(), DISPID_NAVIGATEERROR,
                       {{}, Number(status), {}, Text(L"http://a.example"), Frame(where)}, 0);
  };
  CHECK(fails(pane.Get(), INET_E_RESOURCE_NOT_FOUND));
  CHECK_FALSE(fails(pane.Get(), E_ABORT));
  CHECK_FALSE(fails(pane.Get(), 404));
  CHECK_FALSE(fails(frame.Get(), INET_E_RESOURCE_NOT_FOUND));
  for (const DISPID event : {DISPID_DOWNLOADBEGIN, DISPID_DOWNLOADCOMPLETE}) {
    Send(*events.Get(), event, {});
  }
  CHECK(windows::Utf8(log) ==
        "http://a.example main|http://no.example frame|about:blank has come|about:blank loaded|"
        "http://a.example has failed|ended|");
  events->StopListening();
  ComPtr<IConnectionPointContainer> sources;
  ComPtr<IConnectionPoint> source;
  ComPtr<IEnumConnections> connections;
  REQUIRE(SUCCEEDED(pane.As(&sources)));
  REQUIRE(SUCCEEDED(sources->FindConnectionPoint(DIID_DWebBrowserEvents2, &source)));
  CONNECTDATA connection{};
  if (SUCCEEDED(source->EnumConnections(&connections))) {
    CHECK(connections->Next(1, &connection, nullptr) != S_OK);
  }
  events->AddRef();
  CHECK(events->Release() == 1);
}

TEST_CASE("Ctrl with N opens no window; AltGr with N is a letter") {
  const Ole ole;
  const Window form;
  windows::Win32EventLoop loop;
  windows::Win32Browser browser(form.handle, kPane, windows::ScreenScale::OfScreen(), 1, loop);
  MSG key{browser.Window(), WM_KEYDOWN, 'N', 0, 0, {}};
  BYTE keys[256] = {};
  keys[VK_CONTROL] = 0x80;
  SetKeyboardState(keys);
  CHECK(browser.Translate(key));
  keys[VK_MENU] = 0x80;
  SetKeyboardState(keys);
  CHECK_FALSE(browser.Translate(key));
  SetKeyboardState(std::vector<BYTE>(256).data());
}

}  // namespace panelkit::test
