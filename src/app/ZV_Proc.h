#pragma once

#include <cstdint>
#include <string>

#include "app/BatchState.h"
#include "catalogue/Catalogues.h"
#include "catalogue/ControllerRecords.h"
#include "catalogue/LocalCopies.h"
#include "catalogue/ObjectTree.h"
#include "catalogue/OpenMarks.h"
#include "catalogue/Selection.h"
#include "comm/Connection.h"
#include "comm/SessionFile.h"
#include "lang/LanguageTexts.h"
#include "settings/Profile.h"
#include "settings/Settings.h"
#include "system/Files.h"
#include "system/LocalTime.h"
#include "system/OtherPrompts.h"
#include "system/Prompts.h"
#include "system/Turn.h"

namespace zek {

/// The session's access to the outside, created at start-up; it must outlive the session.
struct Outside {
  Files& files;
  Profile& profile;
  Turn& turn;
  Prompts& prompts;
  Transport& socket;
  Transport& dde;
  TagServer& tags;
  Clock now = SystemTime;
  RunBy runBy = {};  // for the journal of what was sent, and for those who share the data folder
};

/// The session: one object for the whole program, composed of its parts. Pass it to code that needs
/// several of them; other code gets only the part that it needs.
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
  SessionFile sessionFile;
  StatusPanels status;
  Connection connection;
  LocalCopies copies;
  ControllerRecords records;
  OpenMarks marks;
  Catalogues catalogues;
  ObjectTree tree;
  Selection selection;
  Batch batch;

  ZV_Proc(const ZV_Proc&) = delete;
  ZV_Proc& operator=(const ZV_Proc&) = delete;
  ~ZV_Proc();

  /// One tick of the timer: of the connection and of the log's file.
  void Tick();

  /// Completes the log's file at the end of the program.
  void EndSessionFile();

  std::string Text(std::int32_t number) const { return texts.Text(number); }
  Messages ToUser() { return {texts, prompts}; }
  NumberReader Numbers() { return {profile, ToUser()}; }
};

/// Selects a node of `proc.tree`, like a click on it in the browser.
void SelectNode(ZV_Proc& proc, std::size_t index);

}  // namespace zek
