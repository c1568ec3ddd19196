// The pane's parts as COM objects, each asked directly: what needs no HTML engine.
#include <windows.h>

#include <doctest/doctest.h>
#include <exdispid.h>
#include <mshtmdid.h>
#include <msxml.h>
#include <shobjidl.h>
#include <urlmon.h>
#include <winsock2.h>

#include <functional>

#include "platform/win32/browser_document.h"
#include "platform/win32/browser_events.h"
#include "platform/win32/browser_host.h"
#include "platform/win32/fetch_guard.h"
#include "platform/win32/win32_browser.h"
#include "platform/win32/windows_on_screen.h"
#include "platform/windows/replaced_call.h"
#include "platform/windows/wide.h"
#include "support/temp_folder.h"

namespace panelkit::test {
namespace {

using Microsoft::WRL::ComPtr;

struct Ole {
  Ole() { OleInitialize(nullptr); }
  ~Ole() { OleUninitialize(); }
  Ole(const Ole&) = delete;
  Ole& operator=(const Ole&) = delete;
};

/// A window of the system's own kind, never shown.
struct Window {
  Window() = default;
  ~Window() { DestroyWindow(handle); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  HWND handle = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 200, 100, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
};

/// A socket that listens on the loopback address.
struct Listener {
  Listener() {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
    socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    REQUIRE(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0);
    listen(socket, 5);
    u_long non_blocking = 1;
    ioctlsocket(socket, FIONBIO, &non_blocking);
    int size = sizeof address;
    getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    url = L"http://127.0.0.1:" + std::to_wstring(ntohs(address.sin_port)) + L"/x.gif";
  }
  ~Listener() {
    closesocket(socket);
    WSACleanup();
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  bool SawConnection() const { return accept(socket, nullptr, nullptr) != INVALID_SOCKET; }

  SOCKET socket;
  std::wstring url;
};

/// Fetches an address as the browser control does; the bytes, or "refused".
std::string Fetch(const std::wstring& url) {
  ComPtr<IStream> stream;
  const HRESULT result = URLOpenBlockingStreamW(nullptr, url.c_str(), &stream, 0, nullptr);
  if (FAILED(result)) return "refused";
  char bytes[100] = {};
  ULONG read = 0;
  stream->Read(bytes, sizeof bytes, &read);
  return {bytes, read};
}

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

constexpr ControlDescription kPane{"pane", ControlKind::WebBrowser, 0, 0, 1500, 1500, 0, "", ""};

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

TEST_CASE("While the guard is on, nothing refused is opened or connected to") {
  const Ole ole;
  const TempFolder folder;
  const Listener listener;
  Put(folder / "easy.gif", "picture");
  Put(folder / "other.gif", "other");
  const std::wstring picture = L"file:///" + (folder / "easy.gif").wstring();
  const std::wstring other = L"file:///" + (folder / "other.gif").wstring();
  std::vector<std::wstring> asked;
  windows::FetchGuard guard([&](const std::wstring& url) {
    asked.push_back(url);
    return url.ends_with(L"easy.gif");
  });
  CHECK(Fetch(other) == "other");
  // An address that is refused itself: it cannot show whether Wine goes on to its own handler.
  guard.TurnOn(L"file:///" + (folder / "absent").wstring());
  CHECK(Fetch(other) == "refused");
  CHECK(Fetch(listener.url) == "refused");
  for (const wchar_t* address :
       {L"file://server/share/x.gif", L"res://shell32.dll/2/1", L"mk:@MSITStore:C:\\x.chm::/x.gif",
        L"its:C:\\x.chm::/x.gif", L"ms-its:C:\\x.chm::/x.gif"}) {
    CAPTURE(address);
    const std::size_t before = asked.size();
    CHECK(Fetch(address) == "refused");
    CHECK(asked.size() == before + 1);
  }
  CHECK_FALSE(listener.SawConnection());
  guard.TurnOff();
  CHECK(Fetch(other) == "other");
  // Wine does not go on to the system's own handler: there the pages' files must load all the same.
  guard.TurnOn(picture);
  CHECK(Fetch(picture) == "picture");
  CHECK(Fetch(listener.url) == "refused");
  CHECK_FALSE(listener.SawConnection());
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

TEST_CASE("A page from memory goes into an empty document, with the guard on") {
  const Ole ole;
  const Window form;
  const Listener listener;
  const MadeControl made;
  windows::Win32EventLoop loop;
  windows::Win32Browser browser(form.handle, kPane, windows::ScreenScale::OfScreen(), 1, loop);
  browser.Navigate("http://127.0.0.1:9/");
  browser.ShowFromMemory("page");
  CHECK(WaitFor([&] {
    loop.ProcessPending();
    return Location(*made.control.Get()) == "about:blank";
  }));
  CHECK(Fetch(listener.url) == "refused");
  CHECK_FALSE(listener.SawConnection());
  // In place of the control's own document, which Wine lacks: another that loads itself so.
  ComPtr<IXMLDOMDocument> document;
  REQUIRE(SUCCEEDED(CoCreateInstance(CLSID_DOMDocument, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IXMLDOMDocument,
                                     reinterpret_cast<void**>(document.GetAddressOf()))));
  CHECK(windows::LoadPage(document.Get(), "<page/>"));
  BSTR content = nullptr;
  CHECK(SUCCEEDED(document->get_xml(&content)));
  CHECK(windows::Utf8({content, SysStringLen(content)}).starts_with("<page/>"));
  SysFreeString(content);
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
