#include "runtime/user_settings.h"

#include "runtime/text.h"

namespace ozmo {
namespace {

using enum ResourceKind;

constexpr ResourceRow MAIN_ROWS[] = {
    {"ClickInterval", INTEGER, &UserSettings::clickInterval},
    {"StudyName", TEXT, &UserSettings::studyName},
    {"ReportDiskMember", BOOLEAN, &UserSettings::reportDiskMember},
    {"EditTransaction", BOOLEAN, &UserSettings::editTransaction},
    {"Automatic Class Creation", BOOLEAN, &UserSettings::automaticClassCreation},
    {"ShowStatsAfterAdd", BOOLEAN, &UserSettings::showStatsAfterAdd},
};

constexpr ResourceRow WORKLOAD_ANALYZER_ROWS[] = {
    {"DivideTransient", BOOLEAN, &UserSettings::divideTransient},
    {"TransientLast", BOOLEAN, &UserSettings::transientLast},
};

constexpr ResourceRow MODEL_ROWS[] = {
    {"BatchClose", BOOLEAN, &UserSettings::batchClose},
    {"DelayCenter", BOOLEAN, &UserSettings::delayCenter},
    {"CpuThreshold", INTEGER, &UserSettings::cpuThreshold},
    {"DiskThreshold", INTEGER, &UserSettings::diskThreshold},
    {"BusThreshold", INTEGER, &UserSettings::busThreshold},
    {"AdapterThreshold", INTEGER, &UserSettings::adapterThreshold},
    {"HscThreshold", INTEGER, &UserSettings::hscThreshold},
    {"BrouterThreshold", INTEGER, &UserSettings::brouterThreshold},
    {"SserverThreshold", INTEGER, &UserSettings::sserverThreshold},
    {"CompoundGrowth", BOOLEAN, &UserSettings::compoundGrowth},
    {"MaximumSteps", INTEGER, &UserSettings::maximumSteps},
    {"StepSize", INTEGER, &UserSettings::stepSize},
    {"GlobalScope", BOOLEAN, &UserSettings::globalScope},
    {"DiskPageFault", BOOLEAN, &UserSettings::diskPageFault},
    {"DTRFlag", BOOLEAN, &UserSettings::dtrFlag},
    {"DTRFilePtr", TEXT, &UserSettings::dtrFilePtr},
    {"DTRFile", TEXT, &UserSettings::dtrFile},
};

constexpr ResourceRow REPORT_ROWS[] = {
    {"ReportWidth", INTEGER, &UserSettings::reportWidth},
    {"UserSummary", INTEGER, &UserSettings::userSummary},
    {"ClassSummary", INTEGER, &UserSettings::classSummary},
    {"ClassDetails", INTEGER, &UserSettings::classDetails},
    {"ModelSummary", INTEGER, &UserSettings::modelSummary},
    {"ModelDetails", INTEGER, &UserSettings::modelDetails},
    {"ModelValidation", INTEGER, &UserSettings::modelValidation},
    {"ModelSaturation", INTEGER, &UserSettings::modelSaturation},
    {"ModelInput", INTEGER, &UserSettings::modelInput},
};

// Most of these are the model's settings under the same name; AutoValidate is its DelayCenter.
constexpr ResourceRow SATURATE_ROWS[] = {
    {"CompoundGrowth", BOOLEAN, &UserSettings::compoundGrowth},
    {"BatchClose", BOOLEAN, &UserSettings::batchClose},
    {"CpuThreshold", INTEGER, &UserSettings::cpuThreshold},
    {"DiskThreshold", INTEGER, &UserSettings::diskThreshold},
    {"BusThreshold", INTEGER, &UserSettings::busThreshold},
    {"AdapterThreshold", INTEGER, &UserSettings::adapterThreshold},
    {"HscThreshold", INTEGER, &UserSettings::hscThreshold},
    {"BrouterThreshold", INTEGER, &UserSettings::brouterThreshold},
    {"SserverThreshold", INTEGER, &UserSettings::sserverThreshold},
    {"MaximumSteps", INTEGER, &UserSettings::maximumSteps},
    {"StepSize", INTEGER, &UserSettings::stepSize},
    {"AutoValidate", BOOLEAN, &UserSettings::delayCenter},
    {"StepLabel", TEXT, &UserSettings::stepLabel},
    {"CpuVaxList", LIST, &UserSettings::cpuVaxList},
    {"CpuIa64VmsList", LIST, &UserSettings::cpuIa64VmsList},
    {"CpuAxpVmsList", LIST, &UserSettings::cpuAxpVmsList},
    {"CpuAxpOsfList", LIST, &UserSettings::cpuAxpOsfList},
};

constexpr ResourceGroup GROUPS[] = {
    {"main", MAIN_ROWS},         {"workloadanalyzer", WORKLOAD_ANALYZER_ROWS},
    {"model", MODEL_ROWS},       {"report", REPORT_ROWS},
    {"saturate", SATURATE_ROWS},
};

}  // namespace

std::span<const ResourceGroup> ResourceGroups() { return GROUPS; }

const ResourceRow* UserResourceLookup(std::optional<std::string_view> group, std::string_view key) {
  for (const ResourceGroup& candidate : GROUPS) {
    if (group && candidate.name != *group) continue;
    for (const ResourceRow& row : candidate.rows) {
      if (LowerText(row.name) == key) return &row;
    }
  }
  return nullptr;
}

}  // namespace ozmo
