// The XML listing of a cabinet, put together from text. Nothing is escaped.
#pragma once

#include <cstdint>
#include <string>

namespace panelkit {

/// "<Tag AttrName = 'AttrValue'>Content</Tag>", without the attribute where `AttrName` is empty.
std::string XmlElement(const std::string& Content, const std::string& Tag,
                       const std::string& AttrName, const std::string& AttrValue);

/// The FILE element of one entry, with the line end behind it. `folder` keeps its trailing
/// backslash.
std::string XmlFileElement(const std::string& full_name, const std::string& file,
                           const std::string& date, std::int32_t size, const std::string& folder);

}  // namespace panelkit
