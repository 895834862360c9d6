// Texts that the code composes, by the rules of the present language: labels, questions, numbers, the names of keys.
// Whoever shows a text uses these and adds no punctuation of its own, for a colon is not the same in all languages:
// French sets a no-break space before ":", "?" and "!", Spanish opens a question and an exclamation, and the decimal
// mark is a comma outside of English. The keys are those of the dictionary, worded without any of that. Nothing here
// fails or pumps.
#pragma once

#include <cstdint>
#include <string>

// The text for a key, as it stands on its own. All have the shape of Translate, so that the row of a form's table can
// name the one that its caption wants.
std::string Label(const std::string& key);        // "Status:"
std::string Question(const std::string& key);     // "Overwrite?"
std::string Exclamation(const std::string& key);  // "Job completed successfully!"
std::string Ellipsis(const std::string& key);     // "Please wait..."

// The same for a text that is translated already.
std::string LabelOf(const std::string& text);
std::string QuestionOf(const std::string& text);
std::string ExclamationOf(const std::string& text);

// The label, a blank and `value`: "Old location: C:\Jobs".
std::string Labelled(const std::string& key, const std::string& value);

// `value` divided by 10 to the power of `places`, with all of its places: 123 with one place is "12.3", 120 is "12.0".
std::string DecimalNumber(std::int64_t value, int places);

// The same without needless zeros: 303 with two places is "3.03", 150 is "1.5", 200 is "2".
std::string ShortDecimalNumber(std::int64_t value, int places);

struct ModifierKeys {
    bool ctrl = false;
    bool shift = false;
    bool alt = false;
};

// "Ctrl+Shift+N", with the names that the keyboards of the language's country have.
std::string KeyCombination(const ModifierKeys& modifiers, char letter);

// "Pause/Break", the key that ends a recording.
std::string PauseBreakKey();
