#include "comm/TopicEntry.h"

#include <algorithm>
#include <array>

#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr double kLastPort = 65535;
constexpr std::size_t kLongestDus = 5;
// Sections of the settings file that are not a controller's.
constexpr std::array<std::string_view, 8> kOtherSections{
    "GENERAL",   "TOPICS",          "TCPIP",           "GETDELAY",
    "SAVEDELAY", "SAVEOPTIONSZEK1", "SAVEOPTIONSZEK2", "TAG"};

bool IsDigits(std::string_view text) {
  return text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsName(std::string_view name) {
  constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_";
  return !name.empty() && UpperCase(name).find_first_not_of(letters) == std::string::npos;
}

bool IsReserved(std::string_view name) {
  const std::string upper = UpperCase(name);
  return upper.starts_with("TXI_") ||
         std::find(kOtherSections.begin(), kOtherSections.end(), upper) != kOtherSections.end();
}

bool IsAddress(std::string_view address) {
  if (address.find_first_of(" ,=;\"'") != std::string_view::npos) return false;
  const std::string_view port = GetField(address, 1, ":");
  if (address.find(':') == std::string_view::npos) return true;  // DDE
  return !GetField(address, 0, ":").empty() && !port.empty() && IsDigits(port) && Val(port) >= 1 &&
         Val(port) <= kLastPort && std::count(address.begin(), address.end(), ':') == 1;
}

}  // namespace

TopicEntry EntryOf(const Topic& topic) {
  const std::string_view host = GetField(topic.Address, 0, ":");
  const std::string_view port = GetField(topic.Address, 1, ":");
  std::string address(host);
  if (topic.Address.find(':') != std::string::npos) address.append(":").append(port);
  return {topic.TopicName, topic.TopicType, address, std::string(GetField(topic.Address, 2, ":")),
          topic.Description};
}

std::optional<std::int32_t> Complaint(const TopicEntry& entry) {
  if (!IsName(entry.name)) return text::kTopicBadName;
  if (IsReserved(entry.name)) return text::kTopicNameReserved;
  if (!IsAddress(entry.address)) return text::kTopicBadAddress;
  const bool hasPort = entry.address.find(':') != std::string::npos;
  if (!IsDigits(entry.dus) || entry.dus.size() > kLongestDus || (!entry.dus.empty() && !hasPort))
    return text::kTopicBadDus;
  if (entry.description.find_first_of(",=[\r\n") != std::string::npos)
    return text::kTopicBadDescription;
  return std::nullopt;
}

std::string TopicValue(const TopicEntry& entry, std::string_view before) {
  const std::string_view list = before.empty() ? "YES" : GetField(before, 0, ",");
  const std::string_view type = GetField(before, 1, ",");
  const bool wasZek2 = type.find('2') != std::string_view::npos;
  const bool sameType = !type.empty() && wasZek2 == (entry.type == Generation::Zek2);
  const std::string address = entry.address + (entry.dus.empty() ? "" : ":" + entry.dus);
  const std::string_view oldAddress = GetField(before, 2, ",");
  std::string value(list);
  value.append(",").append(sameType ? type : entry.type == Generation::Zek2 ? "ZEK2" : "ZEK1");
  value.append(",").append(EqualNoCase(Trim(oldAddress), address) ? oldAddress : address);
  value.append(",").append(entry.description);
  std::size_t rest = 0;
  for (int commas = 0; commas < 4 && rest != std::string_view::npos; ++commas)
    rest = before.find(',', rest + (commas > 0 ? 1 : 0));
  if (rest != std::string_view::npos) value.append(before.substr(rest));
  return value;
}

}  // namespace zek
