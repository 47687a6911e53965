#include "runtime/user_resources.h"

#include <unistd.h>

#include <cstdlib>

#include "runtime/messages.h"
#include "runtime/numbers.h"
#include "runtime/runtime.h"
#include "runtime/text.h"
#include "runtime/text_file.h"

namespace ozmo {
namespace {

constexpr size_t LONGEST_RESOURCE_LINE = 255;
constexpr std::string_view RESOURCE_BLANKS = " \t\r\n\v\f";

enum class VariableRule {
  NUMBER,
  NUMBER_CLOSING_DTR,  // a report that is being written ends here
  CUT_FLOAT,           // a number with a fraction, which is cut off
  TEXT,
  WORKING_DIRECTORY
};

struct EnvironmentRow {
  const char* variable;
  VariableRule rule;
  SettingTarget target;
};

constexpr NumberSetting NO_SETTING = nullptr;

constexpr EnvironmentRow ENVIRONMENT_ROWS[] = {
    {"YX_ADD_SCOPE", VariableRule::NUMBER, &UserSettings::addScope},
    {"YX_INSERT_MODE", VariableRule::NUMBER, &UserSettings::insertMode},
    {"YX_READ_ALL", VariableRule::NUMBER, &UserSettings::readAll},
    {"YX_READ_EXECUTE", VariableRule::NUMBER, &UserSettings::readExecute},
    {"YX_STEP", VariableRule::NUMBER, &UserSettings::stepSize},
    {"YX_MAXSTEP", VariableRule::NUMBER, &UserSettings::maximumSteps},
    {"YX_COMPOUND_GROWTH", VariableRule::NUMBER, &UserSettings::compoundGrowth},
    {"YX_DELAY_CENTER", VariableRule::NUMBER, &UserSettings::delayCenter},
    {"YX_DIVIDE_TRANSIENT", VariableRule::NUMBER, &UserSettings::divideTransient},
    {"YX_BATCH_CLOSE", VariableRule::NUMBER, &UserSettings::batchClose},
    {"YX_TRANSIENT_LAST", VariableRule::NUMBER, &UserSettings::transientLast},
    {"YX_DTR_FLAG", VariableRule::NUMBER_CLOSING_DTR, &UserSettings::dtrFlag},
    {"YX_EDIT_TRANS", VariableRule::NUMBER, &UserSettings::editTransaction},
    {"YX_AUTO_CLASS", VariableRule::NUMBER, &UserSettings::automaticClassCreation},
    {"YX_SHOW_STATS_AFTER_ADD", VariableRule::NUMBER, &UserSettings::showStatsAfterAdd},
    {"YX_NAME", VariableRule::TEXT, &UserSettings::studyName},
    {"YX_STEPLABEL", VariableRule::TEXT, &UserSettings::stepLabel},
    {"YX_DTR_FILE", VariableRule::TEXT, &UserSettings::dtrFile},
    {"YX_DEFAULT", VariableRule::WORKING_DIRECTORY, NO_SETTING},
    {"YX_SATURATE_CPU", VariableRule::CUT_FLOAT, &UserSettings::cpuThreshold},
    {"YX_SATURATE_DISK", VariableRule::CUT_FLOAT, &UserSettings::diskThreshold},
    {"YX_SATURATE_HSC", VariableRule::CUT_FLOAT, &UserSettings::hscThreshold},
    {"YX_SATURATE_BUS", VariableRule::CUT_FLOAT, &UserSettings::busThreshold},
    {"YX_SATURATE_BROUTER", VariableRule::CUT_FLOAT, &UserSettings::brouterThreshold},
    {"YX_SATURATE_ADAPTER", VariableRule::CUT_FLOAT, &UserSettings::adapterThreshold},
    {"YX_SATURATE_SSERVER", VariableRule::NUMBER, &UserSettings::sserverThreshold},
    {"YX_DISK_VISIT", VariableRule::NUMBER, &UserSettings::diskVisit},
    {"YX_DISK_PAGE_FAULT", VariableRule::NUMBER, &UserSettings::diskPageFault},
};

int32_t ParseNumber(const std::string& text) {
  return static_cast<int32_t>(std::strtol(text.c_str(), nullptr, 10));
}

int32_t ParseCutFloat(const std::string& text) {
  return ClampTo<int32_t>(std::strtod(text.c_str(), nullptr));
}

// Cuts off and returns what comes after the last `mark`; absent, and nothing cut, if there is none.
std::optional<std::string_view> CutAfterLast(std::string_view& text, char mark) {
  const size_t position = text.rfind(mark);
  if (position == std::string_view::npos) return std::nullopt;
  const std::string_view tail = text.substr(position + 1);
  text = text.substr(0, position);
  return TrimText(tail, RESOURCE_BLANKS);
}

int32_t ParseBoolean(const std::string& text) {
  const std::string lowered = LowerText(text);
  if (lowered == "true") return 1;
  if (lowered == "false") return 0;
  return ParseNumber(lowered);
}

void SetDefaults(UserSettings& settings, const ProductIdentity& identity) {
  settings = UserSettings{};
  settings.clickInterval = 250;
  settings.studyName = identity.productName;
  settings.automaticClassCreation = 1;
  settings.divideTransient = 1;
  settings.delayCenter = 1;
  settings.cpuThreshold = 95;
  settings.diskThreshold = 80;
  settings.busThreshold = 80;
  settings.adapterThreshold = 80;
  settings.hscThreshold = 80;
  settings.brouterThreshold = 80;
  settings.sserverThreshold = 90;
  settings.maximumSteps = 100;
  settings.stepSize = 25;
  settings.globalScope = 1;
  settings.dtrFile = "_yx.dtr";
  settings.reportWidth = 80;
  settings.modelInput = 10;
  settings.stepLabel = "Step";
}

void ApplyVariable(UserSettings& settings, Runtime& runtime, const EnvironmentRow& row,
                   const std::string& value) {
  const auto number = [&]() -> int32_t& { return settings.*std::get<NumberSetting>(row.target); };
  switch (row.rule) {
    case VariableRule::NUMBER_CLOSING_DTR:
      settings.dtrFilePtr.reset();
      [[fallthrough]];
    case VariableRule::NUMBER:
      number() = ParseNumber(value);
      break;
    case VariableRule::CUT_FLOAT:
      number() = ParseCutFloat(value);
      break;
    case VariableRule::TEXT:
      settings.*std::get<TextSetting>(row.target) = value;
      break;
    case VariableRule::WORKING_DIRECTORY:
      if (chdir(value.c_str()) != 0) MessageEmit(runtime, "INVLD_DIR", {value});
      break;
  }
}

}  // namespace

std::optional<ResourceLine> ParseResourceLine(std::string_view line) {
  const std::optional<std::string_view> value = CutAfterLast(line, ':');
  if (!value) return std::nullopt;
  const std::optional<std::string_view> key = CutAfterLast(line, '.');
  if (!key) return std::nullopt;
  ResourceLine parsed;
  parsed.key = LowerText(*key);
  parsed.value = *value;
  if (const std::optional<std::string_view> group = CutAfterLast(line, '.')) {
    parsed.group = LowerText(*group);
  }
  return parsed;
}

void UserResourceSet(UserSettings& settings, const ResourceRow& row, const std::string& value) {
  if (const auto* number = std::get_if<NumberSetting>(&row.target)) {
    settings.** number = row.kind == ResourceKind::BOOLEAN ? ParseBoolean(value) : ParseNumber(value);
    return;
  }
  std::optional<std::string>& text = settings.*std::get<TextSetting>(row.target);
  if (row.kind == ResourceKind::LIST && text) {
    *text += "," + value;
  } else {
    text = value;
  }
}

void UserResourceEnvironment(UserResources& resources, Runtime& runtime) {
  for (const EnvironmentRow& row : ENVIRONMENT_ROWS) {
    if (const char* value = std::getenv(row.variable)) ApplyVariable(resources.settings, runtime, row, value);
  }
}

void UserResourceDefaults(UserResources& resources, Runtime& runtime) {
  SetDefaults(resources.settings, runtime.identity);
  resources.initialised = true;
  UserResourceEnvironment(resources, runtime);
}

Stream UserResourceFileOpen(Runtime& runtime, const std::string& name, const std::string& envName) {
  Stream file = TextFileOpen(name);
  if (file) return file;
  const char* directory = std::getenv(envName.c_str());
  if (directory == nullptr) directory = std::getenv("HOME");
  if (directory != nullptr) {
    std::string path = directory;
    if (!path.ends_with('/')) path += '/';
    file = TextFileOpen(path + name);
    if (file) return file;
  }
  return TextFileOpen(LibraryDirectory(runtime, "veltrix") + name);
}

int UserResourcesRead(UserResources& resources, Runtime& runtime, const std::string& name) {
  if (!resources.initialised) UserResourceDefaults(resources, runtime);
  const Stream file = UserResourceFileOpen(runtime, name, name);
  if (!file) return 0;
  NoteInput(runtime, IdentityOf(fileno(file.get())));

  std::string text;
  while (TextFileReadLine(file.get(), LONGEST_RESOURCE_LINE, text)) {
    const std::optional<ResourceLine> line = ParseResourceLine(text.c_str());
    if (!line) continue;
    const ResourceRow* row = UserResourceLookup(line->group, line->key);
    if (row != nullptr) UserResourceSet(resources.settings, *row, line->value);
  }
  UserResourceEnvironment(resources, runtime);
  resources.settings.dtrFilePtr.reset();
  return 1;
}

}  // namespace ozmo
