#include "platform/gtk/folder_chooser.h"

#include "platform/gtk/gtk_pointers.h"

namespace panelkit {

std::vector<std::string> AskForFolders(GtkWindow* window, const std::string& title,
                                       const std::string& start) {
  const ObjectPtr<GtkFileChooserNative> dialog(gtk_file_chooser_native_new(
      title.c_str(), window, GTK_FILE_CHOOSER_ACTION_SELECT_FOLDER, nullptr, nullptr));
  auto* chooser = GTK_FILE_CHOOSER(dialog.get());
  gtk_file_chooser_set_select_multiple(chooser, TRUE);
  if (!start.empty()) gtk_file_chooser_set_current_folder(chooser, start.c_str());
  std::vector<std::string> folders;
  if (gtk_native_dialog_run(GTK_NATIVE_DIALOG(dialog.get())) != GTK_RESPONSE_ACCEPT) return folders;
  GSList* names = gtk_file_chooser_get_filenames(chooser);
  for (const GSList* name = names; name != nullptr; name = name->next) {
    folders.emplace_back(static_cast<const char*>(name->data));
  }
  g_slist_free_full(names, g_free);
  return folders;
}

}  // namespace panelkit
