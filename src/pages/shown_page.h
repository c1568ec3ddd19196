// Pages of headings and indented lines, in the look of the reports. Every text is shown as it is:
// nothing in it is taken for HTML.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace panelkit {

/// A page under construction.
class ShownPage {
 public:
  explicit ShownPage(std::string_view title);

  /// A heading below what is there.
  void Heading(std::string_view words);

  /// A line; each blank at its beginning indents it.
  void Line(std::string_view line);

  /// The same, in bold letters.
  void BoldLine(std::string_view line);

  /// A bold line and below it each name, indented.
  void Names(std::string_view line, const std::vector<std::string>& names);

  /// The whole page.
  std::string Take();

 private:
  std::string html_;
};

}  // namespace panelkit
