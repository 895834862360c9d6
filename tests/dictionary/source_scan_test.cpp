#include "dictionary/source_scan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "dictionary/dictionary.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A lookup whose key comes from elsewhere, and the keys that can come.
struct IndirectLookup {
    std::string file;
    std::string argument;
    std::vector<std::string> keys;
};

const std::vector<IndirectLookup> indirectLookups = {};

// Far below what the sources hold; fewer means that the scan has gone blind.
constexpr std::size_t FewestKeys = 20;

const IndirectLookup* FindIndirect(const Lookup& lookup) {
    const auto found = std::find_if(indirectLookups.begin(), indirectLookups.end(), [&](const auto& indirect) {
        return indirect.file == lookup.file && indirect.argument == lookup.argument;
    });
    return found == indirectLookups.end() ? nullptr : &*found;
}

std::vector<std::string> KeysOf(const Lookup& lookup) {
    const IndirectLookup* indirect = FindIndirect(lookup);
    return indirect ? indirect->keys : lookup.keys;
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

void ExpectInAllLanguages(const std::string& key) {
    for (int language = LanguageEnglish; language <= LanguageFrench; ++language) {
        SetLanguage(language);
        EXPECT_NE(Translate(key), "<" + key + ">") << "in language " << language;
    }
}

TEST(SourceScan, TellsKeysFromOtherArguments) {
    struct Case {
        std::string source;
        std::vector<std::string> keys;
    };
    const std::vector<Case> cases = {
        {R"(Translate("Run"))", {"Run"}},
        {R"(Box(Translate("a" "b") + "x", 1);)", {"ab"}},
        {"Translate1(\"a\"\n   \"b '%1'\", name)", {"ab '%1'"}},
        {R"(Translate2("quoted \"%1\" \\ %2", F(a, b), c))", {R"(quoted "%1" \ %2)"}},
        {R"x(Translate(R"(raw)"))x", {"raw"}},
        {R"(Translate(On(a, "c") ? "a" : std::string::npos == 1 ? "b" : "c"))", {"a", "b", "c"}},
        {R"(Translate(on ? "a" : name))", {}},
        {R"(Translate(name))", {}},
        {R"(Translate("a" + name))", {}},
        {R"(Translate(Lower("a")))", {}},
        {R"(std::transform(a, b, c, Translate);)", {}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.source);
        const auto lookups = LookupsIn(one.source, "file.cpp");
        ASSERT_EQ(lookups.size(), 1U);
        EXPECT_EQ(lookups[0].keys, one.keys);
    }
}

TEST(SourceScan, PassesOverCommentsLiteralsAndOtherNames) {
    const std::string source = R"x(// Translate("a")
        /* Translate("b") */ TranslateMessage("c"); Log("Translate(\"d\")"); x = '"'; y = 1'000'000; z = '\'';
        Translate(
            "e");)x";
    const auto lookups = LookupsIn(source, "file.cpp");
    ASSERT_EQ(lookups.size(), 1U);
    EXPECT_THAT(lookups[0].keys, ElementsAre("e"));
    EXPECT_EQ(lookups[0].line, 3);
}

TEST(Sources, LookUpOnlyWhatTheTableHolds) {
    std::set<std::string> keys;
    for (const Lookup& lookup : LookupsUnder(SOURCE_FOLDER)) {
        SCOPED_TRACE(lookup.file + ":" + std::to_string(lookup.line) + " " + lookup.function + "(" + lookup.argument);
        const auto own = KeysOf(lookup);
        EXPECT_THAT(own, testing::Not(IsEmpty())) << "neither a literal nor a known indirect lookup";
        for (const std::string& key : own) {
            SCOPED_TRACE(key);
            EXPECT_EQ(MarkersIn(key), MarkersFilledBy(lookup.function));
            ExpectInAllLanguages(key);
            keys.insert(key);
        }
    }
    EXPECT_GE(keys.size(), FewestKeys);
}

TEST(Sources, StillHoldEveryIndirectLookup) {
    const auto lookups = LookupsUnder(SOURCE_FOLDER);
    for (const IndirectLookup& indirect : indirectLookups) {
        const bool used = std::any_of(lookups.begin(), lookups.end(), [&](const Lookup& lookup) {
            return lookup.file == indirect.file && lookup.argument == indirect.argument;
        });
        EXPECT_TRUE(used) << indirect.file << ": " << indirect.argument;
    }
}

}  // namespace
