# One interface target carries the warnings of all our own targets.
add_library(vtlpictel_warnings INTERFACE)
target_compile_options(vtlpictel_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  $<$<BOOL:${VTLPICTEL_WARNINGS_AS_ERRORS}>:-Werror>
  # A precompiled header of another configuration is simply not used.
  $<$<CXX_COMPILER_ID:GNU>:-Winvalid-pch -Wno-error=invalid-pch>)
