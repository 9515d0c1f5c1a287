# Compiles through ccache where it is installed. The base directory makes paths below it relative,
# so that all clones share the cache.
if(NOT CMAKE_HOST_WIN32 AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  find_program(ccache ccache)
  mark_as_advanced(ccache)
  if(ccache)
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} ${ccache})
  endif()
endif()
