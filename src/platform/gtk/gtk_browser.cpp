#include "platform/gtk/gtk_browser.h"

#include "platform/gtk/pane_menu.h"

namespace panelkit {
namespace {

WebKitSettings* PaneSettings(const LocalMachine& machine) {
  WebKitSettings* settings = webkit_settings_new();
  webkit_settings_set_default_charset(settings, machine.Charset().c_str());
  // Old drivers leave an accelerated pane white.
  webkit_settings_set_hardware_acceleration_policy(settings,
                                                   WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER);
  webkit_settings_set_enable_webgl(settings, FALSE);
  webkit_settings_set_enable_javascript(settings, FALSE);
  webkit_settings_set_enable_fullscreen(settings, FALSE);
  // A page kept in memory would come back without asking whether its scripts may run.
  webkit_settings_set_enable_page_cache(settings, FALSE);
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

const char* UriOf(WebKitNavigationAction* action) {
  return webkit_uri_request_get_uri(webkit_navigation_action_get_request(action));
}

void OpenInUsersBrowser(const char* uri) {
  const ObjectPtr<GdkAppLaunchContext> context(
      gdk_display_get_app_launch_context(gdk_display_get_default()));
  g_app_info_launch_default_for_uri_async(uri, G_APP_LAUNCH_CONTEXT(context.get()), nullptr,
                                          nullptr, nullptr);
}

/// A link that asks for a window of its own goes to the user's browser, if the user has clicked it.
void DecideNewWindow(WebKitNavigationPolicyDecision* decision) {
  WebKitNavigationAction* action =
      webkit_navigation_policy_decision_get_navigation_action(decision);
  const char* uri = UriOf(action);
  if (webkit_navigation_action_is_user_gesture(action) && IsWebAddress(uri)) {
    OpenInUsersBrowser(uri);
  }
  webkit_policy_decision_ignore(WEBKIT_POLICY_DECISION(decision));
}

/// Pages ask for Tahoma; where it is missing, the form's other fonts stand in for it.
WebKitUserContentManager* PageFonts() {
  const char* const sheet =
      "@font-face { font-family: tahoma; font-weight: normal;"
      "  src: local('Tahoma'), local('Liberation Sans'), local('Arial'), local('DejaVu Sans'); }"
      "@font-face { font-family: tahoma; font-weight: bold;"
      "  src: local('Tahoma Bold'), local('Liberation Sans Bold'), local('Arial Bold'),"
      "       local('DejaVu Sans Bold'); }";
  const char* const pages[] = {"file:///*", nullptr};
  WebKitUserStyleSheet* fonts = webkit_user_style_sheet_new(
      sheet, WEBKIT_USER_CONTENT_INJECT_TOP_FRAME, WEBKIT_USER_STYLE_LEVEL_AUTHOR, pages, nullptr);
  WebKitUserContentManager* content = webkit_user_content_manager_new();
  webkit_user_content_manager_add_style_sheet(content, fonts);
  webkit_user_style_sheet_unref(fonts);
  return content;
}

}  // namespace

GtkBrowser::GtkBrowser(const LocalMachine& machine) : machine_(machine), context_(PaneContext()) {
  const ObjectPtr<WebKitSettings> settings(PaneSettings(machine));
  const ObjectPtr<WebKitUserContentManager> content(PageFonts());
  view_ = KeepObject(WEBKIT_WEB_VIEW(g_object_new(WEBKIT_TYPE_WEB_VIEW, "web-context",
                                                  context_.get(), "settings", settings.get(),
                                                  "user-content-manager", content.get(), nullptr)));
  g_signal_connect(view_.get(), "decide-policy", G_CALLBACK(DecidePolicy), this);
  g_signal_connect(view_.get(), "load-changed", G_CALLBACK(LoadChanged), this);
  g_signal_connect(view_.get(), "load-failed", G_CALLBACK(LoadFailed), this);
  AttachPaneMenu(view_.get());
}

GtkBrowser::~GtkBrowser() {
  g_signal_handlers_disconnect_by_data(view_.get(), this);
}

void GtkBrowser::Navigate(const std::string& address) {
  if (IsWebAddress(address.c_str())) {
    webkit_web_view_load_uri(view_.get(), address.c_str());
    return;
  }
  const std::string file = machine_.NativePath(address);
  const TextPtr uri(g_filename_to_uri(file.c_str(), nullptr, nullptr));
  if (uri == nullptr) return;
  rules_.Admit(file);
  webkit_web_view_load_uri(view_.get(), uri.get());
}

// Scripts go off as soon as a page file is asked for and on only when a web page answers, so that
// no page file that still stands in the meantime, or stays because the web page never comes, can
// run any.
void GtkBrowser::SetScripts(bool on) {
  webkit_settings_set_enable_javascript(webkit_web_view_get_settings(view_.get()), on);
}

gboolean GtkBrowser::DecidePolicy(WebKitWebView*, WebKitPolicyDecision* decision,
                                  WebKitPolicyDecisionType type, gpointer self) {
  auto* browser = static_cast<GtkBrowser*>(self);
  switch (type) {
    case WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION:
      browser->DecideNavigation(WEBKIT_NAVIGATION_POLICY_DECISION(decision));
      break;
    case WEBKIT_POLICY_DECISION_TYPE_NEW_WINDOW_ACTION:
      DecideNewWindow(WEBKIT_NAVIGATION_POLICY_DECISION(decision));
      break;
    case WEBKIT_POLICY_DECISION_TYPE_RESPONSE:
      browser->DecideResponse(WEBKIT_RESPONSE_POLICY_DECISION(decision));
      break;
  }
  return TRUE;
}

void GtkBrowser::DecideNavigation(WebKitNavigationPolicyDecision* decision) {
  const Address kind =
      rules_.KindOf(UriOf(webkit_navigation_policy_decision_get_navigation_action(decision)));
  if (kind == Address::Refused) {
    webkit_policy_decision_ignore(WEBKIT_POLICY_DECISION(decision));
    return;
  }
  if (kind == Address::PageFile) SetScripts(false);
  webkit_policy_decision_use(WEBKIT_POLICY_DECISION(decision));
}

void GtkBrowser::DecideResponse(WebKitResponsePolicyDecision* decision) {
  const Address kind = rules_.KindOf(
      webkit_uri_request_get_uri(webkit_response_policy_decision_get_request(decision)));
  const bool main_page = webkit_response_policy_decision_is_main_frame_main_resource(decision);
  if (!webkit_response_policy_decision_is_mime_type_supported(decision)) {
    webkit_policy_decision_ignore(WEBKIT_POLICY_DECISION(decision));
    return;
  }
  if (main_page) SetScripts(kind == Address::Web);
  webkit_policy_decision_use(WEBKIT_POLICY_DECISION(decision));
}

void GtkBrowser::LoadChanged(WebKitWebView* view, WebKitLoadEvent event, gpointer self) {
  if (event != WEBKIT_LOAD_COMMITTED) return;
  auto* browser = static_cast<GtkBrowser*>(self);
  browser->web_page_stands_ = browser->rules_.KindOf(webkit_web_view_get_uri(view)) == Address::Web;
  browser->SetScripts(browser->web_page_stands_);
}

gboolean GtkBrowser::LoadFailed(WebKitWebView*, WebKitLoadEvent, const char*, GError*,
                                gpointer self) {
  auto* browser = static_cast<GtkBrowser*>(self);
  if (!browser->web_page_stands_) browser->SetScripts(false);
  return FALSE;
}

}  // namespace panelkit
