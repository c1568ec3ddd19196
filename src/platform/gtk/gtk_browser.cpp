#include "platform/gtk/gtk_browser.h"

#include "pane/failure_page.h"
#include "platform/gtk/gtk_event_loop.h"
#include "platform/gtk/pane_keys.h"
#include "platform/gtk/pane_menu.h"

namespace panelkit {
namespace {

/// Turns off what a content security policy does not forbid: connecting to a host, or looking up
/// its name, because a page says that it will be needed.
void TurnOffHints(WebKitSettings* settings) {
  WebKitFeatureList* features = webkit_settings_get_all_features();
  for (gsize i = 0; i < webkit_feature_list_get_length(features); ++i) {
    WebKitFeature* feature = webkit_feature_list_get(features, i);
    const std::string_view name = webkit_feature_get_identifier(feature);
    if (name == "LinkPreconnect" || name == "LinkDNSPrefetch") {
      webkit_settings_set_feature_enabled(settings, feature, FALSE);
    }
  }
  webkit_feature_list_unref(features);
}

WebKitSettings* PaneSettings(const LocalMachine& machine) {
  WebKitSettings* settings = webkit_settings_new();
  webkit_settings_set_default_charset(settings, machine.Charset().c_str());
  // Old drivers leave an accelerated pane white.
  webkit_settings_set_hardware_acceleration_policy(settings,
                                                   WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER);
  webkit_settings_set_enable_webgl(settings, FALSE);
  webkit_settings_set_enable_fullscreen(settings, FALSE);
  // Without it, "Back" would show a page file as it was, not as it is.
  webkit_settings_set_enable_page_cache(settings, FALSE);
  TurnOffHints(settings);
  return settings;
}

WebKitWebContext* PaneContext() {
  WebKitWebContext* context = webkit_web_context_new_ephemeral();
  webkit_web_context_set_cache_model(context, WEBKIT_CACHE_MODEL_DOCUMENT_VIEWER);
  g_signal_connect(context, "download-started",
                   G_CALLBACK(+[](WebKitWebContext*, WebKitDownload* download, gpointer) {
                     webkit_download_cancel(download);
                   }),
                   nullptr);
  return context;
}

const char* AddressOf(WebKitNavigationAction* action) {
  return webkit_uri_request_get_uri(webkit_navigation_action_get_request(action));
}

/// "Open Link", Back and Forward come without WebKit's mark of a user's action. They count as one:
/// a page cannot imitate them without scripts, which page files may not run.
bool IsByUser(WebKitNavigationAction* action) {
  const WebKitNavigationType type = webkit_navigation_action_get_navigation_type(action);
  return webkit_navigation_action_is_user_gesture(action) ||
         webkit_navigation_action_is_redirect(action) ||
         type == WEBKIT_NAVIGATION_TYPE_LINK_CLICKED || type == WEBKIT_NAVIGATION_TYPE_BACK_FORWARD;
}

/// Whether `address` brings its own content.
bool IsInline(const std::string& address) {
  const TextPtr scheme(g_uri_parse_scheme(address.c_str()));
  const std::string_view name(scheme != nullptr ? scheme.get() : "");
  return name == "about" || name == "blob" || name == "data";
}

/// Whether a load failed, rather than being refused by the policy or replaced by another load.
bool IsFailure(const GError* error) {
  return error->domain != WEBKIT_POLICY_ERROR &&
         !g_error_matches(error, WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_CANCELLED);
}

/// Substitutes for Tahoma, which the pages ask for, on a system without it.
WebKitUserContentManager* PageFonts() {
  const char* const sheet =
      "@font-face { font-family: tahoma; font-weight: normal;"
      "  src: local('Tahoma'), local('Liberation Sans'), local('Arial'), local('DejaVu Sans'); }"
      "@font-face { font-family: tahoma; font-weight: bold;"
      "  src: local('Tahoma Bold'), local('Liberation Sans Bold'), local('Arial Bold'),"
      "       local('DejaVu Sans Bold'); }";
  const char* const pages[] = {"panelkit://*/*", nullptr};
  WebKitUserStyleSheet* fonts = webkit_user_style_sheet_new(
      sheet, WEBKIT_USER_CONTENT_INJECT_TOP_FRAME, WEBKIT_USER_STYLE_LEVEL_AUTHOR, pages, nullptr);
  WebKitUserContentManager* content = webkit_user_content_manager_new();
  webkit_user_content_manager_add_style_sheet(content, fonts);
  webkit_user_style_sheet_unref(fonts);
  return content;
}

WebKitWebView* NewWebView(WebKitWebContext* context, const LocalMachine& machine) {
  const ObjectPtr<WebKitSettings> settings(PaneSettings(machine));
  const ObjectPtr<WebKitUserContentManager> content(PageFonts());
  return WEBKIT_WEB_VIEW(g_object_new(WEBKIT_TYPE_WEB_VIEW, "web-context", context, "settings",
                                      settings.get(), "user-content-manager", content.get(),
                                      nullptr));
}

}  // namespace

GtkBrowser::GtkBrowser(const LocalMachine& machine)
    : machine_(machine),
      context_(PaneContext()),
      pages_(context_.get(), machine.Charset(), machine.NativePath(machine.PictureFolder())),
      view_(KeepObject(NewWebView(context_.get(), machine))),
      find_bar_(view_.get()),
      strip_(GTK_WIDGET(view_.get())),
      pane_(KeepObject(gtk_box_new(GTK_ORIENTATION_VERTICAL, 0))) {
  g_signal_connect(view_.get(), "decide-policy", G_CALLBACK(DecidePolicy), this);
  g_signal_connect(view_.get(), "create", G_CALLBACK(NewWindow), this);
  g_signal_connect(view_.get(), "load-changed", G_CALLBACK(LoadChanged), this);
  g_signal_connect(view_.get(), "load-failed", G_CALLBACK(LoadFailed), this);
  g_signal_connect(view_.get(), "web-process-terminated", G_CALLBACK(ProcessEnded), this);
  gtk_box_pack_start(GTK_BOX(pane_.get()), GTK_WIDGET(view_.get()), TRUE, TRUE, 0);
  gtk_box_pack_start(GTK_BOX(pane_.get()), find_bar_.Widget(), FALSE, FALSE, 0);
  gtk_box_pack_start(GTK_BOX(pane_.get()), strip_.Widget(), FALSE, FALSE, 0);
  atk_object_set_role(gtk_widget_get_accessible(pane_.get()), ATK_ROLE_PANEL);
  AttachPaneMenu(view_.get(), policy_);
  AttachPaneKeys(view_.get(), find_bar_);
}

GtkBrowser::~GtkBrowser() {
  g_signal_handlers_disconnect_by_data(view_.get(), this);
}

void GtkBrowser::Navigate(const std::string& address) {
  Load(IsWebAddress(address) ? address : pages_.AddressOf(machine_.NativePath(address)));
}

void GtkBrowser::ShowFromMemory(const std::string& page) {
  Load(pages_.AddressOfBytes(page));
}

void GtkBrowser::Load(const std::string& address) {
  const ObjectPtr<WebKitURIRequest> request(webkit_uri_request_new(address.c_str()));
  policy_.Expect(address);
  webkit_web_view_load_request(view_.get(), request.get());
}

void GtkBrowser::OpenInUsersBrowser(const char* address) {
  struct Start {
    std::weak_ptr<const void> pane;
    std::function<void()> failed;
  };
  const ObjectPtr<GdkAppLaunchContext> context(
      gdk_display_get_app_launch_context(gdk_display_get_default()));
  g_app_info_launch_default_for_uri_async(
      address, G_APP_LAUNCH_CONTEXT(context.get()), nullptr,
      [](GObject*, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Start> start(static_cast<Start*>(data));
        if (g_app_info_launch_default_for_uri_finish(result, nullptr) || !start->failed) return;
        PostToLoop(start->pane, start->failed);
      },
      new Start{alive_, link_not_opened_});
}

gboolean GtkBrowser::DecidePolicy(WebKitWebView*, WebKitPolicyDecision* decision,
                                  WebKitPolicyDecisionType type, GtkBrowser* self) {
  bool allowed = false;
  if (type == WEBKIT_POLICY_DECISION_TYPE_RESPONSE) {
    allowed = webkit_response_policy_decision_is_mime_type_supported(
                  WEBKIT_RESPONSE_POLICY_DECISION(decision)) != FALSE;
  } else {
    const bool in_pane = type == WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION;
    WebKitNavigationAction* action = webkit_navigation_policy_decision_get_navigation_action(
        WEBKIT_NAVIGATION_POLICY_DECISION(decision));
    allowed = self->Decide(action, in_pane ? Place::MainFrame : Place::NewWindow) != Answer::Refuse;
  }
  (allowed ? webkit_policy_decision_use : webkit_policy_decision_ignore)(decision);
  return TRUE;
}

Target GtkBrowser::TargetOf(const std::string& address) const {
  if (pages_.Has(address)) return Target::OwnPage;
  if (IsWebAddress(address)) return Target::Web;
  return IsInline(address) ? Target::Inline : Target::Other;
}

/// WebKit does not tell a frame's load from the pane's. Only web pages have frames here, and may
/// lead both to the same addresses.
Answer GtkBrowser::Decide(WebKitNavigationAction* action, Place place) {
  const std::string address = AddressOf(action);
  return policy_.Decide({address, TargetOf(address), place, IsByUser(action)});
}

// "Open Link" on a link that asks for a window comes straight here.
GtkWidget* GtkBrowser::NewWindow(WebKitWebView*, WebKitNavigationAction* action, GtkBrowser* self) {
  const char* address = AddressOf(action);
  if (IsWebAddress(address)) self->OpenInUsersBrowser(address);
  return nullptr;
}

void GtkBrowser::LoadChanged(WebKitWebView* view, WebKitLoadEvent event, GtkBrowser* self) {
  if (event != WEBKIT_LOAD_COMMITTED) return;
  const bool failed = std::exchange(self->failure_comes_, false);
  self->policy_.HasCome(failed ? Target::ErrorPage : self->TargetOf(webkit_web_view_get_uri(view)));
}

gboolean GtkBrowser::LoadFailed(WebKitWebView*, WebKitLoadEvent, const char* address, GError* error,
                                GtkBrowser* self) {
  self->policy_.HasFailed();
  if (IsFailure(error)) self->ShowFailure(address, error->message);
  return TRUE;
}

void GtkBrowser::ProcessEnded(WebKitWebView* view, WebKitWebProcessTerminationReason,
                              GtkBrowser* self) {
  self->ShowFailure(webkit_web_view_get_uri(view), "The page has broken its viewer.");
}

void GtkBrowser::ShowFailure(const char* address, const char* reason) {
  failure_comes_ = true;
  const std::string page = FailurePage(address != nullptr ? address : "", reason, pages_.Last());
  webkit_web_view_load_alternate_html(view_.get(), page.c_str(), address, pages_.Last().c_str());
}

}  // namespace panelkit
