#include "support/story.h"
#include "widgets/number_picker_model.h"
#include "widgets/time_picker_model.h"

namespace {

constexpr int LeftArrow = 37;
constexpr int RightArrow = 39;

TEST(NumberPicker, KeepsWhatIsTypedInRange) {
    const std::tuple<std::int32_t, std::int32_t, std::string, std::string> cases[] = {
        {1, 31, "45", "31"},
        {1, 31, "31", "31"},
        {1, 31, "0", "1"},
        {1, 31, "", "1"},
        {0, 10, "", ""},
        {0, 10, "11", "10"},
        {-5, 5, "", ""},
        {-5, 5, "-9", "-5"},
        {-5, 5, "-", "-"},
        {0, 5, "-", "0"},
        {0, 5, "-1", "0"},
        {0, 5, "abc", "0"},
        {1, 5, "2x", "1"},
        {0, 5, "3.5", "0"},
        {0, 9, "007", "007"},
        {-9, -2, "", "-2"},
        {0, 2147483647, "99999999999999999999999", "2147483647"},
    };
    for (const auto& [lowest, highest, typed, becomes] : cases) {
        NumberPickerModel picker(lowest, highest);
        std::vector<std::string> told;
        picker.Change = [&] { told.push_back(picker.Text()); };
        picker.TextChanged(typed, 0);
        EXPECT_THAT(told, ElementsAre(becomes)) << "the number that has been corrected, once";
        EXPECT_EQ(picker.Text(), becomes) << typed << " in " << lowest << ".." << highest;
        EXPECT_EQ(picker.SelStart, typed == becomes ? 0 : static_cast<int>(becomes.size())) << typed;
    }
}

TEST(NumberPicker, StepsBetweenItsLimitsAndKeepsTheCaret) {
    NumberPickerModel picker(0, 100);
    picker.TextChanged("9", 0);
    picker.Step(1);
    EXPECT_EQ(picker.Text(), "10");
    EXPECT_EQ(picker.SelStart, 1);  // one from the end, as before
    picker.TextChanged("100", 3);
    picker.Step(1);
    EXPECT_EQ(picker.Value(), 100);
    picker.TextChanged("", 0);
    picker.Step(-1);
    EXPECT_EQ(picker.Text(), "0");
}

class TimePicker : public testing::Test {
protected:
    void Type(const std::string& digits) {
        for (const char digit : digits) {
            picker.TextChanged(fresh ? std::string(1, digit) : picker.Text(picker.Focus()) + digit, false);
            fresh = picker.SelectsWhole();
        }
    }

    TimePickerModel picker;
    bool fresh = true;
};

TEST_F(TimePicker, GivesBackWhatItWasGiven) {
    for (const char* time : {"12:00:00", "23:59:59", "00:00:01"}) {
        picker.SetTime(time);
        EXPECT_EQ(picker.Time(), time);
    }
    const std::pair<const char*, const char*> repaired[] = {{"", "00:00:00"},
                                                            {"24:61:07", "00:00:07"},
                                                            {"7:15:30", "00:00:00"},
                                                            {"08", "08:00:00"},
                                                            {"1-:2 :-3", "00:00:00"}};
    for (const auto& [given, kept] : repaired) {
        picker.SetTime(given);
        EXPECT_EQ(picker.Time(), kept) << given;
    }
}

TEST_F(TimePicker, LeadsFromBoxToBoxWhileDigitsAreTyped) {
    Type("081530");
    EXPECT_EQ(picker.Time(), "08:15:30");
    EXPECT_EQ(picker.Focus(), 0);  // from the seconds back to the hours
    Type("2");
    EXPECT_EQ(picker.Time(), "02:15:30");
    EXPECT_EQ(picker.Focus(), 0);
}

TEST_F(TimePicker, TurnsWhatIsOutOfRangeIntoZeros) {
    Type("24");
    EXPECT_EQ(picker.Text(0), "00");
    EXPECT_EQ(picker.Focus(), 0);
    Type("23");
    EXPECT_EQ(picker.Text(0), "23");
    Type("60");
    EXPECT_EQ(picker.Text(1), "00");
    picker.TextChanged("x", false);
    EXPECT_EQ(picker.Text(1), "00");
    picker.TextChanged("123", false);
    EXPECT_EQ(picker.Text(1), "00");
}

TEST_F(TimePicker, GoesBackWhenABackspaceEmptiesABox) {
    picker.GotFocus(1);
    picker.TextChanged("4", true);
    EXPECT_EQ(picker.Focus(), 1);
    picker.TextChanged("", true);
    EXPECT_EQ(picker.Focus(), 0);
    EXPECT_EQ(picker.Time(), "00:00:00");
    picker.TextChanged("", true);
    EXPECT_EQ(picker.Focus(), 0);
}

TEST_F(TimePicker, ArrowKeysStopAtTheEnds) {
    EXPECT_TRUE(picker.KeyDown(LeftArrow));
    EXPECT_EQ(picker.Focus(), 0);
    for (int i = 0; i < 3; ++i) picker.KeyDown(RightArrow);
    EXPECT_EQ(picker.Focus(), 2);
    EXPECT_FALSE(picker.KeyDown('A'));
    EXPECT_THROW(picker.GotFocus(3), RuntimeFailure);
}

TEST_F(TimePicker, ArrowButtonsServeTheBoxWithTheFocus) {
    picker.SetTime("22:58:05");
    for (int field = 0; field < TimePickerModel::FieldCount; ++field) {
        picker.GotFocus(field);
        for (int i = 0; i < 3; ++i) picker.Step(1);
    }
    EXPECT_EQ(picker.Time(), "23:59:08");
    picker.Step(-20);
    EXPECT_EQ(picker.Text(2), "00");
    EXPECT_TRUE(picker.SelectsWhole());
}

}  // namespace
