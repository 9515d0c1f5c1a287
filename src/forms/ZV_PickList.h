#pragma once

#include <functional>
#include <string>

#include <wx/textctrl.h>

#include "editors/PickList.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// Offers the values of `list` on a value box. A left click, Alt+Down and the menu key (or
/// Shift+F10) open `Menu_Popup`, with the box's value ticked. `choose` receives the chosen text, to
/// be handled as if typed ("." for no value). Does nothing if the list has no items. `list` must
/// live as long as the box.
void OfferPickList(wxTextCtrl& box, const PickList& list, const LanguageTexts& texts,
                   std::function<void(const std::string& typed)> choose);

}  // namespace zek
