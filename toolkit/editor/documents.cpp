#include "toolkit/editor/documents.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/common_dialogs/message_box.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/editor/editor_bars.hpp"
#include "toolkit/editor/text_area.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/snapshots.hpp"
#include "toolkit/windows/window_slots.hpp"
#include "toolkit/windows/windows.hpp"

#include <X11/IntrinsicP.h>

#include <chrono>
#include <utility>

namespace tesserakit {

namespace {

enum Answer : int { Yes = 1, No = 2 };
constexpr int ok_button = 1;

// Boxes

/// One copy of the windows' pictures serves all boxes of a command: between two of them the program
/// doesn't draw.
class PicturesKept {
public:
    PicturesKept() { yygetwindowbitmap(true); }
    ~PicturesKept() { yygetwindowbitmap(false); }
    PicturesKept(const PicturesKept&) = delete;
    PicturesKept& operator=(const PicturesKept&) = delete;
};

bool on_screen(Widget shell) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(yydisplay.display, XtWindow(shell), &attributes) != 0 &&
           attributes.map_state == IsViewable;
}

/// Boxes hang on the editor's window, wherever the last command came from. A window that has only
/// just been opened is on the screen once its manager has seen to it.
void stand_over(const EditorRecord& editor) {
    note_command({.type = MenuSelect, .win = editor.window});
    const WindowSlot& slot = window_slot(editor.window);
    if (!slot.visible) return;
    yywindowtofront(editor.window);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    while (!on_screen(slot.shell_widget) && std::chrono::steady_clock::now() < deadline)
        yywaitdisplay(idle_tick_ms);
}

int ask(const EditorRecord& editor, MessageButtons buttons, int default_button,
        const std::string& text, const std::string& title) {
    stand_over(editor);
    return yymessagebox2(buttons, MessageQuestion, default_button, text, title);
}

/// The name that the user chooses in a file box, empty for none.
std::string chosen_name(const EditorRecord& editor, int flags, const char* title) {
    std::string name = editor.document.name;
    stand_over(editor);
    wselectfile2(editor.filter, flags, name, title);
    return common_exit() == ok_button ? name : std::string();
}

// Texts

FileHold& hold_of(EditorRecord& editor) {
    return editor.holds[static_cast<std::size_t>(editor.slot)];
}

const std::string& path_of(EditorRecord& editor) { return hold_of(editor).path(); }

/// The slot of the text of a file, -1 for none.
int slot_of_file(const EditorRecord& editor, const std::string& name) {
    const std::string path = FileHold(name).path();
    for (const int slot : editor.buffers.taken())
        if (editor.holds[static_cast<std::size_t>(slot)].path() == path) return slot;
    return -1;
}

/// The text in the widget has another name, or is another one.
void rename(EditorRecord& editor, const std::string& name) {
    editor.document.name = name;
    TextBuffer place;
    place.name = name;
    editor.buffers.yyeditstorebuffer(editor.slot, std::move(place));
    hold_of(editor) = name.empty() ? FileHold() : FileHold(name);
    show_document_name(editor);
    renew_editor_menu(editor);
}

void put_empty(EditorRecord& editor) {
    put_whole_text(editor, {}, {});
    editor.document.stamp.reset();
    rename(editor, {});
}

void note_replaced(const EditorRecord& editor) {
    const std::size_t count = editor.document.marks.replaced_bytes();
    show_note(editor, count == 0 ? std::string() : std::to_string(count) + " bytes are no text");
}

/// Into the slot that is shown. After a failure, which is told, it is empty and has no name: what
/// is typed must not take the place of a file that couldn't be read.
void load(EditorRecord& editor, const std::string& name) {
    LoadedFile file;
    const auto trouble = load_text_file(name, file);
    if (trouble) {
        put_empty(editor);
        return tell(editor, trouble->text, trouble->title);
    }
    put_whole_text(editor, file.text, std::move(file.marks));
    editor.document.stamp = file.stamp;
    rename(editor, name);
    note_replaced(editor);
}

/// Takes the text out of the widget.
void store(EditorRecord& editor) {
    TextBuffer& document = editor.document;
    document.text = whole_text(editor);
    document.position = caret_of(editor);
    document.top = top_of(editor);
    editor.buffers.yyeditstorebuffer(editor.slot, std::exchange(document, {}));
}

void retrieve(EditorRecord& editor, int slot) {
    std::optional<TextBuffer> buffer = editor.buffers.yyeditretrievebuffer(slot);
    if (!buffer) return;
    editor.slot = slot;
    put_whole_text(editor, buffer->text, std::move(buffer->marks));
    go_to(editor, buffer->position);
    set_top(editor, buffer->top);
    editor.document.name = buffer->name;
    editor.document.stamp = buffer->stamp;
    editor.document.bookmark = buffer->bookmark;
    editor.document.modified = buffer->modified;
    show_document_name(editor);
    renew_editor_menu(editor);
    note_replaced(editor);
}

bool untouched(const EditorRecord& editor) {
    return editor.document.name.empty() && !editor.document.modified && text_length(editor) == 0;
}

/// Makes a further slot the one that is shown; false, and told, when there is none.
bool take_slot(EditorRecord& editor, const char* title) {
    if (untouched(editor)) return true;
    const int slot = editor.buffers.free_slot();
    if (slot < 0) {
        tell(editor, "No more texts can be open in one window.\nClose one of them first.", title);
        return false;
    }
    store(editor);
    editor.slot = slot;
    return true;
}

/// yyEditFileIsSaved: false when the user wants to go on with the text.
bool yyEditFileIsSaved(EditorRecord& editor) {
    if (!editor.document.modified || !editor_may_save(editor.flags)) return true;
    std::string question = "Do you want to save changes";
    if (!editor.document.name.empty()) question += " to " + editor.document.name;
    const int answer = ask(editor, MessageYesNoCancel, Yes, question + "?", "Save");
    return answer == No || (answer == Yes && save_document(editor));
}

bool may_overwrite(EditorRecord& editor) {
    const TextBuffer& document = editor.document;
    if (change_since(path_of(editor), document.stamp) != FileChange::Changed) return true;
    return ask(editor, MessageYesNo, No,
               document.name +
                   "\nThe file was changed by another program since it was loaded.\n\n"
                   "Overwrite it?",
               "Save") == Yes;
}

bool write(EditorRecord& editor, const std::string& name) {
    const std::string bytes = editor.document.marks.bytes(whole_text(editor));
    if (const auto trouble = save_text_file(name, bytes, editor.backup)) {
        tell(editor, trouble->text, trouble->title);
        return false;
    }
    editor.document.stamp = stamp_of(name);
    editor.document.modified = false;
    // A saving may have put another file in the place of the one that was held.
    hold_of(editor) = FileHold(name);
    return true;
}

}  // namespace

void tell(const EditorRecord& editor, const std::string& text, const std::string& title) {
    stand_over(editor);
    yymessagebox2(MessageOk, MessageWarning, ok_button, text, title);
}

void open_first_document(EditorRecord& editor, const std::string& name) {
    if (name.empty()) return put_empty(editor);
    load(editor, name);
}

void new_document(EditorRecord& editor) {
    if (take_slot(editor, "New")) put_empty(editor);
}

void show_file(EditorRecord& editor, const std::string& name) {
    yywindowtofront(editor.window);
    if (name.empty()) return new_document(editor);
    const int slot = slot_of_file(editor, name);
    if (slot < 0) {
        if (take_slot(editor, "Open")) load(editor, name);
        return;
    }
    switch_document(editor, slot);
    const TextBuffer& document = editor.document;
    if (change_since(path_of(editor), document.stamp) != FileChange::Changed) return;
    if (document.modified &&
        ask(editor, MessageYesNo, No,
            name + "\nThe file was changed by another program since it was loaded.\n\n"
                   "Load it anew, without your changes?",
            "Open") != Yes)
        return;
    load(editor, name);
}

void open_document(EditorRecord& editor) {
    const PicturesKept pictures;
    const std::string name = chosen_name(editor, FileMustExist | FilePrompting, "Open");
    if (!name.empty()) show_file(editor, name);
}

bool save_document(EditorRecord& editor) {
    const bool elsewhere = (editor.flags & editor_flag::no_save) != 0;
    if (editor.document.name.empty() || elsewhere) return save_document_as(editor);
    return may_overwrite(editor) && write(editor, std::string(path_of(editor)));
}

bool save_document_as(EditorRecord& editor) {
    const PicturesKept pictures;
    const std::string name = chosen_name(editor, FileSaving | FilePrompting, "Save As");
    if (name.empty()) return false;
    const int slot = slot_of_file(editor, name);
    if (slot >= 0 && slot != editor.slot) {
        tell(editor, name + "\nThe file is open as another text of this window.", "Save As");
        return false;
    }
    if (!write(editor, name)) return false;
    rename(editor, name);
    return true;
}

void switch_document(EditorRecord& editor, int slot) {
    if (slot == editor.slot || !editor.buffers.at(slot)) return;
    store(editor);
    retrieve(editor, slot);
}

Closed close_document(EditorRecord& editor) {
    const PicturesKept pictures;
    if (!yyEditFileIsSaved(editor)) return Closed::Nothing;
    hold_of(editor) = FileHold();
    editor.buffers.close(editor.slot);
    const std::vector<int> others = editor.buffers.taken();
    if (others.empty()) {
        put_empty(editor);
        return Closed::Last;
    }
    retrieve(editor, others.back());
    return Closed::Document;
}

bool may_close(EditorRecord& editor) {
    const PicturesKept pictures;
    for (const int slot : editor.buffers.taken()) {
        if (slot != editor.slot && !editor.buffers.at(slot)->modified) continue;
        switch_document(editor, slot);
        if (!yyEditFileIsSaved(editor)) return false;
    }
    return true;
}

}  // namespace tesserakit
