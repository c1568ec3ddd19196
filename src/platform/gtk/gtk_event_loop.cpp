#include "platform/gtk/gtk_event_loop.h"

#include <cstdlib>
#include <utility>

#include "platform/toolkit.h"

namespace panelkit {
namespace {

// In microseconds. Short enough that the window answers and repaints every 50 milliseconds, while
// the work gets four fifths of the time. A run that was cut off may not have come to the repaint,
// which is less urgent than all else: the next ones follow soon, and the work gets two fifths until
// all is delivered.
constexpr gint64 kPauseBetweenRuns = 25000;
constexpr gint64 kPauseAfterCutRun = 4000;
constexpr gint64 kLongestRun = 6000;

struct PostedTask {
  std::weak_ptr<const void> owner;
  std::function<void()> task;
};

}  // namespace

void GtkEventLoop::ProcessPending() {
  const gint64 start = g_get_monotonic_time();
  if (start < next_run_) return;
  gint64 now = start;
  bool has_more = true;
  while (has_more && now - start < kLongestRun) {
    has_more = g_main_context_iteration(nullptr, FALSE) != FALSE;
    now = g_get_monotonic_time();
  }
  next_run_ = now + (has_more ? kPauseAfterCutRun : kPauseBetweenRuns);
}

void GtkEventLoop::End() {
  std::_Exit(EXIT_SUCCESS);
}

void RunEventLoop(Toolkit& /*toolkit*/) {
  while (true) g_main_context_iteration(nullptr, TRUE);
}

void PostToLoop(std::weak_ptr<const void> owner, std::function<void()> task) {
  // With the priority of events, not the lower one of idle work, which an animated picture that is
  // redrawn all the time would keep from running: "Exit Program" must always work.
  g_idle_add_full(
      G_PRIORITY_DEFAULT,
      [](gpointer data) -> gboolean {
        const auto* posted = static_cast<PostedTask*>(data);
        if (!posted->owner.expired()) posted->task();
        return G_SOURCE_REMOVE;
      },
      new PostedTask{std::move(owner), std::move(task)},
      [](gpointer data) { delete static_cast<PostedTask*>(data); });
}

}  // namespace panelkit
