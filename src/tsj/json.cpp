#include "tsj/json.h"

#include "tsj/tool.h"

std::string Indented(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

Json WindowJson(const WindowSignature& window) {
    const platform::Rect& place = window.Placement.rcNormalPosition;
    return {{"caption", Tool::Utf8(window.Caption)},
            {"class", Tool::Utf8(window.ClassName)},
            {"controlId", window.ControlId},
            {"place", {place.left, place.top, place.right, place.bottom}}};
}
