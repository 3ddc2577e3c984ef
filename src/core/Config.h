// Configuration values of this build: the maker's addresses and the version.
#pragma once

namespace bw {

constexpr int kVersionMajor = 3;
constexpr int kVersionMinor = 0;
constexpr int kVersionRevision = 18;

constexpr const char* kCompanyName = "Tallowmere Workshop";
constexpr const char* kSupportMail = "help@tallowmere.example";
constexpr const char* kSupportWeb = "https://tallowmere.example";
// The line end of messages, reports and the log (a Linux desktop program).
constexpr const char* kNL = "\n";
constexpr const char* kMakerNotice = "Copyright (c) 2026 Tallowmere Workshop. All rights reserved.";

}  // namespace bw
