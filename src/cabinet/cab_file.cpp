// The public operations of CABFile: each prepares its members, walks, and forms its result.
#include "cabinet/cab_file.h"

#include <exception>

#include "cabinet/mod_gauges.h"

namespace panelkit {

std::shared_ptr<CABFile> CABFile::Create(const Machine& machine) {
  return std::shared_ptr<CABFile>(new CABFile(machine));
}

std::int32_t CABFile::FileCount() {
  Begin();
  EntryCount = 0;
  Walk(CabContextCount);
  return EntryCount;
}

bool CABFile::GetInfo(const std::string& FileToInvestigate) {
  try {
    ReportEntries(FileToInvestigate, true);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void CABFile::ListEntries(const std::string& FileToInvestigate) {
  ReportEntries(FileToInvestigate, false);
}

bool CABFile::Extract(const std::string& FileToExtract, const std::string& OutputPath,
                      const std::string& OutputFile) {
  Begin();
  EntryFilter = FileToExtract;
  SavedOutputPath = OutputPath;
  SavedOutputFile = OutputFile;
  Walk(CabContextExtract);
  return true;
}

std::string CABFile::GetXML(const std::string& FileToInvestigate) {
  try {
    Begin();
    EntryFilter = FileToInvestigate;
    XmlBuffer.clear();
    Walk(CabContextXml);
  } catch (const CabError& error) {
    throw CabError(error.Number, std::string(kCabFileSource) + ".GetXML", error.Description);
  }
  XmlBuffer = XmlElement(XmlBuffer, "FILES");
  return R"(<?xml version="1.0"?>)" + XmlElement(XmlBuffer, "CABFILE", "CABFILENAME", CabName);
}

void CABFile::ReportEntries(const std::string& filter, bool adds_rows) {
  Begin();
  EntryFilter = filter;
  adds_rows_ = adds_rows;
  Walk(CabContextInfo);
}

void CABFile::Begin() {
  if (CabName.empty()) {
    throw CabError(CabNameMissing, kCabFileSource, CabErrorText(CabNameMissing));
  }
  modGauges::SetCurrentCabFile(shared_from_this());
}

void CABFile::Walk(std::uint32_t Context) {
  CabinetWalk& service = machine_.cabinets;
  if (service.SetupIterateCabinetA(CabName, &modGauges::CabNotifyEntry, Context) == 0) {
    const std::int32_t code = service.GetLastError();
    throw CabError(code, kCabFileSource, Win32ErrorText(code));
  }
}

std::string CABFile::XmlElement(const std::string& Content, const std::string& Tag,
                                const std::string& AttrName, const std::string& AttrValue) {
  const std::string attribute = AttrName.empty() ? "" : " " + AttrName + " = '" + AttrValue + "'";
  return "<" + Tag + attribute + ">" + Content + "</" + Tag + ">";
}

}  // namespace panelkit
