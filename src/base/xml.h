// Text in XML.
#pragma once

#include <string>
#include <string_view>

// UTF-8 for between tags and for attributes in double quotes: marked-up signs written out, and a blank for what XML
// cannot hold.
std::string EscapedXml(std::string_view utf8);
