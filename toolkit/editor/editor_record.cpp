#include "toolkit/editor/editor_record.hpp"

#include "toolkit/base/errors.hpp"
#include "toolkit/windows/window_slots.hpp"

namespace tesserakit {

EditorRecord* editor_of(int window) {
    if (window < 0 || window >= window_slots) return nullptr;
    const WindowSlot& slot = window_slot(window);
    return slot.type == WindowType::Editor ? static_cast<EditorRecord*>(slot.extension.get())
                                           : nullptr;
}

EditorRecord* current_editor(const char* routine) {
    EditorRecord* editor = editor_of(wCurrentWindow);
    if (!editor) yyerror(NotAnEditor, routine);
    return editor;
}

}  // namespace tesserakit
