#include "shell/options.h"

#include <string>

#include "base/product.h"
#include "dictionary/dictionary.h"
#include "library/job_library.h"
#include "mainwindow/job_page.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "settings/folders.h"
#include "shell/data_folder.h"
#include "shell/shell_view.h"

namespace {

constexpr int NormalWindow = 1;

void TellRefused(const std::string& text) {
    platform::ShowBox(text, Translate("Access denied"), platform::BoxIcon::Error);
}

std::string SelectedJob() {
    const int row = jobLibrary.lista_jobs.listindex();
    return row < 0 ? std::string() : job_library::JobPathOfRow(row);
}

}  // namespace

void StartWithWindows(bool starts) {
    if (starts) {
        if (!platform::WriteRegistry(job_library::RunKey, ProductName, job_library::StartWithWindowsCommand())) {
            TellRefused(Translate("Error writing to registry"));
        }
    } else if (!platform::DeleteRegistryValue(job_library::RunKey, ProductName)) {
        TellRefused(Translate("You do not have privillegies to modify startup section in the registry"));
    }
}

// In quotes: a comma would end the path for the explorer. It opens some other folder when this one is not there.
void OpenDataFolder() {
    const bool opened = platform::FolderExists(folders.DataFolder) &&
                        platform::StartProgram("explorer.exe \"" + folders.DataFolder + "\"", NormalWindow);
    if (opened) return;
    platform::ShowBox(Translate1("The folder '%1' cannot be opened.", folders.DataFolder),
                      Translate("File access error"), platform::BoxIcon::Error);
}

void ChangeFolder() {
    if (PitajSpremitiPromjene()) ChangeDataFolder();
}

int LanguagePlace() {
    return GetLanguage() - 1;
}

void ChooseLanguage(int place) {
    if (place == LanguagePlace() || !PitajSpremitiPromjene()) return;
    SetLanguage(place + 1);
    const std::string selected = SelectedJob();
    job_library::FillJobList();
    if (!selected.empty()) job_library::SelectJob(selected);
    shell_view::PodesiRjecnik();
}
