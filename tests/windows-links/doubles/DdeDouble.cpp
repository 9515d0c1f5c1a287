// A DDE server whose topic selects its behaviour:
//   GOOD      greets, and answers every poke with the poked text
//   COUNT     GOOD; a poked number brings that many texts
//   SILENT    never sends anything
//   NOADVISE  refuses the link on the item
//   NOPOKE    refuses every poke
//   BUSY      is too busy for every poke
//   HANGUP    ends the conversation when it is poked, after an answer
//   SLOW      GOOD, but the poke "sleep" takes a second
//   VANISH    its process ends when it is poked
//   FLOOD     GOOD; a poke brings text without end
//   RAW       GOOD, with bytes after a NUL, and without a NUL at the end
// Any other topic is refused. Arguments: the services. An event with the first name signals that it
// serves. It ends when its standard input ends.

#include <windows.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dde.h>

#include <ddeml.h>

#include <deque>
#include <map>
#include <string>

namespace {

constexpr UINT kTellTimer = 10;  // ms: a text that is posted inside the client's request is lost
constexpr int kTextsAtOnce = 200;
constexpr int kFlood = 20;  // texts of 4000 characters at once: 8 MB a second

struct Client {
  std::string topic;
  HSZ topicName = nullptr;
  bool linked = false;
  bool endless = false;
  bool ends = false;  // after all texts are sent
  std::deque<std::string> texts;
};

struct Server {
  DWORD instance = 0;
  HSZ item = nullptr;
  std::map<HCONV, Client> clients;
};

// Global, because the callback has no parameter for it.
Server& TheServer() {
  static Server server;
  return server;
}

// NOLINTNEXTLINE(performance-no-int-to-ptr): an answer is a handle or a number
HDDEDATA Code(UINT code) { return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(code)); }

std::string NameOf(HSZ name) {
  std::string text(256, '\0');
  text.resize(::DdeQueryStringA(TheServer().instance, name, text.data(),
                                static_cast<DWORD>(text.size()), CP_WINANSI));
  return text;
}

bool IsTopic(const std::string& topic) {
  static const char* const topics[] = {"GOOD",   "COUNT",  "SILENT", "NOADVISE", "NOPOKE", "BUSY",
                                       "HANGUP", "VANISH", "FLOOD",  "RAW",      "SLOW"};
  return std::find(std::begin(topics), std::end(topics), topic) != std::end(topics);
}

void Greet(Client& client) {
  client.linked = true;
  if (client.topic != "SILENT") client.texts.emplace_back("0000><TRANSPARENT>");
}

UINT Poke(Client& client, const std::string& text) {
  if (client.topic == "NOPOKE") return DDE_FNOTPROCESSED;
  if (client.topic == "BUSY") return DDE_FBUSY;
  if (client.topic == "VANISH") std::_Exit(0);
  if (client.topic == "SLOW" && text == "sleep") ::Sleep(1000);
  client.endless = client.topic == "FLOOD";
  client.ends = client.topic == "HANGUP";
  const int count =
      client.topic == "COUNT" ? static_cast<int>(std::strtol(text.c_str(), nullptr, 10)) : 1;
  for (int i = 0; i < count; ++i) {
    client.texts.push_back("0001>" + (count == 1 ? text : std::to_string(i)) + "\r\n");
  }
  return DDE_FACK;
}

HDDEDATA NextText(Client& client) {
  if (client.endless && client.texts.empty()) client.texts.emplace_back(4000, 'x');
  if (client.texts.empty()) return nullptr;
  std::string text = client.texts.front();
  client.texts.pop_front();
  if (client.topic != "RAW") {
    text += '\0';
  } else if (text.find("NUL") != std::string::npos) {
    text += std::string("\0behind", 7);
  }
  return ::DdeCreateDataHandle(TheServer().instance, reinterpret_cast<BYTE*>(text.data()),
                               static_cast<DWORD>(text.size()), 0, TheServer().item, CF_TEXT, 0);
}

HDDEDATA CALLBACK Callback(UINT type, UINT /*format*/, HCONV handle, HSZ topic, HSZ /*item*/,
                           HDDEDATA data, ULONG_PTR /*data1*/, ULONG_PTR /*data2*/) {
  if (type == XTYP_CONNECT) return Code(IsTopic(NameOf(topic)) ? 1 : 0);
  if (type == XTYP_DISCONNECT) TheServer().clients.erase(handle);
  if (type == XTYP_CONNECT_CONFIRM) {
    ::DdeKeepStringHandle(TheServer().instance, topic);
    TheServer().clients[handle] = {NameOf(topic), topic, false, false, false, {}};
  }
  const auto found = TheServer().clients.find(handle);
  if (found == TheServer().clients.end()) return nullptr;
  Client& client = found->second;
  if (type == XTYP_ADVREQ) return NextText(client);
  if (type == XTYP_ADVSTART) {
    if (client.topic == "NOADVISE") return nullptr;
    Greet(client);
    return Code(1);
  }
  if (type == XTYP_POKE) {
    std::string text(::DdeGetData(data, nullptr, 0, 0), '\0');
    ::DdeGetData(data, reinterpret_cast<BYTE*>(text.data()), static_cast<DWORD>(text.size()), 0);
    return Code(Poke(client, text.substr(0, text.find('\0'))));
  }
  return nullptr;
}

// Ends a conversation. Not every system's own call informs the client.
void HangUp(HCONV handle) {
  CONVINFO info{};
  info.cb = sizeof info;
  if (::DdeQueryConvInfo(handle, QID_SYNC, &info) != 0) {
    ::PostMessageA(info.hwndPartner, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(info.hwnd), 0);
  }
}

void Tell() {
  Server& server = TheServer();
  const std::map<HCONV, Client> clients = server.clients;  // a callback may change them
  for (const auto& [handle, client] : clients) {
    if (!client.linked) continue;
    const int waiting = std::min(static_cast<int>(client.texts.size()), kTextsAtOnce);
    for (int i = 0; i < (client.endless ? kFlood : waiting); ++i) {
      ::DdePostAdvise(server.instance, client.topicName, server.item);
    }
    if (client.ends && client.texts.empty()) {
      server.clients.erase(handle);
      HangUp(handle);
    }
  }
}

DWORD WINAPI EndWithInput(void* /*nothing*/) {
  while (std::getchar() != EOF) {
  }
  std::_Exit(0);
}

}  // namespace

int main(int argc, char** argv) {
  Server& server = TheServer();
  if (::DdeInitializeA(&server.instance, &Callback, APPCLASS_STANDARD, 0) != DMLERR_NO_ERROR) {
    return 1;
  }
  server.item = ::DdeCreateStringHandleA(server.instance, "TRANSPARENT", CP_WINANSI);
  for (int i = 1; i < argc; ++i) {
    auto* const name = ::DdeCreateStringHandleA(server.instance, argv[i], CP_WINANSI);
    if (::DdeNameService(server.instance, name, nullptr, DNS_REGISTER) == nullptr) return 1;
  }
  ::CloseHandle(::CreateThread(nullptr, 0, &EndWithInput, nullptr, 0, nullptr));
  ::CreateEventA(nullptr, TRUE, TRUE, argv[1]);  // signals that it serves
  ::SetTimer(nullptr, 0, kTellTimer, nullptr);
  for (MSG message; ::GetMessageA(&message, nullptr, 0, 0) > 0;) {
    if (message.message == WM_TIMER && message.hwnd == nullptr) {
      Tell();
    } else {
      ::DispatchMessageA(&message);
    }
  }
  return 0;
}
