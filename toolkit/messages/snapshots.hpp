/// Pictures of the client areas, for their repair while the application is kept from drawing.
#pragma once

#include <X11/Intrinsic.h>

namespace tesserakit {

/// Copies what the client areas show (true), so that the toolkit can repair them during a modal
/// loop, and drops the copies again (false). Calls nest. When the server lacks room an error is
/// left, and the areas stay blank until the application draws them.
void yygetwindowbitmap(bool take);
/// wBlitOn: repairs a client area or user-drawn field from its copy. False if there is none, or if
/// it lacks a part of the damage: what was covered, or not drawn yet, when it was taken.
bool repair_from_snapshot(Window window, const XExposeEvent& event);

}  // namespace tesserakit
