#include "catalogue/Sendable.h"

#include <algorithm>

#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

// True when `text` contains "{", digits, "}" in sequence.
bool HoldsEscape(std::string_view text) {
  for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
    const std::size_t end = text.find_first_not_of("0123456789", at + 1);
    if (end != std::string_view::npos && end > at + 1 && text[end] == '}') return true;
  }
  return false;
}

bool Refuse(const Messages& messages, std::int32_t number, std::string text) {
  ShowControls(text);
  messages.Tell(Icon::Exclamation, number, {text});
  return false;
}

}  // namespace

bool IsCatalogueLine(std::string_view line) {
  return line.find('!') != std::string_view::npos && Val(GetField(line, 0, "!")) > 0 &&
         line.find(".DFV") == std::string_view::npos && FindControl(line) == std::string_view::npos;
}

bool IsBlank(std::string_view line) { return Trim(line).empty(); }

bool StaysOneCommand(std::string_view text, bool readsEscapes) {
  return FindControl(text) == std::string_view::npos && !(readsEscapes && HoldsEscape(text));
}

bool CheckNameSendable(const CatalogueId& id, const CatalogueParts& parts) {
  if (StaysOneCommand(id.control, parts.exchange.connection.ReadsEscapes(id.object))) return true;
  return Refuse(parts.messages, text::kNotOneCommand, id.control);
}

bool CheckSendable(const CatalogueId& id, const LinesToSend& content, const CatalogueParts& parts) {
  const bool escapes = parts.exchange.connection.ReadsEscapes(id.object);
  const auto refused =
      std::find_if(content.lines.begin(), content.lines.end(), [escapes](const auto& line) {
        return !IsBlank(line) && (!IsCatalogueLine(line) || !StaysOneCommand(line, escapes));
      });
  if (refused != content.lines.end())
    return Refuse(parts.messages, text::kNoCatalogueLine, *refused);
  if (content.dfv && !StaysOneCommand(*content.dfv, escapes)) {
    return Refuse(parts.messages, text::kNotOneCommand, *content.dfv);
  }
  return CheckNameSendable(id, parts);
}

}  // namespace zek
