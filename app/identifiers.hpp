/// Identifiers of the compiled resource block that the program itself names. The catalogue in
/// app/resource holds the dialogs, menus and pictures they stand for.
#pragma once

#include <array>

namespace gemwright {

namespace menu {
inline constexpr int root = 30001;
}

namespace toolbar {
inline constexpr int scene = 30101;
inline constexpr int file = 30102;
}  // namespace toolbar

/// Menu items, and toolbar buttons where they are called so.
namespace item {
// File
inline constexpr int new_file = 40002;
inline constexpr int new_button = 40120;
inline constexpr int open = 40003;
inline constexpr int open_button = 40115;
inline constexpr int close = 40006;
inline constexpr int save = 40004;
inline constexpr int save_button = 40117;
inline constexpr int save_as = 40005;
inline constexpr int save_as_button = 40118;
inline constexpr int export_bitmap = 40028;
inline constexpr int exit = 40007;
inline constexpr int reload_button = 40122;
inline constexpr int edit_button = 40121;
// Crystal Structure
inline constexpr int space_group = 40013;
inline constexpr int cell = 40021;
inline constexpr int atoms = 40015;
inline constexpr int bonds = 40016;
inline constexpr int polyhedra = 40018;
// Magnetic structure
inline constexpr int magnetic = 40012;
inline constexpr int magnetic_operators = 40019;
inline constexpr int magnetic_atoms = 40020;
inline constexpr int list_moments = 40017;
// Options
inline constexpr int material = 40029;
inline constexpr int lamp = 40026;
inline constexpr int box = 40025;
inline constexpr int axes = 40023;
inline constexpr int moment = 40014;
// Help
inline constexpr int about = 40009;
// the toolbar of the scene
inline constexpr int background_colour = 40108;
inline constexpr int cell_colour = 40101;
inline constexpr int hide_cell = 40103;
inline constexpr int show_single_cell = 40104;
inline constexpr int show_multiple_cells = 40102;
inline constexpr int hide_axes = 40107;
inline constexpr int show_axes = 40105;
inline constexpr int hide_atoms = 40106;
inline constexpr int show_atoms = 40110;
inline constexpr int hide_hydrogens = 40111;
inline constexpr int show_hydrogens = 40116;
inline constexpr int hide_bonds = 40109;
inline constexpr int show_bonds = 40112;
inline constexpr int hide_moments = 40114;
inline constexpr int show_moments = 40113;
}  // namespace item

namespace dialog {
inline constexpr int main = 101;
inline constexpr int space_group = 102;
inline constexpr int box = 103;
inline constexpr int cell = 105;
inline constexpr int axes = 106;
inline constexpr int atoms = 107;
inline constexpr int about = 108;
inline constexpr int atom_position = 109;  ///< page of the atoms dialog
inline constexpr int magnetic = 110;
inline constexpr int magnetic_operators = 111;
inline constexpr int bonds = 112;
inline constexpr int atom_look = 114;  ///< page of the atoms dialog
inline constexpr int bond_rule = 115;  ///< page of the bonds dialog
inline constexpr int bond_look = 116;  ///< page of the bonds dialog
inline constexpr int material = 117;
inline constexpr int lamp = 118;
inline constexpr int splash = 119;
inline constexpr int moment = 120;
}  // namespace dialog

namespace field {
// main
inline constexpr int picture = 1001;
inline constexpr int mouse_mode = 1002;  ///< first radio of three: rotate, zoom, translate
inline constexpr int information = 1006;
inline constexpr int continuous_read = 1208;
// space group
inline constexpr int symbol_label = 1007;
inline constexpr int symbol = 1008;
inline constexpr int by_symbol = 1009;  ///< first radio of two: symbol, generators
inline constexpr int generators_group = 1011;
inline constexpr int generators = 1012;
inline constexpr int hall = 1057;
inline constexpr int crystal_system = 1059;
inline constexpr int hermann_mauguin = 1061;
// box: xmin, xmax, ymin, ymax, zmin, zmax
inline constexpr std::array box_limits{1015, 1017, 1019, 1021, 1023, 1025};
// cell
inline constexpr std::array cell_lengths{1029, 1031, 1033};
inline constexpr std::array cell_angles{1035, 1037, 1039};
// atoms
inline constexpr int atom_list = 1069;
inline constexpr int atom_label = 1080;
inline constexpr int atom_symbol = 1081;
inline constexpr std::array atom_coordinates{1082, 1083, 1084};
inline constexpr int atom_multiplicity = 1085;
inline constexpr int atom_shown = 1101;
inline constexpr int atom_radius = 1103;
inline constexpr int atom_default_colour = 1107;  ///< first radio of two: the element's, its own
inline constexpr int atom_own_colour = 1108;
inline constexpr std::array atom_colour{1124, 1125, 1126, 1105};  ///< red, green, blue, alpha
inline constexpr std::array atom_colour_labels{1121, 1122, 1123, 1104};
// magnetic structure
inline constexpr int magnetic_lattice = 1110;
inline constexpr int k_list = 1113;
inline constexpr std::array k_components{1117, 1118, 1119};
// bonds
inline constexpr int bond_list = 1139;
inline constexpr int bond_by_symbol = 1144;  ///< first radio of two: symbol, label
inline constexpr int bond_by_label = 1145;
inline constexpr std::array bond_names{1168, 1169};
inline constexpr std::array bond_distances{1149, 1150};
inline constexpr int bond_shown = 1154;
inline constexpr int bond_radius = 1156;
inline constexpr int bond_atoms_colour = 1157;  ///< first radio of two: from atoms, user defined
inline constexpr int bond_own_colour = 1158;
inline constexpr std::array bond_colour{1163, 1164, 1165, 1166};  ///< red, green, blue, alpha
inline constexpr std::array bond_colour_labels{1159, 1160, 1161, 1162};
// material
inline constexpr int quality = 1171;
inline constexpr int shininess = 1175;
inline constexpr std::array specular{1181, 1182, 1183};
// lamp
inline constexpr std::array lamp_position{1189, 1190, 1191};
inline constexpr std::array lamp_colour{1196, 1197, 1198};
// moment
inline constexpr int moment_head_length = 1202;
inline constexpr int moment_head_width = 1203;
inline constexpr int moment_thickness = 1207;
}  // namespace field

namespace button {
inline constexpr int ok = 1;
inline constexpr int cancel = 2;
inline constexpr int recentre = 1005;
inline constexpr int insert_atom = 1070;
inline constexpr int delete_atom = 1071;
inline constexpr int delete_k_vector = 1112;
inline constexpr int insert_k_vector = 1120;
inline constexpr int delete_bond = 1140;
inline constexpr int insert_bond = 1142;
}  // namespace button

}  // namespace gemwright
