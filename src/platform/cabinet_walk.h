// The cabinet service: walks over the entries of a Microsoft Cabinet file and extracts them.
//
// The conversation is that of SetupIterateCabinetA in setupapi.h and keeps its names: one handler
// with four parameters gets every notification, its answers steer the walk. The records hold only
// the fields that the program reads or writes, and their texts are UTF-8: the back end knows how
// a cabinet's names are encoded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace panelkit {

/// One entry of a cabinet; comes with SPFILENOTIFY_FILEINCABINET.
struct FILE_IN_CABINET_INFO {
  const char* NameInCabinet = nullptr;  ///< Folders separated by backslashes; valid in the call.
  std::uint32_t FileSize = 0;           ///< Bytes.
  std::uint16_t DosDate = 0;            ///< FAT layout, as stored.
  std::uint16_t DosTime = 0;            ///< FAT layout, as stored.
  std::string FullTargetName;           ///< Out, with FILEOP_DOIT: Windows path to extract to.
};

/// The service has room for so many bytes of FullTargetName in the ANSI code page.
inline constexpr std::size_t kLongestTargetName = 259;

/// The outcome of one extraction; comes with SPFILENOTIFY_FILEEXTRACTED.
struct FILEPATHS {
  const char* Target = nullptr;  ///< Windows path of the file written; valid in the call.
  std::uint32_t Win32Error = 0;  ///< 0 if the file was written whole.
};

/// Notifications that the program answers; it answers 0 to any other.
inline constexpr std::uint32_t SPFILENOTIFY_FILEINCABINET = 0x11;
inline constexpr std::uint32_t SPFILENOTIFY_NEEDNEWCABINET = 0x12;
inline constexpr std::uint32_t SPFILENOTIFY_FILEEXTRACTED = 0x13;

/// Answers to SPFILENOTIFY_FILEINCABINET.
inline constexpr std::uint32_t FILEOP_ABORT = 0;
inline constexpr std::uint32_t FILEOP_DOIT = 1;
inline constexpr std::uint32_t FILEOP_SKIP = 2;

/// Called once for every notification of a walk, on the caller's thread. `Param1` is the address of
/// the notification's record; `Param2` is the service's own and says nothing to the program.
using CabinetMsgHandler = std::uint32_t (*)(std::uint32_t Context, std::uint32_t Notification,
                                            std::uintptr_t Param1, std::uintptr_t Param2);

/// The code of winerror.h for a cabinet whose path the service cannot take: with letters that the
/// ANSI code page lacks, for one.
inline constexpr std::int32_t kImpossibleName = 123;

/// The machine's cabinet service.
class CabinetWalk {
 public:
  virtual ~CabinetWalk() = default;

  /// Walks the entries of `CabinetFile` (a Windows path) in the cabinet's order, calls `MsgHandler`
  /// with `Context` for each and acts on its answers. Where an entry is extracted to is the
  /// caller's word alone: links on the way there are followed. Non-zero if the walk succeeded, else
  /// 0 with the reason in GetLastError.
  ///
  /// After FILEOP_ABORT no further notification comes and the walk counts as a success. An answer
  /// other than 0 to SPFILENOTIFY_FILEEXTRACTED stops the walk and becomes its error. A damaged
  /// cabinet gives the entries before the damage, then fails. An exception out of `MsgHandler` ends
  /// the walk and comes out of this call.
  virtual std::uint32_t SetupIterateCabinetA(const std::string& CabinetFile,
                                             CabinetMsgHandler MsgHandler,
                                             std::uint32_t Context) = 0;

  /// The code of winerror.h for the last walk, never 0 if it gave 0: 2 no such file, 3 no such
  /// folder, 5 no access, 13 no cabinet or a damaged one, 112 disk full, 123 impossible name, ...
  /// 0 after a walk that succeeded or that an exception ended.
  virtual std::int32_t GetLastError() const = 0;
};

}  // namespace panelkit
