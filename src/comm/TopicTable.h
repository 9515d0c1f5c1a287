#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/Generation.h"
#include "lang/LanguageTexts.h"
#include "settings/Profile.h"
#include "settings/Settings.h"
#include "system/Prompts.h"

namespace zek {

inline constexpr std::size_t kMaxTopics = 300;
/// The size limit of section "Topics" in bytes.
inline constexpr std::size_t kTopicsBuffer = 16384;

/// One controller and its address: a line of section "Topics".
struct Topic {
  std::string Description;
  /// Upper-cased: empty = local DDE; a computer's name = network DDE; HOST:PORT or HOST:PORT:DUS
  /// = TCP/IP.
  std::string Address;
  std::string TopicName;  // upper-cased except in tag mode
  Generation TopicType = Generation::Zek1;
  bool ShowInList = false;
  std::string Tag;
  std::int16_t TagState = 0;  // 2 after the tag was opened, 1 after it was closed
  bool HasDus = false;        // the address has a third field
};

/// Parses one entry of section "Topics"; nothing for a comment or an entry without "=".
std::optional<Topic> ParseTopic(std::string_view entry, bool tagMode);

/// Returns "Description [Address/TopicName]" for the topic list and the tree.
std::string TopicText(const Topic& topic);

class TopicTable {
 public:
  /// Reads section "Topics". Shows a message if the section was cut or topics were left out. A
  /// topic that was there before keeps its `TagState`.
  void LoadTopics(const Profile& profile, const Settings& settings, const LanguageTexts& texts,
                  Prompts& prompts);

  std::int16_t TopicCount() const { return static_cast<std::int16_t>(topics_.size()); }
  bool Has(std::int16_t index) const { return index >= 0 && index < TopicCount(); }
  const Topic& operator[](std::int16_t index) const { return topics_.at(Place(index)); }
  Topic& operator[](std::int16_t index) { return topics_.at(Place(index)); }

  /// Adds a topic until the table is read again; returns its index.
  std::int16_t Add(Topic topic) {
    topics_.push_back(std::move(topic));
    return static_cast<std::int16_t>(TopicCount() - 1);
  }
  void RemoveLast() { topics_.pop_back(); }

  /// Returns the index of the topic with that name (case-insensitive), or -1.
  std::int16_t Find(std::string_view name) const;

  /// Returns the indices of the topics in the topic list, in its order: sorted by their text (å, ä
  /// and ö after z) or as in the file. The list is empty without `DialogMode`.
  std::vector<std::int16_t> Listed(const Settings& settings) const;

 private:
  static std::size_t Place(std::int16_t index) { return static_cast<std::size_t>(index); }

  std::vector<Topic> topics_;
};

}  // namespace zek
