#include "search/candidate_pool.h"

#include <algorithm>
#include <iterator>

#include "gauges/gauge_file.h"
#include "gauges/name_list.h"
#include "search/gauge_names.h"

namespace panelkit {
namespace {

void SortUnique(std::vector<std::string>& names) {
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace

void CandidatePool::AddGaugeFile(Candidate candidate) {
  candidates_.push_back(std::move(candidate));
  AddRow(kGaugeFileOrigin, LessExtension(candidates_.back().name));
}

void CandidatePool::AddCabinet(Candidate candidate, const GaugeTable& rows) {
  if (rows.UpperBound() == 0) return;
  candidates_.push_back(std::move(candidate));
  Gauges gauges;
  for (int row = 0; row < rows.UpperBound(); ++row) {
    const std::string_view key = rows.Row(row).key;
    AddRow(rows.Row(row).origin, key);
    gauges.push_back(text_.Lower(key.substr(FilePart(key).size() + 1)));
  }
  SortUnique(gauges);
  const auto place = cabinets_.try_emplace(std::move(gauges)).first;
  place->second.push_back(&candidates_.back());
  gauges_of_cabinets_.emplace(&candidates_.back(), &place->first);
}

CandidatePool::Gauges CandidatePool::WantedGaugesIn(const Candidate& cabinet,
                                                    const RequiredFile& required) const {
  const Gauges& there = *gauges_of_cabinets_.at(&cabinet);
  const Gauges wanted = GaugesOf(required);
  Gauges both;
  std::set_intersection(there.begin(), there.end(), wanted.begin(), wanted.end(),
                        std::back_inserter(both));
  return both;
}

bool CandidatePool::WouldSatisfyAs(const RequiredFile& required, const Candidate& candidate) const {
  return !IsCabinet(candidate) || !WantedGaugesIn(candidate, required).empty();
}

const Candidate* CandidatePool::AddAs(const RequiredFile& required, const Candidate& candidate) {
  const bool is_cabinet = IsCabinet(candidate);
  Candidate renamed = candidate;
  renamed.name = required.name + std::string(is_cabinet ? kCabinetExtension : kGaugeFileExtension);
  renamed.is_renamed = true;
  if (!NamesAFile(renamed.name) || !WouldSatisfyAs(required, candidate)) return nullptr;
  if (is_cabinet) {
    GaugeTable rows;
    for (const std::string& gauge : WantedGaugesIn(candidate, required)) {
      rows.AddEntry(text_, required.name, gauge + std::string(kGaugeEntryExtension));
    }
    AddCabinet(std::move(renamed), rows);
  } else {
    AddGaugeFile(std::move(renamed));
  }
  return &candidates_.back();
}

CandidatePool::Gauges CandidatePool::GaugesOf(const RequiredFile& required) const {
  Gauges gauges;
  for (const std::string& entry : required.entries) {
    if (NamesFile(entry)) gauges.push_back(text_.Lower(entry.substr(FilePart(entry).size() + 1)));
  }
  SortUnique(gauges);
  return gauges;
}

std::vector<const Candidate*> CandidatePool::WithExactlyTheGaugesOf(
    const RequiredFile& required) const {
  const Gauges wanted = GaugesOf(required);
  const bool all_name_gauges =
      std::all_of(required.entries.begin(), required.entries.end(),
                  [](const std::string& entry) { return NamesFile(entry); });
  const auto cabinets = all_name_gauges ? cabinets_.find(wanted) : cabinets_.end();
  std::vector<const Candidate*> found;
  if (cabinets == cabinets_.end()) return found;
  const std::string stem = text_.Lower(required.name);
  std::copy_if(
      cabinets->second.begin(), cabinets->second.end(), std::back_inserter(found),
      [&](const Candidate* cabinet) { return text_.Lower(LessExtension(cabinet->name)) != stem; });
  return found;
}

void CandidatePool::AddRow(std::string_view origin, std::string_view key) {
  if (batches_.empty() || batches_.back().table.UpperBound() == kHighestIndex) {
    batches_.emplace_back();
  }
  batches_.back().table.Add(text_, origin, key);
  batches_.back().owners.push_back(&candidates_.back());
}

std::vector<const Candidate*> CandidatePool::ThatSatisfy(std::string_view entry) const {
  std::vector<const Candidate*> found;
  for (const Batch& batch : batches_) {
    for (const int row : batch.table.RowsThatSatisfy(text_, entry)) {
      const Candidate* owner = batch.owners[static_cast<std::size_t>(row)];
      if (found.empty() || found.back() != owner) found.push_back(owner);
    }
  }
  return found;
}

}  // namespace panelkit
