# Gives a Windows program its icon, manifest and version resource, with a description in two
# languages. Ours include the toolkit's resource files, which are found beside its headers.
enable_language(RC)
set(ZEKVIEW_PACKAGE_VERSION ${PROJECT_VERSION} CACHE STRING "Version of the files and packages")
string(REPLACE "." ", " package_version ${ZEKVIEW_PACKAGE_VERSION})
function(add_windows_resources target swedish english)
  set(file ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/src/desktop/windows/program.rc.in ${file} @ONLY)
  target_sources(${target} PRIVATE ${file})
  if(MINGW)
    # Windows 7 is the oldest system; no time of the build, so that the same code gives the same
    # bytes.
    target_link_options(${target} PRIVATE -Wl,--no-insert-timestamp
      -Wl,--major-subsystem-version,6 -Wl,--minor-subsystem-version,1
      -Wl,--major-os-version,6 -Wl,--minor-os-version,1)
  endif()
endfunction()
