// Faults that are planted into jobs without any. Each planter tells at which event its fault has to be found; the row
// of that event is read from the job as the editor opens it.
#include "findings/check_job.h"

#include "findings/good_job.h"
#include "findings/window_titles.h"
#include "folding/grid_rows.h"
#include "folding/row_texts.h"
#include "support/open_in_editor.h"
#include "support/story.h"
#include "support/wording.h"

namespace {

constexpr unsigned JobsEach = 40;

struct Fault {
    FindingKind kind = FindingKind::EmptyJob;
    int event = -1;  // -1: of the job as a whole
};
using Planted = std::optional<Fault>;  // nothing: there is no place for it in this job
using Planter = std::function<Planted(Job& job, Random& random)>;
using Condition = std::function<bool(const JobEvent& event)>;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// The index of some event for which the condition holds; -1 for none.
int Some(const Job& job, Random& random, const Condition& holds) {
    std::vector<int> places;
    for (int i = 0; i < static_cast<int>(job.Events.size()); ++i) {
        if (holds(job.Events[At(i)])) places.push_back(i);
    }
    return places.empty() ? -1 : places[At(Below(random, static_cast<int>(places.size())))];
}

bool Aims(const JobEvent& event) {
    return event.WindowChainIndex >= 0;
}
bool IsKey(const JobEvent& event, std::int32_t state) {
    return event.dwType() == platform::InputKeyboard && event.KeyState() == state;
}
bool IsMouse(const JobEvent& event, std::int32_t action) {
    return event.dwType() == platform::InputMouse && event.dwFlags() == MouseFlagBase + action;
}
bool IsType(const JobEvent& event, std::int32_t type) {
    return event.dwType() == type;
}

// Changes some event of those that fit.
Planter AtSome(FindingKind kind, const Condition& fits, const std::function<void(JobEvent& event, Job& job)>& spoil) {
    return [=](Job& job, Random& random) -> Planted {
        const int place = Some(job, random, fits);
        if (place < 0) return std::nullopt;
        spoil(job.Events[At(place)], job);
        return Fault{kind, place};
    };
}

// Spoils a chain, or a window of one; told first at the first event that uses the chain.
Planter InSomeChain(const std::function<void(WindowChain& chain, Job& job)>& spoil) {
    return [=](Job& job, Random& random) -> Planted {
        const int place = Some(job, random, Aims);
        const std::int32_t chain = job.Events[At(place)].WindowChainIndex;
        spoil(job.Chains[At(chain)], job);
        const auto first = std::ranges::find(job.Events, chain, &JobEvent::WindowChainIndex);
        return Fault{FindingKind::LostWindow, static_cast<int>(first - job.Events.begin())};
    };
}

Planter InHeader(FindingKind kind, const std::function<void(Job& job)>& spoil) {
    return [=](Job& job, Random&) -> Planted {
        spoil(job);
        return Fault{kind};
    };
}

Planter InText(FindingKind kind, const std::string& text) {
    return AtSome(
        kind, [](const JobEvent& event) { return IsType(event, INPUT_TEXT); },
        [text](JobEvent& event, Job& job) { job.Strings[At(event.StringIndex() - 1)] = text; });
}

// Takes a release away, not one that the same key follows: that would be a key that repeats.
Planted WithoutKeyRelease(Job& job, Random& random) {
    const int release = Some(job, random, [](const JobEvent& event) { return IsKey(event, 2); });
    if (release < 0) return std::nullopt;
    const std::int32_t key = job.Events[At(release)].KeyCode();
    const auto isPress = [](const JobEvent& event) { return IsKey(event, 0); };
    const auto next = std::find_if(job.Events.begin() + release, job.Events.end(), isPress);
    if (next == job.Events.end() || next->KeyCode() == key) return std::nullopt;
    int press = release;
    while (!isPress(job.Events[At(press)]) || job.Events[At(press)].KeyCode() != key) --press;
    job.Events.erase(job.Events.begin() + release);
    return Fault{FindingKind::NeverReleased, press};
}

Planted WithoutButtonRelease(Job& job, Random& random) {
    const auto isRelease = [](const JobEvent& event) {
        return IsMouse(event, platform::MouseLeftUp) || IsMouse(event, platform::MouseMiddleUp);
    };
    const int release = Some(job, random, isRelease);
    if (release + 1 >= static_cast<int>(job.Events.size()) || release < 0) return std::nullopt;
    int press = release - 1;
    while (!Aims(job.Events[At(press)])) --press;
    job.Events.erase(job.Events.begin() + release);
    return Fault{FindingKind::NeverReleased, press};
}

Planted WithoutKeyPress(Job& job, Random& random) {
    const int press = Some(job, random, [](const JobEvent& event) { return IsKey(event, 0); });
    if (press < 0) return std::nullopt;
    const std::int32_t key = job.Events[At(press)].KeyCode();
    job.Events.erase(job.Events.begin() + press);
    int release = press;
    while (!IsKey(job.Events[At(release)], 2) || job.Events[At(release)].KeyCode() != key) ++release;
    return Fault{FindingKind::NeverPressed, release};
}

Planted MinutesLater(Job& job, Random& random) {
    const int place = Some(job, random, Aims);
    for (std::size_t i = At(place); i < job.Events.size(); ++i) job.Events[i].time() += 125'000;
    return Fault{FindingKind::LongDelay, place};
}

Planted BackInTime(Job& job, Random& random) {
    for (JobEvent& event : job.Events) event.time() += 10'000;
    const int place = Some(job, random, Aims);
    job.Events[At(place)].time() -= 8'000 + job.Events[At(place)].time() / 2;
    if (place == 0) return std::nullopt;
    return Fault{FindingKind::TimeBackwards, place};
}

Planter WithTitle(FindingKind kind, const std::string& title) {
    return [=](Job& job, Random& random) -> Planted {
        const int place = Some(job, random, Aims);
        const auto topOf = [&job](const JobEvent& event) { return job.Chains[At(event.WindowChainIndex)].Path[1]; };
        const std::int32_t window = topOf(job.Events[At(place)]);
        job.Windows[At(window)].Caption = title;
        const auto first = std::ranges::find_if(
            job.Events, [&](const JobEvent& event) { return Aims(event) && topOf(event) == window; });
        return Fault{kind, static_cast<int>(first - job.Events.begin())};
    };
}

bool IsPressInPlace(const JobEvent& event) {
    const bool press = IsMouse(event, platform::MouseLeftDown) || IsMouse(event, platform::MouseRightDown) ||
                       event.dwFlags() == DoubleClickFlags;
    return IsType(event, 0) && press;
}

Planted ClickElsewhere(Job& job, Random& random) {
    const int place = Some(job, random, IsPressInPlace);
    JobEvent& event = job.Events[At(place)];
    const auto& chain = job.Chains[At(event.WindowChainIndex)];
    if (job.Windows[At(chain.Path[1])].Placement.showCmd != platform::ShowNormal) return std::nullopt;
    event.dx() += 5000;
    return Fault{FindingKind::OutsideWindow, place};
}

using enum FindingKind;
const std::pair<const char*, Planter> planters[] = {
    {"chain index",
     AtSome(LostWindow, Aims,
            [](JobEvent& event, Job& job) { event.WindowChainIndex = static_cast<std::int32_t>(job.Chains.size()); })},
    {"leaf", InSomeChain([](WindowChain& chain, Job&) { chain.LeafWindow = -1; })},
    {"path", InSomeChain([](WindowChain& chain, Job&) { chain.Path[1] = 4000; })},
    {"depth", InSomeChain([](WindowChain& chain, Job&) { chain.Depth = 256; })},
    {"negative depth", InSomeChain([](WindowChain& chain, Job&) { chain.Depth = -1; })},
    {"unused chain", InHeader(LostWindow,
                              [](Job& job) {
                                  job.Chains.push_back({-1, {}, 0});
                              })},
    {"string", AtSome(
                   LostText, [](const JobEvent& event) { return IsType(event, INPUT_TEXT); },
                   [](JobEvent& event, Job&) { event.StringIndex() = 0; })},
    {"string of a continuation", AtSome(
                                     LostText, [](const JobEvent& event) { return IsType(event, TextContinuation); },
                                     [](JobEvent& event, Job&) { event.StringIndex() = 999; })},
    {"key release", WithoutKeyRelease},
    {"button release", WithoutButtonRelease},
    {"key press", WithoutKeyPress},
    {"held in a text", InText(NeverReleased, "a{L_CTRL DOWN}c")},
    {"release in a text", InText(NeverPressed, "a{ENTER UP}c")},
    {"unknown token", InText(BadKeystrokes, "abc{ENTR}")},
    {"unclosed brace", InText(BadKeystrokes, "abc{ENTER")},
    {"unknown word", InText(BadKeystrokes, "{ENTER OFTEN}")},
    {"time", BackInTime},
    {"delay", MinutesLater},
    {"wait", AtSome(LongWindowWait, Aims, [](JobEvent& event, Job&) { event.WaitForWindow = 300; })},
    {"negative wait", AtSome(BadRowOption, Aims, [](JobEvent& event, Job&) { event.WaitForWindow = -1; })},
    {"if no window", AtSome(BadRowOption, Aims, [](JobEvent& event, Job&) { event.IfNoWindow = 3; })},
    {"type", AtSome(UnknownInput, IsPressInPlace,
                    [](JobEvent& event, Job&) {
                        const std::int32_t time = event.time();
                        event.dwType() = 3;
                        event.time() = time;
                    })},
    {"mouse action", AtSome(
                         UnknownInput, [](const JobEvent& event) { return IsMouse(event, platform::MouseMove); },
                         [](JobEvent& event, Job&) { event.dwFlags() = 7; })},
    {"outside", ClickElsewhere},
    {"file name", WithTitle(TitleWithFileName, "Report 11.docx - Writer")},
    {"date", WithTitle(TitleWithDate, "Takings of 2026-11-22")},
    {"program", InHeader(MissingProgram, [](Job& job) { job.StartProgram.ProgramPath = "C:\\gone.exe"; })},
    {"version", InHeader(BadOption, [](Job& job) { job.Version = 299; })},
    {"style", InHeader(BadOption, [](Job& job) { job.StartProgram.WindowStyle = 4; })},
    {"speed", InHeader(BadOption, [](Job& job) { job.SpeedPercent = 0; })},
    {"skipped moves", InHeader(BadOption, [](Job& job) { job.SkipMouseMoves = 2; })},
    {"caps lock", InHeader(BadOption, [](Job& job) { job.CapsLockState = -127; })},
    {"repeat", InHeader(BadOption, [](Job& job) { job.RepeatCount = -1; })},
    {"safety", InHeader(BadOption, [](Job& job) { job.SafetyLevel = 3; })},
    {"similar names", InHeader(BadOption, [](Job& job) { job.SimilarWindowNames = -1; })},
    {"no events", InHeader(EmptyJob,
                           [](Job& job) {
                               job.Events.clear();
                               job.Chains.clear();
                           })},
};

// As the editor shows it. The times of events are their names here.
std::int32_t NumberInEditor(const Job& job, int event) {
    if (event < 0) return 0;
    OpenInEditor(job);
    const auto found = std::ranges::find_if(editState.EditEvents, [&](const JobEvent& each) {
        return each.word[each.dwType() == 0 ? 5 : 3] == job.Events[At(event)].time();
    });
    auto row = At(RowAtEvent(static_cast<std::int32_t>(found - editState.EditEvents.begin())));
    while (row + 1 < editState.RowIndex.size() && RowColumns(static_cast<std::int32_t>(row))[0].empty()) {
        ++row;
    }
    return editState.RowNumber[row];
}

std::string Told(const std::vector<Finding>& findings) {
    std::string told;
    for (const Finding& finding : findings) told += FindingLine(finding) + "\n";
    return told;
}

TEST(CheckJob, FindsEveryPlantedFaultAtItsRowAndNothingElse) {
    for (const auto& [name, plant] : planters) {
        int planted = 0;
        for (unsigned seed = 1; seed <= JobsEach; ++seed) {
            Job job = GoodJob(seed);
            ASSERT_THAT(CheckJob(job), IsEmpty()) << "seed " << seed << "\n" << Told(CheckJob(job));
            Random random(seed);
            const Planted fault = plant(job, random);
            if (!fault) continue;
            ++planted;
            const std::vector<Finding> findings = CheckJob(job);
            const std::int32_t row = NumberInEditor(job, fault->event);
            const bool found = std::ranges::any_of(
                findings, [&](const Finding& each) { return each.kind == fault->kind && each.row == row; });
            const bool only =
                std::ranges::all_of(findings, [&](const Finding& each) { return each.kind == fault->kind; });
            EXPECT_TRUE(found && only) << name << ", seed " << seed << ", row " << row << "\n" << Told(findings);
        }
        EXPECT_GE(planted, static_cast<int>(JobsEach) / 4) << name;
    }
}

TEST(CheckJob, TellsEveryFindingInEveryLanguage) {
    for (const int language : AllLanguages) {
        UseLanguage(language);
        for (const auto& [name, plant] : planters) {
            for (unsigned seed = 1; seed <= 6; ++seed) {
                Job job = GoodJob(seed);
                Random random(seed);
                plant(job, random);
                for (Finding finding : CheckJob(job)) {
                    if (finding.kind == BadKeystrokes) finding.detail = "ENTR";  // braces are no mistake there
                    EXPECT_THAT(FaultsOf(FindingLine(finding)), IsEmpty()) << name;
                }
            }
        }
    }
    UseLanguage(LanguageEnglish);
}

TEST(CheckJob, AJobThatCannotBeReadIsOneFinding) {
    const Finding finding = FindingOfUnreadableJob(RuntimeFailure(FailureKind::File, "The file 'a.tsj' is cut."));
    EXPECT_EQ(finding.row, 0);
    EXPECT_EQ(FindingLine(finding), "The file 'a.tsj' is cut. Take it from a backup, or record it again.");
}

// What nobody may be bothered with.
TEST(CheckJob, IsSilentAboutWhatIsMeantToBeSo) {
    const auto cutOff = [](Job& job) { job.Events.pop_back(); };  // the stop key came before the release
    const auto low = [](Job& job) { job.SafetyLevel = 2; };
    const auto similar = [](Job& job) { job.SimilarWindowNames = 1; };
    const auto fast = [](Job& job) { job.SpeedPercent = MaximumSpeed; };
    struct Case {
        std::function<Planted(Job&, Random&)> plant;
        std::function<void(Job&)> meant;
    };
    const Case cases[] = {
        {[](Job&, Random&) { return Planted(); }, cutOff},
        {WithTitle(TitleWithFileName, "a.txt - Editor"), low},
        {WithTitle(TitleWithFileName, "a.txt - Editor"), similar},
        {MinutesLater, fast},
        {InText(BadKeystrokes, ""), [](Job&) {}},
    };
    for (unsigned seed = 1; seed <= 10; ++seed) {
        for (const Case& each : cases) {
            Job job = GoodJob(seed);
            Random random(seed);
            each.plant(job, random);
            each.meant(job);
            EXPECT_THAT(CheckJob(job), IsEmpty()) << Told(CheckJob(job));
        }
    }
}

TEST(WindowTitles, NameFilesAndDates) {
    const std::vector<std::string> files = {"letter.docx - Writer", "C:\\a b\\x.TXT", "*new 1.txt - Notepad++",
                                            "a.tar.gz", "f\xFCr alle.pdf"};
    const std::vector<std::string> dates = {"Day 22.11.2026",     "2026-11-22",          "Takings 22/11/26",
                                            "scan_20261122_0815", "Sunday, 22 November", "Nov 2026 - Calendar",
                                            "22. November 2026",  "d\351cembre 2026",    "11/22/2026"};
    const std::vector<std::string> plain = {"",
                                            "Untitled - Notepad",
                                            "C:\\Windows\\system32\\cmd.exe",
                                            "Node.js",
                                            "Editor 1.2.13",
                                            "www.example.com - Browser",
                                            "Save As",
                                            "Version 2026",
                                            "192.168.10.20",
                                            "... more.",
                                            "Order 12345678",
                                            "Page 3 of 12 - 50%",
                                            "Step 3/12",
                                            "Office 2019.11.1.4 Setup"};
    for (const std::string& title : files) EXPECT_TRUE(HoldsFileName(title)) << title;
    for (const std::string& title : dates) EXPECT_TRUE(HoldsDate(title) && !HoldsFileName(title)) << title;
    for (const std::string& title : plain) EXPECT_FALSE(HoldsDate(title) || HoldsFileName(title)) << title;
}

}  // namespace
