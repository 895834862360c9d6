// Message boxes and the folder browser, answered by the script of the test.
#include "platform/boxes.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>

#include "platform/hooks.h"
#include "platform/pump.h"
#include "platform/shell_folders.h"
#include "simulated/agenda.h"
#include "simulated/desktop.h"

namespace simulated {

namespace {

struct BoxState {
    std::deque<BoxAnswer> answers;
    std::vector<ShownBox> shown;
    platform::BoxWatch watch;
    std::deque<std::optional<std::string>> folders;
    std::vector<std::pair<std::string, std::string>> browsed;
    std::deque<std::string> filesToSave;
    std::vector<std::string> offeredFiles;
};

BoxState& State() {
    static BoxState state;
    return state;
}

template <class Answer>
Answer TakeAnswer(std::deque<Answer>& answers, Answer otherwise) {
    if (answers.empty()) return otherwise;
    Answer answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

// Not as a failure of the program, which it would show in a box.
[[noreturn]] void Refuse(const ShownBox& box) {
    std::fprintf(stderr, "A box inside a hook call, where the whole desktop waits: %s\n", box.text.c_str());
    std::abort();
}

// While a box is open, it is a window like any other and pumps.
bool RunBox(ShownBox box) {
    if (platform::InHookCall()) Refuse(box);
    BoxState& state = State();
    box.time = NowMs();
    if (state.watch.opens != nullptr) state.watch.opens(0);
    const BoxAnswer answer = TakeAnswer(state.answers, BoxAnswer{.yes = false});
    box.yes = box.question && answer.yes;
    box.cancel = box.question && answer.cancel;
    state.shown.push_back(box);

    const WindowHandle window =
        AddWindow({.className = "#32770", .caption = box.title, .rect = {440, 430, 840, 590}, .thread = OwnThread});
    platform::Pump();
    if (answer.whileOpen) answer.whileOpen();
    RunFor(answer.afterMs);
    Destroy(window);
    if (state.watch.closed != nullptr) state.watch.closed();
    return box.yes;
}

}  // namespace

void AnswerNextBox(const BoxAnswer& answer) {
    State().answers.push_back(answer);
}

const std::vector<ShownBox>& ShownBoxes() {
    return State().shown;
}

void AnswerNextFolder(const std::optional<std::string>& path) {
    State().folders.push_back(path);
}

void AnswerNextFileToSave(const std::string& path) {
    State().filesToSave.push_back(path);
}

const std::vector<std::string>& OfferedFiles() {
    return State().offeredFiles;
}

const std::vector<std::pair<std::string, std::string>>& BrowsedFolders() {
    return State().browsed;
}

}  // namespace simulated

namespace platform {

void ShowBox(const std::string& text, const std::string& title, BoxIcon icon) {
    simulated::RunBox({.text = text, .title = title, .icon = icon});
}

bool AskYesNo(const std::string& text, const std::string& title, BoxIcon icon) {
    return simulated::RunBox({.text = text, .title = title, .icon = icon, .question = true});
}

bool AskBeforeLoss(const std::string& text, const std::string& title, BoxIcon icon) {
    return AskYesNo(text, title, icon);
}

bool AskOkCancel(const std::string& text, const std::string& title, BoxIcon icon) {
    return AskYesNo(text, title, icon);
}

BoxChoice AskToSave(const std::string& text, const std::string& title, BoxIcon icon) {
    const bool yes = AskYesNo(text, title, icon);
    if (yes) return BoxChoice::Yes;
    return simulated::ShownBoxes().back().cancel ? BoxChoice::Cancel : BoxChoice::No;
}

void WatchBoxes(const BoxWatch& watch) {
    simulated::State().watch = watch;
}

std::optional<std::string> BrowseForFolder(const std::string& prompt, const std::string& start) {
    simulated::State().browsed.emplace_back(prompt, start);
    Pump();
    return simulated::TakeAnswer(simulated::State().folders, std::optional<std::string>());
}

std::string AskFileToSave(const std::string&, const std::string&, const std::string&, const std::string& path) {
    simulated::State().offeredFiles.push_back(path);
    Pump();
    return simulated::TakeAnswer(simulated::State().filesToSave, std::string());
}

}  // namespace platform
