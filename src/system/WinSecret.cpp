#include <windows.h>
#include <dpapi.h>
#include <iostream>
#include <wincrypt.h>

#include "system/Secret.h"
#include "system/WinText.h"

namespace zek {
namespace {

constexpr DWORD kForm = CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF;

DATA_BLOB BlobOf(std::string& bytes) {
  return {static_cast<DWORD>(bytes.size()), reinterpret_cast<BYTE*>(bytes.data())};
}

// Takes the bytes that the system allocated.
std::string Taken(const DATA_BLOB& blob) {
  std::string bytes(reinterpret_cast<const char*>(blob.pbData), blob.cbData);
  ::SecureZeroMemory(blob.pbData, blob.cbData);
  ::LocalFree(blob.pbData);
  return bytes;
}

// A console that shows nothing of what is typed, while this exists.
class Unseen {
 public:
  explicit Unseen(HANDLE console) : console_(console) {
    isConsole_ = ::GetConsoleMode(console, &before_) != 0;
    if (isConsole_) ::SetConsoleMode(console, before_ & ~DWORD{ENABLE_ECHO_INPUT});
  }
  Unseen(const Unseen&) = delete;
  Unseen& operator=(const Unseen&) = delete;
  ~Unseen() {
    if (!isConsole_) return;
    ::SetConsoleMode(console_, before_);
    std::cerr << std::endl;  // in place of the Enter that nobody saw
  }
  bool IsConsole() const { return isConsole_; }

 private:
  HANDLE console_;
  DWORD before_ = 0;
  bool isConsole_ = false;
};

}  // namespace

bool CanEncrypt() { return true; }

std::optional<std::string> Encrypted(std::string_view secret) {
  std::string bytes(secret);
  DATA_BLOB in = BlobOf(bytes);
  DATA_BLOB out{};
  constexpr DWORD how = CRYPTPROTECT_LOCAL_MACHINE | CRYPTPROTECT_UI_FORBIDDEN;
  if (::CryptProtectData(&in, nullptr, nullptr, nullptr, nullptr, how, &out) == 0) return {};
  const std::string taken = Taken(out);
  const auto* const data = reinterpret_cast<const BYTE*>(taken.data());
  const auto size = static_cast<DWORD>(taken.size());
  DWORD length = 0;
  if (::CryptBinaryToStringA(data, size, kForm, nullptr, &length) == 0) return {};
  std::string text(length, '\0');
  if (::CryptBinaryToStringA(data, size, kForm, text.data(), &length) == 0) return {};
  text.resize(length);
  return text;
}

std::optional<std::string> Decrypted(std::string_view text) {
  const auto length = static_cast<DWORD>(text.size());
  DWORD size = 0;
  if (::CryptStringToBinaryA(text.data(), length, CRYPT_STRING_BASE64, nullptr, &size, nullptr,
                             nullptr) == 0) {
    return {};
  }
  std::string bytes(size, '\0');
  DATA_BLOB in = BlobOf(bytes);
  if (::CryptStringToBinaryA(text.data(), length, CRYPT_STRING_BASE64, in.pbData, &in.cbData,
                             nullptr, nullptr) == 0) {
    return {};
  }
  DATA_BLOB out{};
  if (::CryptUnprotectData(&in, nullptr, nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN,
                           &out) == 0) {
    return {};
  }
  return Taken(out);
}

std::string ReadUnseenLine(std::istream& in, std::string_view question) {
  const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
  const Unseen unseen(input);
  if (!unseen.IsConsole()) {
    std::string line;
    std::getline(in, line);
    return line;
  }
  std::cerr << question << std::flush;
  std::wstring typed(1024, L'\0');  // more than any password
  DWORD count = 0;
  if (::ReadConsoleW(input, typed.data(), static_cast<DWORD>(typed.size()), &count, nullptr) == 0) {
    return {};
  }
  typed.resize(count);
  return Utf8FromWide(typed);
}

}  // namespace zek
