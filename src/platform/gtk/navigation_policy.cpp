#include "platform/gtk/navigation_policy.h"

#include <glib.h>

#include <string>

#include "platform/gtk/gtk_pointers.h"

namespace panelkit {
namespace {

bool StartsWith(const char* text, const char* start) {
  return g_ascii_strncasecmp(text, start, std::char_traits<char>::length(start)) == 0;
}

}  // namespace

void NavigationPolicy::Admit(const std::filesystem::path& file) {
  pages_.insert(file.lexically_normal());
}

Address NavigationPolicy::KindOf(const char* uri) const {
  if (uri == nullptr) return Address::Refused;
  if (IsWebAddress(uri)) return Address::Web;
  if (StartsWith(uri, "about:")) return Address::Blank;
  const std::string_view whole = uri;
  const std::string bare(whole.substr(0, whole.find_first_of("?#")));
  char* host = nullptr;
  const TextPtr file(g_filename_from_uri(bare.c_str(), &host, nullptr));
  const TextPtr host_owner(host);
  if (file == nullptr || host != nullptr) return Address::Refused;
  const auto path = std::filesystem::path(file.get()).lexically_normal();
  return pages_.contains(path) ? Address::PageFile : Address::Refused;
}

bool IsWebAddress(const char* text) {
  return StartsWith(text, "http://") || StartsWith(text, "https://");
}

}  // namespace panelkit
