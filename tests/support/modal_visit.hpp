/// A user's doing while the program is in a loop of its own: a modal dialog, a common dialog.
#pragma once

#include "tests/support/display_input.hpp"

#include <gtest/gtest.h>

#include "toolkit/base/display.hpp"
#include "toolkit/messages/modal.hpp"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>

#include <functional>
#include <utility>
#include <vector>

/// Each step is tried again, from a timer, until it is done. The last one is to end the loop.
class ModalVisit {
public:
    using Step = std::function<bool()>;

    explicit ModalVisit(std::vector<Step> steps) : steps_(std::move(steps)) { again(); }
    ~ModalVisit() { XtRemoveTimeOut(timer_); }
    ModalVisit(const ModalVisit&) = delete;
    ModalVisit& operator=(const ModalVisit&) = delete;

    bool over() const { return next_ == steps_.size(); }

private:
    void again() { timer_ = XtAppAddTimeOut(tesserakit::yydisplay.app, 5, tick, this); }

    static void tick(XtPointer closure, XtIntervalId*) {
        ModalVisit& visit = *static_cast<ModalVisit*>(closure);
        if (!visit.over() && visit.steps_[visit.next_]()) {
            ++visit.next_;
            visit.tries_ = 0;
        } else if (tesserakit::nModalWindows > 0 && ++visit.tries_ > 600) {
            // A user who waits for what never comes goes away, so that the test ends.
            ADD_FAILURE() << "the loop goes on behind step " << visit.next_;
            tesserakit::bModalMessageLoop = false;
        }
        visit.again();
    }

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    int tries_ = 0;
    XtIntervalId timer_ = 0;
};

/// The middle of a widget or gadget, where the server has it.
inline display_input::Point middle_of(Widget widget) {
    Position x = 0;
    Position y = 0;
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(widget, XtNx, &x, XtNy, &y, XtNwidth, &width, XtNheight, &height, nullptr);
    display_input::Point at;
    Window child = 0;
    XTranslateCoordinates(tesserakit::yydisplay.display, XtWindow(XtParent(widget)),
                          tesserakit::yydisplay.root, x + width / 2, y + height / 2, &at.x, &at.y,
                          &child);
    return at;
}
