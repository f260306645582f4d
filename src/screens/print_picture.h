#pragma once

#include "app/session.h"
#include "core/device_context.h"
#include "outputs/table_grid.h"

class QPrinter;
class QWidget;

namespace vantrel {

/// Asks for a printer, over `owner`, and prints the picture on one sheet, as large as it fits.
/// False when the user has cancelled or the printer took nothing.
bool print_picture(const Picture& picture, QWidget* owner);
/// The same on a printer that is set up already.
bool print_picture_to(QPrinter& printer, const Picture& picture);

/// Asks for a printer and prints a window as it stands, under a line that tells the selection.
bool print_window(QWidget& window, Session& session);

/// A grid under its title as a drawing of one sheet.
Picture table_picture(const TableGrid& grid, const std::string& title);

}  // namespace vantrel
