#include "platform/gtk/access_keys.h"

namespace panelkit {

std::string MnemonicOf(std::string_view caption) {
  std::string mnemonic;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    const char c = caption[i];
    if (c == '_') {
      mnemonic += "__";
    } else if (c != '&') {
      mnemonic += c;
    } else if (i + 1 < caption.size() && caption[i + 1] == '&') {
      mnemonic += '&';
      ++i;
    } else {
      mnemonic += '_';
    }
  }
  return mnemonic;
}

}  // namespace panelkit
