// Files that are not to be overwritten though another one takes their name.
#pragma once

#include <optional>
#include <string>

// Gives the file another name beside its own, one that is free: "a.tsj" becomes "a (kept).tsj", or "a (kept 2).tsj".
// Returns the new path; no value when the system refuses, and the file is then where it was. Waits, without pumping,
// for up to two seconds while another program holds it.
std::optional<std::string> KeepUnderAnotherName(const std::string& path);
