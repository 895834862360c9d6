// The names of the temporary files of saves: "~", seven characters that tell which process is writing, and ".tmp". As
// short as the shortest names that Windows leaves room for in every folder.
#pragma once

#include <string>

// A path in the folder that no other save of a live process of this machine has at the same moment, and that is free if
// there is one.
std::string NewTemporaryPath(const std::string& folder);

// Removes what killed saves have left in the folder. What a live process may still be writing stays, and so does
// whatever is not named as above. To be called before the first save of this process: its number may be that of one
// that was killed. Failures are ignored; another start will do it.
void RemoveLeftovers(const std::string& folder);
