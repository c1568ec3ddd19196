#include "platform/win32/navigation_policy.h"

#include <doctest/doctest.h>

using panelkit::windows::NavigationPolicy;

TEST_CASE("The pane loads the web and the program's own pages, and no other file or scheme") {
  NavigationPolicy rules;
  rules.Admit(L"C:\\Höhe #1\\GAUGES.HTM");
  for (const wchar_t* address :
       {L"http://www.panelkit.example/", L"HTTPS://www.panelkit.example", L"about:blank",
        L"C:\\Höhe #1\\GAUGES.HTM", L"c:\\höhe #1\\gauges.htm",
        L"file:///C:/Höhe%20%231/GAUGES.HTM", L"file:///C:/Höhe%20%231/GAUGES.HTM#end",
        L"res://ieframe.dll/navcancl.htm"}) {
    CAPTURE(address);
    CHECK(rules.MayLoad(address));
  }
  for (const wchar_t* address :
       {L"", L"C:\\Höhe #1\\BRAKES.HTM", L"C:\\Windows\\system32\\calc.exe", L"file:///C:/",
        L"\\\\server\\share\\GAUGES.HTM", L"javascript:alert(1)", L"about:<b>",
        L"mailto:kim@panelkit.example", L"ms-settings:", L"httpx://www.panelkit.example",
        L"ftp://www.panelkit.example"}) {
    CAPTURE(address);
    CHECK_FALSE(rules.MayLoad(address));
  }
}
