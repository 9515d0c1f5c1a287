#pragma once

#include <memory>
#include <string>

#include "app/ZV_Proc.h"
#include "comm/SystemTransports.h"
#include "settings/DataFolder.h"
#include "settings/Profile.h"
#include "system/DiskFiles.h"
#include "wxbase/RunByNow.h"
#include "wxbase/WxTcpTransport.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// A session with the real disk, the toolkit's event loop and the system's transports.
struct SystemSession {
  /// Both directories are UTF-8 and end in the system's separator; `prompts` shows the messages.
  SystemSession(const std::string& programPath, const std::string& iniPath, Prompts& prompts)
      : profile(OpenSettingsFile(files, iniPath + kSettingsFile)),
        proc(Outside{files, *profile, turn, prompts, socket, dde, tags, SystemTime, RunByNow()}) {
    proc.settings.ProgramPath = programPath;
    proc.settings.IniPath = iniPath;
  }

  DiskFiles files;
  std::unique_ptr<Profile> profile;
  WxTurn turn;
  WxTcpTransport socket;
  WxLater later;
  SystemDde dde{later.Post()};
  SystemTags tags{later.Post()};
  ZV_Proc proc;
};

}  // namespace zek
