#include "comparison/compare_jobs.h"

#include <algorithm>
#include <utility>

#include "comparison/alignment.h"

namespace {

// A block that is larger is not searched for rows that have become others: all of it has gone and come.
constexpr std::int64_t LargestSearchedBlock = 40'000;

// How much speaks for one row being the other, changed; 0: nothing does.
int Likeness(const RowMeaning& a, const RowMeaning& b) {
    if (a.action != b.action || (a.window != b.window && a.content != b.content)) return 0;
    return 1 + 3 * (a.window == b.window) + 3 * (a.content == b.content) + (a.timing == b.timing) +
           (a.waiting == b.waiting);
}

// Which rows of a block have become which, so that most speaks for all of them together; in order.
class BlockMatch {
public:
    BlockMatch(const JobRows& a, const JobRows& b, std::int32_t firstA, std::int32_t endA, std::int32_t firstB,
               std::int32_t endB);

    // By row of A in the block: the row of B in the block, or -1.
    std::vector<std::int32_t> Partners() const;

private:
    int& Best(std::int32_t i, std::int32_t j) { return best[Place(i, j)]; }
    int Best(std::int32_t i, std::int32_t j) const { return best[Place(i, j)]; }
    std::size_t Place(std::int32_t i, std::int32_t j) const {
        return static_cast<std::size_t>(i) * (static_cast<std::size_t>(countB) + 1) + static_cast<std::size_t>(j);
    }

    std::int32_t countA;
    std::int32_t countB;
    std::vector<int> best;      // of the rows from here to the end of the block
    std::vector<int> likeness;  // likewise by both
};

BlockMatch::BlockMatch(const JobRows& a, const JobRows& b, std::int32_t firstA, std::int32_t endA, std::int32_t firstB,
                       std::int32_t endB)
    : countA(endA - firstA), countB(endB - firstB) {
    best.resize(Place(countA, countB) + 1);
    likeness.resize(best.size());
    for (std::int32_t i = countA - 1; i >= 0; --i) {
        for (std::int32_t j = countB - 1; j >= 0; --j) {
            const int alike = Likeness(a.MeaningOf(firstA + i), b.MeaningOf(firstB + j));
            likeness[Place(i, j)] = alike;
            Best(i, j) = std::max({Best(i + 1, j), Best(i, j + 1), alike == 0 ? 0 : alike + Best(i + 1, j + 1)});
        }
    }
}

std::vector<std::int32_t> BlockMatch::Partners() const {
    std::vector<std::int32_t> partners(static_cast<std::size_t>(countA), -1);
    for (std::int32_t i = 0, j = 0; i < countA && j < countB;) {
        const int alike = likeness[Place(i, j)];
        if (alike > 0 && Best(i, j) == alike + Best(i + 1, j + 1)) {
            partners[static_cast<std::size_t>(i++)] = j++;
        } else if (Best(i, j) == Best(i + 1, j)) {
            ++i;
        } else {
            ++j;
        }
    }
    return partners;
}

}  // namespace

JobComparison::JobComparison(Job jobA, Job jobB) : a(std::move(jobA)), b(std::move(jobB)) {
    CompareOptions();
    CompareRows();
}

// DurationMs follows from the rows, and every save writes the same version.
void JobComparison::CompareOptions() {
    const auto compare = [this](const char* name, const auto& valueA, const auto& valueB) {
        if (valueA != valueB) options.push_back({name, valueA, valueB});
    };
    const auto text = [](std::int64_t number) { return std::to_string(number); };
    const JobHeader& x = a.Header();
    const JobHeader& y = b.Header();
    compare("ProgramPath", x.StartProgram.ProgramPath, y.StartProgram.ProgramPath);
    compare("CommandLine", x.StartProgram.CommandLine, y.StartProgram.CommandLine);
    compare("WindowStyle", text(x.StartProgram.WindowStyle), text(y.StartProgram.WindowStyle));
    compare("Description", x.Description, y.Description);
    compare("SpeedPercent", text(x.SpeedPercent), text(y.SpeedPercent));
    compare("SkipMouseMoves", text(x.SkipMouseMoves), text(y.SkipMouseMoves));
    compare("CapsLockState", text(x.CapsLockState), text(y.CapsLockState));
    compare("RepeatCount", text(x.RepeatCount), text(y.RepeatCount));
    compare("SafetyLevel", text(x.SafetyLevel), text(y.SafetyLevel));
    compare("SimilarWindowNames", text(x.SimilarWindowNames), text(y.SimilarWindowNames));
}

void JobComparison::CompareRows() {
    const std::vector<std::int32_t> partners = Align(a.Numbers(), b.Numbers());
    for (std::int32_t row = 0; row < a.Count(); ++row) {
        const std::int32_t partner = partners[static_cast<std::size_t>(row)];
        if (partner < 0) continue;
        AddBlock(row, partner);
        if (!DelayIsSame(row, partner)) rows.push_back({RowChange::Changed, row, partner, DelayAspect});
        doneA = pairedA = row;
        doneB = pairedB = partner;
        ++doneA;
        ++doneB;
    }
    AddBlock(a.Count(), b.Count());
}

// The delay counts from the row in front. Where rows have gone or come in between, the editor keeps the delay of the
// row behind them; another tool may keep its distance from the last row that is in both jobs.
bool JobComparison::DelayIsSame(std::int32_t rowA, std::int32_t rowB) const {
    const auto delay = [](const JobRows& job, std::int32_t row, std::int32_t before) {
        return job.TimesOf(row).first - (before < 0 ? 0 : job.TimesOf(before).last);
    };
    return delay(a, rowA, rowA - 1) == delay(b, rowB, rowB - 1) || delay(a, rowA, pairedA) == delay(b, rowB, pairedB);
}

std::uint32_t JobComparison::AspectsOf(std::int32_t rowA, std::int32_t rowB) const {
    const RowMeaning& x = a.MeaningOf(rowA);
    const RowMeaning& y = b.MeaningOf(rowB);
    return (DelayIsSame(rowA, rowB) ? 0U : DelayAspect) | (x.window == y.window ? 0U : WindowAspect) |
           (x.content == y.content ? 0U : ContentAspect) | (x.timing == y.timing ? 0U : TimingAspect) |
           (x.waiting == y.waiting ? 0U : WaitingAspect);
}

// The rows that have no equal, up to these.
void JobComparison::AddBlock(std::int32_t endA, std::int32_t endB) {
    if (doneA == endA && doneB == endB) return;  // mostly
    std::vector<std::int32_t> partners;
    if (static_cast<std::int64_t>(endA - doneA) * (endB - doneB) <= LargestSearchedBlock) {
        partners = BlockMatch(a, b, doneA, endA, doneB, endB).Partners();
    }
    partners.resize(static_cast<std::size_t>(endA - doneA), -1);
    const std::int32_t firstB = doneB;
    for (const std::int32_t partner : partners) {
        if (partner < 0) {
            rows.push_back({RowChange::Removed, doneA++, -1});
            continue;
        }
        while (doneB < firstB + partner) rows.push_back({RowChange::Added, -1, doneB++});
        rows.push_back({RowChange::Changed, doneA, doneB, AspectsOf(doneA, doneB)});
        pairedA = doneA++;
        pairedB = doneB++;
    }
    while (doneB < endB) rows.push_back({RowChange::Added, -1, doneB++});
}
