#include "system/Secret.h"

namespace zek {

bool CanEncrypt() { return false; }

std::optional<std::string> Encrypted(std::string_view /*secret*/) { return std::nullopt; }

std::optional<std::string> Decrypted(std::string_view /*text*/) { return std::nullopt; }

// Nothing can be encrypted here, so no secret is ever asked for at a terminal.
std::string ReadUnseenLine(std::istream& in, std::string_view /*question*/) {
  std::string line;
  std::getline(in, line);
  return line;
}

}  // namespace zek
