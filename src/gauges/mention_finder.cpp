#include "gauges/mention_finder.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "gauges/name_list.h"
#include "text/line_reader.h"
#include "text/matching.h"

namespace panelkit {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kMostPanels = 100;  // Of one aircraft: alias lines may lead anywhere.

std::string_view WithoutBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// What stands behind `key`, digits if it has any, and "="; nullopt if the line begins otherwise.
std::optional<std::string_view> ValueOf(std::string_view line, std::string_view key,
                                        bool has_digits) {
  if (!EqualsIgnoringCase(line.substr(0, key.size()), key)) return std::nullopt;
  line.remove_prefix(key.size());
  const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
  if ((digits > 0) != has_digits) return std::nullopt;
  line = WithoutBlanks(line.substr(digits));
  if (!line.starts_with('=')) return std::nullopt;
  return line.substr(1);
}

// The entry of a gauge line; empty if it is none.
std::string_view MentionedEntry(std::string_view line) {
  std::string_view value = ValueOf(line, "gauge", true).value_or("");
  value = value.substr(0, value.find_first_of(",;"));
  return WithoutBlanks(value.substr(0, value.find("//")));
}

// The name of the file that an entry stands for, for comparing.
std::string LoweredFile(const Text& text, std::string_view entry) {
  return text.Lower(WithoutBlanks(FilePart(entry)));
}

}  // namespace

MentionFinder::MentionFinder(const Files& files, const Text& text, std::string FSPath)
    : files_(files), text_(text), FSPath_(std::move(FSPath)) {}

void MentionFinder::Begin(const std::string& aircraft) {
  aircraft_ = aircraft;
  seen_.clear();
  open_.clear();
}

void MentionFinder::BeginPanel(const std::string& path) {
  panel_ = path.substr(FSPath_.size() + 1);
  seen_.push_back(path);
}

void MentionFinder::OnLine(std::string_view line, int number, std::string_view reported) {
  while (!line.empty() && (line[0] == ' ' || line[0] == '\t')) line.remove_prefix(1);
  if (line.empty()) return;
  if (line[0] == 'a' || line[0] == 'A') {
    if (const auto folder = ValueOf(line, "alias", false)) Open(WithoutBlanks(*folder));
  }
  if (line[0] != 'g' && line[0] != 'G') return;
  const std::string_view entry = MentionedEntry(line);
  const bool is_reported = entry.data() == reported.data() && entry.size() == reported.size();
  if (!entry.empty() && !is_reported) {
    mentions_.push_back({std::string(entry), aircraft_, panel_, number});
  }
}

void MentionFinder::LookFurther() {
  const std::string folder = FSPath_ + R"(\Aircraft\)" + aircraft_;
  const auto variants = files_.List(folder + R"(\Panel.*)", ListedEntries::FilesAndFolders);
  for (std::size_t i = 0; variants && i < variants->size(); ++i) {
    const ListedEntry& variant = (*variants)[i];
    if (variant.is_folder) Read(folder + "\\" + variant.name + R"(\panel.cfg)");
  }
  while (!open_.empty()) {
    const std::string path = std::move(open_.back());
    open_.pop_back();
    Read(path);
  }
}

void MentionFinder::Open(std::string_view folder) {
  open_.push_back(FSPath_ + R"(\Aircraft\)" + std::string(folder) + R"(\panel.cfg)");
}

void MentionFinder::Read(const std::string& path) {
  const std::string lowered = text_.Lower(path);
  const bool is_known = std::any_of(seen_.begin(), seen_.end(), [&](const std::string& other) {
    return text_.Lower(other) == lowered;
  });
  if (is_known || seen_.size() >= kMostPanels) return;
  BeginPanel(path);
  const FileContent file = files_.Read(path);
  if (!file.bytes) {
    if (file.fault != FileFault::Absent) unreadable_.push_back(panel_);
    return;
  }
  const std::string content = text_.FromAnsi(*file.bytes);
  LineReader lines(content, LoneLf::EndsLine);
  while (!lines.AtEnd()) {
    const std::string_view line = lines.Next();
    OnLine(line, lines.Number());
  }
}

std::vector<OtherwiseNamedFile> OtherwiseNamedFiles(
    const std::vector<Mention>& mentions, const NamedEntries& named, const Text& text,
    const std::function<bool(const std::string& Gauge)>& exists) {
  std::vector<OtherwiseNamedFile> files;
  if (mentions.empty()) return files;
  std::unordered_set<std::string> reported;
  for (const auto& [entry, facts] : named) reported.insert(text.Lower(FilePart(entry)));
  std::unordered_map<std::string, std::size_t> places;
  for (const Mention& mention : mentions) {
    const std::string name = LoweredFile(text, mention.entry);
    if (name.empty() || reported.contains(name)) continue;
    const auto [place, is_new] = places.emplace(name, files.size());
    if (is_new) {
      files.push_back({std::string(WithoutBlanks(FilePart(mention.entry))), true, {}});
    }
    OtherwiseNamedFile& file = files[place->second];
    file.is_there = file.is_there && exists(mention.entry);
    const bool is_known =
        std::any_of(file.mentions.begin(), file.mentions.end(), [&mention](const Mention& other) {
          return other.panel == mention.panel && other.aircraft == mention.aircraft;
        });
    if (!is_known) file.mentions.push_back(mention);
  }
  return files;
}

}  // namespace panelkit
