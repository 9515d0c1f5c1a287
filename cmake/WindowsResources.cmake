# Gives a program its icon, manifest and version resource. Ours include the toolkit's resource
# files, which are found beside its headers.
enable_language(RC)
function(add_windows_resources target description)
  set(file ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/src/desktop/windows/program.rc.in ${file} @ONLY)
  target_sources(${target} PRIVATE ${file})
endfunction()
