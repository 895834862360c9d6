// Holds the places where the sources look a text up in the dictionary against its tables. A place whose keys are not
// plain literals fails as well: nobody could tell whether the tables have them.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "dictionary/dictionary.h"
#include "support/story.h"

namespace {

struct Lookup {
    std::string place;     // for messages: file, line, call
    std::string function;  // Translate, Label and their like; or where else the key stands
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

// File, line, and what stands there.
std::string PlaceOf(const std::string& file, const std::string& source, std::size_t position) {
    const auto line = 1 + std::count(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(position), '\n');
    const std::size_t end = std::min(source.find('\n', position), source.size());
    return file + ":" + std::to_string(line) + " " + source.substr(position, end - position);
}

const std::string wordings = "(?:Translate|Label|Question|Exclamation|Ellipsis)";

// Calls. The names without a call are words of their own, as in BoxIcon::Question.
std::vector<Lookup> CallsIn(const std::string& source, const std::string& file) {
    constexpr std::size_t longestCall = 500;
    static const std::regex name(R"(\b(?:Translate[12]|Labelled|)" + wordings + R"()(?=\())");
    std::vector<Lookup> lookups;
    for (Matches match(source.begin(), source.end(), name); match != Matches(); ++match) {
        const auto position = static_cast<std::size_t>(match->position());
        const std::string arguments = source.substr(position + static_cast<std::size_t>(match->length()), longestCall);
        lookups.push_back({PlaceOf(file, source, position), match->str(), KeysOf(arguments)});
    }
    return lookups;
}

// Translate handed to a function that gets its keys from elsewhere, which nobody could follow.
std::vector<Lookup> HandedOnIn(const std::string& source, const std::string& file) {
    static const std::regex bare(R"([^="\s]\s*,\s*Translate\s*[,)])");
    std::vector<Lookup> lookups;
    for (Matches match(source.begin(), source.end(), bare); match != Matches(); ++match) {
        lookups.push_back({PlaceOf(file, source, static_cast<std::size_t>(match->position())), "Translate", {}});
    }
    return lookups;
}

// The texts in the row of a form's table: behind the name of the field, at the head of the row, in front of the
// function that words them or of their letter.
std::vector<Lookup> RowsIn(const std::string& source, const std::string& file) {
    static const std::string text = "(" + literals + ")";
    static const std::regex rows[] = {
        std::regex(R"(\.(?:caption|name|tip)\s*=\s*\{?\s*)" + text),
        std::regex(R"(\{\s*)" + text + R"(\s*,)"),
        std::regex(text + R"(\s*,\s*(?:)" + wordings + R"(\b|'[A-Za-z]')\s*[,})])"),
    };
    std::vector<Lookup> lookups;
    for (const std::regex& row : rows) {
        for (Matches match(source.begin(), source.end(), row); match != Matches(); ++match) {
            lookups.push_back({PlaceOf(file, source, static_cast<std::size_t>(match->position())),
                               "row of a form",
                               {Unquoted(match->str(1))}});
        }
    }
    return lookups;
}

std::vector<Lookup> LookupsIn(const std::string& source, const std::string& file) {
    std::vector<Lookup> lookups = CallsIn(source, file);
    const auto add = [&](const std::vector<Lookup>& more) { lookups.insert(lookups.end(), more.begin(), more.end()); };
    add(HandedOnIn(source, file));
    if (file.starts_with("program/")) add(RowsIn(source, file));
    return lookups;
}

// All sources but those of the dictionary, by their place in the folder, without comments.
template <class Action>
void ForEachSource(const std::filesystem::path& folder, Action action) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const auto file = entry.path().lexically_relative(folder);
        const bool source = file.extension() == ".cpp" || file.extension() == ".h";
        if (!source || *file.begin() == "dictionary") continue;
        std::ifstream content(entry.path(), std::ios::binary);
        action(file.generic_string(), WithoutComments({std::istreambuf_iterator<char>(content), {}}));
    }
}

std::vector<Lookup> LookupsUnder(const std::filesystem::path& folder) {
    std::vector<Lookup> lookups;
    ForEachSource(folder, [&](const std::string& file, const std::string& source) {
        const auto found = LookupsIn(source, file);
        lookups.insert(lookups.end(), found.begin(), found.end());
    });
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
        {R"({.id = a_b, .caption = "a" "b", .letter = 'x'})", {"ab"}},
        {R"({.caption = {"a"}, .enabled = on})", {"a"}},
        {R"({"a", enabled, run})", {"a"}},
        {R"(tab(0, "a", 'x'))", {"a"}},
        {R"(FormText("a", Ellipsis))", {"a"}},
        {R"(Question(name))", {}},
    };
    for (const auto& [source, keys] : cases) {
        const auto lookups = LookupsIn(WithoutComments(source), "program/file.cpp");
        ASSERT_EQ(lookups.size(), 1U) << source;
        EXPECT_EQ(lookups[0].keys, keys) << source;
    }
}

// A mark that the code adds itself is right in English alone.
TEST(Sources, LeaveMarksToTheHelpers) {
    const std::regex mark(R"(\bTranslate[12]?\([^();]*\)\s*\+\s*"(?:[:?!]|\.\.\.))");
    ForEachSource(SOURCE_FOLDER, [&](const std::string& file, const std::string& source) {
        for (Matches match(source.begin(), source.end(), mark); match != Matches(); ++match) {
            ADD_FAILURE() << PlaceOf(file, source, static_cast<std::size_t>(match->position()));
        }
    });
}

TEST(Sources, LookUpOnlyWhatTheTablesHold) {
    std::set<std::string> keys;
    for (const Lookup& lookup : LookupsUnder(SOURCE_FOLDER)) {
        SCOPED_TRACE(lookup.place);
        EXPECT_THAT(lookup.keys, Not(IsEmpty())) << "not a literal";
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
