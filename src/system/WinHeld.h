#pragma once

#include <functional>
#include <string>

namespace zek {

/// Makes a call of the system, again for about a second while another program has the file open:
/// virus scanners, indexers and backups do so for a moment right after it was written. False with
/// the system's error.
bool WhileHeld(const std::function<bool()>& call);

/// The system's code for a call that failed with `code`: moving over or deleting a file that is
/// open elsewhere is denied as if there were no right to it.
unsigned long HeldReason(unsigned long code, const std::wstring& path);

}  // namespace zek
