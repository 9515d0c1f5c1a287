#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zek {

/// A checksum of text (FNV-1a, 32 bits): a change of one byte always changes it. It protects
/// against accidents, not against people.
class Checksum {
 public:
  void Add(std::string_view text) {
    for (const char character : text)
      hash_ = (hash_ ^ static_cast<unsigned char>(character)) * 16777619U;
  }
  static std::string Of(std::string_view text) {
    Checksum checksum;
    checksum.Add(text);
    return checksum.Text();
  }

  std::string Text() const { return std::to_string(hash_); }

 private:
  std::uint32_t hash_ = 2166136261;
};

}  // namespace zek
