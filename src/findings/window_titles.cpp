#include "findings/window_titles.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "platform/text.h"

namespace {

constexpr std::string_view DocumentEndings[] = {
    "7z",   "accdb", "avi",  "bak",  "bat", "bmp",  "cfg",  "cpp", "css", "csv",  "dat",  "db",   "doc", "docm",
    "docx", "dotx",  "dwg",  "dxf",  "eml", "eps",  "epub", "gif", "gz",  "htm",  "html", "ics",  "ini", "jpeg",
    "jpg",  "json",  "log",  "mdb",  "mov", "mp3",  "mp4",  "mpg", "mpp", "msg",  "odp",  "ods",  "odt", "ofx",
    "pdf",  "png",   "pps",  "ppsx", "ppt", "pptm", "pptx", "psd", "pst", "pub",  "rar",  "rtf",  "sql", "svg",
    "tar",  "tif",   "tiff", "tmp",  "tsv", "tsj",  "txt",  "vcf", "vsd", "vsdx", "wav",  "webp", "wmv", "wpd",
    "xls",  "xlsb",  "xlsm", "xlsx", "xml", "xps",  "yaml", "yml", "zip"};

constexpr std::string_view MonthNames[] = {
    "january",  "february",   "march",    "april",     "may",      "june",     "july",   "august",    "september",
    "october",  "november",   "december", "jan",       "feb",      "mar",      "apr",    "jun",       "jul",
    "aug",      "sep",        "sept",     "oct",       "nov",      "dec",      "januar", "jänner",    "februar",
    "märz",     "mai",        "juni",     "juli",      "oktober",  "dezember", "mär",    "okt",       "dez",
    "janvier",  "février",    "mars",     "avril",     "juin",     "juillet",  "août",   "septembre", "octobre",
    "novembre", "décembre",   "enero",    "febrero",   "marzo",    "abril",    "mayo",   "junio",     "julio",
    "agosto",   "septiembre", "octubre",  "noviembre", "diciembre"};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Of any alphabet of the code page.
bool IsLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || static_cast<unsigned char>(c) >= 0x80;
}

bool IsDocumentEnding(std::string_view ending) {
    return std::ranges::find(DocumentEndings, platform::LowerCase(ending)) != std::end(DocumentEndings);
}

const std::set<std::string>& Months() {
    static const std::set<std::string> months = [] {
        std::set<std::string> names;
        for (const std::string_view name : MonthNames) names.insert(platform::FromUtf8(name));
        return names;
    }();
    return months;
}

// A run of digits or of letters, and what stands between it and the one before.
struct Piece {
    std::string_view text;
    std::string_view before;
    bool IsNumber() const { return IsDigit(text.front()); }
    int Value() const { return text.size() > 8 ? -1 : std::stoi(std::string(text)); }
};

std::vector<Piece> PiecesOf(std::string_view title) {
    std::vector<Piece> pieces;
    std::size_t end = 0;
    for (std::size_t start = 0; start < title.size(); ++start) {
        const bool number = IsDigit(title[start]);
        if (!number && !IsLetter(title[start])) continue;
        const auto belongs = number ? IsDigit : IsLetter;
        std::size_t behind = start;
        while (behind < title.size() && belongs(title[behind])) ++behind;
        pieces.push_back({title.substr(start, behind - start), title.substr(end, start - end)});
        end = behind;
        start = behind - 1;
    }
    return pieces;
}

bool IsYear(const Piece& piece) {
    return piece.text.size() == 4 && piece.Value() >= 1900 && piece.Value() <= 2199;
}

bool IsUpTo(const Piece& piece, int most) {
    return piece.text.size() <= 2 && piece.Value() >= 1 && piece.Value() <= most;
}

bool IsDayAndMonth(const Piece& a, const Piece& b) {
    return (IsUpTo(a, 31) && IsUpTo(b, 12)) || (IsUpTo(a, 12) && IsUpTo(b, 31));
}

// "20261122".
bool IsDateInOne(const Piece& piece) {
    if (piece.text.size() != 8) return false;
    const int value = piece.Value();
    const int month = value / 100 % 100;
    const int day = value % 100;
    return value >= 19000000 && value < 22000000 && month >= 1 && month <= 12 && day >= 1 && day <= 31;
}

// Whether `next` goes on with the numbers in front of it, with the same mark in between.
bool GoesOn(const Piece& next, std::string_view mark) {
    return next.IsNumber() && next.before == mark;
}

// Three numbers from `i` on with one mark between them, and no fourth. Two digits are a year where no version has them:
// "22/11/26", not "1.2.13".
bool IsDateOfThree(const std::vector<Piece>& pieces, std::size_t i) {
    if (i + 2 >= pieces.size()) return false;
    const Piece& a = pieces[i];
    const Piece& b = pieces[i + 1];
    const Piece& c = pieces[i + 2];
    const std::string_view mark = b.before;
    if (!GoesOn(b, mark) || !GoesOn(c, mark) || (mark != "." && mark != "/" && mark != "-")) return false;
    if (i + 3 < pieces.size() && GoesOn(pieces[i + 3], mark)) return false;
    const bool shortYear = mark == "/" && c.text.size() == 2 && a.text.size() == 2 && b.text.size() == 2;
    return (IsDayAndMonth(a, b) && (IsYear(c) || shortYear)) || (IsYear(a) && IsDayAndMonth(c, b));
}

bool IsMonth(const Piece& piece) {
    return !piece.IsNumber() && Months().contains(platform::LowerCase(piece.text));
}

// "3 November", "November 2026": side by side, with a blank, comma, dot or hyphen between them at most.
bool AreDate(const Piece& first, const Piece& second) {
    const bool close = second.before.size() <= 2 && second.before.find_first_not_of(" ,.-") == std::string::npos;
    const Piece& number = first.IsNumber() ? first : second;
    const Piece& month = first.IsNumber() ? second : first;
    return close && number.IsNumber() && IsMonth(month) && (IsUpTo(number, 31) || IsYear(number));
}

}  // namespace

bool HoldsFileName(std::string_view title) {
    for (std::size_t dot = title.find('.', 1); dot < title.size(); dot = title.find('.', dot + 1)) {
        std::size_t end = dot + 1;
        while (end < title.size() && (IsDigit(title[end]) || IsLetter(title[end]))) ++end;
        const bool named = title[dot - 1] != ' ' && title[dot - 1] != '.';
        if (named && IsDocumentEnding(title.substr(dot + 1, end - dot - 1))) return true;
    }
    return false;
}

bool HoldsDate(std::string_view title) {
    const std::vector<Piece> pieces = PiecesOf(title);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i + 1 < pieces.size() && AreDate(pieces[i], pieces[i + 1])) return true;
        if (pieces[i].IsNumber() && (IsDateInOne(pieces[i]) || IsDateOfThree(pieces, i))) return true;
    }
    return false;
}
