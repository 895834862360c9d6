// Where the lines of a run go: standard error when the report takes standard output.
#pragma once

#include <functional>
#include <string_view>

void ShowRunOn(std::function<void(std::string_view)> writeUtf8);
