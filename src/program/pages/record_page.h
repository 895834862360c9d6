// The page of the main window from which a recording is started, with the options of recordings. A change of an option
// is saved at once. The record button pumps for as long as the dialogs before a recording are open.
#pragma once

#include "controls/number_picker.h"
#include "pages/page.h"
#include "pages/record_page_ids.h"

class RecordPage : public Page {
public:
    RecordPage() : Page(record_page_dialog) {}

    void ShowOptions();        // the options, as the settings have them
    void CopyOptions() const;  // countdown_period, back into the settings; the rest is there already

    std::string TabCaption() const override;
    std::string HelpTopic() const override { return help_topic::Record; }
    void StaviFocus() const override;
    void OnEnter() override;
    void PodesiRjecnik() override;

private:
    std::vector<ControlRow> Rows() override;
    void OnInit() override;
    void OnLooks() override;
    void OnChanged(int id) override;

    NumberPicker countdown_period{1, 10};
    bool optionsShown = false;
};

extern RecordPage recordPage;
