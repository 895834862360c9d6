#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <vector>

#include "base/runtime_failure.h"
#include "jobs/job_file.h"
#include "jobtext/carried.h"
#include "jobtext/differing_bytes.h"
#include "jobtext/event_names.h"
#include "jobtext/job_text.h"
#include "jobtext/pace.h"
#include "jobtext/text_of_page.h"
#include "jobtext/usual.h"
#include "storage/input_file.h"

namespace {

constexpr std::size_t BlockSize = 128ULL * 1024;
constexpr std::size_t LongestNumber = 20;
constexpr std::size_t LongestEvent = 1024;  // its members take less than half of that
constexpr std::size_t TailBytesInLine = 64;

// The text on its way to the sink.
class Blocks {
public:
    explicit Blocks(const TextSink& textSink) : sink(textSink), block(BlockSize) {}

    Blocks& operator<<(std::string_view text) {
        if (text.size() > Free()) Flush();
        if (text.size() > Free()) {
            sink(text);
        } else {
            next = std::copy(text.begin(), text.end(), next);
        }
        return *this;
    }
    Blocks& operator<<(std::int64_t number) {
        if (Free() < LongestNumber) Flush();
        next = std::to_chars(next, next + LongestNumber, number).ptr;
        return *this;
    }

    // For what is put together by hand, without a look at the room that is left (see Pen): room for so many bytes, and
    // how far it was used.
    char* Room(std::size_t size) {
        if (Free() < size) Flush();
        return next;
    }
    void Used(char* end) { next = end; }

    // A new line, behind a comma where it is not the first.
    void Break(bool comma) {
        char* const place = Room(2);
        place[0] = ',';
        place[comma ? 1 : 0] = '\n';
        Used(place + (comma ? 2 : 1));
    }

    void Flush() {
        if (next != block.data()) sink({block.data(), static_cast<std::size_t>(next - block.data())});
        next = block.data();
    }

private:
    std::size_t Free() const { return static_cast<std::size_t>(block.data() + block.size() - next); }

    const TextSink& sink;
    std::vector<char> block;
    char* next = block.data();
};

// The numbers below 10,000, with zeros in front: numbers are most of what an event has, and most of them are that
// small.
class FourDigits {
public:
    static constexpr std::uint32_t Count = 10'000;

    constexpr FourDigits() {
        for (std::uint32_t number = 0; number < Count; ++number) {
            std::uint32_t rest = number;
            for (std::size_t digit = Size; digit-- > 0; rest /= 10) {
                digits[number * Size + digit] = static_cast<char>('0' + rest % 10);
            }
        }
    }

    // Both write Size bytes; the second goes on behind the number's own digits.
    char* PutAll(char* place, std::uint32_t number) const {
        std::memcpy(place, &digits[number * Size], Size);
        return place + Size;
    }
    char* Put(char* place, std::uint32_t number) const {
        const std::size_t zeros = std::size_t{3} - (number > 9) - (number > 99) - (number > 999);
        std::memcpy(place, &digits[number * Size + zeros], Size);
        return place + Size - zeros;
    }

private:
    static constexpr std::size_t Size = 4;

    std::array<char, Count * Size + Size> digits{};  // what a copy takes beyond the last number among them
};
constexpr FourDigits fourDigits;

char* PutNumber(char* place, std::int32_t number) {
    auto magnitude = static_cast<std::uint32_t>(number);
    if (number < 0) {
        *place++ = '-';
        magnitude = 0 - magnitude;
    }
    if (magnitude < FourDigits::Count) return fourDigits.Put(place, magnitude);
    const std::uint32_t front = magnitude / FourDigits::Count;
    if (front >= FourDigits::Count) return std::to_chars(place, place + LongestNumber, magnitude).ptr;
    return fourDigits.PutAll(fourDigits.Put(place, front), magnitude % FourDigits::Count);
}

// Writes where there is room. Events come in millions, and most of their text is of a length that the compiler knows.
class Pen {
public:
    explicit Pen(char* place) : at(place) {}

    template <std::size_t N>
    Pen& operator<<(const char (&text)[N]) {
        std::memcpy(at, text, N - 1);
        at += N - 1;
        return *this;
    }
    Pen& operator<<(const ShortName& name) {
        std::memcpy(at, name.text.data(), name.text.size());
        at += name.size;
        return *this;
    }
    Pen& operator<<(std::int32_t number) {
        at = PutNumber(at, number);
        return *this;
    }

    char* Place() const { return at; }

private:
    char* at;
};

void PutMouse(Pen& pen, const JobEvent& event) {
    pen << ",\"dx\":" << event.dx() << ",\"dy\":" << event.dy();
    if (event.mouseData() != 0) pen << ",\"mouseData\":" << event.mouseData();
    if (event.word[6] != 0) pen << ",\"dwExtraInfo\":" << event.word[6];
}

void PutKey(Pen& pen, const JobEvent& event) {
    const std::int32_t vk = VirtualKeyOf(event.KeyCode());
    const ShortName& name = NameOfKey(vk);
    if (name.size == 0) {
        pen << ",\"vk\":" << vk;
    } else {
        pen << ",\"vk\":\"" << name << "\"";
    }
    if (ScanOf(event.KeyCode()) != 0) pen << ",\"scan\":" << ScanOf(event.KeyCode());
    if (event.keyExtraInfo() != 0) pen << ",\"dwExtraInfo\":" << event.keyExtraInfo();
}

void PutAction(Pen& pen, const JobEvent& event) {
    const EventAction* const action = ActionOf(event);
    if (action == nullptr) {
        pen << ",\"action\":" << event.dwType();
        return;
    }
    pen << ",\"action\":\"" << action->name << "\"";
    switch (action->type) {
        case platform::InputMouse:
            if (!action->isNamed) pen << ",\"dwFlags\":" << event.dwFlags();
            return PutMouse(pen, event);
        case platform::InputKeyboard:
            if (!action->isNamed) pen << ",\"KeyState\":" << event.KeyState();
            return PutKey(pen, event);
        default:
            pen << ",\"StringIndex\":" << event.StringIndex();
    }
}

void PutChoice(Pen& pen, std::uint8_t ifNoWindow) {
    const ShortName choice(NameOfChoice(ifNoWindow));
    if (choice.size == 0) {
        pen << ",\"IfNoWindow\":" << ifNoWindow;
    } else {
        pen << ",\"IfNoWindow\":\"" << choice << "\"";
    }
}

// Control characters break lines, also in programs that only show a file; JSON itself asks for the first 32 alone.
std::string Escape(char32_t code) {
    static constexpr std::string_view Digits = "0123456789abcdef";
    std::string escape = "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) escape += Digits[(code >> shift) & 15];
    return escape;
}

// Of a character at the front of well-formed UTF-8: its escape, or nothing, and how many bytes it takes.
std::string EscapeOf(std::string_view utf8, std::size_t& size) {
    const auto byteAt = [utf8](std::size_t at) { return static_cast<unsigned char>(utf8[at]); };
    size = 1;
    if (utf8[0] == '"' || utf8[0] == '\\') return std::string("\\") + utf8[0];
    if (byteAt(0) < ' ' || byteAt(0) == 0x7F) return Escape(byteAt(0));
    const bool isUpperControl = byteAt(0) == 0xC2 && byteAt(1) < 0xA0;
    if (isUpperControl) return Escape(byteAt(size++));
    const bool isSeparator = utf8.starts_with("\xE2\x80\xA8") || utf8.starts_with("\xE2\x80\xA9");
    if (!isSeparator) return {};
    size = 3;
    return Escape(byteAt(2) == 0xA8 ? 0x2028 : 0x2029);
}

std::string Quoted(std::string_view utf8) {
    std::string quoted = "\"";
    for (std::size_t size = 0; !utf8.empty(); utf8.remove_prefix(size)) {
        const std::string escape = EscapeOf(utf8, size);
        quoted += escape.empty() ? utf8.substr(0, size) : escape;
    }
    return quoted + '"';
}

// A record without fixed text, which is all that can be padded in an odd way.
template <class Record>
constexpr bool IsAllWords = std::is_same_v<Record, JobEvent> || std::is_same_v<Record, WindowChain>;

class Exporter {
public:
    Exporter(InputFile& jobFile, const TextSink& sink, int textCodePage, TextPace& textPace)
        : file(jobFile), out(sink), codePage(textCodePage), pace(textPace) {}

    // In the order of the file.
    void Export() {
        const JobHeader header = WriteHeader();
        const std::int32_t eventCount = TakeCount("EventCount");
        WriteStrings(TakeCount("StringCount"));
        WriteArray<JobEvent>("Events", eventCount);
        if (header.DurationMs != UsualDuration(header, lastTime)) WriteLine("DurationMs", header.DurationMs);
        WriteArray<WindowSignature>("Windows", TakeCount("WindowCount"));
        WriteArray<WindowChain>("Chains", TakeCount("ChainCount"));
        WriteTail();
        out << "\n}\n";
        out.Flush();
        pace.End();
    }

private:
    JobHeader WriteHeader();
    void WriteStrings(std::int32_t count);
    void WriteTail();

    template <class Record>
    void WriteArray(std::string_view name, std::int32_t count);

    void WriteRecord(const JobEvent& event);
    void WriteRecord(const WindowSignature& window);
    void WriteRecord(const WindowChain& chain);

    void WriteList(std::string_view name, std::initializer_list<std::int64_t> numbers);

    // Members of the whole stand in lines of their own.
    void WriteLine(std::string_view name, std::int64_t number) { out << ",\n\"" << name << "\": " << number; }
    void WriteTextLine(std::string_view name, std::string_view text) {
        out << ",\n\"" << name << "\": " << TextValue(text);
    }

    // The lines tell how many there are, unless the count is a negative one, which is odd.
    std::int32_t TakeCount(std::string_view name) {
        const std::int32_t count = file.Count();
        if (count < 0) WriteLine(name, count);
        return count;
    }

    // The next bytes of the file.
    std::string_view Take(std::size_t size) {
        pace.Advance(size);
        return {file.Take(size), size};
    }

    void Member(std::string_view name, std::int64_t number) { out << ",\"" << name << "\":" << number; }
    void MemberUnless(std::int64_t usual, std::string_view name, std::int64_t number) {
        if (number != usual) Member(name, number);
    }

    std::string TextValue(std::string_view text) const {
        if (const auto utf8 = ExactUtf8(text, codePage)) return Quoted(*utf8);
        std::string hex = "{\"hex\":\"";
        AppendHex(hex, text);
        return hex + "\"}";
    }

    // What the members of `record` do not tell about `bytes`.
    template <class Record>
    std::string UntoldBytes(const Record& record, std::string_view bytes) {
        Encode(Carried(record), written);
        return bytes == written ? std::string() : DifferingBytes(bytes, written);
    }

    template <class Record>
    void WriteUntold(const Record& record, std::string_view bytes) {
        if constexpr (IsAllWords<Record>) {
            if (CarriesAll(record)) return;
        }
        if (const std::string untold = UntoldBytes(record, bytes); !untold.empty()) {
            out << ",\"bytes\":\"" << untold << "\"";
        }
    }

    InputFile& file;
    Blocks out;
    const int codePage;
    TextPace& pace;
    std::string written;
    std::int32_t lastTime = 0;  // of an event
};

JobHeader Exporter::WriteHeader() {
    const std::string_view bytes = Take(RecordSize<JobHeader>());
    const auto header = RecordOf<JobHeader>(bytes);
    out << "{\n\"TessarineJob\": " << TextFormatVersion;
    WriteLine("CodePage", codePage);
    WriteLine("Version", header.Version);
    WriteTextLine("ProgramPath", header.StartProgram.ProgramPath);
    WriteTextLine("CommandLine", header.StartProgram.CommandLine);
    WriteLine("WindowStyle", header.StartProgram.WindowStyle);
    WriteTextLine("Description", header.Description);
    WriteLine("SpeedPercent", header.SpeedPercent);
    WriteLine("SkipMouseMoves", header.SkipMouseMoves);
    WriteLine("CapsLockState", header.CapsLockState);
    WriteLine("RepeatCount", header.RepeatCount);
    WriteLine("SafetyLevel", header.SafetyLevel);
    WriteLine("SimilarWindowNames", header.SimilarWindowNames);
    if (const std::string untold = UntoldBytes(header, bytes); !untold.empty()) {
        out << ",\n\"bytes\": \"" << untold << "\"";
    }
    return header;
}

void Exporter::WriteStrings(std::int32_t count) {
    if (count > 0) file.RequireRoom(count, sizeof(std::uint16_t));
    out << ",\n\"Strings\": [";
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string_view text = file.TakeString();
        pace.Advance(sizeof(std::uint16_t) + text.size());
        out << (i == 0 ? "\n" : ",\n") << TextValue(text);
    }
    out << (count > 0 ? "\n]" : "]");
}

template <class Record>
void Exporter::WriteArray(std::string_view name, std::int32_t count) {
    const std::size_t size = RecordSize<Record>();
    if (count > 0) file.RequireRoom(count, size);
    out << ",\n\"" << name << "\": [";
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string_view bytes = Take(size);
        const auto record = RecordOf<Record>(bytes);
        out.Break(i > 0);
        WriteRecord(record);
        WriteUntold(record, bytes);
        out << "}";
    }
    out << (count > 0 ? "\n]" : "]");
}

void Exporter::WriteRecord(const JobEvent& event) {
    Pen pen(out.Room(LongestEvent));
    pen << "{\"time\":" << event.time();
    PutAction(pen, event);
    if (event.WindowChainIndex != NoWindowMarker) pen << ",\"WindowChainIndex\":" << event.WindowChainIndex;
    if (event.WaitForWindow != 0) pen << ",\"WaitForWindow\":" << event.WaitForWindow;
    if (event.IfNoWindow != StopExecuting) PutChoice(pen, event.IfNoWindow);
    out.Used(pen.Place());
    lastTime = event.time();
}

void Exporter::WriteList(std::string_view name, std::initializer_list<std::int64_t> numbers) {
    out << ",\"" << name << "\":";
    std::string_view separator = "[";
    for (const std::int64_t number : numbers) {
        out << separator << number;
        separator = ",";
    }
    out << "]";
}

void Exporter::WriteRecord(const WindowSignature& window) {
    const platform::WindowPlacement& place = window.Placement;
    out << "{\"Caption\":" << TextValue(window.Caption) << ",\"ClassName\":" << TextValue(window.ClassName);
    Member("ControlId", window.ControlId);
    Member("length", place.length);
    Member("flags", place.flags);
    Member("showCmd", place.showCmd);
    WriteList("ptMinPosition", {place.ptMinPosition.x, place.ptMinPosition.y});
    WriteList("ptMaxPosition", {place.ptMaxPosition.x, place.ptMaxPosition.y});
    const platform::Rect& normal = place.rcNormalPosition;
    WriteList("rcNormalPosition", {normal.left, normal.top, normal.right, normal.bottom});
}

void Exporter::WriteRecord(const WindowChain& chain) {
    const std::int32_t levels = LevelsOf(chain);
    out << "{\"Path\":[";
    for (std::int32_t level = 0; level < levels; ++level) {
        if (level > 0) out << ",";
        out << std::int64_t{chain.Path[static_cast<std::size_t>(level)]};
    }
    out << "]";
    MemberUnless(UsualLeaf(chain.Path, levels), "LeafWindow", chain.LeafWindow);
    MemberUnless(levels - 1, "Depth", chain.Depth);
}

void Exporter::WriteTail() {
    if (file.Rest() == 0) return;
    out << ",\n\"Tail\": [";
    std::string line = "\n\"";
    while (file.Rest() > 0) {
        AppendHex(line, Take(std::min(TailBytesInLine, static_cast<std::size_t>(file.Rest()))));
        out << line << "\"";
        line = ",\n\"";
    }
    out << "\n]";
}

}  // namespace

void ExportJob(InputFile& job, const TextSink& sink, int codePage, const TextProgress& progress) {
    if (!ExactUtf8({}, codePage)) {
        throw RuntimeFailure(FailureKind::Range, "The code page " + std::to_string(codePage) +
                                                     " is not known here. Choose another one, such as 1252.");
    }
    TextPace pace(progress, static_cast<std::size_t>(job.Length()));
    Exporter(job, sink, codePage, pace).Export();
}
