#include <windows.h>
#include <algorithm>

#include <ddeml.h>

#include <deque>
#include <map>
#include <utility>

#include <wx/timer.h>

#include "plant/PlantConversation.h"
#include "sim/PlantDde.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek::sim {
namespace {

constexpr std::size_t kMostClients = 200;
constexpr std::size_t kMostWaiting = 20000;  // unread pieces per client
constexpr int kPiecesAtOnce = 50;
// Roughly the speed of a real line. Also, a text sent inside the client's link request would be
// lost.
constexpr int kAnswerDelay = 50;  // ms

constexpr const char* kItem = "TRANSPARENT";
constexpr std::string_view kReturn = "{13}";

// NOLINTNEXTLINE(performance-no-int-to-ptr): an answer is a handle or a number
HDDEDATA Code(UINT code) { return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(code)); }

// Returns a poked text as the controller receives it.
std::string CommandOf(HDDEDATA data) {
  std::string text(std::min<DWORD>(::DdeGetData(data, nullptr, 0, 0),
                                   static_cast<DWORD>(PlantConversation::kLongestCommand)),
                   '\0');
  ::DdeGetData(data, reinterpret_cast<BYTE*>(text.data()), static_cast<DWORD>(text.size()), 0);
  text.resize(std::min(text.find('\0'), text.size()));
  for (std::size_t at = text.find(kReturn); at != std::string::npos; at = text.find(kReturn, at)) {
    text.replace(at, kReturn.size(), "\r");
  }
  return text;
}

struct Client {
  HSZ topic = nullptr;
  std::string name;  // of the outstation
  PlantConversation conversation;
  bool linked = false;  // has an advise link on the item
  std::deque<std::string> pieces;

  void Say(std::string_view text) {
    while (!text.empty()) {
      const std::size_t end = std::min(text.find(PlantConversation::kPieceEnd), text.size());
      if (pieces.size() < kMostWaiting) pieces.emplace_back(text.substr(0, end));
      text.remove_prefix(std::min(end + 1, text.size()));
    }
  }
};

}  // namespace

class PlantDde::Server : public wxTimer {
 public:
  Server(Plant& plant, std::function<void()> settled)
      : plant_(plant), settled_(std::move(settled)) {
    Current() = this;
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() override {
    Stop();
    if (instance_ != 0) ::DdeUninitialize(instance_);
    Current() = nullptr;
  }

  std::string Serve(const std::vector<std::string>& services, bool verbose);

 private:
  // The DDE callback has no parameter for the server; a program has only one.
  static Server*& Current() {
    static Server* current = nullptr;
    return current;
  }
  static HDDEDATA CALLBACK Callback(UINT type, UINT format, HCONV client, HSZ topic, HSZ item,
                                    HDDEDATA data, ULONG_PTR /*data1*/, ULONG_PTR /*data2*/);

  Outstation* FindOutstation(HSZ topic);
  HDDEDATA Answer(UINT type, HCONV client, HSZ topic, HDDEDATA data);
  HDDEDATA NextPiece(HCONV client, HSZ item);
  void Take(Client& client, HDDEDATA data);
  void Notify() override;

  Plant& plant_;
  std::function<void()> settled_;
  DWORD instance_ = 0;
  HSZ item_ = nullptr;
  bool verbose_ = false;
  std::map<HCONV, Client> clients_;
};

std::string PlantDde::Server::Serve(const std::vector<std::string>& services, bool verbose) {
  verbose_ = verbose;
  if (::DdeInitializeA(&instance_, &Server::Callback, APPCLASS_STANDARD, 0) != DMLERR_NO_ERROR) {
    return "DDE is not available";
  }
  item_ = ::DdeCreateStringHandleA(instance_, kItem, CP_WINANSI);
  for (const std::string& service : services) {
    auto* const name =
        ::DdeCreateStringHandleA(instance_, Windows1252FromUtf8(service).c_str(), CP_WINANSI);
    if (name == nullptr || ::DdeNameService(instance_, name, nullptr, DNS_REGISTER) == nullptr) {
      return "DDE service \"" + service + "\" is not available";
    }
  }
  return {};
}

Outstation* PlantDde::Server::FindOutstation(HSZ topic) {
  std::string name(256, '\0');
  name.resize(::DdeQueryStringA(instance_, topic, name.data(), static_cast<DWORD>(name.size()),
                                CP_WINANSI));
  const auto found = std::find_if(
      plant_.outstations.begin(), plant_.outstations.end(),
      [&](const Outstation& each) { return EqualNoCase(Windows1252FromUtf8(each.name), name); });
  return found == plant_.outstations.end() ? nullptr : &*found;
}

HDDEDATA CALLBACK PlantDde::Server::Callback(UINT type, UINT format, HCONV client, HSZ topic,
                                             HSZ item, HDDEDATA data, ULONG_PTR /*data1*/,
                                             ULONG_PTR /*data2*/) {
  Server* const self = Current();
  if (self == nullptr) return nullptr;
  if (type == XTYP_CONNECT) {
    return Code(self->clients_.size() < kMostClients && self->FindOutstation(topic) != nullptr);
  }
  if (type == XTYP_CONNECT_CONFIRM || type == XTYP_DISCONNECT) {
    return self->Answer(type, client, topic, data);
  }
  // All other transactions concern an item.
  const bool known = format == CF_TEXT && ::DdeCmpStringHandles(item, self->item_) == 0;
  return known ? self->Answer(type, client, topic, data) : Code(DDE_FNOTPROCESSED);
}

HDDEDATA PlantDde::Server::Answer(UINT type, HCONV client, HSZ topic, HDDEDATA data) {
  if (type == XTYP_CONNECT_CONFIRM) {
    Outstation* const outstation = FindOutstation(topic);
    if (outstation == nullptr) return nullptr;
    ::DdeKeepStringHandle(instance_, topic);
    clients_.insert_or_assign(
        client, Client{topic, outstation->name, PlantConversation(*outstation), false, {}});
    return nullptr;
  }
  const auto found = clients_.find(client);
  if (found == clients_.end()) return nullptr;
  switch (type) {
    case XTYP_ADVSTART:
      found->second.linked = true;
      found->second.Say(found->second.conversation.Greeting());
      StartOnce(kAnswerDelay);
      return Code(1);
    case XTYP_ADVSTOP:
      found->second.linked = false;
      return nullptr;
    case XTYP_ADVREQ:
      return NextPiece(client, item_);
    case XTYP_POKE:
      Take(found->second, data);
      return Code(DDE_FACK);
    case XTYP_DISCONNECT:
      ::DdeFreeStringHandle(instance_, found->second.topic);
      clients_.erase(found);
      settled_();
      return nullptr;
    default:
      return nullptr;
  }
}

void PlantDde::Server::Take(Client& client, HDDEDATA data) {
  const std::string command = CommandOf(data);
  if (verbose_) PrintTraffic(client.name, true, command);
  client.Say(client.conversation.Receive(command));
  if (!IsRunning()) StartOnce(kAnswerDelay);
  if (!client.conversation.TakingLines()) settled_();
}

HDDEDATA PlantDde::Server::NextPiece(HCONV client, HSZ item) {
  auto& [topic, name, conversation, linked, pieces] = clients_.at(client);
  if (pieces.empty()) return nullptr;
  if (verbose_) PrintTraffic(name, false, pieces.front());
  std::string piece = std::move(pieces.front());
  pieces.pop_front();
  return ::DdeCreateDataHandle(instance_, reinterpret_cast<BYTE*>(piece.data()),
                               static_cast<DWORD>(piece.size() + 1), 0, item, CF_TEXT, 0);
}

// DDE then asks every linked client of the topic for its next piece.
void PlantDde::Server::Notify() {
  std::vector<HSZ> topics;
  for (const auto& [handle, client] : clients_) {
    const std::size_t count = std::min<std::size_t>(client.pieces.size(), kPiecesAtOnce);
    if (client.linked) topics.insert(topics.end(), count, client.topic);
  }
  for (auto* const topic : topics) ::DdePostAdvise(instance_, topic, item_);
  const bool more = std::any_of(clients_.begin(), clients_.end(), [](const auto& each) {
    return each.second.linked && !each.second.pieces.empty();
  });
  if (more) StartOnce(kAnswerDelay);
}

PlantDde::PlantDde(Plant& plant, std::function<void()> settled)
    : server_(std::make_unique<Server>(plant, std::move(settled))) {}

PlantDde::~PlantDde() = default;

std::string PlantDde::Serve(const PlantOptions& options) {
  const bool asked = !options.ddeServices.empty();
  const std::string error = server_->Serve(
      asked ? options.ddeServices : std::vector<std::string>{"ZEK"}, options.verbose);
  return asked ? error : std::string();  // a demonstration over TCP/IP does not need DDE
}

}  // namespace zek::sim
