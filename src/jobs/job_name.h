// What a job may be called: its name is the name of its file without the extension. Nothing here pumps.
#pragma once

#include <string>

inline constexpr const char* JobExtension = ".tsj";

// The path of the job of this name in a folder.
std::string JobPathOf(const std::string& folder, const std::string& name);

// Whether the base name of a path holds a character that no file name can have: "Forbidden character!", or empty when
// it is good.
std::string IsFileNameForbidden(const std::string& path);

// Beyond the forbidden characters: what Windows would refuse or quietly change, as a sentence for the user in their
// language; empty when the name is good. An empty name is none of these.
std::string WhyJobNameIsRefused(const std::string& folder, const std::string& name);
