# With GEMWRIGHT_SANITIZE everything is built under both sanitizers; the first report ends a test.
if(GEMWRIGHT_SANITIZE)
  # Conversions of absurd numbers to integers are not in GCC's `undefined`.
  add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined,float-cast-overflow)
endif()
# Leaks of X, Motif and Mesa that no caller can mend; ours are not listed.
set(GEMWRIGHT_LSAN_SUPPRESSIONS "${PROJECT_SOURCE_DIR}/cmake/lsan.supp")
