#include "dictionary/sentences.h"

#include <limits>

#include "dictionary/dictionary.h"
#include "platform/text.h"
#include "support/story.h"
#include "support/wording.h"

namespace {

struct Texts {
    std::string label;
    std::string labelled;
    std::string question;
    std::string exclamation;
    std::string ellipsis;
};

TEST(Sentences, SetTheMarksOfTheLanguage) {
    const std::pair<int, Texts> cases[] = {
        {LanguageEnglish,
         {"Status:", "Status: x", "Delete job?", "Job completed successfully!", "Please wait a few seconds..."}},
        {LanguageGerman,
         {"Status:", "Status: x", "Aufgabe löschen?", "Aufgabe erfolgreich abgeschlossen!",
          "Bitte warten Sie einige Sekunden..."}},
        {LanguageFrench,
         {"État\u00A0:", "État\u00A0: x", "Supprimer la tâche\u00A0?", "Tâche terminée avec succès\u00A0!",
          "Veuillez patienter quelques secondes..."}},
        {LanguageSpanish,
         {"Estado:", "Estado: x", "¿Eliminar la tarea?", "¡Tarea completada correctamente!",
          "Espere unos segundos, por favor..."}},
    };
    for (const auto& [language, texts] : cases) {
        SetLanguage(language);
        EXPECT_EQ(platform::ToUtf8(Label("Status")), texts.label);
        EXPECT_EQ(platform::ToUtf8(Labelled("Status", "x")), texts.labelled);
        EXPECT_EQ(platform::ToUtf8(Question("Delete job")), texts.question);
        EXPECT_EQ(platform::ToUtf8(Exclamation("Job completed successfully")), texts.exclamation);
        EXPECT_EQ(platform::ToUtf8(Ellipsis("Please wait a few seconds")), texts.ellipsis);
    }
}

TEST(Sentences, WriteNumbersWithTheMarkOfTheLanguage) {
    const std::tuple<std::int64_t, int, std::string, std::string> cases[] = {
        {123, 1, "12,3", "12,3"},
        {120, 1, "12,0", "12"},
        {0, 1, "0,0", "0"},
        {303, 2, "3,03", "3,03"},
        {150, 2, "1,50", "1,5"},
        {10'000, 2, "100,00", "100"},
        {7, 3, "0,007", "0,007"},
        {-5, 1, "-0,5", "-0,5"},
        {-1234, 1, "-123,4", "-123,4"},
        {42, 0, "42", "42"},
        {200, 0, "200", "200"},
        {std::numeric_limits<std::int64_t>::min(), 1, "-922337203685477580,8", "-922337203685477580,8"},
    };
    for (const auto& [value, places, whole, brief] : cases) {
        for (const int language : {LanguageGerman, LanguageFrench, LanguageSpanish}) {
            SetLanguage(language);
            EXPECT_EQ(DecimalNumber(value, places), whole);
            EXPECT_EQ(ShortDecimalNumber(value, places), brief);
        }
    }
    SetLanguage(LanguageEnglish);
    EXPECT_EQ(DecimalNumber(123, 1), "12.3");
    EXPECT_EQ(ShortDecimalNumber(150, 2), "1.5");
}

// Whoever reads a key's name in a box or a menu looks for the same word on the page.
TEST(Sentences, NameAKeyTheSameInCaptionsRefusalsAndMenus) {
    for (const int language : AllLanguages) {
        SetLanguage(language);
        for (const char* const key : {"CTRL", "SHIFT", "ALT"}) {  // as the captions have them
            EXPECT_THAT(Translate("Invalid hotkey selection for job. You must select CTRL, SHIFT or ALT key."),
                        HasSubstr(Translate(key)));
        }
        EXPECT_THAT(Translate("Record &New (Ctrl+Shift+N)"),
                    HasSubstr("(" + KeyCombination({.ctrl = true, .shift = true}, 'N') + ")"));
        EXPECT_EQ(Translate("Pause/Break"), PauseBreakKey());
    }
}

TEST(Wording, KnowsFaultyTexts) {
    const std::pair<int, std::vector<std::string>> faulty[] = {
        {LanguageEnglish,
         {"<Run>", "%1 jobs", "a  b", "a ", "Status :", "Overwrite??", "Status::", "Wait..", "Done.!", "pressPause",
          "Reason:'x'", "job'x'", "Exists.Overwrite?", "1,5", "a\u00A0:", "¿a?"}},
        {LanguageFrench, {"Motif: 'a'", "Remplacer?", "Remplacer ?", "a\u00A0\u00A0:", "1.5 fois"}},
        {LanguageSpanish, {"Ya existe. Sobrescribir?", "¿¿A?", "Hecho!", "¿A", "existe.¿A?", "existe¿A?"}},
    };
    for (const auto& [language, texts] : faulty) {
        SetLanguage(language);
        for (const std::string& text : texts) EXPECT_THAT(FaultsOf(platform::FromUtf8(text)), Not(IsEmpty())) << text;
    }
}

}  // namespace
