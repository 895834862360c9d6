#include "widgets/mnemonics.h"

#include <gmock/gmock.h>

TEST(Mnemonics, EachLetterIsGivenOnce) {
    const std::pair<const char*, const char*> cases[] = {
        // one form, in this order
        {"&Save", "&Save"},                               // its own letter
        {"Start", "S&tart"},                              // S is taken
        {"&Stop", "St&op"},                               // its own is taken: the mark moves
        {"Ersetzen und Suchen", "&Ersetzen und Suchen"},  // a word's first letter
        {"Es", "Es"},                                     // none is left
        {"Run && hide", "&Run && hide"},                  // an ampersand is no mark
        {"\xD6"
         "ffnen mit",
         "\xD6"
         "ffnen &mit"},  // letters that need a key of their own are passed over
        {"C:", "&C:"},
        {"", ""},
        {"100 %&", "100 %&"},  // marks nothing
    };
    Mnemonics form;
    for (const auto& [caption, marked] : cases) EXPECT_EQ(form.Mark(caption), marked) << caption;
}

TEST(Mnemonics, TheOneWithTheFewestLettersChoosesFirst) {
    Mnemonics form;
    std::vector<MnemonicCaption> captions = {
        {1, "Assign a letter to it"}, {2, "A"}, {3, "Low", 1}, {4, "ALT", 2}, {5, "&Later on"}};
    MarkAll(captions, form);
    std::vector<std::string> texts;
    for (const MnemonicCaption& caption : captions) texts.push_back(caption.text);
    EXPECT_THAT(texts, testing::ElementsAre("Assign a letter to &it", "&A", "L&ow", "AL&T", "&Later on"));
}

TEST(Mnemonics, NamesKeepTheirAmpersands) {
    EXPECT_EQ(Unmarked("R&D && more"), "R&&D &&&& more");
    EXPECT_EQ(Unmarked("plain"), "plain");
}
