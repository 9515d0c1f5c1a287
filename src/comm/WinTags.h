#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "comm/TagServer.h"

namespace zek {

/// The system's COM object `CTAPIX.CTAPI`, late bound: each call looks its method up by name, so a
/// missing method fails only that call. Use only in the thread that created it, which gets an
/// apartment for single-threaded objects. An object that is registered without a threading model
/// lives in the apartment of the program's first thread, whatever thread creates it.
class WinTags final : public TagObject {
 public:
  WinTags();
  WinTags(const WinTags&) = delete;
  WinTags& operator=(const WinTags&) = delete;
  ~WinTags() override;

  bool Create() override;
  std::int16_t Open(const std::string& computer, const std::string& user,
                    const std::string& password) override;
  std::int16_t TagWrite(const std::string& tag, const std::string& value) override;
  std::string TagRead(const std::string& tag) override;
  std::int16_t Close() override;
  std::string TakeFault() override;

 private:
  class Object;
  std::unique_ptr<Object> object_;
};

/// Handles the system's messages to the calling thread; its apartment may get calls by them.
void RunWinMessages();

}  // namespace zek
