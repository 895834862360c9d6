// What a story of a replay is told with: a Notepad on the simulated desktop, a job for it, and a look at what arrived.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "folding/puni_listu.h"
#include "platform/clock.h"
#include "platform/window_services.h"
#include "replay/replay_events.h"
#include "replay/target_search.h"
#include "settings/settings.h"
#include "simulated/desktop.h"
#include "support/job_builder.h"
#include "support/status_view_stand_in.h"

class ReplayStage : public testing::Test {
protected:
    ReplayStage() {
        settings.Display_Executing_Status = 0;
        OpenNotepad();
        job.Header().SafetyLevel = SafetyHigh;
    }

    void OpenNotepad() {
        notepad = simulated::AddWindow(NotepadSpec());
        edit = simulated::AddWindow(EditSpec(notepad));
    }

    static simulated::WindowSpec NotepadSpec() {
        simulated::WindowSpec spec;
        spec.className = "Notepad";
        spec.caption = "Untitled - Notepad";
        spec.rect = {100, 100, 700, 500};
        return spec;
    }

    static simulated::WindowSpec EditSpec(platform::WindowHandle parent) {
        simulated::WindowSpec spec;
        spec.className = "Edit";
        spec.controlId = 15;
        spec.rect = {0, 0, 600, 400};
        spec.parent = parent;
        return spec;
    }

    // The identity of a window as it stands now.
    static JobBuilder::Level LevelOf(platform::WindowHandle window) {
        return {platform::ClassOf(window), platform::CaptionOf(window), platform::ControlIdOf(window),
                platform::PlacementOf(window)};
    }

    JobBuilder& InEdit() { return job.InWindow(LevelOf(edit), LevelOf(notepad)); }
    JobBuilder& InNotepad() { return job.InWindow(LevelOf(notepad)); }
    JobBuilder& InLostWindow(const std::string& className = "Lost") { return job.InWindow({className, "Nowhere"}); }

    std::int32_t Replay(const std::string& logPath = "") {
        rows = FoldForReplay(job.Built());
        return ReplayEvents(job.Built(), rows, reason, logPath);
    }

    // What arrived, without the cursor moves that go before every mouse event.
    static std::vector<simulated::InputEntry> Arrived(std::int32_t type) {
        std::vector<simulated::InputEntry> entries;
        for (const simulated::InputEntry& entry : simulated::Journal()) {
            if (entry.record.dwType() == type) entries.push_back(entry);
        }
        return entries;
    }
    static std::vector<simulated::InputEntry> Keys() { return Arrived(platform::InputKeyboard); }
    static std::vector<simulated::InputEntry> Actions(std::int32_t action) {
        std::vector<simulated::InputEntry> entries;
        for (const simulated::InputEntry& entry : Arrived(platform::InputMouse)) {
            if ((entry.record.dwFlags() & ~MouseFlagBase) == action) entries.push_back(entry);
        }
        return entries;
    }
    static std::vector<std::int64_t> Times(const std::vector<simulated::InputEntry>& entries) {
        std::vector<std::int64_t> times;
        for (const simulated::InputEntry& entry : entries) times.push_back(entry.time);
        return times;
    }

    platform::WindowHandle notepad = 0;
    platform::WindowHandle edit = 0;
    JobBuilder job;
    std::vector<ActionRow> rows;
    std::string reason;
};
