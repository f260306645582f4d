#include "outputs/validate_schematic_texts.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <unordered_set>
#include <utility>

#include "core/code_page.h"
#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

constexpr std::size_t kShortestReference = 2;
/// Far more than any drawing has; a file of nothing but texts is not read to its end.
constexpr std::size_t kMostReferences = 10000;
constexpr std::uintmax_t kLargestDrawing = std::uintmax_t{256} << 20U;

/// The parameters of an ExtTextOut record that stand in front of its characters.
enum TextWord : std::size_t { kY = 0, kX = 1, kCount = 2, kOptions = 3, kCharacters = 4 };

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool is_text(const MetafileRecord& record) {
  constexpr std::uint32_t kByte = 0xFF;
  return record.size() <= kByte && record.function() == MetafileFunction::ExtTextOut &&
         record.word(kCount) <= kByte && record.word(kOptions) == 0;
}

/// The characters of a text record in its code page, one byte each, trimmed; empty when they do not
/// fit into it.
std::string words_of(const MetafileRecord& record) {
  const std::size_t start = kCharacters * 2;
  const std::size_t count = record.word(kCount);
  if (record.bytes().size() < start + count) return {};
  const auto bytes = record.bytes().subspan(start, count);
  return trimmed(std::string(bytes.begin(), bytes.end()));
}

std::optional<int> scaled(int size, int position, int extent) {
  if (extent == 0) return std::nullopt;
  // All three have 16 bits and the size a sign more, so the result fits.
  return round_to_int32(static_cast<double>(size) * position / extent);
}

class Walk {
 public:
  explicit Walk(const MetafileHeader& header) { found_.header = header; }

  void read(const MetafileRecord& record) {
    if (record.function() == MetafileFunction::SetWindowExtent) {
      extent_ = record.reversedPoint(0);
    }
    if (!is_text(record)) return;
    if ((record.word(kOptions) & kTextClipped) != 0) found_.clipped = true;
    std::string words = words_of(record);
    if (words.size() < kShortestReference || is_digit(words.front())) return;
    words = from_code_page(words);
    const bool again = !seen_.insert(words).second;
    found_.references.push_back(
        {std::move(words), scaled(found_.header.width(), record.number(kX), extent_.x),
         scaled(found_.header.height(), record.number(kY), extent_.y), again});
  }

  bool isFull() const { return found_.references.size() >= kMostReferences; }
  SchematicTexts take() { return std::move(found_); }

 private:
  SchematicTexts found_;
  MetafilePoint extent_;
  std::unordered_set<std::string> seen_;
};

}  // namespace

bool IsOnlyNumbers(std::string_view text) {
  return std::all_of(text.begin(), text.end(), is_digit);
}

const SchematicReference* SchematicTexts::find(std::string_view name) const {
  const auto found = std::find_if(references.begin(), references.end(),
                                  [name](const auto& each) { return each.name == name; });
  return found == references.end() ? nullptr : &*found;
}

std::optional<SchematicTexts> read_schematic_texts(std::span<const std::uint8_t> bytes) {
  const auto header = metafile_header(bytes);
  if (!header) return std::nullopt;
  Walk walk(*header);
  MetafileReader reader(bytes);
  while (const auto record = reader.next()) {
    if (walk.isFull()) break;
    walk.read(*record);
  }
  return walk.take();
}

std::optional<std::vector<std::uint8_t>> read_drawing(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error || size > kLargestDrawing) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  if (!file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size))) {
    return std::nullopt;
  }
  return bytes;
}

}  // namespace vantrel
