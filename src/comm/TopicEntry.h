#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "comm/TopicTable.h"
#include "formats/Generation.h"

namespace zek {

/// A controller as the user enters it, in windows-1252; a line of section "Topics" has it.
struct TopicEntry {
  std::string name;
  Generation type = Generation::Zek1;
  std::string address;  // "HOST:PORT" for TCP/IP; a computer's name or "" for DDE
  std::string dus;      // digits; "" without a DUS number
  std::string description;
};

TopicEntry EntryOf(const Topic& topic);

/// Returns the number of the text that tells what is wrong with an entry, if anything is.
std::optional<std::int32_t> Complaint(const TopicEntry& entry);

/// Returns the value of the entry's line. `before` is the line's value so far, or "": what the user
/// does not enter stays as it is.
std::string TopicValue(const TopicEntry& entry, std::string_view before);

}  // namespace zek
