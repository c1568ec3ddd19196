// What a page file, or a page from memory, may fetch: nothing but the program's pictures.
#include <windows.h>

#include <doctest/doctest.h>
#include <msxml.h>
#include <urlmon.h>

#include "platform/win32/browser_document.h"
#include "platform/win32/fetch_guard.h"
#include "platform/win32/listener.h"
#include "platform/win32/win32_browser.h"
#include "platform/win32/windows_on_screen.h"
#include "platform/windows/wide.h"
#include "support/temp_folder.h"

namespace panelkit::test {
namespace {

using Microsoft::WRL::ComPtr;

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

}  // namespace

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

}  // namespace panelkit::test
