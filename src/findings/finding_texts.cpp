#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "findings/finding.h"

namespace {

constexpr std::int64_t RightButton = 1;
constexpr std::int64_t MiddleButton = 2;

std::string NameOf(JobOption option) {
    switch (option) {
        case JobOption::WindowStyle:
            return Translate("Window style");
        case JobOption::Speed:
            return Translate("Speed");
        case JobOption::SkipMoves:
            return Translate("Skip mouse moves when replaying (increases speed)");
        case JobOption::CapsLock:
            return Translate("Caps Lock");
        case JobOption::Repeat:
            return Translate("Repeat");
        case JobOption::Safety:
            return Translate("Safety level");
        case JobOption::SimilarNames:
            return Translate(
                "Allow keyboard and mouse actions on windows with similiar captions if exact cannot be found");
        default:
            return Translate("File version");
    }
}

// "1.5" for 90 seconds.
std::string Minutes(std::int64_t seconds) {
    constexpr std::int64_t SecondsInTenth = 6;
    return ShortDecimalNumber((seconds + SecondsInTenth / 2) / SecondsInTenth, 1);
}

std::string NotReleased(const Finding& finding) {
    if (!finding.detail.empty()) return Translate1("The key '%1' is pressed here and never released.", finding.detail);
    switch (finding.number) {
        case 0:
            return Translate("The left mouse button is pressed here and never released.");
        case RightButton:
            return Translate("The right mouse button is pressed here and never released.");
        case MiddleButton:
            return Translate("The middle mouse button is pressed here and never released.");
        default:
            return Translate("A side button of the mouse is pressed here and never released.");
    }
}

std::string BadKeystrokes(const std::string& token) {
    if (token.empty()) return Translate("The keystrokes cannot be typed: an opening brace is never closed.");
    return Translate1("The keystrokes cannot be typed: '%1' is no key.", token);
}

}  // namespace

std::string WhatIsWrong(const Finding& finding) {
    switch (finding.kind) {
        case FindingKind::UnreadableJob:
            return finding.detail.empty() ? Translate("The job cannot be read.") : finding.detail;
        case FindingKind::EmptyJob:
            return Translate("The job is empty.");
        case FindingKind::BadOption:
            return Translate2("The option '%1' has a value that it cannot have: %2.", NameOf(finding.option),
                              std::to_string(finding.number));
        case FindingKind::MissingProgram:
            return Translate1("The job starts a program that is not there: %1.", finding.detail);
        case FindingKind::LostWindow:
            if (finding.row == 0)
                return Translate("The list of windows in the job is damaged, at an entry that no row uses.");
            return Translate("The window of this row is missing in the job.");
        case FindingKind::LostText:
            return Translate("The keystrokes of this row are missing in the job.");
        case FindingKind::UnknownInput:
            return Translate1("This row holds an input of an unknown kind: %1.", std::to_string(finding.number));
        case FindingKind::BadRowOption:
            return Translate("What this row is to do without its window has a value that it cannot have.");
        case FindingKind::TimeBackwards:
            return Translate("This row comes before the row above it in time.");
        case FindingKind::NeverReleased:
            return NotReleased(finding);
        case FindingKind::NeverPressed:
            return Translate1("The key '%1' is released here without having been pressed.", finding.detail);
        case FindingKind::BadKeystrokes:
            return BadKeystrokes(finding.detail);
        case FindingKind::OutsideWindow:
            if (finding.detail.empty()) return Translate("The click lies outside its window.");
            return Translate1("The click lies outside its window '%1'.", finding.detail);
        case FindingKind::LongDelay:
            return Translate1("The run waits %1 minutes before this row.", Minutes(finding.number));
        case FindingKind::LongWindowWait:
            return Translate1("The run waits up to %1 minutes for the window of this row.", Minutes(finding.number));
        case FindingKind::TitleWithFileName:
            return Translate1("The title of the window names a file: '%1'.", finding.detail);
        default:
            return Translate1("The title of the window holds a date: '%1'.", finding.detail);
    }
}

std::string WhatToDo(const Finding& finding) {
    switch (finding.kind) {
        case FindingKind::UnreadableJob:
            return Translate("Take it from a backup, or record it again.");
        case FindingKind::EmptyJob:
            return Translate("Record something into it in the job editor, or delete it.");
        case FindingKind::BadOption:
            return Translate("Set the options of the job again and save it.");
        case FindingKind::MissingProgram:
            return Translate("Install the program, or record the job again with another one.");
        case FindingKind::LostWindow:
            if (finding.row == 0) return Translate("The rows can be run all the same.");
            [[fallthrough]];
        case FindingKind::LostText:
        case FindingKind::UnknownInput:
            return Translate("Delete the row in the job editor and record it again.");
        case FindingKind::BadRowOption:
            return Translate("Choose it again in the job editor.");
        case FindingKind::TimeBackwards:
            return Translate("Set its delay in the job editor.");
        case FindingKind::NeverReleased:
            return Translate("It stays down until the job ends. Record the row again.");
        case FindingKind::NeverPressed:
            return Translate("The row that pressed it is missing. Record it again.");
        case FindingKind::BadKeystrokes:
            return Translate("Correct the keystrokes in the job editor.");
        case FindingKind::OutsideWindow:
            return Translate("Record it again, with a window that is not docked to a side of the screen.");
        case FindingKind::LongDelay:
            return Translate("If nothing has to be waited for, make the delay shorter in the job editor.");
        case FindingKind::LongWindowWait:
            return Translate("If the window comes sooner, wait for a shorter time: set it in the job editor.");
        case FindingKind::TitleWithFileName:
            return Translate("It is not found when another file is open. Allow windows with similar captions.");
        default:
            return Translate("It is not found on another day. Allow windows with similar captions.");
    }
}

std::string FindingLine(const Finding& finding) {
    const std::string what = WhatIsWrong(finding) + " " + WhatToDo(finding);
    if (finding.row == 0) return what;
    return LabelOf(Translate1("Row %1", std::to_string(finding.row))) + " " + what;
}
