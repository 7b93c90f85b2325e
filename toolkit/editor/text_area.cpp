#include "toolkit/editor/text_area.hpp"

#include "toolkit/base/colours.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/editor/editor_bars.hpp"
#include "toolkit/windows/window_slots.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/Text.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tesserakit {

namespace {

struct State {
    TextAreaKey key = nullptr;
};
constinit State state{};

std::size_t place(XmTextPosition position) {
    return position > 0 ? static_cast<std::size_t>(position) : 0;
}
XmTextPosition motif_place(std::size_t position) { return static_cast<XmTextPosition>(position); }

Time now() { return XtLastTimestampProcessed(yydisplay.display); }

XtPointer closure_of(const EditorRecord& editor) {
    return reinterpret_cast<XtPointer>(static_cast<std::intptr_t>(editor.window));
}

/// The editor of a text widget; null for one that outlives its window.
EditorRecord* editor_around(Widget text, XtPointer closure) {
    EditorRecord* editor = editor_of(static_cast<int>(reinterpret_cast<std::intptr_t>(closure)));
    return editor && editor->text == text ? editor : nullptr;
}

EditorRecord* editor_around(Widget text) {
    XtPointer closure = nullptr;
    XtVaGetValues(text, XmNuserData, &closure, nullptr);
    return editor_around(text, closure);
}

// Changes

void move_bookmark(EditorRecord& editor, std::size_t begin, std::size_t removed,
                   std::size_t inserted) {
    auto& bookmark = editor.document.bookmark;
    if (!bookmark || *bookmark <= begin) return;
    bookmark = *bookmark >= begin + removed ? *bookmark - removed + inserted : begin;
}

void text_changes(EditorRecord& editor, const XmTextVerifyCallbackStruct& change) {
    if (!change.doit) return;
    const std::size_t begin = place(change.startPos);
    const std::size_t removed = place(change.endPos) - begin;
    const auto bytes = static_cast<std::size_t>(std::max(0, change.text->length));
    const std::string inserted =
        change.text->ptr ? from_locale({change.text->ptr, bytes}) : std::string();
    const std::size_t before = editor.lines.length();
    editor.lines.change(begin, removed, inserted);
    const std::size_t count = editor.lines.length() + removed - before;
    editor.document.marks.change(begin, removed, count);
    move_bookmark(editor, begin, removed, count);
}

void yyEditTextCB(Widget text, XtPointer closure, XtPointer call) {
    EditorRecord* editor = editor_around(text, closure);
    if (!editor) return;
    const auto& change = *static_cast<const XmTextVerifyCallbackStruct*>(call);
    switch (change.reason) {
        case XmCR_MODIFYING_TEXT_VALUE:
            text_changes(*editor, change);
            return;
        case XmCR_VALUE_CHANGED:
            editor->document.modified = true;
            show_place(*editor, caret_of(*editor));
            break;
        case XmCR_MOVING_INSERT_CURSOR:
            show_place(*editor, place(change.newInsert));
            break;
        default:
            break;
    }
    show_state(*editor);
}

template <class Change>
void for_changes(const Change& change) {
    for (const char* name :
         {XmNmotionVerifyCallback, XmNvalueChangedCallback, XmNmodifyVerifyCallback})
        change(name);
}

void follow_changes(const EditorRecord& editor) {
    for_changes([&editor](const char* name) {
        XtAddCallback(editor.text, name, yyEditTextCB, closure_of(editor));
    });
}

/// With its callbacks on, Motif copies the whole of a text that is put, twice.
class Quiet {
public:
    explicit Quiet(const EditorRecord& editor) : editor_(editor) {
        for_changes([this](const char* name) {
            XtRemoveCallback(editor_.text, name, yyEditTextCB, closure_of(editor_));
        });
    }
    ~Quiet() { follow_changes(editor_); }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    const EditorRecord& editor_;
};

// Keys

void yyEditKeyTrans(Widget text, XEvent* event, String* parameters, Cardinal* count) {
    EditorRecord* editor = *count > 0 ? editor_around(text) : nullptr;
    if (!editor) return;
    const char key = parameters[0][0];
    if (key == 'o') {
        XtCallActionProc(text, xt_name("toggle-overstrike"), event, nullptr, 0);
        editor->overwrite = !editor->overwrite;
        return show_overwrite(*editor);
    }
    state.key(*editor, key, *event);
}

// What Motif does with Control held is named here, because the line behind it, which keeps all
// other control keys from being typed as characters, would shadow it.
constexpr char text_keys[] =
    "Shift Ctrl<Key>osfLeft: backward-word(extend)\n"
    "Shift Ctrl<Key>osfRight: forward-word(extend)\n"
    "Shift Ctrl<Key>osfUp: backward-paragraph(extend)\n"
    "Shift Ctrl<Key>osfDown: forward-paragraph(extend)\n"
    "Shift Ctrl<Key>osfBeginLine: beginning-of-file(extend)\n"
    "Shift Ctrl<Key>osfEndLine: end-of-file(extend)\n"
    "Ctrl<Key>osfLeft: backward-word()\n"
    "Ctrl<Key>osfRight: forward-word()\n"
    "Ctrl<Key>osfUp: backward-paragraph()\n"
    "Ctrl<Key>osfDown: forward-paragraph()\n"
    "Ctrl<Key>osfBeginLine: beginning-of-file()\n"
    "Ctrl<Key>osfEndLine: end-of-file()\n"
    "Ctrl<Key>osfPageUp: page-left()\n"
    "Ctrl<Key>osfPageDown: page-right()\n"
    "Ctrl<Key>osfInsert: yyEditKeyTrans(c)\n"
    "Ctrl<Key>osfDelete: delete-to-end-of-line()\n"
    "Ctrl<Key>osfBackSpace: delete-previous-word()\n"
    "Ctrl<Key>: yyDGKeyTrans(i)\n"
    "Shift ~Ctrl<Key>osfDelete: yyEditKeyTrans(x)\n"
    "~Shift ~Alt ~Meta<Key>osfInsert: yyEditKeyTrans(o)\n"
    "<Key>osfCancel: yyEditKeyTrans(s)\n"
    "<Btn3Down>: yyEditKeyTrans(p)\n";

void register_keys_once() {
    static const bool known = [] {
        XtActionsRec action{xt_name("yyEditKeyTrans"), yyEditKeyTrans};
        XtAppAddActions(yydisplay.app, &action, 1);
        return true;
    }();
    static_cast<void>(known);
}

}  // namespace

void create_text_area(EditorRecord& editor, TextAreaKey key) {
    state.key = key;
    register_keys_once();
    Arguments args;
    args(XmNeditMode, XmMULTI_LINE_EDIT)(XmNscrollVertical, True)(XmNscrollHorizontal, True);
    args(XmNwordWrap, False)(XmNeditable, editor_may_edit(editor.flags) ? True : False);
    args(XmNrenderTable, editor.font.table ? editor.font.table : wFonts.fixed.table);
    args(XmNbackground, wSchemeCol.field)(XmNhighlightThickness, 0);
    args(XmNuserData, closure_of(editor));
    editor.text = XmCreateScrolledText(window_slot(editor.window).window_widget,
                                       xt_name("TextEdit"), args.data(), args.count());
    // The corner between the scroll bars.
    XtVaSetValues(XtParent(editor.text), XmNbackground, wSchemeCol.background, nullptr);
    XtOverrideTranslations(editor.text, XtParseTranslationTable(text_keys));
    for (const char* name :
         {XmNfocusCallback, XmNlosingFocusCallback, XmNgainPrimaryCallback, XmNlosePrimaryCallback})
        XtAddCallback(editor.text, name, yyEditTextCB, closure_of(editor));
    follow_changes(editor);
    XtManageChild(editor.text);
    yywindowcontent(editor.window, XtParent(editor.text));
}

std::string whole_text(const EditorRecord& editor) { return taken(XmTextGetString(editor.text)); }

void put_whole_text(EditorRecord& editor, const std::string& text, ByteMarks marks) {
    {
        const Quiet quiet(editor);
        XmTextSetString(editor.text,
                        xt_name(locale_is_utf8() ? text.c_str() : to_locale(text).c_str()));
        XmTextSetInsertionPosition(editor.text, 0);
        XmTextSetTopCharacter(editor.text, 0);
    }
    editor.lines = LineTable(text);
    editor.document.marks = std::move(marks);
    editor.document.modified = false;
    editor.document.bookmark.reset();
    show_place(editor, 0);
    show_state(editor);
}

std::size_t text_length(const EditorRecord& editor) {
    return place(XmTextGetLastPosition(editor.text));
}

std::wstring text_piece(const EditorRecord& editor, std::size_t begin, std::size_t end) {
    // Motif puts a zero behind the text.
    std::wstring piece(end - begin + 1, L'\0');
    XmTextGetSubstringWcs(editor.text, motif_place(begin), static_cast<int>(end - begin),
                          static_cast<int>(piece.size()), piece.data());
    piece.resize(end - begin);
    return piece;
}

void replace_piece(EditorRecord& editor, std::size_t begin, std::size_t end,
                   std::wstring_view coded_text) {
    std::wstring shown = coded::shown(coded_text);
    XmTextReplaceWcs(editor.text, motif_place(begin), motif_place(end), shown.data());
    editor.document.marks.mark(begin, coded_text);
}

std::size_t caret_of(const EditorRecord& editor) {
    return place(XmTextGetInsertionPosition(editor.text));
}

TextSelection selection_of(const EditorRecord& editor) {
    XmTextPosition begin = 0;
    XmTextPosition end = 0;
    if (XmTextGetSelectionPosition(editor.text, &begin, &end) && begin < end)
        return {place(begin), place(end)};
    return {caret_of(editor), caret_of(editor)};
}

void select_piece(EditorRecord& editor, const TextSelection& piece) {
    if (piece.begin < piece.end) {
        XmTextSetSelection(editor.text, motif_place(piece.begin), motif_place(piece.end), now());
    } else {
        XmTextClearSelection(editor.text, now());
        XmTextSetInsertionPosition(editor.text, motif_place(piece.begin));
    }
    show_place(editor, caret_of(editor));
    show_state(editor);
}

void select_all_text(EditorRecord& editor) {
    const std::size_t top = top_of(editor);
    select_piece(editor, {0, text_length(editor)});
    set_top(editor, top);
}

void go_to(EditorRecord& editor, std::size_t position) {
    select_piece(editor, {position, position});
    XmTextShowPosition(editor.text, motif_place(position));
}

std::size_t top_of(const EditorRecord& editor) { return place(XmTextGetTopCharacter(editor.text)); }

void set_top(EditorRecord& editor, std::size_t position) {
    XmTextSetTopCharacter(editor.text, motif_place(position));
}

}  // namespace tesserakit
