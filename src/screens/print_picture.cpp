#include "screens/print_picture.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>
#include <numeric>

#include "core/theme.h"
#include "platform/painter_device_context.h"

namespace vantrel {

namespace {

// A table on paper, in pixels of 1/96 inch.
constexpr double kSheetWidth = 720;
constexpr double kRowHeight = 18;
constexpr double kTitleHeight = 32;
constexpr double kTextSize = 11;
constexpr double kTitleSize = 16;

class TableDrawing {
 public:
  TableDrawing(DeviceContext& surface, const TableGrid& grid) : surface_(surface), grid_(grid) {
    const int total =
        std::accumulate(grid.columns.begin(), grid.columns.end(), 0,
                        [](int sum, const TableColumn& column) { return sum + column.width; });
    double left = 0;
    for (const TableColumn& column : grid.columns) {
      lefts_.push_back(left);
      left += kSheetWidth * column.width / std::max(total, 1);
    }
    surface.setTextColour(theme_colour(Role::Text, Theme::Print));
  }

  void draw(const std::string& title) {
    surface_.setFont({.size = kTitleSize, .bold = true});
    surface_.text({0, 0}, title);
    surface_.setFont({.size = kTextSize, .bold = true});
    double top = kTitleHeight;
    for (std::size_t column = 0; column < lefts_.size(); ++column) {
      surface_.text({lefts_[column], top}, grid_.columns[column].title);
    }
    top += kRowHeight;
    surface_.moveTo({0, top - 3});
    surface_.lineTo({kSheetWidth, top - 3});
    surface_.setFont({.size = kTextSize});
    for (const TableRow& row : grid_.rows) {
      for (std::size_t column = 0; column < lefts_.size(); ++column) {
        surface_.text({lefts_[column], top}, row[column]);
      }
      top += kRowHeight;
    }
  }

 private:
  DeviceContext& surface_;
  const TableGrid& grid_;
  std::vector<double> lefts_;
};

std::string selection_line(Session& session) {
  return "Lamp Type '" + session.selectionName(kSlotLamp) + "', Line Input '" +
         session.selectionName(kSlotInput) + "', Configuration '" +
         session.selectionName(kSlotConfig) + "', Target IC '" + session.selectionName(kSlotIc) +
         "'  Page 1";
}

}  // namespace

bool print_picture_to(QPrinter& printer, const Picture& picture) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
  const double scale =
      std::min(page.width() / picture.size.width, page.height() / picture.size.height);
  painter.scale(scale, scale);
  PainterDeviceContext surface(painter, picture.size);
  picture.draw(surface);
  return painter.end();
}

bool print_window(QWidget& window, Session& session) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(window.windowTitle());
  printer.setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dialog(&printer, &window);
  if (dialog.exec() != QDialog::Accepted) return false;
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
  const double scale =
      std::min(page.width() / window.width(), page.height() / (window.height() + kTitleHeight));
  painter.scale(scale, scale);
  painter.drawText(QPointF(0, kTextSize), QString::fromStdString(selection_line(session)));
  window.render(&painter, QPoint(0, static_cast<int>(kTitleHeight)), {},
                QWidget::DrawWindowBackground | QWidget::DrawChildren);
  return painter.end();
}

bool print_picture(const Picture& picture, QWidget* owner) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QString::fromStdString(picture.title));
  printer.setPageOrientation(picture.size.width > picture.size.height ? QPageLayout::Landscape
                                                                      : QPageLayout::Portrait);
  QPrintDialog dialog(&printer, owner);
  return dialog.exec() == QDialog::Accepted && print_picture_to(printer, picture);
}

Picture table_picture(const TableGrid& grid, const std::string& title) {
  const auto rows = static_cast<double>(grid.rows.size() + 1);
  // At least as high as a sheet is for its width, so that a short table is not blown up.
  const double height = std::max(kTitleHeight + rows * kRowHeight, kSheetWidth * 1.4);
  return {.title = title, .size = {kSheetWidth, height}, .draw = [grid, title](DeviceContext& to) {
            TableDrawing(to, grid).draw(title);
          }};
}

}  // namespace vantrel
