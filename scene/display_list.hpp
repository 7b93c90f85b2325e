/// One OpenGL display list with one owner.
#pragma once

#include <GL/gl.h>

#include <utility>

/// Move-only. The name comes with generate() and is deleted with the owner; no other member calls
/// OpenGL, so that the order of a unit's calls stays the one written there. An owner of a name
/// must be gone, or emptied by a move, before the context is.
///
/// Lists that live as long as the program are a plain GLuint, 0 until they are made.
class DisplayList {
public:
    DisplayList() = default;
    DisplayList(DisplayList&& other) noexcept : name_(std::exchange(other.name_, 0)) {}
    DisplayList& operator=(DisplayList&& other) noexcept {
        std::swap(name_, other.name_);
        return *this;
    }
    DisplayList(const DisplayList&) = delete;
    DisplayList& operator=(const DisplayList&) = delete;
    ~DisplayList() {
        if (name_ != 0) glDeleteLists(name_, 1);
    }

    /// Takes a new name; only on an empty one.
    void generate() { name_ = glGenLists(1); }

    /// 0 before generate().
    GLuint name() const { return name_; }

private:
    GLuint name_ = 0;
};
