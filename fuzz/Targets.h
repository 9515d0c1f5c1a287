#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace zek::fuzz {

/// One place where text from outside is read. `run` takes any text and ends the program when what
/// the program promises of it does not hold.
struct Target {
  std::string_view name;  // of its folder in fuzz/corpus, too
  void (*run)(std::string_view input);
};

/// All of them, in the order in which they are run.
std::span<const Target> Targets();

// Settings and languages
void Settings(std::string_view input);
void Language(std::string_view input);
void Topics(std::string_view input);
void Objects(std::string_view input);
void CommandLines(std::string_view input);
// What a controller sends
void ReplyPlain(std::string_view input);
void ReplyPieces(std::string_view input);
// Catalogues
void Weekday(std::string_view input);
void Calendar(std::string_view input);
void Exceptions(std::string_view input);
void LocalCopies(std::string_view input);
void PlantFiles(std::string_view input);
void Import(std::string_view input);
// Changes of many controls
void ChangeLists(std::string_view input);
void PlanFiles(std::string_view input);

}  // namespace zek::fuzz
