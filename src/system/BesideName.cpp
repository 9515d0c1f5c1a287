#include "system/BesideName.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace zek {
namespace {

constexpr std::string_view kMark = ".zvtmp";
constexpr std::size_t kLongestStem = 200;  // bytes; all systems allow at least 255

// Returns the largest length up to `longest` bytes that does not split a UTF-8 character.
std::size_t WholeCharacters(std::string_view text, std::size_t longest) {
  if (text.size() <= longest) return text.size();
  while (longest > 0 && (static_cast<unsigned char>(text[longest]) & 0xC0) == 0x80) --longest;
  return longest;
}

}  // namespace

std::string BesideName(const std::string& target, unsigned long process, int attempt) {
  const bool twoSeparators = std::filesystem::path::preferred_separator == '\\';
  const std::size_t separator = target.find_last_of(twoSeparators ? "/\\" : "/");
  const std::size_t start = separator == std::string::npos ? 0 : separator + 1;
  const std::string_view name = std::string_view(target).substr(start);
  const std::size_t kept = WholeCharacters(name, kLongestStem);
  std::string beside = target.substr(0, start + kept);
  if (kept < name.size()) beside += '~';  // a cut name could be a device's name
  beside.append(kMark).append(std::to_string(process));
  if (attempt > 1) beside.append("-").append(std::to_string(attempt));
  return beside;
}

bool IsBesideName(std::string_view name) {
  const std::size_t mark = name.rfind(kMark);
  if (mark == std::string_view::npos) return false;
  // The process number, optionally "-" and the attempt.
  std::string_view rest = name.substr(mark + kMark.size());
  const auto takeNumber = [&rest] {
    const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
    rest.remove_prefix(digits);
    return digits > 0;
  };
  if (!takeNumber()) return false;
  if (rest.empty()) return true;
  if (rest.front() != '-') return false;
  rest.remove_prefix(1);
  return takeNumber() && rest.empty();
}

unsigned long BesideProcess(std::string_view name) {
  const std::size_t number = name.rfind(kMark) + kMark.size();
  return std::strtoul(std::string(name.substr(number)).c_str(), nullptr, 10);
}

}  // namespace zek
