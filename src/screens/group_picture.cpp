#include "screens/group_picture.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace vantrel {

namespace {

constexpr qreal kFaint = 0.4;

struct Ink {
  const char* drawn;
  Role dark;
};

constexpr Ink kInks[] = {
    {"#333f4f", Role::Text},         // outlines
    {"#4a5563", Role::Input},        // body of an IC
    {"#c5cdd6", Role::PanelBorder},  // metal: pins, caps
    {"#ffffff", Role::Text},         // signs on a body
    {"#1d5fbf", Role::Accent},       // direct voltage
    {"#ffe79a", Role::Curve2},       // glass
};

}  // namespace

void GroupPicture::load(const ProgramFolder& folder, const std::string& path) {
  if (path == path_) return;
  path_ = path;
  drawing_.clear();
  const auto found = folder.find(path);
  if (path.empty() || !found) return;
  QFile file(QString::fromStdString(found->string()));
  if (file.open(QIODevice::ReadOnly)) drawing_ = file.readAll();
}

void GroupPicture::paint(QPainter& painter, const QRectF& box, const Appearance& look,
                         bool enabled) const {
  if (isBlank()) return;
  QByteArray drawing = drawing_;
  if (look.theme() == Theme::Dark) {
    for (const Ink& ink : kInks)
      drawing.replace(ink.drawn, look.colour(ink.dark).name().toLatin1());
  }
  QSvgRenderer renderer(drawing);
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  painter.save();
  if (!enabled) painter.setOpacity(kFaint);
  renderer.render(&painter, box);
  painter.restore();
}

}  // namespace vantrel
