#include "plan/PlanPrompts.h"

#include <cstddef>

#include "comm/TopicLine.h"
#include "plan/Plan.h"
#include "text/Lines.h"

namespace zek {

void PlanPrompts::Tell(Icon icon, const std::string& message, const std::string& details) {
  if (icon != Icon::Exclamation && icon != Icon::Critical) return;
  trouble_.append(trouble_.empty() ? "" : " ");
  const std::string what = WithoutTopicLine(message, topicName_);
  trouble_.append(OnOneLine(details.empty() ? what : what + " " + details));
  trouble_ = Shortened(trouble_, kLongestWhy);
}

}  // namespace zek
