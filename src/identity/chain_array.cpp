#include "identity/chain_array.h"

#include <algorithm>
#include <string>

#include "base/runtime_failure.h"

ChainArray::operator std::vector<WindowChain>() const {
    std::vector<WindowChain> copy;
    copy.reserve(size());
    for (std::size_t i = 0; i < size(); ++i) copy.push_back(at(i));
    return copy;
}

WindowChain ChainArray::at(std::size_t index) const {
    if (index >= size()) {
        throw RuntimeFailure(FailureKind::Range, "Window chain " + std::to_string(index) +
                                                     " does not exist (there are " + std::to_string(size()) + ").");
    }
    if (index < given.size()) return given[index];
    const Place& place = chains[index - given.size()];
    WindowChain chain;
    for (std::size_t level = 0; level < place.count; ++level) chain.Path[level] = levels[place.first + level];
    chain.LeafWindow = chain.Path[0];
    chain.Depth = place.count > 0 ? static_cast<std::int32_t>(place.count) - 1 : 0;
    return chain;
}

void ChainArray::Set(std::size_t index, std::span<const std::int32_t> path) {
    const std::size_t first = levels.size();
    for (const std::int32_t signature : path) levels.push_back(signature);
    chains.at(index - given.size()) = {first, path.size()};
}

void ChainArray::Reserve(std::size_t count) {
    chains.Reserve(count - std::min(count, given.size()));
}
