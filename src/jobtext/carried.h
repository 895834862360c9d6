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
