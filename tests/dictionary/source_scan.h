// Finds the places where the sources look a text up in the dictionary, so that a test can hold them against the
// table. Reads C++ well enough for that: comments and literals are told apart from code, adjacent literals are joined,
// and both branches of a conditional expression count. Whatever else is handed to a lookup has no keys.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct Lookup {
    std::string file;  // relative to the scanned folder
    int line = 0;
    std::string function;  // Translate, Translate1 or Translate2
    std::string argument;  // the first one, its tokens parted by blanks; empty where the function is only named
    std::vector<std::string> keys;
};

// The lookups in one source text.
std::vector<Lookup> LookupsIn(const std::string& source, const std::string& file);

// The lookups in all .cpp and .h files of a folder, at any depth, without the sub-folder of the dictionary itself.
std::vector<Lookup> LookupsUnder(const std::filesystem::path& folder);
