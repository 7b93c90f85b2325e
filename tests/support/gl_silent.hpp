/// A silent double of the OpenGL, GLU and toolkit routines that the scene calls.
///
/// Linked in place of the libraries where what happens between the calls is measured, or where any
/// input may come: it counts and keeps nothing of what is drawn. Names of display lists are given
/// out and taken back as the libraries do, a freed one first.
#pragma once

#include <cstddef>

namespace gl_silent {

/// Calls since the start, of all routines.
std::size_t calls();

/// Names of display lists in use now.
std::size_t names();

/// Calls of the list of that name since the start, those compiled into other lists included.
std::size_t calls_of_list(unsigned name);

/// Of the last sphere that was built.
int slices_of_sphere();

}  // namespace gl_silent
