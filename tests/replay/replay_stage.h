// What a story of a replay is told with: a Notepad on the simulated desktop, a job for it, and a look at what arrived.
#pragma once

#include "folding/puni_listu.h"
#include "replay/replay_events.h"
#include "replay/target_search.h"
#include "settings/settings.h"
#include "support/job_builder.h"
#include "support/status_view_stand_in.h"
#include "support/story.h"

class ReplayStage : public testing::Test {
protected:
    ReplayStage() {
        settings.Display_Executing_Status = 0;
        OpenNotepad();
    }

    // Another job, of which nothing has arrived yet.
    void NewJob(std::int32_t safetyLevel = SafetyHigh, std::int32_t speedPercent = 100) {
        simulated::ClearJournals();
        job = JobBuilder();
        job.Header().SafetyLevel = safetyLevel;
        job.Header().SpeedPercent = speedPercent;
    }

    void OpenNotepad() {
        notepad = simulated::AddWindow(NotepadSpec());
        edit = simulated::AddWindow(EditSpec(notepad));
        simulated::SetFocus(edit);
    }

    static simulated::WindowSpec NotepadSpec() {
        return {.className = "Notepad", .caption = "Untitled - Notepad", .rect = {100, 100, 700, 500}};
    }

    static simulated::WindowSpec EditSpec(platform::WindowHandle parent) {
        return {.className = "Edit", .rect = {0, 0, 600, 400}, .parent = parent, .controlId = 15};
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
    static std::vector<std::int64_t> TimesSince(std::int64_t start, const std::vector<simulated::InputEntry>& entries) {
        std::vector<std::int64_t> times;
        for (const simulated::InputEntry& entry : entries) times.push_back(entry.time - start);
        return times;
    }

    platform::WindowHandle notepad = 0;
    platform::WindowHandle edit = 0;
    JobBuilder job;
    std::vector<ActionRow> rows;
    std::string reason;
};
