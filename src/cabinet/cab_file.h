// One Microsoft Cabinet file: counts its entries, reports them, lists them as XML, extracts them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "cabinet/cab_error.h"
#include "platform/machine.h"

namespace panelkit {

/// Context codes that the cabinet service hands back with every notification.
inline constexpr std::uint32_t CabContextCount = 0;
inline constexpr std::uint32_t CabContextInfo = 1;
inline constexpr std::uint32_t CabContextExtract = 2;
inline constexpr std::uint32_t CabContextXml = 3;

/// A cabinet by its CabName. Each operation walks the cabinet once, on the caller's thread, and
/// calls the event handlers meanwhile; these must not start another walk. Shared ownership, since
/// modGauges::CurrentCabFile keeps the object that walked last.
class CABFile : public std::enable_shared_from_this<CABFile> {
 public:
  /// The machine's services must outlive the object.
  static std::shared_ptr<CABFile> Create(const Machine& machine);

  /// Windows path of the cabinet file; set before any operation, never validated.
  std::string CabName;

  /// Event of GetInfo and ListEntries, for each selected entry: file part, days since 30 December
  /// 1899 with the time of day as the fraction, bytes, folder part with its trailing backslash.
  std::function<void(const std::string& FileName, double DateTime, std::int32_t Size,
                     const std::string& Path)>
      FileFound;

  /// Event of Extract before each selected entry, by its full name; setting `Cancel` skips it.
  std::function<void(const std::string& FileName, bool& Cancel)> BeforeExtract;

  /// Event of Extract after an entry was written without error, by the path of the file written.
  std::function<void(const std::string& FileName)> AfterExtract;

  /// The number of entries, counted afresh at each call. Throws CabError.
  std::int32_t FileCount();

  /// Adds a row to InstalledGauges for each entry that ends in ".xml", or for the one whose full
  /// name equals `FileToInvestigate`, and raises FileFound for each entry looked at. False on any
  /// failure; rows added before it stay. Throws nothing.
  bool GetInfo(const std::string& FileToInvestigate = "");

  /// Raises FileFound as GetInfo does, but leaves InstalledGauges alone, so that its size bounds no
  /// listing. Throws CabError.
  void ListEntries(const std::string& FileToInvestigate = "");

  /// Writes the entries, or those whose full name equals `FileToExtract`, to `OutputPath` (if
  /// empty, the cabinet's own folder) under their own names or `OutputFile`. Skips entries whose
  /// folder cannot be made or whose name would leave the output folder. True; throws CabError.
  bool Extract(const std::string& FileToExtract = "", const std::string& OutputPath = "",
               const std::string& OutputFile = "");

  /// The XML listing of all entries, or of the first one whose file part equals
  /// `FileToInvestigate`. Nothing in it is escaped. Throws CabError.
  std::string GetXML(const std::string& FileToInvestigate = "");

  /// Answers a notification of the cabinet service; for modGauges::CabNotifyEntry alone. Throws
  /// CabError.
  std::uint32_t CabCallBack(std::uint32_t Context, std::uint32_t Notification,
                            std::uintptr_t Param1, std::uintptr_t Param2);

 private:
  explicit CABFile(const Machine& machine) : machine_(machine) {}

  void Begin();
  void Walk(std::uint32_t Context);
  void ReportEntries(const std::string& filter, bool adds_rows);

  std::uint32_t Dispatch(std::uint32_t Context, std::uint32_t Notification, std::uintptr_t Param1);
  std::uint32_t EntryFound(std::uint32_t Context, FILE_IN_CABINET_INFO& Info);
  std::uint32_t EntryExtracted(const FILEPATHS& Paths) const;
  std::uint32_t InfoEntry(const FILE_IN_CABINET_INFO& Info);
  std::uint32_t XmlEntry(const FILE_IN_CABINET_INFO& Info);
  std::uint32_t ExtractEntry(FILE_IN_CABINET_INFO& Info);

  bool MatchesFilter(const std::string& name) const;
  void AddGaugeRow(const std::string& file) const;
  bool StaysBelowOutput(const std::string& name, const std::string& target) const;
  std::string TargetFileName(const std::string& EntryName) const;
  static std::string FolderOfPath(const std::string& Path);

  // Both keep the text in UTF-8: the service's back end crosses the ANSI code page. A target's
  // length is bounded in that code page all the same; throws CabError past it.
  static std::string StringFromAnsiPointer(const char* Address);
  void StringToAnsiBytes(std::string& Bytes, const std::string& Text) const;

  // "<Tag AttrName = 'AttrValue'>Content</Tag>", without the attribute if `AttrName` is empty.
  static std::string XmlElement(const std::string& Content, const std::string& Tag,
                                const std::string& AttrName = "",
                                const std::string& AttrValue = "");

  Machine machine_;
  std::string EntryFilter;
  std::string SavedOutputPath;
  std::string SavedOutputFile;
  std::int32_t EntryCount = 0;
  std::string XmlBuffer;
  bool adds_rows_ = false;  // Whether the walk of CabContextInfo fills InstalledGauges.
};

}  // namespace panelkit
