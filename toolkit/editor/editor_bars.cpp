#include "toolkit/editor/editor_bars.hpp"

#include "toolkit/menus/interaction.hpp"
#include "toolkit/menus/menu_windows.hpp"
#include "toolkit/menus/menus.hpp"
#include "toolkit/menus/toolbars.hpp"
#include "toolkit/resource/yyrc.hpp"
#include "toolkit/windows/window_placing.hpp"
#include "toolkit/windows/window_slots.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/Text.h>

#include <cstdio>
#include <utility>
#include <vector>

namespace tesserakit {

namespace {

enum Part : int { NotePart = 1, OverwritePart = 2, PlacePart = 3 };

constexpr std::string_view untitled = "Untitled";

StatusBar& status_bar(const EditorRecord& editor) { return *window_slot(editor.window).status_bar; }

std::string place_text(const TextPlace& place) {
    return "Line: " + std::to_string(place.line) + "  Col: " + std::to_string(place.column);
}

void create_status_bar(const EditorRecord& editor) {
    WindowSlot& slot = window_slot(editor.window);
    if (!slot.status_bar) slot.status_bar = yystatusbarcreate(slot.window_widget, slot.width);
    constexpr int around_text = 16;
    constexpr TextPlace widest{9999999, 99999};
    yysetstatusbar2(*slot.status_bar,
                    {rest_of_width, text_width(wFonts.status, "OVR") + around_text,
                     text_width(wFonts.status, place_text(widest)) + around_text});
}

void create_toolbar(const EditorRecord& editor) {
    const std::vector<DynamicToolbarRow> rows = editor_toolbar(editor.flags);
    yymnloaddynamictoolbar(TopSide, editor_toolbar_strip, editor_toolbar_picture,
                           editor_toolbar_picture, rows, editor.window);
}

std::vector<ViewEntry> view_entries(const EditorRecord& editor) {
    std::vector<ViewEntry> entries;
    for (const int slot : editor.buffers.taken())
        entries.push_back(
            {.slot = slot, .name = editor.buffers.at(slot)->name, .current = slot == editor.slot});
    return entries;
}

EditorState state_of(const EditorRecord& editor) {
    XmTextPosition begin = 0;
    XmTextPosition end = 0;
    return {.selection = XmTextGetSelectionPosition(editor.text, &begin, &end) != False &&
                         begin<end, .text = editor.lines.length()> 0,
            .bookmark = editor.document.bookmark.has_value()};
}

bool same(const EditorState& a, const EditorState& b) {
    return a.selection == b.selection && a.text == b.text && a.bookmark == b.bookmark;
}

}  // namespace

void create_editor_bars(EditorRecord& editor) {
    create_status_bar(editor);
    renew_editor_menu(editor);
    create_toolbar(editor);
    yywindowreplace(editor.window);
    show_overwrite(editor);
}

void renew_editor_menu(EditorRecord& editor) {
    std::unique_ptr<MenuRecord> menu = editor_menu(editor.flags, view_entries(editor));
    if (editor.user_menu) {
        yymnMergeMenus(*menu, *editor.user_menu);
        yymnMergeAccel(*menu, *editor.user_menu);
        yymnMergeHelp(*menu, *editor.user_menu);
    }
    yymenuchange(std::move(menu), editor.window);
    yywindowreplace(editor.window);
    editor.shown_state.reset();
    show_state(editor);
}

std::string_view name_of(const TextBuffer& document) {
    return document.name.empty() ? untitled : std::string_view(document.name);
}

void show_document_name(const EditorRecord& editor) {
    std::string title = editor.title;
    title.append(" - [").append(name_of(editor.document)).append("]");
    yywindowtitle(editor.window, title);
}

void show_place(EditorRecord& editor, std::size_t caret) {
    const TextPlace place = editor.lines.place_of(caret);
    if (editor.shown_place == place) return;
    editor.shown_place = place;
    yysetstatustext2(status_bar(editor), PlacePart, place_text(place));
}

void show_overwrite(const EditorRecord& editor) {
    yysetstatustext2(status_bar(editor), OverwritePart, editor.overwrite ? "OVR" : "INS");
}

void show_note(const EditorRecord& editor, std::string_view note) {
    yysetstatustext2(status_bar(editor), NotePart, note);
}

void show_state(EditorRecord& editor) {
    const EditorState state = state_of(editor);
    if (editor.shown_state && same(*editor.shown_state, state)) return;
    editor.shown_state = state;
    const MenuRecord& menu = menu_of(editor.window)->record;
    for (const int item : editor_state_items())
        if (menu.row_of(item) >= 0)
            yymngrey(item, editor_item_greyed(item, editor.flags, state) ? 1 : 0, editor.window);
}

void pop_up_menu(EditorRecord& editor, int x, int y) {
    std::unique_ptr<MenuRecord> menu = editor_popup(editor.flags);
    const EditorState state = state_of(editor);
    for (MenuItem& item : menu->items) {
        item.flags &= ~int{menu_flag::disabled};
        if (editor_item_greyed(item.identifier, editor.flags, state))
            item.flags |= menu_flag::disabled;
    }
    yymnflot(std::move(menu), x, y, editor.window);
}

}  // namespace tesserakit
