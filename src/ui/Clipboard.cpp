#include "ui/Clipboard.h"

#include <memory>

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include "ui/WxText.h"

namespace zek {
namespace {

// Refuses what is longer before a copy of it is made.
class LimitedText final : public wxTextDataObject {
 public:
  explicit LimitedText(std::size_t longest) : longest_(longest) {}

  bool TooLong() const { return tooLong_; }

  bool SetData(std::size_t length, const void* bytes) override {
    return !Refuses(length) && wxTextDataObject::SetData(length, bytes);
  }
  bool SetData(const wxDataFormat& format, std::size_t length, const void* bytes) override {
    return !Refuses(length) && wxTextDataObject::SetData(format, length, bytes);
  }

 private:
  bool Refuses(std::size_t length) {
    constexpr std::size_t mostBytes = 4;  // of a character
    tooLong_ = length / mostBytes > longest_;
    return tooLong_;
  }

  std::size_t longest_;
  bool tooLong_ = false;
};

}  // namespace

ClipboardText ReadClipboard(std::size_t longest) {
  using enum ClipboardText::Problem;
  const wxClipboardLocker lock;
  if (!lock) return {{}, Failed};
  if (!wxTheClipboard->IsSupported(wxDF_UNICODETEXT) && !wxTheClipboard->IsSupported(wxDF_TEXT))
    return {{}, NoText};
  LimitedText data(longest);
  const bool got = wxTheClipboard->GetData(data);
  if (data.TooLong()) return {{}, TooLong};
  if (!got) return {{}, Failed};
  std::string text = FromWx(data.GetText());
  if (text.size() > longest) return {{}, TooLong};
  if (text.empty()) return {{}, NoText};
  return {std::move(text), None};
}

bool WriteClipboard(const std::string& text) {
  const wxClipboardLocker lock;
  if (!lock) return false;
  auto data = std::make_unique<wxTextDataObject>(ToWx(text));
  if (!wxTheClipboard->SetData(data.release())) return false;
  wxTheClipboard->Flush();  // so that it is still there when the program has ended
  return true;
}

}  // namespace zek
