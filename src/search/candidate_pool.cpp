#include "search/candidate_pool.h"

#include "gauges/gauge_file.h"

namespace panelkit {

void CandidatePool::AddGaugeFile(Candidate candidate) {
  candidates_.push_back(std::move(candidate));
  AddRow(kGaugeFileOrigin, LessExtension(candidates_.back().name));
}

void CandidatePool::AddCabinet(Candidate candidate, const GaugeTable& rows) {
  if (rows.UpperBound() == 0) return;
  candidates_.push_back(std::move(candidate));
  for (int row = 0; row < rows.UpperBound(); ++row) AddRow(rows.Row(row).origin, rows.Row(row).key);
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
      if (rejected_.contains(owner)) continue;
      if (found.empty() || found.back() != owner) found.push_back(owner);
    }
  }
  return found;
}

}  // namespace panelkit
