#pragma once

#include <cstdint>
#include <string>

#include "app/BatchState.h"
#include "catalogue/Catalogues.h"
#include "catalogue/LocalCopies.h"
#include "catalogue/ObjectTree.h"
#include "catalogue/Selection.h"
#include "comm/Connection.h"
#include "lang/LanguageTexts.h"
#include "settings/Profile.h"
#include "settings/Settings.h"
#include "system/Files.h"
#include "system/LocalTime.h"
#include "system/PromptSwitch.h"
#include "system/Prompts.h"
#include "system/Turn.h"

namespace zek {

/// The world outside, built at start-up; it lives longer than the session.
struct Outside {
  Files& files;
  Profile& profile;
  Turn& turn;
  Prompts& prompts;
  Transport& socket;
  Transport& dde;
  TagServer& tags;
  Clock now = SystemTime;
};

/// The session: one object for the whole program, built from its parts and handed to whoever
/// needs several of them.
struct ZV_Proc {
  explicit ZV_Proc(const Outside& world);

  Files& files;
  Profile& profile;
  Turn& turn;
  TagServer& tags;
  Clock now;
  PromptSwitch prompts;
  Settings settings;
  LanguageTexts texts;
  TopicTable topics;
  Countdowns countdowns;
  Waits waits;
  Transfer transfer;
  ReplyLog log;
  StatusPanels status;
  Connection connection;
  LocalCopies copies;
  Catalogues catalogues;
  ObjectTree tree;
  Selection selection;
  Batch batch;

  std::string Text(std::int32_t number) const { return texts.Text(number); }
  Messages ToUser() { return {texts, prompts}; }
  NumberReader Numbers() { return {profile, ToUser()}; }
};

/// Makes a node of `proc.tree` the one that everything works on (a click on it in the browser).
void SelectNode(ZV_Proc& proc, std::size_t index);

}  // namespace zek
