#include "platform/gtk/navigation_policy.h"

#include <glib.h>

namespace panelkit {
namespace {

bool HasScheme(std::string_view address, std::string_view scheme) {
  return address.size() > scheme.size() && address[scheme.size()] == ':' &&
         g_ascii_strncasecmp(address.data(), scheme.data(), scheme.size()) == 0;
}

/// Whether `address` brings its own content, as frames of web pages do.
bool IsInline(std::string_view address) {
  return HasScheme(address, "about") || HasScheme(address, "blob") || HasScheme(address, "data");
}

}  // namespace

bool NavigationPolicy::Allows(std::string_view address, Cause cause) {
  const auto expected = expected_.find(address);
  const bool on_request = cause == Cause::User || expected != expected_.end();
  if (expected != expected_.end()) expected_.erase(expected);
  if (pages_.Has(address)) return on_request;
  if (IsWebAddress(shown_)) return IsWebAddress(address) || IsInline(address);
  return on_request && IsWebAddress(address);
}

bool IsWebAddress(std::string_view text) {
  return HasScheme(text, "http") || HasScheme(text, "https");
}

}  // namespace panelkit
