// A program made of a runner and a job, and read again.
#include "makeexe/make_executable.h"

#include "dictionary/dictionary.h"
#include "jobs/job_file.h"
#include "makeexe/made_executable.h"
#include "settings/folders.h"
#include "storage/archive.h"
#include "support/job_builder.h"
#include "support/story.h"

namespace {

const std::string RunnerPath = "C:\\Program\\execreator.bin";
const std::string JobPath = "C:\\jobs\\Morning.tsj";
const std::string MadePath = "C:\\Desktop\\Morning.exe";

void Put16(std::string& bytes, std::size_t at, std::uint16_t value) {
    little_endian::Store(bytes.data() + at, value);
}

void Put32(std::string& bytes, std::size_t at, std::uint32_t value) {
    little_endian::Store(bytes.data() + at, value);
}

// A program of two sections, of which the first stands behind the second in the file; with a certificate of this size
// behind them.
std::string Runner(std::uint32_t certificate = 0) {
    constexpr std::uint32_t headers = 0x80, coff = 24, optional = 240, end = 0x700;
    std::string bytes(end, 'r');
    bytes.replace(0, 2, "MZ");
    Put32(bytes, 0x3C, headers);
    bytes.replace(headers, 4, std::string("PE\0\0", 4));
    Put16(bytes, headers + 6, 2);
    Put16(bytes, headers + 20, optional);
    Put16(bytes, headers + coff, 0x20B);
    Put32(bytes, headers + coff + 60, 0x400);
    Put32(bytes, headers + coff + 112 + 32, certificate == 0 ? 0 : end);
    Put32(bytes, headers + coff + 112 + 36, certificate);
    const std::uint32_t sections = headers + coff + optional;
    Put32(bytes, sections + 16, 0x200);
    Put32(bytes, sections + 20, 0x500);
    Put32(bytes, sections + 40 + 16, 0x100);
    Put32(bytes, sections + 40 + 20, 0x400);
    return bytes + std::string(certificate, 'c');
}

Job SomeJob() {
    Job job = JobBuilder().InWindow({"Edit", "", 15}, {"Notepad", "Untitled"}).Type("abc").Click(Left, 1, 2).Built();
    job.SpeedPercent = 250;
    return job;
}

std::string Bytes(const std::string& path) {
    return simulated::FileBytes(path).value_or("(none)");
}

class MakeExeTest : public testing::Test {
protected:
    MakeExeTest() {
        folders.ProgramFolder = "C:\\Program";
        folders.DesktopFolder = "C:\\Desktop";
        for (const char* folder : {"C:\\jobs", "C:\\Desktop"}) simulated::PutFolder(folder);
        simulated::PutFile(RunnerPath, Runner());
        WriteJob(JobPath, SomeJob());
    }

    static void Make(const std::string& answer = MadePath) {
        simulated::AnswerNextFileToSave(answer);
        MakeExe(JobPath);
    }
};

TEST_F(MakeExeTest, IsRunnerLanguageAndJob) {
    SetLanguage(LanguageFrench);
    Make();
    EXPECT_THAT(simulated::OfferedFiles(), ElementsAre(MadePath));
    EXPECT_EQ(Bytes(MadePath), Runner() + std::string("\4\0", 2) + Bytes(JobPath));
    EXPECT_THAT(LastBox(), StartsWith("Tessarine|"));
    const MadeExecutable made = ReadMadeExecutable(MadePath);
    EXPECT_EQ(made.language, LanguageFrench);
    EXPECT_EQ(made.job.Events.size(), SomeJob().Events.size());
    EXPECT_EQ(made.job.SpeedPercent, 250);

    SetLanguage(LanguageGerman);
    Make("C:\\Desktop\\run");
    Make("C:\\Desktop\\other.EXE");
    EXPECT_EQ(Bytes("C:\\Desktop\\run.exe"), Bytes("C:\\Desktop\\other.EXE"));
    EXPECT_EQ(Bytes("C:\\Desktop\\run.exe").size(), Bytes(MadePath).size());
    EXPECT_EQ(ReadMadeExecutable("C:\\Desktop\\run.exe").language, LanguageGerman);
}

TEST_F(MakeExeTest, ALongerFileKeepsItsTailAndAFailureTheOldFile) {
    simulated::PutFile(MadePath, std::string(100'000, 'o'));
    Make();
    EXPECT_EQ(Bytes(MadePath).size(), 100'000U);
    EXPECT_EQ(ReadMadeExecutable(MadePath).job.Events.size(), SomeJob().Events.size());
    const std::string before = Bytes(MadePath);
    simulated::PutFile(RunnerPath, Runner(8));
    simulated::MakeReadOnly("C:\\Desktop");
    Make();
    EXPECT_EQ(Bytes(MadePath), before);
    EXPECT_THAT(LastBox(), StartsWith("Cannot create .exe file|"));
}

TEST_F(MakeExeTest, WithoutRunnerJobOrAnswerNothingIsMade) {
    Make("");
    EXPECT_THAT(Boxes(), IsEmpty());
    simulated::PutFile(RunnerPath, "");
    Make();
    EXPECT_THAT(LastBox(), HasSubstr("is empty"));
    simulated::LosePath(RunnerPath);
    Make();
    EXPECT_EQ(LastBox(), "Cannot create .exe file|File '" + RunnerPath + "' is missing\r\nPress OK to quit");
    EXPECT_EQ(Bytes(MadePath), "(none)");
}

// Somebody signs the runner, or what was made with it: a certificate stands behind the one or the other.
TEST_F(MakeExeTest, CertificatesAreNoPartOfTheJob) {
    simulated::PutFile(RunnerPath, Runner(0x48));
    Make();
    EXPECT_EQ(LayoutOf(MadePath).runnerLength, static_cast<std::int64_t>(Runner(0x48).size()));
    EXPECT_EQ(ReadMadeExecutable(MadePath).job.Events.size(), SomeJob().Events.size());

    simulated::PutFile(RunnerPath, Runner());
    simulated::LosePath(MadePath);
    Make();
    std::string made = Bytes(MadePath);
    made.resize((made.size() + 7) / 8 * 8);
    Put32(made, 0x80 + 24 + 112 + 32, static_cast<std::uint32_t>(made.size()));
    Put32(made, 0x80 + 24 + 112 + 36, 0x50);
    simulated::PutFile(MadePath, made + std::string(0x50, 'c'));
    EXPECT_EQ(LayoutOf(MadePath).runnerLength, static_cast<std::int64_t>(Runner().size()));
    EXPECT_LT(LayoutOf(MadePath).jobLength, static_cast<std::int64_t>(Bytes(JobPath).size()) + 8);
    EXPECT_EQ(ReadMadeExecutable(MadePath).job.Events.size(), SomeJob().Events.size());
}

// Every length, and every byte of the headers, the counts and the options. What is read in spite of it has the job's
// shape; nothing but a file failure comes out.
TEST_F(MakeExeTest, DamageIsAFileFailure) {
    Make();
    const std::string whole = Bytes(MadePath);
    const std::size_t jobAt = Runner().size() + 2;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        simulated::PutFile(MadePath, whole.substr(0, length));
        ASSERT_EQ(FailureOf([] { ReadMadeExecutable(MadePath); }), FailureKind::File) << length;
    }
    int refused = 0;
    for (std::size_t at = 0; at < jobAt + 2300; ++at) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(~damaged[at]);
        simulated::PutFile(MadePath, damaged);
        const auto failure = FailureOf([] { ReadMadeExecutable(MadePath); });
        ASSERT_EQ(failure.value_or(FailureKind::File), FailureKind::File) << at;
        refused += failure ? 1 : 0;
    }
    EXPECT_GT(refused, 40);
    simulated::PutFile(MadePath, whole + "junk behind");
    EXPECT_EQ(ReadMadeExecutable(MadePath).job.Events.size(), SomeJob().Events.size());
}

}  // namespace
