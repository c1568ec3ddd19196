// Access keys: from the captions of descriptions to GTK's mnemonics.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// `caption` as GTK writes it: "&" before the access key becomes "_", "&&" a plain "&", and each
/// underscore is doubled so that it stays one.
std::string MnemonicOf(std::string_view caption);

}  // namespace panelkit
