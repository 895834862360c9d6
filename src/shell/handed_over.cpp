#include "shell/handed_over.h"

#include <utility>

#include "base/text.h"
#include "mainwindow/form_visible.h"
#include "platform/instances.h"
#include "replay/run_job.h"
#include "shell/command_line.h"
#include "shell/copy_data.h"
#include "shell/shell_view.h"
#include "shell/startup.h"

HandedOver handedOver;

namespace {

constexpr int LookAgainMs = 200;

void Show() {
    FormVisible(true, false);
    shell_view::BringToNormal();
    shell_view::StaviFocus();
}

void Do(const std::string& commandLine) {
    platform::TellBegun(commandLine);
    if (Trim(commandLine).empty()) return Show();
    HandleCommandParameter(commandLine, true);
}

bool CanBeDone(const std::string& commandLine) {
    return !handedOver.starting && !(IsRunCommand(commandLine) && runState.ReplayRunning);
}

void DoNext() {
    if (handedOver.waiting.empty() || !CanBeDone(handedOver.waiting.front())) return;
    std::string commandLine;
    TakeNextHandedOver(commandLine);
    Do(commandLine);
}

void TakeOrDo(const std::string& commandLine) {
    if (handedOver.waiting.empty() && CanBeDone(commandLine)) return Do(commandLine);
    handedOver.waiting.push_back(commandLine);
    if (handedOver.timer == 0) handedOver.timer = platform::StartTimer(LookAgainMs, DoNext);
}

void OnMessageAtDoor(const platform::SentMessage& sent) {
    if (sent.message == ShowYourselfMessage) return TakeOrDo("");
    if (const auto command = CommandFromCopyData(sent.dwData, sent.cbData, sent.lpData)) TakeOrDo(*command);
}

}  // namespace

void OpenFrontDoor() {
    handedOver.starting = true;
    platform::OpenDoor(MainCaption(), OnMessageAtDoor);
}

void CloseFrontDoor() {
    platform::CloseDoor();
    handedOver.starting = false;
}

void OnCommandHandedOver(const std::string& commandLine) {
    TakeOrDo(commandLine);
}

void OnShowYourself() {
    TakeOrDo("");
}

bool TakeNextHandedOver(std::string& commandLine) {
    if (handedOver.waiting.empty()) return false;
    commandLine = std::move(handedOver.waiting.front());
    handedOver.waiting.pop_front();
    if (handedOver.waiting.empty()) platform::StopTimer(std::exchange(handedOver.timer, 0));
    return true;
}
