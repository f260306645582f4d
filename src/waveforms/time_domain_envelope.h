#pragma once

#include <cstdint>
#include <span>

#include "waveforms/time_domain_memory.h"
#include "waveforms/time_domain_sample.h"

namespace vantrel {

/// The decimated picture of a run: one entry for each 64 samples, which tells the extremes of the
/// 1024 samples from there on. A run hands it each block of 64 while the block is at hand; the
/// windows are made of whole blocks when the run has ended.
class TimeDomainEnvelope {
 public:
  static constexpr std::int32_t kBlock = 64;
  static constexpr std::int32_t kWindow = 1024;

  /// Prepares for runs of up to `samples`.
  void reserve(std::int32_t samples);
  /// Takes the extremes of the block of that number among `samples`.
  void takeBlock(std::int32_t block, const TimeDomainSample* samples);
  /// Makes the windows of a run of `n` samples. An entry whose window passes the end is zero.
  void finish(std::int32_t n, bool give_back);
  /// Empties the envelope and gives its memory back.
  void clear();

  std::span<const EnvelopeEntry> entries() const {
    return {entries_.data(), static_cast<std::size_t>(count_)};
  }

 private:
  PagedArray<EnvelopeEntry> entries_;
  std::int32_t count_ = 0;
};

}  // namespace vantrel
