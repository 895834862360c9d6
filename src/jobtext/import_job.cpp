#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "jobs/job_fields.h"
#include "jobtext/carried.h"
#include "jobtext/differing_bytes.h"
#include "jobtext/job_text.h"
#include "jobtext/pace.h"
#include "jobtext/records_of_text.h"
#include "jobtext/text_of_page.h"
#include "jobtext/usual.h"
#include "storage/record_output.h"

namespace {

using ParseFailure = nlohmann::detail::exception;

// A place in the text that the parser moves on, and that everybody else can look at. It costs the parser a tenth of its
// time.
class SharedPlace {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    SharedPlace(const char* firstPlace, const char*& sharedPlace) : place(firstPlace), shared(&sharedPlace) {}
    reference operator*() const { return *place; }
    SharedPlace& operator++() {
        *shared = ++place;
        return *this;
    }
    bool operator!=(const SharedPlace& other) const { return place != other.place; }

private:
    const char* place;
    const char** shared;
};

// Looks for the code page, which the texts need, and which may stand behind them. It ends the parse when it has it.
class CodePageFinder {
public:
    std::optional<std::int64_t> found;

    bool start_object(std::size_t) { return Opens(); }
    bool end_object() { return Closes(); }
    bool start_array(std::size_t) { return Opens(); }
    bool end_array() { return Closes(); }
    bool key(const std::string& name) {
        isNext = depth == 1 && name == JobRules[CodePageMember].name;
        return true;
    }
    bool number_integer(std::int64_t number) { return Take(number); }
    bool number_unsigned(std::uint64_t number) { return Take(static_cast<std::int64_t>(number)); }
    bool null() { return !isNext; }
    bool boolean(bool) { return !isNext; }
    bool number_float(double, const std::string&) { return !isNext; }
    bool string(const std::string&) { return !isNext; }
    static bool binary(const std::vector<std::uint8_t>&) { return false; }
    static bool parse_error(std::size_t, const std::string&, const ParseFailure&) { return false; }

private:
    bool Opens() {
        ++depth;
        return !isNext;
    }
    bool Closes() {
        --depth;
        return true;
    }
    bool Take(std::int64_t number) {
        if (isNext) found = number;
        return !isNext;
    }

    int depth = 0;
    bool isNext = false;  // the value of this member comes
};

int CodePageOf(std::string_view text) {
    CodePageFinder finder;
    nlohmann::json::sax_parse(text.begin(), text.end(), &finder);
    return static_cast<int>(std::clamp<std::int64_t>(finder.found.value_or(0), 0, 1 << 20));
}

// What the parser finds, one call for each piece. It fails with sentences that do not tell the line.
class JobTextReader {
public:
    JobTextReader(int textCodePage, TextPace& textPace) : codePage(textCodePage), pace(textPace) {}

    // To be called at the end of the text: what can still fail.
    void Finish();
    void HandTo(const TextSink& sink) const;

    bool start_object(std::size_t) {
        if (state == State::Before) {
            state = State::Members;
        } else if (state == State::Items && recordRules.data() != nullptr) {
            BeginMembers(recordRules, recordValues);
        } else if (TakesText()) {
            beforeHex = state;
            state = State::Hex;
        } else {
            FailKind("an object");
        }
        return true;
    }

    bool key(const std::string& name) {
        if (state == State::Members) {
            member = FindMember(name);
        } else if (name != "hex") {
            FailInText("A text that the code page cannot hold is written as {\"hex\":\"...\"}, without " +
                       InQuotes(name) + ". Remove that.");
        }
        return true;
    }

    bool end_object() {
        if (state == State::Hex) FailInText("Between these braces \"hex\" is missing. Add it, or write a text.");
        if (state == State::HexDone) {
            state = beforeHex;
        } else if (values == &recordValues) {
            EndRecord();
        } else {
            state = State::After;
        }
        return true;
    }

    bool start_array(std::size_t) {
        if (state == State::Members && Rule().kind == MemberKind::List) {
            values->lists[member].clear();
            state = State::List;
        } else if (state == State::Members && Rule().kind == MemberKind::Array) {
            BeginArray();
        } else {
            FailKind("a list");
        }
        return true;
    }

    bool end_array() {
        if (state == State::Items) recordRules = {};
        state = State::Members;
        return true;
    }

    bool number_integer(std::int64_t number) {
        TakeNumber(number);
        return true;
    }
    bool number_unsigned(std::uint64_t number) {
        constexpr auto Most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        TakeNumber(static_cast<std::int64_t>(std::min(number, Most)));
        return true;
    }

    bool string(const std::string& text) {
        if (state == State::Hex) {
            TakeText(BytesOf(text));
            state = State::HexDone;
        } else if (state == State::Items && member == TailMember) {
            tail += BytesOf(text);
        } else if (TakesText()) {
            TakeText(InCodePage(text));
        } else if (state == State::Members && Rule().kind == MemberKind::Bytes) {
            values->texts[member] = text;
        } else {
            TakeWord(text);
        }
        return true;
    }

    bool null() { FailKind("null"); }
    bool boolean(bool) { FailKind("true or false"); }
    bool number_float(double, const std::string&) { FailKind("a number with a fraction"); }
    bool binary(const std::vector<std::uint8_t>&) { FailKind("binary data"); }

    [[noreturn]] bool parse_error(std::size_t, const std::string&, const ParseFailure& failure);

private:
    enum class State { Before, Members, List, Items, Hex, HexDone, After };

    const MemberRule& Rule() const { return rules[member]; }

    void BeginMembers(MemberRules objectRules, MemberValues& objectValues);
    std::size_t FindMember(std::string_view name);
    void BeginArray();
    void EndRecord();

    bool TakesText() const {
        return state == State::Members ? Rule().kind == MemberKind::Text
                                       : state == State::Items && member == StringsMember;
    }
    void TakeNumber(std::int64_t number);
    void TakeWord(const std::string& word);
    void TakeText(std::string&& text);
    std::string InCodePage(const std::string& utf8) const;
    static std::string BytesOf(const std::string& hex);

    template <class Record>
    void Append(const Record& record, OutputBlocks& array);

    std::string CountBytes(std::size_t countMember, std::size_t array) const;
    JobHeader WholeHeader() const;

    [[noreturn]] void FailKind(const std::string& what) const;

    const int codePage;
    TextPace& pace;

    State state = State::Before;
    State beforeHex = State::Before;
    MemberValues jobValues;
    MemberValues recordValues;
    MemberRules rules = JobRules;
    MemberRules recordRules;  // of the array that is being read, if it is one of records
    MemberValues* values = &jobValues;
    std::size_t member = JobMemberCount - 1;

    std::array<std::int32_t, JobMemberCount> counts{};  // by the member of the array
    OutputBlocks strings;
    OutputBlocks events;
    OutputBlocks windows;
    OutputBlocks chains;
    std::string tail;
    std::string image;
    std::int32_t lastTime = 0;  // of an event

    // When all has been read.
    std::string front;
    std::string windowCount;
    std::string chainCount;
};

void JobTextReader::BeginMembers(MemberRules objectRules, MemberValues& objectValues) {
    rules = objectRules;
    values = &objectValues;
    values->given = 0;
    member = rules.size() - 1;
    state = State::Members;
}

// Members mostly come in the order of the rules.
std::size_t JobTextReader::FindMember(std::string_view name) {
    std::size_t found = member;
    for (std::size_t tries = rules.size(); tries > 0; --tries) {
        found = found + 1 < rules.size() ? found + 1 : 0;
        if (rules[found].name != name) continue;
        if (values->Has(found)) FailInText(InQuotes(name) + " stands here twice. Remove one of them.");
        values->given |= MemberBit(found);
        return found;
    }
    FailInText("There is no " + InQuotes(name) + " here. Mind the spelling, or remove it.");
}

void JobTextReader::BeginArray() {
    state = State::Items;
    if (member == EventsMember) recordRules = EventRules;
    if (member == WindowsMember) recordRules = WindowRules;
    if (member == ChainsMember) recordRules = ChainRules;
}

void JobTextReader::EndRecord() {
    const std::size_t array = recordRules.data() == EventRules.data()    ? EventsMember
                              : recordRules.data() == WindowRules.data() ? WindowsMember
                                                                         : ChainsMember;
    if (array == EventsMember) {
        const JobEvent event = EventOf(recordValues);
        lastTime = event.time();
        Append(event, events);
    }
    if (array == WindowsMember) Append(WindowOf(recordValues), windows);
    if (array == ChainsMember) Append(ChainOf(recordValues), chains);
    ++counts[array];
    rules = JobRules;
    values = &jobValues;
    member = array;
    state = State::Items;
    pace.Advance(1);
}

void JobTextReader::TakeNumber(std::int64_t number) {
    const bool isOne = state == State::Members && Rule().kind == MemberKind::Number;
    if (!isOne && state != State::List) FailKind("a number");
    const MemberRule& rule = Rule();
    if (number < rule.least || number > rule.most) {
        FailInText(InQuotes(rule.name) + " is a whole number from " + std::to_string(rule.least) + " to " +
                   std::to_string(rule.most) + ". Write one of these.");
    }
    if (isOne) {
        values->numbers[member] = number;
        return;
    }
    std::vector<std::int64_t>& list = values->lists[member];
    if (list.size() == rule.width) {
        FailInText(InQuotes(rule.name) + " holds " + std::to_string(rule.width) + " numbers at most. Remove some.");
    }
    list.push_back(number);
}

void JobTextReader::TakeWord(const std::string& word) {
    if (state != State::Members || Rule().kind != MemberKind::Number) FailKind("a text");
    if (Rule().find == nullptr) FailKind("a text");
    const auto number = Rule().find(word);
    if (!number)
        FailInText("There is no " + InQuotes(Rule().name) + " of the name " + InQuotes(word) + ". Mind the spelling.");
    values->numbers[member] = *number;
}

void JobTextReader::TakeText(std::string&& text) {
    if (state == State::Items || (state == State::Hex && beforeHex == State::Items)) {
        if (text.size() > LongestString) {
            FailInText("A string holds " + std::to_string(LongestString) + " characters at most. Shorten it.");
        }
        strings.WriteString(text);
        ++counts[StringsMember];
        return;
    }
    std::string trimmed = Trim(text);
    if (trimmed.size() > Rule().width) {
        FailInText(InQuotes(Rule().name) + " holds " + std::to_string(Rule().width) +
                   " characters at most. Shorten it.");
    }
    values->texts[member] = std::move(trimmed);
}

std::string JobTextReader::InCodePage(const std::string& utf8) const {
    if (auto text = FromExactUtf8(utf8, codePage)) return *std::move(text);
    if (!FromExactUtf8("", codePage)) {
        FailInText("The text has to name its code page, one that is known here, in a line such as \"CodePage\": 1252.");
    }
    FailInText("The code page " + std::to_string(codePage) + " lacks a character of this text. Write another one.");
}

std::string JobTextReader::BytesOf(const std::string& hex) {
    if (auto bytes = FromHex(hex)) return *std::move(bytes);
    FailInText("Bytes are written as two digits each, from 0 to 9 and a to f. Mend them.");
}

template <class Record>
void JobTextReader::Append(const Record& record, OutputBlocks& array) {
    const std::size_t bytesMember = recordRules.size() - 1;
    if (!recordValues.Has(bytesMember)) return array.Write(record);
    ImageOf(record, recordRules, recordValues, image);
    std::copy(image.begin(), image.end(), array.Room(image.size()));
}

void JobTextReader::FailKind(const std::string& what) const {
    if (state == State::Before)
        FailInText("The text of a job begins with a brace, not with " + what + ". Export it again.");
    if (state == State::Items) FailInText(InQuotes(rules[member].name) + " cannot hold " + what + ". Remove it.");
    if (state == State::Members || state == State::List) {
        FailInText(InQuotes(Rule().name) + " cannot be " + what + ". Write it as an export does.");
    }
    FailInText("Here " + what + " is out of place. Remove it.");
}

// "[json.exception.parse_error.101] parse error at line 2, column 5: syntax error ... - invalid literal; last read:
// ..."
bool JobTextReader::parse_error(std::size_t, const std::string&, const ParseFailure& failure) {
    std::string_view words = failure.what();
    const std::size_t column = words.find(", column ");
    const std::size_t colon = words.find(": ", column == std::string_view::npos ? 0 : column);
    if (colon != std::string_view::npos) words.remove_prefix(colon + 2);
    words = words.substr(0, words.find("; last read"));
    FailInText("This is not JSON (" + std::string(words) + "). Mend it, or export the job again.");
}

// As it stands in the file.
std::string JobTextReader::CountBytes(std::size_t countMember, std::size_t array) const {
    const std::int32_t given = jobValues.Int32(countMember);
    if (given != 0 && counts[array] > 0) {
        FailInText(InQuotes(JobRules[countMember].name) + " is for an array without items. Remove it.");
    }
    std::string bytes(sizeof given, '\0');
    little_endian::Store(bytes.data(), given != 0 ? given : counts[array]);
    return bytes;
}

JobHeader JobTextReader::WholeHeader() const {
    JobHeader header = HeaderOf(jobValues);
    InCodePage({});  // fails for a code page that is not known, also where no text needs it
    if (jobValues.numbers[FormatMember] != TextFormatVersion) {
        FailInText("This text was written by a newer program. Use that one to import it.");
    }
    if (jobValues.Has(DurationMember)) return header;
    const auto usual = UsualDuration(header, lastTime);
    if (!usual) FailInText("A speed of 0 percent gives no duration. Write another one, or a \"DurationMs\".");
    header.DurationMs = *usual;
    return header;
}

void JobTextReader::Finish() {
    ImageOf(WholeHeader(), JobRules, jobValues, front);
    front += CountBytes(EventCountMember, EventsMember) + CountBytes(StringCountMember, StringsMember);
    windowCount = CountBytes(WindowCountMember, WindowsMember);
    chainCount = CountBytes(ChainCountMember, ChainsMember);
}

// In the order of the file.
void JobTextReader::HandTo(const TextSink& sink) const {
    sink(front);
    strings.HandTo(sink);
    events.HandTo(sink);
    sink(windowCount);
    windows.HandTo(sink);
    sink(chainCount);
    chains.HandTo(sink);
    if (!tail.empty()) sink(tail);
}

// Where the reader fails: all is read once more, and watched.
std::ptrdiff_t LineOfFailure(std::string_view text, int codePage) {
    const char* place = text.data();
    TextPace untold({}, 0);
    JobTextReader reader(codePage, untold);
    try {
        nlohmann::json::sax_parse(SharedPlace(place, place), SharedPlace(place + text.size(), place), &reader);
    } catch (const RuntimeFailure&) {
        // It is told already; what the reader finds at the end stands in the last line.
    }
    // The parser has read one character beyond a number.
    return 1 + std::count(text.data(), std::max(text.data(), place - 1), '\n');
}

// An export has a record a line.
std::size_t LinesOf(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

void ImportJob(const std::string& name, std::string_view text, const TextSink& sink, const TextProgress& progress) {
    TextPace pace(progress, progress ? LinesOf(text) : 0);
    const int codePage = CodePageOf(text);
    JobTextReader reader(codePage, pace);
    try {
        nlohmann::json::sax_parse(text.begin(), text.end(), &reader);
        reader.Finish();
    } catch (const RuntimeFailure& failure) {
        throw RuntimeFailure(failure.Kind(), "'" + name + "', line " + std::to_string(LineOfFailure(text, codePage)) +
                                                 ": " + failure.what());
    }
    reader.HandTo(sink);
    pace.End();
}
