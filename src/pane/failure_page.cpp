#include "pane/failure_page.h"

#include "pane/pane_policy.h"
#include "text/html.h"

namespace panelkit {
namespace {

std::string Link(std::string_view address, std::string_view rest, std::string_view text) {
  return "<p><a href='" + Escaped(address) + "'" + std::string(rest) + ">" + std::string(text) +
         "</a>";
}

}  // namespace

std::string FailurePage(std::string_view address, std::string_view reason, std::string_view back) {
  std::string page =
      "<meta http-equiv='Content-Type' content='text/html; charset=utf-8'>"
      "<body style='font: 13px tahoma, sans-serif; margin: 3em'>"
      "<p><b>This page could not be shown</b><p>" +
      Escaped(address) + "<p>" + Escaped(reason);
  if (IsWebAddress(address)) page += Link(address, " target='_new'", "Open in your browser");
  if (!back.empty()) page += Link(back, "", "Back to Panelkit's own page");
  return page;
}

}  // namespace panelkit
