#include "waveforms/time_domain_envelope.h"

#include <algorithm>

namespace vantrel {

namespace {

void raise(double& top, double value) { top = value > top ? value : top; }
void lower(double& bottom, double value) { bottom = value < bottom ? value : bottom; }

/// Raises the four values of the envelope. Of equal values the earlier one is kept.
template <typename Values, typename Other>
void raise(Values& top, const Other& other) {
  raise(top.VIN, other.VIN);
  raise(top.IL, other.IL);
  raise(top.ILamp, other.ILamp);
  raise(top.VR, other.VR);
}
template <typename Values, typename Other>
void lower(Values& bottom, const Other& other) {
  lower(bottom.VIN, other.VIN);
  lower(bottom.IL, other.IL);
  lower(bottom.ILamp, other.ILamp);
  lower(bottom.VR, other.VR);
}

/// The four values alone, which a loop can hold in registers.
struct Values {
  explicit Values(const TimeDomainSample& s) : VIN(s.VIN), IL(s.IL), ILamp(s.ILamp), VR(s.VR) {}
  void writeTo(TimeDomainSample& record) const {
    record.VIN = VIN;
    record.IL = IL;
    record.ILamp = ILamp;
    record.VR = VR;
  }
  double VIN, IL, ILamp, VR;
};

}  // namespace

void TimeDomainEnvelope::reserve(std::int32_t samples) {
  count_ = 0;
  entries_.reserve(static_cast<std::size_t>(samples / kBlock + 1));
}

void TimeDomainEnvelope::takeBlock(std::int32_t block, const TimeDomainSample* samples) {
  const TimeDomainSample* const first = samples + block * kBlock;
  EnvelopeEntry& entry = entries_.data()[block];
  Values top(*first);
  Values bottom(*first);
  for (std::int32_t i = 1; i < kBlock; ++i) {
    raise(top, first[i]);
    lower(bottom, first[i]);
  }
  entry = {*first, *first};
  top.writeTo(entry.Max);
  bottom.writeTo(entry.Min);
}

void TimeDomainEnvelope::finish(std::int32_t n, bool give_back) {
  EnvelopeEntry* const entries = entries_.data();
  const std::int32_t blocks = n / kBlock;
  // Each pass doubles the length that an entry stands for: 2, 4, 8, 16 blocks.
  for (std::int32_t reach = 1; reach < kWindow / kBlock; reach *= 2) {
    for (std::int32_t i = 0; i + reach < blocks; ++i) {
      raise(entries[i].Max, entries[i + reach].Max);
      lower(entries[i].Min, entries[i + reach].Min);
    }
  }
  const std::int32_t windows = n < kWindow ? 0 : (n - kWindow) / kBlock + 1;
  count_ = blocks + 1;
  std::fill(entries + windows, entries + count_, EnvelopeEntry{});
  entries_.trim(static_cast<std::size_t>(count_), give_back);
}

void TimeDomainEnvelope::clear() {
  count_ = 0;
  entries_.trim(0, true);
}

}  // namespace vantrel
