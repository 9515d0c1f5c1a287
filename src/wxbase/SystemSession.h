#pragma once

#include <memory>
#include <string>

#include "app/ZV_Proc.h"
#include "comm/SystemTransports.h"
#include "settings/SettingsFile.h"
#include "system/DiskFiles.h"
#include "wxbase/WxLater.h"
#include "wxbase/WxTcpTransport.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The world outside as the programs have it: the disk, the toolkit's event loop, the transports of
/// the system; and the session on it.
struct SystemSession {
  /// Both directories end in the system's separator; `prompts` shows the messages.
  SystemSession(const std::string& programPath, const std::string& iniPath, Prompts& prompts)
      : profile(OpenSettingsFile(files, iniPath + "ZEKView.INI")),
        proc(Outside{files, *profile, turn, prompts, socket, dde, tags}) {
    proc.settings.ProgramPath = programPath;
    proc.settings.IniPath = iniPath;
  }

  DiskFiles files;
  std::unique_ptr<Profile> profile;
  WxTurn turn;
  WxTcpTransport socket;
  WxLater later;
  SystemDde dde{later.Post()};
  SystemTags tags;
  ZV_Proc proc;
};

}  // namespace zek
