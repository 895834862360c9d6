// What the editor's operations do to a job, told as plainly as possible and as slowly as that comes to: every operation
// walks over all events, and what can be taken back is a copy of the whole job. Tests hold the editor against it. Only
// the rows are the program's own: a fold has tests of its own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jobs/job_records.h"

struct ModelRow {
    std::int32_t first = 0;
    std::int32_t last = 0;
    bool isKeys = false;
    std::int32_t flags = 0;  // of a mouse row
    std::string text;        // of a keystroke row: as the grid shows it
};

class JobModel {
public:
    JobModel() = default;
    explicit JobModel(const Job& file);  // opened

    std::vector<ModelRow> Rows() const {
        if (!folded) folded = Fold();
        return *folded;
    }
    std::int32_t RowCount() const { return static_cast<std::int32_t>(Rows().size()); }
    std::int64_t DelayOf(std::int32_t row) const;
    std::int64_t DurationOf(std::int32_t row) const;
    const JobEvent& FirstEventOf(std::int32_t row) const;
    std::int64_t TimeAt(std::int32_t event) const;
    std::int32_t EventCount() const { return static_cast<std::int32_t>(events.size()); }

    // As a save writes it, but for the header.
    Job Saved() const;

    // The folded events: what a save would write if every keystroke row had been edited.
    std::vector<JobEvent> Folded() const;

    // Each tells whether it is a step that can be taken back; nothing, when a time would be too large.
    std::optional<bool> Remove(std::int32_t from, std::int32_t to);
    std::optional<bool> SetDelays(std::int32_t from, std::int32_t to, std::int32_t value);
    std::optional<bool> SetDurations(std::int32_t from, std::int32_t to, std::int32_t value);
    bool SetWait(std::int32_t row, std::int32_t seconds);
    bool SetIfNoWindow(std::int32_t row, std::uint8_t choice);
    bool SetText(std::int32_t row, const std::string& text);

    // Where a piece beside this row goes, and the time at which it begins. Without a row: into a job that has none.
    struct Place {
        std::int32_t at = 0;
        std::int64_t base = 0;
        bool atEnd = false;
    };
    Place PlaceBeside(std::int32_t row, bool above) const;

    // `piece` has all windows and chains, its own behind those of the job.
    std::optional<bool> Insert(const Place& place, const Job& piece);

    std::string description;
    std::vector<WindowSignature> windows;
    std::vector<WindowChain> chains;

private:
    struct Event {
        JobEvent event;
        std::int64_t time = 0;
        std::string text;  // of the head of a stored row

        // Of a keystroke row that is edited: what the user has made of it, kept with the head.
        std::optional<std::string> typed{};
    };

    Job AsJob() const;
    std::vector<ModelRow> Fold() const;
    bool Belongs(const ModelRow& row, std::int32_t event) const;
    bool IsPartOfText(const ModelRow& row, std::int32_t event) const;
    bool IsStoredAsText(const ModelRow& row) const;
    void StoreAsText(const ModelRow& row);
    void StoreTexts();
    void DropHiddenMoves();
    std::optional<bool> IfTimesFit(bool isStep) const;

    std::vector<Event> events;
    mutable std::optional<std::vector<ModelRow>> folded;  // nothing when they are to be folded afresh
};
