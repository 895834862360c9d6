#include "mainwindow/form_visible.h"

#include "dictionary/dictionary.h"
#include "mainwindow/form_view.h"

FormVisibility formVisibility;

void FormVisible(bool show, bool keepState) {
    if (formVisibility.visible == show) return;
    formVisibility.visible = show;  // first: setting the state below comes back here through the resize
    WordTrayEntry();
    if (show && !keepState && form_view::IsMinimised()) form_view::BringToNormal();
    form_view::SetVisible(show);
}

bool MainWindowVisible() {
    return formVisibility.visible.value_or(false);
}

void FormResized() {
    const bool minimised = form_view::IsMinimised();
    if (minimised == formVisibility.minimised) return;  // a hidden window that is merely resized stays hidden
    formVisibility.minimised = minimised;
    FormVisible(!minimised, true);
}

void WordTrayEntry() {
    form_view::SetTrayOpenCaption(Translate(MainWindowVisible() ? "&Hide Tessarine" : "&Show Tessarine"));
}
