# The toolkit. Its headers count as system headers, to silence their warnings. zekview-wxbase is the
# base library with the sockets; zekview-wxcore adds the windows.
add_library(zekview-wx INTERFACE)
add_library(zekview-wxbase INTERFACE)
add_library(zekview-wxcore INTERFACE)
target_link_libraries(zekview-wxbase INTERFACE zekview-wx)
target_link_libraries(zekview-wxcore INTERFACE zekview-wx)

if(WIN32)
  if(CMAKE_CROSSCOMPILING AND NOT wxWidgets_DIR)
    # Builds the toolkit if it is missing.
    math(EXPR word "8 * ${CMAKE_SIZEOF_VOID_P}")
    execute_process(COMMAND scripts/wx-windows.sh win${word} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
      OUTPUT_VARIABLE toolkit OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(wxWidgets_DIR "${toolkit}/lib/cmake/wxWidgets" CACHE PATH "The toolkit's description")
  endif()
  find_package(wxWidgets 3.2 REQUIRED CONFIG COMPONENTS core base net)
  if(MINGW)  # assertions name the toolkit's headers without this machine's folders
    get_filename_component(toolkit_root ${wxWidgets_DIR}/../../.. ABSOLUTE)
    target_compile_options(zekview-wx INTERFACE -ffile-prefix-map=${toolkit_root}=wx)
  endif()
  target_link_libraries(zekview-wxbase INTERFACE wx::net wx::base)
  target_link_libraries(zekview-wxcore INTERFACE wx::core wx::net wx::base)
else()
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base net)
  target_include_directories(zekview-wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
  target_compile_options(zekview-wx INTERFACE ${wxWidgets_CXX_FLAGS})
  target_compile_definitions(zekview-wx INTERFACE ${wxWidgets_DEFINITIONS})
  set(base_libraries ${wxWidgets_LIBRARIES})
  list(FILTER base_libraries EXCLUDE REGEX "_core-")
  target_link_libraries(zekview-wxbase INTERFACE ${base_libraries})
  target_link_libraries(zekview-wxcore INTERFACE ${wxWidgets_LIBRARIES})
endif()
