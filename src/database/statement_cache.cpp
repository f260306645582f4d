#include "database/statement_cache.h"

#include <utility>

namespace vantrel {

namespace {
constexpr std::size_t kLongestKeptSource = 8192;
}

StatementPtr StatementCache::take(std::string_view source) {
  const auto found = by_source_.find(source);
  if (found == by_source_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, found->second);
  return std::move(found->second->statement);
}

void StatementCache::keep(std::string_view source, StatementPtr statement) {
  if (capacity_ == 0 || source.size() > kLongestKeptSource) return;
  if (const auto found = by_source_.find(source); found != by_source_.end()) {
    found->second->statement = std::move(statement);
    return;
  }
  if (entries_.size() >= capacity_) {
    by_source_.erase(entries_.back().source);
    entries_.pop_back();
  }
  entries_.push_front({std::string(source), std::move(statement)});
  by_source_.emplace(entries_.front().source, entries_.begin());
}

void StatementCache::clear() {
  by_source_.clear();
  entries_.clear();
}

}  // namespace vantrel
