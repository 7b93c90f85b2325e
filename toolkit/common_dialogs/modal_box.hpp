/// What the boxes have in common that Motif makes: a shell, a place on the screen, and a loop.
#pragma once

#include <X11/Intrinsic.h>

#include <string>
#include <string_view>

namespace tesserakit {

/// A dialog widget of Motif's with a shell of its own, from its creation to its end; both are
/// destroyed with it.
class ModalBox {
public:
    using Create = Widget (*)(Widget parent, String name, ArgList, Cardinal);
    /// Makes the box on the shell where the user is at work; it isn't shown yet. Whatever closes it
    /// by the window manager calls `close`.
    ModalBox(Create create, const char* name, std::string_view title, XtCallbackProc close,
             XtPointer closure = nullptr);
    ~ModalBox();
    ModalBox(const ModalBox&) = delete;
    ModalBox& operator=(const ModalBox&) = delete;

    /// Null when it couldn't be made.
    Widget widget() const { return box_; }
    /// Shows it in the middle of the screen until end_box; the windows below are repaired
    /// meanwhile.
    void run();

private:
    Widget box_;
    std::string title_;
};

/// Ends the innermost box; for the callbacks of its buttons.
void end_box();

}  // namespace tesserakit
