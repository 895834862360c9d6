// The smaller parts of the system: registry, tray, hotkeys, load, sounds, programs, instances, network, folders.
#include "simulated/surroundings.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <utility>

#include "platform/guard.h"
#include "platform/help.h"
#include "platform/hotkeys.h"
#include "platform/instances.h"
#include "platform/load.h"
#include "platform/machine.h"
#include "platform/network.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/screen_picture.h"
#include "platform/shell_folders.h"
#include "platform/sound.h"
#include "platform/tray.h"
#include "platform/window_services.h"
#include "simulated/agenda.h"
#include "simulated/desktop.h"
#include "simulated/window_tree.h"

namespace simulated {

namespace {

constexpr unsigned HotkeyMessage = 0x312;   // WM_HOTKEY
constexpr unsigned CopyDataMessage = 0x4A;  // WM_COPYDATA
constexpr unsigned TrayMessage = 512;
constexpr std::size_t LongestTip = 127;

struct Hotkey {
    WindowHandle window = 0;
    int id = 0;
    int modifiers = 0;
    int virtualKey = 0;
};

struct Surroundings {
    std::map<std::pair<std::string, std::string>, std::string> registry;  // by key and value, in lower case
    bool refusesRegistry = false;

    TrayIcon tray;

    std::vector<Hotkey> hotkeys;

    bool loadWasAsked = false;
    std::optional<int> load = 0;

    std::vector<platform::Sound> sounds;
    std::vector<std::size_t> startedSounds;

    std::vector<StartedProgram> started;
    std::vector<std::function<void(const StartedProgram&)>> onStart;
    bool refusesStarts = false;
    std::vector<std::string> shownHelp;
    std::set<std::uint32_t> processes;  // of others

    bool disconnected = false;
    std::map<std::string, std::pair<std::string, std::int64_t>> pages;  // by address: text, and how long it takes
    std::vector<std::string> fetched;

    int guardStarts = 0;

    std::set<std::string> otherInstances;
    bool anotherProgramPlays = false;
    WindowHandle door = 0;
    int repliesToSenders = 0;
    std::pair<std::string, bool> begun;  // what a second start waits for, and whether it has begun
    std::set<WindowHandle> mayComeForward;
    std::vector<SentMessage> sent;

    std::string executableFolder = "C:\\Program Files\\Tessarine";
    std::string desktopDirectory = "C:\\Users\\User\\Desktop";
    std::string commandLine;
};

Surroundings& State() {
    static Surroundings state;
    return state;
}

std::string Lower(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char each) { return static_cast<char>(std::tolower(each)); });
    return text;
}

std::pair<std::string, std::string> RegistryPlace(const std::string& key, const std::string& value) {
    return {Lower(key), Lower(value)};
}

const Hotkey* FindHotkey(int modifiers, int virtualKey) {
    const auto& hotkeys = State().hotkeys;
    const auto found = std::ranges::find_if(
        hotkeys, [&](const Hotkey& each) { return each.modifiers == modifiers && each.virtualKey == virtualKey; });
    return found == hotkeys.end() ? nullptr : &*found;
}

// As SendMessage: the receiver deals with it before this returns. One that hangs never gets to it.
bool Send(WindowHandle window, const Message& message) {
    State().sent.push_back({window, message});
    const Window* receiver = Find(window);
    const Reactions* reactions = ReactionsOf(window);
    if (receiver == nullptr) return false;
    if (reactions == nullptr || !reactions->procedure || IsHung(receiver->spec.thread)) return true;
    const auto procedure = reactions->procedure;
    procedure(message);
    return Find(window) != nullptr;
}

}  // namespace

bool TakeHotkey(int modifiers, int virtualKey) {
    if (State().hotkeys.empty()) return false;
    const Hotkey* hotkey = FindHotkey(modifiers, virtualKey);
    if (hotkey == nullptr) return false;
    PostTo(hotkey->window, {HotkeyMessage, hotkey->id, virtualKey * 65536 + modifiers});
    return true;
}

void RefuseRegistry(bool refuse) {
    State().refusesRegistry = refuse;
}

const TrayIcon& Tray() {
    return State().tray;
}

void UserOnTray(unsigned mouseMessage) {
    if (State().tray.present)
        SendToProgram(State().tray.window, {TrayMessage, 0, static_cast<std::intptr_t>(mouseMessage)});
}

bool HotkeyRegistered(int modifiers, int virtualKey) {
    return FindHotkey(modifiers, virtualKey) != nullptr;
}

void SetProcessorLoad(std::optional<int> percent) {
    State().load = percent;
}

const std::vector<platform::Sound>& Sounds() {
    return State().sounds;
}

const std::vector<std::size_t>& StartedSounds() {
    return State().startedSounds;
}

const std::vector<StartedProgram>& StartedPrograms() {
    return State().started;
}

void RefuseStarts(bool refuse) {
    State().refusesStarts = refuse;
}

const std::vector<std::string>& ShownHelp() {
    return State().shownHelp;
}

void OnStart(std::function<void(const StartedProgram&)> action) {
    State().onStart.push_back(std::move(action));
}

void ProgramShows(const std::string& part, std::int64_t afterMs, const WindowSpec& window) {
    OnStart([part, afterMs, window](const StartedProgram& program) {
        if (program.commandLine.find(part) != std::string::npos) AppearsAfter(afterMs, window);
    });
}

void Disconnect(bool disconnect) {
    State().disconnected = disconnect;
}

void PutPage(const std::string& address, const std::string& text, std::int64_t afterMs) {
    State().pages[address] = {text, afterMs};
}

const std::vector<std::string>& FetchedAddresses() {
    return State().fetched;
}

int GuardStarts() {
    return State().guardStarts;
}

void LetProcessRun(std::uint32_t process) {
    State().processes.insert(process);
}

void LetAnotherInstanceRun(const std::string& name, bool runs) {
    if (runs) State().otherInstances.insert(name);
    if (!runs) State().otherInstances.erase(name);
}

void LetAnotherProgramPlay(bool plays) {
    State().anotherProgramPlays = plays;
}

int RepliesToSenders() {
    return State().repliesToSenders;
}

bool MayComeForward(WindowHandle window) {
    return State().mayComeForward.contains(window);
}

const std::vector<SentMessage>& SentMessages() {
    return State().sent;
}

void SetExecutableFolder(const std::string& path) {
    State().executableFolder = path;
}

void SetDesktopDirectory(const std::string& path) {
    State().desktopDirectory = path;
}

void SetCommandLine(const std::string& text) {
    State().commandLine = text;
}

}  // namespace simulated

namespace platform {

using simulated::State;

std::optional<std::string> ReadRegistry(const std::string& key, const std::string& value) {
    const auto found = State().registry.find(simulated::RegistryPlace(key, value));
    if (found == State().registry.end()) return std::nullopt;
    return found->second;
}

bool WriteRegistry(const std::string& key, const std::string& value, const std::string& text) {
    if (State().refusesRegistry) return false;
    State().registry[simulated::RegistryPlace(key, value)] = text;
    return true;
}

bool DeleteRegistryValue(const std::string& key, const std::string& value) {
    const auto place = simulated::RegistryPlace(key, value);
    if (!State().refusesRegistry) State().registry.erase(place);
    return !State().registry.contains(place);
}

bool AddTrayIcon(WindowHandle window, const std::string& tip) {
    if (State().tray.present) return false;
    State().tray = {true, window, tip.substr(0, simulated::LongestTip), {}};
    return true;
}

bool ChangeTrayTip(const std::string& tip) {
    if (!State().tray.present) return false;
    State().tray.tip = tip.substr(0, simulated::LongestTip);
    return true;
}

bool ShowTrayBalloon(const std::string& title, const std::string& text) {
    if (State().tray.present) State().tray.balloons.push_back(title + ": " + text);
    return State().tray.present;
}

void RemoveTrayIcon() {
    State().tray = {};
}

// No shell is ever started anew here.
bool RestoreTrayIcon() {
    return State().tray.present;
}

bool RegisterHotkey(WindowHandle window, int id, int modifiers, int virtualKey) {
    if (window != 0 && simulated::Find(window) == nullptr) return false;
    if (simulated::FindHotkey(modifiers, virtualKey) != nullptr) return false;
    State().hotkeys.push_back({window, id, modifiers, virtualKey});
    return true;
}

bool UnregisterHotkey(WindowHandle window, int id) {
    return std::erase_if(State().hotkeys, [window, id](const simulated::Hotkey& each) {
               return each.window == window && each.id == id;
           }) > 0;
}

std::optional<int> ProcessorLoad() {
    return std::exchange(State().loadWasAsked, true) ? State().load : std::nullopt;
}

void SetSounds(WindowHandle, std::vector<Sound> sounds) {
    State().sounds = std::move(sounds);
}

void StartSound(std::size_t place) {
    if (place < State().sounds.size()) State().startedSounds.push_back(place);
}

bool StartProgram(const std::string& commandLine, int windowStyle) {
    if (State().refusesStarts) return false;
    const simulated::StartedProgram program{commandLine, windowStyle, simulated::NowMs()};
    State().started.push_back(program);
    const auto actions = State().onStart;
    for (const auto& action : actions) action(program);
    return true;
}

bool ShowHelp(const std::string& path, const std::string& topic) {
    if (State().refusesStarts) return false;
    State().shownHelp.push_back(path + "|" + topic);
    return true;
}

bool IsConnected() {
    return !State().disconnected;
}

std::string FetchText(const std::string& address, std::size_t mostBytes, std::int64_t limitMs) {
    State().fetched.push_back(address);
    const auto page = State().pages.find(address);
    if (State().disconnected || page == State().pages.end()) return {};
    const auto& [text, afterMs] = page->second;
    Sleep(std::min(afterMs, limitMs));
    return afterMs > limitMs ? std::string() : text.substr(0, mostBytes);
}

void StartGuard() {
    ++State().guardStarts;
}

std::uint32_t OwnProcess() {
    return simulated::OwnProcessNumber;
}

bool ProcessRuns(std::uint32_t process) {
    return process == simulated::OwnProcessNumber || State().processes.contains(process);
}

bool AnotherInstanceRuns(const std::string& name) {
    return State().otherInstances.contains(name);
}

std::vector<Monitor> Monitors() {
    std::vector<Monitor> monitors;
    for (const Rect& place : simulated::Monitors()) monitors.push_back({place, 96, monitors.empty()});
    return monitors;
}

std::string KeyboardLayoutName() {
    return "00000409";
}

std::string SystemVersion() {
    return "simulated";
}

// There is nothing to be seen.
Picture TakeScreenPicture() {
    return {2, 1, {0, 0, 0, 255, 255, 255}};
}

RunClaim::RunClaim() : granted(!State().anotherProgramPlays) {}

RunClaim::~RunClaim() = default;

void OpenDoor(const std::string& name, std::function<void(const SentMessage&)> take) {
    State().door = simulated::AddWindow(
        {.className = DoorClass, .caption = name, .thread = simulated::OwnThread, .visible = false, .active = false});
    simulated::OnMessage(State().door, [take = std::move(take)](const simulated::Message& sent) {
        take({sent.message, static_cast<std::uintptr_t>(sent.lParam), static_cast<std::uint32_t>(sent.bytes.size()),
              sent.bytes.data()});
    });
}

void CloseDoor() {
    simulated::Destroy(State().door);
    State().door = 0;
}

bool SendCopyData(WindowHandle window, const std::string& bytes) {
    return simulated::Send(window, {simulated::CopyDataMessage, 1, 3, bytes});
}

bool SendPlainMessage(WindowHandle window, unsigned message) {
    return simulated::Send(window, {message, 1, 0});
}

// One second start at a time is enough here.
BegunSign::BegunSign(const std::string& commandLine) : event(nullptr) {
    State().begun = {commandLine, false};
}

BegunSign::~BegunSign() {
    State().begun = {};
}

bool BegunSign::IsSet() const {
    return State().begun.second;
}

void TellBegun(const std::string& commandLine) {
    if (commandLine == State().begun.first) State().begun.second = true;
}

void ReplyToSender() {
    ++State().repliesToSenders;
}

void LetComeForward(WindowHandle window) {
    State().mayComeForward.insert(window);
}

std::string ExecutableFolder() {
    return State().executableFolder;
}

std::string DesktopDirectory() {
    return State().desktopDirectory;
}

std::string CommandLineText() {
    return State().commandLine;
}

}  // namespace platform
