// A job as text and back: the bytes are the same, whatever was in the file.
#include "jobtext/job_text.h"

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

#include "folding/random_job.h"
#include "jobs/sample_job.h"
#include "storage/input_file.h"
#include "support/story.h"

namespace {

std::string TextOf(const std::string& bytes) {
    std::string text;
    InputFile file("a.tsj", bytes);
    ExportJob(file, [&text](std::string_view block) { text += block; });
    return text;
}

std::string JobOf(const std::string& text) {
    std::string bytes;
    ImportJob("a.json", text, [&bytes](std::string_view block) { bytes += block; });
    return bytes;
}

std::string WordsOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const RuntimeFailure& failure) {
        return failure.what();
    }
    return "";
}

std::string FaultOf(const std::string& text) {
    return WordsOf([&text] { JobOf(text); });
}

// The text with the first `from` in it replaced.
std::string With(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string LineWith(const std::string& text, const std::string& words) {
    const std::size_t at = text.find(words);
    if (at == std::string::npos) return "";
    const std::size_t begin = text.rfind('\n', at) + 1;
    return text.substr(begin, text.find('\n', at) - begin);
}

// --- random files ---

class RandomFile {
public:
    explicit RandomFile(unsigned seed) : random(seed) {}

    // What the program writes, and then anything at all done to it.
    std::string Make(unsigned seed) {
        Job job = RandomJob(seed, static_cast<int>(Below(60)));
        static_cast<JobHeader&>(job) = RandomHeader();
        for (std::string& text : job.Strings) {
            if (Below(2) == 0) text = AnyText(40);
        }
        for (WindowSignature& window : job.Windows) {
            if (Below(2) == 0) window.Caption = AnyText(60);
        }
        std::string bytes = JobBytes(job);
        for (std::size_t changes = Below(2) * Below(30); changes > 0; --changes) Spoil(bytes);
        if (Below(3) == 0) bytes += AnyText(300);
        return bytes;
    }

private:
    std::size_t Below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random); }
    char AnyByte() { return static_cast<char>(Below(256)); }
    std::string AnyText(std::size_t longest) {
        std::string text(Below(longest + 1), ' ');
        for (char& each : text) each = Below(3) == 0 ? AnyByte() : static_cast<char>(' ' + Below(95));
        return text;
    }

    JobHeader RandomHeader() {
        JobHeader header;
        header.StartProgram = {AnyText(30), AnyText(30), static_cast<std::int16_t>(Below(5))};
        header.Description = AnyText(100);
        header.SpeedPercent = static_cast<std::int32_t>(1 + Below(1001));
        header.SafetyLevel = static_cast<std::int32_t>(Below(3));
        return header;
    }

    // Half of it in the front, where the counts are.
    void Spoil(std::string& bytes) {
        const std::size_t at = Below(Below(2) == 0 ? 2142 : bytes.size());
        const std::size_t size = std::min(bytes.size() - at, Below(4) == 0 ? Below(200) : 1 + Below(4));
        const char byte = Below(3) == 0 ? '\0' : Below(3) == 0 ? '\xFF' : AnyByte();
        bytes.replace(at, size, std::string(size, byte));
    }

    std::mt19937 random;
};

TEST(JobText, KeepsEveryByteOfWhateverCanBeRead) {
    int read = 0;
    for (unsigned seed = 0; seed < 500; ++seed) {
        const std::string bytes = RandomFile(seed).Make(seed);
        Job job;
        InputFile file("a.tsj", bytes);
        const std::string refusal = WordsOf([&] { ReadJob(file, job); });
        std::string text;
        ASSERT_EQ(WordsOf([&] { text = TextOf(bytes); }), refusal) << seed;
        if (!refusal.empty()) continue;
        ++read;
        ASSERT_EQ(FaultOf(text), "") << seed << "\n" << text;
        ASSERT_TRUE(JobOf(text) == bytes) << seed << "\n" << text;
    }
    EXPECT_GT(read, 250);
}

TEST(JobText, KeepsEveryByteOfTheSamples) {
    std::vector<std::string> files = {SampleBytes(), SampleBytes() + std::string(1000, '\0') + "old tail"};
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLE_FOLDER)) {
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        files.push_back(bytes.str());
    }
    EXPECT_GE(files.size(), 3U);
    for (const std::string& bytes : files) EXPECT_EQ(JobOf(TextOf(bytes)), bytes);
}

TEST(JobText, HasALineForEachEventWindowChainAndString) {
    EXPECT_EQ(TextOf(SampleBytes()), R"({
"TessarineJob": 1,
"CodePage": 1252,
"Version": 300,
"ProgramPath": "C:\\Windows\\notepad.exe",
"CommandLine": "/p \"a b\"",
"WindowStyle": 3,
"Description": "Fills the form",
"SpeedPercent": 50,
"SkipMouseMoves": 1,
"CapsLockState": 1,
"RepeatCount": 7,
"SafetyLevel": 2,
"SimilarWindowNames": 1,
"Strings": [
"abc [ENTER]",
"",
"äö"
],
"Events": [
{"time":900,"action":"move","dx":640,"dy":-3},
{"time":1000,"action":"left down","dx":10,"dy":20,"WindowChainIndex":0,"WaitForWindow":10,"IfNoWindow":"execute anyway"},
{"time":1300,"action":"key up","vk":"A","scan":30,"WindowChainIndex":-1}
],
"Windows": [
{"Caption":"Untitled - Notepad","ClassName":"Notepad","ControlId":0,"length":44,"flags":2,"showCmd":3,"ptMinPosition":[-1,-2],"ptMaxPosition":[-3,-4],"rcNormalPosition":[5,6,700,800]},
{"Caption":"","ClassName":"Edit","ControlId":15,"length":44,"flags":0,"showCmd":1,"ptMinPosition":[0,0],"ptMaxPosition":[0,0],"rcNormalPosition":[0,0,600,500]}
],
"Chains": [
{"Path":[1,0],"bytes":"1024:09"}
]
}
)");
}

// What no member tells stands beside the members, as bytes.
TEST(JobText, TellsOddBytesBesideTheMembers) {
    Job job = SampleJob();
    job.Windows[0].Caption = "line\nbreak \x81 \"\\ \x7F";
    job.Strings[2] = "\x01 \x9F";
    job.Events.push_back(SampleEvent({9, 1, 2, 3, 4, 5, 6}, 0, 0, 3));
    job.Events.push_back(SampleEvent({1, 0x410000 + 255, 7, 3, 4, 5, 6}, 0, 0, 1));
    job.Events.push_back(SampleEvent({0, 1, 2, 120, -32770, 5, 6}, 0, 0, 0));
    job.Events.push_back(SampleEvent({2, 0, 0, 5, 0, 0, 1}, 0, 0, 0));
    job.Chains[0].Depth = 300;
    job.Chains[0].LeafWindow = 7;
    std::string bytes = JobBytes(job);
    bytes.replace(4, 800, 800, '\0');
    bytes = WithInt32(bytes, 2106, 12345);
    const std::string text = TextOf(bytes);
    EXPECT_THAT(text, HasSubstr("\"bytes\": \"4:00*800\""));
    EXPECT_THAT(text, HasSubstr("\"DurationMs\": 12345,"));
    EXPECT_THAT(text, HasSubstr(R"("line\u000abreak \u0081 \"\\ \u007f")"));
    EXPECT_THAT(
        text,
        HasSubstr(R"({"time":3,"action":9,"WindowChainIndex":0,"IfNoWindow":3,"bytes":"4:0100000002 16:0400000005)"));
    EXPECT_THAT(text, HasSubstr(R"({"time":3,"action":"key","KeyState":7,"vk":255,"scan":65,"dwExtraInfo":4,)"));
    EXPECT_THAT(text, HasSubstr(R"("action":"mouse","dwFlags":-32770,"dx":1,"dy":2,"mouseData":120,"dwExtraInfo":6)"));
    EXPECT_THAT(text, HasSubstr(R"({"time":5,"action":"text","StringIndex":1,)"));
    EXPECT_THAT(LineWith(text, "\"Path\""), testing::EndsWith(R"(,0,9],"LeafWindow":7,"Depth":300})"));
    EXPECT_EQ(JobOf(text), bytes);
    const std::string negative =
        WithInt32(WithInt32(SampleBytes().substr(0, EventCountAt + 8), EventCountAt, -3), StringCountAt, -1) +
        FileBytes().Int32(-2).Int32(0).All() + "tail";
    EXPECT_THAT(TextOf(negative), HasSubstr("\"EventCount\": -3,\n\"StringCount\": -1,\n\"Strings\": [],\n\"Events\": "
                                            "[],\n\"DurationMs\": 2600,\n\"WindowCount\": -2,\n"));
    EXPECT_THAT(TextOf(negative), HasSubstr("\"Tail\": [\n\"7461696c\"\n]"));
    EXPECT_EQ(JobOf(TextOf(negative)), negative);
}

// Sorted members, four blanks of indentation, and all in one line.
TEST(JobText, AnyLayoutOfTheJsonWillDo) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        const std::string bytes = JobBytes(RandomJob(seed, 50)) + "tail";
        const nlohmann::json json = nlohmann::json::parse(TextOf(bytes));
        EXPECT_TRUE(JobOf(json.dump(4)) == bytes) << seed;
        EXPECT_TRUE(JobOf("\xEF\xBB\xBF" + json.dump(-1, ' ', true)) == bytes) << seed;
    }
    EXPECT_EQ(JobOf(nlohmann::json::parse(TextOf(SampleBytes())).dump(1)), SampleBytes());
}

TEST(JobText, WhatIsEditedIsInTheJob) {
    std::string text = TextOf(SampleBytes());
    text = With(text, "{\"time\":1300", "{\"time\":1100,\"action\":\"wheel\",\"dx\":1,\"dy\":2},\n{\"time\":1500");
    text = With(text, "\"äö\"", "\"é€\"");
    text = With(text, "Untitled - Notepad", " Letter ");
    Job job;
    const std::string bytes = JobOf(text);
    InputFile file("a.tsj", bytes);
    ReadJob(file, job);
    EXPECT_EQ(job.DurationMs, 3000) << "follows from the last event";
    EXPECT_EQ(job.Strings[2], "\xE9\x80");
    EXPECT_EQ(job.Windows[0].Caption, "Letter");
    EXPECT_EQ(job.Events.size(), 4U);
}

TEST(JobText, DamagedTextIsASentenceWithItsLine) {
    const std::string good = TextOf(SampleBytes());
    struct Case {
        std::string from;
        std::string to;
        std::string sentence;
    };
    const Case cases[] = {
        {"\"dx\":640", "\"dx\":640.5", "line 21: \"dx\" cannot be a number with a fraction."},
        {"\"dx\":640", "\"dx\":2147483648", "line 21: \"dx\" is a whole number from -2147483648 to 2147483647."},
        {"\"dx\":640", "\"dx\":\"640\"", "line 21: \"dx\" cannot be a text."},
        {"\"dx\":640", "\"dX\":640", "line 21: There is no \"dX\" here."},
        {"\"dx\":640", "\"dy\":640", "line 21: \"dy\" stands here twice."},
        {"\"dx\":640,", "", "line 21: This event has no \"dx\"."},
        {"\"dx\":640", "\"dx\":640,\"vk\":65", "line 21: An event of this action has no \"vk\". Remove it."},
        {"\"move\"", "\"moved\"", "line 21: There is no \"action\" of the name \"moved\"."},
        {"\"move\"", "0", "line 21: The action 0 has a name."},
        {"{\"time\":900", "[1],{\"time\":900", "line 21: \"Events\" cannot hold a list."},
        {"{\"time\":1300", "{\"time\" 1300", "line 23: This is not JSON (syntax error while parsing object separator"},
        {"},\n{\"time\":1300", "}\n{\"time\":1300", "line 23: This is not JSON ("},
        {"[1,0],\"bytes\":\"1024:09\"", "[1,0],\"bytes\":\"0:09\"",
         "line 30: \"bytes\" contradict the other members here."},
        {"1024:09", "1032:09", "line 30: \"bytes\" are runs such as"},
        {"1024:09", "1024:00*4294967296", "line 30: \"bytes\" are runs such as"},
        {"[-1,-2]", "[-1]", "line 26: \"ptMinPosition\" has 2 numbers."},
        {"[-1,-2]", "[-1,-2,-3]", "line 26: \"ptMinPosition\" holds 2 numbers at most."},
        {"\"äö\"", "\"Ж\"", "line 18: The code page 1252 lacks a character of this text."},
        {"\"äö\"", "{\"hex\":\"0\"}", "line 18: Bytes are written as two digits each"},
        {"\"äö\"", "{\"hex\":\"00\",\"x\":\"\"}", "line 18: A text that the code page cannot hold is written as"},
        {"\"äö\"", "{}", "line 18: Between these braces \"hex\" is missing."},
        {"\"äö\"", "\"\xFF\"", "line 18: This is not JSON ("},
        {"1252", "77777", "The text has to name its code page, one that is known here"},
        {"\"CodePage\": 1252,", "", "The text has to name its code page"},
        {"\"TessarineJob\": 1", "\"TessarineJob\": 2", "was written by a newer program."},
        {"\"TessarineJob\": 1,", "", "The text of the job has no \"TessarineJob\"."},
        {"\"SpeedPercent\": 50", "\"SpeedPercent\": 0", "A speed of 0 percent gives no duration."},
        {"\"SpeedPercent\": 50", "\"SpeedPercent\": 50,\n\"EventCount\": -1",
         "\"EventCount\" is for an array without items."},
        {"\"Fills the form\"", "\"" + std::string(1001, 'd') + "\"", "\"Description\" holds 1000 characters at most."},
        {"\"äö\"", "\"" + std::string(65536, 'd') + "\"", "line 18: A string holds 65535 characters at most."},
    };
    for (const Case& one : cases) {
        EXPECT_THAT(FaultOf(With(good, one.from, one.to)),
                    testing::AllOf(HasSubstr("'a.json', line "), HasSubstr(one.sentence)))
            << one.to.substr(0, 80);
    }
    for (const std::string& odd :
         {std::string(), std::string("[]"), std::string("5"), std::string("{}"), std::string(100'000, '[')}) {
        EXPECT_THAT(FaultOf(odd), HasSubstr("'a.json', line 1: ")) << odd.substr(0, 80);
    }
    for (std::size_t length = 0; length + 2 < good.size(); ++length) {
        ASSERT_THAT(FaultOf(good.substr(0, length)), HasSubstr("This is not JSON")) << "cut at " << length;
    }
}

TEST(JobText, TellsHowFarItHasCome) {
    const std::string bytes = JobBytes(RandomJob(1, 4000));
    const auto nowhere = [](std::string_view) {};
    std::vector<std::size_t> told;
    const auto tell = [&told](std::size_t done, std::size_t total) {
        EXPECT_LE(done, total);
        told.push_back(done);
    };
    InputFile file("a.tsj", bytes);
    ExportJob(file, nowhere, 1252, tell);
    EXPECT_EQ(told.back(), bytes.size());
    EXPECT_THAT(told.size(), testing::AllOf(testing::Ge(50U), testing::Le(102U)));
    told.clear();
    const std::string text = TextOf(bytes);
    ImportJob("a.json", text, nowhere, tell);
    EXPECT_EQ(told.back(), std::count(text.begin(), text.end(), '\n'));
    EXPECT_THAT(told.size(), testing::AllOf(testing::Ge(50U), testing::Le(102U)));
    EXPECT_THAT(WordsOf([&] { ExportJob(file, nowhere, 77777); }), HasSubstr("The code page 77777 is not known here."));
}

}  // namespace
