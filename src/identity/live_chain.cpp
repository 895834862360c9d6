#include "identity/live_chain.h"

#include <utility>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "platform/window_services.h"

namespace {

const std::string noText;
const platform::WindowPlacement noPlacement;

// Most texts need no trimming, and then are not copied either.
std::string Trimmed(std::string text) {
    const auto trimmed = TrimView(text);
    return trimmed.size() == text.size() ? std::move(text) : std::string(trimmed);
}

}  // namespace

std::string LiveClass(platform::WindowHandle window) {
    return window == 0 ? std::string() : Trimmed(platform::ClassOf(window));
}

std::string LiveCaption(platform::WindowHandle window) {
    return window == 0 ? std::string() : Trimmed(platform::CaptionOf(window));
}

// Null above the last window; the window itself is always there, even when it is 0.
LiveChain::Level* LiveChain::At(std::int32_t level) {
    const auto wanted = static_cast<std::size_t>(level);
    while (levels.size() <= wanted) {
        if (levels.back().handle == 0) return nullptr;
        levels.push_back({platform::ParentOf(levels.back().handle), {}, {}, {}});
    }
    return &levels[wanted];
}

platform::WindowHandle LiveChain::Handle(std::int32_t level) {
    const Level* const found = At(level);
    return found == nullptr ? 0 : found->handle;
}

const std::string& LiveChain::ClassName(std::int32_t level) {
    Level* const found = At(level);
    if (found == nullptr) return noText;
    if (!found->className) found->className = LiveClass(found->handle);
    return *found->className;
}

const std::string& LiveChain::Caption(std::int32_t level) {
    Level* const found = At(level);
    if (found == nullptr) return noText;
    if (!found->caption) found->caption = LiveCaption(found->handle);
    return *found->caption;
}

const platform::WindowPlacement& LiveChain::Placement(std::int32_t level) {
    Level* const found = At(level);
    if (found == nullptr) return noPlacement;
    if (!found->placement) found->placement = platform::PlacementOf(found->handle);
    return *found->placement;
}

platform::WindowHandle LiveChain::Root() {
    std::int32_t level = 0;
    while (Handle(level + 1) != 0) ++level;
    return Handle(level);
}

bool LiveChain::IsFoundByName(std::int32_t level) {
    const std::string& className = ClassName(level);
    return platform::FindTopWindow(className, Caption(level)) == Handle(level);
}

std::int32_t LiveChain::Depth(std::int32_t maxLevels) {
    for (std::int32_t level = 0; level < maxLevels; ++level) {
        // The parent first: the search by name is the dearer of the two, and the last window needs none.
        if (Handle(level + 1) <= 0 || IsFoundByName(level)) return level;
    }
    throw RuntimeFailure(FailureKind::Range, "More than " + std::to_string(maxLevels) + " windows lie in each other.");
}
