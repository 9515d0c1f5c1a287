#include "commands/Commands.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

#include "app/StartSession.h"
#include "import/ImportText.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "system/Paths.h"
#include "text/Controls.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek::cli {

namespace {

// Reads a stream to its end, or until it exceeds `largest`; fails if it exceeds `kLargestFile`, and
// on a read error: the rest would be missing without a word.
FileContent ReadInput(std::istream& in, const std::string& file, std::size_t largest) {
  FileContent content;
  std::array<char, 65536> block{};
  while (in.read(block.data(), block.size()), in.gcount() > 0) {
    content.bytes.append(block.data(), static_cast<std::size_t>(in.gcount()));
    if (content.bytes.size() > kLargestFile) {
      return {{}, FileError{file, FileError::Reason::TooLarge, {}}};
    }
    if (content.bytes.size() > largest) break;
  }
  const bool isInput = file == "-";
  if (in.bad() || (isInput && std::ferror(stdin) != 0))
    return {{}, FileError{file, FileError::Reason::Other, std::strerror(errno)}};
  return content;
}

}  // namespace

std::optional<std::string> ReadFileOperand(Console& console, const std::string& file,
                                           std::size_t largest) {
  FileContent content;
  std::error_code error;
  const bool isPipe = std::filesystem::is_fifo(PathOf(file), error);  // a shell's <(COMMAND)
  const std::uintmax_t size = std::filesystem::file_size(PathOf(file), error);
  if (file == "-") {
    content = ReadInput(console.in, file, largest);
  } else if (isPipe || (!error && size > largest)) {
    std::ifstream stream(PathOf(file), std::ios::binary);
    content =
        stream.is_open()
            ? ReadInput(stream, file, largest)
            : FileContent{{}, FileError{file, FileError::Reason::Denied, std::strerror(errno)}};
  } else {
    content = console.proc.files.Read(file);
  }
  if (!content.error) return std::move(content.bytes);
  console.err << "zekview-cli: "
              << Utf8FromWindows1252(FileMessage(console.proc.texts, *content.error)) << '\n';
  return std::nullopt;
}

ExitStatus Refuse(Console& console, const std::string& why) {
  console.err << "zekview-cli: " << why << '\n';
  return kWrongUsage;
}

std::optional<CatalogueContent> ReadCatalogue(Console& console, const CatalogueId& id) {
  const CopyUse use = console.proc.settings.LocalMode ? CopyUse::Take : CopyUse::AsSet;
  std::optional<CatalogueContent> content = console.proc.catalogues.GetCatalogue(id, use);
  if (content && content->replacesUnsent) {
    console.proc.ToUser().Tell(Icon::Information, text::kUnsentReplaced,
                               {id.Node() + " " + std::string(id.Kind().name)});
  }
  return content;
}

namespace {

// `send` ends after one second without a line. One tick more, because the first may come at once.
constexpr std::int16_t kSilenceTicks = kTicksPerSecond + 1;
// Replies that are polled come after the command: their first line has as long as others have.
constexpr std::int16_t kFirstLineTicks = 10 * kTicksPerSecond;

ExitStatus Topics(Console& console) {
  for (std::int16_t index = 0; index < console.proc.topics.TopicCount(); ++index) {
    const Topic& topic = console.proc.topics[index];
    console.out << index << '\t'
                << Utf8FromWindows1252(topic.TopicName + '\t' +
                                       std::to_string(static_cast<int>(topic.TopicType)) + '\t' +
                                       topic.Address + '\t' + topic.Description)
                << '\n';
  }
  return kDone;
}

ExitStatus Objects(Console& console) {
  for (std::size_t node = 0; node < console.proc.tree.size(); ++node) {
    const std::string path = FullPath(console.proc.tree, node);
    console.out << console.proc.tree[node].Key << '\t' << Utf8FromWindows1252(path) << '\n';
  }
  return kDone;
}

// Sends one command and prints the reply lines until a second passes without one.
ExitStatus Send(Console& console, const std::string& topicName, const std::string& text) {
  ZV_Proc& proc = console.proc;
  const std::int16_t topic = proc.topics.Find(Windows1252FromUtf8(topicName));
  if (topic < 0) return Refuse(console, "unknown topic " + topicName);
  if (!FitsWindows1252(text))
    return Refuse(console, "the command holds characters that no controller knows");
  console.hasInput();
  proc.connection.Connect(topic);
  if (proc.connection.CurrentTopic != topic) return kFailed;
  bool answered = false;
  proc.log.Echo = [&](std::string line) {
    answered = true;
    proc.countdowns.DelayCountdown = kSilenceTicks;
    ShowControls(line);
    console.out << Utf8FromWindows1252(line) << '\n';
  };
  const bool sent = proc.connection.SendCommand(Windows1252FromUtf8(text));
  proc.countdowns.DelayCountdown =
      proc.connection.IsPolled() && !answered ? kFirstLineTicks : kSilenceTicks;
  if (!sent) proc.countdowns.DelayCountdown = 0;
  proc.waits.While([&proc] { return proc.countdowns.DelayCountdown > 0; });
  proc.log.Echo = nullptr;
  proc.connection.Disconnect();
  if (!answered) console.err << "zekview-cli: no answer from " << topicName << '\n';
  return sent && answered && !proc.waits.Stopped() ? kDone : kFailed;
}

void PrintCatalogue(std::ostream& out, const CatalogueId& id, const CatalogueContent& content) {
  if (id.IsOfControl()) out << ".DFV = " << Utf8FromWindows1252(content.dfv.value_or(".")) << '\n';
  for (const std::string& line : content.lines) {
    out << Utf8FromWindows1252(line) << '\n';
  }
}

ExitStatus Get(Console& console, const CatalogueId& id) {
  console.hasInput();
  const std::optional<CatalogueContent> content = ReadCatalogue(console, id);
  if (!content) return kFailed;
  PrintCatalogue(console.out, id, *content);
  return kDone;
}

ExitStatus Put(Console& console, const CatalogueId& id, const Arguments& arguments) {
  const std::string& file = arguments.operands[2];
  const std::optional<std::string> text = ReadFileOperand(console, file);
  if (!text) return kWrongUsage;
  // What a program that failed passes on or left must not erase a catalogue. Of a catalogue with a
  // ".DFV" value `get` always prints something.
  if (text->empty() && (file == "-" || id.IsOfControl()))
    return Refuse(console, "put: " + file + " is empty; an empty line means an empty catalogue");
  ZV_Proc& proc = console.proc;
  console.hasInput();
  const auto content = proc.copies.Parse(id, DecodedText(*text), Windows1252FromUtf8(file));
  if (!content) return kFailed;
  console.prompts.answerYes = true;
  const SaveMode mode = arguments.dryRun   ? SaveMode::DryRun
                        : arguments.noSend ? SaveMode::StoreOnly
                                           : SaveMode::Send;
  const SaveResult saved =
      proc.catalogues.SaveCatalogue(id, {content->lines, content->dfv, {}, true, mode});
  if (saved.Done() || (mode == SaveMode::StoreOnly && saved.stored)) return kDone;
  if (mode != SaveMode::DryRun || saved.outcome != SaveResult::Outcome::Declined) return kFailed;
  for (std::string_view list = saved.list; !list.empty();)
    console.out << Utf8FromWindows1252(TakeLine(list)) << '\n';
  return saved.list.empty() ? kDone : kWouldChange;
}

// Else the tag object may not even exist.
bool HasSwitchedTags(const TopicTable& topics) {
  for (std::int16_t index = 0; index < topics.TopicCount(); ++index)
    if (topics[index].TagState != 0) return true;
  return false;
}

// The commands that work on one catalogue of one node.
ExitStatus RunCatalogueCommand(Console& console, const Arguments& arguments) {
  const std::string& kind = arguments.operands[0];
  const std::string& name = arguments.operands[1];
  const std::optional<Catalogue> catalogue = CatalogueOf(kind);
  if (!catalogue) return Refuse(console, "unknown kind " + kind + " (wdc, sdc or ovc)");
  const auto node = FindNode(console.proc.tree, console.proc.topics, Windows1252FromUtf8(name));
  if (!node) return Refuse(console, "unknown node " + name);
  SelectNode(console.proc, *node);
  const CatalogueId id = console.proc.selection.Id(*catalogue);
  if (id.localFile.empty()) {
    return Refuse(console, Utf8FromWindows1252(console.proc.Text(text::kNoSuchCatalogue)) + " (" +
                               name + ")");
  }
  if (arguments.command == "get") return Get(console, id);
  if (arguments.command == "put") return Put(console, id, arguments);
  if (arguments.command == "import") return Import(console, id, arguments);
  if (arguments.command == "history") return HistoryOfCatalogue(console, id, arguments);
  return Check(console, id, *node, arguments);
}

ExitStatus Run(Console& console, const Arguments& arguments) {
  if (arguments.command == "topics") return Topics(console);
  if (arguments.command == "holidays") return PrintHolidays(console, arguments);
  if (arguments.command == "send") {
    return Send(console, arguments.operands[0], arguments.operands[1]);
  }
  LoadTree(console.proc);
  if (arguments.command == "objects") return Objects(console);
  if (arguments.command == "export") return Export(console, arguments);
  if (arguments.command == "lint") return Lint(console, arguments);
  if (arguments.command == "report") return WriteReport(console, arguments);
  if (arguments.command == "plan") return MakePlan(console, arguments);
  if (arguments.command == "apply") return ApplyPlan(console, arguments);
  if (arguments.command == "timeline") return PrintTimeline(console, arguments);
  if (arguments.command == "explain") return Explain(console, arguments);
  if (arguments.command == "next") return PrintNext(console, arguments);
  return RunCatalogueCommand(console, arguments);
}

}  // namespace

std::optional<ExitStatus> StartCommands(Console& console, const Arguments& arguments) {
  ZV_Proc& proc = console.proc;
  StartOptions options;
  options.contacts = arguments.Contacts();
  if (arguments.local) options.switches = "/LOCAL";
  options.sessionFile = arguments.session;
  options.chooseLanguage = [&] {
    console.err << "zekview-cli: no language file: setting Language in [General] of "
                << proc.settings.IniPath << "ZEKView.INI names none in "
                << proc.settings.ProgramPath << '\n';
    return false;
  };
  const std::optional<ExitStatus> ended = StartSession(proc, options);
  if (!ended) LoadTopics(proc);
  return ended;
}

ExitStatus RunCommand(Console& console, const Arguments& arguments) {
  const ExitStatus status = Run(console, arguments);
  Connection& connection = console.proc.connection;
  connection.Finish();
  if (HasSwitchedTags(console.proc.topics)) connection.CloseAllTags();
  console.proc.EndSessionFile();
  return status;
}

}  // namespace zek::cli
