/// Space groups from symbols, all tabulated settings, beside gemmi in the same run.
///
/// Two tasks: a Hall symbol to all operators and their triplets, and to the complete record with
/// the orbits of the special positions. A setting counts when both programs give the same set of
/// operators. The two sides take many short turns, so that a busy machine slows both alike.
#include "crystal/crystallographic_symmetry.hpp"
#include "crystal/symmetry_tables.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <gemmi/symmetry.hpp>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace crystallographic_symmetry;
using Clock = std::chrono::steady_clock;

constexpr int pairs = 51;
constexpr int rounds = 4;

/// Rotation and translation in 24ths.
using Operator = std::array<int, 12>;

std::vector<Operator> ours(const Space_Group_Type& group) {
    std::vector<Operator> set;
    for (int n = 0; n < group.multip; ++n) {
        const Sym_Oper_Type& op = group.sym_op[static_cast<std::size_t>(n)];
        Operator flat{};
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) flat[3 * i + j] = op.rot[i][j];
            flat[9 + i] = static_cast<int>(std::lround(op.tr[i] * 24.0f)) % 24;
        }
        set.push_back(flat);
    }
    std::sort(set.begin(), set.end());
    return set;
}

std::vector<Operator> theirs(const std::string& hall) {
    std::vector<Operator> set;
    for (const gemmi::Op& op : gemmi::symops_from_hall(hall.c_str())) {
        Operator flat{};
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) flat[3 * i + j] = op.rot[i][j] / gemmi::Op::DEN;
            flat[9 + i] = ((op.tran[i] % gemmi::Op::DEN) + gemmi::Op::DEN) % gemmi::Op::DEN;
        }
        set.push_back(flat);
    }
    std::sort(set.begin(), set.end());
    return set;
}

std::vector<std::string> settings_both_agree_on() {
    std::vector<std::string> halls;
    Space_Group_Type group;
    for (const symmetry_tables::SpgrRow& row : symmetry_tables::spgr_rows()) {
        const std::string hall(row.hall.trimmed());
        set_spacegroup(hall, group, {.mode = "HAL"});
        if (!err_symm && ours(group) == theirs(hall))
            halls.push_back(hall);
        else
            std::printf("not counted: %s\n", hall.c_str());
    }
    return halls;
}

/// Microseconds a setting.
template <class Task>
double time_of(const std::vector<std::string>& halls, Task task) {
    const auto start = Clock::now();
    for (int round = 0; round < rounds; ++round)
        for (const std::string& hall : halls) task(hall);
    const std::chrono::duration<double, std::micro> spent = Clock::now() - start;
    return spent.count() / (rounds * static_cast<double>(halls.size()));
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

template <class Ours, class Theirs>
void compare(const char* what, const std::vector<std::string>& halls, Ours our_task,
             Theirs their_task) {
    std::vector<double> our_times, their_times, ratios;
    for (int pair = 0; pair < pairs; ++pair) {
        our_times.push_back(time_of(halls, our_task));
        their_times.push_back(time_of(halls, their_task));
        ratios.push_back(our_times.back() / their_times.back());
    }
    std::printf("%-32s %8.3f us   gemmi %8.3f us   ratio %.3f (%.3f to %.3f)\n", what,
                median(our_times), median(their_times), median(ratios),
                *std::min_element(ratios.begin(), ratios.end()),
                *std::max_element(ratios.begin(), ratios.end()));
}

}  // namespace

int main() {
    const std::vector<std::string> halls = settings_both_agree_on();
    std::printf("%zu settings, %d pairs of runs, medians\n", halls.size(), pairs);
    static Space_Group_Type group;
    std::size_t sink = 0;
    const auto operators = [&](const std::string& hall) {
        expand_list(get_so_from_hall(hall), group);
        sink += static_cast<std::size_t>(group.multip);
    };
    const auto record = [&](const std::string& hall) {
        set_spacegroup(hall, group, {.mode = "HAL"});
        sink += static_cast<std::size_t>(group.multip);
    };
    const auto gemmi_operators = [&](const std::string& hall) {
        for (const gemmi::Op& op : gemmi::symops_from_hall(hall.c_str()))
            sink += op.triplet().size();
    };
    compare("operators and texts", halls, operators, gemmi_operators);
    compare("complete record", halls, record, gemmi_operators);
    return sink == 0;
}
