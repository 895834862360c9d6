#include "dictionary/source_scan.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>

namespace {

enum class Kind { Word, Literal, Sign };

struct Token {
    Kind kind;
    std::string text;
    int line;
};
using Tokens = std::vector<Token>;
using TokenRange = std::pair<Tokens::const_iterator, Tokens::const_iterator>;

bool IsWordCharacter(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) || character == '_';
}

class Reader {
public:
    explicit Reader(const std::string& text) : source(text) {}

    Tokens Read() {
        while (at < source.size()) ReadOne();
        return std::move(tokens);
    }

private:
    void ReadOne() {
        if (std::isspace(static_cast<unsigned char>(source[at]))) return Skip(1);
        if (Ahead("//")) return SkipPast("\n");
        if (Ahead("/*")) return SkipPast("*/");
        if (Ahead("R\"")) return ReadRawLiteral();
        if (source[at] == '"') return ReadLiteral();
        if (source[at] == '\'') return SkipCharacter();
        if (IsWordCharacter(source[at])) return ReadWord();
        Add(Kind::Sign, Ahead("::") ? "::" : source.substr(at, 1));
    }

    bool Ahead(std::string_view text) const { return source.compare(at, text.size(), text) == 0; }

    void Skip(std::size_t count) {
        const std::size_t end = std::min(at + count, source.size());
        line += static_cast<int>(std::count(source.begin() + static_cast<std::ptrdiff_t>(at),
                                            source.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
        at = end;
    }

    void SkipPast(const std::string& mark) {
        const auto found = source.find(mark, at + 2);
        Skip(found == std::string::npos ? source.size() : found + mark.size() - at);
    }

    void Add(Kind kind, const std::string& text) {
        tokens.push_back({kind, text, line});
        at += text.size();
    }

    // A number with digit separators is one word, so that no separator is taken for a character literal.
    void ReadWord() {
        std::size_t end = at;
        const bool number = std::isdigit(static_cast<unsigned char>(source[at])) != 0;
        while (end < source.size() && (IsWordCharacter(source[end]) || (number && source[end] == '\''))) ++end;
        Add(Kind::Word, source.substr(at, end - at));
    }

    void ReadLiteral() {
        const int start = line;
        std::string text;
        for (Skip(1); at < source.size() && source[at] != '"'; Skip(1)) {
            if (source[at] == '\\') Skip(1);
            if (at < source.size()) text += source[at];
        }
        Skip(1);
        tokens.push_back({Kind::Literal, text, start});
    }

    void ReadRawLiteral() {
        const int start = line;
        const auto bracket = source.find('(', at);
        const std::string end = ")" + source.substr(at + 2, bracket - at - 2) + "\"";
        const auto close = source.find(end, bracket);
        tokens.push_back({Kind::Literal, source.substr(bracket + 1, close - bracket - 1), start});
        Skip(close == std::string::npos ? source.size() : close + end.size() - at);
    }

    void SkipCharacter() {
        for (Skip(1); at < source.size() && source[at] != '\''; Skip(1)) {
            if (source[at] == '\\') Skip(1);
        }
        Skip(1);
    }

    const std::string& source;
    std::size_t at = 0;
    int line = 1;
    Tokens tokens;
};

bool Is(const Token& token, std::string_view sign) {
    return token.kind == Kind::Sign && token.text == sign;
}

int DepthChange(const Token& token) {
    if (Is(token, "(") || Is(token, "[") || Is(token, "{")) return 1;
    return Is(token, ")") || Is(token, "]") || Is(token, "}") ? -1 : 0;
}

// The first token outside all brackets that is one of `signs`, or a bracket that closes more than was opened.
Tokens::const_iterator FindOutside(TokenRange range, std::initializer_list<std::string_view> signs) {
    int depth = 0;
    for (auto token = range.first; token != range.second; ++token) {
        const bool wanted = std::any_of(signs.begin(), signs.end(), [&](auto sign) { return Is(*token, sign); });
        if (depth == 0 && wanted) return token;
        depth += DepthChange(*token);
        if (depth < 0) return token;
    }
    return range.second;
}

std::vector<std::string> Joined(std::vector<std::string> first, const std::vector<std::string>& second) {
    if (first.empty() || second.empty()) return {};
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// No keys unless every value that the expression can have is a literal.
std::vector<std::string> KeysOf(TokenRange expression) {
    const auto [begin, end] = expression;
    const auto condition = FindOutside(expression, {"?"});
    if (condition != end) {
        const auto colon = FindOutside({condition + 1, end}, {":"});
        if (colon == end) return {};
        return Joined(KeysOf({condition + 1, colon}), KeysOf({colon + 1, end}));
    }
    std::string key;
    for (auto token = begin; token != end; ++token) {
        if (token->kind != Kind::Literal) return {};
        key += token->text;
    }
    return begin == end ? std::vector<std::string>{} : std::vector<std::string>{key};
}

std::string TextOf(TokenRange expression) {
    std::string text;
    for (auto token = expression.first; token != expression.second; ++token) {
        text += (text.empty() ? "" : " ") + token->text;
    }
    return text;
}

bool IsLookup(const Token& token) {
    return token.kind == Kind::Word &&
           (token.text == "Translate" || token.text == "Translate1" || token.text == "Translate2");
}

Lookup LookupAt(Tokens::const_iterator name, Tokens::const_iterator end, const std::string& file) {
    Lookup lookup{file, name->line, name->text, "", {}};
    if (name + 1 == end || !Is(*(name + 1), "(")) return lookup;
    const TokenRange argument = {name + 2, FindOutside({name + 2, end}, {","})};
    lookup.argument = TextOf(argument);
    lookup.keys = KeysOf(argument);
    return lookup;
}

bool IsSource(const std::filesystem::path& path) {
    return path.extension() == ".cpp" || path.extension() == ".h";
}

std::string ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::vector<Lookup> LookupsIn(const std::string& source, const std::string& file) {
    const Tokens tokens = Reader(source).Read();
    std::vector<Lookup> lookups;
    for (auto token = tokens.begin(); token != tokens.end(); ++token) {
        if (IsLookup(*token)) lookups.push_back(LookupAt(token, tokens.end(), file));
    }
    return lookups;
}

std::vector<Lookup> LookupsUnder(const std::filesystem::path& folder) {
    std::vector<Lookup> lookups;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const auto file = entry.path().lexically_relative(folder);
        if (!entry.is_regular_file() || !IsSource(file) || *file.begin() == "dictionary") continue;
        const auto found = LookupsIn(ContentOf(entry.path()), file.generic_string());
        lookups.insert(lookups.end(), found.begin(), found.end());
    }
    return lookups;
}
