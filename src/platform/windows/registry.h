// The registry by advapi32.
#pragma once

#include "platform/registry.h"
#include "platform/text.h"

namespace panelkit::windows {

/// The registry of this Windows as a 32-bit program sees it, whatever this program's own word size.
class WindowsRegistry : public Registry {
 public:
  /// `text` outlives this object.
  explicit WindowsRegistry(const Text& text) : text_(text) {}

  std::unique_ptr<RegistryKey> RegOpenKeyA(std::uint32_t root,
                                           std::string_view path) const override;

 private:
  const Text& text_;
};

}  // namespace panelkit::windows
