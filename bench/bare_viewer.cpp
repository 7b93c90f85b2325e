// The least program that shows spheres: one Motif drawing area, one GLX context, the same display
// lists, lamp and projection as the scene. The measure beside which the viewer is held.
//
// bare_viewer NX NY NZ WIDTH HEIGHT: NX x NY x NZ spheres on a cubic lattice. After the first
// picture it writes a line, then obeys its standard input: "frames N HIGH" draws N frames and
// writes the microseconds a frame took; "memory" writes the resident kilobytes; "idle" hands the
// loop back to the window for good; the end of input ends the program.

#include "bench/commands.hpp"

#include <GL/gl.h>
#include <GL/glu.h>
#include <GL/glx.h>
#include <Xm/DrawingA.h>
#include <Xm/MainW.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>

namespace {

struct Viewer {
    Display* display = nullptr;
    Window window = 0;
    GLuint sphere = 0;
    GLuint main_list = 0;
    std::array<int, 3> cells{};
    int width = 0;  ///< pixels
    int height = 0;
};
Viewer viewer;

constexpr GLfloat spacing = 3.0f;

void compile_sphere(bool high) {
    const int facets = high ? 20 : 6;
    GLUquadric* quadric = gluNewQuadric();
    gluQuadricNormals(quadric, GLU_SMOOTH);
    gluQuadricDrawStyle(quadric, GLU_FILL);
    glNewList(viewer.sphere, GL_COMPILE);
    gluSphere(quadric, 0.3, facets, facets);
    glEndList();
    gluDeleteQuadric(quadric);
}

void compile_scene() {
    viewer.sphere = glGenLists(3);
    const GLuint atoms = viewer.sphere + 1;
    viewer.main_list = viewer.sphere + 2;
    compile_sphere(true);
    const std::array<GLfloat, 4> colour{0.9f, 0.3f, 0.1f, 1.0f};
    glNewList(atoms, GL_COMPILE);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, colour.data());
    for (int i = 0; i < viewer.cells[0]; ++i)
        for (int j = 0; j < viewer.cells[1]; ++j)
            for (int k = 0; k < viewer.cells[2]; ++k) {
                glPushMatrix();
                glTranslatef(spacing * static_cast<GLfloat>(i), spacing * static_cast<GLfloat>(j),
                             spacing * static_cast<GLfloat>(k));
                glScalef(1.0f, 1.0f, 1.0f);
                glCallList(viewer.sphere);
                glPopMatrix();
            }
    glEndList();
    glNewList(viewer.main_list, GL_COMPILE);
    glCallList(atoms);
    glEndList();
}

void set_up() {
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LINE_SMOOTH);
    glEnable(GL_BLEND);
    glEnable(GL_NORMALIZE);
    glShadeModel(GL_SMOOTH);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void draw() {
    const std::array<GLfloat, 4> white{1, 1, 1, 1}, ambient{0.05f, 0.05f, 0.05f, 1},
        diffuse{0.9f, 0.9f, 0.9f, 1}, lamp{0, 0, 50, 0};
    glClearColor(0, 0, 0, 1);
    glMaterialfv(GL_FRONT, GL_SPECULAR, white.data());
    glMateriali(GL_FRONT, GL_SHININESS, 80);
    const int big = std::max(viewer.width, viewer.height);
    glViewport(0, (std::min(viewer.width, viewer.height) - big) / 2, big, big);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    const double size = static_cast<double>(spacing) *
                        (*std::max_element(viewer.cells.begin(), viewer.cells.end()) - 1);
    glOrtho(-size, size, -size, size, -2 * size, 2 * size);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient.data());
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse.data());
    glLightfv(GL_LIGHT0, GL_POSITION, lamp.data());
    const auto half = [](int n) { return -0.5f * spacing * static_cast<GLfloat>(n - 1); };
    glTranslatef(half(viewer.cells[0]), half(viewer.cells[1]), half(viewer.cells[2]));
    glCallList(viewer.main_list);
    glXSwapBuffers(viewer.display, viewer.window);
}

void resized(Widget widget, XtPointer, XtPointer) {
    Dimension width = 0, height = 0;
    XtVaGetValues(widget, XmNwidth, &width, XmNheight, &height, nullptr);
    viewer.width = width;
    viewer.height = height;
}

void exposed(Widget, XtPointer, XtPointer) { draw(); }

/// The visual of a double-buffered context with depth, as the viewer picks it.
XVisualInfo* choose_visual(Display* display) {
    std::array<int, 6> attributes{GLX_RGBA, GLX_DOUBLEBUFFER, GLX_DEPTH_SIZE, 16, None, None};
    return glXChooseVisual(display, DefaultScreen(display), attributes.data());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 6) return EXIT_FAILURE;
    viewer.width = std::atoi(argv[4]);
    viewer.height = std::atoi(argv[5]);
    for (std::size_t i = 0; i < 3; ++i) viewer.cells[i] = std::atoi(argv[i + 1]);

    XtAppContext context = nullptr;
    Widget shell = XtVaAppInitialize(&context, "Bare", nullptr, 0, &argc, argv, nullptr, XmNwidth,
                                     viewer.width, XmNheight, viewer.height, nullptr);
    Widget area = XtVaCreateManagedWidget("area", xmDrawingAreaWidgetClass, shell, nullptr);
    XtAddCallback(area, XmNresizeCallback, resized, nullptr);
    XtAddCallback(area, XmNexposeCallback, exposed, nullptr);
    viewer.display = XtDisplay(shell);
    XVisualInfo* visual = choose_visual(viewer.display);
    if (!visual) return EXIT_FAILURE;
    XtRealizeWidget(shell);
    viewer.window = XtWindow(area);
    GLXContext gl = glXCreateContext(viewer.display, visual, nullptr, True);
    if (!gl || !glXMakeCurrent(viewer.display, viewer.window, gl)) return EXIT_FAILURE;
    resized(area, nullptr, nullptr);
    set_up();
    compile_scene();
    draw();
    glFinish();

    const auto serve = [&](bool wait) {
        while (wait || XtAppPending(context)) {
            XEvent event;
            XtAppNextEvent(context, &event);
            XtDispatchEvent(&event);
        }
    };
    bench::obey({.draw = [] { draw(); },
                 .finish = [] { glFinish(); },
                 .resolution = [](bool high) { compile_sphere(high); },
                 .serve = [&] { serve(false); },
                 .idle = [&] { serve(true); },
                 .size =
                     [] {
                         return std::array{viewer.width, viewer.height};
                     }});
    return EXIT_SUCCESS;
}
