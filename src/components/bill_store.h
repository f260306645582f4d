#pragma once

#include <string_view>

namespace vantrel {

/// Port to the bill of materials that a finished calculation fills.
class BillStore {
 public:
  virtual ~BillStore() = default;
  virtual void clear() = 0;
  /// Takes one component. `value` is ready to be shown: "4.7 nF", or a text such as "N/C".
  virtual void add(std::string_view type, std::string_view value, std::string_view rating,
                   std::string_view tolerance, std::string_view reference) = 0;
};

}  // namespace vantrel
