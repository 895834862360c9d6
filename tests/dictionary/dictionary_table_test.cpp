#include "dictionary/dictionary_table.h"

#include <map>
#include <regex>
#include <set>

#include "platform/text.h"
#include "support/story.h"
#include "support/wording.h"

namespace {

const DictionaryRow fixedRows[] = {
    {"Starting in", "Beginnend in", "Démarre dans", "Iniciaando en"},
    {"seconds", "Sekunden", "seconde", "segundos"},
    {"Run", "Starten", "Lancer", "Inicia"},
    {"%1 times slower than original", "%1 Mal langsamer als Original", "%1 fois plus lent que la normale",
     "%1 veces más lento que el original"},
    {"Schedule named '%1' will be deleted because job '%2' cannot be found",
     "Zeitplaner '%1' wird gelocht werden weil Aufgabe '%2' kann nicht gefunden werden.",
     "La tâche nommée '%1' viens d'etre supprimée parce qu'il est impossible de trover la tâche '%2' . ",
     "Lo programación denominada '%1' será borrada porque la tarea '%2' no ha sido encontrada"},
    {"Cannot find element: '%1' in window: '%2'", "Kann keinen Teil '%1' in Fenster '%2' finden",
     "Impossible de trouver l'élément '%1' dans la fenetre '%2",
     "No se ha podido encontrar el elemento '%1' en la ventana '%2'"},
    {"Never", "Nie", "Jamais", "Nunca"},
};

std::vector<DictionaryRow> AllRows() {
    std::vector<DictionaryRow> rows(DictionaryRows().begin(), DictionaryRows().end());
    rows.insert(rows.end(), OwnRows().begin(), OwnRows().end());
    return rows;
}

bool IsFixed(const DictionaryRow& row) {
    return std::ranges::any_of(fixedRows, [&](const auto& fixed) { return std::string(fixed.english) == row.english; });
}

std::vector<std::string> Translations(const DictionaryRow& row) {
    return {row.german, row.french, row.spanish};
}

std::ptrdiff_t Count(const std::string& text, char character) {
    return std::count(text.begin(), text.end(), character);
}

std::string WithMarkersFilled(const std::string& text) {
    return std::regex_replace(text, std::regex("%[12]"), "7");
}

// A full stop, colon, question or exclamation mark at the end. "Nr." and "N.º" abbreviate the key "No#".
std::string LastMark(const std::string& text) {
    const bool marked = !text.empty() && std::string(".:?!").find(text.back()) != std::string::npos;
    return marked && text != "Nr." ? text.substr(text.size() - 1) : "";
}

TEST(DictionaryTable, HoldsTheFixedRowsToTheLetter) {
    for (const DictionaryRow& fixed : fixedRows) {
        const auto rows = DictionaryRows();
        const auto row =
            std::ranges::find_if(rows, [&](const auto& one) { return std::string(fixed.english) == one.english; });
        ASSERT_NE(row, rows.end()) << fixed.english;
        for (const auto text : {&DictionaryRow::german, &DictionaryRow::french, &DictionaryRow::spanish}) {
            EXPECT_STREQ((*row).*text, fixed.*text) << fixed.english;
        }
    }
}

TEST(DictionaryTable, HasAllFourTextsInEveryRow) {
    for (const DictionaryRow& row : AllRows()) {
        for (const char* text : {row.english, row.german, row.french, row.spanish}) {
            ASSERT_NE(text, nullptr) << row.english;  // what a missing comma between two texts leaves behind
            EXPECT_STRNE(text, "") << row.english;
        }
    }
}

TEST(DictionaryTable, AgreesAcrossLanguagesInMarkersAndPunctuation) {
    for (const DictionaryRow& row : AllRows()) {
        const std::string key = row.english;
        for (const std::string& text : Translations(row)) {
            SCOPED_TRACE(text);
            for (const char* marker : {"%1", "%2"}) {
                EXPECT_EQ(key.find(marker) == std::string::npos, text.find(marker) == std::string::npos);
            }
            EXPECT_EQ(Count(key, '%'), Count(text, '%'));
            EXPECT_EQ(Count(key, '&'), Count(text, '&'));  // the underlined letters
            if (IsFixed(row)) continue;
            EXPECT_EQ(key.find("'%1'") == std::string::npos, text.find("'%1'") == std::string::npos);
            EXPECT_EQ(LastMark(key), LastMark(text));
        }
    }
}

TEST(DictionaryTable, IsWordedAsEachLanguageWantsIt) {
    for (const DictionaryRow& row : AllRows()) {
        if (IsFixed(row)) continue;
        const std::pair<int, const char*> texts[] = {
            {LanguageGerman, row.german}, {LanguageFrench, row.french}, {LanguageSpanish, row.spanish}};
        for (const auto& [language, text] : texts) {
            SetLanguage(language);
            EXPECT_THAT(FaultsOf(platform::FromUtf8(WithMarkersFilled(text))), IsEmpty()) << row.english;
        }
    }
}

// One word for one thing. French above all keeps what is recorded ("enregistrer") and what is saved ("sauvegarder")
// apart.
TEST(DictionaryTable, NamesThingsTheSameInEveryRow) {
    const std::tuple<const char*, const char*, const char*, const char*> terms[] = {
        {"\\bjobs?\\b", "aufgabe", "tâche", "tarea"},
        {"\\bsaved?\\b", "speicher", "sauvegard", "guarda"},
        {"\\brecord", "aufn|aufzun|aufgen", "enregistr", "graba|grabó"},
        {"\\bschedul", "plan|plän", "planifi", "program"},
        {"\\breplay", "wiederg|wiederzug", "rej(eu|ouer)", "reprodu"},
        {"\\bhotkey", "tastenkürzel", "raccourci", "atajo"},
        {"\\bkeystroke", "tasten", "frappe", "pulsaci|teclas"},
        {"\\bsettings\\b", "einstellung", "paramètres", "configuración"},
    };
    const auto has = [](const std::string& text, const char* pattern) {
        return std::regex_search(text, std::regex(pattern, std::regex::icase));
    };
    for (const DictionaryRow& row : AllRows()) {
        if (IsFixed(row)) continue;
        for (const auto& [english, german, french, spanish] : terms) {
            if (!has(row.english, english)) continue;
            EXPECT_TRUE(has(row.german, german)) << row.german;
            EXPECT_TRUE(has(row.french, french)) << row.french;
            EXPECT_TRUE(has(row.spanish, spanish)) << row.spanish;
        }
        EXPECT_TRUE(!has(row.french, "enregistr") || has(row.english, "record|capture")) << row.french;
        EXPECT_TRUE(!has(row.french, "sauvegard") || has(row.english, "save")) << row.french;
    }
}

TEST(DictionaryTable, FitsWindowsCodePage1252) {
    std::vector<std::string> texts;
    for (const DictionaryRow& row : AllRows()) {
        texts.insert(texts.end(), {row.english, row.german, row.french, row.spanish});
    }
    for (const ActionWordRow& row : ActionWordRows()) texts.insert(texts.end(), row.begin(), row.end());
    for (const std::string& text : texts) EXPECT_EQ(platform::ToUtf8(platform::FromUtf8(text)), text);
}

// A further row with the key of an earlier one would never be found.
TEST(DictionaryTable, RepeatsOnlyTheKnownKeys) {
    std::map<std::string, int> rowsOfKey;
    for (const DictionaryRow& row : AllRows()) ++rowsOfKey[platform::LowerCase(row.english)];
    std::set<std::string> repeated;
    for (const auto& [key, rows] : rowsOfKey) {
        if (rows > 1) repeated.insert(key);
    }
    EXPECT_THAT(repeated, ElementsAre("cannot delete file", "change", "failed", "file not found", "start time"));
}

}  // namespace
