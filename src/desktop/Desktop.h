#pragma once

#include <string>

#include "app/ZV_Proc.h"
#include "comm/SystemLinks.h"
#include "settings/SettingsFile.h"
#include "system/DiskFiles.h"
#include "wxbase/WxLater.h"
#include "wxbase/WxTcpLink.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The outside world of the desktop program, and the session on it.
struct Desktop {
  /// Both directories end in the system's separator; `box` shows the messages.
  Desktop(const std::string& programPath, const std::string& iniPath, Prompts& box)
      : profile(OpenSettingsFile(files, iniPath + "ZEKView.INI")), prompts(box) {
    proc.settings.ProgramPath = programPath;
    proc.settings.IniPath = iniPath;
  }

  DiskFiles files;
  std::unique_ptr<Profile> profile;
  WxTurn turn;
  Prompts& prompts;
  WxTcpLink socket;
  WxLater later;
  SystemDde dde{later.Post()};
  SystemTags tags;
  ZV_Proc proc{Outside{files, *profile, turn, prompts, socket, dde, tags}};
};

}  // namespace zek
