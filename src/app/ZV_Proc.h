#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "catalogue/LocalFiles.h"
#include "catalogue/ObjectTree.h"
#include "comm/Connection.h"
#include "export/BatchState.h"
#include "lang/LanguageTexts.h"
#include "settings/CommandLine.h"
#include "settings/Profile.h"
#include "settings/Settings.h"
#include "system/Files.h"
#include "system/LocalTime.h"
#include "system/PromptSwitch.h"
#include "system/Prompts.h"
#include "system/Turn.h"

namespace zek {

/// The outside world, built at start-up; it lives longer than the session.
struct Outside {
  Files& files;
  Profile& profile;
  Turn& turn;
  Prompts& prompts;
  Transport& socket;
  Transport& dde;
  TagServer& tags;
  std::function<LocalTime()> now = SystemTime;
};

/// The node of the browser on which Get, Erase, the transfers and the connection work.
struct Selection {
  std::int16_t CurrentObject = -1;  // the object's index in the topic table; -1 = none
  std::string TscName;              // of the time control; "" for a root node
  LocalFileNames LocalFiles;
  std::int32_t PickListTable = 0;  // the number behind "TXI_"; 0 = none
};

/// The session: one object for the whole program, built from its parts and handed to whoever
/// needs several of them.
struct ZV_Proc {
  explicit ZV_Proc(const Outside& world);

  PromptSwitch prompts;  // `outside.prompts` is this one
  Outside outside;
  Settings settings;
  LanguageTexts texts;
  TopicTable topics;
  Countdowns countdowns;
  Waits waits;
  Transfer transfer;
  ReplyLog log;
  StatusPanels status;
  Connection connection;
  ObjectTree tree;
  Selection selection;
  Batch batch;

  std::string Text(std::int32_t number) const { return texts.Text(number); }
  NumberReader Numbers() const { return {outside.profile, texts, outside.prompts}; }
};

/// False when ZEKView.INI is there but can't be read, which was told: nothing would be as set.
bool CheckSettingsFile(ZV_Proc& proc);

/// Loads the language file that setting `Language` names. False when there is none; a file that
/// is there and can't be read is told.
bool LoadLanguage(ZV_Proc& proc);

/// Loads the topics and builds the tree of their time controls. Every message on the way is about
/// a part of the plant that is left out, see `Batch::PlantCut`.
void LoadTopics(ZV_Proc& proc);
void LoadTree(ZV_Proc& proc);

/// Makes a node of `proc.tree` the one that everything works on (a click on it in the browser).
void SelectNode(ZV_Proc& proc, std::size_t index);

}  // namespace zek
