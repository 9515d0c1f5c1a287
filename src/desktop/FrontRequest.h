#pragma once

#include <string>

#include <wx/string.h>

#include "wxbase/WxTurn.h"

namespace zek {

/// One name for all instances of a user that have this program directory, however it is spelt.
wxString InstanceName(const std::string& programPath);

/// A second instance asks the first one of the same program directory to come to the front: it
/// leaves a file in the temporary directory, for which the first one looks now and then.
class FrontRequest {
 public:
  explicit FrontRequest(const std::string& programPath);

  /// Called by the second instance.
  void Ask() const;

  /// Called by the first instance: from now on it answers.
  void Answer();

 private:
  void Look() const;

  wxString file_;
  WxTick timer_;
};

}  // namespace zek
