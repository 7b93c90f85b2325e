/// The message box (wmessagebox in tesserakit.hpp) for the toolkit's own questions.
#pragma once

#include "toolkit/tesserakit.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace tesserakit {

/// Shows it and answers the number of the button; -1, with 1004 stored, when it can't be made.
/// winfodialog doesn't hear of it.
int yymessagebox2(MessageButtons buttons, MessageIcon icon, int default_button,
                  std::string_view message, std::string_view title);

/// `text` with further line breaks, so that no line is wider than `width` by `measure`: after a
/// blank or a slash where there is one, else inside the word. A blank at a break is dropped.
std::string broken_to_width(std::string_view text, int width,
                            const std::function<int(std::string_view)>& measure);

}  // namespace tesserakit
