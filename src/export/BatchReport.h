#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lang/LanguageTexts.h"

namespace zek {

/// A catalogue of one node that is not, or not whole, in its export file.
struct BatchFailure {
  std::string node;  // "TOPIC/TSC"
  std::string kind;  // "WDC", "SDC" or "OVC"
  std::string why;   // one line

  /// "TOPIC/TSC WDC: why".
  std::string Line() const { return node + " " + kind + ": " + why; }
};

/// What a batch export has done. Paths are in the system's encoding, all else is windows-1252.
struct BatchReport {
  std::size_t planned = 0;   // catalogues: every checked kind of every time control
  std::size_t exported = 0;  // those that are whole in a file
  std::vector<BatchFailure> failures;
  std::vector<std::string> files;       // that are in their place
  std::vector<std::string> fileErrors;  // what went wrong with whole files
  bool stopped = false;                 // the user cancelled, or the program ended
  bool plantCut = false;                // the settings name more than could be taken

  /// An export of nothing is no success: more likely the settings name no time controls.
  bool Succeeded() const {
    return planned > 0 && exported == planned && fileErrors.empty() && !stopped && !plantCut;
  }

  /// In one sentence how it ended: how many of how many.
  std::string Headline(const LanguageTexts& texts) const;

  /// What is not exported and why, in lines.
  std::vector<std::string> Failures(const LanguageTexts& texts) const;

  /// The same, and then where the files are.
  std::vector<std::string> Details(const LanguageTexts& texts) const;
};

}  // namespace zek
