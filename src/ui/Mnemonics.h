#pragma once

#include <set>

#include <wx/string.h>

namespace zek {

/// The letter after the "&" of a caption, in upper case; 0 without "&".
int MnemonicOf(const wxString& caption);

/// Assigns keyboard letters to the captions of one form. Most captions in existing language files
/// have no "&", and a translator need not add any.
class Mnemonics {
 public:
  /// Returns `caption` with "&" before its own letter if that is unused, else before its first
  /// unused letter; without "&" if it has none.
  wxString Give(const wxString& caption);

 private:
  std::set<int> taken_;  // upper-cased characters
};

}  // namespace zek
