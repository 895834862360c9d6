// The editor with a job of keystroke rows, its form on the simulated desktop, and a person at the keyboard.
#pragma once

#include "editor/edit_story.h"
#include "editor/keystroke_box.h"
#include "support/keystroke_view_stand_in.h"

class KeystrokeStage : public testing::Test {
protected:
    static constexpr int Tab = 9;
    static constexpr int F5 = 116;
    static constexpr int LeftShift = 160;
    static constexpr int LeftCtrl = 162;
    static constexpr int LeftAlt = 164;
    static constexpr int RightAlt = 165;

    // Opens a job with a keystroke row for each text, apart from each other by clicks, and selects the first.
    static void OpenRows(const std::vector<std::string>& texts) {
        view.AddWindows();
        JobBuilder job;
        job.InWindow({"Edit", "", 15}, {"Notepad", "Untitled"});
        for (const std::string& text : texts) job.TextRow(text).Click(Left, 1, 1);
        edit_story::Open(job.Built());
        edit_story::Select(0);
    }

    // Another text for the row that is shown, with the caret where "|" stands.
    static void Show(const std::string& marked) {
        const std::size_t caret = marked.find('|');
        SetKeyText(0, marked.substr(0, caret) + marked.substr(caret + 1));
        ShowKeystrokeRow(0);
        PlaceCaret(static_cast<int>(caret), false);
    }

    // Text1 with "|" for the caret.
    static std::string Shown() {
        std::string text = keystrokeBox.text;
        return text.insert(static_cast<std::size_t>(keystrokeBox.SelStart), "|");
    }

    static const std::string& RowText(std::size_t row = 0) { return editState.KeyRows[row].Text; }

    static void Press(int key) {
        Text1KEYDOWN(key, false);
        Text1KEyUP(key, false);
    }

    static inline KeystrokeViewStandIn& view = keystrokeViewStandIn;
};
