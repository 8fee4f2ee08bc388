# Compiles through ccache when it is installed and nothing else was asked for.
find_program(VTLPICTEL_CCACHE ccache)
mark_as_advanced(VTLPICTEL_CCACHE)

if(PROJECT_IS_TOP_LEVEL AND VTLPICTEL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers reach the cache only with these three relaxed.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${VTLPICTEL_CCACHE})
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()
