#include "text/line_reader.h"

#include <algorithm>

namespace panelkit {

std::string_view LineReader::Next() {
  if (cr_ < position_) cr_ = Following('\r');
  if (lf_ < position_ && lone_lf_ends_) lf_ = Following('\n');
  if (bracket_ < position_) bracket_ = Following('[');
  const std::size_t end = std::min(cr_, lf_);
  has_bracket_ = bracket_ < end;
  const std::string_view line = text_.substr(position_, end - position_);
  const bool is_cr_lf = end == cr_ && text_.substr(end).starts_with("\r\n");
  ++number_;
  position_ = std::min(end + (is_cr_lf ? 2 : 1), text_.size());
  return line;
}

std::size_t LineReader::Following(char end) const {
  return std::min(text_.find(end, position_), text_.size());
}

}  // namespace panelkit
