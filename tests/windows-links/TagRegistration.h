#pragma once

#include <windows.h>
#include <gtest/gtest.h>
#include <string>

#include "support/SourceTree.h"
#include "windows-links/ServerProcess.h"
#include "windows-links/TagDoubleId.h"

namespace zek::test {

/// While it exists, the tag object of the tests is registered, and serves the demonstration's
/// plant.
class TagRegistration {
 public:
  TagRegistration() {
    const std::string plant = SourceTree() + "/data/demo/plant";
    ::SetEnvironmentVariableA("ZEKVIEW_TAG_PLANT", plant.c_str());
    Register(ProgramFolder() + "zekview-tag-double.dll");
  }
  TagRegistration(const TagRegistration&) = delete;
  TagRegistration& operator=(const TagRegistration&) = delete;
  ~TagRegistration() {
    Fault(nullptr);
    Unregister();
  }

  /// How the object fails from now on; null: not at all.
  static void Fault(const char* what) { ::SetEnvironmentVariableA("ZEKVIEW_TAG_FAULT", what); }

  static void Register(const std::string& library, const char* threading = "Apartment") {
    SetKey("CTAPIX.CTAPI\\CLSID", kTagDoubleId);
    SetKey(Server(), library);
    ASSERT_EQ(::RegSetKeyValueA(HKEY_CLASSES_ROOT, Server().c_str(), "ThreadingModel", REG_SZ,
                                threading, static_cast<DWORD>(std::string(threading).size() + 1)),
              ERROR_SUCCESS);
  }
  static void Unregister() {
    for (const std::string& key : {Server(), std::string("CLSID\\") + kTagDoubleId,
                                   std::string("CTAPIX.CTAPI\\CLSID"), std::string("CTAPIX.CTAPI")})
      ::RegDeleteKeyA(HKEY_CLASSES_ROOT, key.c_str());
  }

 private:
  static std::string Server() { return std::string("CLSID\\") + kTagDoubleId + "\\InprocServer32"; }
  static void SetKey(const std::string& key, const std::string& value) {
    ASSERT_EQ(::RegSetValueA(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, value.c_str(),
                             static_cast<DWORD>(value.size())),
              ERROR_SUCCESS)
        << key;
  }
};

}  // namespace zek::test
