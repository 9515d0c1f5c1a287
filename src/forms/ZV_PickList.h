#pragma once

#include <functional>
#include <string>

#include <wx/textctrl.h>

#include "editors/PickList.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// Offers the values of `list` on a value box: `Menu_Popup` opens by a click with the left button,
/// by Alt+Down and by the menu key (or Shift+F10), with the box's value ticked. `choose` is called
/// with the text to be taken as if it had been typed ("." for no value). Does nothing for a list
/// without items. `list` lives as long as the box.
void OfferPickList(wxTextCtrl& box, const PickList& list, const LanguageTexts& texts,
                   std::function<void(const std::string& typed)> choose);

}  // namespace zek
