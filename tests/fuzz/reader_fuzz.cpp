// Any bytes as a structure file: no crash, no hang, no overrun, and what was read can be drawn and
// written. The lists are compiled at the frame, so that a box or a distance beyond all measure
// shows there.
#include "scene/wcfgl_atom_tree.hpp"
#include "scene/wcfgl_bond_tree.hpp"
#include "scene/wcfgl_display.hpp"
#include "scene/wcfgl_io.hpp"
#include "scene/wcfgl_matom_tree.hpp"
#include "scene/wcfgl_metrix.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

/// A file in memory, and the name it can be opened by.
struct MemoryFile {
    int descriptor = ::memfd_create("reader_fuzz", MFD_CLOEXEC);
    std::string name = "/proc/self/fd/" + std::to_string(descriptor);

    void fill(const std::uint8_t* data, std::size_t size) const {
        const bool good = ::ftruncate(descriptor, 0) == 0 &&
                          ::pwrite(descriptor, data, size, 0) == static_cast<ssize_t>(size);
        if (!good) std::abort();
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    file.fill(data, size);
    // What a file without them would take over from the input before.
    wcfgl_metrix::define_box(0, 1, 0, 1, 0, 1);
    wcfgl_metrix::define_cell({5, 6, 7}, {90, 90, 90});
    Quaternion view{};
    wcfgl_io::read_gwr_file(std::string_view(file.name), &view);
    wcfgl_display::display();

    std::string out;
    wcfgl_atom_tree::write_atom_list(out);
    wcfgl_bond_tree::write_bond_list(out);
    wcfgl_matom_tree::write_magnetic_structure(out);
    if (!out.ends_with("}\n")) std::abort();
    return 0;
}
