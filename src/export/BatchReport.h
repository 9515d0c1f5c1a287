#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lang/LanguageTexts.h"

namespace zek {

/// A catalogue of one node that is missing or incomplete in its export file.
struct BatchFailure {
  std::string node;  // "TOPIC/TSC"
  std::string kind;  // "WDC", "SDC" or "OVC"
  std::string why;   // one line

  /// "TOPIC/TSC WDC: why".
  std::string Line() const { return node + " " + kind + ": " + why; }
};

/// The result of a batch export. Paths in `files` are UTF-8, all other text is windows-1252.
struct BatchReport {
  std::size_t planned = 0;   // catalogues: every checked kind of every time control
  std::size_t exported = 0;  // catalogues that are complete in a file
  std::vector<BatchFailure> failures;
  std::vector<std::string> notes;       // about copies that were replaced; no failures
  std::vector<std::string> files;       // paths of the committed files
  std::vector<std::string> fileErrors;  // errors of whole files
  bool stopped = false;                 // the user cancelled, or the program ended
  bool plantCut = false;                // see `Batch::PlantCut`

  /// An empty export is not a success: probably the settings contain no time controls.
  bool Succeeded() const {
    return planned > 0 && exported == planned && fileErrors.empty() && !stopped && !plantCut;
  }

  /// Returns the result in one sentence: how many of how many were exported.
  std::string Headline(const LanguageTexts& texts) const;

  /// Returns one line for each failure, with the reason.
  std::vector<std::string> Failures(const LanguageTexts& texts) const;

  /// Returns the failures and notes, then the paths of the files.
  std::vector<std::string> Details(const LanguageTexts& texts) const;
};

}  // namespace zek
