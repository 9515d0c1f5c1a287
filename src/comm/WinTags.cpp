#include "comm/WinTags.h"

#include <initializer_list>
#include <ole2.h>
#include <oleauto.h>
#include <utility>
#include <vector>

#include "text/Fields.h"

namespace zek {
namespace {

constexpr IID kNoInterface{};     // a reserved parameter of the calls
constexpr UINT kCodePage = 1252;  // of our text, independent of the system's code page

// A BSTR; null means an empty text.
class SystemText {
 public:
  explicit SystemText(const std::string& text) {
    const int size = static_cast<int>(text.size());
    text_ = ::SysAllocStringLen(nullptr, static_cast<UINT>(::MultiByteToWideChar(
                                             kCodePage, 0, text.data(), size, nullptr, 0)));
    if (text_ != nullptr) {
      ::MultiByteToWideChar(kCodePage, 0, text.data(), size, text_,
                            static_cast<int>(::SysStringLen(text_)));
    }
  }
  SystemText(const SystemText&) = delete;
  SystemText& operator=(const SystemText&) = delete;
  ~SystemText() { ::SysFreeString(text_); }

  BSTR Get() const { return text_; }

 private:
  BSTR text_ = nullptr;
};

std::string OurText(const wchar_t* text, UINT length) {
  const int size = static_cast<int>(length);
  const auto convert = [text, size](char* bytes, int room) {
    return ::WideCharToMultiByte(kCodePage, 0, text, size, bytes, room, "?", nullptr);
  };
  std::string bytes(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(bytes.data(), static_cast<int>(bytes.size()));
  return bytes;
}

std::string OurText(BSTR text) { return OurText(text, ::SysStringLen(text)); }

/// A value that the object returned.
class Value {
 public:
  Value() { ::VariantInit(&value_); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  ~Value() { ::VariantClear(&value_); }

  VARIANT* Place() { return &value_; }
  /// Converts the value to `type`; the object may have returned another type.
  HRESULT Change(VARTYPE type) { return ::VariantChangeType(&value_, &value_, 0, type); }
  std::int16_t Number() const { return value_.iVal; }
  std::string Text() const { return OurText(value_.bstrVal); }

 private:
  VARIANT value_{};
};

// "Unknown name. (80020006)"
std::string SystemWords(HRESULT result) {
  wchar_t* words = nullptr;
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&words), 0, nullptr);
  std::string text = length == 0 ? std::string() : OurText(words, length) + " ";
  ::LocalFree(words);
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  text += '(';
  for (int shift = 28; shift >= 0; shift -= 4) {
    text += kDigits[(static_cast<unsigned long>(result) >> shift) & 0xF];
  }
  return text + ')';
}

// Returns the object's message about an exception and frees its texts.
std::string RaisedWords(EXCEPINFO& raised) {
  if (raised.pfnDeferredFillIn != nullptr) raised.pfnDeferredFillIn(&raised);
  std::string words = OurText(raised.bstrDescription);
  if (words.empty()) words = SystemWords(raised.scode != 0 ? raised.scode : DISP_E_EXCEPTION);
  ::SysFreeString(raised.bstrSource);
  ::SysFreeString(raised.bstrDescription);
  ::SysFreeString(raised.bstrHelpFile);
  return words;
}

// Returns one line for a message, without the secret.
std::string Cleaned(const std::string& words, const std::string& secret) {
  constexpr std::size_t kLongest = 300;
  std::string line = WithoutSecret(words, secret);
  for (char& character : line) {
    if (static_cast<unsigned char>(character) < 32) character = ' ';
  }
  return std::string(Trim(line.substr(0, kLongest)));
}

}  // namespace

class WinTags::Object {
 public:
  Object() : initialized_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  ~Object() {
    Release();
    if (initialized_) ::CoUninitialize();
  }

  bool Create() {
    Release();
    CLSID id{};
    void* made = nullptr;
    HRESULT done = ::CLSIDFromProgID(L"CTAPIX.CTAPI", &id);
    if (SUCCEEDED(done)) {
      done = ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                __uuidof(IDispatch), &made);
    }
    if (FAILED(done)) Note("CTAPIX.CTAPI", SystemWords(done));
    object_ = static_cast<IDispatch*>(made);
    return SUCCEEDED(done) && object_ != nullptr;
  }

  void Hide(const std::string& secret) { secret_ = secret; }

  std::int16_t Status(const char* method, std::initializer_list<std::string> arguments) {
    Value value;
    if (!Call(method, arguments, value)) return 0;
    const HRESULT changed = value.Change(VT_I2);
    if (changed == DISP_E_OVERFLOW) return 1;  // a large number is not zero
    if (SUCCEEDED(changed)) return value.Number();
    Note(method, SystemWords(changed));
    return 0;
  }

  std::string Text(const char* method, std::initializer_list<std::string> arguments) {
    Value value;
    if (!Call(method, arguments, value)) return {};
    const HRESULT changed = value.Change(VT_BSTR);
    if (SUCCEEDED(changed)) return value.Text();
    Note(method, SystemWords(changed));
    return {};
  }

  std::string TakeFault() { return std::exchange(fault_, {}); }

 private:
  void Release() {
    if (object_ != nullptr) std::exchange(object_, nullptr)->Release();
  }

  void Note(const std::string& method, const std::string& words) {
    if (fault_.empty()) fault_ = Cleaned(method + ": " + words, secret_);
  }

  bool Call(const char* method, std::initializer_list<std::string> arguments, Value& value) {
    const HRESULT done = object_ == nullptr ? E_POINTER : Invoke(method, arguments, value);
    if (FAILED(done) && done != DISP_E_EXCEPTION) Note(method, SystemWords(done));
    return SUCCEEDED(done);
  }

  HRESULT Invoke(const char* method, std::initializer_list<std::string> arguments, Value& value) {
    const SystemText name(method);
    LPOLESTR names = name.Get();
    DISPID id = 0;
    const HRESULT found = object_->GetIDsOfNames(kNoInterface, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(found)) return found;
    std::vector<std::unique_ptr<SystemText>> texts;
    std::vector<VARIANT> values(arguments.size());  // COM wants the last argument first
    auto place = values.rbegin();
    for (const std::string& argument : arguments) {
      texts.push_back(std::make_unique<SystemText>(argument));
      place->vt = VT_BSTR;
      place->bstrVal = texts.back()->Get();
      ++place;
    }
    DISPPARAMS parameters{};
    parameters.rgvarg = values.data();
    parameters.cArgs = static_cast<UINT>(values.size());
    EXCEPINFO raised{};
    UINT wrong = 0;
    const HRESULT done = object_->Invoke(id, kNoInterface, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                         &parameters, value.Place(), &raised, &wrong);
    if (done == DISP_E_EXCEPTION) Note(method, RaisedWords(raised));
    return done;
  }

  bool initialized_;
  IDispatch* object_ = nullptr;
  std::string secret_;
  std::string fault_;
};

WinTags::WinTags() : object_(std::make_unique<Object>()) {}

WinTags::~WinTags() = default;

bool WinTags::Create() { return object_->Create(); }

std::int16_t WinTags::Open(const std::string& computer, const std::string& user,
                           const std::string& password) {
  object_->Hide(password);
  return object_->Status("Open", {computer, user, password});
}

std::int16_t WinTags::TagWrite(const std::string& tag, const std::string& value) {
  return object_->Status("TagWrite", {tag, value});
}

std::string WinTags::TagRead(const std::string& tag) { return object_->Text("TagRead", {tag}); }

std::int16_t WinTags::Close() { return object_->Status("Close", {}); }

std::string WinTags::TakeFault() { return object_->TakeFault(); }

void RunWinMessages() {
  constexpr int kMostAtOnce = 100;  // a flood must not delay the next call
  MSG message;
  for (int i = 0; i < kMostAtOnce; ++i) {
    if (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) return;
    ::DispatchMessageW(&message);
  }
}

}  // namespace zek
