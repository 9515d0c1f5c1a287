# What every target of ours is compiled with; a warning is an error.
add_library(zekview-options INTERFACE)
if(MSVC)
  target_compile_options(zekview-options INTERFACE /W4 /WX /permissive- /utf-8 /EHsc)
else()
  target_compile_options(zekview-options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Werror)
endif()
# GCC 12 sees overlaps in plain string assignments that are none (its bug 105329).
target_compile_options(zekview-options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# Debug information names files from the root of the project, wherever the clone is: with the base
# directory of the presets the compiler's cache then serves every clone.
if(NOT MSVC)
  target_compile_options(zekview-options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()
target_include_directories(zekview-options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(zekview-options INTERFACE ZEKVIEW_VERSION="${PROJECT_VERSION}")
if(WIN32)
  # Unicode calls unless code says otherwise, and no macros named like functions.
  target_compile_definitions(zekview-options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()
if(ZEKVIEW_SANITIZE)
  target_compile_options(zekview-options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zekview-options INTERFACE -fsanitize=address,undefined)
endif()
if(ZEKVIEW_FUZZ)
  # Comparisons are not traced, which takes half of the time: the words that count are known
  # (fuzz/words.dict).
  target_compile_options(zekview-options INTERFACE
    -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()
