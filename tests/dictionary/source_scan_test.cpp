// Holds the places where the sources look a text up in the dictionary against its tables. A place whose keys are not
// plain literals fails as well: nobody could tell whether the tables have them.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <utility>

#include "dictionary/dictionary.h"

namespace {

using testing::IsEmpty;

struct Lookup {
    std::string place;     // for messages: file, line, call
    std::string function;  // Translate, Label and their like
    std::vector<std::string> keys;
};

using Matches = std::sregex_iterator;

const std::string literal = R"("(?:[^"\\\n]|\\.)*")";
const std::string literals = literal + R"((?:\s*)" + literal + ")*";  // adjacent ones are one text

// Lines stay where they are.
std::string WithoutComments(const std::string& source) {
    static const std::regex comment("(" + literal + R"(|'(?:[^'\\\n]|\\.)+')|//[^\n]*)");
    return std::regex_replace(source, comment, "$1");
}

std::string Unquoted(const std::string& quoted) {
    std::string text;
    static const std::regex one(literal);
    for (Matches match(quoted.begin(), quoted.end(), one); match != Matches(); ++match) {
        text += match->str().substr(1, match->length() - 2);
    }
    return std::regex_replace(text, std::regex(R"(\\(.))"), "$1");
}

// The first argument of a call that begins with its bracket: both branches of a condition count, and what is not made
// of literals has no keys.
std::vector<std::string> KeysOf(const std::string& call) {
    static const std::regex argument(R"(^\(\s*((?:[^?"]*\?\s*)" + literals + R"(\s*:\s*)*)" + literals + R"()\s*[,)])");
    static const std::regex text(literals);
    std::vector<std::string> keys;
    std::smatch found;
    if (!std::regex_search(call, found, argument)) return keys;
    const std::string values = found.str(1);
    for (Matches match(values.begin(), values.end(), text); match != Matches(); ++match) {
        keys.push_back(Unquoted(match->str()));
    }
    return keys;
}

// The key in the row of a form's table, which stands right before the function that words it.
std::vector<std::string> KeyBefore(const std::string& row) {
    static const std::regex key("(" + literals + R"()\s*,\s*$)");
    std::smatch found;
    if (!std::regex_search(row, found, key)) return {};
    return {Unquoted(found.str(1))};
}

// The keys that the rows of a form's table name by their members.
std::vector<Lookup> RowsIn(const std::string& source, const std::string& file) {
    static const std::regex row(R"(\.(?:caption|name|tip)\s*=\s*\{?\s*()" + literals + ")");
    std::vector<Lookup> lookups;
    for (Matches match(source.begin(), source.end(), row); match != Matches(); ++match) {
        const auto line = 1 + std::count(source.begin(), (*match)[0].first, '\n');
        lookups.push_back({file + ":" + std::to_string(line) + " " + match->str(), "", {Unquoted(match->str(1))}});
    }
    return lookups;
}

std::vector<Lookup> LookupsIn(const std::string& text, const std::string& file) {
    constexpr std::size_t longestCall = 500;
    static const std::regex name(R"(\b(Translate[12]?|Label|Labelled|Question|Exclamation|Ellipsis)\b)");
    const std::string source = WithoutComments(text);
    std::vector<Lookup> lookups = RowsIn(source, file);
    for (Matches match(source.begin(), source.end(), name); match != Matches(); ++match) {
        const auto place = static_cast<std::size_t>(match->position());
        const std::string call = source.substr(place, longestCall);
        const std::string arguments = call.substr(static_cast<std::size_t>(match->length()));
        const std::size_t before = std::min(place, longestCall);
        const bool called = arguments.starts_with('(');
        std::vector<std::string> keys = called ? KeysOf(arguments) : KeyBefore(source.substr(place - before, before));
        // The other names are words of their own as well, as in BoxIcon::Question.
        if (keys.empty() && !called && !match->str().starts_with("Translate")) continue;
        const auto line = 1 + std::count(source.begin(), (*match)[0].first, '\n');
        lookups.push_back(
            {file + ":" + std::to_string(line) + " " + call.substr(0, call.find('\n')), match->str(), std::move(keys)});
    }
    return lookups;
}

std::vector<Lookup> LookupsUnder(const std::filesystem::path& folder) {
    std::vector<Lookup> lookups;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const auto file = entry.path().lexically_relative(folder);
        const bool source = file.extension() == ".cpp" || file.extension() == ".h";
        // What hands keys on names none.
        if (!source || *file.begin() == "dictionary" || file.filename() == "control_row.h") continue;
        std::ifstream content(entry.path(), std::ios::binary);
        const auto found = LookupsIn({std::istreambuf_iterator<char>(content), {}}, file.generic_string());
        lookups.insert(lookups.end(), found.begin(), found.end());
    }
    return lookups;
}

std::set<std::string> MarkersIn(const std::string& text) {
    std::set<std::string> markers;
    for (const char* marker : {"%1", "%2"}) {
        if (text.find(marker) != std::string::npos) markers.insert(marker);
    }
    return markers;
}

std::set<std::string> MarkersFilledBy(const std::string& function) {
    if (function == "Translate1") return {"%1"};
    return function == "Translate2" ? std::set<std::string>{"%1", "%2"} : std::set<std::string>{};
}

TEST(SourceScan, TellsKeysFromOtherArguments) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {R"(Translate("Run"))", {"Run"}},
        {R"(Box(Translate("a" "b") + "x", 1);)", {"ab"}},
        {"Translate1(\"a\"\n   \"b '%1'\", name)", {"ab '%1'"}},
        {R"(Translate2("quoted \"%1\" \\ %2", F(a, b), c))", {R"(quoted "%1" \ %2)"}},
        {R"(Translate(On(a, c) ? "a" : std::string::npos == 1 ? "b" : "c"))", {"a", "b", "c"}},
        {R"(Url("//"); Translate("a")  // Translate("b"))", {"a"}},
        {R"(Translate(on ? "a" : name))", {}},
        {R"(Translate(name))", {}},
        {R"(Translate("a" + name))", {}},
        {R"(Translate(Lower("a")))", {}},
        {R"(std::transform(a, b, c, Translate); TranslateMessage("c"); x = '"';)", {}},
        {R"(Box("b", Label("a"), BoxIcon::Question))", {"a"}},
        {R"(Labelled("a", name) + title.Label1 + "b")", {"a"}},
        {R"(Row rows[] = {{1, "a" "b", Label, &Model::member}};)", {"ab"}},
        {R"(Question(name))", {}},
        {R"(rows = {{.id = 1, .caption = "a", .tip = Tip}};)", {"a"}},
    };
    for (const auto& [source, keys] : cases) {
        const auto lookups = LookupsIn(source, "file.cpp");
        ASSERT_EQ(lookups.size(), 1U) << source;
        EXPECT_EQ(lookups[0].keys, keys) << source;
    }
}

TEST(Sources, LookUpOnlyWhatTheTablesHold) {
    std::set<std::string> keys;
    for (const Lookup& lookup : LookupsUnder(SOURCE_FOLDER)) {
        SCOPED_TRACE(lookup.place);
        EXPECT_THAT(lookup.keys, testing::Not(IsEmpty())) << "not a literal";
        for (const std::string& key : lookup.keys) {
            EXPECT_EQ(MarkersIn(key), MarkersFilledBy(lookup.function));
            for (int language = LanguageEnglish; language <= LanguageFrench; ++language) {
                SetLanguage(language);
                EXPECT_NE(Translate(key), "<" + key + ">") << "in language " << language;
            }
            keys.insert(key);
        }
    }
    constexpr std::size_t FewestKeys = 20;  // far below what the sources hold; fewer means that the scan is blind
    EXPECT_GE(keys.size(), FewestKeys);
}

}  // namespace
