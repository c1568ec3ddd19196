// The bar below the page in which the user looks for a text on it.
#pragma once

#include <webkit2/webkit2.h>

#include "platform/gtk/gtk_pointers.h"

namespace panelkit {

/// Hidden until Open. Finds as the user types, whatever the case, and goes on from the page's start
/// after its end. Enter and F3 go to the next match, with Shift to the one before; Escape closes.
class FindBar {
 public:
  /// Finds in `view`, which must outlive the bar.
  explicit FindBar(WebKitWebView* view);
  ~FindBar();
  FindBar(const FindBar&) = delete;
  FindBar& operator=(const FindBar&) = delete;

  /// Shows the bar with its text selected, ready to be typed over.
  void Open();
  /// Goes to the next match; opens the bar if there is no text to find yet.
  void Next();
  void Previous();

  GtkWidget* Widget() const { return bar_.get(); }

 private:
  void Find();
  void Tell(const char* outcome, bool found);
  void Closed();
  static gboolean KeyPressed(GtkWidget* entry, const GdkEventKey* key, gpointer self);

  WebKitWebView* view_;
  WebKitFindController* finder_;  ///< Owned by the view.
  ObjectPtr<GtkWidget> bar_;
  GtkWidget* entry_;
  GtkWidget* outcome_;
};

}  // namespace panelkit
