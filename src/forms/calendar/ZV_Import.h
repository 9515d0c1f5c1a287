#pragma once

#include <optional>

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "editors/CalendarEditor.h"

namespace zek {

/// Where dates for the calendar come from.
enum class DateSource { File, Holidays, OtherYear };

/// Opens `ZV_Import` on the dates of a file, which the user chooses, of the computed holidays, or
/// of a year of the calendar, for another year. It shows what they change in the editor's calendar;
/// what the user takes is one step of the editor. Modal; returns true if the calendar changed.
bool ShowImportForm(wxWindow* parent, ZV_Proc& proc, CalendarEditor& editor, DateSource source);

}  // namespace zek
