#include "output/axes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "output/grapher_messages.h"
#include "output/number_text.h"
#include "runtime/numbers.h"
#include "runtime/times.h"

namespace ozmo {
namespace {

// An axis with as many subticks as this has none.
constexpr int SUBTICKS_MAX = 30;

constexpr double TRIAL_TICKS = 5.0;

struct SpacingStep {
  double below;  // mantissas below this one take the factor
  double factor;
  SpacingType type;
};

// Seconds between the ticks of a time axis: the first that makes fewer than TIME_TICKS_MAX parts.
constexpr std::array<double, 10> TIME_SPACINGS = {300.0,   600.0,   1800.0,  3600.0,  7200.0,
                                                  10800.0, 21600.0, 43200.0, 86400.0, 604800.0};
constexpr double TIME_TICKS_MAX = 9.0;

// The bounds are the square roots of 2, 10 and 50.
constexpr std::array<SpacingStep, 3> SPACING_STEPS = {{
    {1.41421, 1.0, SpacingType::ONE},
    {3.16228, 2.0, SpacingType::TWO},
    {7.07107, 5.0, SpacingType::FIVE},
}};

struct TickSpan {
  int first = 0;
  int last = -1;

  // Far apart, the numbers differ by more than an int holds.
  bool IsTooLong() const { return int64_t{last} - first >= SUBTICKS_MAX; }
};

// The ticks between the limits, and those that rounding has put just beyond them.
TickSpan TicksBetween(double min, double max, double spacing) {
  const double tolerance = (max - min) * LIMIT_TOLERANCE;
  return {ClampTo<int>(std::ceil((min - tolerance) / spacing)),
          ClampTo<int>(std::floor((max + tolerance) / spacing))};
}

double TenToThe(int exponent) {
  double power = 1.0;
  for (int n = std::abs(exponent); n > 0; --n) power *= 10.0;
  return exponent < 0 ? 1.0 / power : power;
}

double SubtickSpacing(const AxisLimits& limits, const AxisSpacing& spacing) {
  switch (spacing.type) {
    case SpacingType::ONE:
      for (const double parts : {10.0, 5.0}) {
        if (!TicksBetween(limits.min, limits.max, spacing.spacing / parts).IsTooLong()) {
          return spacing.spacing / parts;
        }
      }
      return spacing.spacing / 2.0;
    case SpacingType::TWO:
      return spacing.spacing / 2.0;
    case SpacingType::FIVE:
    case SpacingType::TWO_AND_A_HALF:
      return spacing.spacing / 5.0;
    case SpacingType::OTHER:
      break;
  }
  return spacing.spacing;
}

bool IsScientificLimit(double limit) { return limit != 0.0 && std::abs(std::log10(std::abs(limit))) >= 4.0; }

// Position of the last digit after the point that is not 0.
int DecimalsIn(const std::string& number) {
  const size_t point = number.find('.');
  const size_t last = number.find_last_not_of('0');
  return point == std::string::npos || last < point ? 0 : static_cast<int>(last - point);
}

std::string ScientificLabel(double spacing, double value) {
  if (value == 0.0) return "0";
  const std::string text = NumberText("%e", value);
  const size_t mark = text.find('e');
  const double mantissa = std::strtod(text.substr(0, mark).c_str(), nullptr);
  const int exponent = static_cast<int>(std::strtol(text.c_str() + mark + 1, nullptr, 10));
  const int decimals = DecimalsIn(NumberText("%f", spacing / std::pow(10.0, exponent)));
  return NumberText(mantissa, decimals) + "\\r6\\mu\\r8\\l810\\sp" + std::to_string(exponent) + "\\ep";
}

}  // namespace

double AxisToDevice(const AxisMap& map, double value) {
  const double quotient = (value - map.inputMin) / map.inputRange;
  const double share = map.reversed ? 1.0 - quotient : quotient;
  return (share * map.outputRange + map.outputMin) * DEVICE_SIZE;
}

AxisSpacing AxisTrialSpacing(double min, double max) {
  const double trial = std::abs((max - min) / TRIAL_TICKS);
  if (!(trial > 0.0) || !std::isfinite(trial)) {
    GrapherFail("bad trial inter-tick spacing " + NumberText("%g", trial));
  }
  const double exponent = std::floor(std::log10(trial));
  const double mantissa = trial * std::pow(10.0, -exponent);
  for (const SpacingStep& step : SPACING_STEPS) {
    if (step.below > mantissa) return {step.factor * std::pow(10.0, exponent), step.type};
  }
  return {10.0 * std::pow(10.0, exponent), SpacingType::ONE};
}

double AxisTimeSpacing(double span) {
  const auto* const found = std::find_if(TIME_SPACINGS.begin(), TIME_SPACINGS.end(),
                                         [span](double spacing) { return span / spacing < TIME_TICKS_MAX; });
  return found == TIME_SPACINGS.end() ? TIME_SPACINGS.back() : *found;
}

SpacingType AxisSpacingType(double spacing) {
  const double base = TenToThe(ClampTo<int>(std::floor(std::log10(spacing))));
  const double tolerance = 0.000001 * base;
  const auto isMultiple = [&](double factor) { return std::abs(spacing - factor * base) < tolerance; };
  if (isMultiple(1.0)) return SpacingType::ONE;
  if (isMultiple(2.0)) return SpacingType::TWO;
  if (isMultiple(2.5)) return SpacingType::TWO_AND_A_HALF;
  return isMultiple(5.0) ? SpacingType::FIVE : SpacingType::OTHER;
}

AxisState AxisPrepare(const AxisLimits& limits) {
  if (limits.min > limits.max) GrapherFail("min > max for axis, not allowed");
  const AxisSpacing spacing = limits.spacingGiven
                                  ? AxisSpacing{limits.spacing, AxisSpacingType(limits.spacing)}
                                  : AxisTrialSpacing(limits.min, limits.max);
  const TickSpan ticks = TicksBetween(limits.min, limits.max, spacing.spacing);
  const double subtickSpacing = SubtickSpacing(limits, spacing);
  const TickSpan subticks = TicksBetween(limits.min, limits.max, subtickSpacing);

  AxisState axis;
  axis.tickSpacing = spacing.spacing;
  axis.firstTick = ticks.first;
  axis.lastTick = ticks.last;
  axis.subtickSpacing = subtickSpacing;
  axis.firstSubtick = subticks.first;
  axis.lastSubtick = subticks.last;
  axis.haveSubticks = spacing.type != SpacingType::OTHER && !subticks.IsTooLong();
  return axis;
}

std::string AxisValueLabel(const AxisState& axis, const AxisMap& map, double value) {
  if (IsScientificLimit(map.inputMin) || IsScientificLimit(map.inputMax)) {
    return ScientificLabel(axis.tickSpacing, value);
  }
  return NumberText(value, DecimalsIn(NumberText("%.9f", axis.tickSpacing)));
}

std::string AxisTimeLabel(double value) { return ClockText(value); }

std::string ClockText(double value) { return TimeFormat(ClampTo<Seconds>(value), "%H:%M"); }

}  // namespace ozmo
