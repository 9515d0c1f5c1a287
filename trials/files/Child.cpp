#include "files/Child.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek::test {
namespace {

constexpr char kField = '\x1F';  // in no name of a test
constexpr char kRecord = '\x1E';

std::string Packed(int status, const std::string& told, const std::vector<FileCall>& calls) {
  std::string text = std::to_string(status) + kField + told + kRecord;
  for (const FileCall& call : calls) {
    text.append(call.name).append(1, kField).append(call.path).append(1, kField);
    text.append(call.to).append(1, kRecord);
  }
  return text;
}

void Unpack(const std::string& text, Outcome& outcome) {
  std::istringstream records(text);
  std::string record;
  std::getline(records, record, kRecord);
  const std::string separator(1, kField);
  outcome.status = static_cast<int>(Val(GetField(record, 0, separator)));
  outcome.told = GetField(record, 1, separator);
  while (std::getline(records, record, kRecord)) {
    outcome.calls.push_back({std::string(GetField(record, 0, separator)),
                             std::string(GetField(record, 1, separator)),
                             std::string(GetField(record, 2, separator))});
  }
}

}  // namespace

Outcome RunWatched(const std::string& folder, const CallFault& fault,
                   const std::function<int(std::string& told)>& work) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) std::abort();
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(ends[0]);
    std::string told;
    WatchCalls(folder, fault);
    const int status = work(told);
    std::ofstream("/dev/fd/" + std::to_string(ends[1])) << Packed(status, told, TakeCalls());
    ::_exit(0);
  }
  ::close(ends[1]);
  std::ostringstream text;
  text << std::ifstream("/dev/fd/" + std::to_string(ends[0])).rdbuf();
  ::close(ends[0]);
  int state = 0;
  ::waitpid(child, &state, 0);
  Outcome outcome;
  outcome.killed = WIFSIGNALED(state);
  if (!outcome.killed) Unpack(text.str(), outcome);
  return outcome;
}

}  // namespace zek::test
