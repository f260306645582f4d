#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <queue>
#include <string>
#include <variant>
#include <vector>

#include "core/device_context.h"
#include "outputs/metafile_reader.h"

namespace vantrel {

/// Objects of a metafile; lengths in logical units.
struct MetafilePenObject {
  Colour colour;
  int width = 0;
  MetafileLine line = MetafileLine::Solid;
};
struct MetafileBrushObject {
  std::optional<Colour> colour = Colour{255, 255, 255, 255};  ///< Nothing for no fill.
};
struct MetafileFontObject {
  int height = 0;  ///< Below 0 the em, above 0 the line, 0 whatever the reader likes.
  double angle = 0;
  bool bold = false;
  bool italic = false;
  std::string face;
};
/// Palettes, regions and what is broken keep a slot of the table but draw nothing.
using MetafileObject =
    std::variant<std::monostate, MetafilePenObject, MetafileBrushObject, MetafileFontObject>;

/// The object that a record makes; nothing when the record makes none.
std::optional<MetafileObject> metafile_object(const MetafileRecord& record);

/// The numbered objects of a metafile. A new one takes the lowest free number.
class MetafileObjects {
 public:
  void add(MetafileObject object);
  /// An unknown number does nothing.
  void remove(std::size_t number);
  /// The object of that number; nothing when there is none.
  const MetafileObject* find(std::size_t number) const;

 private:
  std::vector<std::optional<MetafileObject>> table_;
  std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>> free_;
};

}  // namespace vantrel
