// zekview-fuzz-corpora FOLDER: runs every target on each file of its corpus, FOLDER/NAME/*, and on
// each of them cut short at every place and with every character replaced. An error ends the
// program.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "Targets.h"

namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Characters that separate or end something for one of the targets, and one without a meaning.
constexpr std::string_view kReplacements("!=[.-9\n\xFF", 8);

// Returns the number of inputs.
std::size_t Replay(const zek::fuzz::Target& target, std::string bytes) {
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    target.run(std::string_view(bytes).substr(0, length));
  }
  for (char& place : bytes) {
    const char original = place;
    for (const char replacement : kReplacements) {
      place = replacement;
      target.run(bytes);
    }
    place = original;
  }
  return 1 + bytes.size() * (1 + kReplacements.size());
}

std::size_t ReplayFolder(const zek::fuzz::Target& target, const fs::path& folder) {
  std::size_t inputs = 0;
  for (const auto& entry : fs::directory_iterator(folder)) {
    std::cerr << entry.path().string() << '\n';  // the last one named is the one that failed
    inputs += Replay(target, BytesOf(entry.path()));
  }
  return inputs;
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "usage: zekview-fuzz-corpora FOLDER\n";
    return 2;
  }
  for (const auto& target : zek::fuzz::Targets()) {
    const std::size_t inputs = ReplayFolder(target, fs::path(argv[1]) / target.name);
    std::cout << target.name << ": " << inputs << " inputs\n";
    if (inputs == 0) return 1;
  }
  return 0;
} catch (const fs::filesystem_error& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
