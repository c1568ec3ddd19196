#include "app/status_line.h"

#include <algorithm>

namespace panelkit {
namespace {

std::string Joined(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& sentence : sentences) text += (text.empty() ? "" : " ") + sentence;
  return text;
}

}  // namespace

void StatusLine::Begin() {
  sentences_.clear();
  has_complaint_ = false;
}

void StatusLine::End() {
  end_text_ = sentences_.empty() ? "Done" : Joined(sentences_);
  ShowEnd();
}

void StatusLine::Warn(const std::string& sentence) {
  if (std::find(sentences_.begin(), sentences_.end(), sentence) == sentences_.end()) {
    sentences_.push_back(sentence);
  }
  Show(Joined(sentences_));
}

void StatusLine::Complain(const std::string& sentence) {
  has_complaint_ = true;
  Warn(sentence);
}

}  // namespace panelkit
