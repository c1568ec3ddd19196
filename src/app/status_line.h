// The status line of the main window.
#pragma once

#include <string>
#include <vector>

#include "platform/form.h"

namespace panelkit {

/// What lblStatus shows: a text that stands between commands, how far the command at work has come,
/// and at its end what it has to tell the user.
class StatusLine {
 public:
  /// Begins with the text that the label shows. The label must outlive the object.
  explicit StatusLine(Label& label) : label_(label), standing_text_(label.Caption()) {}

  /// A command starts: forgets what an earlier one had to tell and shows the standing text again.
  void Begin();

  /// Shows how far the command has come.
  void ShowProgress(const std::string& text) { label_.SetCaption(text); }

  /// The command ends: "Done" is the standing text from now on.
  void End();

  /// Tells something that the user has to know although the command did its work. One sentence.
  void Warn(const std::string& sentence);

  /// Tells what the command could not do. One sentence.
  void Complain(const std::string& sentence);

  /// What the command told, in that order; shown in place of the standing text.
  const std::vector<std::string>& Sentences() const { return sentences_; }

  /// Whether one of the sentences is a complaint.
  bool HasComplaint() const { return has_complaint_; }

 private:
  void ShowStanding();

  Label& label_;
  std::string standing_text_;
  std::vector<std::string> sentences_;
  bool has_complaint_ = false;
};

}  // namespace panelkit
