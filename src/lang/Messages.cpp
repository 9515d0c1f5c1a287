#include "lang/Messages.h"

#include "lang/TextNumbers.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek {

std::string Message(std::string_view pattern, std::initializer_list<std::string_view> values) {
  std::string message;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const bool place = pattern[i] == '%' && i + 1 < pattern.size() && pattern[i + 1] >= '1' &&
                       pattern[i + 1] <= '9';
    const std::size_t index = place ? static_cast<std::size_t>(pattern[i + 1] - '1') : 0;
    if (place && index < values.size()) {
      message += values.begin()[index];
      ++i;
    } else {
      message += pattern[i];
    }
  }
  return message;
}

namespace {
std::string ReasonText(const LanguageTexts& texts, const FileError& error) {
  switch (error.reason) {
    case FileError::Reason::Missing:
      return texts.Text(text::kFileMissing);
    case FileError::Reason::Denied:
      return texts.Text(text::kFileDenied);
    case FileError::Reason::Full:
      return texts.Text(text::kDiskFull);
    case FileError::Reason::ReadOnly:
      return texts.Text(text::kFileReadOnly);
    case FileError::Reason::TooLarge:
      return texts.Text(text::kFileTooLarge);
    case FileError::Reason::NameTooLong:
      return texts.Text(text::kFileNameTooLong);
    case FileError::Reason::InUse:
      return texts.Text(text::kFileInUse);
    case FileError::Reason::Other:
      break;
  }
  return Windows1252FromUtf8(error.systemMessage);
}
}  // namespace

std::string FileMessage(const LanguageTexts& texts, const FileError& error) {
  // Cut very long paths, which would not fit in a message box. Lengths in characters.
  constexpr std::size_t longest = 260;
  constexpr std::size_t end = 60;
  return Message(
      texts.Text(text::kFileFailed),
      {Shortened(Windows1252FromUtf8(error.path), longest, end), ReasonText(texts, error)});
}

std::string SectionCutMessage(const LanguageTexts& texts, const std::string& section,
                              std::size_t length) {
  return texts.Text(text::kSectionCut) + " " + section + " " + texts.Text(text::kSectionCutLength) +
         " " + std::to_string(length) + " " + texts.Text(text::kSectionCutAdvice);
}

}  // namespace zek
