// What a user can do about a missing file, as data and as words that can be typed as they stand.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace panelkit {

/// What kind of help a deed is.
enum class DeedKind {
  Restore,    ///< Bring `file` back from SpareGauges.
  Install,    ///< Copy `file`, or what it holds, to Gauges.
  LookFor,    ///< Look for a better file elsewhere.
  Rename,     ///< Rename `file` to `name`.
  Unhide,     ///< Take the attributes "hidden" and "system" off `file`.
  Repack,     ///< Pack the cabinet `file` anew with its entry named `name`.
  EditPanel,  ///< Have the panel name `name`.
};

/// One deed.
struct Deed {
  DeedKind kind = DeedKind::LookFor;
  std::string file = {};  ///< Restore: a file name. Else a Windows path, if there is one.
  std::string name = {};  ///< Install: the required file that it stands for, if it must be told.
  std::string in_the_way = {};  ///< A file of Gauges that must be moved away before; or empty.
};

/// How commands are written for the user at hand.
struct CommandStyle {
  /// As the usual shell of this machine, Unix or Windows, reads commands.
  static CommandStyle Of(const Files& files);

  std::string program = "panelkit-console";  ///< With the options that choose the simulator.
  std::string look_in = "FOLDER";            ///< Where a user's downloads lie, quoted if need be.
  bool is_posix = false;  ///< The shell is one of Unix, and the simulator lies in a Wine prefix.
};

/// A text as one argument of a command.
std::string AsArgument(std::string_view text, bool is_posix);

/// A deed as the end of a line: the command, or what to do in a few words.
std::string TextOf(const Deed& deed, const CommandStyle& style);

}  // namespace panelkit
