# Common settings of the two cross compilers; `toolchain` names the compiler. The toolkit is built
# with these files too (scripts/wx-windows.sh).
set(CMAKE_C_COMPILER ${toolchain}-gcc-posix)
set(CMAKE_CXX_COMPILER ${toolchain}-g++-posix)
set(CMAKE_RC_COMPILER ${toolchain}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${toolchain})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Small programs: the linker drops unused functions and data.
foreach(language C CXX)
  set(CMAKE_${language}_FLAGS_INIT "-ffunction-sections -fdata-sections")
endforeach()
# Static linking: only the program itself has to be installed.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--gc-sections")
