/// Symmetry operators and space groups: one namespace over several headers.
#pragma once

#include "crystal/crystallographic_symmetry/centring.hpp"
#include "crystal/crystallographic_symmetry/from_generators.hpp"
#include "crystal/crystallographic_symmetry/from_hall.hpp"
#include "crystal/crystallographic_symmetry/from_hermann_mauguin.hpp"
#include "crystal/crystallographic_symmetry/group_properties.hpp"
#include "crystal/crystallographic_symmetry/operator_tables.hpp"
#include "crystal/crystallographic_symmetry/operators.hpp"
#include "crystal/crystallographic_symmetry/orbits.hpp"
#include "crystal/crystallographic_symmetry/space_group.hpp"
