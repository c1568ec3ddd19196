// Measures the window. "start" ends when the program has started and its welcome page is shown;
// "empty" when a WebKitGTK window with nothing else in it has started and shows a few letters, or
// the page at URI. "probe" runs Probe For Missing Gauges in the window, "search" that and a search
// in PLACES, and prints, in milliseconds, how long it took, how long a click waited at most
// meanwhile, and how long a repaint.
#include <gtk/gtk.h>
#include <webkit2/webkit2.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/frm_gauges.h"
#include "platform/gtk/gtk_event_loop.h"
#include "platform/gtk/gtk_toolkit.h"
#include "platform/local_machine.h"
#include "simulator/simulator_location.h"

namespace panelkit::bench {
namespace {

double Milliseconds() {
  return static_cast<double>(g_get_monotonic_time()) / 1000;
}

/// The window that is shown: the About window is not.
GtkWidget* MainWindow() {
  GtkWidget* shown = nullptr;
  GList* windows = gtk_window_list_toplevels();
  for (const GList* i = windows; i != nullptr; i = i->next) {
    if (gtk_widget_get_mapped(GTK_WIDGET(i->data))) shown = GTK_WIDGET(i->data);
  }
  g_list_free(windows);
  return shown;
}

/// The first pane in the container.
void FindPane(GtkWidget* widget, gpointer found) {
  if (WEBKIT_IS_WEB_VIEW(widget)) *static_cast<WebKitWebView**>(found) = WEBKIT_WEB_VIEW(widget);
  if (GTK_IS_CONTAINER(widget)) gtk_container_forall(GTK_CONTAINER(widget), FindPane, found);
}

/// Calls `task` when the pane has loaded its first page and drawn a picture of it.
void WhenShown(WebKitWebView* pane, std::function<void()> task) {
  static std::function<void()> when_drawn;
  when_drawn = std::move(task);
  const auto loaded = +[](WebKitWebView* view, WebKitLoadEvent event, gpointer) {
    if (event != WEBKIT_LOAD_FINISHED) return;
    g_signal_handlers_disconnect_by_data(view, &when_drawn);
    webkit_web_view_get_snapshot(
        view, WEBKIT_SNAPSHOT_REGION_VISIBLE, WEBKIT_SNAPSHOT_OPTIONS_NONE, nullptr,
        [](GObject*, GAsyncResult*, gpointer) { when_drawn(); }, nullptr);
  };
  g_signal_connect(pane, "load-changed", G_CALLBACK(loaded), &when_drawn);
}

/// The longest time between two moments.
class Gap {
 public:
  void Start() { *this = Gap(); }
  void Note() {
    const double now = Milliseconds();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
  }
  double Longest() const { return longest_; }

 private:
  double last_ = Milliseconds();
  double longest_ = 0;
};

[[noreturn]] void Measure(const std::function<void()>& work) {
  Gap clicks;
  Gap repaints;
  // As urgent as a click, and due all the time; so is a repaint.
  g_timeout_add_full(
      G_PRIORITY_DEFAULT, 1,
      [](gpointer gap) -> gboolean {
        static_cast<Gap*>(gap)->Note();
        gdk_frame_clock_request_phase(gtk_widget_get_frame_clock(MainWindow()),
                                      GDK_FRAME_CLOCK_PHASE_PAINT);
        return G_SOURCE_CONTINUE;
      },
      &clicks, nullptr);
  g_signal_connect_swapped(gtk_widget_get_frame_clock(MainWindow()), "after-paint",
                           G_CALLBACK(+[](Gap* gap) { gap->Note(); }), &repaints);
  const double start = Milliseconds();
  clicks.Start();
  repaints.Start();
  work();
  clicks.Note();
  repaints.Note();
  (void)std::printf("%.1f %.1f %.1f\n", Milliseconds() - start, clicks.Longest(),
                    repaints.Longest());
  (void)std::fflush(stdout);
  std::_Exit(EXIT_SUCCESS);
}

[[noreturn]] void RunProgram(std::string_view what, std::vector<std::string> places) {
  const auto machine = OpenLocalMachine([](const Machine& candidate) {
    return !FindSimulator(candidate.registry, candidate.text).empty();
  });
  const auto toolkit = GtkToolkit::Open(*machine);
  if (!toolkit) std::exit(EXIT_FAILURE);
  machine->Services().archives.WhileReading([&] { toolkit->Loop().ProcessPending(); });
  for (std::string& place : places) place = machine->WindowsPath(place);
  frmGauges program(*toolkit, machine->Services());
  program.Show();
  WebKitWebView* pane = nullptr;
  FindPane(MainWindow(), &pane);
  const auto alive = std::make_shared<int>();
  WhenShown(pane, [&] {
    if (what == "start") std::_Exit(EXIT_SUCCESS);
    // As a click would, not inside the pane's own turn.
    PostToLoop(alive, [&] {
      Measure([&] { what == "probe" ? program.menProbe_Click() : program.FindIn(places); });
    });
  });
  RunEventLoop(*toolkit);
}

[[noreturn]] void ShowEmptyWindow(const char* page) {
  gtk_init(nullptr, nullptr);
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_default_size(GTK_WINDOW(window), 696, 490);
  GtkWidget* pane = webkit_web_view_new();
  gtk_container_add(GTK_CONTAINER(window), pane);
  WhenShown(WEBKIT_WEB_VIEW(pane), [] { std::_Exit(EXIT_SUCCESS); });
  if (page != nullptr) {
    webkit_web_view_load_uri(WEBKIT_WEB_VIEW(pane), page);
  } else {
    webkit_web_view_load_html(WEBKIT_WEB_VIEW(pane), "<p>Empty</p>", nullptr);
  }
  gtk_widget_show_all(window);
  gtk_main();
  std::abort();
}

}  // namespace
}  // namespace panelkit::bench

int main(int argc, char** argv) {
  const std::string_view what = argc > 1 ? argv[1] : "";
  if (what == "empty") panelkit::bench::ShowEmptyWindow(argc > 2 ? argv[2] : nullptr);
  if (what == "start" || what == "probe" || what == "search") {
    panelkit::bench::RunProgram(what, {argv + 2, argv + argc});
  }
  (void)std::fputs("usage: bench_window start | probe | search PLACES | empty [URI]\n", stderr);
  return EXIT_FAILURE;
}
