// The settings that the programs of the suite share through ".yxrc", and the table that gives them their
// keys.
//
// Nothing in this tool reads a setting. The keys are kept since the file is shared with the planning modules,
// and each line of it has to mean the same everywhere.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace ozmo {

struct UserSettings {
  // main
  int32_t clickInterval = 0;
  std::optional<std::string> studyName;
  int32_t reportDiskMember = 0;
  int32_t editTransaction = 0;
  int32_t automaticClassCreation = 0;
  int32_t showStatsAfterAdd = 0;

  // workloadanalyzer
  int32_t divideTransient = 0;
  int32_t transientLast = 0;

  // model and saturate
  int32_t batchClose = 0;
  int32_t delayCenter = 0;
  int32_t cpuThreshold = 0;
  int32_t diskThreshold = 0;
  int32_t busThreshold = 0;
  int32_t adapterThreshold = 0;
  int32_t hscThreshold = 0;
  int32_t brouterThreshold = 0;
  int32_t sserverThreshold = 0;
  int32_t compoundGrowth = 0;
  int32_t maximumSteps = 0;
  int32_t stepSize = 0;
  int32_t globalScope = 0;
  int32_t diskPageFault = 0;
  int32_t dtrFlag = 0;
  std::optional<std::string> dtrFilePtr;
  std::optional<std::string> dtrFile;

  // report
  int32_t reportWidth = 0;
  int32_t userSummary = 0;
  int32_t classSummary = 0;
  int32_t classDetails = 0;
  int32_t modelSummary = 0;
  int32_t modelDetails = 0;
  int32_t modelValidation = 0;
  int32_t modelSaturation = 0;
  int32_t modelInput = 0;

  // saturate
  std::optional<std::string> stepLabel;
  std::optional<std::string> cpuVaxList;
  std::optional<std::string> cpuIa64VmsList;
  std::optional<std::string> cpuAxpVmsList;
  std::optional<std::string> cpuAxpOsfList;

  // by environment variable only
  int32_t addScope = 0;
  int32_t insertMode = 0;
  int32_t readAll = 0;
  int32_t readExecute = 0;
  int32_t diskVisit = 0;
};

enum class ResourceKind {
  BOOLEAN = 0,  // "true" or "false" in any case, else a number
  INTEGER = 1,
  TEXT = 2,
  LIST = 3  // a value is added to the old text after a comma
};

using NumberSetting = int32_t UserSettings::*;
using TextSetting = std::optional<std::string> UserSettings::*;
using SettingTarget = std::variant<NumberSetting, TextSetting>;

struct ResourceRow {
  std::string_view name;  // the key; case doesn't matter in a file
  ResourceKind kind;
  SettingTarget target;
};

struct ResourceGroup {
  std::string_view name;
  std::span<const ResourceRow> rows;
};

// The groups in the order of look-up.
std::span<const ResourceGroup> ResourceGroups();

// The row for a key in lower case, of `group` only where one is given, else of the first group that has the
// key. Null if no row holds it.
const ResourceRow* UserResourceLookup(std::optional<std::string_view> group, std::string_view key);

}  // namespace ozmo
