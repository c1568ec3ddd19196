#include "pane/pane_policy.h"

#include <doctest/doctest.h>

#include "pane/failure_page.h"

namespace panelkit::test {
namespace {

constexpr const char* kPage = "page";
constexpr const char* kWeb = "http://www.panelkit.example";
constexpr const char* kElsewhere = "https://elsewhere.example/x";

/// A pane, asked with short words; every main frame's load that is allowed is under way.
struct Pane : PanePolicy {
  bool Allows(const char* address, Target target, bool by_user, Place place = Place::MainFrame) {
    return Decide({address, target, place, by_user}) == Answer::Show;
  }
  bool Opens(const char* address, Target target, bool by_user) {
    return Decide({address, target, Place::NewWindow, by_user}) == Answer::OpenInUsersBrowser;
  }
  /// One digit for each: whether the standing page may, by itself, go to the web, show the web in a
  /// frame, and go to a page of the program's; each a try that does not come.
  std::string OnItsOwn() {
    std::string answers;
    for (const bool allowed : {Allows(kElsewhere, Target::Web, false),
                               Allows(kElsewhere, Target::Web, false, Place::Frame),
                               Allows(kPage, Target::OwnPage, false)}) {
      answers += allowed ? '1' : '0';
    }
    return answers;
  }
};

}  // namespace

TEST_CASE_FIXTURE(Pane, "What the program asks for comes once, in any order and spelling") {
  Expect(kPage);
  Expect(kWeb);
  CHECK_FALSE(Allows("other page", Target::OwnPage, false));
  CHECK_FALSE(Allows("http://evil.example/www.panelkit.example", Target::Web, false));
  CHECK_FALSE(Allows("http://www.panelkit.example@evil.example/", Target::Web, false));
  CHECK(Allows("HTTP://kim@WWW.panelkit.example/?a", Target::Web, false));
  CHECK(Allows(kPage, Target::OwnPage, false));
  CHECK(Allows(kPage, Target::OwnPage, false));  // The same load, asked for twice.
  HasCome(Target::OwnPage);
  CHECK(OnItsOwn() == "000");
}

TEST_CASE_FIXTURE(Pane, "Strict rules hold until the web has come, and again where it has not") {
  HasCome(Target::OwnPage);
  CHECK(Allows(kWeb, Target::Web, true));
  CHECK(IsStrict());  // A slow server answers; the page that stands must not use the time.
  CHECK(MayRunScripts());
  CHECK(OnItsOwn() == "000");
  CHECK(Awaits("https://www.panelkit.example/elsewhere"));  // Where it may redirect to.
  CHECK_FALSE(Awaits(kElsewhere));
  CHECK_FALSE(Awaits(kPage));
  HasFailed();
  CHECK_FALSE(MayRunScripts());
  CHECK_FALSE(Awaits(kWeb));
  CHECK(OnItsOwn() == "000");

  CHECK(Allows(kWeb, Target::Web, true));
  HasCome(Target::Web);
  CHECK_FALSE(IsStrict());
  CHECK(OnItsOwn() == "110");
  CHECK(Allows("about:blank", Target::Inline, false, Place::Frame));
  CHECK(Allows(kPage, Target::OwnPage, true));
  CHECK(IsStrict());  // From now on: the page file loads before it is told to have come.
  CHECK_FALSE(MayRunScripts());
  CHECK_FALSE(Allows(kElsewhere, Target::Web, false, Place::Frame));
  HasFailed();
  CHECK_FALSE(IsStrict());
  CHECK(Allows("error", Target::ErrorPage, false));
  HasCome(Target::ErrorPage);
  CHECK(OnItsOwn() == "000");
}

TEST_CASE_FIXTURE(Pane, "Nobody leads to what is neither the web nor the program's") {
  for (const Target stands : {Target::OwnPage, Target::Web, Target::ErrorPage}) {
    HasCome(stands);
    for (const Place place : {Place::MainFrame, Place::Frame, Place::NewWindow}) {
      CHECK(Decide({"calc.exe", Target::Other, place, true}) == Answer::Refuse);
    }
    CHECK_FALSE(Opens(kPage, Target::OwnPage, true));
  }
}

TEST_CASE_FIXTURE(Pane, "A new window is the user's browser's: by a click where scripts may run") {
  HasCome(Target::OwnPage);
  CHECK(Opens(kWeb, Target::Web, false));  // A screen reader, a finger.
  CHECK(Allows(kWeb, Target::Web, true));
  CHECK_FALSE(Opens(kWeb, Target::Web, false));  // By a script of the page that comes?
  HasCome(Target::Web);
  CHECK_FALSE(Opens(kWeb, Target::Web, false));
  CHECK(Opens(kWeb, Target::Web, true));
}

TEST_CASE("Web addresses are told from what begins like one") {
  for (const char* address : {"http://x", "HTTPS://x"}) CHECK(IsWebAddress(address));
  for (const char* address : {"", "http:x", "httpx://x", "ftp://x", "C:\\http://x", "http:/"}) {
    CHECK_FALSE(IsWebAddress(address));
  }
}

TEST_CASE("The page that tells of a failure runs nothing of the address, and offers a browser") {
  const std::string page = FailurePage("http://x/'><b>&", "<i>", "back");
  CHECK(page.find("<p>http://x/&#39;&#62;&#60;b&#62;&#38;<p>&#60;i&#62;<p>") != std::string::npos);
  CHECK(page.find("<a href='http://x/&#39;&#62;&#60;b&#62;&#38;' target='_new'>Open in your "
                  "browser</a><p><a href='back'>") != std::string::npos);
  CHECK(FailurePage("C:\\x", "", "").find("<a ") == std::string::npos);
}

}  // namespace panelkit::test
