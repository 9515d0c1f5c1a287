# libical computes the repetitions in calendar files. Only the library itself is linked, not the two
# others of its package.
find_program(APT_GET apt-get)
if(APT_GET AND NOT ICAL_ROOT)
  # Builds the library if it is missing.
  set(word linux)
  if(WIN32)
    math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
    set(word win${bits})
  endif()
  execute_process(COMMAND scripts/ical.sh ${word} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    OUTPUT_VARIABLE libical OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ICAL_ROOT "${libical}" CACHE PATH "The directory of libical")
endif()
find_path(ical_headers libical/ical.h HINTS ${ICAL_ROOT}/include REQUIRED NO_CACHE
  NO_CMAKE_FIND_ROOT_PATH)
find_library(ical_library ical HINTS ${ICAL_ROOT}/lib REQUIRED NO_CACHE NO_CMAKE_FIND_ROOT_PATH)
add_library(zekview-ical INTERFACE)
target_include_directories(zekview-ical SYSTEM INTERFACE ${ical_headers})
target_link_libraries(zekview-ical INTERFACE ${ical_library})
