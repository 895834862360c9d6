// For what has to be gone through to its end although a step on the way fails: the first failure goes on afterwards.
#pragma once

#include <exception>

class FirstFailure {
public:
    template <class Step>
    void Try(const Step& step) {
        try {
            step();
        } catch (const std::exception&) {  // RuntimeFailure, and a lack of memory
            if (!first) first = std::current_exception();
        }
    }

    void Rethrow() const {
        if (first) std::rethrow_exception(first);
    }

private:
    std::exception_ptr first;
};
