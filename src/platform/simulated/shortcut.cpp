// A shortcut in memory is a file with the target in it, as a real one has among its bytes.
#include "platform/shortcut.h"

#include "platform/files.h"

namespace platform {

bool WriteShortcut(const std::string& linkPath, const Shortcut& shortcut) {
    const std::string bytes = std::string("L\0", 2) + "target=" + shortcut.target + '\0' +
                              "folder=" + shortcut.workingDirectory + '\0' + "text=" + shortcut.description + '\0' +
                              "show=" + std::to_string(shortcut.showCommand) + '\0';
    File file = File::Create(linkPath);
    return file.IsOpen() && file.Write(bytes.data(), static_cast<std::int64_t>(bytes.size())) && file.Close();
}

}  // namespace platform
