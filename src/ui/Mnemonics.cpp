#include "ui/Mnemonics.h"

#include <wx/wxcrt.h>

namespace zek {
namespace {
int Folded(wxUniChar letter) { return wxToupper(static_cast<int>(letter.GetValue())); }
}  // namespace

wxString Mnemonics::Give(const wxString& caption) {
  const std::size_t own = caption.find('&');
  if (own != wxString::npos) {
    if (own + 1 < caption.length()) taken_.insert(Folded(caption[own + 1]));
    return caption;
  }
  for (std::size_t i = 0; i < caption.length(); ++i) {
    const wxUniChar letter = caption[i];
    // Beyond ASCII the systems differ in which keys they know.
    if (!letter.IsAscii() || !wxIsalpha(letter) || !taken_.insert(Folded(letter)).second) continue;
    return caption.Left(i) + "&" + caption.Mid(i);
  }
  return caption;
}

}  // namespace zek
