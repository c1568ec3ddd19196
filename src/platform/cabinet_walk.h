// Seam 2, cabinet walk: the conversation of SetupIterateCabinetA.
#pragma once

#include <cstdint>
#include <string>

namespace panelkit {

/// One entry of a cabinet, handed over with SPFILENOTIFY_FILEINCABINET. The fields are those of
/// setupapi.h; the layout is this program's own.
struct FILE_IN_CABINET_INFO {
  const char* NameInCabinet =
      nullptr;                 ///< ANSI, folders separated by backslashes; valid in the call.
  std::uint32_t FileSize = 0;  ///< Bytes.
  std::uint32_t Win32Error = 0;
  std::uint16_t DosDate = 0;  ///< FAT layout, as stored.
  std::uint16_t DosTime = 0;  ///< FAT layout, as stored.
  std::uint16_t DosAttribs = 0;
  char FullTargetName[260] = {};  ///< ANSI, out: where to extract to, with FILEOP_DOIT.
};

/// The outcome of one extraction, handed over with SPFILENOTIFY_FILEEXTRACTED.
struct FILEPATHS {
  const char* Target = nullptr;  ///< ANSI path of the file written; valid in the call.
  const char* Source = nullptr;  ///< ANSI path of the cabinet.
  std::uint32_t Win32Error = 0;  ///< 0 when the file was written whole.
  std::uint32_t Flags = 0;
};

/// Notifications that the program tells apart.
inline constexpr std::uint32_t SPFILENOTIFY_FILEINCABINET = 0x11;
inline constexpr std::uint32_t SPFILENOTIFY_NEEDNEWCABINET = 0x12;
inline constexpr std::uint32_t SPFILENOTIFY_FILEEXTRACTED = 0x13;

/// Answers to SPFILENOTIFY_FILEINCABINET.
inline constexpr std::uint32_t FILEOP_ABORT = 0;
inline constexpr std::uint32_t FILEOP_DOIT = 1;
inline constexpr std::uint32_t FILEOP_SKIP = 2;

/// Called once for every event of a walk, on the caller's thread. `Param1` and `Param2` are as wide
/// as an address and carry the notification's record.
using CabinetMsgHandler = std::uint32_t (*)(std::uint32_t Context, std::uint32_t Notification,
                                            std::uintptr_t Param1, std::uintptr_t Param2);

/// The machine's cabinet service.
class CabinetWalk {
 public:
  virtual ~CabinetWalk() = default;

  /// Walks the entries of `CabinetFile` (a Windows path in UTF-8) in the cabinet's order and calls
  /// `MsgHandler` with `Context` for each; acts on its answers; returns when the walk is over.
  /// After FILEOP_ABORT no further notification comes and the walk counts as a success. An answer
  /// other than 0 to SPFILENOTIFY_FILEEXTRACTED stops the walk and becomes its error. A damaged
  /// cabinet gives the entries before the damage, then fails. Gives non-zero on success, else 0
  /// with the reason in LastError, which is never 0 then. An exception out of `MsgHandler` ends the
  /// walk and comes out of this call.
  virtual std::uint32_t SetupIterateCabinetA(const std::string& CabinetFile, std::uint32_t Reserved,
                                             CabinetMsgHandler MsgHandler,
                                             std::uint32_t Context) = 0;

  /// The code of winerror.h for the last failed walk: 2 no such file, 3 no such folder, 5 no
  /// access, 13 no cabinet or a damaged one, 112 disk full, 123 impossible name, ...
  virtual std::int32_t GetLastError() const = 0;
};

}  // namespace panelkit
