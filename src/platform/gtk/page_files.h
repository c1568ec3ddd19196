// The page files, as the pane asks for them.
#pragma once

#include <webkit2/webkit2.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace panelkit {

/// Answers the pane's requests for page files and their pictures, under addresses with a scheme of
/// the program's own ("panelkit://pages/GAUGES.HTM"). Page files carry text of downloaded aircraft
/// as it came; answered by the program rather than read by WebKit, each comes with a content
/// security policy (W3C CSP3) that lets it run nothing and load nothing but kPagePictures.
class PageFiles {
 public:
  /// Registers the scheme with `context`; the object must outlive the context's views. `charset` is
  /// that of the page files; pictures that do not lie beside a page are looked for in `pictures`.
  PageFiles(WebKitWebContext* context, std::string charset, std::filesystem::path pictures);
  PageFiles(const PageFiles&) = delete;
  PageFiles& operator=(const PageFiles&) = delete;

  /// The address of `file`, a native absolute path. The file is read at each request.
  std::string AddressOf(const std::filesystem::path& file);

  /// The address of a page that no file holds.
  std::string AddressOfBytes(const std::string& page);

  /// Whether `address` is that of a page which AddressOf or AddressOfBytes has given.
  bool Has(std::string_view address) const;

  /// The address that was given last.
  const std::string& Last() const { return last_; }

 private:
  struct Page {
    std::filesystem::path file;  ///< Empty where `bytes` are the page.
    std::string bytes;
  };

  std::string Keep(const std::string& name, Page page);
  void Answer(WebKitURISchemeRequest* request) const;

  std::string charset_;
  std::filesystem::path pictures_;
  std::map<std::string, Page, std::less<>> pages_;  ///< By address.
  std::string last_;
};

}  // namespace panelkit
