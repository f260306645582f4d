#include "outputs/validate_schematic.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "core/save_dialog.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

constexpr const char* kCaption = "BOM vs Schematic : ";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kRuleLength = 60;

std::string call(const std::function<std::string()>& hook) { return hook ? hook() : ""; }
bool call(const std::function<bool()>& hook) { return hook && hook(); }

/// Letters with a number behind them name a component. Anything else may be a net or a pin.
bool is_doubtful(std::string_view reference) {
  const auto is_letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  const auto number = std::find_if_not(reference.begin(), reference.end(), is_letter);
  return number == reference.end() || !IsOnlyNumbers({number, reference.end()});
}

std::string section(std::string_view heading, const std::vector<ValidateItem>& items) {
  std::string text;
  text.append(kLineEnd).append(heading).append(kLineEnd);
  for (const ValidateItem& item : items) text.append(item.text()).append(kLineEnd);
  return text;
}

}  // namespace

std::string ValidateItem::text() const {
  return reference + (duplicate ? " (duplicate)" : "") + (doubt ? " ?" : "");
}

ValidateSchematic::ValidateSchematic(FieldContext& context, const BomStore& bill,
                                     FileDialogs* dialogs, const ProgramFolder& folder,
                                     ValidateHooks hooks, FileCalls calls)
    : Screen("ValidateSchematic", kCaption, context),
      messages_(context.messages),
      bill_(bill),
      dialogs_(dialogs),
      folder_(folder),
      hooks_(std::move(hooks)),
      calls_(std::move(calls)) {}

bool ValidateSchematic::refuse(std::string_view why) {
  messages_.msg(name(), why);
  return false;
}

bool ValidateSchematic::validate() {
  const auto schematic = readSchematic();
  if (!schematic) return false;
  if (schematic->clipped) refuse("ETO Clipped");
  if (schematic->references.empty()) return refuse("No reference items in Schematic to check");
  compare(*schematic);
  display();
  return true;
}

std::optional<SchematicTexts> ValidateSchematic::readSchematic() {
  const auto stop = [this](std::string_view why) {
    refuse(why);
    return std::nullopt;
  };
  if (!call(hooks_.isSchematicDisplayed)) return stop("Schematic must be displayed for check");
  if (bill_.BomStages().empty()) return stop("No reference items in BOM to check");
  const std::string file = call(hooks_.schematicFile);
  if (file.empty()) return stop("Could not access schematic filename to validate");
  const auto bytes = read_drawing(file);
  if (!bytes) return stop("Could not find schematic filename to validate");
  auto texts = read_schematic_texts(*bytes);
  if (!texts) return stop("Schematic is not in valid .wmf format for comparison");
  return texts;
}

void ValidateSchematic::compare(const SchematicTexts& schematic) {
  Reset();
  const MetafileHeader& header = schematic.header;
  SetSizeForValidateScale(header.width(), header.height(), header.unitsPerInch);
  const std::vector<std::string>& in_bill = bill_.BomStages();
  const std::unordered_set<std::string> bill(in_bill.begin(), in_bill.end());
  std::unordered_set<std::string> on_schematic;
  for (const SchematicReference& each : schematic.references) {
    on_schematic.insert(each.name);
    // A second text of one name is none of the bill's, which has each component once.
    if (each.duplicate || !bill.contains(each.name)) {
      AddItem(ValidateList::SchematicOnly, each.name, each.duplicate);
    }
  }
  for (const std::string& reference : in_bill) {
    if (!on_schematic.contains(reference)) AddItem(ValidateList::BillOnly, reference);
  }
}

void ValidateSchematic::Reset() {
  schematic_only_.clear();
  bill_only_.clear();
  scale_ = {};
}

void ValidateSchematic::AddItem(ValidateList list, std::string_view reference, bool duplicate) {
  auto& items = list == ValidateList::SchematicOnly ? schematic_only_ : bill_only_;
  // What the bill holds is a component, whatever its name looks like.
  const bool doubt = list == ValidateList::SchematicOnly && is_doubtful(reference);
  items.push_back({std::string(reference), duplicate, doubt});
}

void ValidateSchematic::SetSizeForValidateScale(int width, int height, int units_per_inch) {
  scale_ = {{0, 0, width, height}, units_per_inch};
}

void ValidateSchematic::display() {
  caption(kCaption + selection());
  visible(true);
  notifyLayoutChanged();
}

const std::vector<ValidateItem>& ValidateSchematic::items(ValidateList list) const {
  return list == ValidateList::SchematicOnly ? schematic_only_ : bill_only_;
}

bool ValidateSchematic::hasDiscrepancies() const {
  return !schematic_only_.empty() || !bill_only_.empty();
}

bool ValidateSchematic::ValidateHighlightComponent(ValidateList list, std::size_t item) {
  const std::vector<ValidateItem>& all = items(list);
  if (item >= all.size()) return false;
  const bool bill_required = list == ValidateList::BillOnly;
  if (bill_required && !call(hooks_.isBillVisible)) {
    return refuse("BOM must be visible to highlight");
  }
  const auto& highlight = bill_required ? hooks_.highlightInBill : hooks_.highlightOnSchematic;
  if (highlight) highlight(all[item].reference);
  return true;
}

std::string ValidateSchematic::selection() const {
  return call(hooks_.targetName) + " : " + call(hooks_.inputName) + ", " + call(hooks_.configName);
}

std::string ValidateSchematic::exportText() const {
  std::string text = "BOM / Schematic discrepancies for " + selection();
  text.append(kLineEnd).append(kRuleLength, '-').append(kLineEnd);
  text += section("Schematic components not found in BOM", schematic_only_);
  text += section("BOM Components not found in schematic", bill_only_);
  return text;
}

bool ValidateSchematic::ExportList() {
  const std::string path = select_savefile(dialogs_, folder_, kExportTitle, kExportName);
  return !path.empty() && ExportListTo(path);
}

bool ValidateSchematic::ExportListTo(const std::string& path) {
  const auto failure = write_file(path, exportText(), calls_);
  if (!failure) return true;
  return refuse("Could not export file");
}

}  // namespace vantrel
