#include <iostream>

#include "sim/PlantDde.h"
#include "text/Windows1252.h"

namespace zek::sim {

void PrintTraffic(const std::string& client, bool received, std::string_view bytes) {
  std::string shown;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    const bool printable = code >= 32 && code != 127 && code != 255;
    if (printable) {
      shown += byte;
    } else {  // also the piece end, character 255
      shown.append("<").append(std::to_string(code)).append(">");
    }
  }
  std::cerr << client << (received ? " < " : " > ") << Utf8FromWindows1252(shown) << '\n';
}

}  // namespace zek::sim
