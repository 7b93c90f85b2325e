#include "toolkit/dialogs/units.hpp"

#include "toolkit/base/fonts.hpp"

namespace tesserakit {

int pixels_across(int units) { return units * dialog_units.horizontal / 4; }
int pixels_down(int units) { return units * dialog_units.vertical / 8; }

}  // namespace tesserakit
