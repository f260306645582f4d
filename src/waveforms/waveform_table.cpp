#include "waveforms/waveform_table.h"

#include <algorithm>

#include "core/number_text.h"

namespace vantrel {

std::string waveform_csv(std::span<const TimeDomainSample> samples, std::int32_t step) {
  using S = TimeDomainSample;
  constexpr double S::*kColumns[] = {&S::TimeUs, &S::VIN, &S::IL,          &S::VBlock,
                                     &S::ILamp,  &S::VR,  &S::FrequencyKHz};
  constexpr std::size_t kUsualRow = 130;
  const auto stride = static_cast<std::size_t>(std::max(step, 1));
  std::string text =
      "Time (us),VIN (V),IL (A),VBlock (V),ILamp (A),VR (V),Frequency (kHz),Stage\r\n";
  text.reserve(text.size() + (samples.size() / stride + 1) * kUsualRow);
  for (std::size_t i = 0; i < samples.size(); i += stride) {
    for (const auto column : kColumns) {
      text += general_text(samples[i].*column);
      text += ',';
    }
    text += general_text(samples[i].Stage);
    text += "\r\n";
  }
  return text;
}

}  // namespace vantrel
