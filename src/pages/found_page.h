// The page of a search for missing gauges, and of the installation after it.
#pragma once

#include <string>

#include "pages/hints_page.h"
#include "search/look.h"
#include "search/written_files.h"

namespace panelkit {

/// Each required file with what is, or would be, installed for it and from where, what else was
/// found, or what is nearly it and its `hints`; then what was passed over, and after an
/// installation what is still missing. Commands are written in `style`.
std::string FoundPage(const Machine& machine, const Look& look, const HintsOf& hints,
                      const CommandStyle& style);

/// The sentence that says what a search has come to.
std::string FoundSentence(const FindResult& found);

/// The page that tells which files of an installation are gone again and which stayed in `gauges`.
std::string TakenOutPage(const TakenOut& files, const std::string& gauges);

}  // namespace panelkit
