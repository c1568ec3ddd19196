#include "platform/gtk/gtk_drop.h"

#include <webkit2/webkit2.h>

#include <utility>

#include "platform/gtk/gtk_pointers.h"

namespace panelkit {
namespace {

using Taken = std::function<void(const std::vector<std::string>& paths)>;

std::vector<std::string> PathsIn(GtkSelectionData* data) {
  std::vector<std::string> paths;
  char** addresses = gtk_selection_data_get_uris(data);
  for (char** address = addresses; address != nullptr && *address != nullptr; ++address) {
    const TextPtr path(g_filename_from_uri(*address, nullptr, nullptr));
    if (path != nullptr) paths.emplace_back(path.get());
  }
  g_strfreev(addresses);
  return paths;
}

void Received(GtkWidget*, GdkDragContext*, int, int, GtkSelectionData* data, guint, guint,
              const Taken* taken) {
  const auto paths = PathsIn(data);
  if (!paths.empty()) (*taken)(paths);
}

// A view would go to what is dropped on it.
void RefuseInViews(GtkWidget* widget, gpointer) {
  if (WEBKIT_IS_WEB_VIEW(widget)) {
    gtk_drag_dest_unset(widget);
  } else if (GTK_IS_CONTAINER(widget)) {
    gtk_container_forall(GTK_CONTAINER(widget), RefuseInViews, nullptr);
  }
}

}  // namespace

void TakeDrops(GtkWidget* window, Taken taken) {
  RefuseInViews(window, nullptr);
  gtk_drag_dest_set(window, GTK_DEST_DEFAULT_ALL, nullptr, 0, GDK_ACTION_COPY);
  gtk_drag_dest_add_uri_targets(window);
  g_signal_connect_data(
      window, "drag-data-received", G_CALLBACK(Received), new Taken(std::move(taken)),
      [](gpointer data, GClosure*) { delete static_cast<Taken*>(data); },
      static_cast<GConnectFlags>(0));
}

}  // namespace panelkit
