// gtest doesn't compile behind X.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "toolkit/editor/menu_tables.hpp"

#include <array>
#include <set>
#include <string>

using namespace tesserakit;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

constexpr int browse = editor_flag::browse;
constexpr int application = 256;  // what the application passes

std::vector<int> below(const MenuRecord& menu, int identifier) {
    std::vector<int> found;
    for (const int row : menu.rows_of(menu.popup_below(menu.row_of(identifier))))
        found.push_back(menu.item(row).identifier);
    return found;
}

std::vector<int> items_of(const MenuRecord& menu) {
    std::vector<int> found;
    for (const int row : menu.rows_of(0)) found.push_back(menu.item(row).identifier);
    return found;
}

}  // namespace

TEST(EditorMenu, HasTheItemsThatItsFlagsLeave) {
    const auto all = editor_menu(0, {});
    EXPECT_THAT(items_of(*all), ElementsAre(32100, 32120, 32140, 32180));
    EXPECT_THAT(below(*all, 32100),
                ElementsAre(32101, 32102, 32107, 0, 32103, 32104, 0, 32105, 32106, 0, 32108));
    EXPECT_THAT(below(*all, 32120), ElementsAre(32122, 32123, 32124, 32125, 0, 32126));
    EXPECT_THAT(below(*all, 32140), ElementsAre(32141, 32142, 0, 32143, 0, 32147, 32148));
    EXPECT_THAT(below(*all, 32180), ElementsAre(32181));

    struct Case {
        int flags;
        std::vector<int> file;
        std::string_view exit_prompt;
    };
    constexpr std::string_view asks = "Closes the editor; prompts you to save changes";
    const std::array cases{
        Case{application, {32107, 0, 32103, 32104, 0, 32105, 32106, 0, 32108}, asks},
        Case{512, {32101, 32102, 32107, 0, 32103, 0, 32105, 32106, 0, 32108}, asks},
        Case{1024, {32101, 32102, 32107, 0, 32103, 32104, 0, 32108}, asks},
        Case{8192 + 1024 + 256, {32107, 0, 32104, 0, 32108}, asks},
        Case{8192 + 1024 + 512 + 256, {32107, 0, 32108}, "Closes the editor"},
        Case{browse, {32107, 0, 32105, 32106, 0, 32108}, "Closes the browser;"},
        Case{2 + 16384, below(*all, 32100), asks},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.flags);
        const auto menu = editor_menu(one.flags, {});
        EXPECT_THAT(below(*menu, 32100), ElementsAreArray(one.file));
        EXPECT_EQ(menu->prompt_of(32108), one.exit_prompt);
    }
    const auto browser = editor_menu(browse, {});
    EXPECT_THAT(below(*browser, 32120), ElementsAre(32123, 0, 32126));
    EXPECT_THAT(below(*browser, 32140), ElementsAre(32141, 32142, 0, 32147, 32148));
    EXPECT_EQ(accelerator_item(*browser, 'x', AcceleratorControl), 0);
}

TEST(EditorMenu, EachItemHasAPromptAMnemonicOfItsOwnAndTheKeyOfItsLabel) {
    const auto menu = editor_menu(0, {});
    for (int popup = 0; popup < menu->popup_count(); ++popup) {
        std::set<char> mnemonics;
        for (const int row : menu->rows_of(popup)) {
            const MenuItem& item = menu->item(row);
            if (item.is_separator()) continue;
            SCOPED_TRACE(item.label);
            const char key = yymnitemtextinfo(item.label).key;
            EXPECT_TRUE(key != '\0' && mnemonics.insert(key).second);
            EXPECT_EQ(menu->prompt_of(item.identifier).empty(), item.has_popup());
        }
    }
    struct Key {
        unsigned long keysym;
        int modifiers;
        int item;
        const char* shown;
    };
    const std::array keys{
        Key{'n', 4, 32101, "Ctrl+N"},
        Key{'o', 4, 32102, "Ctrl+O"},
        Key{'s', 4, 32103, "Ctrl+S"},
        Key{0xffc9, 0, 32104, "F12"},
        Key{'a', 4, 0, ""},
        Key{'f', 4, 32141, "Ctrl+F"},
        Key{0xffc0, 0, 32142, "F3"},
        Key{'h', 4, 32143, "Ctrl+H"},
        Key{0xffbf, 1, 32147, "Shift+F2"},
        Key{'v', 4, 32124, "Ctrl+V"},
        Key{0xffff, 0, 0, ""},
        Key{'p', 4, 0, ""},
    };
    for (const Key& key : keys) {
        EXPECT_EQ(accelerator_item(*menu, key.keysym, key.modifiers), key.item) << key.shown;
        if (key.item == 0) continue;
        EXPECT_EQ(yymnitemtextinfo(menu->item(menu->row_of(key.item)).label).right, key.shown);
    }
    // What is greyed has no key: it goes on to the text.
    for (const int identifier : {32122, 32123, 32125, 32126, 32148}) {
        MenuItem& item = menu->item(menu->row_of(identifier));
        EXPECT_TRUE(item.is_greyed()) << identifier;
        item.flags = 0;
    }
    EXPECT_EQ(accelerator_item(*menu, 0xff9f, 0), 32125) << "Delete of the keypad";
    EXPECT_EQ(accelerator_item(*menu, 0xffbf, 0), 32148) << "F2";
}

TEST(EditorMenu, ViewNamesTheTextsByTheirSlots) {
    const std::array entries{ViewEntry{.slot = 0, .name = "/home/a&b/na\tcl.gwr"},
                             ViewEntry{.slot = 2, .current = true}};
    const auto menu = editor_menu(0, entries);
    ASSERT_THAT(below(*menu, 32180), ElementsAre(32181, 32183));
    const MenuItem& first = menu->item(menu->row_of(32181));
    const MenuItem& third = menu->item(menu->row_of(32183));
    EXPECT_EQ(yymnitemtextinfo(first.label).right, "na cl.gwr");
    EXPECT_EQ(yymnitemtextinfo(third.label).left, "3");
    EXPECT_EQ(yymnitemtextinfo(third.label).right, "Untitled");
    EXPECT_EQ(first.state, 0);
    EXPECT_EQ(third.state, 1);
}

TEST(EditorMenu, PopUpAndToolbarFollowTheFlags) {
    EXPECT_THAT(items_of(*editor_popup(0)),
                ElementsAre(32122, 32123, 32124, 32125, 45001, 45002, 45003, 45011, 45012, 45013,
                            45014, 45021, 45022, 45023, 32126));
    EXPECT_THAT(items_of(*editor_popup(browse)), ElementsAre(32123, 32126));

    const auto greyed_buttons = [](int flags) {
        std::vector<int> greyed;
        for (const DynamicToolbarRow& row : editor_toolbar(flags))
            if (row.greyed) greyed.push_back(row.identifier);
        return greyed;
    };
    std::vector<int> buttons;
    for (const DynamicToolbarRow& row : editor_toolbar(0)) buttons.push_back(row.identifier);
    EXPECT_THAT(buttons,
                ElementsAre(32101, 32102, 32103, 0, 32105, 0, 32141, 0, 32122, 32123, 32124));
    EXPECT_THAT(greyed_buttons(0), ElementsAre(32105, 32122, 32123));
    EXPECT_THAT(greyed_buttons(application), ElementsAre(32101, 32102, 32105, 32122, 32123));
    EXPECT_THAT(greyed_buttons(browse),
                ElementsAre(32101, 32102, 32103, 32105, 32122, 32123, 32124));
}

TEST(EditorMenu, StateGreysWhatHasNothingToActOn) {
    const EditorState full{.selection = true, .text = true, .bookmark = true};
    for (const int identifier : editor_state_items()) {
        EXPECT_TRUE(editor_item_greyed(identifier, 0, {})) << identifier;
        EXPECT_FALSE(editor_item_greyed(identifier, 0, full)) << identifier;
    }
    EXPECT_TRUE(editor_item_greyed(32122, browse, full)) << "Cut in a browser";
    EXPECT_FALSE(editor_item_greyed(32123, browse, full)) << "Copy in a browser";
    EXPECT_TRUE(editor_item_greyed(32105, 0, full)) << "Print";
    EXPECT_FALSE(editor_item_greyed(40001, browse, {})) << "an item of the application";
}
