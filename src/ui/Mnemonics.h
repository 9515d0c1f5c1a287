#pragma once

#include <set>

#include <wx/string.h>

namespace zek {

/// The upper-case letter behind the "&" of a caption; 0 without one.
int MnemonicOf(const wxString& caption);

/// Gives the captions of one form their keyboard letters. Language files in the field have none
/// in most captions, and a translation must not need them.
class Mnemonics {
 public:
  /// `caption` with "&" before its first letter that is still free, or as it stands when it brings
  /// an "&" of its own (that letter is taken then) or has no free letter.
  wxString Give(const wxString& caption);

 private:
  std::set<int> taken_;  // upper-cased characters
};

}  // namespace zek
