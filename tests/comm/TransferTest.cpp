#include <gtest/gtest.h>

#include "comm/Transfer.h"

namespace zek {
namespace {

constexpr std::int16_t kTimeout = 25;

struct LineCase {
  TransferKind kind;
  std::string line;
  TransferKind after;
  int stored;
  int countdown;  // from 7
  const char* dfv;
  std::string refusal = {};
};

TEST(Transfer, TakesReplyLines) {
  using enum TransferKind;
  const LineCase cases[] = {
      {ReadSdc, "12!07:00!20:00", ReadSdc, 1, kTimeout, "."},
      {ReadSdc, "0!x", ReadSdc, 0, 7, "."},
      {ReadSdc, "header", ReadSdc, 0, 7, "."},
      {ReadSdc, "-3!x", ReadSdc, 0, 7, "."},
      {ReadWdc, "  12 .EXC", ReadWdcExceptions, 1, kTimeout, "."},
      {ReadOvc, "AHU1.EXC", ReadOvc, 0, 7, "."},
      {ReadWdcExceptions, "12!x", ReadWdcExceptions, 0, 7, "."},
      {ReadWdcExceptions, "an EXITED door", Idle, 0, 7, "."},
      {ReadWdc, ".DFV =  21.5 !comment", ReadWdc, 0, 7, "21.5"},
      {ReadWdc, "A.DFV=1=2", ReadWdc, 0, 7, "1"},
      {ReadWdc, "LIST A.DFV", ReadWdc, 0, 7, "."},
      {ReadWdc, "?ERROR 5", ReadWdc, 0, 0, ".", "?ERROR 5"},
      {ReadWdc, "error", ReadWdc, 0, 7, "."},
      {WriteWdc, "12!x", WriteWdc, 0, 7, "."},
      {WriteWdc, "a\x02", Idle, 0, 7, ".", "a"},
      {WriteOvc, "xERRORx", Idle, 0, 7, ".", "xERRORx"},
      {WriteOvc, "ERR\x03OR 5", Idle, 0, 7, ".", "ERROR 5"},
      {ReadSdc,
       "\x02"
       "12!07:\x03"
       "00",
       ReadSdc, 1, kTimeout, "."},
      {ReadSdc, "\tHEADER\x07", ReadSdc, 0, 7, "."},
      {ReadSdc, "12!07:\t00", ReadSdc, 1, kTimeout, "."},
      {ReadSdc, "12!07:\x07:00", ReadSdc, 1, 0, "."},
      {ReadWdc,
       ".D\x05"
       "FV = 21",
       ReadWdc, 0, 0, "."},
      {Idle, "12!x EXIT", Idle, 0, 7, "."},
      {ReadSdc, "12!EXIT ERROR", ReadSdc, 1, kTimeout, "."},
      {ReadWdc, "12!EXIT.DFV=3", ReadWdc, 1, kTimeout, "3"},
      {ReadWdc, "12!EXIT.EXC", ReadWdcExceptions, 1, kTimeout, "."},
      {ReadWdcExceptions, "12!EXIT", ReadWdcExceptions, 0, 7, "."},
      {ReadSdc, "0!EXIT", Idle, 0, 7, "."},
      {ReadSdc, "12 EXIT", Idle, 1, kTimeout, "."},
      {WriteWdc, "12!ERROR", WriteWdc, 0, 7, "."},
      {ReadWdc, "LIST EXIT ERROR DOOR", ReadWdc, 0, 7, "."},
      {ReadWdc, "EXIT ERROR DOOR.DFV=4", ReadWdc, 0, 7, "4"},
      {ReadWdc, "EXIT ERROR DOOR: EXIT", Idle, 0, 7, "."},
      {WriteWdc, "EXIT ERROR DOOR.WDC", WriteWdc, 0, 7, "."},
  };
  for (const LineCase& each : cases) {
    Transfer transfer;
    Countdowns countdowns;
    countdowns.ReplyCountdown = 7;
    transfer.Collect(each.kind, "EXIT ERROR DOOR");
    transfer.TakeReplyLine(each.line, countdowns, kTimeout);
    EXPECT_EQ(transfer.Kind, each.after) << each.line;
    EXPECT_EQ(transfer.CatalogueLineCount(), each.stored) << each.line;
    EXPECT_EQ(countdowns.ReplyCountdown, each.countdown) << each.line;
    EXPECT_EQ(transfer.CatalogueDfv, each.dfv) << each.line;
    EXPECT_EQ(transfer.DfvSeen, transfer.CatalogueDfv != ".") << each.line;
    EXPECT_EQ(transfer.Refusal, each.refusal) << each.line;
    EXPECT_EQ(transfer.ErrorSeen, each.countdown == 0) << each.line;
  }
}

TEST(Transfer, KeepsTheFirst201Lines) {
  Transfer transfer;
  Countdowns countdowns;
  transfer.Collect(TransferKind::ReadSdc);
  for (int i = 1; i <= 202; ++i) {
    countdowns.ReplyCountdown = 3;
    transfer.TakeReplyLine(std::to_string(i) + "!x", countdowns, kTimeout);
  }
  EXPECT_EQ(transfer.CatalogueLineCount(), 201);
  EXPECT_EQ(transfer.CatalogueLines.back(), "201!x");
  EXPECT_EQ(countdowns.ReplyCountdown, kTimeout) << "so that a long listing ends by its EXIT";
}

}  // namespace
}  // namespace zek
