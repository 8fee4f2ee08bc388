# One interface target carries the instrumentation of the sanitize and coverage presets.
add_library(vtlpictel_instrumentation INTERFACE)

if(VTLPICTEL_SANITIZE)
  target_compile_options(vtlpictel_instrumentation INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vtlpictel_instrumentation INTERFACE -fsanitize=address,undefined)
endif()

if(VTLPICTEL_COVERAGE)
  target_compile_options(vtlpictel_instrumentation INTERFACE --coverage)
  target_link_options(vtlpictel_instrumentation INTERFACE --coverage)
endif()
