#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/please_wait.h"
#include "core/ports.h"
#include "core/print_job.h"
#include "core/program_folder.h"
#include "core/save_dialog.h"
#include "outputs/form_report.h"
#include "outputs/table_grid.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// What printing needs of other parts of the program. A callable may be empty.
struct PrintingHooks {
  /// Name of the item selected in a slot (0 IC, 1 INPUT, 2 LAMP, 3 CONFIG), empty without one.
  std::function<std::string(int slot)> nameOfSelection;
  /// Asks for a printer, or opens the preview, and has the job printed by `Printing::run`.
  std::function<void(const PrintJob& job, bool preview)> output;
};

/// What stands above the body of a page, in lines.
struct PrintHeader {
  std::vector<std::string> caption;
  std::vector<std::string> title;
  double width = 0;
  double height = 0;
};

/// Prints forms as reports of their controls, tables and pictures, every page under the same
/// header. What it makes are jobs; a printer, a preview and a file take them alike.
class Printing {
 public:
  static constexpr const char* kFace = "MS Sans Serif";
  static constexpr const char* kWait = "Printing ... Please Wait";
  static constexpr const char* kProblem = "There was a problem printing to your printer";
  static constexpr const char* kEmptyTable = "Table is empty - Cannot print";
  static constexpr const char* kEmptyTableCaption = "Empty Table";

  /// All references must outlive the object; `dialogs` may be missing.
  Printing(SysMsg& messages, PleaseWait& wait, FileDialogs* dialogs, const ProgramFolder& folder,
           PrintingHooks hooks);

  /// Prints a form.
  void print_form(const FormReport& form) { output(formJob(form)); }
  /// The pages of a form without their header, for sheets of that size.
  std::vector<PrintPage> print_form_info(const FormReport& form, DeviceContext& measure,
                                         Size sheet) const;
  /// The same for one container and what is in it.
  std::vector<PrintPage> printframe(const FormControl& container, DeviceContext& measure,
                                    Size sheet) const;
  /// The header of a page, from the current selection; pages count from 1.
  std::string print_form_caption(int page) const;
  /// Prepares a surface for printed text: font, colours, alignment.
  void set_graphics_modes(DeviceContext& surface) const;
  /// The save dialog; see vantrel::select_savefile.
  std::string select_savefile(std::string_view title, std::string_view name,
                              std::string_view filter = "All Files (*.*)|*.*") const {
    return vantrel::select_savefile(dialogs_, folder_, title, name, filter);
  }

  /// Prints a grid under a title; an empty one is refused with a message.
  void print_table(const TableGrid& grid, std::string_view title);
  /// False, with a message, for a grid without rows.
  bool mayPrint(const TableGrid& grid);
  /// Prints a picture on one page, which is landscape when the picture is wide.
  void print_picture(const Picture& picture) { output(pictureJob(picture)); }
  /// Hands a job to a printer or, inside `preview`, to the preview.
  void output(const PrintJob& job);
  /// Runs a printing command so that it shows what it would print.
  void preview(const std::function<void()>& command);

  PrintJob formJob(const FormReport& form) const;
  PrintJob tableJob(const TableGrid& grid, std::string_view title) const;
  PrintJob pictureJob(const Picture& picture) const;
  /// A job of one page: `page` fills the room below the header.
  PrintJob pageJob(std::string_view title, bool landscape,
                   std::function<PrintPart(Size room)> page) const;

  /// Draws a job while the progress window is on show, which offers Cancel. False when it was
  /// cancelled or has failed; a failure is reported.
  bool run(const PrintJob& job, PrintTarget& target);
  /// The same without window and report, for a preview or a file.
  static bool draw(const PrintJob& job, PrintTarget& target);

 private:
  /// Pages of that much room.
  using Body = std::function<std::vector<PrintPage>(DeviceContext& measure, Size room)>;
  PrintJob job(std::string_view title, bool landscape, Body body) const;
  void drawHeader(DeviceContext& surface, const PrintHeader& header) const;

  SysMsg& messages_;
  PleaseWait& wait_;
  FileDialogs* dialogs_;
  const ProgramFolder& folder_;
  PrintingHooks hooks_;
  bool preview_ = false;
  bool cancelled_ = false;
};

}  // namespace vantrel
