// What the configuration decoders of all formats share.
#pragma once

#include "readers/field_rules.h"

namespace ozmo {

// Fills the walk's one SystemConfig by the rows: one that stands is written over. An interval that isn't
// above 0 becomes 60 seconds. A record without a counted field leaves no SystemConfig.
inline int DecodeConfigRecord(const RuleTable<SystemConfig>& rules, Decoding& decoding) {
  constexpr float FALLBACK_INTERVAL = 60.0F;
  std::optional<SystemConfig>& config = decoding.context.config;
  if (!config) config.emplace();
  const int counted = ApplyRules(rules, *config, decoding);
  if (!(config->intervalSeconds > 0.0F)) config->intervalSeconds = FALLBACK_INTERVAL;
  if (counted == 0) config.reset();
  return counted;
}

}  // namespace ozmo
