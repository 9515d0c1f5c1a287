# The compiler options of all our targets; warnings are errors.
add_library(zekview-options INTERFACE)
if(MSVC)
  target_compile_options(zekview-options INTERFACE /W4 /WX /permissive- /utf-8 /EHsc)
else()
  target_compile_options(zekview-options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Werror)
endif()
# GCC 12 warns of overlaps in string assignments that do not overlap (GCC bug 105329).
target_compile_options(zekview-options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# File names in debug information start at the project root, so they are the same in every clone.
if(NOT MSVC)
  target_compile_options(zekview-options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()
target_include_directories(zekview-options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(zekview-options INTERFACE ZEKVIEW_VERSION="${PROJECT_VERSION}")
if(WIN32)
  # Unicode calls by default, and no macros min and max.
  target_compile_definitions(zekview-options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()
if(ZEKVIEW_SANITIZE)
  # Without -O1 the long trials take several times as long.
  target_compile_options(zekview-options INTERFACE $<$<CONFIG:Debug>:-O1>
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zekview-options INTERFACE -fsanitize=address,undefined)
endif()
if(ZEKVIEW_FUZZ)
  # Tracing comparisons would take half of the time. It is not needed, because fuzz/words.dict lists
  # the words that matter.
  target_compile_options(zekview-options INTERFACE
    -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()
