# gemwright_header_set(TARGET [EXCEPT folder...]): all headers in and below the caller's folder, but
# for those folders that are targets of their own, as the target's header set. With the tests each
# header is compiled on its own (all_verify_interface_header_sets, part of the build preset `test`).
set(CMAKE_VERIFY_INTERFACE_HEADER_SETS ${GEMWRIGHT_TESTS})

function(gemwright_header_set target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "EXCEPT")
  # Found, not listed: a header that is missing in a list would be one that nobody checks.
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS "*.hpp")
  foreach(folder IN LISTS arg_EXCEPT)
    list(FILTER headers EXCLUDE REGEX "^${CMAKE_CURRENT_SOURCE_DIR}/${folder}/")
  endforeach()
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}"
                                  FILES ${headers})
endfunction()
