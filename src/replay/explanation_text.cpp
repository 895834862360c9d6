#include "replay/explanation_text.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "replay/reach.h"
#include "replay/similar_caption.h"
#include "replay/top_choice.h"

namespace {

// --- names ---

std::string NameOf(const WindowSignature& window) {
    return window.Caption.empty() ? "(" + window.ClassName + ")" : window.Caption;
}

std::string NameOf(const std::optional<WindowSignature>& window) {
    return window ? NameOf(*window) : std::string();
}

std::string RecordedElement(const Explanation& explanation) {
    return NameOf(explanation.recorded.front());
}

std::string RecordedTop(const Explanation& explanation) {
    return NameOf(explanation.recorded.back());
}

std::string LiveName(const Candidate& candidate) {
    return candidate.levels.empty() ? std::string() : NameOf(candidate.levels.front().live);
}

// --- the most likely reason ---

bool IsOfTops(const Candidate& candidate) {
    return candidate.step == SearchStep::TopWindow || candidate.step == SearchStep::StandIn;
}

const Candidate* Find(const Explanation& explanation, auto condition) {
    const auto found = std::ranges::find_if(explanation.candidates, condition);
    return found == explanation.candidates.end() ? nullptr : &*found;
}

// The failures that come after a window was found: nearest to the goal, so they are the reason.
std::string ReasonOfTheFound(const Candidate& found, const Explanation& explanation) {
    const std::string name = LiveName(found);
    switch (found.fate) {
        case Fate::NotPlaced:
            return Translate1("The window '%1' is there, but does not answer, or cannot be put in its place.",
                              RecordedTop(explanation));
        case Fate::NotForward:
            return Translate1("'%1' is there, but does not come to the front.", name);
        case Fate::GoesElsewhere:
            return Translate1("'%1' is there, but does not stay where it was recorded.", RecordedTop(explanation));
        case Fate::InputElsewhere:
            if (found.otherTitle.empty()) return Translate1("'%1' is there, but something else gets the input.", name);
            return explanation.useFocus
                       ? Translate2("'%1' is there, but the keyboard belongs to '%2'.", name, found.otherTitle)
                       : Translate2("'%1' is there, but '%2' covers it.", name, found.otherTitle);
        case Fate::OtherDepth:
            return found.liveDepth > static_cast<std::int32_t>(explanation.recorded.size()) - 1
                       ? Translate1(
                             "'%1' is there, but lies deeper in other windows than recorded. Record the row anew.",
                             name)
                       : Translate1(
                             "'%1' is there, but lies less deep in other windows than recorded. Record the row anew.",
                             name);
        default:
            return {};
    }
}

// Of the windows of the class, the one whose title is most like the recorded one.
const Candidate* MostAlike(const Explanation& explanation, std::ptrdiff_t& count) {
    const Candidate* best = nullptr;
    std::ptrdiff_t bestScore = -1;
    for (const Candidate& each : explanation.candidates) {
        if (each.step != SearchStep::TopWindow || each.fate != Fate::OtherCaption) continue;
        ++count;
        const std::ptrdiff_t score = WordsInCommon(explanation.recorded.back().Caption,
                                                   each.levels.front().live.value_or(WindowSignature{}).Caption);
        if (score <= bestScore) continue;
        bestScore = score;
        best = &each;
    }
    return best;
}

std::string ReasonOfOtherTitle(const Explanation& explanation) {
    std::ptrdiff_t count = 0;
    const Candidate* const alike = MostAlike(explanation, count);
    if (alike == nullptr) return {};
    const std::string text =
        count == 1 ? Translate2("The window is there, but its title is now '%1', recorded was '%2'.", LiveName(*alike),
                                RecordedTop(explanation))
                   : Translate2("'%2' is not there. Of the windows of its kind, '%1' has the title most like it.",
                                LiveName(*alike), RecordedTop(explanation));
    return explanation.similarAllowed ? text : text + " " + Translate("Tick 'similar captions' or change the row.");
}

std::string ReasonOfMissingWindow(const Explanation& explanation) {
    if (Find(explanation, [](const Candidate& each) { return each.fate == Fate::OneOfSeveral; }) != nullptr) {
        return Translate1("More than one window is called '%1', and none of them stands where it was recorded.",
                          RecordedTop(explanation));
    }
    if (std::string text = ReasonOfOtherTitle(explanation); !text.empty()) return text;
    if (Find(explanation, [](const Candidate& each) { return IsOfTops(each) && each.fate == Fate::OtherClass; })) {
        return Translate1(
            "A window with the title '%1' is there, but of another kind: its program may have been updated or "
            "replaced. "
            "Record the row anew.",
            RecordedTop(explanation));
    }
    return Translate1(
        "The window '%1' is not there, nor any other of its kind. Open it before this row, or give the row a longer "
        "wait.",
        RecordedTop(explanation));
}

// Elements of the class that are where the recorded one was, with another text. The control's number tells them from
// their like, where there is one.
const Candidate* Renamed(const Explanation& explanation) {
    const std::int32_t id = explanation.recorded.front().ControlId;
    const auto isIt = [&](const Candidate& each) {
        if (each.step != SearchStep::Element || each.fate != Fate::OtherCaption) return false;
        const auto& live = each.levels.front().live;
        return live && (id != 0 ? live->ControlId == id : each.levels.front().equal.placement);
    };
    return Find(explanation, isIt);
}

std::string ReasonOfMissingElement(const Explanation& explanation) {
    if (const Candidate* const renamed = Renamed(explanation)) {
        return Translate2("The element is there, but is called '%1' now, recorded was '%2'. Record the row anew.",
                          LiveName(*renamed), RecordedElement(explanation));
    }
    const auto isElsewhere = [](const Candidate& each) {
        return each.step == SearchStep::Element && each.fate == Fate::OtherParents;
    };
    if (Find(explanation, isElsewhere) != nullptr) {
        return Translate1("'%1' is there, but in another part of the window. Record the row anew.",
                          RecordedElement(explanation));
    }
    return Translate2(
        "The window '%2' is there, but without '%1'. Something may have to be opened in it first, or the row needs a "
        "longer wait.",
        RecordedElement(explanation), RecordedTop(explanation));
}

// A step that comes later is nearer to the goal.
std::string ReasonOfFailure(const Explanation& explanation) {
    const auto& candidates = explanation.candidates;
    for (const SearchStep step :
         {SearchStep::LastLook, SearchStep::Element, SearchStep::StandIn, SearchStep::TopWindow}) {
        for (auto each = candidates.rbegin(); each != candidates.rend(); ++each) {
            if (each->step != step) continue;
            if (std::string text = ReasonOfTheFound(*each, explanation); !text.empty()) return text;
        }
    }
    return explanation.result == TargetElementMissing ? ReasonOfMissingElement(explanation)
                                                      : ReasonOfMissingWindow(explanation);
}

// --- the window is found ---

bool Does(const Explanation& explanation, SearchAct act) {
    return std::ranges::any_of(explanation.acts, [act](const SearchedAct& each) { return each.act == act; });
}

// Texts that differ and yet count as equal.
bool StandsIn(const LevelComparison& level) {
    return level.recorded && level.live && level.equal.caption && level.recorded->Caption != level.live->Caption;
}

std::string ReasonOfFound(const Explanation& explanation) {
    const Candidate* const found =
        Find(explanation, [](const Candidate& each) { return each.step == SearchStep::LastLook; });
    if (found == nullptr) return Translate("The keys go to what is in front, without a search.");
    const LevelComparison& top = found->levels.back();
    if (StandsIn(top)) {
        return Translate2("The window '%1' stands in for '%2', after the wait: similar captions are allowed.",
                          NameOf(top.live), NameOf(top.recorded));
    }
    if (top.live && ShowStateOf(top.live->Placement) == ShowState::Minimised) {
        return Translate("The window is there, but minimised. A run restores it.");
    }
    if (Does(explanation, SearchAct::Place)) {
        return Translate("The window is there, but not in its place or its size. A run puts it back.");
    }
    if (Does(explanation, SearchAct::Minimise)) {
        return Translate("The window is there, and others lie over it. A run minimises them.");
    }
    if (Does(explanation, SearchAct::BringForward)) {
        return Translate("The window is there, but not in front. A run brings it forward.");
    }
    return Translate("The window is there, as it was recorded.");
}

// --- the table ---

std::string StepText(SearchStep step, bool useFocus) {
    switch (step) {
        case SearchStep::LiveWindow:
            return useFocus ? Translate("With the keyboard") : Translate("Under the pointer");
        case SearchStep::TopWindow:
            return Translate("By its title");
        case SearchStep::StandIn:
            return Translate("By a similar title");
        case SearchStep::Element:
            return Translate("In the window");
        case SearchStep::LastLook:
            return Translate("At the last look");
    }
    return {};
}

std::string FateText(Fate fate) {
    switch (fate) {
        case Fate::Taken:
            return Translate("taken");
        case Fate::OtherClass:
            return Translate("another kind");
        case Fate::OtherCaption:
            return Translate("another title");
        case Fate::OtherParents:
            return Translate("in other windows");
        case Fate::AnotherIsTheTop:
            return Translate("in another window of the same name");
        case Fate::AnotherIsNearer:
            return Translate("another one is nearer");
        case Fate::AnotherIsBetter:
            return Translate("another one fits better");
        case Fate::Hidden:
            return Translate("not shown");
        case Fate::OneOfSeveral:
            return Translate("one of several");
        case Fate::OtherDepth:
            return Translate("another depth");
        case Fate::NotFoundByName:
            return Translate("behind another one of its name");
        case Fate::NotPlaced:
            return Translate("does not answer, or refuses its place");
        case Fate::NotForward:
            return Translate("does not come to the front");
        case Fate::GoesElsewhere:
            return Translate("does not stay in its place");
        case Fate::InputElsewhere:
            return Translate("something else gets the input");
    }
    return {};
}

std::string Place(const platform::WindowPlacement& placement) {
    const platform::Rect& place = placement.rcNormalPosition;
    std::string text = std::to_string(place.left) + ", " + std::to_string(place.top) + "; " +
                       std::to_string(place.right - place.left) + " x " + std::to_string(place.bottom - place.top);
    const ShowState state = ShowStateOf(placement);
    if (state == ShowState::Minimised) text += " (" + Translate("Minimized") + ")";
    if (state == ShowState::Maximised) text += " (" + Translate("Maximized") + ")";
    return text;
}

// The window itself has no prefix; what lies around it is numbered from the inside out.
std::string What(const std::string& property, std::int32_t level, std::size_t levels) {
    if (level == 0 || levels == 1) return property;
    return property + " (" + Translate1("around it: %1", std::to_string(level)) + ")";
}

class TableMaker {
public:
    explicit TableMaker(const Explanation& of) : explanation(of) {}

    std::vector<ExplanationRow> Make() {
        for (const Candidate& candidate : explanation.candidates) Add(candidate);
        if (rows.empty() && !explanation.recorded.empty()) AddRecorded();
        return std::move(rows);
    }

private:
    // What was looked for, where nothing was found to hold against it.
    void AddRecorded() {
        rows.push_back({true, false, Translate("Recorded"), {}, {}, {}});
        std::int32_t number = 0;
        for (const WindowSignature& window : explanation.recorded) {
            Add({number++, window, {}, {}}, explanation.recorded.size());
        }
    }

    void Add(const Candidate& candidate) {
        std::string fate = FateText(candidate.fate);
        if (!candidate.otherTitle.empty()) fate += ": " + candidate.otherTitle;
        const std::string step = StepText(candidate.step, explanation.useFocus);
        rows.push_back({true, false, step, {}, LiveName(candidate), fate});
        for (const LevelComparison& level : candidate.levels) Add(level, candidate.levels.size());
    }

    void Add(const LevelComparison& level, std::size_t levels) {
        const auto add = [&](const std::string& property, auto text, bool equal) {
            const std::string verdict = equal ? Translate("equal") : Translate("different");
            const bool compared = level.live.has_value();
            rows.push_back({false, compared && !equal, What(property, level.level, levels),
                            level.recorded ? text(*level.recorded) : "", level.live ? text(*level.live) : "",
                            compared ? verdict : ""});
        };
        using Window = const WindowSignature&;
        add(
            Translate("Title"), [](Window window) { return window.Caption; }, level.equal.caption);
        add(
            Translate("Class"), [](Window window) { return window.ClassName; }, level.equal.className);
        add(
            Translate("Place and size"), [](Window window) { return Place(window.Placement); }, level.equal.placement);
        const bool isElement = level.level + 1 < static_cast<std::int32_t>(explanation.recorded.size());
        if (!isElement || !level.recorded || !level.live) return;
        add(
            Translate("Control number"), [](Window window) { return std::to_string(window.ControlId); },
            level.recorded->ControlId == level.live->ControlId);
    }

    const Explanation& explanation;
    std::vector<ExplanationRow> rows;
};

std::string Line(const ExplanationRow& row) {
    const std::string end = row.live.empty() ? "" : ": " + row.live + " - " + row.equal;
    if (row.heading) return LineBreak + row.what + end + LineBreak;
    return "    " + row.what + "\t" + row.recorded + "\t" + row.live + "\t" + row.equal + LineBreak;
}

}  // namespace

std::string LikelyReason(const Explanation& explanation) {
    switch (explanation.result) {
        case NothingLookedFor:
            return explanation.safetyLevel == SafetyLow
                       ? Translate("At this safety level no window is looked for.")
                       : Translate("No window is looked for in this row: it goes to where the rows before it went.");
        case WindowOutOfReach:
        case DesktopOutOfReach:
            return explanation.reason;
        case TargetWindowMissing:
        case TargetElementMissing:
            return ReasonOfFailure(explanation);
        default:
            return explanation.result > 0 ? ReasonOfFound(explanation) : explanation.reason;
    }
}

std::vector<ExplanationRow> ExplanationTable(const Explanation& explanation) {
    return TableMaker(explanation).Make();
}

ExplanationColumns ExplanationHeader() {
    return {Translate("What"), Translate("Recorded"), Translate("Found now"), Translate("Compared")};
}

std::string ExplanationText(const Explanation& explanation) {
    std::string text;
    if (!explanation.row.empty()) text += explanation.row + LineBreak;
    text += LikelyReason(explanation) + LineBreak;
    const std::vector<ExplanationRow> rows = ExplanationTable(explanation);
    if (rows.empty()) return text;
    const ExplanationColumns header = ExplanationHeader();
    text += LineBreak + Line({false, false, header.what, header.recorded, header.live, header.equal});
    for (const ExplanationRow& row : rows) text += Line(row);
    return text;
}
