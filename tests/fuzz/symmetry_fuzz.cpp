// One input is a symbol and up to 20 operator lines, given to every reader of such texts. The
// first byte chooses the mode of the group.
#include "common/number_field.hpp"
#include "crystal/crystallographic_symmetry.hpp"
#include "crystal/crystallographic_symmetry/group_table.hpp"
#include "crystal/string_utilities.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

using namespace crystallographic_symmetry;

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

void read_line(std::string_view line) {
    Sym_Oper_Type op;
    read_xsym(line, 1, op.rot, &op.tr);
    FixedText<80> text;
    get_symsymb(op.rot, op.tr, text);
    float phase = 0.0f;
    Matrix3i rot;
    read_msymm(line, rot, phase);
    decodmatmag(op.rot);
    get_seitz(2, op.tr);
    int number = 0;
    Vector3f cells;
    read_symtrans_code(line, number, cells);
    write_symtrans_code(number, cells);
}

void read_numbers(std::string_view line) {
    std::array<float, 8> reals;
    std::array<float, 8> sigmas;
    std::array<int, 8> integers;
    const int count = string_utilities::getnum(line, reals, integers);
    require(count >= 0 && count <= 8);
    string_utilities::getnum_std(line, reals, sigmas);
    string_utilities::setnum_std(reals[0], sigmas[0]);
    string_utilities::get_fraction_1dig(reals[0]);
    string_utilities::get_fraction_2dig(reals[0]);
    number_field::to_float(line);
    number_field::to_int(line);
}

/// What holds of every group that was built without an error.
void check(const Space_Group_Type& group, bool as_given) {
    require(group.multip > 0 && group.num_ops > 0 && group.num_lat >= 1 && group.num_lat <= 12);
    if (as_given) return;
    require(group.num_ops <= 24 && group.centred >= 0 && group.centred <= 2);
    require(group.multip == group.num_ops * (group.centred == 1 ? 1 : 2) * group.num_lat);
    require(group.sym_op[0].rot == identity_rotation);
    std::ostringstream out;
    write_spacegroup(group, out, true);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string input(data + 1, data + size);
    std::vector<FixedText<80>> lines;
    std::istringstream stream(input);
    std::string symbol;
    std::getline(stream, symbol);
    for (std::string line; lines.size() < 20 && std::getline(stream, line);) {
        read_line(line);
        lines.emplace_back(std::string_view(line));
    }
    read_line(symbol);
    read_numbers(symbol);

    constexpr std::array<const char*, 7> modes{nullptr, "HMS", "ITC", "HAL", "GEN", "FIX", "?"};
    SpacegroupOptions options;
    if (const char* mode = modes[data[0] % modes.size()]) options.mode = mode;
    if (!lines.empty()) {
        options.gen = lines;
        options.ngen = static_cast<int>(lines.size());
    }
    options.force_hall = data[0] >= 128;
    static Space_Group_Type group;
    set_spacegroup(symbol, group, options);
    if (!err_symm) check(group, options.mode == "FIX");
    return 0;
}
