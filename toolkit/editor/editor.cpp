#include "toolkit/editor/editor.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/editor/documents.hpp"
#include "toolkit/editor/editor_bars.hpp"
#include "toolkit/editor/editor_commands.hpp"
#include "toolkit/editor/editor_record.hpp"
#include "toolkit/editor/search_dialogs.hpp"
#include "toolkit/editor/text_area.hpp"
#include "toolkit/editor/wide_text.hpp"
#include "toolkit/messages/interpreters.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/modal_loop.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/windows/window_slots.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/Xm.h>

#include <algorithm>
#include <memory>

namespace tesserakit {

namespace {

constexpr const char* routine = "WEditFile";
constexpr std::string_view standard_filter = "Text Files (*.txt)|*.txt|All Files (*)|*|";

/// Why a window can't become an editor of this request, 0 when it can.
int refusal(const EditorRequest& request) {
    if (wCurrentWindow <= 0) return EditorNeedsChild;
    const WindowSlot& slot = window_slot(wCurrentWindow);
    if (request.mode < DialogModal || request.mode > DialogSemiModal) return InvalidEditorMode;
    if (request.menu != 0 && (slot.flags & WindowInsideParent) != 0) return EditorMenuInsideParent;
    if (request.menu != 0 && request.mode == DialogModal) return EditorMenuModal;
    return slot.type == WindowType::Plain ? 0 : int{EditorNotInitialised};
}

void text_area_key(EditorRecord& editor, char key, const XEvent& event) {
    switch (key) {
        case 'p':
            return pop_up_menu(editor, event.xbutton.x_root, event.xbutton.y_root);
        case 's':
            return hide_search_dialogs(editor);
        case 'x':
        case 'c':
            yyEditInterpretMessage(editor, key == 'x' ? editor_item::cut : editor_item::copy);
            return;
        default:
            return;
    }
}

std::string filter_of(const EditorRequest& request) {
    const bool given = (request.flags & editor_flag::filter_file) != 0 && !request.filter.empty();
    return std::string(given ? request.filter : standard_filter);
}

TextFont font_of(const EditorRequest& request) {
    if (request.font.empty()) return {};
    std::string name(request.font);
    if (request.font_size > 0) name += "-" + std::to_string(request.font_size);
    return load_font(name);
}

/// The window's slot gets the record. It ends with the window, also where the program closes it.
EditorRecord& make_record(const EditorRequest& request) {
    WindowSlot& slot = window_slot(wCurrentWindow);
    const std::shared_ptr<EditorRecord> editor(new EditorRecord, [](EditorRecord* ending) {
        hide_search_dialogs(*ending);
        delete ending;
    });
    editor->window = wCurrentWindow;
    editor->flags = request.flags;
    editor->mode = request.mode;
    editor->backup = request.backup;
    editor->title = slot.title;
    editor->filter = filter_of(request);
    editor->font = font_of(request);
    if (request.menu != 0) yymnrcload(request.menu, editor->user_menu);
    slot.type = WindowType::Editor;
    slot.extension = editor;
    return *editor;
}

void enter_mode(const EditorRecord& editor) {
    if (editor.mode == DialogSemiModal) yyMSSemiAddRemove(1, window_object, editor.window);
    if (editor.mode == DialogModal)
        yyMSModalMessageLoop(window_slot(editor.window).window_widget, -1);
}

/// A message on its way to the application.
bool yyEditInterpretTessMessage(Mail& mail) {
    if (search_message(mail)) return true;
    EditorRecord* editor = mail.type == MenuSelect ? editor_of(mail.win) : nullptr;
    return editor && yyEditInterpretMessage(*editor, mail.value1);
}

/// Keys go to the text: the window manager gives the keyboard to the shell.
Outcome focus_text(XEvent& event) {
    if (event.type != FocusIn) return Outcome::GoesOn;
    const WindowOwner owner = yygetparenthandle(event.xfocus.window);
    const EditorRecord* editor = editor_of(owner.window);
    if (editor && event.xfocus.window == window_slot(owner.window).shell)
        XmProcessTraversal(editor->text, XmTRAVERSE_CURRENT);
    return Outcome::GoesOn;
}

bool close_editor(int window) {
    EditorRecord* editor = editor_of(window);
    if (editor) yyEditFileExit(*editor);
    return editor != nullptr;
}

}  // namespace

void weditfile(std::string_view filename, const EditorRequest& request) {
    const std::string name(without_trailing_blanks(filename));
    if (EditorRecord* editor = editor_of(wCurrentWindow)) return show_file(*editor, name);
    if (const int code = refusal(request); code != 0) return yyerror(code, routine);
    EditorRecord& editor = make_record(request);
    if (request.menu != 0 && !editor.user_menu) yyerror(MenuNotLoaded, routine, request.menu);
    create_text_area(editor, text_area_key);
    create_editor_bars(editor);
    open_first_document(editor, name);
    XmProcessTraversal(editor.text, XmTRAVERSE_CURRENT);
    enter_mode(editor);
}

bool weditclose(int window) {
    EditorRecord* editor = editor_of(window);
    return !editor || yyEditFileExit(*editor);
}

void weditputtext1(std::string_view text) {
    EditorRecord* editor = current_editor("WEditPutText");
    if (!editor) return;
    ByteMarks marks;
    const std::string shown = marks.take(std::string(text));
    put_whole_text(*editor, shown, std::move(marks));
    editor->document.modified = true;
}

void weditgettext1(std::string& text) {
    if (const EditorRecord* editor = current_editor("WEditGetText"))
        text = editor->document.marks.bytes(whole_text(*editor));
}

void weditgettext2(std::string& text) {
    const EditorRecord* editor = current_editor("WEditGetText");
    if (!editor) return;
    const TextSelection selected = selection_of(*editor);
    text = utf8_text(text_piece(*editor, selected.begin, selected.end));
}

void weditgettextpart(int first, int length, std::string& text) {
    const EditorRecord* editor = current_editor("WEditGetTextPart");
    if (!editor) return;
    const std::size_t all = text_length(*editor);
    const std::size_t begin = std::min(static_cast<std::size_t>(std::max(first, 1) - 1), all);
    const std::size_t count = static_cast<std::size_t>(std::max(length, 0));
    text = utf8_text(text_piece(*editor, begin, begin + std::min(count, all - begin)));
}

void install_editors() {
    interpreters.editor_event = focus_text;
    interpreters.editor_message = yyEditInterpretTessMessage;
    interpreters.close = close_editor;
}

}  // namespace tesserakit
