#include "identity/signature_index.h"

#include <algorithm>
#include <functional>
#include <string>

#include "identity/window_identity.h"

namespace {

void Mix(std::size_t& hash, std::size_t value) {
    hash ^= value + 0x9E3779B97F4A7C15U + (hash << 6) + (hash >> 2);
}

// Over exactly the members that are compared. One value stands for both members of the maximised position: two
// signatures can only be equal when all of them agree.
std::size_t HashOf(const WindowSignature& window) {
    std::size_t hash = std::hash<std::string>{}(window.Caption);
    Mix(hash, std::hash<std::string>{}(window.ClassName));
    const platform::WindowPlacement& placement = window.Placement;
    const platform::Rect& normal = placement.rcNormalPosition;
    for (const std::int32_t value :
         {window.ControlId, static_cast<std::int32_t>(placement.flags), normal.left, normal.top, normal.right,
          normal.bottom, placement.ptMinPosition.x, placement.ptMaxPosition.y}) {
        Mix(hash, static_cast<std::uint32_t>(value));
    }
    return hash;
}

// A stored maximised position whose x differs from its y equals no live one (see WindowPlacementsEqual). Such windows
// get a new signature at every capture, so keeping them out keeps the lists short, too.
bool CanMatch(const WindowSignature& stored) {
    return stored.Placement.ptMaxPosition.x == stored.Placement.ptMaxPosition.y;
}

bool SameWindow(const WindowSignature& stored, const WindowSignature& live) {
    return stored.ControlId == live.ControlId && stored.Caption == live.Caption && stored.ClassName == live.ClassName &&
           WindowPlacementsEqual(stored.Placement, live.Placement);
}

// A window and its parent never share a signature. The entry of the level being filled is looked at too and still
// reads 0, so above the leaf signature 0 counts as taken, always; recorded jobs have their signatures by this rule.
bool IsInPath(std::span<const std::int32_t> path, std::int32_t signature) {
    return path.size() > 1 && std::find(path.begin(), path.end(), signature) != path.end();
}

}  // namespace

std::optional<std::int32_t> SignatureIndex::FindFirst(const BlockArray<WindowSignature>& windows,
                                                      const WindowSignature& live, std::span<const std::int32_t> path) {
    CatchUp(windows);
    const auto found = byHash.find(HashOf(live));
    if (found == byHash.end()) return std::nullopt;
    for (const std::int32_t candidate : found->second) {
        if (SameWindow(windows[static_cast<std::size_t>(candidate)], live) && !IsInPath(path, candidate)) {
            return candidate;
        }
    }
    return std::nullopt;
}

void SignatureIndex::Rebuild(const BlockArray<WindowSignature>& windows) {
    byHash.clear();
    indexed = 0;
    CatchUp(windows);
}

void SignatureIndex::CatchUp(const BlockArray<WindowSignature>& windows) {
    for (; indexed < windows.size(); ++indexed) {
        const WindowSignature& stored = windows[indexed];
        if (CanMatch(stored)) byHash[HashOf(stored)].push_back(static_cast<std::int32_t>(indexed));
    }
}
