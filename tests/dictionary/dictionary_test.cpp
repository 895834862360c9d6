#include "dictionary/dictionary.h"

#include "platform/registry.h"
#include "platform/text.h"
#include "support/story.h"

namespace {

const std::string registryKey = "Software\\Tessarine";

using StoredLanguage = std::pair<std::string, int>;

class LanguageInRegistry : public testing::TestWithParam<StoredLanguage> {};

TEST_P(LanguageInRegistry, IsReadOnce) {
    const auto& [text, language] = GetParam();
    ASSERT_TRUE(platform::WriteRegistry(registryKey, "Language", text));
    EXPECT_EQ(GetLanguage(), language);
    platform::WriteRegistry(registryKey, "Language", text == "de" ? "fr" : "de");
    EXPECT_EQ(GetLanguage(), language);
}

INSTANTIATE_TEST_SUITE_P(Texts, LanguageInRegistry,
                         testing::Values(StoredLanguage{"en", 1}, StoredLanguage{"de", 2}, StoredLanguage{"sp", 3},
                                         StoredLanguage{"fr", 4}, StoredLanguage{"  fr ", 4}, StoredLanguage{"es", 1},
                                         StoredLanguage{"DE", 1}, StoredLanguage{"", 1}));

TEST(Language, IsEnglishWithoutRegistryValue) {
    EXPECT_EQ(GetLanguage(), LanguageEnglish);
}

TEST(SetLanguage, StoresTheTextAndTakesEffectAtOnce) {
    const std::tuple<int, int, std::string, std::string> cases[] = {
        {2, 2, "de", "Nie"},   {3, 3, "sp", "Nunca"},  {4, 4, "fr", "Jamais"}, {1, 1, "en", "Never"},
        {0, 1, "en", "Never"}, {-2, 1, "en", "Never"}, {5, 1, "en", "Never"},  {65538, 1, "en", "Never"},
    };
    for (const auto& [number, language, stored, never] : cases) {
        SCOPED_TRACE(number);
        SetLanguage(2);
        SetLanguage(number);
        EXPECT_EQ(GetLanguage(), language);
        EXPECT_EQ(platform::ReadRegistry(registryKey, "Language"), stored);
        EXPECT_EQ(Translate("Never"), never);
    }
}

TEST(SetLanguage, HoldsWhereTheRegistryRefuses) {
    simulated::RefuseRegistry();
    SetLanguage(LanguageSpanish);
    EXPECT_EQ(Translate("Never"), "Nunca");
}

TEST(Translate, FindsKeysInAnyCaseAndMarksMissingOnes) {
    const std::tuple<int, std::string, std::string> cases[] = {
        {1, "Starting in", "Starting in"},
        {1, "STARTING in", "STARTING in"},
        {2, "STARTING in", "Beginnend in"},
        {4, "starting IN", "Démarre dans"},
        {3, "Saturday", "<Saturday>"},
        {1, "Saturday", "<Saturday>"},
        {1, "", "<>"},
        {2, "", "<>"},
        {2, " seconds", "< seconds>"},
        {2, "FAILED", "Fehlgeschlagen"},  // the first of two rows that differ in case alone
    };
    for (const auto& [language, key, text] : cases) {
        SCOPED_TRACE(key);
        SetLanguage(language);
        EXPECT_EQ(Translate(key), platform::FromUtf8(text));
    }
}

TEST(Translate1, ReplacesTheFirstMarkerAndLeavesTheTranslationBehind) {
    SetLanguage(LanguageGerman);
    std::string text = "FILE '%1' cannot be found";
    EXPECT_EQ(Translate1(text, "a%1b"), "Die Datei 'a%1b' kann nicht gefunden werden");
    EXPECT_EQ(text, "Die Datei '%1' kann nicht gefunden werden");
    EXPECT_EQ(Translate1("Never", "x"), "Nie");
    EXPECT_EQ(Translate1("no %1 such %1", "x"), "<no x such %1>");
}

TEST(Translate2, ReplacesBothMarkersOrNone) {
    SetLanguage(LanguageSpanish);
    std::string text = "Cannot find element: '%1' in window: '%2'";
    EXPECT_EQ(Translate2(text, "OK", "Setup"), "No se ha podido encontrar el elemento 'OK' en la ventana 'Setup'");
    EXPECT_EQ(text, "No se ha podido encontrar el elemento '%1' en la ventana '%2'");

    EXPECT_EQ(Translate2("File '%1' cannot be found", "x", "y"), "No se encuentra el archivo '%1'");
    EXPECT_EQ(Translate2("only %2", "x", "y"), "<only %2>");
    EXPECT_EQ(Translate2("Never", "x", "y"), "Nunca");
    EXPECT_EQ(Translate2("%1 and %2", "50%2", "y"), "<50y and %2>");
}

// Spanish and French have two of their phrases in each other's language.
TEST(ActionWords, FollowTheLanguageWithEachLookup) {
    const std::pair<int, std::vector<std::string>> cases[] = {
        {LanguageGerman,
         {"OK", "GESCHEITERT", "Aufgabe ausführen", "Warten auf Fenster", "MAUS", "BEWEGEN", "Links", "Rechts",
          "drucken", "los lassen", "gedruckt halten", "RAD", "Mitte", "Doppelklick", "TASTATUR", "TASTENANSCHLÄGE",
          "Textfeld"}},
        {LanguageSpanish, {"OK", "FALLADO", "La tâche en exécution", "En attente de la fenetre", "RATÓN"}},
        {LanguageFrench, {"OK", "ECHOUÉ", "Ejecutando la tarea", "De espera para la ventana", "SOURIS"}},
        {LanguageEnglish, {"OK", "FAILED", "executing job", "Waiting for window", "MOUSE"}},
    };
    for (const auto& [language, words] : cases) {
        SetLanguage(language);
        Translate("a key that is not there");
        const ActionWords& w = actionWords;
        const std::string found[] = {w.ok,       w.failed,      w.executingJob, w.waitingForWindow,
                                     w.mouse,    w.move,        w.left,         w.right,
                                     w.click,    w.up,          w.down,         w.wheel,
                                     w.middle,   w.doubleClick, w.keyboard,     w.keystrokes,
                                     w.textField};
        for (std::size_t i = 0; i < words.size(); ++i) EXPECT_EQ(platform::ToUtf8(found[i]), words[i]) << language;
    }
}

}  // namespace
