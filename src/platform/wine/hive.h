// A registry hive: the text of a prefix's `system.reg`, ready to be searched.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/wine/hive_text.h"

namespace panelkit {

/// One key of a hive; it lives no longer than the hive.
class HiveKey {
 public:
  /// Names of the subkeys in UTF-8, ordered by upper-cased name.
  const std::vector<std::string>& Subkeys() const { return subkeys_; }

  /// The value of that name, case ignored ("" for the key's unnamed one). nullopt if there is
  /// none or it is damaged.
  std::optional<HiveValue> Value(std::string_view name) const;

 private:
  friend class Hive;
  void AddSubkey(std::string_view name);
  void SortSubkeys();

  std::vector<std::string> subkeys_;
  std::vector<std::string_view> bodies_;
};

/// The keys of one file. Of a damaged file those around the damage are found.
class Hive {
 public:
  /// `text` is the file's content.
  explicit Hive(std::string text);

  Hive(const Hive&) = delete;
  Hive& operator=(const Hive&) = delete;

  /// Whether the prefix belongs to a 64-bit Windows.
  bool IsWin64() const { return is_win64_; }

  /// The key at a path from the hive's root, case ignored; parts are separated by backslashes,
  /// empty ones passed over. A key that the file names only as part of a deeper one's path exists.
  std::optional<HiveKey> Find(std::string_view path) const;

 private:
  struct Section {
    std::string_view path;  ///< In the file's notation, "]" included.
    std::string_view body;
  };

  std::string text_;
  bool is_win64_ = false;
  std::vector<Section> sections_;
};

}  // namespace panelkit
