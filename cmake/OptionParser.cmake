# The option parser, CLI11, is headers only and the same on every system, so a cross build uses the
# headers of the host. They are copied, so that the host's other headers are not found.
find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp REQUIRED NO_CMAKE_FIND_ROOT_PATH)
set(option_parser_headers ${PROJECT_BINARY_DIR}/option-parser)
file(COPY ${CLI11_INCLUDE_DIR}/CLI DESTINATION ${option_parser_headers})
add_library(zekview-option-parser INTERFACE)
target_include_directories(zekview-option-parser SYSTEM INTERFACE ${option_parser_headers})
