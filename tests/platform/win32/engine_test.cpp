// What the pane's page really shows and does: needs the system's HTML engine, which Wine may lack.
#include <windows.h>

#include <mshtml.h>
#include <shellapi.h>

#include <regex>

#include "pages/page_text.h"
#include "platform/win32/listener.h"
#include "platform/win32/screen.h"
#include "platform/win32/win32_browser.h"
#include "platform/windows/check_kit.h"

namespace panelkit::test {
namespace {

using Microsoft::WRL::ComPtr;

bool HasEngine() {
  const Ole ole;
  ComPtr<IUnknown> document;
  return SUCCEEDED(CoCreateInstance(__uuidof(HTMLDocument), nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IUnknown,
                                    reinterpret_cast<void**>(document.GetAddressOf())));
}

const LeftOut kNeedsEngine{!HasEngine(), "no HTML engine"};

std::string Taken(BSTR text) {
  std::string taken = windows::Utf8({text, SysStringLen(text)});
  SysFreeString(text);
  return taken;
}

/// The document that a control shows; null while there is none.
ComPtr<IHTMLDocument2> DocumentOf(IWebBrowser2& control) {
  ComPtr<IDispatch> shown;
  ComPtr<IHTMLDocument2> document;
  if (SUCCEEDED(control.get_Document(&shown)) && shown != nullptr) shown.As(&document);
  return document;
}

/// Its text, without blanks of any kind.
std::string TextOf(IWebBrowser2& control) {
  const auto document = DocumentOf(control);
  ComPtr<IHTMLElement> body;
  BSTR text = nullptr;
  if (document != nullptr && SUCCEEDED(document->get_body(&body)) && body != nullptr) {
    body->get_innerText(&text);
  }
  return std::regex_replace(Taken(text), std::regex("\xC2\xA0|\\s"), "");
}

/// The same of a page's bytes.
std::string TextOf(const std::string& page) {
  return std::regex_replace(page.substr(page.find("<body")), std::regex("<[^>]*>|&nbsp;|\\s"), "");
}

/// The member of a collection of elements at `index`; null if there is none.
template <class Element>
ComPtr<Element> ElementAt(IHTMLElementCollection& elements, int index) {
  VARIANT name{};
  VARIANT place{};
  V_VT(&name) = V_VT(&place) = VT_I4;
  V_I4(&name) = V_I4(&place) = index;
  ComPtr<IDispatch> member;
  ComPtr<Element> element;
  if (SUCCEEDED(elements.item(name, place, &member)) && member != nullptr) member.As(&element);
  return element;
}

/// The program in its window with the pictures that were shipped beside Panelkit.exe.
struct ShownProgram : Screen {
  MadeControl made;

  ShownProgram() {
    const std::filesystem::path program = FromUtf8(std::getenv("PANELKIT_EXE"));
    for (const char* picture : {"confused.gif", "easy.gif", "madhack.gif"}) {
      std::filesystem::copy_file(program.parent_path() / picture, simulator.App() / picture);
    }
    simulator.AddGauge("spare.gau");
  }

  IWebBrowser2& Control() const { return *made.control.Get(); }

  /// Whether the pane comes to show the page that the program has written.
  bool ShowsPage() {
    return Until([this] { return TextOf(Control()) == TextOf(program->ReportHtml); });
  }

  /// Whether the page's first picture comes to have the width of that file's.
  bool ShowsPicture(const char* name) {
    const std::string file = Get(simulator.App() / name);
    const long width =
        static_cast<unsigned char>(file[6]) + 256 * static_cast<unsigned char>(file[7]);
    return Until([&] {
      ComPtr<IHTMLElementCollection> images;
      const auto document = DocumentOf(Control());
      if (document == nullptr || FAILED(document->get_images(&images))) return false;
      const auto image = ElementAt<IHTMLImgElement>(*images.Get(), 0);
      VARIANT_BOOL complete = VARIANT_FALSE;
      long shown = 0;
      return image != nullptr && SUCCEEDED(image->get_complete(&complete)) &&
             complete != VARIANT_FALSE && SUCCEEDED(image->get_width(&shown)) && shown == width;
    });
  }

  /// A key that does nothing, by which the next navigation is the user's.
  void Act() {
    const HWND pane = FindWindowExW(window, nullptr, L"PanelkitPane", nullptr);
    PostMessageW(pane, WM_KEYDOWN, VK_SHIFT, 0);
    const DWORD start = GetTickCount();
    Until([start] { return GetTickCount() - start > 50; });
  }
};

}  // namespace

TEST_CASE_FIXTURE(ShownProgram,
                  "The pane shows each page's whole text, and its picture" * kNeedsEngine) {
  simulator.AddAircraft("Alpha",
                        "[Window Titles]\nWindow00=Main\n\n[Window00]\ngauge00=horn!a,1,2\n");
  Start();
  CHECK(ShowsPage());
  CHECK(ShowsPicture("confused.gif"));
  program->LoadWorking();
  CHECK(ShowsPage());
  CHECK(ShowsPicture("madhack.gif"));
  for (const char command : {'p', 's', 'c'}) {
    CAPTURE(command);
    PostMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, command);
    CHECK(Until([&] { return program->ReportHtml.find("</html>") != std::string::npos; }));
    CHECK(ShowsPage());
  }
  Pick(5, 1);
  CHECK(ShowsPicture("easy.gif"));
  CHECK(ShowsPage());
}

TEST_CASE_FIXTURE(ShownProgram, "A downloaded panel runs no script, loads nothing, leads nowhere" *
                                    kNeedsEngine) {
  const Listener listener;
  const std::string url = windows::Utf8(listener.url);
  simulator.AddAircraft(
      "Alpha", "[Window Titles]\nWindow00=<img src=" + url + "><iframe src=" + url +
                   "></iframe><script>document.title=1</script><img src=x onerror=document.title=2>"
                   "<meta http-equiv=refresh content='1;url=" +
                   url + "'><b style='background: url(" + url +
                   ")'>b</b>\n[Window00]\ngauge=h,1\n");
  Start();
  PostMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, 'p');
  CHECK(Until([this] { return TextOf(Control()).find("SUMMARY") != std::string::npos; }));
  const DWORD start = GetTickCount();
  Until(
      [start] { return GetTickCount() - start > 5000; });  // Five times what the refresh asks for.
  CHECK_FALSE(listener.SawConnection());
  CHECK(Location(Control()).ends_with("GAUGES.HTM"));
  BSTR title = nullptr;
  DocumentOf(Control())->get_title(&title);
  CHECK(Taken(title).empty());
}

TEST_CASE_FIXTURE(ShownProgram,
                  "A link to the web asks once for the user's browser" * kNeedsEngine) {
  std::vector<std::wstring> opened;
  const ReplacedCall<"ShellExecuteW", HINSTANCE(HWND, LPCWSTR, LPCWSTR, LPCWSTR, LPCWSTR, INT)>
      no_browser([&](HWND, LPCWSTR, LPCWSTR file, LPCWSTR, LPCWSTR, INT) {
        opened.emplace_back(file);
        return reinterpret_cast<HINSTANCE>(INT_PTR{33});
      });
  Start();
  REQUIRE(ShowsPage());
  ComPtr<IHTMLElementCollection> links;
  REQUIRE(SUCCEEDED(DocumentOf(Control())->get_links(&links)));
  const auto link = ElementAt<IHTMLElement>(*links.Get(), 0);
  REQUIRE(link != nullptr);
  link->click();  // As a screen reader does.
  CHECK(Until([&] { return !opened.empty(); }));
  Act();
  CHECK(opened.size() == 1);
  CHECK(windows::Utf8(opened[0]).starts_with(SiteUrl));
  CHECK(ShowsPage());
}

TEST_CASE_FIXTURE(ShownProgram,
                  "The user goes back, forward, and loads a page again" * kNeedsEngine) {
  Start();
  REQUIRE(ShowsPage());
  const std::string welcome = TextOf(program->ReportHtml);
  Pick(5, 1);
  REQUIRE(Until([this] { return Location(Control()).ends_with("BRAKES.HTM"); }));
  REQUIRE(ShowsPage());
  Act();
  Control().GoBack();
  CHECK(Until([&] { return TextOf(Control()) == welcome; }));
  Act();
  Control().GoForward();
  CHECK(ShowsPage());
  Act();
  Control().Refresh();
  CHECK(ShowsPage());
}

TEST_CASE("A page from memory shows, and loads nothing" * kNeedsEngine) {
  const Ole ole;
  const Window form;
  const Listener listener;
  const MadeControl made;
  windows::Win32EventLoop loop;
  windows::Win32Browser browser(form.handle, kPane, windows::ScreenScale::OfScreen(), 1, loop);
  browser.ShowFromMemory("<body>from memory<img src=" + windows::Utf8(listener.url) + ">");
  CHECK(WaitFor([&] {
    loop.ProcessPending();
    return TextOf(*made.control.Get()) == "frommemory";
  }));
  CHECK_FALSE(listener.SawConnection());
}

}  // namespace panelkit::test
