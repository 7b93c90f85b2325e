# With GEMWRIGHT_SANITIZE everything is built under both sanitizers; the first report ends a test.
if(GEMWRIGHT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
# Leaks of X, Motif and Mesa that no caller can mend; ours are not listed.
set(GEMWRIGHT_LSAN_SUPPRESSIONS "${PROJECT_SOURCE_DIR}/cmake/lsan.supp")
