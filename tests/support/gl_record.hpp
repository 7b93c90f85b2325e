/// A recording double of the OpenGL, GLU and toolkit routines that the scene calls.
///
/// Linked in place of the libraries. It keeps the raw calls in the order in which they came and,
/// beside them, what a viewer would see: every shape drawn, display lists expanded, with the
/// transformation, the colour and the state under which it is drawn.
///
/// Lists are told apart by name; a deleted or unknown list draws nothing, as in OpenGL. Quadrics
/// are recorded whole, not by facet.
#pragma once

#include "common/vec.hpp"

#include <GL/gl.h>

#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace gl_record {

/// One raw call. Enumerants and integers stand among the arguments as numbers; a quadric is left
/// out, but a shape made with it carries its orientation as last argument.
struct Call {
    const char* name = "";
    std::array<double, 17> arguments{};
    std::size_t count = 0;  ///< of the arguments
    std::string string{};   ///< of wgltextstring
    bool compiled = false;  ///< went into a display list and drew nothing by itself

    std::vector<double> values() const {
        return {arguments.begin(), arguments.begin() + static_cast<std::ptrdiff_t>(count)};
    }
};

/// "glTranslatef(0.5, 0, -1)", numbers in their shortest form.
std::string text(const Call& call);

/// Something drawn.
struct Primitive {
    std::string name;                ///< gluSphere, gluDisk, gluCylinder, line or wgltextstring
    std::vector<double> arguments;   ///< of the GLU routine; none for the others
    std::string string;              ///< of wgltextstring
    std::array<double, 16> model{};  ///< model to viewer, column by column
    std::array<double, 16> projection{};
    std::array<Vector3<double>, 2> ends{};  ///< of a line, transformed
    Colour material{};                      ///< diffuse, of the front
    Colour back_material{};                 ///< diffuse, of the back
    Colour ambient{};                       ///< of the front
    Colour colour{};                        ///< set by glColor
    float line_width = 1.0f;
    std::set<GLenum> enabled{};

    /// Where the shape's own point lies, transformed.
    Vector3<double> at(double x, double y, double z) const;
    Vector3<double> centre() const { return at(0, 0, 0); }
};

/// All calls since the last clear.
const std::vector<Call>& calls();
/// Texts of the calls whose name is one of `names`; of all calls without names.
std::vector<std::string> texts(const std::set<std::string>& names = {});
std::size_t count(const std::string& name);

/// What was drawn outside display lists since the last clear, and, for one list, what calling it
/// now would draw, from an identity transformation and the present state.
const std::vector<Primitive>& drawn();
std::vector<Primitive> drawn_by(GLuint list);

/// The calls compiled into a list; none for a list that doesn't exist.
std::vector<std::string> contents(GLuint list);
bool exists(GLuint list);

/// Forgets calls and drawings; lists and state stay.
void clear();

/// While off, calls leave nothing behind: for pictures of more shapes than need be kept.
void record(bool on);

}  // namespace gl_record
