#pragma once

/// Numbers of the texts of import.
namespace tav::exchange_text {

// What an import tells.
constexpr int kLegs = 7810;
constexpr int kGasAdded = 7811;
constexpr int kNoGas = 7812;
constexpr int kSetpoint = 7813;
constexpr int kEndsBelow = 7814;
constexpr int kIntervalFromClock = 7815;
constexpr int kIntervalUnknown = 7816;
constexpr int kNoSamples = 7817;
constexpr int kSurfacePressure = 7818;
constexpr int kCylinderLeftOut = 7819;
constexpr int kLeavesLoop = 7820;
constexpr int kChangesLeftOut = 7821;
constexpr int kPlanContradicted = 7787;
constexpr int kLinesWithoutGas = 7788;
constexpr int kMoreColumns = 7789;
constexpr int kFromSettings = 7790;
constexpr int kOneLeg = 7791;

constexpr int kReadAs = 8362;
constexpr int kOverlaps = 8363;
constexpr int kBackwards = 8364;
constexpr int kIntervalContradicted = 8365;
constexpr int kModeNotPlanned = 8366;
constexpr int kHeadingWithDigits = 8369;

// Why a file can't be imported.
constexpr int kTooLarge = 7830;
constexpr int kNoXml = 7831;
constexpr int kDocumentType = 7832;
constexpr int kTooDeeplyNested = 7833;
constexpr int kNoUddf = 7834;
constexpr int kNoDive = 7835;
constexpr int kNumberOutside = 7836;
constexpr int kNoDiveTime = 7837;
constexpr int kNotInOrder = 7838;
constexpr int kUnknownGas = 7839;
constexpr int kTooManySamples = 7840;
constexpr int kSharesBeyondWhole = 7841;
constexpr int kOtherGas = 7842;
constexpr int kNoSuchDive = 7843;
constexpr int kTooManyLegs = 7844;
constexpr int kNoWaypoint = 7845;
constexpr int kNoSeparator = 7846;
constexpr int kTooManyDives = 7847;
constexpr int kTooManyGases = 7848;
constexpr int kOxygenUntold = 7783;
constexpr int kNoOxygen = 7784;
constexpr int kControlCharacter = 7792;
constexpr int kQuoteNotClosed = 7793;
constexpr int kTwoOfOneId = 8367;
constexpr int kSharesNotWhole = 8368;

}  // namespace tav::exchange_text
