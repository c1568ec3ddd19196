// One Microsoft Cabinet file: counts its entries, reports them, lists them as XML, extracts them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "cabinet/cab_error.h"
#include "cabinet/event.h"
#include "platform/machine.h"

namespace panelkit {

/// Context codes that the cabinet service hands back with every notification.
inline constexpr std::uint32_t CabContextCount = 0;
inline constexpr std::uint32_t CabContextInfo = 1;
inline constexpr std::uint32_t CabContextExtract = 2;
inline constexpr std::uint32_t CabContextXml = 3;

/// A cabinet by its CabName. Each operation walks the cabinet once, on the caller's thread; an
/// event's subscriber must not start another walk meanwhile. Owned by counted references, since the
/// walk in progress holds one too.
class CABFile : public std::enable_shared_from_this<CABFile> {
 public:
  /// The machine's services must outlive the object.
  static std::shared_ptr<CABFile> Create(const Machine& machine);

  /// Windows path of the cabinet file; set before any operation, never validated.
  std::string CabName;

  /// Raised by GetInfo for each selected entry: file part, date-time value (days since 30 December
  /// 1899), size in bytes, folder part with its trailing backslash.
  Event<const std::string& /*FileName*/, double /*DateTime*/, std::int32_t /*Size*/,
        const std::string& /*Path*/>
      FileFound;

  /// Raised by Extract before each selected entry, by its full name; setting `Cancel` passes it
  /// over.
  Event<const std::string& /*FileName*/, bool& /*Cancel*/> BeforeExtract;

  /// Raised by Extract after an entry was written without error, by the path of the file written.
  Event<const std::string& /*FileName*/> AfterExtract;

  /// Counts the entries, afresh at each call. Throws CabError.
  std::int32_t FileCount();

  /// Raises FileFound for each entry, or for the one whose full name equals `FileToInvestigate`,
  /// and adds a row to InstalledGauges for each that ends in ".xml". False on any failure; throws
  /// nothing.
  bool GetInfo(const std::string& FileToInvestigate = "");

  /// Writes the entries, or those whose full name equals `FileToExtract`, to `OutputPath` (else the
  /// cabinet's own folder) under their own names or `OutputFile`. Entries whose folder cannot be
  /// made, or whose name would leave the output folder, are passed over. True; throws CabError.
  bool Extract(const std::string& FileToExtract = "", const std::string& OutputPath = "",
               const std::string& OutputFile = "");

  /// The listing of all entries, or of the first whose file part equals `FileToInvestigate`. Throws
  /// CabError with the Source "CabFile.GetXML".
  std::string GetXML(const std::string& FileToInvestigate = "");

  /// Answers a notification of the cabinet service; for modGauges::CabNotifyEntry alone. Throws
  /// CabError with the Source "CabFile.CabCallBack".
  std::uint32_t CabCallBack(std::uint32_t Context, std::uint32_t Notification,
                            std::uintptr_t Param1, std::uintptr_t Param2);

 private:
  explicit CABFile(const Machine& machine) : machine_(machine) {}

  void Begin();
  void Walk(std::uint32_t Context);
  std::uint32_t Dispatch(std::uint32_t Context, std::uint32_t Notification, std::uintptr_t Param1);
  std::uint32_t EntryFound(std::uint32_t Context, FILE_IN_CABINET_INFO& Info);
  std::uint32_t EntryExtracted(const FILEPATHS& Paths);
  std::uint32_t InfoEntry(const FILE_IN_CABINET_INFO& Info);
  std::uint32_t XmlEntry(const FILE_IN_CABINET_INFO& Info);
  std::uint32_t ExtractEntry(FILE_IN_CABINET_INFO& Info);
  void AddGaugeRow(const std::string& file);
  bool MatchesFilter(const std::string& name) const;
  bool MayFollow(const std::string& name, const std::string& target) const;
  bool MakeTargetFolder(const std::string& target);
  std::string TargetFileName(const std::string& EntryName) const;
  static std::string FolderOfPath(const std::string& Path);
  // Both keep the text in UTF-8: the service's back end crosses the ANSI code page. The length of a
  // target is bounded in that code page all the same.
  static std::string StringFromAnsiPointer(const char* Address);
  void StringToAnsiBytes(std::string& Bytes, const std::string& Text) const;

  Machine machine_;
  std::string EntryFilter;
  std::string SavedOutputPath;
  std::string SavedOutputFile;
  std::int32_t EntryCount = 0;
  std::string XmlBuffer;
};

}  // namespace panelkit
