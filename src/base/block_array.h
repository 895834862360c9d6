// An array that grows in blocks and never moves what it holds: a longer one costs the same with a million elements as
// with ten, a reference stays good, and memory is taken as it is used. Its functions are named as those of std::vector,
// for which it stands in.
#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

template <class Element>
class BlockArray {
public:
    using value_type = Element;

    BlockArray() = default;
    BlockArray(const std::vector<Element>& elements) {
        for (const Element& each : elements) push_back(each);
    }

    // A copy in one piece.
    operator std::vector<Element>() const { return First(count); }
    std::vector<Element> First(std::size_t elements) const {
        std::vector<Element> copy;
        copy.reserve(elements);
        for (std::size_t i = 0; i < elements; ++i) copy.push_back(at(i));
        return copy;
    }

    std::size_t size() const { return count; }
    bool empty() const { return count == 0; }

    Element& operator[](std::size_t index) { return blocks[index / PerBlock][index % PerBlock]; }
    const Element& operator[](std::size_t index) const { return blocks[index / PerBlock][index % PerBlock]; }
    Element& at(std::size_t index) {
        if (index >= count) throw std::out_of_range("BlockArray");
        return (*this)[index];
    }
    const Element& at(std::size_t index) const { return const_cast<BlockArray&>(*this).at(index); }
    Element& back() { return (*this)[count - 1]; }

    // Without memory for it, nothing changes.
    template <class... Arguments>
    Element& emplace_back(Arguments&&... arguments) {
        Provide(count / PerBlock + 1);
        Element& element = blocks[count / PerBlock].emplace_back(std::forward<Arguments>(arguments)...);
        ++count;
        return element;
    }
    void push_back(Element element) { emplace_back(std::move(element)); }

    // Cuts off the end and gives its memory back.
    void Trim(std::size_t elements) {
        if (elements >= count) return;
        count = elements;
        blocks.resize(count / PerBlock + 1);
        blocks.back().resize(count % PerBlock);
    }

    // Provides memory ahead of need for `elements` in all, or for as much of that as BlocksAtOnce allow.
    void Reserve(std::size_t elements) {
        const std::size_t wanted = (elements + PerBlock - 1) / PerBlock;
        Provide(std::min(wanted, (count + PerBlock - 1) / PerBlock + BlocksAtOnce));
    }

    // A small part of a megabyte each, so that an array with little in it is small, and so few of them in one call that
    // nobody notices.
    static constexpr std::size_t PerBlock = std::max<std::size_t>(1, 65536 / sizeof(Element));
    static constexpr std::size_t BlocksAtOnce = 16;

private:
    void Provide(std::size_t blockCount) {
        while (blocks.size() < blockCount) {
            std::vector<Element> block;
            block.reserve(PerBlock);
            blocks.push_back(std::move(block));
        }
    }

    std::vector<std::vector<Element>> blocks;  // each reserved in full, filled in order
    std::size_t count = 0;
};
