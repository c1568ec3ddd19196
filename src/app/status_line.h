// The status line of the main window.
#pragma once

#include <string>
#include <vector>

#include "platform/form.h"

namespace panelkit {

/// What lblStatus shows: how far a report command has come, at its end that it is done or what it
/// could not do, and what other picks could not do. A pick without a failure leaves the label
/// alone.
class StatusLine {
 public:
  /// Begins with the text that the label shows. The label must outlive the object.
  explicit StatusLine(Label& label) : label_(label), end_text_(label.Caption()) {}

  /// A command starts: what an earlier one told is no longer among the sentences. The label stays.
  void Begin();

  /// Shows a text until the next one: how far the command has come, or what else has happened.
  void Show(const std::string& text) { label_.SetCaption(text); }

  /// A report command ends: shows what it told or, if that is nothing, "Done".
  void End();

  /// Shows again what the last report command ended with.
  void ShowEnd() { label_.SetCaption(end_text_); }

  /// Tells something that the user has to know although the command did its work. One sentence.
  void Warn(const std::string& sentence);

  /// Tells what the command could not do. One sentence.
  void Complain(const std::string& sentence);

  /// What the command told, in that order.
  const std::vector<std::string>& Sentences() const { return sentences_; }

  /// Whether one of the sentences is a complaint.
  bool HasComplaint() const { return has_complaint_; }

 private:
  Label& label_;
  std::string end_text_;
  std::vector<std::string> sentences_;
  bool has_complaint_ = false;
};

}  // namespace panelkit
