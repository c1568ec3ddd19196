#include "platform/win32/navigation_policy.h"

#include <windows.h>

#include <doctest/doctest.h>

using panelkit::windows::NavigationPolicy;

namespace {

constexpr const wchar_t* kPage = L"C:\\Höhe #1\\GAUGES.HTM";
constexpr const wchar_t* kWeb = L"HTTPS://www.panelkit.example";

}  // namespace

TEST_CASE("A page file gives way to the program's pages, and to the web only for the user") {
  wchar_t system_folder[MAX_PATH] = {};
  GetSystemDirectoryW(system_folder, MAX_PATH);
  const std::wstring error_page = std::wstring(L"res://") + system_folder + L"\\SHDOCLC.DLL/x.htm";
  NavigationPolicy policy;
  policy.Admit(kPage);
  policy.Going(kPage);
  for (const wchar_t* address :
       {L"about:blank", kPage, L"c:\\höhe #1\\gauges.htm", L"file:///C:/Höhe%20%231/GAUGES.HTM",
        L"file:///C:/Höhe%20%231/GAUGES.HTM#end", L"res://ieframe.dll/navcancl.htm",
        error_page.c_str()}) {
    CAPTURE(address);
    CHECK(policy.MayShow(address, false));
  }
  for (const wchar_t* address :
       {L"", L"C:\\Höhe #1\\BRAKES.HTM", L"C:\\Windows\\system32\\calc.exe", L"file:///C:/",
        L"\\\\server\\share\\GAUGES.HTM", L"javascript:alert(1)", L"about:<b>",
        L"res://C:\\Downloads\\ieframe.dll/x.htm", L"res://other.dll/x.htm",
        L"mailto:kim@panelkit.example", L"ms-settings:", L"httpx://www.panelkit.example",
        L"ftp://www.panelkit.example"}) {
    CAPTURE(address);
    CHECK_FALSE(policy.MayShow(address, true));
    CHECK_FALSE(policy.MayShowInFrame(address));
  }
  CHECK_FALSE(policy.MayShow(kWeb, false));  // A refresh that the page asks for.
  CHECK(policy.MayShow(kWeb, true));
  CHECK_FALSE(policy.MayShowInFrame(kWeb));
  policy.Admit(kWeb);
  CHECK(policy.MayShow(kWeb, false));
  policy.Going(kWeb);
  CHECK_FALSE(policy.ShowsPageFile());
  CHECK(policy.MayShow(L"http://elsewhere.example/", false));
  CHECK(policy.MayShowInFrame(L"http://elsewhere.example/"));
  CHECK(policy.MayShow(kPage, false));
  policy.Going(kPage);
  CHECK_FALSE(policy.MayShow(kWeb, false));
}

TEST_CASE("A page file fetches nothing but the program's pictures beside it") {
  NavigationPolicy policy;
  policy.Admit(kPage);
  policy.Going(kPage);
  for (const wchar_t* address : {kPage, L"file:///C:/Höhe%20%231/EASY.GIF",
                                 L"C:\\Höhe #1\\madhack.gif", L"C:\\Höhe #1\\confused.gif"}) {
    CAPTURE(address);
    CHECK(policy.MayFetch(address));
  }
  for (const wchar_t* address :
       {kWeb, L"http://127.0.0.1/easy.gif", L"file://server/share/easy.gif",
        L"\\\\server\\share\\easy.gif", L"file:///C:/Höhe%20%231/other.gif", L"C:\\easy.gif",
        L"ftp://127.0.0.1/easy.gif", L""}) {
    CAPTURE(address);
    CHECK_FALSE(policy.MayFetch(address));
  }
  policy.Going(kWeb);
  CHECK(policy.MayFetch(L"http://elsewhere.example/x.js"));
}
