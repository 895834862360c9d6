// What a form says of one of its controls: its text, its letter, what it shows and takes back, when it can be used, how
// it moves when the form is resized. A form is a table of these (toolkit/form.h), over the dialog template that says
// where they stand.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "dictionary/dictionary.h"
#include "widgets/mnemonics.h"

// A text in the present language: a key of the dictionary, worded on its own or as a label, a question, ...
// (dictionary/sentences.h), or whatever a function returns.
class FormText {
public:
    using Wording = std::string (*)(const std::string& key);

    FormText() = default;
    FormText(const char* key, Wording wording = Translate) : say([=] { return wording(key); }) {}
    template <class Function>
    requires std::is_invocable_r_v<std::string, Function> FormText(Function function) : say(std::move(function)) {}

    explicit operator bool() const { return static_cast<bool>(say); }
    std::string operator()() const { return say ? say() : std::string(); }

private:
    std::function<std::string()> say;
};

// How a control and a value of the form's model go together. `control` is the window.
struct Member {
    std::function<void(HWND control)> show = nullptr;
    std::function<void(HWND control)> take = nullptr;   // the user has changed it: a click, a key typed, a slider moved
    std::function<void(HWND control)> leave = nullptr;  // of a text box: the focus goes
};

// Check boxes, option buttons. `changed` gets the new state and is to put it into the model; without it the form does.
Member Tick(bool& value, std::function<void(bool)> changed = nullptr);
Member Tick(std::int32_t& option);  // 0 or 1, as in the settings
Member Tick(std::function<bool()> ticked, std::function<void(bool)> changed);

// One of several option buttons, of which the user chooses one.
Member Option(const std::function<bool()>& chosen, std::function<void()> choose);

// A text that the user cannot change.
Member Shown(FormText text);

// A text box; what is typed is taken as it is typed.
Member Typed(std::string& value, std::function<void(const std::string&)> changed = nullptr);

// Shows a text in a box. What is typed by the user keeps its caret when it stays as it was.
void ShowTyped(HWND box, const std::string& text);

// A slider; a list to choose from, by the place in it.
Member Slider(std::int32_t& value, std::function<void(std::int32_t)> changed);
Member Choice(int& place, std::function<void()> changed = nullptr);

// The edges of the form with which a control keeps its distance. With two opposite ones it grows.
enum Anchor : unsigned { AnchorLeft = 1, AnchorTop = 2, AnchorRight = 4, AnchorBottom = 8 };
inline constexpr unsigned AtTopLeft = AnchorLeft | AnchorTop;
inline constexpr unsigned AtTopRight = AnchorTop | AnchorRight;
inline constexpr unsigned AtBottomLeft = AnchorLeft | AnchorBottom;
inline constexpr unsigned AtBottomRight = AnchorRight | AnchorBottom;
inline constexpr unsigned AcrossTop = AtTopLeft | AnchorRight;
inline constexpr unsigned AcrossBottom = AtBottomLeft | AnchorRight;
inline constexpr unsigned AllEdges = AcrossTop | AnchorBottom;

// Like the form's own font.
struct FontStyle {
    int percent = 100;
    int weight = 0;  // FW_..., 0: the form's own font
    bool smooth = true;
};

struct ControlRow {
    int id = 0;
    FormText caption = {};                   // put in when the language is chosen; `member` may show another later
    char letter = 0;                         // that the English caption marks; others are given out
    unsigned panels = Mnemonics::AllPanels;  // with which of the form's panels it is seen
    FormText name = {};                      // what screen readers say, for a control without caption or label
    FormText tip = {};                       // an empty text shows none
    Member member = {};
    std::function<bool()> enabled = {};  // always, when there is none
    std::function<void()> clicked = {};  // after the member has taken what the click changed
    unsigned anchors = AtTopLeft;
    FontStyle font = {};
    std::optional<COLORREF> colour = {};  // of a label's text; in high contrast the system's
};

// The rows of a form that has many, part by part.
std::vector<ControlRow> Joined(std::initializer_list<std::vector<ControlRow>> parts);
