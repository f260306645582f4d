#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "database/adoaccess.h"

namespace vantrel {

/// Shown when the list of cores cannot be had.
inline constexpr std::string_view kCoreTableFailure = "Could not read Inductor Core Types table";

/// A pair of core halves with its coil former.
struct CoreType {
  std::string size;         ///< Its name, such as "EF25".
  double le = 0;            ///< Effective path length in mm.
  double ae = 0;            ///< Effective area in mm2.
  double factor = 0;        ///< Core constant, le / ae, in 1/mm.
  double winding_area = 0;  ///< Window area in mm2.
  double max_gap = 0;       ///< Largest air gap in mm.
};

/// The cores of the design database, which all designers share.
class CoreTable {
 public:
  explicit CoreTable(adoaccess_class& database) : database_(database) {}

  /// The cores in ascending winding area, read at the first use and kept. Nothing when the table
  /// cannot be read or has no row; the next use tries again. A number that a row lacks is 0.
  const std::vector<CoreType>* cores();
  /// The same, read anew: for when the user has edited the cores.
  const std::vector<CoreType>* Reread();

 private:
  adoaccess_class& database_;
  std::vector<CoreType> cores_;
};

/// The first core of that size; a Fault when there is none.
const CoreType& core_named(std::span<const CoreType> cores, std::string_view size);

}  // namespace vantrel
