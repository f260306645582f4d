#pragma once

#include <cstddef>
#include <type_traits>

namespace vantrel {

/// Address space for the most that an array may hold. It takes memory only where it is written, in
/// huge pages where the system has them, reads as zero elsewhere, and never moves.
class PageBlock {
 public:
  /// Reserves nothing yet.
  PageBlock() = default;
  ~PageBlock();
  PageBlock(const PageBlock&) = delete;
  PageBlock& operator=(const PageBlock&) = delete;

  /// Reserves `bytes` once; later calls do nothing. A Fault "Out of memory" when it cannot.
  void reserve(std::size_t bytes);
  /// Keeps what stands before `bytes` and gives the memory behind it back, if that is much beside
  /// what is kept or `all` is asked for. What was given back reads as zero again.
  void trim(std::size_t bytes, bool all);
  void* data() const { return data_; }

 private:
  void* data_ = nullptr;
  std::size_t bytes_ = 0;
};

/// An array of plain records on a PageBlock.
template <typename T>
class PagedArray {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  void reserve(std::size_t count) { block_.reserve(count * sizeof(T)); }
  void trim(std::size_t count, bool all) { block_.trim(count * sizeof(T), all); }
  T* data() const { return static_cast<T*>(block_.data()); }

 private:
  PageBlock block_;
};

}  // namespace vantrel
