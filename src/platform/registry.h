// String values under HKEY_CURRENT_USER. Nothing here pumps.
#pragma once

#include <optional>
#include <string>

namespace platform {

// The text of a value; no value when key or value is missing or is not text.
std::optional<std::string> ReadRegistry(const std::string& key, const std::string& value);

// Creates the key where it is missing. False when the system refuses.
bool WriteRegistry(const std::string& key, const std::string& value, const std::string& text);

// True when the value is gone afterwards.
bool DeleteRegistryValue(const std::string& key, const std::string& value);

}  // namespace platform
