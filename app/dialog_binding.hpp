/// The copying between dialogs and model, both ways.
///
/// Dialogs are plain views: none holds a model of its own. A field that holds no number leaves the
/// model's as it is, and an entry for something new needs all of its numbers. Every routine here
/// selects the dialogs it needs and leaves the main dialog selected. A change of the model shows in
/// the next frame. Colours stand in sliders as hundredths.
#pragma once

#include "scene/wcfgl_metrix.hpp"

namespace gemwright {

void load_all_dialogs();

// From the model into the fields: set_fields.cpp
void set_all_fields();
void set_info_fields();
void set_spacegroup_fields();
void set_failed_group_fields();
void set_cell_fields();
void set_box_fields();
void set_atom_label_list();
void set_atom_field();
void set_bond_label_list();
void set_bond_field();
void set_magnetic_fields();
void set_magnetic_lattice();
void set_magnetic_kvectors();
void set_kvectors_field();
void set_material();
void set_lamp();
void set_moment();

// From the fields into the model: get_fields.cpp
/// OK of a dialog.
void get_values(int dialog);
/// A field has changed or the focus has moved to it.
void get_fields(int dialog, int field);
/// The six numbers of the box dialog, the box's own for those that aren't there.
wcfgl_metrix::Box box_in_fields();
void define_box(const wcfgl_metrix::Box& box);

void hide_dialog(int dialog);

// The buttons beside the lists: list_buttons.cpp
void insert_atom();
void delete_atom();
void insert_bond();
void delete_bond();
void insert_k_vector();
void delete_k_vector();

/// Selects a dialog for its lifetime, and the main dialog behind it: the loop finds its check box
/// and the picture there.
class DialogSelection {
public:
    explicit DialogSelection(int dialog);
    ~DialogSelection();
    DialogSelection(const DialogSelection&) = delete;
    DialogSelection& operator=(const DialogSelection&) = delete;
};

}  // namespace gemwright
