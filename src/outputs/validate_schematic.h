#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_writer.h"
#include "core/ports.h"
#include "core/program_folder.h"
#include "core/screen.h"
#include "outputs/bom_store.h"
#include "outputs/validate_schematic_texts.h"

namespace vantrel {

/// What the check needs of other parts of the program. An empty callable counts as one that answers
/// no or nothing.
struct ValidateHooks {
  /// True while the circuit diagram is on show.
  std::function<bool()> isSchematicDisplayed;
  /// Path of its file; empty when it is not known.
  std::function<std::string()> schematicFile;
  std::function<std::string()> targetName;  ///< Short name of the selected control IC.
  std::function<std::string()> inputName;   ///< Line input as circuit diagrams name it.
  std::function<std::string()> configName;  ///< Short code of the lamp configuration.
  std::function<bool()> isBillVisible;
  /// Marks a component on the circuit diagram; says itself when it cannot.
  std::function<void(const std::string& reference)> highlightOnSchematic;
  /// Marks the line of the bill that holds a component.
  std::function<void(const std::string& reference)> highlightInBill;
};

/// The two lists of the window.
enum class ValidateList { SchematicOnly, BillOnly };

/// One discrepancy.
struct ValidateItem {
  std::string reference;
  bool duplicate = false;  ///< Another text of that name stands before it on the schematic.
  bool doubt = false;      ///< The name may be none of a component: "VCC", not "R12".

  /// As lists and files show it: the reference with " (duplicate)" and " ?" behind it.
  std::string text() const;
  friend bool operator==(const ValidateItem&, const ValidateItem&) = default;
};

/// Compares the reference designators of the bill of materials with the texts of the circuit
/// diagram on show, and keeps what only one of them has.
class ValidateSchematic : public Screen {
 public:
  static constexpr std::string_view kExportTitle = "Select export filename";
  static constexpr std::string_view kExportName = "BOM vs Schematic.txt";

  /// `dialogs` may be missing: then no name can be asked for. All arguments must outlive the
  /// object.
  ValidateSchematic(FieldContext& context, const BomStore& bill, FileDialogs* dialogs,
                    const ProgramFolder& folder, ValidateHooks hooks = {},
                    FileCalls calls = system_file_calls());

  /// Runs the whole check and shows the window. False, with a message, when it cannot be made.
  bool validate();

  /// Empties both lists and forgets the scale.
  void Reset();
  void AddItem(ValidateList list, std::string_view reference, bool duplicate = false);
  /// Size of the drawing's bounding box in its units, for placing components.
  void SetSizeForValidateScale(int width, int height, int units_per_inch);
  /// Writes the caption and shows the window.
  void display();

  const std::vector<ValidateItem>& items(ValidateList list) const;
  bool hasDiscrepancies() const;
  /// Width, height and units per inch of the last drawing.
  const MetafileHeader& scale() const { return scale_; }

  /// Marks the component of an item. One of the schematic is marked there, one of the bill in the
  /// bill's window, which must be on show. False when there is no such item or no such window.
  bool ValidateHighlightComponent(ValidateList list, std::size_t item);

  /// Both lists as a text file, CR LF at the end of each line.
  std::string exportText() const;
  /// Asks for a file and writes the lists to it. An empty answer ends the operation. True when it
  /// was written.
  bool ExportList();
  /// Writes to a given path; a failure is reported.
  bool ExportListTo(const std::string& path);

 private:
  /// The texts of the drawing on show; nothing, with a message, when they cannot be read.
  std::optional<SchematicTexts> readSchematic();
  void compare(const SchematicTexts& schematic);
  bool refuse(std::string_view why);
  /// IC, input and configuration in one line.
  std::string selection() const;

  SysMsg& messages_;
  const BomStore& bill_;
  FileDialogs* dialogs_;
  const ProgramFolder& folder_;
  ValidateHooks hooks_;
  FileCalls calls_;
  std::vector<ValidateItem> schematic_only_;
  std::vector<ValidateItem> bill_only_;
  MetafileHeader scale_;
};

}  // namespace vantrel
