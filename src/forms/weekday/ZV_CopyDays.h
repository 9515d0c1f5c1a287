#pragma once

#include <functional>
#include <optional>
#include <string>

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "paste/DayCopy.h"

namespace zek {

/// What can be copied: a row of a day, or the day.
struct CopySource {
  std::size_t day = 0;
  bool hasRow = true;  // the row is used
  std::string name;    // "Mån, rad 2"
};

struct CopyChoice {
  DayCopy what = DayCopy::Row;
  DaySet to;
};

/// Opens `ZV_CopyDays`, which asks what is copied and to which of the fourteen days; `nameOf` names
/// them. Modal; returns nothing if the user cancels.
std::optional<CopyChoice> AskCopyDays(wxWindow* parent, ZV_Proc& proc, const CopySource& from,
                                      const std::function<std::string(std::size_t)>& nameOf);

}  // namespace zek
