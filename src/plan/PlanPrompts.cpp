#include "plan/PlanPrompts.h"

#include <cstddef>

#include "comm/TopicLine.h"
#include "text/Lines.h"

namespace zek {
namespace {

constexpr std::size_t kLongestTrouble = 400;

}  // namespace

void PlanPrompts::Tell(Icon icon, const std::string& message, const std::string& details) {
  if (icon != Icon::Exclamation && icon != Icon::Critical) return;
  trouble_.append(trouble_.empty() ? "" : " ");
  const std::string what = WithoutTopicLine(message, topicName_);
  trouble_.append(OnOneLine(details.empty() ? what : what + " " + details));
  trouble_ = Shortened(trouble_, kLongestTrouble);
}

}  // namespace zek
