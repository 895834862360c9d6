#include "widgets/list_model.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "base/runtime_failure.h"
#include "platform/text.h"

namespace {

constexpr int WheelNotch = 120;

enum ListKey { PageUp = 33, PageDown, End, Home, ArrowLeft, ArrowUp, ArrowRight, ArrowDown };

template <class... Arguments>
void Raise(const std::function<void(Arguments...)>& event, const std::type_identity_t<Arguments>&... arguments) {
    if (event) event(arguments...);
}

bool Contains(const platform::Rect& rect, platform::Point point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

}  // namespace

// --- rows ---

const ListRow& ListModel::Row(int index) const {
    return CheckedAt(rows, index, "List row");
}

ListRow& ListModel::RowToChange(int index) {
    return CheckedAt(rows, index, "List row");
}

void ListModel::AddItem(std::string big, int icon, std::string small) {
    rows.push_back({std::move(big), std::move(small), icon, {}, {}});
    Changed();
}

void ListModel::RemoveItem(int index) {
    RowToChange(index);
    rows.erase(rows.begin() + index);
    if (selected >= ListCount()) selected = -1;
    scroll = std::min(scroll, ScrollMaximum());
    Changed();
}

void ListModel::Clear() {
    rows.clear();
    selected = -1;
    scroll = 0;
    pressed = {};
    Changed();
}

void ListModel::SetBigText(int index, const std::string& text) {
    RowToChange(index).Text = text;
    Changed();
}

void ListModel::SetSmallText(int index, const std::string& text) {
    RowToChange(index).Text2 = text;
    Changed();
}

void ListModel::SetMaliGumb1Text(int index, const std::string& text) {
    RowToChange(index).gumb = text;
    Changed();
}

void ListModel::SetIcon(int index, int icon) {
    RowToChange(index).ikona = icon;
    Changed();
}

void ListModel::SetMark(int index, const std::string& text) {
    RowToChange(index).mark = text;
    Changed();
}

// --- selection ---

void ListModel::SelectItem(int index) {
    if (index < 0 || index >= ListCount()) throw RuntimeFailure(FailureKind::Range, "Out Of Bounds!");
    ScrollIn(index);
    setlistindex(index);
}

void ListModel::setlistindex(int index) {
    if (index != -1) RowToChange(index);
    selected = index;
    Changed();
    Raise(events.Click, index);
}

RowLook ListModel::LookOf(int index) const {
    if (index != selected) return {White, Black, false, false};
    return {SelectedBack, White, SmallButton1Visible, SmallButton2Visible};
}

// --- scrolling ---

void ListModel::Measure(const ListMeasures& newMeasures) {
    measures = newMeasures;
    scroll = std::min(scroll, ScrollMaximum());
    Changed();
}

// A part that is lower than a row shows one all the same.
int ListModel::VisibleRows() const {
    return std::max(1, measures.visible.height / std::max(1, measures.ItemHeight));
}

int ListModel::ScrollMaximum() const {
    return std::max(0, ListCount() - VisibleRows());
}

void ListModel::ScrollTo(int row) {
    const int before = scroll;
    scroll = std::clamp(row, 0, ScrollMaximum());
    if (scroll != before) Changed();
}

void ListModel::Wheel(int delta) {
    wheelRest += delta;
    const int notches = wheelRest / WheelNotch;
    wheelRest -= notches * WheelNotch;
    ScrollTo(scroll - notches);
}

bool ListModel::on_screen(int index) const {
    const platform::Rect rect = RowRect(index);
    return rect.top >= 0 && rect.bottom <= measures.visible.height;
}

void ListModel::ScrollIn(int index) {
    if (on_screen(index)) return;
    ScrollTo(index < scroll ? index : index - VisibleRows() + 1);
}

// --- places ---

platform::Rect ListModel::RowRect(int index) const {
    const int top = (index - scroll) * measures.ItemHeight;
    return {0, top, measures.visible.width, top + measures.ItemHeight};
}

platform::Rect ListModel::IconRect(int index) const {
    const int top = RowRect(index).top + (measures.ItemHeight - measures.ImageSize) / 2;
    return {measures.margin, top, measures.margin + measures.ImageSize, top + measures.ImageSize};
}

// From the right: gumb1, then gumb; gumb takes the place of a gumb1 that is not wanted.
platform::Rect ListModel::ButtonRect(int index, ListPart button) const {
    const int fromRight = button == ListPart::gumb && SmallButton2Visible ? 1 : 0;
    const int right =
        measures.visible.width - measures.margin - fromRight * (measures.smallButton.width + measures.margin);
    const int top = RowRect(index).top + (measures.ItemHeight - measures.smallButton.height) / 2;
    return {right - measures.smallButton.width, top, right, top + measures.smallButton.height};
}

// A square, left of the small buttons that the row shows.
platform::Rect ListModel::MarkRect(int index) const {
    const RowLook look = LookOf(index);
    const int buttons = (look.gumb ? 1 : 0) + (look.gumb1 ? 1 : 0);
    const int size = measures.smallButton.height;
    const int right =
        measures.visible.width - measures.margin - buttons * (measures.smallButton.width + measures.margin);
    const int top = RowRect(index).top + (measures.ItemHeight - size) / 2;
    return {right - size, top, right, top + size};
}

bool ListModel::ButtonShown(int index, ListPart button) const {
    const RowLook look = LookOf(index);
    return button == ListPart::gumb ? look.gumb : look.gumb1;
}

ListHit ListModel::HitTest(platform::Point point) const {
    if (!Contains({0, 0, measures.visible.width, measures.visible.height}, point)) return {};
    const int index = scroll + point.y / std::max(1, measures.ItemHeight);
    if (index >= ListCount()) return {};
    for (const ListPart button : {ListPart::gumb, ListPart::gumb1}) {
        if (ButtonShown(index, button) && Contains(ButtonRect(index, button), point)) return {index, button};
    }
    if (!Row(index).mark.empty() && Contains(MarkRect(index), point)) return {index, ListPart::Mark};
    return {index, ListPart::Row};
}

// --- the mouse ---

void ListModel::PressMouse(ListButton button, platform::Point point) {
    const ListHit hit = HitTest(point);
    pressed = button == ListButton::Left ? hit : ListHit();
    Raise(events.MouseDown, button, hit, point);
}

void ListModel::ReleaseMouse(ListButton button, platform::Point point) {
    const ListHit hit = HitTest(point);
    const bool clicked = button == ListButton::Left && hit.part != ListPart::None && hit == pressed;
    pressed = {};
    Raise(events.MouseUp, button, hit, point);
    if (clicked) Click(hit);
}

void ListModel::MoveMouse(platform::Point point) {
    Raise(events.MouseMove, point);
}

void ListModel::Click(const ListHit& hit) {
    if (skipsClick) {
        skipsClick = false;
        return;
    }
    if (hit.index >= ListCount()) return;  // the handler of the release has changed the list
    if (hit.part == ListPart::gumb) return Raise(events.SmallButton1Click, hit.index);
    if (hit.part == ListPart::gumb1) return Raise(events.SmallButton2Click, hit.index);
    SelectItem(hit.index);  // one that is seen in part is scrolled in
    if (hit.part == ListPart::Mark && hit.index == selected) Raise(events.MarkClick, hit.index);
}

void ListModel::DoubleClick(platform::Point point) {
    const ListHit hit = HitTest(point);
    if (hit.part == ListPart::Row) Raise(events.DblClick, hit.index);
}

// --- the keys ---

void ListModel::NoteKey(std::int64_t now) {
    if (now - typed_time > TypingPauseMs) typed_text.clear();
    typed_time = now;
}

// Where a key leads; the selection itself where it leads nowhere.
int ListModel::Target(int virtualKey) const {
    const int last = ListCount() - 1;
    switch (virtualKey) {
        case ArrowLeft:
        case ArrowUp:
            return selected > 0 ? selected - 1 : selected;
        case ArrowRight:
        case ArrowDown:
            return std::min(selected + 1, last);
        case PageUp:
            return std::min(std::max(selected - VisibleRows(), 0), last);
        case PageDown:
            return std::min(selected + VisibleRows(), last);
        case Home:
            return std::min(0, last);
        default:
            return last;
    }
}

bool ListModel::KeyDown(int virtualKey, std::int64_t now) {
    NoteKey(now);
    if (virtualKey < PageUp || virtualKey > ArrowDown) return false;
    ChooseRow(Target(virtualKey));
    return true;
}

void ListModel::ChooseRow(int index) {
    if (index < 0 || index >= ListCount() || index == selected) return;
    if (events.KeyLeaves && !events.KeyLeaves(index)) return;
    if (index < ListCount()) SelectItem(index);
}

void ListModel::TypeCharacter(char character, std::int64_t now) {
    if (static_cast<unsigned char>(character) < ' ') return;
    NoteKey(now);
    typed_text += platform::UpperCase({&character, 1});
    ChooseRow(FindTyped());
}

bool ListModel::BeginsAsTyped(int index) const {
    const std::string& text = rows[static_cast<std::size_t>(index)].Text;
    return platform::UpperCase(std::string_view(text).substr(0, typed_text.size())) == typed_text;
}

// A first letter leads away from the selected row, further ones may stay on it.
int ListModel::FindTyped() const {
    const int count = ListCount();
    const int start = std::max(0, typed_text.size() == 1 ? selected + 1 : selected);
    for (int i = 0; i < count; ++i) {
        const int index = (start + i) % count;
        if (BeginsAsTyped(index)) return index;
    }
    return -1;
}

void ListModel::Changed() const {
    if (events.Changed) events.Changed();
}
