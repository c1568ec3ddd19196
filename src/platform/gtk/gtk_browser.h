// The browser pane: WebKitGTK with scripts off for page files.
#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/browser.h"
#include "platform/gtk/gtk_pointers.h"
#include "platform/gtk/navigation_policy.h"
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
  void OnLinkNotOpened(std::function<void()> handler) override {
    link_not_opened_ = std::move(handler);
  }

  GtkWidget* Widget() const { return GTK_WIDGET(view_.get()); }

 private:
  void SetScripts(bool on);
  void DecideNavigation(WebKitNavigationPolicyDecision* decision);
  void DecideResponse(WebKitResponsePolicyDecision* decision);

  static gboolean DecidePolicy(WebKitWebView* view, WebKitPolicyDecision* decision,
                               WebKitPolicyDecisionType type, gpointer self);
  static void LoadChanged(WebKitWebView* view, WebKitLoadEvent event, gpointer self);
  static gboolean LoadFailed(WebKitWebView* view, WebKitLoadEvent event, const char* uri,
                             GError* error, gpointer self);

  const LocalMachine& machine_;
  NavigationPolicy rules_;
  ObjectPtr<WebKitWebContext> context_;
  ObjectPtr<WebKitWebView> view_;
  std::function<void()> link_not_opened_;
  bool web_page_stands_ = false;  ///< What the pane shows came from the web.
};

}  // namespace panelkit
