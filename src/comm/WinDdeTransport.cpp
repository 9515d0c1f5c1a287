#include "comm/WinDdeTransport.h"

#include <windows.h>
#include <algorithm>

#include <ddeml.h>

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr const char* kItem = "TRANSPARENT";
// Destination of the server's calls back.
constexpr const char* kOwnService = "ZEKView";
constexpr std::string_view kOwnTopic = "ZV_Main";
constexpr std::string_view kOwnItem = "Text_CTServCallBack";
constexpr DWORD kOwnKind = APPCLASS_STANDARD | CBF_FAIL_SELFCONNECTIONS | CBF_FAIL_ADVISES |
                           CBF_FAIL_EXECUTES | CBF_FAIL_REQUESTS | CBF_SKIP_CONNECT_CONFIRMS |
                           CBF_SKIP_REGISTRATIONS | CBF_SKIP_UNREGISTRATIONS;

// NOLINTNEXTLINE(performance-no-int-to-ptr): an answer is a handle or a number
HDDEDATA Code(UINT code) { return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(code)); }

/// A DDE string handle; null for an empty or too long name.
class DdeName {
 public:
  DdeName(DWORD instance, const std::string& text)
      : instance_(instance),
        handle_(text.empty() ? nullptr
                             : ::DdeCreateStringHandleA(instance, text.c_str(), CP_WINANSI)) {}
  DdeName(const DdeName&) = delete;
  DdeName& operator=(const DdeName&) = delete;
  ~DdeName() {
    if (handle_ != nullptr) ::DdeFreeStringHandle(instance_, handle_);
  }

  HSZ Get() const { return handle_; }

 private:
  DWORD instance_;
  HSZ handle_;
};

// Memory cost of a queued text, with its place in the queue, in bytes.
constexpr std::size_t kLoad = 32;
std::size_t Load(const std::string& text) { return text.size() + kLoad; }

std::string TextOf(HDDEDATA data) {
  // One byte more than the limit, so that the caller detects too long a text.
  const DWORD size = std::min<DWORD>(::DdeGetData(data, nullptr, 0, 0),
                                     static_cast<DWORD>(WinDdeTransport::kMostUnread) + 1);
  std::string text(size, '\0');
  text.resize(::DdeGetData(data, reinterpret_cast<BYTE*>(text.data()), size, 0));
  return text.substr(0, text.find('\0'));
}

}  // namespace

/// The only conversation of a transport, with its queue of events not yet reported.
class WinDdeTransport::Conversation : public std::enable_shared_from_this<Conversation> {
 public:
  Conversation(WinDdeTransport& owner, Later later) : owner_(owner), later_(std::move(later)) {
    All().push_back(this);
  }
  Conversation(const Conversation&) = delete;
  Conversation& operator=(const Conversation&) = delete;
  ~Conversation() {
    std::erase(All(), this);
    Drop();
    if (instance_ != 0) ::DdeUninitialize(instance_);
  }

  void Open(const LinkTarget& target);
  bool Send(std::string_view bytes);
  void Drop();
  bool AllSent() const { return outstanding_ == 0 && !ending_; }
  LinkState State();

 private:
  struct Ending {
    bool closed = false;  // by the other side, without a fault
    LinkFault fault;
  };

  // The DDE callback gets only the conversation handle; this list finds its object.
  static std::vector<Conversation*>& All() {
    static std::vector<Conversation*> all;
    return all;
  }
  static HDDEDATA CALLBACK Callback(UINT type, UINT format, HCONV conversation, HSZ topic, HSZ item,
                                    HDDEDATA data, ULONG_PTR data1, ULONG_PTR data2);

  static HDDEDATA AnswerCaller(UINT type, HSZ topic, HSZ item, HDDEDATA data);
  bool Prepare();
  bool Names(HSZ name, std::string_view text) const;
  bool IsAlive() const;
  bool Start(UINT type, std::string_view bytes);
  void TakeText(std::string text);
  void TakeCompletion(bool taken, ULONG_PTR status);
  std::int32_t Refusal(ULONG_PTR status) const;
  void End(Ending ending);
  void Lost() { End({state_ == LinkState::Connected, {text::kDdeNoServer, {}}}); }
  void HandOverLater();
  void HandOver();
  std::string TakeHeard();

  WinDdeTransport& owner_;  // not used after `Drop`
  Later later_;
  DWORD instance_ = 0;
  HCONV handle_ = nullptr;
  LinkState state_ = LinkState::Closed;
  int outstanding_ = 0;  // transactions that the server has not answered
  unsigned serial_ = 0;  // counts the conversations; events of an older one are ignored
  std::deque<std::string> heard_;
  std::size_t unread_ = 0;        // memory cost of heard_, in bytes
  std::optional<Ending> ending_;  // reported after all text in heard_
  bool posted_ = false;
};

void WinDdeTransport::Conversation::Open(const LinkTarget& target) {
  Drop();
  state_ = LinkState::Opening;
  const bool ready = Prepare();
  const DdeName service(instance_, target.server);
  const DdeName topic(instance_, target.service);
  // DDE would treat a null name as a wildcard.
  if (ready && service.Get() != nullptr && topic.Get() != nullptr) {
    handle_ = ::DdeConnect(instance_, service.Get(), topic.Get(), nullptr);
  }
  if (handle_ == nullptr) {
    End({false, {text::kDdeNoServer, {}}});
    return;
  }
  if (!Start(XTYP_ADVSTART, {})) End({false, {text::kDdeNoAdvise, {}}});
}

bool WinDdeTransport::Conversation::Prepare() {
  if (instance_ != 0) return true;
  if (::DdeInitializeA(&instance_, &Conversation::Callback, kOwnKind, 0) != DMLERR_NO_ERROR) {
    return false;
  }
  const DdeName own(instance_, kOwnService);
  ::DdeNameService(instance_, own.Get(), nullptr, DNS_REGISTER);  // may fail: few servers call back
  return true;
}

bool WinDdeTransport::Conversation::Names(HSZ name, std::string_view text) const {
  std::string known(256, '\0');
  known.resize(::DdeQueryStringA(instance_, name, known.data(), static_cast<DWORD>(known.size()),
                                 CP_WINANSI));
  return EqualNoCase(known, text);
}

bool WinDdeTransport::Conversation::Start(UINT type, std::string_view bytes) {
  const DdeName item(instance_, kItem);
  std::string text(bytes);  // the size of DDE text includes the final NUL
  const bool poke = type == XTYP_POKE;
  DWORD id = 0;
  if (::DdeClientTransaction(poke ? reinterpret_cast<BYTE*>(text.data()) : nullptr,
                             poke ? static_cast<DWORD>(text.size() + 1) : 0, handle_, item.Get(),
                             CF_TEXT, type, TIMEOUT_ASYNC, &id) == nullptr) {
    return false;
  }
  ++outstanding_;
  return true;
}

bool WinDdeTransport::Conversation::Send(std::string_view bytes) {
  if (State() != LinkState::Connected || ending_ || outstanding_ >= kMostOutstanding) return false;
  if (Start(XTYP_POKE, bytes.substr(0, bytes.find('\0')))) return true;
  Lost();
  return false;
}

void WinDdeTransport::Conversation::Drop() {
  ++serial_;
  state_ = LinkState::Closed;
  outstanding_ = 0;
  heard_.clear();
  unread_ = 0;
  ending_.reset();
  if (handle_ != nullptr) ::DdeDisconnect(std::exchange(handle_, nullptr));
}

// DDE does not report a crashed server, and not every system reports a disconnect.
bool WinDdeTransport::Conversation::IsAlive() const {
  CONVINFO info{};
  info.cb = sizeof info;
  return ::DdeQueryConvInfo(handle_, QID_SYNC, &info) != 0 && (info.wStatus & ST_CONNECTED) != 0 &&
         ::IsWindow(info.hwndPartner) != FALSE;
}

LinkState WinDdeTransport::Conversation::State() {
  if (handle_ != nullptr && !IsAlive()) Lost();
  return state_;
}

// The first cause counts; later ones are its consequences. The event loop ends the conversation,
// because the DDE callback may call this, and DDE still uses the conversation then.
void WinDdeTransport::Conversation::End(Ending ending) {
  if (ending_) return;
  ending_ = std::move(ending);
  HandOverLater();
}

void WinDdeTransport::Conversation::HandOverLater() {
  if (std::exchange(posted_, true)) return;
  later_([self = weak_from_this()] {
    if (const std::shared_ptr<Conversation> conversation = self.lock()) conversation->HandOver();
  });
}

void WinDdeTransport::Conversation::HandOver() {
  posted_ = false;
  const unsigned serial = serial_;
  while (serial == serial_ && !heard_.empty()) owner_.Events().OnLinkText(TakeHeard());
  if (serial != serial_ || !ending_) return;
  const Ending ending = *ending_;
  Drop();
  if (ending.closed) {
    owner_.Events().OnLinkClosed();
  } else {
    owner_.Events().OnLinkError(ending.fault);
  }
}

std::string WinDdeTransport::Conversation::TakeHeard() {
  std::string text = std::move(heard_.front());
  heard_.pop_front();
  unread_ -= Load(text);
  return text;
}

void WinDdeTransport::Conversation::TakeText(std::string text) {
  if (ending_ || text.empty()) return;
  if (unread_ + Load(text) > kMostUnread) {
    End({false, {text::kDdeFlooded, {}}});
    return;
  }
  state_ = LinkState::Connected;  // a server may send text before it confirms the link
  unread_ += Load(text);
  heard_.push_back(std::move(text));
  HandOverLater();
}

// The server answers transactions in order, so the first answer is for the advise link. The
// transaction numbers can't be used: one system gives all of them the same number.
void WinDdeTransport::Conversation::TakeCompletion(bool taken, ULONG_PTR status) {
  if (outstanding_ > 0) --outstanding_;
  if (taken) {
    state_ = LinkState::Connected;
  } else if (handle_ == nullptr || !IsAlive()) {
    Lost();  // the server is gone, so this is not a refusal
  } else {
    End({false, {Refusal(status), {}}});
  }
}

std::int32_t WinDdeTransport::Conversation::Refusal(ULONG_PTR status) const {
  if (state_ == LinkState::Opening) return text::kDdeNoAdvise;
  return (status & DDE_FBUSY) != 0 ? text::kDdeBusy : text::kDdeRefused;
}

// A program has one link, so the first connected one is the right one.
HDDEDATA WinDdeTransport::Conversation::AnswerCaller(UINT type, HSZ topic, HSZ item,
                                                     HDDEDATA data) {
  for (Conversation* const each : All()) {
    if (each->state_ != LinkState::Connected || !each->Names(topic, kOwnTopic)) continue;
    if (type == XTYP_CONNECT) return Code(1);
    if (!each->Names(item, kOwnItem)) continue;
    each->TakeText(TextOf(data) + '\n');
    return Code(DDE_FACK);
  }
  return Code(DDE_FNOTPROCESSED);
}

HDDEDATA CALLBACK WinDdeTransport::Conversation::Callback(UINT type, UINT format,
                                                          HCONV conversation, HSZ topic, HSZ item,
                                                          HDDEDATA data, ULONG_PTR /*data1*/,
                                                          ULONG_PTR data2) {
  const bool poke = type == XTYP_POKE && format == CF_TEXT;
  if (type == XTYP_CONNECT || poke) return AnswerCaller(type, topic, item, data);
  const auto found = std::find_if(All().begin(), All().end(), [conversation](const auto* each) {
    return conversation != nullptr && each->handle_ == conversation;
  });
  if (found == All().end()) return nullptr;
  Conversation& self = **found;
  switch (type) {
    case XTYP_ADVDATA:
      if (format == CF_TEXT && data != nullptr) self.TakeText(TextOf(data));
      return Code(DDE_FACK);
    case XTYP_XACT_COMPLETE:
      self.TakeCompletion(data != nullptr, data2);
      return nullptr;
    case XTYP_DISCONNECT:
      self.handle_ = nullptr;  // DDE has freed it
      self.Lost();
      return nullptr;
    default:
      return nullptr;
  }
}

WinDdeTransport::WinDdeTransport(Later later)
    : conversation_(std::make_shared<Conversation>(*this, std::move(later))) {}

WinDdeTransport::~WinDdeTransport() { conversation_->Drop(); }

void WinDdeTransport::Open(const LinkTarget& target) { conversation_->Open(target); }

bool WinDdeTransport::Send(std::string_view bytes) { return conversation_->Send(bytes); }

bool WinDdeTransport::AllSent() const { return conversation_->AllSent(); }

void WinDdeTransport::Close() { conversation_->Drop(); }

LinkState WinDdeTransport::State() const { return conversation_->State(); }

}  // namespace zek
