#include "operating/target_traits.h"

#include <iterator>

namespace vantrel {

namespace {

using Start = StartFrequencyRule;

// clang-format off
constexpr TargetTraits kTraits[] = {
    // dimming preheats 40kHz on-time widest start                   pfc
    {false, true,  false, false, false, Start::PreheatTimes1_7, PfcRule::AverageLine},  // TV6101
    {false, true,  false, false, true,  Start::PreheatPlus25k,  PfcRule::AverageLine},  // TV6103
    {true,  true,  false, false, false, Start::Fixed100k,       PfcRule::AverageLine},  // TV6102
    {false, true,  true,  true,  true,  Start::PreheatPlus25k,  PfcRule::MinimumLine},  // TV6104
    {false, true,  false, true,  false, Start::PreheatTimes1_7, PfcRule::MinimumLine},  // TV6105
    {false, false, false, false, true,  Start::RunTimes2_5,     PfcRule::AverageLine},  // TV6106
    {false, true,  false, false, false, Start::None,            PfcRule::AverageLine},  // TV6108
    {false, true,  true,  true,  true,  Start::PreheatPlus25k,  PfcRule::OnTime},       // TV6109
    {true,  true,  true,  true,  true,  Start::PreheatPlus25k,  PfcRule::OnTime},       // TV6110
    {true,  false, false, false, true,  Start::RunTimes2_5,     PfcRule::AverageLine},  // TV6107
};
// clang-format on

constexpr TargetTraits kUnknown{};

}  // namespace

const TargetTraits& target_traits(std::int32_t target) {
  const bool known = target >= 0 && target < static_cast<std::int32_t>(std::size(kTraits));
  return known ? kTraits[target] : kUnknown;
}

}  // namespace vantrel
