// The callback of CABFile: its answer to each notification of a walk.
#include <string>

#include "cabinet/cab_file.h"
#include "cabinet/dos_stamp.h"
#include "cabinet/entry_name.h"
#include "cabinet/folder_maker.h"
#include "cabinet/mod_gauges.h"
#include "gauges/gauge_file.h"

namespace panelkit {
namespace {

// The record whose address a notification's parameter carries.
template <class Record>
Record& RecordAt(std::uintptr_t address) {
  return *reinterpret_cast<Record*>(address);  // NOLINT(performance-no-int-to-ptr): the contract.
}

}  // namespace

std::uint32_t CABFile::CabCallBack(std::uint32_t Context, std::uint32_t Notification,
                                   std::uintptr_t Param1, std::uintptr_t /*Param2*/) {
  try {
    return Dispatch(Context, Notification, Param1);
  } catch (const CabError& error) {
    throw CabError(error.Number, std::string(kCabFileSource) + ".CabCallBack", error.Description);
  }
}

std::uint32_t CABFile::Dispatch(std::uint32_t Context, std::uint32_t Notification,
                                std::uintptr_t Param1) {
  switch (Notification) {
    case SPFILENOTIFY_FILEINCABINET:
      return EntryFound(Context, RecordAt<FILE_IN_CABINET_INFO>(Param1));
    case SPFILENOTIFY_FILEEXTRACTED:
      return EntryExtracted(RecordAt<const FILEPATHS>(Param1));
    case SPFILENOTIFY_NEEDNEWCABINET:  // 0: the next cabinet has no path of its own.
    default:
      return 0;
  }
}

std::uint32_t CABFile::EntryFound(std::uint32_t Context, FILE_IN_CABINET_INFO& Info) {
  switch (Context) {
    case CabContextCount:
      ++EntryCount;
      return FILEOP_SKIP;
    case CabContextInfo:
      return InfoEntry(Info);
    case CabContextExtract:
      return ExtractEntry(Info);
    case CabContextXml:
      return XmlEntry(Info);
    default:
      return 0;
  }
}

std::uint32_t CABFile::EntryExtracted(const FILEPATHS& Paths) const {
  // The program reads the low 16 bits of the code, as a signed number.
  const auto code = static_cast<std::int16_t>(Paths.Win32Error);
  if (code == 0 && AfterExtract) AfterExtract(StringFromAnsiPointer(Paths.Target));
  return static_cast<std::uint32_t>(std::int32_t{code});
}

std::uint32_t CABFile::InfoEntry(const FILE_IN_CABINET_INFO& Info) {
  const std::string full_name = StringFromAnsiPointer(Info.NameInCabinet);
  if (!EntryFilter.empty() && !MatchesFilter(full_name)) return FILEOP_SKIP;
  const bool is_gauge = adds_rows_ && full_name.ends_with(kGaugeEntryExtension);
  if (FileFound || is_gauge) {
    const auto [folder, file] = modGauges::SplitPath(full_name);
    if (FileFound) {
      FileFound(file, DosStampToDate(Info.DosDate, Info.DosTime),
                static_cast<std::int32_t>(Info.FileSize), folder);
    }
    if (is_gauge) AddGaugeRow(file);
  }
  return EntryFilter.empty() ? FILEOP_SKIP : FILEOP_ABORT;
}

void CABFile::AddGaugeRow(const std::string& file) const {
  if (!modGauges::InstalledGauges.AddEntry(machine_.text, modGauges::CurrentCabinet, file)) {
    throw CabError(kOverflow, kCabFileSource, "Overflow");
  }
}

std::uint32_t CABFile::XmlEntry(const FILE_IN_CABINET_INFO& Info) {
  const std::string full_name = StringFromAnsiPointer(Info.NameInCabinet);
  const auto [folder, file] = modGauges::SplitPath(full_name);
  if (!EntryFilter.empty() && !MatchesFilter(file)) return FILEOP_SKIP;
  const double date = DosStampToDate(Info.DosDate, Info.DosTime);
  const auto size = static_cast<std::int32_t>(Info.FileSize);
  const std::string children = XmlElement(full_name, "FULLNAME") + XmlElement(file, "NAME") +
                               XmlElement(machine_.dates.DateText(date), "DATE") +
                               XmlElement(std::to_string(size), "SIZE") +
                               XmlElement(folder, "PATH");
  XmlBuffer += XmlElement(children, "FILE") + "\r\n";
  return EntryFilter.empty() ? FILEOP_SKIP : FILEOP_ABORT;
}

std::uint32_t CABFile::ExtractEntry(FILE_IN_CABINET_INFO& Info) {
  const std::string full_name = StringFromAnsiPointer(Info.NameInCabinet);
  if (!EntryFilter.empty() && !MatchesFilter(full_name)) return FILEOP_SKIP;
  bool Cancel = false;
  if (BeforeExtract) BeforeExtract(full_name, Cancel);
  if (Cancel) return FILEOP_SKIP;
  const std::string target = TargetFileName(full_name);
  if (SavedOutputFile.empty() && !StaysBelowOutput(full_name, target)) return FILEOP_SKIP;
  std::string folder = FolderOfPath(target);
  if (!modGauges::MakeFolderPath(machine_.files, folder)) return FILEOP_SKIP;
  StringToAnsiBytes(Info.FullTargetName, target);
  return FILEOP_DOIT;
}

bool CABFile::MatchesFilter(const std::string& name) const {
  return machine_.text.Lower(name) == machine_.text.Lower(EntryFilter);
}

// The caller chose the output folder, links included; the folders in the entry's name were chosen
// by whoever made the cabinet, so none of these may be a link.
bool CABFile::StaysBelowOutput(const std::string& name, const std::string& target) const {
  if (!IsSafeEntryName(name)) return false;
  for (std::size_t at = target.size() - name.size();
       (at = target.find('\\', at)) != std::string::npos; ++at) {
    if (machine_.files.IsLink(target.substr(0, at))) return false;
  }
  return true;
}

std::string CABFile::TargetFileName(const std::string& EntryName) const {
  return modGauges::AddBackslash(SavedOutputPath.empty() ? FolderOfPath(CabName)
                                                         : SavedOutputPath) +
         (SavedOutputFile.empty() ? EntryName : SavedOutputFile);
}

std::string CABFile::FolderOfPath(const std::string& Path) {
  return modGauges::SplitPath(Path).Folder;
}

std::string CABFile::StringFromAnsiPointer(const char* Address) {
  return Address;
}

void CABFile::StringToAnsiBytes(std::string& Bytes, const std::string& Text) const {
  if (machine_.text.ToAnsi(Text).size() > kLongestTargetName) {
    throw CabError(kSubscriptOutOfRange, kCabFileSource, "Subscript out of range");
  }
  Bytes = Text;
}

}  // namespace panelkit
