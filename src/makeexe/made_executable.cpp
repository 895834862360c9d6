#include "makeexe/made_executable.h"

#include <algorithm>
#include <cstddef>

#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "jobs/job_file.h"
#include "storage/archive.h"
#include "storage/input_file.h"

namespace {

// Offsets of the format, in bytes: from the start of the file, of the headers, of the optional header, of a section.
constexpr std::int64_t HeadersAt = 0x3C;
constexpr std::size_t DosHeaderSize = 64;
constexpr std::size_t CoffHeaderSize = 24;
constexpr std::size_t SectionsAt = 6;
constexpr std::size_t OptionalSizeAt = 20;
constexpr std::size_t SizeOfHeadersAt = 60;
constexpr std::uint16_t Magic64 = 0x20B;
constexpr std::size_t Directories64At = 112;
constexpr std::size_t Directories32At = 96;
constexpr std::size_t DirectorySize = 8;
constexpr std::size_t CertificateDirectory = 4;
constexpr std::size_t SectionSize = 40;
constexpr std::size_t RawSizeAt = 16;
constexpr std::size_t RawPlaceAt = 20;

[[noreturn]] void Refuse(const std::string& path, const char* why) {
    throw RuntimeFailure(FailureKind::File, "The program '" + path + "' is damaged: " + why);
}

std::uint16_t Word(const char* bytes) {
    return little_endian::Load<std::uint16_t>(bytes);
}

std::int64_t DoubleWord(const char* bytes) {
    return little_endian::Load<std::uint32_t>(bytes);
}

struct Range {
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

// What the headers of a program claim of its file.
struct ProgramFile {
    std::int64_t fileLength = 0;
    std::int64_t sectionsEnd = 0;
    Range certificate;  // empty when it is not signed
};

Range CertificateOf(const char* optional, std::size_t size) {
    const std::size_t directories = Word(optional) == Magic64 ? Directories64At : Directories32At;
    const std::size_t place = directories + CertificateDirectory * DirectorySize;
    if (place + DirectorySize > size) return {};
    const std::int64_t begin = DoubleWord(optional + place);
    return {begin, begin + DoubleWord(optional + place + sizeof(std::uint32_t))};
}

ProgramFile ReadHeaders(const std::string& path) {
    InputFile whole(path);
    const std::int64_t headers = [&] {
        const char* const dos = whole.Take(DosHeaderSize);
        if (dos[0] != 'M' || dos[1] != 'Z') Refuse(path, "it is no program.");
        return DoubleWord(dos + HeadersAt);
    }();
    InputFile file(path, headers, std::max<std::int64_t>(0, whole.Length() - headers));
    const char* const coff = file.Take(CoffHeaderSize);
    if (std::string(coff, 4) != std::string("PE\0\0", 4)) Refuse(path, "it is no program.");
    const std::size_t sections = Word(coff + SectionsAt);
    const std::size_t optionalSize = Word(coff + OptionalSizeAt);
    if (optionalSize < Directories64At) Refuse(path, "it is no program.");

    ProgramFile program;
    program.fileLength = whole.Length();
    const char* const optional = file.Take(optionalSize);
    program.sectionsEnd = DoubleWord(optional + SizeOfHeadersAt);
    program.certificate = CertificateOf(optional, optionalSize);
    for (std::size_t i = 0; i < sections; ++i) {
        const char* const section = file.Take(SectionSize);
        const std::int64_t end = DoubleWord(section + RawPlaceAt) + DoubleWord(section + RawSizeAt);
        program.sectionsEnd = std::max(program.sectionsEnd, end);
    }
    return program;
}

// A certificate begins at a multiple of 8 bytes.
bool FollowsTheSections(const ProgramFile& program) {
    return program.certificate.begin >= program.sectionsEnd && program.certificate.begin < program.sectionsEnd + 8;
}

}  // namespace

MadeLayout LayoutOf(const std::string& path) {
    const ProgramFile program = ReadHeaders(path);
    const bool isSigned = program.certificate.end > program.certificate.begin;
    MadeLayout layout;
    layout.runnerLength = program.sectionsEnd;
    std::int64_t end = program.fileLength;
    if (isSigned && FollowsTheSections(program)) {
        layout.runnerLength = program.certificate.end;  // the runner was signed, before a job came behind it
    } else if (isSigned) {
        end = std::min(end, program.certificate.begin);
    }
    layout.jobLength = end - layout.runnerLength - LanguageSize;
    if (layout.jobLength <= 0) Refuse(path, "there is no job in it.");
    return layout;
}

MadeExecutable ReadMadeExecutable(const std::string& path) {
    const MadeLayout layout = LayoutOf(path);
    InputFile file(path, layout.runnerLength, layout.jobLength + LanguageSize);
    MadeExecutable made;
    made.language = little_endian::Load<std::int16_t>(file.Take(LanguageSize));
    if (made.language < LanguageEnglish || made.language > LanguageFrench) Refuse(path, "its language is unknown.");
    ReadJob(file, made.job);
    if (!HeaderIsGood(made.job)) Refuse(path, "its job has a version or options that no job has.");
    return made;
}
