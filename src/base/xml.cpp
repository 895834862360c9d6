#include "base/xml.h"

std::string EscapedXml(std::string_view utf8) {
    std::string escaped;
    for (const char c : utf8) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += static_cast<unsigned char>(c) < ' ' || c == '\x7F' ? ' ' : c;
        }
    }
    return escaped;
}
