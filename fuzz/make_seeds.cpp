// The first inputs for the targets that read files: small, whole, and with something of everything.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "jobs/sample_job.h"
#include "jobtext/job_text.h"
#include "settings/sample_settings.h"
#include "sounds/sample_bank.h"
#include "storage/archive.h"
#include "storage/input_file.h"
#include "support/least_program.h"

namespace {

void Put(const std::filesystem::path& file, const std::string& bytes) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string TextOf(const std::string& job) {
    std::string text;
    InputFile file("a.tsj", job);
    ExportJob(file, [&text](std::string_view block) { text += block; });
    return text;
}

std::string RecordBytes(const Schedule& schedule) {
    std::string bytes(RecordSize<Schedule>(), '\0');
    RecordWriter writer(bytes.data());
    Fields(writer, schedule);
    return bytes;
}

// Each of the actions on rows, half of them taken back, and a piece that is inserted.
std::string EveryEdit() {
    std::string bytes(1, '\x18');
    for (unsigned action = 0; action < 8; ++action) {
        for (const unsigned edit : {32 + action, action % 2 * 8, 24U}) {
            bytes += FileBytes().Byte(edit).Byte(action * 32).Byte(action).Byte(140 + action);
        }
    }
    return bytes;
}

// Of each type, with and without a window.
std::string EveryEvent() {
    std::string bytes;
    for (unsigned event = 0; event < 40; ++event) {
        bytes += FileBytes().Byte(event % 10).Byte(event).Byte(event / 3).Byte(event % 4).Byte(128 + event / 8);
        bytes += FileBytes().Byte(event).Byte(event % 3 * 7).Byte(event % 3);
    }
    return bytes;
}

// One of each type by the clock, and the same at the computer's start. In front of them stands when the day begins.
void PutSchedules(const std::filesystem::path& folder) {
    constexpr std::int64_t minuteOfOctober31 = 1'399 * 1440 + 600;
    for (const int atStart : {0, 1}) {
        std::string bytes = FileBytes().Int32(minuteOfOctober31).Byte(0).Byte(static_cast<unsigned>(atStart));
        Schedule schedule{.schedule_name = "Often", .start_time = "12:00:00", .when_computer_starts = atStart};
        schedule.wait_items_loaded = atStart;
        schedule.days_of_week = 0x7F;
        schedule.enabled = -1;
        schedule.log_path = "C:\\data\\Often.log";
        for (const std::int32_t type : {ScheduleDaily, ScheduleWeekly, ScheduleMonthly, ScheduleOnce}) {
            schedule.schedule_type = type;
            schedule.date_field = type == ScheduleMonthly ? "31" : "2026-10-31";
            bytes += RecordBytes(schedule);
        }
        Put(folder / (atStart == 0 ? "clock" : "start"), bytes);
    }
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: fuzz_seeds CORPUS_FOLDER\n");
        return 2;
    }
    const std::filesystem::path corpus = arguments[1];
    const std::string newer = FileBytes().Int32(307);
    const std::string empty = SampleBytes().substr(0, EventCountAt) + std::string(16, '\0');
    for (const char* target : {"read_job", "check_job_header"}) {
        Put(corpus / target / "sample", SampleBytes());
        Put(corpus / target / "empty", empty);
        Put(corpus / target / "newer", newer);
    }
    const std::string odd =
        WithInt32(SampleBytes().replace(4, 40, 40, '\0'), SampleBytes().size() - 4, 300) + "old tail";
    Put(corpus / "import_job_text" / "sample", TextOf(SampleBytes()));
    Put(corpus / "import_job_text" / "empty", TextOf(empty));
    Put(corpus / "import_job_text" / "odd", TextOf(odd));
    for (const char language : {'\1', '\4'}) {
        const std::string made = LeastProgram() + std::string{language, 0} + SampleBytes();
        Put(corpus / "made_program" / (language == 1 ? "english" : "french"), made);
    }
    Put(corpus / "edit_job" / "every", EveryEdit() + EveryEvent());
    Put(corpus / "edit_job" / "empty", EveryEdit());
    Put(corpus / "load_settings" / "sample", SampleSettingsBytes());
    Put(corpus / "load_settings" / "smallest", SmallestSettingsBytes());
    Put(corpus / "sound_bank" / "sample", SampleBank());
    PutSchedules(corpus / "schedules");
    return 0;
}
