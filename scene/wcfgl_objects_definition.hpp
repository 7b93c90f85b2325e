/// The four shapes that every object of the scene is a scaled copy of, as display lists.
///
/// Objects call a shape by its list name. The names stay for the whole run while the contents may
/// change, so that a switch of the resolution touches no object.
#pragma once

#include <GL/gl.h>

namespace wcfgl_objects_definition {

/// List names; 0 until the init_ routine of the shape has run once.
extern GLuint atom_definition;    ///< sphere of atom_radius about the origin
extern GLuint moment_definition;  ///< arrow of length 1 along x, centred on the origin
extern GLuint bond_definition;    ///< rod of length 1 from the origin along x
extern GLuint axes_definition;    ///< thicker arrow of length 1 along x, centred on the origin

struct Resolution {
    int moment_slices;
    int moment_stacks;
    int bond_slices;
    int bond_stacks;
    int atom;  ///< slices and stacks of the sphere
};

extern const Resolution low_resolution;
extern Resolution high_resolution;     ///< the user's quality
extern Resolution present_resolution;  ///< what the next build uses, within limit_slices
extern int highres;                    ///< 1 at the high resolution, 0 during a drag

extern double moment_shaft_radius;
extern double moment_head_radius;
extern double moment_shaft_length;  ///< the head takes the rest of length 1
extern double bond_radius;
extern double atom_radius;

/// Build a shape or build it anew, under the name taken at the first call. A current context is
/// needed.
void init_atom();
void init_moment();
void init_bond();
void init_axes();

/// Rebuild atom, moment and bond at that resolution; the axes have only one.
void switch_lowres_objects();
void switch_highres_objects();

/// From now on atom, moment and bond are built with no more slices than `most`, or 3, whatever the
/// resolution; the sphere's stacks likewise. They are built anew only where that makes a
/// difference.
void limit_slices(int most);

/// Sets the slices of the high resolution, 6 to 60, and switches to it; the stacks stay 1. Other
/// values change nothing.
void change_res_objects(int quality);

/// The arrow's shape, in hundredths, from sliders of 0 to 100. Values out of range change nothing:
/// the head's share of the length is 5 to 95; its radius at least 5 and not below the shaft's; the
/// shaft's radius at least 5, and free to exceed the head's.
void change_moment_length(int value);
void change_moment_width(int value);
void change_moment_thickness(int value);

}  // namespace wcfgl_objects_definition
