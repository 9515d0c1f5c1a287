# The toolkit, as system headers: its own warnings are not ours. zekview-wxbase is its base library
# with the sockets, zekview-wxcore the one with windows as well.
if(CMAKE_CROSSCOMPILING AND WIN32 AND NOT wxWidgets_CONFIG_EXECUTABLE)
  # Built when it is not there yet.
  math(EXPR word "8 * ${CMAKE_SIZEOF_VOID_P}")
  execute_process(COMMAND scripts/wx-windows.sh win${word} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    OUTPUT_VARIABLE toolkit OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(wxWidgets_CONFIG_EXECUTABLE "${toolkit}/bin/wx-config" CACHE FILEPATH "The toolkit's script")
endif()
find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base net)
add_library(zekview-wx INTERFACE)
target_include_directories(zekview-wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
target_compile_options(zekview-wx INTERFACE ${wxWidgets_CXX_FLAGS})
target_compile_definitions(zekview-wx INTERFACE ${wxWidgets_DEFINITIONS})
add_library(zekview-wxbase INTERFACE)
set(base_libraries ${wxWidgets_LIBRARIES})
list(FILTER base_libraries EXCLUDE REGEX "(_|u_)core")
target_link_libraries(zekview-wxbase INTERFACE zekview-wx ${base_libraries})
add_library(zekview-wxcore INTERFACE)
target_link_libraries(zekview-wxcore INTERFACE zekview-wx ${wxWidgets_LIBRARIES})
