# libical computes the repetitions in calendar files. Only the library itself is linked, not the two
# others of its package.
if(WIN32 AND CMAKE_CROSSCOMPILING AND NOT ICAL_ROOT)
  # Builds the library if it is missing.
  math(EXPR word "8 * ${CMAKE_SIZEOF_VOID_P}")
  execute_process(COMMAND scripts/ical-windows.sh win${word} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    OUTPUT_VARIABLE libical OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ICAL_ROOT "${libical}" CACHE PATH "The directory of libical")
endif()
find_path(ICAL_INCLUDE_DIR libical/ical.h HINTS ${ICAL_ROOT}/include REQUIRED
  NO_CMAKE_FIND_ROOT_PATH)
find_library(ICAL_LIBRARY ical HINTS ${ICAL_ROOT}/lib REQUIRED NO_CMAKE_FIND_ROOT_PATH)
add_library(zekview-ical INTERFACE)
target_include_directories(zekview-ical SYSTEM INTERFACE ${ICAL_INCLUDE_DIR})
target_link_libraries(zekview-ical INTERFACE ${ICAL_LIBRARY})
