# gemwright_warnings: what every target of ours is compiled with.
add_library(gemwright_warnings INTERFACE)
target_compile_options(gemwright_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wdouble-promotion
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wno-missing-field-initializers
  # GCC 12 takes the overlap check of std::string at -O2 and -O3 for a fault.
  -Wno-restrict
  # Results in 32-bit reals are the same on every machine and at every optimisation level.
  -ffp-contract=off)
target_include_directories(gemwright_warnings INTERFACE "${PROJECT_SOURCE_DIR}")
if(GEMWRIGHT_WERROR)
  target_compile_options(gemwright_warnings INTERFACE -Werror)
endif()
