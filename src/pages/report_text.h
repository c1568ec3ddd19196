// Reports as plain text.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

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

}  // namespace panelkit
