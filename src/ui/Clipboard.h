#pragma once

#include <cstddef>
#include <string>

namespace zek {

/// What the clipboard holds as text.
struct ClipboardText {
  enum class Problem { None, NoText, TooLong, Failed };

  std::string text;  // windows-1252
  Problem problem = Problem::None;
};

/// Reads at most `longest` characters; a longer text is not converted at all.
ClipboardText ReadClipboard(std::size_t longest);

/// Puts a windows-1252 text there for other programs too; false if the clipboard can't be used.
bool WriteClipboard(const std::string& text);

}  // namespace zek
