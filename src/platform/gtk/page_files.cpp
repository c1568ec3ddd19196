#include "platform/gtk/page_files.h"

#include <libsoup/soup.h>

#include <utility>

#include "platform/browser.h"
#include "platform/gtk/gtk_pointers.h"

namespace panelkit {
namespace {

constexpr const char* kScheme = "panelkit";
constexpr std::string_view kPages = "panelkit://pages/";

/// Forbids scripts, frames, forms, base addresses and every load but that of the pictures, and
/// keeps web pages from showing a page file in a frame.
constexpr const char* kPolicy =
    "default-src 'none'; img-src panelkit:; style-src 'unsafe-inline'; base-uri 'none'; "
    "form-action 'none'; frame-ancestors 'none'";

struct UnrefBytes {
  void operator()(GBytes* bytes) const { g_bytes_unref(bytes); }
};
using BytesPtr = std::unique_ptr<GBytes, UnrefBytes>;

/// Null where `file` cannot be read.
BytesPtr ReadFile(const std::filesystem::path& file) {
  char* bytes = nullptr;
  gsize size = 0;
  if (!g_file_get_contents(file.c_str(), &bytes, &size, nullptr)) return nullptr;
  return BytesPtr(g_bytes_new_take(bytes, size));
}

/// The picture `name` that lies beside a page file, else that of `pictures`.
BytesPtr ReadPicture(const std::filesystem::path& page, const std::filesystem::path& pictures,
                     std::string_view name) {
  if (!page.empty()) {
    if (BytesPtr bytes = ReadFile(page.parent_path() / name)) return bytes;
  }
  return ReadFile(pictures / name);
}

void Reply(WebKitURISchemeRequest* request, GBytes* bytes, const std::string& type) {
  const ObjectPtr<GInputStream> stream(g_memory_input_stream_new_from_bytes(bytes));
  const ObjectPtr<WebKitURISchemeResponse> response(
      webkit_uri_scheme_response_new(stream.get(), static_cast<gint64>(g_bytes_get_size(bytes))));
  webkit_uri_scheme_response_set_content_type(response.get(), type.c_str());
  SoupMessageHeaders* headers = soup_message_headers_new(SOUP_MESSAGE_HEADERS_RESPONSE);
  soup_message_headers_append(headers, "Content-Security-Policy", kPolicy);
  soup_message_headers_append(headers, "X-DNS-Prefetch-Control", "off");
  soup_message_headers_append(headers, "Cache-Control", "no-store");
  webkit_uri_scheme_response_set_http_headers(response.get(), headers);  // Takes the reference.
  webkit_uri_scheme_request_finish_with_response(request, response.get());
}

/// Without the query and the fragment.
std::string_view BareAddress(std::string_view address) {
  return address.substr(0, address.find_first_of("?#"));
}

}  // namespace

PageFiles::PageFiles(WebKitWebContext* context, std::string charset, std::filesystem::path pictures)
    : charset_(std::move(charset)), pictures_(std::move(pictures)) {
  webkit_web_context_register_uri_scheme(
      context, kScheme,
      [](WebKitURISchemeRequest* request, gpointer self) {
        static_cast<const PageFiles*>(self)->Answer(request);
      },
      this, nullptr);
  webkit_security_manager_register_uri_scheme_as_display_isolated(
      webkit_web_context_get_security_manager(context), kScheme);
}

std::string PageFiles::AddressOf(const std::filesystem::path& file) {
  return Keep(file.filename(), {file, {}});
}

std::string PageFiles::AddressOfBytes(const std::string& page) {
  return Keep("unwritten.htm", {{}, page});
}

std::string PageFiles::Keep(const std::string& name, Page page) {
  const TextPtr escaped(g_uri_escape_string(name.c_str(), nullptr, FALSE));
  last_ = std::string(kPages) + escaped.get();
  pages_.insert_or_assign(last_, std::move(page));
  return last_;
}

bool PageFiles::Has(std::string_view address) const {
  return pages_.contains(BareAddress(address));
}

void PageFiles::Answer(WebKitURISchemeRequest* request) const {
  const std::string_view address = BareAddress(webkit_uri_scheme_request_get_uri(request));
  if (const auto found = pages_.find(address); found != pages_.end()) {
    const auto& [file, page] = found->second;
    const BytesPtr bytes(file.empty() ? g_bytes_new(page.data(), page.size())
                                      : ReadFile(file).release());
    if (bytes) return Reply(request, bytes.get(), "text/html; charset=" + charset_);
  }
  const auto shown = pages_.find(last_);
  for (const std::string_view name : kPagePictures) {
    if (shown == pages_.end() || address != std::string(kPages).append(name)) continue;
    const BytesPtr picture = ReadPicture(shown->second.file, pictures_, name);
    if (picture) return Reply(request, picture.get(), "image/gif");
  }
  const std::unique_ptr<GError, void (*)(GError*)> missing(
      g_error_new_literal(G_FILE_ERROR, G_FILE_ERROR_NOENT, "The file cannot be read."),
      g_error_free);
  webkit_uri_scheme_request_finish_error(request, missing.get());
}

}  // namespace panelkit
