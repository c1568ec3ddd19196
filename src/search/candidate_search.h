// Looks through folders, cabinets and archives for gauge files and cabinets.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/machine.h"
#include "search/candidate_pool.h"

namespace panelkit {

/// What a search has looked at so far.
struct SearchProgress {
  std::size_t places = 0;  ///< Of the LookThrough calls, those that are over.
  std::size_t files = 0;
  std::size_t archives = 0;
};

/// Something that a search could not look into, in words for the user.
struct PassedOver {
  std::string path;                 ///< The file on disk.
  std::vector<std::string> inside;  ///< The entry, as in Candidate; empty for the file itself.
  std::string reason;               ///< "its name leads out of the archive".
  std::size_t others = 0;  ///< How many more entries of that file were passed over for this reason.
};

/// Which files a search opens.
enum class SearchDepth {
  Folders,   ///< Loose gauge files and cabinets alone.
  Archives,  ///< What lies in archives too, and in archives in these.
};

/// Collects candidates from any number of folders, none twice from the same path, nor from a folder
/// that was searched before by itself.
class CandidateSearch {
 public:
  /// Asked at each folder, file and entry of an archive; false ends the search.
  using OnProgress = std::function<bool(const SearchProgress& progress)>;

  CandidateSearch(const Machine& machine, CandidatePool& pool, SearchDepth depth,
                  OnProgress on_progress)
      : machine_(machine), pool_(pool), depth_(depth), on_progress_(std::move(on_progress)) {}

  /// Searches a folder (a Windows path) and all below it, or a file, or the files of one folder
  /// that match a pattern ("C:\Downloads\*.gau"). False if there is none.
  bool LookThrough(const std::string& path);

  /// Whether OnProgress ended the search.
  bool Ended() const { return ended_; }

  /// What was passed over, in the order in which it was met.
  const std::vector<PassedOver>& WhatWasPassedOver() const { return passed_over_; }

 private:
  class Visitor;
  struct Place;
  using ReadArchive = std::function<ArchiveFault(const OnArchiveEntry& visit)>;

  bool LookAtNamed(const std::string& path);
  bool HasSearched(const std::string& folder) const;
  void LookAt(const FoundFile& file);
  void AddGaugeFile(const Place& place);
  void LookIntoCabinet(const Place& cabinet, const std::string& path);
  void LookIntoArchive(const Place& archive, const ReadArchive& read);
  bool LookAtEntry(const Place& archive, const ArchiveEntry& entry, const ReadArchiveEntry& read);
  void OpenEntry(const Place& place, const ReadArchiveEntry& read);
  void PassOver(const Place& place, std::string reason);
  bool GoesOn();

  const Machine& machine_;
  CandidatePool& pool_;
  SearchDepth depth_;
  OnProgress on_progress_;
  SearchProgress progress_;
  std::vector<std::string> searched_;  // The folders of the LookThrough calls.
  std::set<std::string> seen_;         // The files.
  std::vector<PassedOver> passed_over_;
  bool ended_ = false;
};

}  // namespace panelkit
