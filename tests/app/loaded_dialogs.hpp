/// All dialogs of the program as they stand once it has started, and a model to show in them.
#pragma once

#include "app/dialog_binding.hpp"
#include "app/identifiers.hpp"
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"
#include "tests/support/dialog_record.hpp"
#include "toolkit/tesserakit.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

class LoadedDialogs : public testing::Test {
protected:
    LoadedDialogs() {
        tesserakit::windowopen2({.dialog = gemwright::dialog::main});
        gemwright::load_all_dialogs();
        wcfgl_display::display_init();
    }

    /// Every operation on the dialogs leaves the main one selected.
    void TearDown() override {
        EXPECT_EQ(dialog_record::current_dialog(), gemwright::dialog::main);
    }

    template <std::size_t N>
    static std::vector<std::string> texts(int dialog, const std::array<int, N>& fields) {
        std::vector<std::string> found;
        for (const int field : fields) found.push_back(dialog_record::text({dialog, field}));
        return found;
    }
    template <std::size_t N>
    static std::vector<int> values(int dialog, const std::array<int, N>& fields) {
        std::vector<int> found;
        for (const int field : fields) found.push_back(dialog_record::value({dialog, field}));
        return found;
    }
    template <std::size_t N>
    static std::vector<int> states(int dialog, const std::array<int, N>& fields) {
        std::vector<int> found;
        for (const int field : fields) found.push_back(dialog_record::state({dialog, field}));
        return found;
    }
    template <std::size_t N>
    static void type(int dialog, const std::array<int, N>& fields,
                     const std::array<const char*, N>& typed) {
        for (std::size_t i = 0; i < N; ++i) dialog_record::type({dialog, fields[i]}, typed[i]);
    }

    static void two_atoms() {
        wcfgl_atom_tree::push_atom({.label = "Fe1",
                                    .symbol = "FE",
                                    .xf = {0.125f, 0.25f, 0.375f},
                                    .radius = 0.75f,
                                    .nodisplay = 1,
                                    .colour = Colour{0.1f, 0.2f, 0.3f, 0.4f}});
        wcfgl_atom_tree::push_atom(
            {.label = "O2", .symbol = "O ", .xf = {0.5f, 0.0f, 0.0f}, .radius = 0.5f});
        gemwright::set_atom_label_list();
    }
};
