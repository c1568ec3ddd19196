// Reports as plain text.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "gauges/doubtful_entries.h"
#include "gauges/gauge_report.h"
#include "platform/text.h"

namespace panelkit {

/// Tells `on_line` the whole report line by line, indented by levels, without closing words. Texts
/// stand as in the files: a "<" in a gauge's name stays. `below` is called behind the name at each
/// position of report.names.
void TellReport(
    const GaugeReport& report, const Text& text,
    const std::function<void(std::string_view line)>& on_line,
    const std::function<void(std::size_t position)>& below = [](std::size_t) {});

/// Tells `on_line` of entries that are present only by a longer name, likewise; nothing if there
/// are none.
void TellDoubtful(const std::vector<DoubtfulEntry>& entries,
                  const std::function<void(std::string_view line)>& on_line);

/// Tells `on_line` of the files that panels name in a way which the report does not read: a section
/// of its own, with an empty line before it.
void TellOtherwiseNamed(const std::vector<OtherwiseNamedFile>& files,
                        const std::function<void(std::string_view line)>& on_line);

/// The place of a mention, as the end of a sentence: "Aircraft\Alpha\Panel.vfr\panel.cfg, line 12".
std::string PlaceOf(const Mention& mention);

}  // namespace panelkit
