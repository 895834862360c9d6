// Schedules: what looking for the next one costs against the bare arithmetic, a row of a long list against one of a
// short list, and what saving them costs against the disk, on the disk of the folder given (or the temporary folder).
#include <filesystem>
#include <string>
#include <vector>

#include "base/runtime_failure.h"
#include "bench/posix_files.h"
#include "bench/ratio.h"
#include "platform/files.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/schedule_list.h"
#include "settings/folders.h"
#include "settings/settings.h"

namespace {

constexpr int ScheduleCount = 1000;
constexpr int TicksARound = 200;

// In no order, and none of them near: a tick that runs something is no tick.
void MakeSchedules() {
    const std::string now = NowStamp();
    for (int i = 0; i < ScheduleCount; ++i) {
        const int minute = i * 7919 % 1440;
        Schedule schedule;
        schedule.schedule_type = ScheduleMonthly;
        schedule.schedule_name = "A schedule like any other " + std::to_string(i);
        schedule.date_field = std::to_string(i * 31 % 28 + 1);
        schedule.start_time = TimeText({2026, 1, 1, minute / 60, minute % 60, 0});
        schedule.job_path = folders.DataFolder + "\\A job like any other.tsj";
        schedule.enabled = -1;
        schedule.next_run = NextRunOf(schedule, now);
        schedule.log_path = folders.DataFolder + "\\" + schedule.schedule_name + ".log";
        if (SecondsBetween(schedule.next_run, now) < 3600) schedule.next_run = "2104-02-29@12:00:00";
        settings.Schedules.push_back(schedule);
    }
}

void MeasureTick() {
    std::vector<std::string> stamps;
    for (const Schedule& schedule : settings.Schedules) stamps.push_back(schedule.next_run);
    const std::string now = NowStamp();
    scheduleDispatch.DispatchEnabled = true;
    DispatchTick();
    if (scheduleDispatch.interval != 5000) throw RuntimeFailure(FailureKind::Range, "A schedule is near.");
    volatile std::int64_t sum = 0;
    bench::ReportRatio(
        "dispatch tick / 1000 seconds between",
        [] {
            for (int i = 0; i < TicksARound; ++i) DispatchTick();
        },
        [&] {
            for (int i = 0; i < TicksARound; ++i) {
                for (const std::string& stamp : stamps) sum = sum + SecondsBetween(stamp, now);
            }
        },
        1.5);
}

// A row costs the same in a long list as in a short one.
void MeasureFill() {
    constexpr int times = 10;
    std::vector<Schedule> few(settings.Schedules.begin(), settings.Schedules.begin() + ScheduleCount / times);
    bench::ReportRatio(
        "fill 1000 rows / fill 100, per row", FillScheduleList,
        [&few] {
            settings.Schedules.swap(few);
            for (int i = 0; i < times; ++i) FillScheduleList();
            settings.Schedules.swap(few);
        },
        1.25, 31);
}

std::string WholeFile(const std::string& path) {
    platform::File file = platform::File::OpenForReading(path);
    std::string bytes(static_cast<std::size_t>(file.Length()), '\0');
    if (file.Read(bytes.data(), file.Length()) != file.Length()) posix_files::Stop("read the settings");
    return bytes;
}

// Both make a new file and wait for the disk to have it. Some file systems take long to make one where many have just
// been removed, as the other benches do; so the plain file is a new one, too. There are so many rounds that a spell of
// the disk is but a few.
void MeasureSave() {
    SaveSettings();
    const std::string bytes = WholeFile(folders.DataFolder + "\\settings.binary");
    const std::string plain = folders.DataFolder + "\\plain.bin";
    bench::ReportRatio(
        "save 1000 schedules / plain write and flush", SaveSettings,
        [&] {
            platform::RemoveFile(plain);
            platform::File file = platform::File::Create(plain);
            if (!file.Write(bytes.data(), static_cast<std::int64_t>(bytes.size())) || !file.Flush() || !file.Close()) {
                posix_files::Stop("plain write");
            }
        },
        2.0, 101, bench::Seconds);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return posix_files::RunBench(argumentCount, arguments, "schedule_bench", [] {
        std::filesystem::create_directories(posix_files::RealPath("C:\\data"));
        folders.DataFolder = "C:\\data";
        MakeSchedules();
        MeasureTick();
        MeasureFill();
        MeasureSave();
    });
}
