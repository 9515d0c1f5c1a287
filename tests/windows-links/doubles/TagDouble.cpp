// A tag object (class factory and IDispatch, no type library) that serves a plant. Environment
// variables can make it fail:
//   ZEKVIEW_TAG_PLANT  the folder of the plant; a topic is an outstation's name
//   ZEKVIEW_TAG_FAULT  "lack METHOD": the method is missing; "raise METHOD": it raises an error;
//                      "bare METHOD": it raises one without a text; "fail METHOD": it returns zero;
//                      "crash METHOD": it ends the program;
//                      "block METHOD": it waits for the event "zekview-tag-release"
// "Open" stores the user's name. For user "raise" it raises an error whose text has the password.
// The tag "TYPE" answers a write with a value of the written type: "I4", "BSTR" ...

#include <cstdlib>
#include <map>
#include <memory>
#include <ole2.h>
#include <oleauto.h>
#include <optional>
#include <string>

#include "plant/PlantFolder.h"
#include "plant/PlantSession.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace {

using zek::sim::Outstation;

enum Method : DISPID { kOpen = 1, kTagWrite, kTagRead, kClose };

std::string Variable(const char* name) {
  std::string value(500, '\0');
  value.resize(::GetEnvironmentVariableA(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

bool IsFault(const std::string& kind, const std::string& method) {
  return Variable("ZEKVIEW_TAG_FAULT") == kind + " " + method;
}

void Crash() {
  volatile int* volatile nowhere = nullptr;  // else the compiler leaves the write out
  *nowhere = 1;
}

void AwaitRelease() {
  HANDLE const release = ::OpenEventA(SYNCHRONIZE, FALSE, "zekview-tag-release");
  ::WaitForSingleObject(release, 20'000);
  ::CloseHandle(release);
}

std::wstring Wide(const std::string& bytes) {
  std::wstring text(bytes.size(), L'\0');
  text.resize(static_cast<std::size_t>(
      ::MultiByteToWideChar(1252, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                            static_cast<int>(text.size()))));
  return text;
}

std::string Bytes(const VARIANT& value) {
  const int size = value.vt == VT_BSTR ? static_cast<int>(::SysStringLen(value.bstrVal)) : 0;
  std::string bytes(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(1252, 0, value.bstrVal, size, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

void SetText(VARIANT& value, const std::string& bytes) {
  const std::wstring wide = Wide(bytes);
  value.vt = VT_BSTR;
  value.bstrVal = ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

void SetStatus(VARIANT& value, bool done) {
  value.vt = VT_I2;
  value.iVal = done ? 1 : 0;
}

// Every type that an object may use for its status.
void SetTyped(VARIANT& value, const std::string& type) {
  static SHORT referred = 1;
  if (type == "I1") value.vt = VT_I1, value.cVal = 1;
  if (type == "UI1") value.vt = VT_UI1, value.bVal = 1;
  if (type == "I4") value.vt = VT_I4, value.lVal = 1;
  if (type == "LARGE") value.vt = VT_I4, value.lVal = 100000;
  if (type == "INT") value.vt = VT_INT, value.intVal = 1;
  if (type == "R8") value.vt = VT_R8, value.dblVal = 1;
  if (type == "BOOL") value.vt = VT_BOOL, value.boolVal = VARIANT_TRUE;
  if (type == "FALSE") value.vt = VT_BOOL, value.boolVal = VARIANT_FALSE;
  if (type == "BYREF") value.vt = VT_BYREF | VT_I2, value.piVal = &referred;
  if (type == "ERROR") value.vt = VT_ERROR, value.scode = E_FAIL;
  if (type == "NULL") value.vt = VT_NULL;
  if (type == "BSTR") SetText(value, "1");
  if (type == "WORD") SetText(value, "word");
}

/// The plant, and the unread text from each outstation.
class TaggedPlant {
 public:
  TaggedPlant() : loaded_(zek::sim::LoadPlant(Variable("ZEKVIEW_TAG_PLANT"))) {}

  bool Write(const std::string& tag, const std::string& value) {
    for (Outstation& each : loaded_.plant.outstations) {
      if (zek::EqualNoCase(each.name, tag)) return Command(each, value);
    }
    return value == "0" || value == "1" || value == "2";  // a tag that opens and closes a line
  }

  std::string Read(const std::string& tag) {
    std::string text = std::move(waiting_[tag]);
    waiting_.erase(tag);
    return text.empty() ? text : "0000>" + text;
  }

 private:
  bool Command(Outstation& outstation, std::string value) {
    if (value == "transparent open") {
      sessions_.insert_or_assign(outstation.name, zek::sim::PlantSession(outstation));
      return true;
    }
    const auto session = sessions_.find(outstation.name);
    if (session == sessions_.end()) return false;
    if (value == "transparent close") {
      sessions_.erase(session);
      return true;
    }
    if (!value.empty() && value.back() == '\r') value.pop_back();
    const zek::sim::PlantReply reply = session->second.Answer(value);
    // The next program that creates the object loads its own plant from there.
    if (outstation.changed && !session->second.TakingLines()) {
      outstation.changed = !SavePlantOutstation(Variable("ZEKVIEW_TAG_PLANT"), outstation).empty();
    }
    std::string& text = waiting_[outstation.name];
    for (const std::string& line : reply.lines) text += line + "\r\n";
    if (reply.refused) text += "\x02\r\n";
    return true;
  }

  zek::sim::LoadedPlant loaded_;
  std::map<std::string, zek::sim::PlantSession> sessions_;
  std::map<std::string, std::string> waiting_;
};

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): it ends with its last reference
class TagObject final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    *result = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    AddRef();
    *result = static_cast<IDispatch*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*lcid*/, ITypeInfo** info) override {
    *info = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*id*/, LPOLESTR* names, UINT /*count*/,
                                          LCID /*lcid*/, DISPID* ids) override {
    for (const auto& [method, name] : Methods()) {
      if (Wide(name) == names[0] && !IsFault("lack", name)) {
        *ids = method;
        return S_OK;
      }
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID /*id*/, LCID /*lcid*/, WORD /*flags*/,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* raised,
                                   UINT* /*wrong*/) override {
    const std::string name = Methods().at(id);
    const std::size_t wanted[] = {0, 3, 2, 1, 0};
    if (parameters->cArgs != wanted[id]) return DISP_E_BADPARAMCOUNT;
    const auto argument = [&](UINT index) {  // they come in reverse order
      return Bytes(parameters->rgvarg[parameters->cArgs - 1 - index]);
    };
    if (IsFault("block", name)) AwaitRelease();
    if (IsFault("raise", name)) return Raise(*raised, "the plant is on fire");
    if (IsFault("crash", name)) Crash();
    if (IsFault("bare", name)) return DISP_E_EXCEPTION;
    SetStatus(*result, !IsFault("fail", name));
    if (id == kOpen && argument(1) == "raise") {
      return RaiseLater(*raised, "no user raise/" + argument(2));
    }
    if (id == kTagRead) SetText(*result, plant_.Read(argument(0)));
    if (id != kTagWrite) return S_OK;
    if (argument(0) == "TYPE") {
      ::VariantInit(result);
      SetTyped(*result, argument(1));
    } else if (!IsFault("fail", name)) {
      SetStatus(*result, plant_.Write(argument(0), argument(1)));
    }
    return S_OK;
  }

 private:
  ~TagObject() = default;

  static const std::map<DISPID, std::string>& Methods() {
    static const std::map<DISPID, std::string> methods = {
        {kOpen, "Open"}, {kTagWrite, "TagWrite"}, {kTagRead, "TagRead"}, {kClose, "Close"}};
    return methods;
  }
  static std::string& Words() {
    static std::string words;
    return words;
  }
  static HRESULT Raise(EXCEPINFO& raised, const std::string& words) {
    raised.scode = E_FAIL;
    raised.bstrDescription = ::SysAllocString(Wide(words).c_str());
    return DISP_E_EXCEPTION;
  }
  // The caller must request the text.
  static HRESULT RaiseLater(EXCEPINFO& raised, const std::string& words) {
    Words() = words;
    raised.pfnDeferredFillIn = [](EXCEPINFO* later) -> HRESULT {
      Raise(*later, Words());
      return S_OK;
    };
    return DISP_E_EXCEPTION;
  }

  ULONG references_ = 1;
  TaggedPlant plant_;
};

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): the library ends it
class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    *result = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    return *result != nullptr ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }  // it lives as long as the library
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) override {
    *result = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    auto* const object = new TagObject();  // owned by its reference count
    const HRESULT done = object->QueryInterface(id, result);
    object->Release();
    return done;  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the caller holds it
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }
};

}  // namespace

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID /*class*/, REFIID id, void** result) {
  static Factory factory;
  return factory.QueryInterface(id, result);
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() { return S_FALSE; }
