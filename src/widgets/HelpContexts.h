#pragma once

/// \file
/// The context numbers by which forms ask for their topics in the help file.

namespace quorrel::help {

inline constexpr int kContents = 1;
inline constexpr int kFirstRun = 5;
inline constexpr int kLogon = 10;
inline constexpr int kOpenSystem = 20;
inline constexpr int kCreateSystem = 30;
inline constexpr int kPinSizes = 35;
inline constexpr int kPinningChart = 36;
inline constexpr int kLogoff = 12;
inline constexpr int kKeyUsers = 50;
inline constexpr int kDoors = 40;
inline constexpr int kMainPage = 60;
inline constexpr int kExit = 65;
inline constexpr int kAbout = 70;
inline constexpr int kNetwork = 80;
inline constexpr int kDoorAssignment = 150;
inline constexpr int kCrossKeys = 160;
inline constexpr int kFindKey = 180;
inline constexpr int kCompany = 570;
inline constexpr int kPermissions = 580;
inline constexpr int kDepartments = 590;
inline constexpr int kHardware = 595;
inline constexpr int kLostKeys = 600;
inline constexpr int kReturnedKeys = 605;
inline constexpr int kReports = 610;
inline constexpr int kPrinter = 615;

} // namespace quorrel::help
