#include "toolkit/editor/search_dialogs.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/common_dialogs/message_box.hpp"
#include "toolkit/dialogs/load.hpp"
#include "toolkit/dialogs/records.hpp"
#include "toolkit/dialogs/show.hpp"
#include "toolkit/editor/documents.hpp"
#include "toolkit/editor/editor_bars.hpp"
#include "toolkit/editor/text_area.hpp"
#include "toolkit/editor/wide_text.hpp"
#include "toolkit/menus/menu_record.hpp"
#include "toolkit/windows/window_layout.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <X11/IntrinsicP.h>
#include <Xm/Text.h>

#include <algorithm>
#include <string>
#include <utility>

namespace tesserakit {

namespace {

enum Dialogs : int { FindDialog = 32103, ReplaceDialog = 32104 };
enum Fields : int {
    WantedField = 1002,
    WholeWordField = 1003,
    CaseField = 1004,
    ReplacementField = 1006,
    UpField = 1214,
    DownField = 1215,
};
enum Buttons : int { FindNextButton = 1, CancelButton = 2, ReplaceButton = 1007, AllButton = 1009 };

struct State {
    int owner = -1;        // window slot of the editor that has shown a dialog last
    bool waiting = false;  // for the button of a modal one, which is acted on behind it
};
constinit State state{};

/// The application's dialog stays the current one.
class Selection {
public:
    explicit Selection(int dialog) : former_(wDialog) { wdialogload(dialog); }
    ~Selection() { wDialog = former_; }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

private:
    int former_;
};

// The dialogs

std::wstring text_of(int field) {
    std::string text;
    wdialoggetstring(field, text);
    return wide_text(text);
}

bool is_ticked(int field) {
    int ticked = 0;
    wdialoggetcheckbox(field, ticked);
    return ticked != 0;
}

void read_dialog(int dialog, SearchState& search) {
    const Selection selection(dialog);
    search.wanted = text_of(WantedField);
    search.rules.whole_word = is_ticked(WholeWordField);
    search.rules.match_case = is_ticked(CaseField);
    search.rules.backward = false;
    if (dialog == ReplaceDialog) {
        search.replacement = text_of(ReplacementField);
        return;
    }
    int ordinal = 0;
    wdialoggetradiobutton(UpField, ordinal);
    search.rules.backward = ordinal == 1;
}

void fill_dialog(int dialog, const SearchState& search) {
    wdialogputstring(WantedField, utf8_text(search.wanted));
    wdialogputcheckbox(WholeWordField, search.rules.whole_word ? 1 : 0);
    wdialogputcheckbox(CaseField, search.rules.match_case ? 1 : 0);
    if (dialog == ReplaceDialog)
        wdialogputstring(ReplacementField, utf8_text(search.replacement));
    else
        wdialogputradiobutton(search.rules.backward ? UpField : DownField);
}

void hide_dialog(int dialog) {
    if (const int slot = yyDGslot(dialog); slot >= 0) hide_dialog_record(dialog_slot(slot));
}

/// A word or two that are selected are what the user wants to find.
void take_selected(EditorRecord& editor) {
    const TextSelection selected = selection_of(editor);
    constexpr std::size_t longest = 80;
    if (selected.begin == selected.end || selected.end - selected.begin > longest) return;
    std::wstring text = text_piece(editor, selected.begin, selected.end);
    if (text.find(L'\n') == std::wstring::npos) editor.search.wanted = std::move(text);
}

void act(EditorRecord& editor, int dialog, int button);

/// In the middle of the editor's window, as units of it, and on the screen.
Place place_over(const EditorRecord& editor, const DialogRecord& dialog) {
    const WindowSlot& slot = window_slot(editor.window);
    int left = 0;
    int top = 0;
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, slot.client, yydisplay.root, 0, 0, &left, &top,
                          &child);
    const auto units = [](int origin, int room, int extent, int screen) {
        const int middle = origin + (room - extent) / 2;
        const int place = std::clamp(middle, 0, std::max(screen - extent, 0));
        const int result = units_from_pixels(place - origin, room);
        return result == dialog_centred ? 0 : result;
    };
    return {units(left, slot.width, dialog.width, yydisplay.width),
            units(top, slot.height, dialog.height, yydisplay.height)};
}

/// Units of a dialog's place count in the current window, which the application chooses.
class CurrentWindow {
public:
    explicit CurrentWindow(int window) : former_(std::exchange(wCurrentWindow, window)) {}
    ~CurrentWindow() { wCurrentWindow = former_; }
    CurrentWindow(const CurrentWindow&) = delete;
    CurrentWindow& operator=(const CurrentWindow&) = delete;

private:
    int former_;
};

void show_modeless(EditorRecord& editor, DialogRecord& record) {
    const CurrentWindow current(editor.window);
    const Place place = place_over(editor, record);
    map_dialog(record, place.x, place.y, WantedField, DialogModeless);
}

/// Beside a modal or semi-modal editor nothing modeless takes input: there the dialog is modal and
/// goes with each button; Replace comes again.
void run_dialog(EditorRecord& editor, DialogRecord& record, int dialog) {
    int button = CancelButton;
    do {
        state.waiting = true;
        run_modal(record, dialog_centred, dialog_centred, WantedField);
        state.waiting = false;
        button = record.posting.exit_button;
        act(editor, dialog, button);
    } while (dialog == ReplaceDialog && button != CancelButton);
}

void show_dialog(EditorRecord& editor, int dialog) {
    for (const int each : {int{FindDialog}, int{ReplaceDialog}})
        if (each != dialog || state.owner != editor.window) hide_dialog(each);
    state.owner = editor.window;
    take_selected(editor);
    const Selection selection(dialog);
    const int slot = yyDGslot(dialog);
    if (slot < 0) return;
    DialogRecord& record = dialog_slot(slot);
    fill_dialog(dialog, editor.search);
    const Widget former = open_dialogs_from(window_slot(editor.window).shell_widget);
    if (editor.mode == DialogModeless) {
        show_modeless(editor, record);
    } else {
        run_dialog(editor, record, dialog);
    }
    open_dialogs_from(former);
}

// The search

/// The match that the last search has left the caret behind, or what is selected. A text field that
/// takes the selection of the display, of the dialog itself too, leaves nothing selected here.
TextSelection search_place(const EditorRecord& editor) {
    const TextSelection selected = selection_of(editor);
    const auto& found = editor.search.found;
    if (selected.begin == selected.end && found && found->end == selected.end)
        return {found->begin, found->end};
    return selected;
}

/// A search goes on behind the last match, or before it.
std::optional<TextMatch> next_match(const EditorRecord& editor) {
    const TextSelection place = search_place(editor);
    const SearchState& search = editor.search;
    return find_text(text_piece(editor, 0, text_length(editor)), search.wanted,
                     search.rules.backward ? place.begin : place.end, search.rules);
}

// What is told hangs on the dialog from which it was asked for.

void tell_end(const EditorRecord& editor) {
    yymessagebox2(MessageOk, MessageInformation, 1, "End of text reached",
                  "Find " + utf8_text(editor.search.wanted));
}

void tell_too_long(const EditorRecord& editor) {
    const FileTrouble trouble = too_large(std::string(name_of(editor.document)));
    yymessagebox2(MessageOk, MessageWarning, 1, trouble.text, trouble.title);
}

struct Span {
    int top = 0;
    int bottom = 0;
};

/// What a dialog covers of the text widget, from its upper edge in pixels.
Span covered(const EditorRecord& editor, int dialog) {
    const int slot = yyDGslot(dialog);
    if (slot < 0 || !dialog_slot(slot).shown()) return {};
    const DialogRecord& record = dialog_slot(slot);
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(yydisplay.display, XtWindow(record.shell), XtWindow(editor.text), 0, 0,
                          &x, &y, &child);
    constexpr int title_bar = 40;
    return {y - title_bar, y + record.height};
}

/// Brings a match into sight: above or below the dialog, where that lies over the text.
void bring_into_sight(EditorRecord& editor, const TextMatch& match) {
    const auto begin = static_cast<XmTextPosition>(match.begin);
    XmTextShowPosition(editor.text, static_cast<XmTextPosition>(match.end));
    XmTextShowPosition(editor.text, begin);
    for (const int dialog : {int{FindDialog}, int{ReplaceDialog}}) {
        Position x = 0;
        Position y = 0;
        const Span span = covered(editor, dialog);
        if (!XmTextPosToXY(editor.text, begin, &x, &y) || y < span.top || y >= span.bottom)
            continue;
        const TextFont& font = editor.font.table ? editor.font : wFonts.fixed;
        const int row = std::max(font.height(), 1);
        // The top of the widget, unless the dialog covers that too.
        const int lines =
            span.top > row ? (y - span.top) / row + 2 : -((span.bottom - y) / row + 1);
        XmTextScroll(editor.text, lines);
    }
}

void yyEditSelectMatch(EditorRecord& editor, const TextMatch& match) {
    editor.search.found = match;
    select_piece(editor, {match.begin, match.end});
    bring_into_sight(editor, match);
}

/// A piece is a match, as the rules say: found from its own begin.
bool is_match(const EditorRecord& editor, const TextSelection& piece) {
    if (piece.begin == piece.end) return false;
    SearchRules rules = editor.search.rules;
    rules.backward = false;
    // One character on either side tells whether it is a whole word.
    const std::size_t before = piece.begin > 0 ? 1 : 0;
    const std::size_t behind = std::min(piece.end + 1, text_length(editor));
    const std::wstring around = text_piece(editor, piece.begin - before, behind);
    const auto match = find_text(around, editor.search.wanted, before, rules);
    return match && match->begin == before && match->end == before + piece.end - piece.begin;
}

void replace_one(EditorRecord& editor) {
    const TextSelection place = search_place(editor);
    if (is_match(editor, place)) {
        replace_piece(editor, place.begin, place.end, editor.search.replacement);
        const std::size_t end = place.begin + editor.search.replacement.size();
        editor.search.found.reset();
        select_piece(editor, {end, end});
    }
    yyEditFindNext(editor);
}

void replace_every(EditorRecord& editor) {
    const std::size_t length = text_length(editor);
    const std::wstring text = editor.document.marks.with_marks(0, text_piece(editor, 0, length));
    const SearchState& search = editor.search;
    const ReplacedText replaced =
        replace_all(text, search.wanted, search.replacement, search.rules);
    if (replaced.too_long) return tell_too_long(editor);
    if (replaced.count == 0) return tell_end(editor);
    const std::size_t caret = caret_of(editor);
    const std::size_t top = top_of(editor);
    replace_piece(editor, 0, length, replaced.text);
    const std::size_t place = std::min(caret, text_length(editor));
    select_piece(editor, {place, place});
    set_top(editor, std::min(top, text_length(editor)));
    show_note(editor, std::to_string(replaced.count) + " replaced");
}

void act(EditorRecord& editor, int dialog, int button) {
    if (button == CancelButton) return hide_dialog(dialog);
    if (button != FindNextButton && button != ReplaceButton && button != AllButton) return;
    read_dialog(dialog, editor.search);
    if (editor.search.wanted.empty()) return;
    if (button == FindNextButton) {
        yyEditFindNext(editor);
    } else if (button == ReplaceButton) {
        replace_one(editor);
    } else {
        replace_every(editor);
    }
}

}  // namespace

void show_find(EditorRecord& editor) { show_dialog(editor, FindDialog); }

void show_replace(EditorRecord& editor) { show_dialog(editor, ReplaceDialog); }

void yyEditFindNext(EditorRecord& editor) {
    if (editor.search.wanted.empty()) return show_find(editor);
    if (const auto match = next_match(editor))
        yyEditSelectMatch(editor, *match);
    else
        tell_end(editor);
}

bool search_message(const Mail& mail) {
    const bool of_dialog = mail.win == FindDialog || mail.win == ReplaceDialog;
    // Opened by no editor, such a dialog is the application's like any other.
    if (state.owner < 0 || !of_dialog) return false;
    if (mail.type != PushButton && mail.type != FieldChanged) return false;
    EditorRecord* editor = editor_of(state.owner);
    if (mail.type == PushButton && editor && !state.waiting) act(*editor, mail.win, mail.value1);
    return true;
}

void hide_search_dialogs(const EditorRecord& editor) {
    if (state.owner != editor.window) return;
    for (const int dialog : {int{FindDialog}, int{ReplaceDialog}}) hide_dialog(dialog);
    state.owner = -1;
}

}  // namespace tesserakit
