#pragma once

#include <istream>
#include <optional>
#include <string>
#include <string_view>

namespace zek {

/// True if the system can encrypt for this computer; only Windows can.
bool CanEncrypt();

/// Encrypts bytes so that only programs on this computer can decrypt them, for every user of it.
/// The result is one word in ASCII. Nothing if the system can't.
std::optional<std::string> Encrypted(std::string_view secret);

/// Decrypts what `Encrypted` returned. Nothing if that was on another computer, or if it is
/// damaged.
std::optional<std::string> Decrypted(std::string_view text);

/// Reads one line. At a terminal it asks for it and does not show what is typed. Returns UTF-8.
std::string ReadUnseenLine(std::istream& in, std::string_view question);

}  // namespace zek
