#pragma once

#include <string>
#include <vector>

#include "faults/FaultyPlant.h"
#include "support/Transfers.h"

namespace zek::faults {

/// A session with one topic "X" (tag "XTAG") over the transport of a fault case, its plant, and
/// the checks after its transfer.
class FaultSession : private test::TestSession {
 public:
  /// With `verify` a write is checked by a read-back (setting `VerifyAfterWrite`).
  FaultSession(const FaultCase& what, std::size_t floodBytes, bool verify = false);

  /// Runs the transfer and then a read. Returns all errors as one text, or "".
  std::string Run();

  /// After `Run`: reported as done although it failed, and nothing in the dialogue shows that.
  bool Unnoticed() const { return unnoticed_; }
  /// After `Run`: reported as done.
  bool ToldDone() const { return done_; }

 private:
  bool Transferred();
  void CheckRead();
  void CheckWrite(bool sent);
  void CheckAtRest();
  void CheckTime(std::int64_t milliseconds);
  void CheckNext();
  std::vector<std::string> Listing() const;
  const sim::PlantCatalogue& CatalogueThere() const;
  std::string ValueThere() const;
  bool IsUnnoticeable() const;
  bool IsReadBack() const;
  bool MayRefuseToClose() const;
  bool MustSucceed() const;
  double LongestSeconds() const;
  double LongestFetch() const;
  void Expect(bool holds, const std::string& what);

  FaultCase what_;
  sim::Outstation outstation_;
  FaultyPlant plant_;
  std::vector<std::string> newLines_;
  test::Fetched read_;
  std::string localCopy_;  // its path
  std::string wrong_;
  bool unnoticed_ = false;
  bool done_ = false;
};

}  // namespace zek::faults
