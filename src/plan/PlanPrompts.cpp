#include "plan/PlanPrompts.h"

#include <cstddef>

#include "text/Lines.h"

namespace zek {
namespace {

constexpr std::size_t kLongestTrouble = 400;

}  // namespace

void PlanPrompts::Tell(Icon icon, const std::string& message, const std::string& details) {
  if (icon != Icon::Exclamation && icon != Icon::Critical) return;
  trouble_.append(trouble_.empty() ? "" : " ");
  trouble_.append(OnOneLine(details.empty() ? message : message + " " + details));
  trouble_ = Shortened(trouble_, kLongestTrouble);
}

}  // namespace zek
