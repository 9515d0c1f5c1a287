#include "comm/Secret.h"

#include "text/Fields.h"

namespace zek {

std::string WithoutSecret(std::string_view text, std::string_view secret) {
  if (secret.empty()) return std::string(text);
  const std::string folded = UpperCase(text);
  const std::string wanted = UpperCase(secret);
  std::string hidden;
  std::size_t at = 0;
  for (std::size_t found = folded.find(wanted); found != std::string::npos;
       found = folded.find(wanted, at)) {
    hidden.append(text.substr(at, found - at)).append("***");
    at = found + wanted.size();
  }
  return hidden.append(text.substr(at));
}

}  // namespace zek
