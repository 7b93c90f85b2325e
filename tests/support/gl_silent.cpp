#include "tests/support/gl_silent.hpp"

#include "toolkit/gl_calls.hpp"

#include <GL/glu.h>

#include <vector>

struct GLUquadric {};

namespace gl_silent {
namespace {

struct Counter {
    std::size_t calls = 0;
    std::vector<bool> in_use{true};  ///< by name; 0 is none
    std::vector<GLuint> freed;
    std::vector<std::size_t> list_calls;  ///< by name
    std::size_t names = 0;
    int sphere_slices = 0;
};
Counter& counter = *new Counter;  // outlives static objects that still delete lists

void count() { ++counter.calls; }

GLuint take_name() {
    GLuint name = static_cast<GLuint>(counter.in_use.size());
    if (counter.freed.empty()) {
        counter.in_use.push_back(true);
    } else {
        name = counter.freed.back();
        counter.freed.pop_back();
        counter.in_use[name] = true;
    }
    ++counter.names;
    return name;
}

void free_name(GLuint name) {
    if (name == 0 || name >= counter.in_use.size() || !counter.in_use[name]) return;
    counter.in_use[name] = false;
    counter.freed.push_back(name);
    --counter.names;
}

}  // namespace

std::size_t calls() { return counter.calls; }
std::size_t names() { return counter.names; }
int slices_of_sphere() { return counter.sphere_slices; }

std::size_t calls_of_list(unsigned name) {
    return name < counter.list_calls.size() ? counter.list_calls[name] : 0;
}

}  // namespace gl_silent

using gl_silent::count;

extern "C" {

/// The scene takes names one by one.
GLuint glGenLists(GLsizei) {
    count();
    return gl_silent::take_name();
}
void glDeleteLists(GLuint list, GLsizei) {
    count();
    gl_silent::free_name(list);
}
GLboolean glIsList(GLuint list) {
    count();
    return list < gl_silent::counter.in_use.size() && gl_silent::counter.in_use[list] ? GL_TRUE
                                                                                      : GL_FALSE;
}
void glNewList(GLuint, GLenum) { count(); }
void glEndList() { count(); }
void glCallList(GLuint list) {
    count();
    std::vector<std::size_t>& calls = gl_silent::counter.list_calls;
    if (list >= calls.size()) calls.resize(list + 1);
    ++calls[list];
}

void glMatrixMode(GLenum) { count(); }
void glLoadIdentity() { count(); }
void glPushMatrix() { count(); }
void glPopMatrix() { count(); }
void glTranslatef(GLfloat, GLfloat, GLfloat) { count(); }
void glRotatef(GLfloat, GLfloat, GLfloat, GLfloat) { count(); }
void glScalef(GLfloat, GLfloat, GLfloat) { count(); }
void glMultMatrixf(const GLfloat*) { count(); }
void glOrtho(GLdouble, GLdouble, GLdouble, GLdouble, GLdouble, GLdouble) { count(); }
void glViewport(GLint, GLint, GLsizei, GLsizei) { count(); }

void glEnable(GLenum) { count(); }
void glDisable(GLenum) { count(); }
void glShadeModel(GLenum) { count(); }
void glBlendFunc(GLenum, GLenum) { count(); }
void glReadBuffer(GLenum) { count(); }
void glDrawBuffer(GLenum) { count(); }
void glLineWidth(GLfloat) { count(); }
void glClearColor(GLclampf, GLclampf, GLclampf, GLclampf) { count(); }
void glClear(GLbitfield) { count(); }

void glMaterialfv(GLenum, GLenum, const GLfloat*) { count(); }
void glGetMaterialfv(GLenum, GLenum, GLfloat*) { count(); }
void glMateriali(GLenum, GLenum, GLint) { count(); }
void glLightfv(GLenum, GLenum, const GLfloat*) { count(); }
void glColor4fv(const GLfloat*) { count(); }
void glColor4f(GLfloat, GLfloat, GLfloat, GLfloat) { count(); }

void glBegin(GLenum) { count(); }
void glEnd() { count(); }
void glVertex3fv(const GLfloat*) { count(); }
void glVertex3f(GLfloat, GLfloat, GLfloat) { count(); }

GLUquadric* gluNewQuadric() {
    count();
    return new GLUquadric;
}
void gluDeleteQuadric(GLUquadric* quadric) {
    count();
    delete quadric;
}
void gluQuadricNormals(GLUquadric*, GLenum) { count(); }
void gluQuadricDrawStyle(GLUquadric*, GLenum) { count(); }
void gluQuadricOrientation(GLUquadric*, GLenum) { count(); }
void gluSphere(GLUquadric*, GLdouble, GLint slices, GLint) {
    count();
    gl_silent::counter.sphere_slices = slices;
}
void gluDisk(GLUquadric*, GLdouble, GLdouble, GLint, GLint) { count(); }
void gluCylinder(GLUquadric*, GLdouble, GLdouble, GLdouble, GLint, GLint) { count(); }

}  // extern "C"

namespace tesserakit {

void wglselect(int, int, int) { count(); }
void wglswapbuffers() { count(); }
void wgltextfont(std::optional<int>, std::optional<int>, std::optional<float>,
                 std::optional<std::string_view>, std::optional<int>) {
    count();
}
void wgltextstring(std::string_view) { count(); }

}  // namespace tesserakit
