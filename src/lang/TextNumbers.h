#pragma once

#include <cstdint>

/// Names for the numbers of the language texts. Numbers below 500 are those of the language files
/// in the field; from 500 up they are ours and have a built-in Swedish text (BuiltInTexts.cpp).
namespace zek::text {

inline constexpr std::int32_t kMenuFile = 10;
inline constexpr std::int32_t kMenuDisconnect = 11;
inline constexpr std::int32_t kMenuExit = 12;
inline constexpr std::int32_t kMenuTime = 13;
inline constexpr std::int32_t kMenuTSC = 14;
inline constexpr std::int32_t kAlreadyRunning = 50;
inline constexpr std::int32_t kNoTagObject = 58;
inline constexpr std::int32_t kDisconnectTimeLow = 59;
inline constexpr std::int32_t kGetTSCTimeoutLow = 60;
inline constexpr std::int32_t kIdleBefore = 62;  // text, seconds, text 63
inline constexpr std::int32_t kIdleAfter = 63;
inline constexpr std::int32_t kAboutLine1 = 100;
inline constexpr std::int32_t kAboutLine2 = 101;
inline constexpr std::int32_t kCalendarCaption = 200;  // window title, then the four frames
inline constexpr std::int32_t kWeekdayNames = 205;     // 205 to 211: Monday to Sunday
inline constexpr std::int32_t kMonthNamesShown = 212;  // 212 to 223: January to December
inline constexpr std::int32_t kNoDayTypeCaption = 224;
inline constexpr std::int32_t kCalendarNext = 225;
inline constexpr std::int32_t kCalendarLast = 226;
inline constexpr std::int32_t kCalendarOk = 227;
inline constexpr std::int32_t kCalendarCancel = 228;
inline constexpr std::int32_t kDayTypeUnknown = 229;    // text (line)
inline constexpr std::int32_t kDayTypesShort = 230;     // 15 groups of three characters
inline constexpr std::int32_t kExceptionCaption = 150;  // 150 to 158: captions of that editor
inline constexpr std::int32_t kExceptionRetry = 159;
inline constexpr std::int32_t kExceptionRetryTitle = 160;
inline constexpr std::int32_t kExceptionsFull = 161;  // a ninth line of one time control
inline constexpr std::int32_t kWeekdayCaption = 250;  // 250 to 266: captions of the weekday editor
inline constexpr std::int32_t kWeekdayRetry = 267;
inline constexpr std::int32_t kWeekdayRetryTitle = 268;
inline constexpr std::int32_t kDayUnknown = 269;  // a weekday line with an unknown day key
inline constexpr std::int32_t kDayFull = 270;     // a 17th row for one day
inline constexpr std::int32_t kWeekdays = 271;
inline constexpr std::int32_t kSpecialDays = 272;
inline constexpr std::int32_t kControllerError = 400;  // text, the controller's line
inline constexpr std::int32_t kTopicsCut = 408;        // text, length, limit, text 409
inline constexpr std::int32_t kTopicsCutAdvice = 409;
inline constexpr std::int32_t kSectionCut = 412;  // texts 412 to 414 with section name and length
inline constexpr std::int32_t kSectionCutLength = 413;
inline constexpr std::int32_t kSectionCutAdvice = 414;
inline constexpr std::int32_t kLabelRefused = 415;
inline constexpr std::int32_t kUseLocalCopy = 416;
inline constexpr std::int32_t kUseLocalCopyTitle = 417;
inline constexpr std::int32_t kNoLocalCopy = 418;
inline constexpr std::int32_t kNoLocalCopyAdvice = 419;
inline constexpr std::int32_t kLocalCopyDeclined = 420;
inline constexpr std::int32_t kFetching = 421;
inline constexpr std::int32_t kNoAnswer = 422;
inline constexpr std::int32_t kSavedLocally = 424;
inline constexpr std::int32_t kSavedLocallyFile = 425;
inline constexpr std::int32_t kAskSend = 426;
inline constexpr std::int32_t kAskSendFile = 427;
inline constexpr std::int32_t kSendTitle = 428;
inline constexpr std::int32_t kSendFailed = 429;
inline constexpr std::int32_t kSendDone = 430;

// Start-up, settings and files
inline constexpr std::int32_t kSettingTooLarge = 500;
inline constexpr std::int32_t kFileFailed = 501;
inline constexpr std::int32_t kFileMissing = 502;
inline constexpr std::int32_t kFileDenied = 503;
inline constexpr std::int32_t kDiskFull = 504;
inline constexpr std::int32_t kFileReadOnly = 505;
inline constexpr std::int32_t kFileTooLarge = 506;
// Topics and connections
inline constexpr std::int32_t kTooManyTopics = 510;
inline constexpr std::int32_t kConnecting = 511;
inline constexpr std::int32_t kConnectFailed = 512;  // text " Topic '" name "'" or " Tag '" tag "'"
inline constexpr std::int32_t kDisconnectFailed = 513;
inline constexpr std::int32_t kNotConnected = 514;
inline constexpr std::int32_t kLinkLost = 515;
inline constexpr std::int32_t kTextDropped = 516;
inline constexpr std::int32_t kSocketError = 517;
inline constexpr std::int32_t kInvalidTopic = 518;
inline constexpr std::int32_t kHostUnknown = 519;
inline constexpr std::int32_t kUnreachable = 520;
inline constexpr std::int32_t kPortInvalid = 522;
inline constexpr std::int32_t kConnectionBroken = 524;
inline constexpr std::int32_t kDdeError = 681;     // %1 one of 682 to 687
inline constexpr std::int32_t kNoDde = 682;        // this system has none
inline constexpr std::int32_t kDdeNoServer = 683;  // none of that name, or it refuses
inline constexpr std::int32_t kDdeNoAdvise = 684;  // the server gives no link on the item
inline constexpr std::int32_t kDdeRefused = 685;   // the server does not take a command
inline constexpr std::int32_t kDdeBusy = 686;
inline constexpr std::int32_t kDdeFlooded = 687;
inline constexpr std::int32_t kTagError = 688;  // %1 the call and what the object says
// What a wait waits for
inline constexpr std::int32_t kWaitConnect = 530;
inline constexpr std::int32_t kWaitClose = 531;
inline constexpr std::int32_t kWaitPause = 532;
inline constexpr std::int32_t kWaitAnswer = 533;
inline constexpr std::int32_t kWaitListing = 534;  // %1 lines so far
inline constexpr std::int32_t kSendingLine = 535;  // %1 of %2
inline constexpr std::int32_t kAttempt = 536;      // %1 of 3
// Catalogues and local copies
inline constexpr std::int32_t kLocalCopyTooLong = 540;
inline constexpr std::int32_t kNoSuchCatalogue = 541;
inline constexpr std::int32_t kSending = 542;
inline constexpr std::int32_t kListingTooLong = 543;  // %1 lines at most, %2 left out
// Buttons of questions
inline constexpr std::int32_t kCommandUnfit = 544;
inline constexpr std::int32_t kYes = 545;
inline constexpr std::int32_t kNo = 546;
// All three editors
inline constexpr std::int32_t kLinesLost = 650;  // %1 lines
inline constexpr std::int32_t kLinesLostTitle = 651;
inline constexpr std::int32_t kCatalogueFull = 652;       // %1 lines at most, %2 the line left out
inline constexpr std::int32_t kLineNumberTooLarge = 653;  // %1 the number, %2 the largest
inline constexpr std::int32_t kValueTooLong = 654;  // %1 the value, %2 its line, %3 characters
inline constexpr std::int32_t kPickListHint = 655;
inline constexpr std::int32_t kLineIncomplete = 656;  // text (line)
// The calendar editor
inline constexpr std::int32_t kDatesWrong = 660;    // %1 the line's number
inline constexpr std::int32_t kCalendarCut = 661;   // %1 dates at most, %2 the line's number
inline constexpr std::int32_t kCalendarFull = 662;  // %1 dates at most
inline constexpr std::int32_t kCalendarYear =
    663;                                          // %1 the year, %2 to %3, %4 setting, %5 its value
inline constexpr std::int32_t kMonthShown = 664;  // %1 month, %2 year
inline constexpr std::int32_t kSpokenDate =
    665;                                        // %1 weekday, %2 day, %3 month, %4 year, %5 and %6
inline constexpr std::int32_t kSpokenAs = 666;  // %1 weekday, %2 the same with a small initial
inline constexpr std::int32_t kSpokenHoliday = 667;
inline constexpr std::int32_t kSpokenSelected = 668;
inline constexpr std::int32_t kSpokenToday = 669;
inline constexpr std::int32_t kCalendarHint = 680;
// Main window, log and language form
inline constexpr std::int32_t kMenuDebug = 550;
inline constexpr std::int32_t kMenuDebugSave = 551;
inline constexpr std::int32_t kMenuDebugOpen = 552;
inline constexpr std::int32_t kMenuDebugClear = 553;
inline constexpr std::int32_t kLogFilter = 554;
inline constexpr std::int32_t kLogSaveTitle = 555;
inline constexpr std::int32_t kLogOpenTitle = 556;
inline constexpr std::int32_t kTopicsLabel = 557;
inline constexpr std::int32_t kInputLabel = 558;
inline constexpr std::int32_t kLocalModeShown = 559;
inline constexpr std::int32_t kLanguageTitle = 560;
inline constexpr std::int32_t kLanguageLabel = 561;
inline constexpr std::int32_t kNoLanguages = 562;  // %1 the program directory
// The browser
inline constexpr std::int32_t kBrowserTitle = 600;
inline constexpr std::int32_t kBrowserClose = 601;
inline constexpr std::int32_t kBrowserTSC = 602;
inline constexpr std::int32_t kBrowserExpandAll = 603;
inline constexpr std::int32_t kBrowserCollapseAll = 604;
inline constexpr std::int32_t kBrowserGetWDC = 605;
inline constexpr std::int32_t kBrowserEraseWDC = 606;
inline constexpr std::int32_t kBrowserEraseSDC = 607;
inline constexpr std::int32_t kBrowserEraseOVC = 608;
inline constexpr std::int32_t kAskErase = 609;  // %1 the file
inline constexpr std::int32_t kAskEraseTitle = 610;
inline constexpr std::int32_t kCancelTransfer = 611;
// Columns of the weekday editor
inline constexpr std::int32_t kMonday = 612;      // 612 to 618: Monday to Sunday
inline constexpr std::int32_t kSpecialDay = 619;  // %1 the number 1 to 7
// The browser's other catalogues
inline constexpr std::int32_t kBrowserGetSDC = 620;
inline constexpr std::int32_t kBrowserGetOVC = 621;
// The batch export
inline constexpr std::int32_t kMenuBatch = 622;
inline constexpr std::int32_t kMenuBatchRun = 623;
inline constexpr std::int32_t kMenuBatchWDC = 624;
inline constexpr std::int32_t kMenuBatchSDC = 625;
inline constexpr std::int32_t kMenuBatchOVC = 626;
inline constexpr std::int32_t kBatchCancel = 627;
inline constexpr std::int32_t kBatchFinished = 628;
inline constexpr std::int32_t kBatchProgress = 629;  // %1 node, %2 kind, %3 of %4, %5 are left
inline constexpr std::int32_t kBatchAllDone = 630;   // 630 to 632: %1 of %2 exported, %3 failed
inline constexpr std::int32_t kBatchSomeDone = 631;
inline constexpr std::int32_t kBatchStopped = 632;
inline constexpr std::int32_t kBatchNothing = 633;
inline constexpr std::int32_t kBatchFiles = 634;
inline constexpr std::int32_t kBatchNoFiles = 635;
inline constexpr std::int32_t kBatchTitle = 636;
inline constexpr std::int32_t kBatchDetails = 637;
inline constexpr std::int32_t kBatchFaulty = 638;
inline constexpr std::int32_t kBatchPlantCut = 639;
inline constexpr std::int32_t kBatchMoreMessages = 640;  // %1 the first, %2 the number of others
// The exception editor
inline constexpr std::int32_t kExceptionRefused = 670;    // text (line)
inline constexpr std::int32_t kDateWrong = 671;           // %1 what was typed
inline constexpr std::int32_t kTimeWrong = 672;           // %1 what was typed
inline constexpr std::int32_t kYearUnfit = 673;           // %1 the date, %2 first, %3 last year
inline constexpr std::int32_t kLineNumberTooSmall = 674;  // %1 the number
inline constexpr std::int32_t kExceptionTitle = 675;
inline constexpr std::int32_t kExceptionFrame = 676;
inline constexpr std::int32_t kTimeHeading = 677;
inline constexpr std::int32_t kRowHeading = 678;
inline constexpr std::int32_t kEraseHint = 679;
// The history of local copies
inline constexpr std::int32_t kHistoryMenu = 760;
inline constexpr std::int32_t kHistoryTitle = 761;
inline constexpr std::int32_t kHistoryKept = 762;
inline constexpr std::int32_t kHistoryDifferences = 763;
inline constexpr std::int32_t kHistoryRestore = 764;
inline constexpr std::int32_t kAskRestore = 765;  // %1 the time
inline constexpr std::int32_t kRestored = 766;    // %1 the time
inline constexpr std::int32_t kHistoryEmpty = 767;
inline constexpr std::int32_t kHistorySame = 768;
inline constexpr std::int32_t kHistoryFailed = 769;
inline constexpr std::int32_t kHistoryKind = 770;
// What the three editors share
inline constexpr std::int32_t kUndo = 750;
inline constexpr std::int32_t kRedo = 751;
inline constexpr std::int32_t kUndoHint = 752;
inline constexpr std::int32_t kRedoHint = 753;
inline constexpr std::int32_t kAskClose = 754;
inline constexpr std::int32_t kAskCloseTitle = 755;
// What a write changes, and whether it did
inline constexpr std::int32_t kChangesFetched = 700;
inline constexpr std::int32_t kChangesLocal = 701;
inline constexpr std::int32_t kChangesUnknown = 702;
inline constexpr std::int32_t kChangesNone = 703;
inline constexpr std::int32_t kChangedHeading = 704;  // 704 to 709, 724 to 726: text (number)
inline constexpr std::int32_t kAddedHeading = 705;
inline constexpr std::int32_t kRemovedHeading = 706;
inline constexpr std::int32_t kRemovedMayStay = 707;
inline constexpr std::int32_t kDroppedHeading = 708;
inline constexpr std::int32_t kLeavingHeading = 709;
inline constexpr std::int32_t kLeavingNote = 710;
inline constexpr std::int32_t kChangeBefore = 711;
inline constexpr std::int32_t kChangeAfter = 712;
inline constexpr std::int32_t kDropStarred = 713;  // 713 to 718: why a line is left out
inline constexpr std::int32_t kDropTooMany = 714;
inline constexpr std::int32_t kDropPltStopValue = 715;
inline constexpr std::int32_t kDropStopTime = 716;
inline constexpr std::int32_t kDropUnreadable = 717;
inline constexpr std::int32_t kDropOverwritten = 718;
inline constexpr std::int32_t kDetailsLabel = 719;
inline constexpr std::int32_t kVerifying = 720;
inline constexpr std::int32_t kVerified = 721;
inline constexpr std::int32_t kNotVerified = 722;
inline constexpr std::int32_t kVerifyFaults = 723;
inline constexpr std::int32_t kDiffersHeading = 724;
inline constexpr std::int32_t kMissingHeading = 725;
inline constexpr std::int32_t kLeftHeading = 726;
inline constexpr std::int32_t kSentLine = 727;
inline constexpr std::int32_t kFetchedLine = 728;
inline constexpr std::int32_t kFaultsLabel = 729;
// Files that can't be written
inline constexpr std::int32_t kFileNameTooLong = 740;
inline constexpr std::int32_t kFileInUse = 741;
// What can't be sent
inline constexpr std::int32_t kNoCatalogueLine = 730;  // %1 the line
inline constexpr std::int32_t kNotOneCommand = 731;    // %1 the name or value

}  // namespace zek::text
