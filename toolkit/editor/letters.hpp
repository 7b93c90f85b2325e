/// Letters of all scripts: case and words, one character by one, whatever the user's locale is.
#pragma once

namespace tesserakit {

wchar_t upper(wchar_t c);
wchar_t lower(wchar_t c);
/// The same for a letter's upper and lower forms, the two small sigmas, the sign and the letter mu.
wchar_t folded(wchar_t c);
/// A letter, a digit or an underscore.
bool in_word(wchar_t c);

}  // namespace tesserakit
