#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <unistd.h>

#include "system/Paths.h"

namespace zek::test {

/// Where thousands of small files cost little: in memory, if the system has such a folder.
inline std::filesystem::path FastFolder() {
  std::error_code error;
  const std::filesystem::path memory = "/dev/shm";
  const bool there =
      std::filesystem::is_directory(memory, error) && ::access(memory.c_str(), W_OK) == 0;
  return there ? memory : std::filesystem::temp_directory_path();
}

/// Every file below a folder, by its name from there, with its bytes; folders end in "/".
using Tree = std::map<std::string, std::string>;

inline Tree TreeOf(const std::filesystem::path& folder) {
  Tree tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string name = Utf8Of(entry.path().lexically_relative(folder));
    if (entry.is_directory()) {
      tree[name + "/"];
      continue;
    }
    std::ifstream file(entry.path(), std::ios::binary);
    tree[name] = std::string(std::istreambuf_iterator<char>(file), {});
  }
  return tree;
}

inline void PlantTree(const std::filesystem::path& folder, const Tree& tree) {
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  for (const auto& [name, bytes] : tree) {
    if (name.ends_with('/')) {
      std::filesystem::create_directory(folder / PathOf(name));
    } else {
      std::ofstream(folder / PathOf(name), std::ios::binary) << bytes;
    }
  }
}

}  // namespace zek::test
