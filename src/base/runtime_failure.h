// The one exception of the program. A run-time failure is thrown where going on would do the wrong thing quietly:
// a file that cannot be read or written, an index out of range, a value that cannot be converted. It is caught
// where the behaviour traps it, and else where Windows calls into the program.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

enum class FailureKind { File, Range, Type, Overflow, Memory };

class RuntimeFailure : public std::runtime_error {
public:
    // `text` is a sentence for the user that names the file or the value.
    RuntimeFailure(FailureKind failureKind, const std::string& text) : std::runtime_error(text), kind(failureKind) {}

    FailureKind Kind() const { return kind; }

private:
    FailureKind kind;
};

// A range failure. Out of line: what is left of CheckedAt is small enough to be part of a loop.
[[noreturn]] void ThrowMissing(const char* what, long long index, std::size_t count);

// The element at `index`, or a range failure that names `what` and the index.
template <class Container>
auto& CheckedAt(Container& container, long long index, const char* what) {
    if (index < 0 || index >= static_cast<long long>(container.size())) {
        ThrowMissing(what, index, container.size());
    }
    return container[static_cast<std::size_t>(index)];
}
