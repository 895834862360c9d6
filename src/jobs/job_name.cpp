#include "jobs/job_name.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "platform/text.h"

namespace {

constexpr std::string_view ForbiddenCharacters = "\\/:*?<>|\"";
constexpr std::string_view Digits = "123456789\xB9\xB2\xB3";  // the raised digits name ports as well
constexpr std::array<std::string_view, 6> Devices = {"con", "prn", "aux", "nul", "conin$", "conout$"};
constexpr std::size_t LongestPath = 259;  // what the system's calls take, without the zero behind it

bool HasForbidden(std::string_view name) {
    return name.find_first_of(ForbiddenCharacters) != std::string_view::npos;
}

bool HasControl(std::string_view name) {
    return std::any_of(name.begin(), name.end(), [](char each) { return static_cast<unsigned char>(each) < ' '; });
}

bool IsPort(std::string_view stem) {
    return stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) &&
           Digits.find(stem[3]) != std::string_view::npos;
}

// A device answers to its name whatever extension stands behind it.
bool IsDevice(std::string_view name) {
    const std::string stem = platform::LowerCase(TrimView(name.substr(0, name.find('.'))));
    return std::find(Devices.begin(), Devices.end(), stem) != Devices.end() || IsPort(stem);
}

}  // namespace

std::string JobPathOf(const std::string& folder, const std::string& name) {
    return folder + "\\" + name + JobExtension;
}

std::string IsFileNameForbidden(const std::string& path) {
    return HasForbidden(BaseName(path)) ? "Forbidden character!" : "";
}

std::string WhyJobNameIsRefused(const std::string& folder, const std::string& name) {
    if (HasForbidden(name) || HasControl(name)) {
        return Translate("A name cannot contain tabs, line breaks or any of these characters:") +
               " \\ / : * ? < > | \"";
    }
    if (IsDevice(name)) return Translate1("Windows keeps the name '%1' for one of its devices.", name);
    if (name.ends_with('.') || name.ends_with(' ')) return Translate("A name cannot end with a dot or a blank.");
    if (JobPathOf(folder, name).size() > LongestPath) {
        return Translate("The name is too long for a file in this folder.");
    }
    return "";
}
