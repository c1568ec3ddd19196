#include "platform/win32/page_addresses.h"

#include <windows.h>

#include <doctest/doctest.h>

namespace panelkit::test {
namespace {

constexpr const wchar_t* kPage = L"C:\\Höhe #1\\GAUGES.HTM";

std::wstring SystemFolder() {
  wchar_t folder[MAX_PATH] = {};
  GetSystemDirectoryW(folder, MAX_PATH);
  return folder;
}

std::wstring Temporary(const wchar_t* name) {
  wchar_t folder[MAX_PATH + 1] = {};
  GetTempPathW(MAX_PATH, folder);
  return std::wstring(L"file:///") + folder + name;
}

}  // namespace

TEST_CASE("What each address leads to, in every spelling of it") {
  windows::PageAddresses pages;
  pages.Add(kPage);
  const auto target = [&pages](const std::wstring& address) {
    return pages.Load(address, Place::MainFrame, false).target;
  };
  for (const wchar_t* address : {L"about:blank", kPage, L"c:\\höhe #1\\gauges.htm",
                                 L"FILE:///C:/Höhe%20%231/GAUGES.HTM#end"}) {
    CAPTURE(address);
    CHECK(target(address) == Target::OwnPage);
  }
  CHECK(pages.Load(L"file:///C:/Höhe%20%231/GAUGES.HTM", Place::MainFrame, false).address ==
        pages.Load(kPage, Place::MainFrame, false).address);
  CHECK(pages.Load(L"about:blank", Place::Frame, false).target == Target::Inline);
  CHECK(target(L"HTTPS://www.panelkit.example") == Target::Web);
  CHECK(target(L"res://ieframe.dll/navcancl.htm") == Target::ErrorPage);
  CHECK(target(L"RES://" + SystemFolder() + L"\\SHDOCLC.DLL/x.htm") == Target::ErrorPage);
  for (const wchar_t* address :
       {L"", L"C:\\Höhe #1\\BRAKES.HTM", L"C:\\Windows\\system32\\calc.exe", L"file:///C:/",
        L"\\\\server\\share\\GAUGES.HTM", L"javascript:alert(1)", L"about:<b>", L"http:x",
        L"res://C:\\Downloads\\ieframe.dll/x.htm", L"res://other.dll/x.htm", L"ms-settings:",
        L"mailto:kim@panelkit.example", L"ftp://www.panelkit.example", L"mk:@MSITStore:x.chm"}) {
    CAPTURE(address);
    CHECK(target(address) == Target::Other);
  }
}

TEST_CASE("A page file loads the program's pictures beside it, and what printing needs") {
  windows::PageAddresses pages;
  pages.Add(kPage);
  for (const std::wstring& address :
       {std::wstring(kPage), std::wstring(L"file:///C:/Höhe%20%231/EASY.GIF"),
        std::wstring(L"C:\\Höhe #1\\madhack.gif"), std::wstring(L"C:\\Höhe #1\\confused.gif"),
        Temporary(L"RW3K.htm"), std::wstring(L"res://ieframe.dll/preview.dlg"),
        L"res://" + SystemFolder() + L"\\mshtml.dll/printnof.htm"}) {
    CAPTURE(address);
    CHECK(pages.MayLoad(address));
  }
  for (const std::wstring& address :
       {std::wstring(L"http://127.0.0.1/easy.gif"), std::wstring(L"file://server/share/easy.gif"),
        std::wstring(L"\\\\server\\share\\easy.gif"), std::wstring(L"C:\\easy.gif"),
        std::wstring(L"file:///C:/Höhe%20%231/other.gif"), std::wstring(),
        Temporary(L"private.gif"), Temporary(L"..\\private.htm"),
        std::wstring(L"res://shell32.dll/2/1"), std::wstring(L"mk:@MSITStore:C:\\x.chm::/x.gif"),
        std::wstring(L"ms-its:C:\\x.chm::/x.gif"), std::wstring(L"its:C:\\x.chm::/x.gif")}) {
    CAPTURE(address);
    CHECK_FALSE(pages.MayLoad(address));
  }
}

}  // namespace panelkit::test
