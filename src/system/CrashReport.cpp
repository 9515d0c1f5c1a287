#include "system/CrashReport.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <typeinfo>
#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#endif

#include "system/CrashSystem.h"
#include "system/EventLog.h"
#include "system/LocalTime.h"
#include "system/Paths.h"

namespace zek {
namespace crash {
namespace {

using std::chrono::seconds;
using std::chrono::system_clock;

constexpr std::size_t kMostFrames = 64;

// Text of limited length that needs no memory of its own; what is beyond that is left out.
template <std::size_t N>
class FixedText {
 public:
  FixedText& operator<<(std::string_view text) {
    const std::size_t length = std::min(text.size(), N - 1 - size_);
    std::copy_n(text.data(), length, bytes_.data() + size_);
    size_ += length;
    return *this;
  }
  FixedText& Number(std::uint64_t number, unsigned digits = 1, unsigned base = 10) {
    std::array<char, 20> text{};
    std::size_t at = text.size();
    while (number > 0 || text.size() - at < digits) {
      text[--at] = "0123456789abcdef"[number % base];
      number /= base;
    }
    return *this << std::string_view(text.data() + at, text.size() - at);
  }
  FixedText& Hex(std::uint64_t number) { return (*this << "0x").Number(number, 1, 16); }
  void Clear() { bytes_.fill('\0'), size_ = 0; }
  const char* Bytes() const { return bytes_.data(); }
  std::string_view View() const { return {bytes_.data(), size_}; }

 private:
  std::array<char, N> bytes_{};
  std::size_t size_ = 0;
};

// A handler receives nothing else: what it needs was prepared here.
struct Prepared {
  std::string folder;
  std::string program;
  seconds fromUtc{};  // when the program was started
  std::atomic<bool> toRecord = false;
  std::atomic_flag begun = ATOMIC_FLAG_INIT;
  FixedText<4096> path;
  FixedText<16384> text;
};

Prepared& Ready() {
  static auto* const prepared = new Prepared;  // never deleted: a crash may come very late
  return *prepared;
}

struct Moment {
  std::chrono::year_month_day day{};
  std::chrono::hh_mm_ss<seconds> time;
};

// The system's conversion may wait for a lock.
Moment Now() {
  const auto local =
      std::chrono::floor<seconds>(system_clock::now().time_since_epoch()) + Ready().fromUtc;
  const auto midnight = std::chrono::floor<std::chrono::days>(local);
  return {std::chrono::sys_days(midnight), std::chrono::hh_mm_ss<seconds>(local - midnight)};
}

template <class Text>
void AddMoment(Text& text, const Moment& now, const std::array<std::string_view, 3>& between) {
  const auto number = [&text](auto value) { text.Number(static_cast<std::uint64_t>(value), 2); };
  number(int{now.day.year()});
  text << between[0];
  number(unsigned{now.day.month()});
  text << between[0];
  number(unsigned{now.day.day()});
  text << between[1];
  number(now.time.hours().count());
  text << between[2];
  number(now.time.minutes().count());
  text << between[2];
  number(now.time.seconds().count());
}

void AddPlace(const void* address) {
  const Place place = PlaceOf(address);
  Ready().text << "  " << place.module.data() << "+";
  Ready().text.Hex(place.offset) << "\r\n";
}

seconds FromUtc() {
  const LocalTime local = SystemTime();
  using std::chrono::sys_days;
  const auto day = sys_days(std::chrono::year(local.year) / local.month / local.day);
  const auto now = day.time_since_epoch() + std::chrono::hours(local.hour) +
                   std::chrono::minutes(local.minute) + seconds(local.second);
  return std::chrono::round<std::chrono::minutes>(now - system_clock::now().time_since_epoch());
}

}  // namespace

bool Write(const Fault& fault) {
  Prepared& ready = Ready();
  LimitTime();
  if (ready.begun.test_and_set()) return false;
  const Moment now = Now();
  ready.path << ready.folder << "/";
  AddMoment(ready.path, now, {"", "-", ""});
  (ready.path << "-" << ready.program << "-").Number(ProcessNumber()) << ".txt";
  ready.text << "ZekView " ZEKVIEW_VERSION " " << ready.program << ", "
             << (sizeof(void*) == 8 ? "64" : "32") << " bits\r\nTime: ";
  AddMoment(ready.text, now, {"-", " ", ":"});
  (ready.text << "\r\nFault: " << fault.name << ", code ").Hex(fault.code);
  (ready.text << ", address ").Hex(reinterpret_cast<std::uintptr_t>(fault.address));
  ready.text << "\r\nWhere, the innermost call first:\r\n";
  std::array<const void*, kMostFrames> frames{};
  const std::size_t count = StackOf(fault, frames);
  for (std::size_t i = 0; i < count; ++i) AddPlace(frames[i]);
  return Store(ready.folder.c_str(), ready.path.Bytes(), ready.text.View());
}

void Record() {
  if (Ready().toRecord.exchange(false))
    RecordEvent(false, "The program ended by a fault; the folder Crashes has a report.");
}

namespace {

std::string_view ExceptionName() {
#if __has_include(<cxxabi.h>)
  const std::type_info* const type = abi::__cxa_current_exception_type();
  if (type != nullptr) return type->name();
#endif
  return "(none)";
}

// What an exception says may be a secret, so the report has only its type.
void WriteException() {
  static FixedText<256> name;
  name.Clear();
  name << "unhandled exception " << ExceptionName();
  Write({name.View(), 0, nullptr, nullptr});
  Record();
}

[[noreturn]] void OnTerminate() {
  WriteException();
  std::abort();
}

}  // namespace
}  // namespace crash

void CatchCrashes(const std::string& dataFolder, const std::string& program) {
  crash::Prepared& ready = crash::Ready();
  ready.folder = dataFolder + kCrashFolder;
  ready.program = program;
  ready.fromUtc = crash::FromUtc();
  std::set_terminate(crash::OnTerminate);
  crash::CatchFaults();
}

void RecordCrashes() { crash::Ready().toRecord = true; }

void ReportException() { crash::WriteException(); }

}  // namespace zek
