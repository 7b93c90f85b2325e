#include "toolkit/common_dialogs/modal_box.hpp"

#include "toolkit/base/display.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/base/shell_title.hpp"
#include "toolkit/messages/focus.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/messages/modal_loop.hpp"
#include "toolkit/messages/snapshots.hpp"
#include "toolkit/windows/window_slots.hpp"

#include <Xm/BulletinB.h>
#include <Xm/Display.h>
#include <Xm/MwmUtil.h>
#include <Xm/Protocols.h>

#include <algorithm>

namespace tesserakit {

namespace {

Position centred(Dimension extent, int available) {
    return static_cast<Position>(std::max(0, (available - extent) / 2));
}

/// In the middle, and no larger than the screen shows with a frame around it: long names would
/// stretch it beyond.
void place_shell(Widget shell) {
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(shell, XmNwidth, &width, XmNheight, &height, nullptr);
    width = std::min(width, static_cast<Dimension>(yydisplay.width * 9 / 10));
    height = std::min(height, static_cast<Dimension>(yydisplay.height * 9 / 10));
    XtVaSetValues(shell, XmNallowShellResize, False, XmNwidth, width, XmNheight, height, XmNx,
                  centred(width, yydisplay.width), XmNy, centred(height, yydisplay.height),
                  nullptr);
}

}  // namespace

ModalBox::ModalBox(Create create, const char* name, std::string_view title, XtCallbackProc close,
                   XtPointer closure)
    : title_(title) {
    // The Tab key goes from button to button as the arrows do, not only out of their row.
    XtVaSetValues(XmGetXmDisplay(yydisplay.display), XmNenableButtonTab, True, nullptr);
    Arguments args;
    // The loop locks the other windows out, and decides when the box goes.
    args(XmNdialogStyle, XmDIALOG_MODELESS)(XmNautoUnmanage, False)(XmNdefaultPosition, False);
    const Widget opener = yyMSReturnCurrentUserWidget();
    box_ = create(opener, xt_name(name), args.data(), args.count());
    if (!box_) return;
    const Widget shell = XtParent(box_);
    // By the window group alone a window manager may put the opener above it.
    XtVaSetValues(shell, XmNtransientFor, shell_around(opener), nullptr);
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, XmNmappedWhenManaged, False,
                  XmNmwmFunctions, MWM_FUNC_MOVE | MWM_FUNC_RESIZE | MWM_FUNC_CLOSE,
                  XmNmwmDecorations,
                  MWM_DECOR_BORDER | MWM_DECOR_RESIZEH | MWM_DECOR_TITLE | MWM_DECOR_MENU, nullptr);
    XmAddWMProtocolCallback(shell, yydisplay.wm_delete_window, close, closure);
}

ModalBox::~ModalBox() {
    if (box_) XtDestroyWidget(XtParent(box_));
}

void ModalBox::run() {
    const Widget shell = XtParent(box_);
    yygetwindowbitmap(true);
    // Unmapped until it has its place: it would flash at another one.
    XtManageChild(box_);
    if (!XtIsRealized(shell)) XtRealizeWidget(shell);
    show_title(shell, title_);
    place_shell(shell);
    XtPopup(shell, XtGrabNone);
    yyMSModalMessageLoop(box_, -1);
    XtUnmanageChild(box_);
    XtPopdown(shell);
    repeat_focus(shell);
    yygetwindowbitmap(false);
}

void end_box() { bModalMessageLoop = false; }

}  // namespace tesserakit
