// The browser pane: WebKitGTK, with page files kept from loading anything but their pictures.
#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "pane/pane_policy.h"
#include "platform/browser.h"
#include "platform/gtk/find_bar.h"
#include "platform/gtk/gtk_pointers.h"
#include "platform/gtk/gtk_strip.h"
#include "platform/gtk/page_files.h"
#include "platform/local_machine.h"

namespace panelkit {

class GtkBrowser final : public WebBrowser {
 public:
  /// `machine` must outlive the pane.
  explicit GtkBrowser(const LocalMachine& machine);
  ~GtkBrowser() override;
  GtkBrowser(const GtkBrowser&) = delete;
  GtkBrowser& operator=(const GtkBrowser&) = delete;

  void Navigate(const std::string& address) override;
  void ShowFromMemory(const std::string& page) override;
  void OnLinkNotOpened(std::function<void()> handler) override {
    link_not_opened_ = std::move(handler);
  }

  GtkWidget* Widget() const { return pane_.get(); }

  Strip& PaneStrip() { return strip_; }

 private:
  void Load(const std::string& address);
  void OpenInUsersBrowser(const char* address);
  Target TargetOf(const std::string& address) const;
  Answer Decide(WebKitNavigationAction* action, Place place);
  void ShowFailure(const char* address, const char* reason);

  static gboolean DecidePolicy(WebKitWebView* view, WebKitPolicyDecision* decision,
                               WebKitPolicyDecisionType type, GtkBrowser* self);
  static GtkWidget* NewWindow(WebKitWebView* view, WebKitNavigationAction* action,
                              GtkBrowser* self);
  static void LoadChanged(WebKitWebView* view, WebKitLoadEvent event, GtkBrowser* self);
  static gboolean LoadFailed(WebKitWebView* view, WebKitLoadEvent event, const char* address,
                             GError* error, GtkBrowser* self);
  static void ProcessEnded(WebKitWebView* view, WebKitWebProcessTerminationReason reason,
                           GtkBrowser* self);

  const LocalMachine& machine_;
  ObjectPtr<WebKitWebContext> context_;
  PageFiles pages_;
  PanePolicy policy_;
  ObjectPtr<WebKitWebView> view_;
  FindBar find_bar_;
  GtkStrip strip_;
  ObjectPtr<GtkWidget> pane_;   ///< Holds the view, the find bar and the strip.
  bool failure_comes_ = false;  ///< The page that comes tells of a failure.
  std::function<void()> link_not_opened_;

  /// Expires with the pane, so that a browser's start that fails later reports to nobody.
  std::shared_ptr<const void> alive_ = std::make_shared<int>();
};

}  // namespace panelkit
