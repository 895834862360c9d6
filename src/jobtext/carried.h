// How much of a record its members in the text carry. What the file has beyond that is kept beside them as bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "jobs/job_fields.h"

// The key of a key event, as the text tells it: the file has scan code * 65536 + virtual key.
inline std::int32_t VirtualKeyOf(std::int32_t keyCode) {
    return keyCode & 0xFFFF;
}
inline std::int32_t ScanOf(std::int32_t keyCode) {
    return keyCode >> 16;
}

// How many levels of a chain the text lists: those in use, or where the depth is no such number, as many as are not 0.
std::int32_t LevelsOf(const WindowChain& chain);

// Whether the members tell all of a record: all words of a mouse event, and of one whose type nobody knows the type and
// the time.
inline bool CarriesAll(const JobEvent& event) {
    const auto& word = event.word;
    switch (event.dwType()) {
        case platform::InputMouse:
            return true;
        case platform::InputKeyboard:
            return (word[5] | word[6]) == 0;
        case INPUT_TEXT:
        case TextContinuation:
            return (word[1] | word[2] | word[4] | word[5]) == 0;
        default:
            return (word[1] | word[2] | word[4] | word[5] | word[6]) == 0;
    }
}
bool CarriesAll(const WindowChain& chain);

// A record that the members in the text tell the same about, with nothing else in it.
JobEvent Carried(const JobEvent& event);
WindowChain Carried(const WindowChain& chain);
inline const JobHeader& Carried(const JobHeader& header) {
    return header;
}
inline const WindowSignature& Carried(const WindowSignature& window) {
    return window;
}

template <class Record>
Record RecordOf(std::string_view bytes) {
    Record record;
    RecordReader reader(bytes.data());
    Fields(reader, record);
    return record;
}

// The bytes of a record as a writer would write it, in the place of `bytes`.
template <class Record>
void Encode(const Record& record, std::string& bytes) {
    bytes.resize(RecordSize<Record>());
    RecordWriter writer(bytes.data());
    Fields(writer, record);
}
