// The strip of a browser pane: GTK's own information bar.
#pragma once

#include <gtk/gtk.h>

#include <memory>

#include "platform/gtk/gtk_pointers.h"
#include "platform/strip.h"

namespace panelkit {

class GtkStrip final : public Strip {
 public:
  /// `pane` gets the keyboard when the strip that has it goes; it outlives the strip.
  explicit GtkStrip(GtkWidget* pane);
  ~GtkStrip() override;
  GtkStrip(const GtkStrip&) = delete;
  GtkStrip& operator=(const GtkStrip&) = delete;

  void Show(StripContent content) override;
  void Hide() override;

  GtkWidget* Widget() const { return bar_.get(); }

 private:
  static void Responded(GtkInfoBar* bar, int response, GtkStrip* self);

  GtkWidget* pane_;
  ObjectPtr<GtkWidget> bar_;
  GtkWidget* sentence_;
  StripContent content_;

  /// Expires with the strip, so that presses which are still queued then call nothing.
  std::shared_ptr<const void> alive_ = std::make_shared<int>();
};

}  // namespace panelkit
