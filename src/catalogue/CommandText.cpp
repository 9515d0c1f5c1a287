#include "catalogue/CommandText.h"

#include <algorithm>

#include "catalogue/LastRead.h"
#include "lang/Message.h"
#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

bool IsOverDde(const ZV_Proc& proc) {
  return !proc.settings.TagMode && !proc.topics[proc.selection.CurrentObject].IsTcp();
}

// "{", digits, "}".
bool HoldsEscape(std::string_view text) {
  for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
    const std::size_t end = text.find_first_not_of("0123456789", at + 1);
    if (end != std::string_view::npos && end > at + 1 && text[end] == '}') return true;
  }
  return false;
}

bool Refuse(ZV_Proc& proc, std::int32_t number, std::string text) {
  ShowControls(text);
  proc.outside.prompts.Show(Icon::Exclamation, Message(proc.Text(number), {text}));
  return false;
}

}  // namespace

bool IsCatalogueLine(std::string_view line) {
  return line.find('!') != std::string_view::npos && Val(GetField(line, 0, "!")) > 0 &&
         line.find(".DFV") == std::string_view::npos && FindControl(line) == std::string_view::npos;
}

bool IsBlank(std::string_view line) { return Trim(line).empty(); }

bool StaysOneCommand(std::string_view text, bool overDde) {
  return FindControl(text) == std::string_view::npos && !(overDde && HoldsEscape(text));
}

bool CheckNameSendable(ZV_Proc& proc) {
  if (StaysOneCommand(proc.selection.TscName, IsOverDde(proc))) return true;
  return Refuse(proc, text::kNotOneCommand, proc.selection.TscName);
}

bool CheckSendable(ZV_Proc& proc, Catalogue catalogue) {
  const bool overDde = IsOverDde(proc);
  const auto& lines = proc.transfer.CatalogueLines;
  const auto refused = std::find_if(lines.begin(), lines.end(), [overDde](const auto& line) {
    return !IsBlank(line) && (!IsCatalogueLine(line) || !StaysOneCommand(line, overDde));
  });
  if (refused != lines.end()) return Refuse(proc, text::kNoCatalogueLine, *refused);
  const std::optional<std::string> dfv = DfvToSend(proc, catalogue);
  if (dfv && !StaysOneCommand(*dfv, overDde)) return Refuse(proc, text::kNotOneCommand, *dfv);
  return CheckNameSendable(proc);
}

}  // namespace zek
