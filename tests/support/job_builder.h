// Builds a job the way a recording would, one gesture a line:
//
//     JobBuilder job;
//     job.InWindow({"Edit", "", 15}, {"Notepad", "Untitled - Notepad"}).Type("ab").Wait(300).Click(Left, 10, 20);
//     ReplayEvents(job.Built(), ...);
//
// Every event comes 10 ms after the one before it; Wait adds to that, At sets the clock. Presses, key-downs and wheel
// notches carry the window named by the last InWindow (none before the first, or after InNoWindow), with 10 s to wait
// for it; ups and moves carry none, as recorded.
#pragma once

#include <cctype>
#include <string>
#include <string_view>
#include <vector>

#include "jobs/job_records.h"

class JobBuilder {
public:
    static constexpr std::int32_t Step = 10;  // ms from one event to the next

    // One level of a window chain.
    struct Level {
        std::string ClassName;
        std::string Caption{};
        std::int32_t ControlId = 0;
        platform::WindowPlacement Placement{};
    };

    struct Button {
        std::int32_t down;
        std::int32_t up;
        std::int32_t number = 0;  // of an X button
    };

    // Time.

    // The next event comes this much later than it would.
    JobBuilder& Wait(std::int32_t ms) {
        clock += ms;
        return *this;
    }

    // The next event comes at this time.
    JobBuilder& At(std::int32_t ms) {
        clock = ms;
        return *this;
    }

    // Targets.

    // What follows goes to this window: the window itself first, then its parents up to the top level.
    JobBuilder& InWindowPath(const std::vector<Level>& path) {
        WindowChain newChain;
        newChain.Depth = static_cast<std::int32_t>(path.size()) - 1;
        std::size_t level = 0;
        for (const Level& window : path) newChain.Path[level++] = WindowIndex(window);
        newChain.LeafWindow = newChain.Path[0];
        return UseChain(AddChain(newChain));
    }
    JobBuilder& InWindow(const Level& leaf, const Level& top) { return InWindowPath({leaf, top}); }
    JobBuilder& InWindow(const Level& top) { return InWindowPath({top}); }

    JobBuilder& InNoWindow() { return UseChain(NoWindowMarker); }

    // For chains that come from elsewhere: a capture, or a damaged file.
    std::int32_t AddChain(const WindowChain& newChain) {
        job.Chains.push_back(newChain);
        return static_cast<std::int32_t>(job.Chains.size()) - 1;
    }
    JobBuilder& UseChain(std::int32_t chainIndex) {
        chain = chainIndex;
        return *this;
    }

    // What the events from here on do without their window, and how many seconds they wait for it.
    JobBuilder& IfNoWindow(IfNoWindowChoice choice, std::int32_t waitSeconds = 10) {
        ifNoWindow = choice;
        waitForWindow = waitSeconds;
        return *this;
    }

    // Keys.

    JobBuilder& KeyDown(int vk) { return AddKey(vk, 0); }
    JobBuilder& ExtendedKeyDown(int vk) { return AddKey(vk, 1); }
    JobBuilder& KeyUp(int vk) { return AddKey(vk, 2); }
    JobBuilder& ExtendedKeyUp(int vk) { return AddKey(vk, 3); }
    JobBuilder& Key(int vk) { return KeyDown(vk).KeyUp(vk); }

    // The keys of these letters, digits and blanks, one after the other.
    JobBuilder& Type(std::string_view letters) {
        for (const char letter : letters) Key(std::toupper(static_cast<unsigned char>(letter)));
        return *this;
    }

    // Text rows, as the editor stores them.

    JobBuilder& TextRow(const std::string& keystrokes) {
        job.Strings.push_back(keystrokes);
        return AddText(INPUT_TEXT, chain);
    }
    // A former key event that belongs to the text row before it.
    JobBuilder& Continuation() { return AddText(TextContinuation, NoWindowMarker); }

    // Mouse.

    JobBuilder& Move(std::int32_t x, std::int32_t y) { return AddMouse(platform::MouseMove, x, y, 0, NoWindowMarker); }
    JobBuilder& Press(const Button& button, std::int32_t x, std::int32_t y) {
        return AddMouse(button.down, x, y, button.number, chain);
    }
    JobBuilder& Release(const Button& button, std::int32_t x, std::int32_t y) {
        return AddMouse(button.up, x, y, button.number, NoWindowMarker);
    }
    JobBuilder& Click(const Button& button, std::int32_t x, std::int32_t y) {
        return Press(button, x, y).Release(button, x, y);
    }
    JobBuilder& DoubleClick(std::int32_t x, std::int32_t y) {
        return AddMouse(DoubleClickFlags - MouseFlagBase, x, y, 0, chain);
    }
    // 120 is one notch away from the user, -120 one notch towards the user.
    JobBuilder& Wheel(std::int32_t delta, std::int32_t x = 0, std::int32_t y = 0) {
        return AddMouse(platform::MouseWheel, x, y, delta, chain);
    }

    // Anything else.

    // An event as it stands, time and window included.
    JobBuilder& Raw(const JobEvent& event) {
        job.Events.push_back(event);
        return *this;
    }

    JobHeader& Header() { return job; }
    JobEvent& Last() { return job.Events.back(); }
    Job& Built() { return job; }

private:
    std::int32_t WindowIndex(const Level& level) {
        for (std::size_t i = 0; i < job.Windows.size(); ++i) {
            const WindowSignature& known = job.Windows[i];
            if (known.ClassName == level.ClassName && known.Caption == level.Caption &&
                known.ControlId == level.ControlId && known.Placement == level.Placement) {
                return static_cast<std::int32_t>(i);
            }
        }
        job.Windows.push_back({level.Placement, level.Caption, level.ClassName, level.ControlId});
        return static_cast<std::int32_t>(job.Windows.size()) - 1;
    }

    JobBuilder& Add(JobEvent event, std::int32_t chainIndex) {
        event.time() = static_cast<std::int32_t>(clock);
        clock += Step;
        event.WindowChainIndex = chainIndex;
        if (chainIndex >= 0) {
            event.WaitForWindow = waitForWindow;
            event.IfNoWindow = ifNoWindow;
        }
        return Raw(event);
    }

    JobBuilder& AddKey(int vk, std::int32_t keyState) {
        JobEvent event;
        event.dwType() = platform::InputKeyboard;
        event.KeyCode() = platform::ScanCodeOf(vk) * 65536 + vk;
        event.KeyState() = keyState;
        return Add(event, keyState < platform::KeyUp ? chain : NoWindowMarker);
    }

    JobBuilder& AddText(std::int32_t type, std::int32_t chainIndex) {
        JobEvent event;
        event.dwType() = type;
        event.StringIndex() = static_cast<std::int32_t>(job.Strings.size());
        return Add(event, chainIndex);
    }

    JobBuilder& AddMouse(std::int32_t action, std::int32_t x, std::int32_t y, std::int32_t data,
                         std::int32_t chainIndex) {
        JobEvent event;
        event.dwType() = platform::InputMouse;
        event.dx() = x;
        event.dy() = y;
        event.mouseData() = data;
        event.dwFlags() = MouseFlagBase + action;
        return Add(event, chainIndex);
    }

    Job job;
    std::int64_t clock = 0;
    std::int32_t chain = NoWindowMarker;
    std::int32_t waitForWindow = 10;
    std::uint8_t ifNoWindow = StopExecuting;
};

inline constexpr JobBuilder::Button Left{platform::MouseLeftDown, platform::MouseLeftUp};
inline constexpr JobBuilder::Button Right{platform::MouseRightDown, platform::MouseRightUp};
inline constexpr JobBuilder::Button Middle{platform::MouseMiddleDown, platform::MouseMiddleUp};
inline constexpr JobBuilder::Button XButton1{platform::MouseXDown, platform::MouseXUp, 1};
inline constexpr JobBuilder::Button XButton2{platform::MouseXDown, platform::MouseXUp, 2};
