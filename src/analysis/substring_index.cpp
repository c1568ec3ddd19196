#include "analysis/substring_index.h"

#include <algorithm>
#include <utility>

namespace panelkit {
namespace {

// A run of one to three bytes as a number; the length in the top byte keeps lengths apart.
std::uint32_t Gram(std::string_view run) {
  auto gram = static_cast<std::uint32_t>(run.size()) << 24;
  for (std::size_t i = 0; i < run.size(); ++i) {
    gram |= std::uint32_t{static_cast<unsigned char>(run[i])} << (8 * i);
  }
  return gram;
}

}  // namespace

void SubstringIndex::Add(std::string text) {
  const auto row = static_cast<std::int32_t>(texts_.size());
  const std::string_view view = text;
  for (std::size_t i = 0; i < view.size(); ++i) {
    short_parts_.insert(Gram(view.substr(i, 1)));
    if (i + 2 <= view.size()) short_parts_.insert(Gram(view.substr(i, 2)));
    if (i + 3 > view.size()) continue;
    Rows& rows = rows_by_trigram_[Gram(view.substr(i, 3))];
    if (rows.empty() || rows.back() != row) rows.push_back(row);
  }
  texts_.push_back(std::move(text));
}

void SubstringIndex::Clear() {
  *this = SubstringIndex();
}

bool SubstringIndex::Contains(std::string_view part) const {
  if (part.empty()) return !texts_.empty();
  if (part.size() < 3) return short_parts_.contains(Gram(part));
  const Rows* rows = RowsOfRarestTrigram(part);
  return rows != nullptr && std::any_of(rows->begin(), rows->end(), [&](std::int32_t row) {
           return texts_[row].find(part) != std::string::npos;
         });
}

// Null where a trigram of `part` occurs in no text.
const SubstringIndex::Rows* SubstringIndex::RowsOfRarestTrigram(std::string_view part) const {
  const Rows* rarest = nullptr;
  for (std::size_t i = 0; i + 3 <= part.size(); ++i) {
    const auto found = rows_by_trigram_.find(Gram(part.substr(i, 3)));
    if (found == rows_by_trigram_.end()) return nullptr;
    if (rarest == nullptr || found->second.size() < rarest->size()) rarest = &found->second;
  }
  return rarest;
}

}  // namespace panelkit
