// The commands that need no desktop.
#include <nlohmann/json.hpp>

#include "jobs/job_file.h"
#include "simulated/files.h"
#include "support/job_builder.h"
#include "support/least_program.h"
#include "tsj/tool_stage.h"

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string JobPath = "C:\\jobs\\Übung.tsj";

class TsjTest : public testing::Test, public ToolStage {
protected:
    TsjTest() {
        simulated::PutFolder("C:\\jobs");
        simulated::PutFolder("C:\\Program");
        simulated::PutFile("C:\\Program\\execreator.bin", LeastProgram());
        job.InWindow({"Edit", ""}, {"Notepad", "Caf\xE9 - Notepad"}).Click(Left, 300, 300).TextRow("gr\xFC\xDF");
        job.Header().Description = "F\xFCr Anna";
        WriteJob(platform::FromUtf8(JobPath), job.Built());
    }

    JobBuilder job;
};

TEST_F(TsjTest, AWrongUsageIsToldWithItsCode) {
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{},
                                                  {"sow", "x"},
                                                  {"show"},
                                                  {"show", JobPath, "--evnts"},
                                                  {"help", "sow"},
                                                  {"exe", JobPath, "C:\\a.exe", "--language", "xx"},
                                                  {"run", JobPath, "--speed", "0"}}) {
        EXPECT_EQ(Tsj(wrong), 64);
        EXPECT_THAT(err, HasSubstr("--help"));
        EXPECT_EQ(out, "");
    }
    EXPECT_EQ(Tsj({"help", "show"}), 0);
    EXPECT_THAT(out, HasSubstr("--events"));
    EXPECT_EQ(Tsj({"help"}), 0);
    EXPECT_THAT(out, AllOf(HasSubstr("explain"), HasSubstr("unpack")));
    EXPECT_EQ(Tsj({"--version"}), 0);
    EXPECT_THAT(out, StartsWith("tsj 3."));
}

TEST_F(TsjTest, ShowsAJobInUtf8WhereverItComesFrom) {
    ASSERT_EQ(Tsj({"show", JobPath}), 0);
    const std::string shown = out;
    EXPECT_THAT(shown, AllOf(HasSubstr("Für Anna"), HasSubstr("\"Café - Notepad\""), HasSubstr("LEFT CLICK"),
                             HasSubstr("grüß")));
    in = *simulated::FileBytes(platform::FromUtf8(JobPath));
    ASSERT_EQ(Tsj({"show", "-"}), 0);
    EXPECT_EQ(out, shown);
    ASSERT_EQ(Tsj({"show", JobPath, "--events"}), 0);
    EXPECT_THAT(out, AllOf(HasSubstr("left down"), HasSubstr("left up"), HasSubstr("string 1")));
    ASSERT_EQ(Tsj({"show", JobPath, "--json", "--events"}), 0);
    const json read = json::parse(out);
    EXPECT_EQ(read["windows"][1]["caption"], "Café - Notepad");
    EXPECT_EQ(read["rows"].back()["text"], "grüß");
    EXPECT_EQ(read["events"].size(), job.Built().Events.size());
    in.resize(2300);
    EXPECT_EQ(Tsj({"show", "-"}), 3);
    EXPECT_THAT(err, HasSubstr("standard input"));
}

TEST_F(TsjTest, NamesAFileAsItWasTyped) {
    simulated::PutFile(platform::FromUtf8("C:\\jobs\\Ärger.json"), "{");
    WriteJob(platform::FromUtf8("C:\\jobs\\Ärger.tsj"), Job());
    for (const std::vector<std::string>& failing : {std::vector<std::string>{"show", "C:\\jobs\\no Ärger"},
                                                    {"check", "C:\\jobs\\Ärger.json"},
                                                    {"import", "C:\\jobs\\Ärger.json", "C:\\jobs\\out.tsj"},
                                                    {"exe", "C:\\jobs\\Ärger.tsj", "C:\\jobs\\out.exe"},
                                                    {"export", JobPath, "C:\\Ärger\\out.json"}}) {
        EXPECT_EQ(Tsj(failing), 3) << failing[0];
        EXPECT_THAT(out + err, AllOf(HasSubstr("Ärger"), testing::Not(HasSubstr("Ã")))) << failing[0];
    }
}

TEST_F(TsjTest, ChecksJobsAndTellsALineForEachFinding) {
    EXPECT_EQ(Tsj({"check", JobPath}), 0) << out;
    EXPECT_EQ(out, "");
    job.Press(Left, 310, 310).TextRow("{ENTR}").InWindow({"Notepad", "letter.txt - Notepad"}).Click(Right, 1, 1);
    WriteJob("C:\\jobs\\bad.tsj", job.Built());
    ASSERT_EQ(Tsj({"check", JobPath, "C:\\jobs\\bad.tsj", "--desktop"}), 1);
    EXPECT_THAT(out,
                AllOf(HasSubstr("bad.tsj: Row 3: The left mouse button"), HasSubstr("'{ENTR}'"),
                      HasSubstr("names a file: 'letter.txt"), HasSubstr("Übung.tsj: Row 1: "), HasSubstr("not there")))
        << "the windows are not there";
    ASSERT_EQ(Tsj({"check", "C:\\jobs\\none.tsj", "C:\\jobs\\bad.tsj", "--json"}), 3);
    const json read = json::parse(out);
    EXPECT_TRUE(read[0]["row"].is_null());
    EXPECT_EQ(read[1]["row"], 3) << out;
    EXPECT_GT(read[1]["toDo"].get<std::string>().size(), 10u);
}

TEST_F(TsjTest, ComparesJobsLikeDiff) {
    EXPECT_EQ(Tsj({"diff", JobPath, JobPath}), 0);
    EXPECT_EQ(out, "");
    Job edited = job.Built();
    edited.SpeedPercent = 150;
    edited.Strings[0] = "other";
    WriteJob("C:\\jobs\\edited.tsj", edited);
    ASSERT_EQ(Tsj({"diff", JobPath, "C:\\jobs\\edited.tsj"}), 1);
    EXPECT_THAT(out, AllOf(HasSubstr("- SpeedPercent: 100\n+ SpeedPercent: 150\n@ changed: content\n- 2 "),
                           HasSubstr("grüß\n"), HasSubstr("other\n")));
    ASSERT_EQ(Tsj({"diff", JobPath, "C:\\jobs\\edited.tsj", "--json"}), 1);
    EXPECT_EQ(json::parse(out)["rows"][0]["b"]["text"], "other");
    EXPECT_EQ(Tsj({"diff", JobPath, "C:\\jobs\\none.tsj"}), 2);
    EXPECT_THAT(err, HasSubstr("none.tsj"));
}

TEST_F(TsjTest, TakesTypedTextsOut) {
    EXPECT_EQ(Tsj({"redact", JobPath, "-o", "C:\\jobs\\out.tsj"}), 64) << "of what?";
    EXPECT_EQ(Tsj({"redact", JobPath, "-o", "C:\\jobs\\out.tsj", "--row", "9"}), 64);
    EXPECT_FALSE(simulated::FileBytes("C:\\jobs\\out.tsj"));
    simulated::PutFile("C:\\jobs\\out.tsj", std::string(100000, 'x') + "gr\xFC\xDF");
    ASSERT_EQ(Tsj({"redact", JobPath, "-o", "C:\\jobs\\out.tsj", "--window", "Café - Notepad"}), 0) << err;
    EXPECT_THAT(err, HasSubstr("Row 2: 4 keystrokes taken out in 'Café - Notepad'"));
    EXPECT_THAT(*simulated::FileBytes("C:\\jobs\\out.tsj"), testing::Not(HasSubstr("gr\xFC\xDF")));
    EXPECT_EQ(Tsj({"show", "C:\\jobs\\out.tsj"}), 0);
}

TEST_F(TsjTest, MakesAProgramAndTakesTheJobOut) {
    ASSERT_EQ(Tsj({"exe", JobPath, "C:\\jobs\\a.exe", "--language", "de"}), 0) << err;
    const std::string made = *simulated::FileBytes("C:\\jobs\\a.exe");
    const std::string bytes = *simulated::FileBytes(platform::FromUtf8(JobPath));
    EXPECT_TRUE(made == LeastProgram() + std::string("\2\0", 2) + bytes);
    simulated::PutFile("C:\\jobs\\b.exe", made + "of a longer one");
    ASSERT_EQ(Tsj({"exe", JobPath, "C:\\jobs\\b.exe", "--language", "de"}), 0);
    EXPECT_TRUE(*simulated::FileBytes("C:\\jobs\\b.exe") == made) << "two makes are the same";
    ASSERT_EQ(Tsj({"unpack", "C:\\jobs\\a.exe", "C:\\jobs\\out.tsj"}), 0);
    EXPECT_THAT(err, HasSubstr(" de\n"));
    EXPECT_TRUE(*simulated::FileBytes("C:\\jobs\\out.tsj") == bytes);
    ASSERT_EQ(Tsj({"unpack", "C:\\jobs\\a.exe", "-"}), 0);
    EXPECT_TRUE(out == bytes);
    EXPECT_EQ(Tsj({"unpack", "C:\\Program\\execreator.bin", "-"}), 3);
    EXPECT_EQ(out, "");
    simulated::PutFile("C:\\jobs\\cut.tsj", bytes.substr(0, 2200));
    EXPECT_EQ(Tsj({"exe", "C:\\jobs\\cut.tsj", "C:\\jobs\\c.exe"}), 3);
    EXPECT_FALSE(simulated::FileBytes("C:\\jobs\\c.exe"));
}

}  // namespace
