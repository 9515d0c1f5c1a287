#include "commands/FileOperand.h"

#include <array>
#include <fstream>

#include "lang/Message.h"
#include "system/Paths.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

// Standard input is read no further than the largest file.
FileContent ReadInput(std::istream& in) {
  FileContent content;
  std::array<char, 65536> block{};
  while (in.read(block.data(), block.size()), in.gcount() > 0) {
    content.bytes.append(block.data(), static_cast<std::size_t>(in.gcount()));
    if (content.bytes.size() > kLargestFile) {
      return {{}, FileError{"-", FileError::Reason::TooLarge, {}}};
    }
  }
  return content;
}

}  // namespace

std::optional<std::string> ReadFileOperand(Console& console, const std::string& file) {
  FileContent content;
  std::error_code error;
  if (file == "-") {
    content = ReadInput(console.in);
  } else if (std::filesystem::is_fifo(PathOf(file), error)) {  // as a shell's <(COMMAND) is
    std::ifstream pipe(PathOf(file), std::ios::binary);
    content = ReadInput(pipe);
  } else {
    content = console.proc.files.Read(file);
  }
  if (!content.error) return std::move(content.bytes);
  console.err << "zekview-cli: "
              << Utf8FromWindows1252(FileMessage(console.proc.texts, *content.error)) << '\n';
  return std::nullopt;
}

}  // namespace zek::cli
