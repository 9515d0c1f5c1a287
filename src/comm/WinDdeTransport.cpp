#include "comm/WinDdeTransport.h"

#include <windows.h>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>

#include <ddeml.h>

#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

// How often a thread looks whether the server still lives.
constexpr DWORD kLookMilliseconds = 200;
// How long the next conversation, or the end of the program, waits for the end of one.
constexpr std::chrono::seconds kLongestEnd{2};
constexpr int kMostAtOnce = 100;  // messages; a flood must not delay commands and the end

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

/// One conversation, with a thread of its own: DDE belongs to the thread that initialised it, and
/// connecting waits for every window of the system, also for one that hangs. The thread is never
/// joined and uses only this object, which it shares with the transport.
class WinDdeTransport::Conversation : public std::enable_shared_from_this<Conversation> {
 public:
  // Called by the thread of the transport.
  Conversation(WinDdeTransport& owner, Later later)
      : owner_(&owner),
        later_(std::move(later)),
        wake_(::CreateEventA(nullptr, FALSE, FALSE, nullptr)) {}
  Conversation(const Conversation&) = delete;
  Conversation& operator=(const Conversation&) = delete;
  ~Conversation() { ::CloseHandle(wake_); }

  // Starts; fails if too many threads still hang. `before` ends first.
  void Begin(const LinkTarget& target, std::shared_ptr<Conversation> before);
  bool Send(std::string_view bytes);
  void Drop();
  bool AllSent() const;
  LinkState State() const;
  // Waits for the end of a dropped conversation. One that hangs while it connects has nothing to
  // end, so this wait is short.
  void AwaitEnd();

 private:
  struct Ending {
    bool closed = false;  // by the other side, without a fault
    LinkFault fault;
  };

  // Called by the conversation's own thread.
  void Run(const LinkTarget& target, Conversation* before);
  void Serve();
  bool Connect(const LinkTarget& target);
  bool Prepare();
  void SendPending();
  void Close();
  bool IsDropped() const;
  bool Names(HSZ name, std::string_view text) const;
  bool IsAlive() const;
  bool Start(UINT type, std::string_view bytes);
  void TakeText(std::string text);
  void TakeCompletion(bool taken, ULONG_PTR status);
  void End(Ending ending);
  void Lost();
  HDDEDATA AnswerCaller(UINT type, HSZ topic, HSZ item, HDDEDATA data);
  static HDDEDATA CALLBACK Callback(UINT type, UINT format, HCONV conversation, HSZ topic, HSZ item,
                                    HDDEDATA data, ULONG_PTR data1, ULONG_PTR data2);

  // Called by both, with the mutex.
  void EndLocked(Ending ending);
  void HandOverLater();

  // Called by the event loop.
  void HandOver();

  // The DDE callback has no parameter for its object; each thread serves one.
  static Conversation*& Served() {
    static thread_local Conversation* served = nullptr;
    return served;
  }
  static std::atomic<int>& Threads() {
    static std::atomic<int> threads{0};
    return threads;
  }

  WinDdeTransport* owner_;  // used only by the transport's thread; null after `Drop`

  DWORD instance_ = 0;  // these two are used only by the own thread
  HCONV handle_ = nullptr;

  mutable std::mutex mutex_;  // guards the rest
  Later later_;               // empty after `Drop`
  HANDLE wake_;
  std::condition_variable ended_;
  bool isOver_ = false;  // the conversation is closed
  LinkState state_ = LinkState::Opening;
  int outstanding_ = 0;  // transactions that the server has not answered
  std::deque<std::string> unsent_;
  std::deque<std::string> heard_;
  std::size_t unread_ = 0;        // memory cost of heard_, in bytes
  std::optional<Ending> ending_;  // reported after all text in heard_
  bool posted_ = false;
};

void WinDdeTransport::Conversation::Begin(const LinkTarget& target,
                                          std::shared_ptr<Conversation> before) {
  const std::lock_guard lock(mutex_);
  try {
    if (++Threads() > kMostThreads) throw std::system_error(std::error_code());
    std::thread([self = shared_from_this(), target, before = std::move(before)] {
      self->Run(target, before.get());
      --Threads();
    }).detach();
  } catch (const std::system_error&) {
    --Threads();
    isOver_ = true;
    EndLocked({false, {text::kDdeNoServer, {}}});
  }
}

void WinDdeTransport::Conversation::Run(const LinkTarget& target, Conversation* before) {
  Served() = this;
  // A server may refuse a second conversation, or mix the two up.
  if (before != nullptr) before->AwaitEnd();
  if (!IsDropped() && Connect(target)) Serve();
  Close();
  const std::lock_guard lock(mutex_);
  isOver_ = true;
  ended_.notify_all();
}

void WinDdeTransport::Conversation::AwaitEnd() {
  std::unique_lock lock(mutex_);
  ended_.wait_for(lock, kLongestEnd, [this] { return isOver_; });
}

bool WinDdeTransport::Conversation::Connect(const LinkTarget& target) {
  const bool ready = Prepare();
  const DdeName service(instance_, target.server);
  const DdeName topic(instance_, target.service);
  // DDE would treat a null name as a wildcard.
  if (ready && service.Get() != nullptr && topic.Get() != nullptr) {
    handle_ = ::DdeConnect(instance_, service.Get(), topic.Get(), nullptr);
  }
  if (handle_ == nullptr) {
    End({false, {text::kDdeNoServer, {}}});
    return false;
  }
  {
    const std::lock_guard lock(mutex_);
    ++outstanding_;
  }
  if (Start(XTYP_ADVSTART, {})) return true;
  End({false, {text::kDdeNoAdvise, {}}});
  return false;
}

bool WinDdeTransport::Conversation::Prepare() {
  if (::DdeInitializeA(&instance_, &Conversation::Callback, kOwnKind, 0) != DMLERR_NO_ERROR) {
    return false;
  }
  const DdeName own(instance_, kOwnService);
  ::DdeNameService(instance_, own.Get(), nullptr, DNS_REGISTER);  // may fail: few servers call back
  return true;
}

void WinDdeTransport::Conversation::Serve() {
  while (!IsDropped()) {
    ::MsgWaitForMultipleObjectsEx(1, &wake_, kLookMilliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    MSG message;
    for (int i = 0; i < kMostAtOnce && ::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;
         ++i) {
      ::DispatchMessageA(&message);
    }
    SendPending();
    // DDE does not report a crashed server, and not every system reports a disconnect.
    if (handle_ != nullptr && !IsAlive()) Lost();
  }
}

void WinDdeTransport::Conversation::SendPending() {
  std::deque<std::string> unsent;
  {
    const std::lock_guard lock(mutex_);
    unsent.swap(unsent_);
  }
  for (const std::string& bytes : unsent) {
    if (handle_ != nullptr && Start(XTYP_POKE, bytes)) continue;
    Lost();
    return;
  }
}

// What was sent before the end still goes out.
void WinDdeTransport::Conversation::Close() {
  if (handle_ != nullptr) {
    SendPending();
    ::DdeDisconnect(std::exchange(handle_, nullptr));
  }
  if (instance_ != 0) ::DdeUninitialize(std::exchange(instance_, 0));
}

bool WinDdeTransport::Conversation::IsDropped() const {
  const std::lock_guard lock(mutex_);
  return !later_;
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
  return ::DdeClientTransaction(poke ? reinterpret_cast<BYTE*>(text.data()) : nullptr,
                                poke ? static_cast<DWORD>(text.size() + 1) : 0, handle_, item.Get(),
                                CF_TEXT, type, TIMEOUT_ASYNC, &id) != nullptr;
}

bool WinDdeTransport::Conversation::Send(std::string_view bytes) {
  const std::lock_guard lock(mutex_);
  if (state_ != LinkState::Connected || ending_ || outstanding_ >= kMostOutstanding) return false;
  ++outstanding_;
  unsent_.emplace_back(bytes.substr(0, bytes.find('\0')));
  ::SetEvent(wake_);
  return true;
}

void WinDdeTransport::Conversation::Drop() {
  const std::lock_guard lock(mutex_);
  owner_ = nullptr;
  later_ = nullptr;
  state_ = LinkState::Closed;
  ::SetEvent(wake_);
}

bool WinDdeTransport::Conversation::AllSent() const {
  const std::lock_guard lock(mutex_);
  return outstanding_ == 0 && !ending_;
}

LinkState WinDdeTransport::Conversation::State() const {
  const std::lock_guard lock(mutex_);
  return state_;
}

bool WinDdeTransport::Conversation::IsAlive() const {
  CONVINFO info{};
  info.cb = sizeof info;
  return ::DdeQueryConvInfo(handle_, QID_SYNC, &info) != 0 && (info.wStatus & ST_CONNECTED) != 0 &&
         ::IsWindow(info.hwndPartner) != FALSE;
}

void WinDdeTransport::Conversation::Lost() {
  const std::lock_guard lock(mutex_);
  EndLocked({state_ == LinkState::Connected, {text::kDdeNoServer, {}}});
}

void WinDdeTransport::Conversation::End(Ending ending) {
  const std::lock_guard lock(mutex_);
  EndLocked(std::move(ending));
}

// The first cause counts; later ones are its consequences. The event loop ends the conversation,
// because the DDE callback may call this, and DDE still uses the conversation then.
void WinDdeTransport::Conversation::EndLocked(Ending ending) {
  if (ending_) return;
  ending_ = std::move(ending);
  HandOverLater();
}

void WinDdeTransport::Conversation::HandOverLater() {
  if (!later_ || std::exchange(posted_, true)) return;
  later_([self = shared_from_this()] { self->HandOver(); });
}

void WinDdeTransport::Conversation::HandOver() {
  std::unique_lock lock(mutex_);
  posted_ = false;
  while (owner_ != nullptr && (!heard_.empty() || ending_)) {
    WinDdeTransport& owner = *owner_;
    if (heard_.empty()) {
      const Ending ending = *ending_;
      lock.unlock();
      owner.Report(ending.closed, ending.fault);
      return;
    }
    const std::string text = std::move(heard_.front());
    heard_.pop_front();
    unread_ -= Load(text);
    lock.unlock();
    owner.Events().OnLinkText(text);
    lock.lock();
  }
}

void WinDdeTransport::Conversation::TakeText(std::string text) {
  const std::lock_guard lock(mutex_);
  if (ending_ || !later_ || text.empty()) return;
  if (unread_ + Load(text) > kMostUnread) {
    EndLocked({false, {text::kDdeFlooded, {}}});
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
  const bool alive = taken || (handle_ != nullptr && IsAlive());
  const std::lock_guard lock(mutex_);
  if (outstanding_ > 0) --outstanding_;
  if (!later_) return;
  if (taken) {
    state_ = LinkState::Connected;
  } else if (!alive) {  // the server is gone, so this is not a refusal
    EndLocked({state_ == LinkState::Connected, {text::kDdeNoServer, {}}});
  } else if (state_ == LinkState::Opening) {
    EndLocked({false, {text::kDdeNoAdvise, {}}});
  } else {
    EndLocked({false, {(status & DDE_FBUSY) != 0 ? text::kDdeBusy : text::kDdeRefused, {}}});
  }
}

HDDEDATA WinDdeTransport::Conversation::AnswerCaller(UINT type, HSZ topic, HSZ item,
                                                     HDDEDATA data) {
  if (State() != LinkState::Connected || !Names(topic, kOwnTopic)) return Code(DDE_FNOTPROCESSED);
  if (type == XTYP_CONNECT) return Code(1);
  if (!Names(item, kOwnItem)) return Code(DDE_FNOTPROCESSED);
  TakeText(TextOf(data) + '\n');
  return Code(DDE_FACK);
}

HDDEDATA CALLBACK WinDdeTransport::Conversation::Callback(UINT type, UINT format,
                                                          HCONV conversation, HSZ topic, HSZ item,
                                                          HDDEDATA data, ULONG_PTR /*data1*/,
                                                          ULONG_PTR data2) {
  Conversation& self = *Served();
  const bool poke = type == XTYP_POKE && format == CF_TEXT;
  if (type == XTYP_CONNECT || poke) return self.AnswerCaller(type, topic, item, data);
  if (conversation == nullptr || conversation != self.handle_) return nullptr;
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

WinDdeTransport::WinDdeTransport(Later later) : later_(std::move(later)) {}

// The process may end now, and the server must hear of it.
WinDdeTransport::~WinDdeTransport() {
  Close();
  if (before_) before_->AwaitEnd();
}

void WinDdeTransport::Open(const LinkTarget& target) {
  Close();
  conversation_ = std::make_shared<Conversation>(*this, later_);
  conversation_->Begin(target, std::exchange(before_, nullptr));
}

bool WinDdeTransport::Send(std::string_view bytes) {
  return conversation_ && conversation_->Send(bytes);
}

bool WinDdeTransport::AllSent() const { return conversation_ && conversation_->AllSent(); }

void WinDdeTransport::Close() {
  if (!conversation_) return;
  conversation_->Drop();
  before_ = std::move(conversation_);
}

LinkState WinDdeTransport::State() const {
  return conversation_ ? conversation_->State() : LinkState::Closed;
}

void WinDdeTransport::Report(bool closed, const LinkFault& fault) {
  Close();
  if (closed) {
    Events().OnLinkClosed();
  } else {
    Events().OnLinkError(fault);
  }
}

}  // namespace zek
