#include "win32/open_box.h"

#include "platform/boxes.h"

namespace platform {
namespace {

BoxWatch boxWatch;

}  // namespace

OpenBox::OpenBox(HWND owner) {
    if (boxWatch.opens != nullptr) boxWatch.opens(FromHwnd(owner));
}

OpenBox::~OpenBox() {
    if (boxWatch.closed != nullptr) boxWatch.closed();
}

void WatchBoxes(const BoxWatch& watch) {
    boxWatch = watch;
}

}  // namespace platform
