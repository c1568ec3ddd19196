#include "app/status_line.h"

#include <algorithm>

namespace panelkit {

void StatusLine::Begin() {
  sentences_.clear();
  has_complaint_ = false;
  ShowStanding();
}

void StatusLine::End() {
  standing_text_ = "Done";
  ShowStanding();
}

void StatusLine::Warn(const std::string& sentence) {
  if (std::find(sentences_.begin(), sentences_.end(), sentence) == sentences_.end()) {
    sentences_.push_back(sentence);
  }
  ShowStanding();
}

void StatusLine::Complain(const std::string& sentence) {
  has_complaint_ = true;
  Warn(sentence);
}

void StatusLine::ShowStanding() {
  std::string shown;
  for (const std::string& sentence : sentences_) shown += (shown.empty() ? "" : " ") + sentence;
  label_.SetCaption(shown.empty() ? standing_text_ : shown);
}

}  // namespace panelkit
