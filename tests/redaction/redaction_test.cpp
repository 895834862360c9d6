#include "redaction/redaction.h"

#include <random>
#include <set>

#include "folding/fold.h"
#include "folding/popuni_listu.h"
#include "folding/puni_listu.h"
#include "folding/random_job.h"
#include "folding/row_texts.h"
#include "jobs/sample_job.h"
#include "keystrokes/notation.h"
#include "storage/input_file.h"
#include "support/job_builder.h"
#include "support/story.h"

namespace {

constexpr int Shift = 160;
constexpr int Ctrl = 162;
constexpr int Enter = 13;
const JobBuilder::Level notepad{"Notepad", "Letter"};
const JobBuilder::Level login{"Login", "Log in"};

bool IsModifierKey(int vk) {
    return (vk >= 16 && vk <= 18) || (vk >= 160 && vk <= 165);
}

// The rows as the editor shows them.
struct Grid {
    std::vector<GridColumns> rows;
    std::vector<std::int32_t> kinds;
    std::vector<JobEvent> events;  // as the fold has changed them
    std::vector<JobEvent> pristine;
    std::vector<std::string> keyTexts;

    explicit Grid(const Job& job) {
        OpenAsRows(job, "C:\\a.tsj");
        for (std::size_t row = 0; row < editState.RowIndex.size(); ++row) {
            rows.push_back(RowColumns(static_cast<std::int32_t>(row)));
            kinds.push_back(editState.RowKind[row]);
        }
        events = editState.EditEvents;
        pristine = editState.PristineEvents;
        keyTexts = editState.FoldedRowText;
    }

    std::string All() const {
        std::string all;
        for (std::size_t row = 0; row < rows.size(); ++row) all += Line(row) + "\n";
        return all;
    }

    std::string Line(std::size_t row) const {
        std::string line;
        for (const std::string& column : rows.at(row)) line += column + "|";
        return line;
    }
};

std::string DetailOf(const Job& job, std::size_t row) {
    return Grid(job).rows.at(row).back();
}

bool Holds(const Job& job, int vk) {
    return std::any_of(job.Events.begin(), job.Events.end(), [vk](const JobEvent& event) {
        return event.dwType() != platform::InputMouse && (event.KeyCode() & 0xFFFF) == vk;
    });
}

Job Redacted(Job job, const RedactionChoice& choice) {
    Redact(job, choice);
    return job;
}

TEST(Redaction, TakesTheTextsOfAWindow) {
    JobBuilder job;
    job.InWindow(notepad).Type("dear").Click(Left, 1, 1);
    job.InWindow(login).KeyDown(Shift).Type("hunter").KeyUp(Shift).Key(Enter);
    job.InWindow(notepad).Wait(500).Type("yes").TextRow("see you");
    const Grid before(job.Built());
    const RedactionAccount account = Redact(job.Built(), {.windows = {"Log in"}});
    ASSERT_EQ(account.rows.size(), 1U);
    EXPECT_EQ(account.rows[0].number, 3);
    EXPECT_EQ(account.rows[0].window, "Log in");
    EXPECT_EQ(account.rows[0].keystrokes, 7);
    EXPECT_THAT(account.findings, IsEmpty());
    const Grid after(job.Built());
    ASSERT_EQ(after.rows.size(), 5U);
    for (const std::size_t row : {0U, 1U, 3U, 4U}) EXPECT_EQ(after.Line(row), before.Line(row));
    EXPECT_EQ(after.rows[2].back(), "{232 UP}");
    EXPECT_FALSE(Holds(job.Built(), 'H'));
    EXPECT_TRUE(Holds(job.Built(), 'D'));
    EXPECT_EQ(JobBytes(job.Built()).find("hunter"), std::string::npos);
}

TEST(Redaction, AStoredTextLosesItsOldKeysToo) {
    JobBuilder job;
    job.InWindow(login).TextRow("old");
    job.TextRow("hunter2");
    job.Last().KeyCode() = 0x230048;
    job.Continuation();
    job.Last().KeyCode() = 0x160055;
    job.Continuation().Click(Left, 1, 1);
    job.TextRow("bye").TextRow("hunter2");
    const RedactionAccount account = Redact(job.Built(), {.rows = {2}});
    EXPECT_EQ(job.Built().Strings, std::vector<std::string>({"old", "{232 UP}", "bye", "hunter2"}));
    ASSERT_EQ(account.findings.size(), 1U);
    EXPECT_EQ(SentenceOf(account.findings[0]), "Row 5 still holds a text that was taken out.");
    for (const JobEvent& event : job.Built().Events) {
        EXPECT_TRUE(event.dwType() == platform::InputMouse || event.KeyCode() == 0);
    }
    EXPECT_EQ(Redacted(job.Built(), {.all = true}).Strings,
              std::vector<std::string>({"{232 UP}", "{232 UP}", "{232 UP}", "{232 UP}"}));
}

// What a modifier is held for stays as it was, and nothing is down for longer.
TEST(Redaction, ModifiersStayWhereTheyAreHeldForSomethingElse) {
    const auto press = [](JobBuilder& job) -> JobBuilder& { return job.InWindow(login).Type("pin").KeyDown(Shift); };
    JobBuilder forAClick;
    press(forAClick).Click(Left, 1, 1).KeyUp(Shift);
    Job job = Redacted(forAClick.Built(), {.all = true});
    EXPECT_EQ(DetailOf(job, 0), "{L_SHIFT}") << "down, and released behind the click";
    EXPECT_EQ(job.Events.back().KeyState(), platform::KeyUp);

    JobBuilder forAnotherRow;
    press(forAnotherRow).InWindow(notepad).Type("x").KeyUp(Shift);
    job = Redacted(forAnotherRow.Built(), {.windows = {"Log in"}});
    EXPECT_EQ(job.Strings, std::vector<std::string>({"{L_SHIFT DOWN}"}));
    EXPECT_EQ(DetailOf(job, 1), "x{L_SHIFT UP}");
    job = Redacted(forAnotherRow.Built(), {.windows = {"Letter"}});
    EXPECT_EQ(DetailOf(job, 1), "{232 UP}{L_SHIFT UP}") << "a release of what was pressed before";

    JobBuilder forNothing;
    press(forNothing).Type("x").KeyUp(Shift).Click(Left, 1, 1);
    EXPECT_EQ(Redacted(forNothing.Built(), {.all = true}).Strings, std::vector<std::string>({"{232 UP}"}));
    JobBuilder forever;
    press(forever).Click(Left, 1, 1);
    EXPECT_EQ(Redacted(forever.Built(), {.all = true}).Strings, std::vector<std::string>({"{232 UP}"}));

    JobBuilder alone;
    alone.InWindow(login)
        .KeyDown(Ctrl)
        .Click(Left, 1, 1)
        .KeyUp(Ctrl)
        .Wheel(120)
        .TextRow("{ALT DOWN}{WHEEL UP}{ALT UP}");
    const Job before = alone.Built();
    EXPECT_EQ(Dump(Redacted(before, {.all = true})), Dump(before)) << "no typed text";
    EXPECT_EQ(
        Redacted(
            JobBuilder().InWindow(login).TextRow("a{ALT DOWN}{WHEEL UP}{ALT UP}b{L_SHIFT DOWN}c{L_SHIFT UP}").Built(),
            {.all = true})
            .Strings,
        std::vector<std::string>({"{ALT DOWN}{WHEEL UP}{ALT UP}"}));
}

// A letter that is released in another row is told by its release.
TEST(Redaction, ReleasesOfWhatIsTakenGoFromOtherRows) {
    JobBuilder job;
    job.InWindow(login).Type("pi").KeyDown('N').InWindow(notepad).KeyDown('X').KeyUp('N').KeyUp('X');
    const Grid before(job.Built());
    const Job redacted = Redacted(job.Built(), {.rows = {1}});
    EXPECT_FALSE(Holds(redacted, 'N'));
    EXPECT_TRUE(Holds(redacted, 'X'));
    EXPECT_EQ(Grid(redacted).Line(1), before.Line(1));
    EXPECT_TRUE(Holds(Redacted(job.Built(), {.rows = {2}}), 'N')) << "else it would stay down";
}

TEST(Redaction, FindsTheTextInOtherPlaces) {
    JobBuilder job;
    job.Header().Description = "types HUNTER";
    job.Header().StartProgram = {"C:\\hunter.exe", "/p=hunter", 1};
    job.InWindow({"Edit", "", 15}, {"Notepad", "hunter - Notepad"})
        .Type("xy")
        .Key(Enter)
        .KeyDown(Shift)
        .Type("h")
        .KeyUp(Shift);
    job.Type("unte").Key('Q').Key(8).Type("r").Click(Left, 1, 1);
    const RedactionAccount account = Redact(job.Built(), {.all = true});
    EXPECT_EQ(account.rows[0].window, "window 1");
    std::vector<std::string> sentences;
    for (const RedactionFinding& finding : account.findings) sentences.push_back(SentenceOf(finding));
    EXPECT_EQ(sentences,
              std::vector<std::string>({
                  "The description of the job still holds a text that was taken out.",
                  "The path of the program that the job starts still holds a text that was taken out.",
                  "The command line of the program that the job starts still holds a text that was taken out.",
                  "The caption of window 1 still holds a text that was taken out.",
              }));
}

TEST(Redaction, WhatIsNotThereIsRefused) {
    JobBuilder job;
    job.InWindow(login).Click(Left, 1, 1).Type("pin");
    const std::string before = Dump(job.Built());
    for (const RedactionChoice& choice :
         {RedactionChoice{.rows = {1}}, RedactionChoice{.rows = {2, 3}}, RedactionChoice{.windows = {"Letter"}}}) {
        EXPECT_EQ(FailureOf([&] { Redact(job.Built(), choice); }), FailureKind::Range);
    }
    EXPECT_EQ(Dump(job.Built()), before);
}

// --- random jobs ---

// Which keys are down at the end of the raw keys, and the texts between them.
std::set<int> DownAtTheEnd(const Job& job) {
    std::set<int> down;
    const auto step = [&down](int vk, bool isDown) { isDown ? void(down.insert(vk)) : void(down.erase(vk)); };
    for (const JobEvent& event : job.Events) {
        if (event.dwType() == platform::InputKeyboard) step(event.KeyCode() % 65536, event.KeyState() < 2);
        if (event.dwType() != INPUT_TEXT) continue;
        const std::string& text = job.Strings.at(static_cast<std::size_t>(event.StringIndex() - 1));
        for (int token = 0; token < TokenCount(text); ++token) {
            int vk = 0;
            int action = ActionNone;
            ParseToken(TokenAt(text, token).text, vk, action);
            if (action != ActionPress && vk != WheelKey) step(vk, action == ActionDown);
        }
    }
    return down;
}

// Every stored text is another one.
Job JobWithMarkedTexts(unsigned seed) {
    Job job = RandomJob(seed, 60);
    int mark = 0;
    for (std::string& text : job.Strings)
        text += text.find("{b") == std::string::npos ? "secret" + std::to_string(mark++) : "";
    return job;
}

bool IsTypedRow(const Grid& grid, std::size_t row) {
    const std::string& text = grid.rows[row].back();
    bool isTyped = TokenCount(text) < 0;
    for (int token = 0; token < TokenCount(text); ++token) {
        const std::string one = TokenAt(text, token).text;
        int vk = 0;
        int action = ActionNone;
        ParseToken(one, vk, action);
        isTyped = isTyped || !(IsModifierKey(vk) || vk == WheelKey || action == ActionUp);
    }
    return isTyped && grid.kinds[row] == KeyRowKind;
}

// The release of a key that was pressed in a row that is taken out goes from other rows, too.
std::string WithoutReleases(std::string line) {
    for (const std::string& token : {std::string("{F1 UP}"), std::string("{ENTER UP}")}) {
        for (std::size_t at = line.find(token); at != std::string::npos; at = line.find(token))
            line.erase(at, token.size());
    }
    return line;
}

// A letter that is released between notches of the wheel lets keys behind it join their row. Without it they do not.
bool HasReleaseInWheelRow(const Grid& grid) {
    std::size_t i = 0;
    return std::any_of(grid.events.begin(), grid.events.end(), [&](const JobEvent& event) {
        const std::size_t pristine = i++;
        const bool isOfRow = event.dwType() == INPUT_TEXT || event.dwType() == TextContinuation;
        if (!isOfRow || event.StringIndex() < 1) return false;
        const JobEvent& was = grid.pristine[pristine];
        return was.dwType() == platform::InputKeyboard && was.KeyState() >= 2 &&
               !IsModifierKey(was.KeyCode() % 65536) &&
               grid.keyTexts.at(static_cast<std::size_t>(event.StringIndex() - 1)).starts_with("{WHEEL");
    });
}

struct Chosen {
    RedactionChoice choice;
    std::set<std::size_t> rows;  // of the grid
};

Chosen ChooseSome(const Grid& grid, std::mt19937& random) {
    Chosen chosen;
    for (std::size_t row = 0; row < grid.rows.size(); ++row) {
        if (!IsTypedRow(grid, row) || random() % 2 == 0) continue;
        chosen.rows.insert(row);
        chosen.choice.rows.push_back(std::stoi(grid.rows[row][0]));
    }
    return chosen;
}

TEST(Redaction, NothingOfTheTextIsLeftAndAllElseIsAsItWas) {
    int taken = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::mt19937 random(seed);
        const Job before = JobWithMarkedTexts(seed);
        const Grid grid(before);
        if (HasReleaseInWheelRow(grid)) continue;
        const Chosen chosen = ChooseSome(grid, random);
        Job job = before;
        ASSERT_NO_THROW(Redact(job, chosen.choice)) << seed;
        taken += static_cast<int>(chosen.rows.size());

        const Grid after(job);
        ASSERT_EQ(after.rows.size(), grid.rows.size()) << seed << "\n" << grid.All() << "\n" << after.All();
        for (std::size_t row = 0; row < grid.rows.size(); ++row) {
            if (!chosen.rows.contains(row)) {
                ASSERT_EQ(WithoutReleases(after.Line(row)), WithoutReleases(grid.Line(row))) << seed << " " << row;
                continue;
            }
            ASSERT_FALSE(IsTypedRow(after, row)) << seed << " " << after.Line(row);
            for (std::size_t column = 0; column + 1 < GridColumnCount; ++column) {
                if (column == 1 || column == 2) continue;  // it may have become a row of the wheel alone
                ASSERT_EQ(after.rows[row][column], grid.rows[row][column]) << seed;
            }
        }
        const std::string bytes = JobBytes(job);
        Job read;
        InputFile file("a.tsj", bytes);
        ReadJob(file, read);
        ASSERT_NO_THROW(FoldForReplay(read)) << seed;
        for (const std::string& text : before.Strings) {
            const bool isThere = std::find(job.Strings.begin(), job.Strings.end(), text) != job.Strings.end();
            const std::size_t mark = text.find("secret");
            ASSERT_EQ(mark != std::string::npos && bytes.find(text.substr(mark)) != std::string::npos && isThere,
                      mark != std::string::npos && isThere);
        }
        for (const int key : DownAtTheEnd(job)) ASSERT_TRUE(DownAtTheEnd(before).contains(key)) << seed << " " << key;
    }
    EXPECT_GT(taken, 300);
}

// Of all, no letter is left in any event, nor any string that types one.
TEST(Redaction, OfAllNoLetterIsLeft) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        Job job = JobWithMarkedTexts(seed);
        const std::set<int> downBefore = DownAtTheEnd(job);
        Redact(job, {.all = true});
        for (const JobEvent& event : job.Events) {
            if (event.dwType() == platform::InputMouse) continue;
            const int vk = event.KeyCode() & 0xFFFF;
            ASSERT_TRUE(vk == 0 || IsModifierKey(vk)) << seed << " " << vk;
        }
        for (const std::string& text : job.Strings) {
            ASSERT_EQ(text.find("secret"), std::string::npos) << seed;
            for (int token = 0; token < TokenCount(text); ++token)
                ASSERT_EQ(TokenAt(text, token).text.front(), '{') << text;
        }
        ASSERT_NO_THROW(FoldForReplay(job)) << seed;
        for (const int key : DownAtTheEnd(job)) ASSERT_TRUE(downBefore.contains(key)) << seed << " " << key;
    }
}

}  // namespace
