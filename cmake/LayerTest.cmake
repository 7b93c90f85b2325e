# add_layer_test(NAME LAYER layer SOURCES file... [LIBRARIES target...] [DISPLAY])
#
# One GoogleTest binary; CTest runs every case in a process of its own, so start-up state needs no
# reset. With DISPLAY each case runs under a virtual X server and a window manager of its own, so
# that they may run side by side, and they carry the label `display` in place of the layer's.
find_package(GTest REQUIRED)
include(GoogleTest)

function(add_layer_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "DISPLAY" "LAYER" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gmock GTest::gtest_main
                                        gemwright_warnings)
  target_compile_definitions(${name} PRIVATE
    GEMWRIGHT_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    GEMWRIGHT_EXAMPLES="${PROJECT_SOURCE_DIR}/data/examples")
  # One label: a list of them would not survive the way through gtest_discover_tests, and would take
  # the properties behind it along.
  set(label ${arg_LAYER})
  set(properties TIMEOUT 120
      ENVIRONMENT "LSAN_OPTIONS=suppressions=${GEMWRIGHT_LSAN_SUPPRESSIONS}:print_suppressions=0")
  if(arg_DISPLAY)
    set(label display)
    set_target_properties(${name} PROPERTIES
      CROSSCOMPILING_EMULATOR "${PROJECT_SOURCE_DIR}/tests/support/with_display")
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 DISCOVERY_MODE PRE_TEST
                       PROPERTIES LABELS ${label} ${properties})
endfunction()
