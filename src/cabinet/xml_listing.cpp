#include "cabinet/xml_listing.h"

namespace panelkit {

std::string XmlElement(const std::string& Content, const std::string& Tag,
                       const std::string& AttrName, const std::string& AttrValue) {
  const std::string attribute = AttrName.empty() ? "" : " " + AttrName + " = '" + AttrValue + "'";
  return "<" + Tag + attribute + ">" + Content + "</" + Tag + ">";
}

std::string XmlFileElement(const std::string& full_name, const std::string& file,
                           const std::string& date, std::int32_t size, const std::string& folder) {
  const std::string children = XmlElement(full_name, "FULLNAME", "", "") +
                               XmlElement(file, "NAME", "", "") + XmlElement(date, "DATE", "", "") +
                               XmlElement(std::to_string(size), "SIZE", "", "") +
                               XmlElement(folder, "PATH", "", "");
  return XmlElement(children, "FILE", "", "") + "\r\n";
}

}  // namespace panelkit
