// System fonts have no glyphs on X: with one selected the block of lists exists and stays empty,
// so that a text's calls are made and leave no mark. The stroke font isn't made either: no
// character set comes with the toolkit.

#include "toolkit/windows/gl_text.hpp"

#include "common/fixed_text.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/gl_calls.hpp"

#include <GL/gl.h>

namespace tesserakit {

namespace {

constexpr unsigned no_lists = ~0U;
constexpr int first_character = 32;
constexpr int characters = 224;
constexpr int soft_font = 1;
constexpr int system_font = 2;
constexpr int first_family = 100;
constexpr int last_family = 104;
constexpr int style_bits = 3;
constexpr float smallest_depth = 0.0f;

struct FontChoice {
    bool soft = false;
    int family = 0;
    int style = 0;  ///< 1 goes with each stroke, 2 slants the stroke font
    float depth = 0.0f;
    FixedText<100> name;
    int spacing = 0;

    friend bool operator==(const FontChoice&, const FontChoice&) = default;
};

struct State {
    FontChoice font;
    int justification = 0;
};
constinit State state{};

void choose_font(FontChoice& choice, int font) {
    if (font == soft_font) choice.soft = true;
    if (font == system_font) choice.soft = false;
    if (font < first_family || font > last_family) return;
    choice.soft = false;
    choice.family = font - first_family;
}

/// The width of a text: no font that can be chosen has glyphs, so nothing advances.
float wgltextlength(std::string_view) { return 0.0f; }

void justify(std::string_view text) {
    if (state.justification == 1) glTranslatef(-wgltextlength(text) / 2, 0.0f, 0.0f);
    if (state.justification == 2) glTranslatef(-wgltextlength(text), 0.0f, 0.0f);
}

}  // namespace

constinit unsigned glFontList = no_lists;

void wgltextfont(std::optional<int> font, std::optional<int> style, std::optional<float> depth,
                 std::optional<std::string_view> name, std::optional<int> spacing) {
    FontChoice choice = state.font;
    if (font) choose_font(choice, *font);
    if (style) choice.style = *style & style_bits;
    if (depth && *depth >= smallest_depth) choice.depth = *depth;
    if (name) choice.name = *name;
    if (spacing) choice.spacing = *spacing;
    if (!choice.soft && choice.family == 0 && choice.name.blank()) {
        yyerror(FontNameMissing, "WglTextFont");
        return;
    }
    if (choice == state.font && glFontList != no_lists) return;
    state.font = choice;
    if (glFontList != no_lists) return;
    // 0 without a context: the next call tries again.
    if (const GLuint lists = glGenLists(characters); lists != 0) glFontList = lists;
}

void wgltextorientation(int justification) {
    if (justification >= 0 && justification <= 2) state.justification = justification;
}

void wgltextstring(std::string_view text) {
    // From all ones the numbers would wrap around to lists that are someone else's.
    if (glFontList == no_lists) return;
    justify(text);
    GLint front_face = GL_CCW;
    GLint cull_face = GL_BACK;
    GLint list_base = 0;
    glGetIntegerv(GL_FRONT_FACE, &front_face);
    glGetIntegerv(GL_CULL_FACE_MODE, &cull_face);
    glGetIntegerv(GL_LIST_BASE, &list_base);
    glListBase(glFontList - first_character);
    glCallLists(static_cast<GLsizei>(text.size()), GL_UNSIGNED_BYTE, text.data());
    glListBase(static_cast<GLuint>(list_base));
    glCullFace(static_cast<GLenum>(cull_face));
    glFrontFace(static_cast<GLenum>(front_face));
}

void reset_gl_text() {
    state = {};
    glFontList = no_lists;
}

}  // namespace tesserakit
