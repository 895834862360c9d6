#include "findings/check_job.h"

#include <algorithm>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "base/product.h"
#include "base/text.h"
#include "findings/job_links.h"
#include "findings/press_ledger.h"
#include "findings/row_numbers.h"
#include "findings/typed_texts.h"
#include "findings/window_titles.h"
#include "folding/fold.h"
#include "jobs/event_targets.h"
#include "platform/files.h"

namespace {

constexpr std::int32_t OldestVersion = 300;

bool IsKnownMouseAction(const JobEvent& event) {
    switch (event.dwFlags()) {
        case MoveFlags:
        case MouseFlagBase + platform::MouseLeftUp:
        case MouseFlagBase + platform::MouseRightUp:
        case MouseFlagBase + platform::MouseMiddleUp:
        case MouseFlagBase + platform::MouseXUp:
            return true;
        default:
            return IsButtonPress(event) || IsWheelTurn(event);
    }
}

bool HasTarget(const JobEvent& event) {
    return event.WindowChainIndex >= 0 && LooksForWindow(event);
}

// Screen-wide windows of the system, whose recorded place says nothing of where they are.
bool IsPartOfTheDesktop(const WindowSignature& window) {
    constexpr const char* classes[] = {"WorkerW", "Shell_TrayWnd", "Shell_SecondaryTrayWnd", "#32769"};
    return IsDesktop(window) || std::ranges::find(classes, window.ClassName) != std::end(classes);
}

bool HoldsNearly(const platform::Rect& place, std::int64_t x, std::int64_t y) {
    constexpr std::int64_t margin = PlaceToleranceInPixels;
    return x >= place.left - margin && x < place.right + margin && y >= place.top - margin && y < place.bottom + margin;
}

// Absolute, so that it can be told whether it is there.
bool IsPathOfWindows(const std::string& path) {
    return (path.size() > 2 && path[1] == ':' && path[2] == '\\') || path.starts_with("\\\\");
}

// One check of one job.
class Check {
public:
    Check(const Job& checkedJob, const CheckOptions& theOptions)
        : job(checkedJob),
          links(checkedJob),
          options(theOptions),
          texts(checkedJob.Strings, !theOptions.keyboardIsThatOfTheJob) {
        titleSeen.resize(job.Windows.size());
    }

    std::vector<Finding> Run();

private:
    void CheckHeader();
    void CheckOption(JobOption option, std::int64_t value, std::int64_t least, std::int64_t most);
    void CheckProgram();
    void CheckEvent(std::int32_t index);
    void CheckWindowOf(const JobEvent& event, std::int32_t index);
    void CheckTime(const JobEvent& event, std::int32_t index);
    void CheckDelay(std::int64_t ms, std::int32_t index);
    void CheckMouse(const JobEvent& event, std::int32_t index);
    void CheckKey(const JobEvent& event, std::int32_t index);
    void CheckText(const JobEvent& event, std::int32_t index);
    void CheckPlace(const JobEvent& event, std::int32_t index);
    void CheckTitle(std::int32_t chainIndex, std::int32_t index);
    void CheckHeldInput();
    bool IsWhole() const;
    void Number();
    void SortAndUnite();

    Finding& Add(FindingKind kind, std::int32_t event = -1) {
        Finding& finding = findings.emplace_back();
        finding.kind = kind;
        finding.event = event;
        return finding;
    }
    void AddHeld(FindingKind kind, const PressLedger::Held& each);
    bool LooksForTitles() const { return job.SafetyLevel < SafetyLow && job.SimilarWindowNames == 0; }

    const Job& job;
    const JobLinks links;
    const CheckOptions& options;
    TypedTexts texts;
    PressLedger held;
    std::vector<Finding> findings;
    std::vector<bool> titleSeen;     // by window
    std::set<std::string> badTitle;  // each is told once, at the first row
    std::int64_t timeBefore = 0;
    std::int64_t latestTime = 0;
    bool keyRowSeen = false;
};

std::vector<Finding> Check::Run() {
    CheckHeader();
    if (options.looksForProgram) CheckProgram();
    if (job.Events.empty()) Add(FindingKind::EmptyJob);
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(job.Events.size()); ++i) CheckEvent(i);
    if (links.HasUnusedBadChain()) Add(FindingKind::LostWindow);
    CheckHeldInput();
    Number();
    return std::move(findings);
}

void Check::CheckHeader() {
    CheckOption(JobOption::Version, job.Version, OldestVersion, ProductVersionNumber);
    CheckOption(JobOption::WindowStyle, job.StartProgram.WindowStyle, 0, 3);
    CheckOption(JobOption::Speed, job.SpeedPercent, 1, MaximumSpeed);
    CheckOption(JobOption::SkipMoves, job.SkipMouseMoves, 0, 1);
    CheckOption(JobOption::CapsLock, job.CapsLockState, 0, 1);
    CheckOption(JobOption::Repeat, job.RepeatCount, 0, INT32_MAX);
    CheckOption(JobOption::Safety, job.SafetyLevel, SafetyHigh, SafetyLow);
    CheckOption(JobOption::SimilarNames, job.SimilarWindowNames, 0, 1);
}

void Check::CheckOption(JobOption option, std::int64_t value, std::int64_t least, std::int64_t most) {
    if (value >= least && value <= most) return;
    Finding& finding = Add(FindingKind::BadOption);
    finding.option = option;
    finding.number = value;
}

// The same question as before a run, which ends at once without the program.
void Check::CheckProgram() {
    const std::string path = Trim(job.StartProgram.ProgramPath);
    if (!IsPathOfWindows(path) || platform::StateOf(path) != platform::FileState::Missing) return;
    Add(FindingKind::MissingProgram).detail = path;
}

void Check::CheckEvent(std::int32_t index) {
    const JobEvent& event = job.Events[static_cast<std::size_t>(index)];
    CheckTime(event, index);
    if (event.WindowChainIndex >= 0) CheckWindowOf(event, index);
    switch (event.dwType()) {
        case platform::InputMouse:
            return CheckMouse(event, index);
        case platform::InputKeyboard:
            return CheckKey(event, index);
        case INPUT_TEXT:
        case TextContinuation:
            return CheckText(event, index);
        default:
            Add(FindingKind::UnknownInput, index).number = event.dwType();
    }
}

void Check::CheckWindowOf(const JobEvent& event, std::int32_t index) {
    const bool good = links.IsGood(event.WindowChainIndex);
    if (!good) Add(FindingKind::LostWindow, index);
    if (!HasTarget(event)) return;
    if (event.WaitForWindow < 0 || event.IfNoWindow > ExecuteAnyway) Add(FindingKind::BadRowOption, index);
    if (event.WaitForWindow >= LongWaitSeconds) Add(FindingKind::LongWindowWait, index).number = event.WaitForWindow;
    if (good && LooksForTitles()) CheckTitle(event.WindowChainIndex, index);
}

void Check::CheckTime(const JobEvent& event, std::int32_t index) {
    if (IsWithoutPlaceAndTime(event)) return;
    const std::int64_t time = event.time();
    if (time < 0 || time < timeBefore - TimeToleranceMs) {
        Add(FindingKind::TimeBackwards, index).number = (timeBefore - time) / 1000;
    }
    CheckDelay(time - latestTime, index);
    timeBefore = time;
    latestTime = std::max(latestTime, time);
}

void Check::CheckDelay(std::int64_t ms, std::int32_t index) {
    if (ms < LongWaitSeconds * 10LL || job.SpeedPercent >= MaximumSpeed) return;  // the first for speed alone
    const std::int64_t seconds = ms / 10 / std::max(job.SpeedPercent, 1);
    if (seconds >= LongWaitSeconds) Add(FindingKind::LongDelay, index).number = seconds;
}

void Check::CheckMouse(const JobEvent& event, std::int32_t index) {
    held.TakeMouse(event, index);
    if (IsWheelNotch(event)) keyRowSeen = true;
    if (event.WindowChainIndex >= 0 && IsButtonPress(event)) return CheckPlace(event, index);
    const bool leftOver = event.dwFlags() == 0 && IsWithoutPlaceAndTime(event);
    if (!leftOver && !IsKnownMouseAction(event)) Add(FindingKind::UnknownInput, index).number = event.dwFlags();
}

void Check::CheckKey(const JobEvent& event, std::int32_t index) {
    const std::int32_t vk = event.KeyCode() % 65536;
    if (vk < 0 || vk >= KeyNameCount) {
        Add(FindingKind::UnknownInput, index).number = vk;
        return;
    }
    keyRowSeen = keyRowSeen || (IsKeyDown(event) && event.WindowChainIndex >= 0);
    held.TakeKey(event, index);
}

void Check::CheckText(const JobEvent& event, std::int32_t index) {
    const bool head = event.dwType() == INPUT_TEXT;
    const std::int64_t text = event.StringIndex();
    const bool exists = text >= 1 && text <= static_cast<std::int64_t>(job.Strings.size());
    if (!exists || (!head && !keyRowSeen)) Add(FindingKind::LostText, index);
    keyRowSeen = true;
    if (!head || !exists) return;
    held.TakeOther(index);
    const TypedText& typed = texts.Of(event.StringIndex());
    if (!typed.IsGood()) Add(FindingKind::BadKeystrokes, index).detail = typed.badToken;
    for (const TypedKey& key : typed.keys) held.TakeToken(key.vk, key.action, index);
}

// The press has to lie in its top-level window, or in any window of the chain: a menu or a list that has dropped down
// is a window of its own, outside the one that owns it. A maximised or minimised window has another place than is
// recorded.
void Check::CheckPlace(const JobEvent& event, std::int32_t index) {
    if (!links.IsGood(event.WindowChainIndex)) return;
    const WindowSignature& top = links.TopOf(event.WindowChainIndex);
    const platform::Rect& place = top.Placement.rcNormalPosition;
    const bool known = place.right > place.left && place.bottom > place.top;
    if (!known || top.Placement.showCmd != platform::ShowNormal || IsPartOfTheDesktop(top)) return;
    const WindowChain& chain = job.Chains[static_cast<std::size_t>(event.WindowChainIndex)];
    for (std::size_t level = 0; level <= static_cast<std::size_t>(chain.Depth); ++level) {
        const WindowSignature& window = job.Windows[static_cast<std::size_t>(chain.Path[level])];
        if (HoldsNearly(window.Placement.rcNormalPosition, event.dx(), event.dy())) return;
    }
    Add(FindingKind::OutsideWindow, index).detail = top.Caption;
}

void Check::CheckTitle(std::int32_t chainIndex, std::int32_t index) {
    const auto window = static_cast<std::size_t>(links.TopIndexOf(chainIndex));
    if (titleSeen[window]) return;
    titleSeen[window] = true;
    const std::string& title = job.Windows[window].Caption;
    const bool fileName = HoldsFileName(title);
    if (!fileName && !HoldsDate(title)) return;
    if (!badTitle.insert(title).second) return;
    Add(fileName ? FindingKind::TitleWithFileName : FindingKind::TitleWithDate, index).detail = title;
}

void Check::CheckHeldInput() {
    for (const PressLedger::Held& each : held.PressedTwice()) AddHeld(FindingKind::NeverReleased, each);
    for (const PressLedger::Held& each : held.LoneReleases()) AddHeld(FindingKind::NeverPressed, each);
    for (const PressLedger::Held& each : held.HeldAtEnd()) {
        if (each.event < held.LastPress()) AddHeld(FindingKind::NeverReleased, each);
    }
}

void Check::AddHeld(FindingKind kind, const PressLedger::Held& each) {
    Finding& finding = Add(kind, each.event);
    if (each.input < PressLedger::FirstButton) {
        finding.detail = KeyNameFromCode(each.input);
        if (finding.detail.size() > 1) finding.detail = finding.detail.substr(1, finding.detail.size() - 2);
    } else {
        finding.number = each.input - PressLedger::FirstButton;
    }
}

bool Check::IsWhole() const {
    return std::ranges::none_of(findings, [](const Finding& finding) {
        return finding.kind == FindingKind::LostWindow || finding.kind == FindingKind::LostText ||
               finding.kind == FindingKind::UnknownInput;
    });
}

// What is down at the end, and was pressed in the last row, has been cut off by the end of the recording.
void Check::Number() {
    if (std::ranges::all_of(findings, [](const Finding& finding) { return finding.event < 0; })) return;
    const RowNumbers rows(job, IsWhole());
    const std::vector<PressLedger::Held> atEnd = held.HeldAtEnd();
    const std::int32_t lastRow = held.LastPress() < 0 ? -1 : rows.RowOf(held.LastPress());
    std::erase_if(findings, [&](const Finding& finding) {
        return finding.kind == FindingKind::NeverReleased && rows.RowOf(finding.event) == lastRow &&
               std::ranges::find(atEnd, finding.event, &PressLedger::Held::event) != atEnd.end();
    });
    for (Finding& finding : findings) {
        if (finding.event >= 0) finding.row = rows.NumberOf(finding.event);
    }
    SortAndUnite();
}

void Check::SortAndUnite() {
    std::ranges::sort(findings, [](const Finding& a, const Finding& b) {
        return std::tie(a.row, a.kind, a.detail, a.event) < std::tie(b.row, b.kind, b.detail, b.event);
    });
    const auto alike = [](const Finding& a, const Finding& b) {
        return a.row != 0 && std::tie(a.row, a.kind, a.detail) == std::tie(b.row, b.kind, b.detail);
    };
    findings.erase(std::unique(findings.begin(), findings.end(), alike), findings.end());
}

}  // namespace

std::vector<Finding> CheckJob(const Job& job, const CheckOptions& options) {
    return Check(job, options).Run();
}

Finding FindingOfUnreadableJob(const RuntimeFailure& failure) {
    Finding finding;
    finding.kind = FindingKind::UnreadableJob;
    finding.detail = failure.what();
    return finding;
}
