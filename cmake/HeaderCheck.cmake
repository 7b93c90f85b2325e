# gemwright_check_headers(TARGET header...): each header compiles on its own, with what TARGET
# links.
function(gemwright_check_headers target)
  if(NOT GEMWRIGHT_TESTS)
    return()
  endif()
  set(sources)
  foreach(header IN LISTS ARGN)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${PROJECT_SOURCE_DIR}"
               OUTPUT_VARIABLE folder)
    string(REGEX REPLACE "[/.]" "_" name "${header}")
    set(source "${CMAKE_CURRENT_BINARY_DIR}/header_check/${name}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"${folder}/${header}\"\n")
    list(APPEND sources "${source}")
  endforeach()
  add_library(${target}_header_check OBJECT ${sources})
  target_link_libraries(${target}_header_check PRIVATE ${target} gemwright_warnings)
endfunction()
