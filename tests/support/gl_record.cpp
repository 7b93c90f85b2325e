#include "tests/support/gl_record.hpp"

#include "common/number_field.hpp"
#include "toolkit/gl_calls.hpp"

#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <map>
#include <numbers>
#include <span>
#include <string_view>
#include <utility>

struct GLUquadric {
    GLenum orientation = GLU_OUTSIDE;
};

namespace gl_record {
namespace {

using Matrix = std::array<double, 16>;
constexpr Matrix identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

Matrix product(const Matrix& a, const Matrix& b) {
    Matrix result{};
    for (std::size_t column = 0; column < 4; ++column)
        for (std::size_t row = 0; row < 4; ++row)
            for (std::size_t i = 0; i < 4; ++i)
                result[4 * column + row] += a[4 * i + row] * b[4 * column + i];
    return result;
}

Matrix translation(double x, double y, double z) {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1};
}

Matrix scaling(double x, double y, double z) {
    return {x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1};
}

/// By `degrees` about an axis of any length, counter-clockwise seen against it.
Matrix rotation(double degrees, double x, double y, double z) {
    const double length = std::sqrt(x * x + y * y + z * z);
    x /= length, y /= length, z /= length;
    const double angle = degrees * std::numbers::pi / 180.0;
    const double c = std::cos(angle), s = std::sin(angle), d = 1.0 - c;
    return {x * x * d + c,
            y * x * d + z * s,
            z * x * d - y * s,
            0,
            x * y * d - z * s,
            y * y * d + c,
            z * y * d + x * s,
            0,
            x * z * d + y * s,
            y * z * d - x * s,
            z * z * d + c,
            0,
            0,
            0,
            0,
            1};
}

Matrix orthographic(double l, double r, double b, double t, double n, double f) {
    return {2 / (r - l),
            0,
            0,
            0,
            0,
            2 / (t - b),
            0,
            0,
            0,
            0,
            -2 / (f - n),
            0,
            -(r + l) / (r - l),
            -(t + b) / (t - b),
            -(f + n) / (f - n),
            1};
}

Vector3<double> transformed(const Matrix& m, double x, double y, double z) {
    return {m[0] * x + m[4] * y + m[8] * z + m[12], m[1] * x + m[5] * y + m[9] * z + m[13],
            m[2] * x + m[6] * y + m[10] * z + m[14]};
}

struct Context {
    std::vector<Matrix> modelview{identity};
    std::vector<Matrix> projection{identity};
    GLenum mode = GL_MODELVIEW;
    Colour front_diffuse{0.8f, 0.8f, 0.8f, 1.0f};
    Colour back_diffuse{0.8f, 0.8f, 0.8f, 1.0f};
    Colour front_ambient{0.2f, 0.2f, 0.2f, 1.0f};
    Colour colour{1.0f, 1.0f, 1.0f, 1.0f};
    float line_width = 1.0f;
    std::set<GLenum> enabled{};
    std::vector<Vector3<double>> vertices{};

    std::vector<Matrix>& stack() { return mode == GL_PROJECTION ? projection : modelview; }
    void multiply(const Matrix& m) { stack().back() = product(stack().back(), m); }
};

struct Recorder {
    std::vector<Call> calls;
    std::vector<Primitive> drawn;
    std::map<GLuint, std::vector<Call>> lists;
    Context context;
    GLuint last_name = 0;
    GLuint compiling = 0;
    bool on = true;
};
Recorder& recorder = *new Recorder;  // outlives static objects that still delete lists

GLenum enumerant(double value) { return static_cast<GLenum>(value); }

Colour colour_at(const Call& call, std::size_t first) {
    Colour colour{};
    for (std::size_t i = 0; i < 4; ++i) colour[i] = static_cast<float>(call.arguments[first + i]);
    return colour;
}

Primitive primitive(const Context& context, const char* name) {
    Primitive p;
    p.name = name;
    p.model = context.modelview.back();
    p.projection = context.projection.back();
    p.material = context.front_diffuse;
    p.back_material = context.back_diffuse;
    p.ambient = context.front_ambient;
    p.colour = context.colour;
    p.line_width = context.line_width;
    p.enabled = context.enabled;
    return p;
}

void set_material(Context& context, const Call& call) {
    const GLenum face = enumerant(call.arguments[0]);
    const GLenum property = enumerant(call.arguments[1]);
    const Colour colour = colour_at(call, 2);
    const bool diffuse = property == GL_DIFFUSE || property == GL_AMBIENT_AND_DIFFUSE;
    const bool ambient = property == GL_AMBIENT || property == GL_AMBIENT_AND_DIFFUSE;
    if (diffuse && face != GL_BACK) context.front_diffuse = colour;
    if (diffuse && face != GL_FRONT) context.back_diffuse = colour;
    if (ambient && face != GL_BACK) context.front_ambient = colour;
}

void add_lines(Context& context, std::vector<Primitive>& out) {
    for (std::size_t i = 0; i + 1 < context.vertices.size(); i += 2) {
        Primitive line = primitive(context, "line");
        line.ends = {context.vertices[i], context.vertices[i + 1]};
        out.push_back(std::move(line));
    }
    context.vertices.clear();
}

void add_shape(const Context& context, const Call& call, std::vector<Primitive>& out) {
    Primitive shape = primitive(context, call.name);
    shape.arguments = call.values();
    shape.string = call.string;
    out.push_back(std::move(shape));
}

void execute(Context& context, const Call& call, std::vector<Primitive>& out, int depth = 0);

void execute_list(Context& context, GLuint name, std::vector<Primitive>& out, int depth) {
    const auto list = recorder.lists.find(name);
    if (list == recorder.lists.end() || depth > 64) return;
    for (const Call& call : list->second) execute(context, call, out, depth + 1);
}

void pop(std::vector<Matrix>& stack) {
    if (stack.size() > 1) stack.pop_back();
}

/// Changes the context or draws. Calls that do neither here (light, viewport, clear, ...) pass.
void execute(Context& context, const Call& call, std::vector<Primitive>& out, int depth) {
    const std::string_view name = call.name;
    const auto& a = call.arguments;
    if (name == "glPushMatrix") return context.stack().push_back(context.stack().back());
    if (name == "glPopMatrix") return pop(context.stack());
    if (name == "glTranslatef") return context.multiply(translation(a[0], a[1], a[2]));
    if (name == "glRotatef") return context.multiply(rotation(a[0], a[1], a[2], a[3]));
    if (name == "glScalef") return context.multiply(scaling(a[0], a[1], a[2]));
    if (name == "glMultMatrixf") {
        Matrix m{};
        std::copy_n(a.begin(), 16, m.begin());
        return context.multiply(m);
    }
    if (name == "glMatrixMode") return void(context.mode = enumerant(a[0]));
    if (name == "glLoadIdentity") return void(context.stack().back() = identity);
    if (name == "glOrtho") {
        // A volume without extent is an error, and the matrix stays.
        if (a[0] == a[1] || a[2] == a[3] || a[4] == a[5]) return;
        return context.multiply(orthographic(a[0], a[1], a[2], a[3], a[4], a[5]));
    }
    if (name == "glMaterialfv") return set_material(context, call);
    if (name == "glColor4fv") return void(context.colour = colour_at(call, 0));
    if (name == "glEnable") return void(context.enabled.insert(enumerant(a[0])));
    if (name == "glDisable") return void(context.enabled.erase(enumerant(a[0])));
    if (name == "glLineWidth") return void(context.line_width = static_cast<float>(a[0]));
    if (name == "glVertex3fv")
        return context.vertices.push_back(transformed(context.modelview.back(), a[0], a[1], a[2]));
    if (name == "glEnd") return add_lines(context, out);
    if (name == "glCallList") return execute_list(context, static_cast<GLuint>(a[0]), out, depth);
    if (name == "gluSphere" || name == "gluDisk" || name == "gluCylinder" ||
        name == "wgltextstring")
        return add_shape(context, call, out);
}

Call make(const char* name, std::initializer_list<double> arguments,
          std::span<const float> array = {}) {
    Call call;
    call.name = name;
    for (const double value : arguments) call.arguments[call.count++] = value;
    for (const float value : array) call.arguments[call.count++] = static_cast<double>(value);
    return call;
}

/// A call that a display list takes in.
void note(Call call) {
    if (recorder.compiling != 0) {
        call.compiled = true;
        recorder.lists[recorder.compiling].push_back(call);
    } else {
        execute(recorder.context, call, recorder.drawn);
    }
    recorder.calls.push_back(std::move(call));
}

void note(const char* name, std::initializer_list<double> arguments = {},
          std::span<const float> array = {}) {
    if (recorder.on) note(make(name, arguments, array));
}

/// A call that acts at once even while a list is compiled.
void note_at_once(const char* name, std::initializer_list<double> arguments = {}) {
    if (recorder.on) recorder.calls.push_back(make(name, arguments));
}

double number(auto value) { return static_cast<double>(value); }

std::size_t parameters_of(GLenum property) { return property == GL_SHININESS ? 1 : 4; }

}  // namespace

std::string text(const Call& call) {
    std::string result = std::string(call.name) + "(";
    for (std::size_t i = 0; i < call.count; ++i) {
        if (i > 0) result += ", ";
        const double value = call.arguments[i];
        std::string digits = number_field::fixed(value, 0, 6);
        if (digits.find('.') != std::string::npos) {
            while (digits.back() == '0') digits.pop_back();
            if (digits.back() == '.') digits.pop_back();
        }
        result += digits.empty() || digits == "-" ? "0" : digits;
    }
    if (!call.string.empty()) result += "\"" + call.string + "\"";
    return result + ")";
}

Vector3<double> Primitive::at(double x, double y, double z) const {
    return transformed(model, x, y, z);
}

const std::vector<Call>& calls() { return recorder.calls; }

std::vector<std::string> texts(const std::set<std::string>& names) {
    std::vector<std::string> result;
    for (const Call& call : recorder.calls)
        if (names.empty() || names.contains(call.name)) result.push_back(text(call));
    return result;
}

std::size_t count(const std::string& name) {
    return static_cast<std::size_t>(
        std::count_if(recorder.calls.begin(), recorder.calls.end(),
                      [&](const Call& call) { return call.name == name; }));
}

const std::vector<Primitive>& drawn() { return recorder.drawn; }

std::vector<Primitive> drawn_by(GLuint list) {
    std::vector<Primitive> result;
    Context context = recorder.context;
    context.modelview = {identity};
    context.mode = GL_MODELVIEW;
    execute_list(context, list, result, 0);
    return result;
}

std::vector<std::string> contents(GLuint list) {
    std::vector<std::string> result;
    if (exists(list))
        for (const Call& call : recorder.lists[list]) result.push_back(text(call));
    return result;
}

bool exists(GLuint list) { return recorder.lists.contains(list); }

void clear() {
    recorder.calls.clear();
    recorder.drawn.clear();
}

void record(bool on) { recorder.on = on; }

}  // namespace gl_record

using gl_record::note;
using gl_record::note_at_once;
using gl_record::number;
using gl_record::recorder;

extern "C" {

GLuint glGenLists(GLsizei range) {
    note_at_once("glGenLists", {number(range)});
    const GLuint first = recorder.last_name + 1;
    for (GLsizei i = 0; i < range; ++i) recorder.lists[++recorder.last_name] = {};
    return first;
}

void glDeleteLists(GLuint list, GLsizei range) {
    note_at_once("glDeleteLists", {number(list), number(range)});
    for (GLsizei i = 0; i < range; ++i) recorder.lists.erase(list + static_cast<GLuint>(i));
}

void glNewList(GLuint list, GLenum mode) {
    note_at_once("glNewList", {number(list), number(mode)});
    recorder.lists[list].clear();
    recorder.compiling = list;
}

void glEndList() {
    note_at_once("glEndList");
    recorder.compiling = 0;
}

GLboolean glIsList(GLuint list) { return gl_record::exists(list) ? GL_TRUE : GL_FALSE; }
void glCallList(GLuint list) { note("glCallList", {number(list)}); }

void glMatrixMode(GLenum mode) { note("glMatrixMode", {number(mode)}); }
void glLoadIdentity() { note("glLoadIdentity"); }
void glPushMatrix() { note("glPushMatrix"); }
void glPopMatrix() { note("glPopMatrix"); }
void glTranslatef(GLfloat x, GLfloat y, GLfloat z) {
    note("glTranslatef", {number(x), number(y), number(z)});
}
void glRotatef(GLfloat angle, GLfloat x, GLfloat y, GLfloat z) {
    note("glRotatef", {number(angle), number(x), number(y), number(z)});
}
void glScalef(GLfloat x, GLfloat y, GLfloat z) {
    note("glScalef", {number(x), number(y), number(z)});
}
void glMultMatrixf(const GLfloat* m) { note("glMultMatrixf", {}, {m, 16}); }
void glOrtho(GLdouble l, GLdouble r, GLdouble b, GLdouble t, GLdouble n, GLdouble f) {
    note("glOrtho", {l, r, b, t, n, f});
}
void glViewport(GLint x, GLint y, GLsizei width, GLsizei height) {
    note("glViewport", {number(x), number(y), number(width), number(height)});
}

void glEnable(GLenum capability) { note("glEnable", {number(capability)}); }
void glDisable(GLenum capability) { note("glDisable", {number(capability)}); }
void glShadeModel(GLenum mode) { note("glShadeModel", {number(mode)}); }
void glBlendFunc(GLenum source, GLenum destination) {
    note("glBlendFunc", {number(source), number(destination)});
}
void glReadBuffer(GLenum mode) { note_at_once("glReadBuffer", {number(mode)}); }
void glDrawBuffer(GLenum mode) { note("glDrawBuffer", {number(mode)}); }
void glLineWidth(GLfloat width) { note("glLineWidth", {number(width)}); }
void glClearColor(GLclampf r, GLclampf g, GLclampf b, GLclampf a) {
    note("glClearColor", {number(r), number(g), number(b), number(a)});
}
void glClear(GLbitfield mask) { note("glClear", {number(mask)}); }

void glMaterialfv(GLenum face, GLenum property, const GLfloat* values) {
    note("glMaterialfv", {number(face), number(property)},
         {values, gl_record::parameters_of(property)});
}
void glGetMaterialfv(GLenum, GLenum, GLfloat* values) {
    note_at_once("glGetMaterialfv");
    std::ranges::copy(recorder.context.front_ambient, values);
}
void glMateriali(GLenum face, GLenum property, GLint value) {
    note("glMateriali", {number(face), number(property), number(value)});
}
void glLightfv(GLenum light, GLenum property, const GLfloat* values) {
    note("glLightfv", {number(light), number(property)}, {values, 4});
}
void glColor4fv(const GLfloat* v) { note("glColor4fv", {}, {v, 4}); }
void glColor4f(GLfloat r, GLfloat g, GLfloat b, GLfloat a) {
    note("glColor4fv", {number(r), number(g), number(b), number(a)});
}

void glBegin(GLenum mode) { note("glBegin", {number(mode)}); }
void glEnd() { note("glEnd"); }
void glVertex3fv(const GLfloat* v) { note("glVertex3fv", {}, {v, 3}); }
void glVertex3f(GLfloat x, GLfloat y, GLfloat z) {
    note("glVertex3fv", {number(x), number(y), number(z)});
}

GLUquadric* gluNewQuadric() {
    note_at_once("gluNewQuadric");
    return new GLUquadric;
}
void gluDeleteQuadric(GLUquadric* quadric) {
    note_at_once("gluDeleteQuadric");
    delete quadric;
}
void gluQuadricNormals(GLUquadric*, GLenum normals) {
    note_at_once("gluQuadricNormals", {number(normals)});
}
void gluQuadricDrawStyle(GLUquadric*, GLenum style) {
    note_at_once("gluQuadricDrawStyle", {number(style)});
}
void gluQuadricOrientation(GLUquadric* quadric, GLenum orientation) {
    note_at_once("gluQuadricOrientation", {number(orientation)});
    quadric->orientation = orientation;
}
void gluSphere(GLUquadric* quadric, GLdouble radius, GLint slices, GLint stacks) {
    note("gluSphere", {radius, number(slices), number(stacks), number(quadric->orientation)});
}
void gluDisk(GLUquadric* quadric, GLdouble inner, GLdouble outer, GLint slices, GLint loops) {
    note("gluDisk", {inner, outer, number(slices), number(loops), number(quadric->orientation)});
}
void gluCylinder(GLUquadric* quadric, GLdouble base, GLdouble top, GLdouble height, GLint slices,
                 GLint stacks) {
    note("gluCylinder",
         {base, top, height, number(slices), number(stacks), number(quadric->orientation)});
}

}  // extern "C"

namespace tesserakit {

void wglselect(int target, int identifier, int mode) {
    note_at_once("wglselect", {number(target), number(identifier), number(mode)});
}

void wglswapbuffers() { note_at_once("wglswapbuffers"); }

/// Arguments that are absent are left out.
void wgltextfont(std::optional<int> font, std::optional<int> style, std::optional<float> depth,
                 std::optional<std::string_view> name, std::optional<int> spacing) {
    gl_record::Call call;
    call.name = "wgltextfont";
    if (font) call.arguments[call.count++] = number(*font);
    if (style) call.arguments[call.count++] = number(*style);
    if (depth) call.arguments[call.count++] = number(*depth);
    if (name) call.string = *name;
    if (spacing) call.arguments[call.count++] = number(*spacing);
    recorder.calls.push_back(call);
}

void wgltextstring(std::string_view text) {
    gl_record::Call call;
    call.name = "wgltextstring";
    call.string = text;
    note(call);
}

}  // namespace tesserakit
