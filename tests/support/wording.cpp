#include "support/wording.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <regex>

#include "platform/text.h"

namespace {

// The text in plain letters, for the patterns below: "~" is the no-break space, "{" and "}" open a question and an
// exclamation, letters with accents are "x" and "X".
std::string Plain(const std::string& text) {
    const auto plain = [](char each) {
        const std::string one(1, each);
        if (one == platform::FromUtf8("\u00A0")) return '~';
        if (one == platform::FromUtf8("¿")) return '{';
        if (one == platform::FromUtf8("¡")) return '}';
        if (static_cast<unsigned char>(each) < 128) return each;
        return platform::LowerCase(one) != one ? 'X' : 'x';
    };
    std::string result;
    std::transform(text.begin(), text.end(), std::back_inserter(result), plain);
    return result;
}

struct Rule {
    const char* fault;
    std::regex pattern;
};

std::vector<Rule> MakeRules(int language) {
    std::vector<std::pair<const char*, const char*>> rules = {
        {"not in the dictionary", "<\\w"},
        {"an open marker", "%[12]"},
        {"two blanks", "  |~~| ~|~ "},
        {"a blank at an end", "^[ ~]|[ ~]$"},
        {"a blank before a mark", " [.,:;?!]([ \r'\"]|$)"},
        {"two marks", "[:;,?!][.:;,?!]|\\.[:;,?!]|(^|[^.])\\.\\.([^.]|$)|\\.{4}|\\{\\{|\\}\\}"},
        {"no blank between two words", "[a-z][A-Z]|[,;?!][A-Za-z{}]|:[A-Za-z{}'\"]|\\w\"\\w"},
        {"no blank between two sentences", "[a-z]\\.[A-Z{}]"},
        {"an opening mark behind a word", "[^ \r\n'\"]+[{}]"},
        {"the decimal mark of another language", language == LanguageEnglish ? "\\d,\\d" : "\\d\\.\\d"},
    };
    if (language == LanguageFrench) {
        rules.emplace_back("no no-break space before a mark", "[^~:;?!/ ][:;?!]([ \r'\"]|$)");
    } else {
        rules.emplace_back("a no-break space, or no blank before a name", "~|\\w'\\w");
    }
    if (language == LanguageSpanish) {
        rules.emplace_back("a question that is not opened", "^[^{]*\\?|\\?[^{]*\\?");
        rules.emplace_back("an exclamation that is not opened", "^[^}]*!|![^}]*!");
        rules.emplace_back("an opening mark without its end", "\\{[^?]*$|\\}[^!]*$");
    } else {
        rules.emplace_back("an opening mark", "[{}]");
    }
    std::vector<Rule> made;
    made.reserve(rules.size());
    for (const auto& [fault, pattern] : rules) made.push_back({fault, std::regex(pattern)});
    return made;
}

const std::vector<Rule>& RulesOf(int language) {
    static std::map<int, std::vector<Rule>> made;
    std::vector<Rule>& rules = made[language];
    if (rules.empty()) rules = MakeRules(language);
    return rules;
}

}  // namespace

std::vector<std::string> FaultsOf(const std::string& text) {
    const std::string plain = Plain(text);
    std::vector<std::string> faults;
    for (const Rule& rule : RulesOf(GetLanguage())) {
        if (!std::regex_search(plain, rule.pattern)) continue;
        faults.push_back(std::string(rule.fault) + ": " + platform::ToUtf8(text));
    }
    return faults;
}
