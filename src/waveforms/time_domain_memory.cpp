#include "waveforms/time_domain_memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include "core/fault.h"

namespace vantrel {

namespace {

constexpr std::size_t kHugePage = std::size_t{1} << 21;
/// Memory behind the end is kept for the next run up to this part of what is in use.
constexpr std::size_t kSparePart = 20;

std::size_t rounded_up(std::size_t bytes, std::size_t unit) {
  return (bytes + unit - 1) / unit * unit;
}

}  // namespace

PageBlock::~PageBlock() {
  if (data_ != nullptr) munmap(data_, bytes_);
}

void PageBlock::reserve(std::size_t bytes) {
  if (data_ != nullptr) return;
  bytes = rounded_up(bytes, kHugePage);
  void* const made = mmap(nullptr, bytes, PROT_READ | PROT_WRITE,
                          MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (made == MAP_FAILED) throw Fault(fault_text::kOutOfMemory);
#ifdef MADV_HUGEPAGE
  madvise(made, bytes, MADV_HUGEPAGE);  // a wish: without huge pages the runs are only slower
#endif
  data_ = made;
  bytes_ = bytes;
}

void PageBlock::trim(std::size_t bytes, bool all) {
  if (data_ == nullptr) return;
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  // A whole huge page at the end is kept as long as it is little beside the rest.
  const std::size_t huge_end = rounded_up(bytes, kHugePage);
  const bool keep_huge = !all && huge_end - bytes <= bytes / kSparePart;
  const std::size_t end = keep_huge ? huge_end : rounded_up(bytes, page);
  if (end < bytes_) madvise(static_cast<std::byte*>(data_) + end, bytes_ - end, MADV_DONTNEED);
}

}  // namespace vantrel
