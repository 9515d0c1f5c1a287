#include "ui/Mnemonics.h"

#include <wx/wxcrt.h>

namespace zek {
namespace {
int Folded(wxUniChar letter) { return wxToupper(static_cast<int>(letter.GetValue())); }
}  // namespace

int MnemonicOf(const wxString& caption) {
  const std::size_t mark = caption.find('&');
  if (mark == wxString::npos || mark + 1 == caption.length()) return 0;
  return Folded(caption[mark + 1]);
}

wxString Mnemonics::Give(const wxString& caption) {
  const int own = MnemonicOf(caption);
  if (own != 0 && taken_.insert(own).second) return caption;
  wxString plain = caption;
  plain.Replace("&", "");
  for (std::size_t i = 0; i < plain.length(); ++i) {
    const wxUniChar letter = plain[i];
    // Only ASCII letters work as keys on every system.
    if (!letter.IsAscii() || !wxIsalpha(letter) || !taken_.insert(Folded(letter)).second) continue;
    return plain.Left(i) + "&" + plain.Mid(i);
  }
  return plain;
}

}  // namespace zek
