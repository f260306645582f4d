#include "screens/appearance.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>
#include <optional>

#include "selection/picture_list.h"

namespace vantrel {

namespace {

/// The drawing with the colour that its lines take.
QByteArray with_colour(QByteArray drawing, const QColor& colour) {
  return drawing.replace("currentColor", colour.name().toLatin1());
}

void render(QPainter& painter, const QByteArray& drawing, const QColor& colour, const QRectF& box) {
  QSvgRenderer renderer(with_colour(drawing, colour));
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  renderer.render(&painter, box);
}

/// Draws a picture in the colour that the theme gives it at that moment.
class TintedIcon : public QIconEngine {
 public:
  TintedIcon(const Appearance& look, QByteArray drawing, Role role)
      : look_(look), drawing_(std::move(drawing)), role_(role) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const Role role = mode == QIcon::Disabled ? Role::DisabledIcon : role_;
    render(*painter, drawing_, look_.colour(role), rect);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }
  QIconEngine* clone() const override { return new TintedIcon(*this); }

 private:
  const Appearance& look_;
  QByteArray drawing_;
  Role role_;
};

QByteArray file_bytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray own_drawing(std::string_view name) {
  return file_bytes(":/icons/" + to_qstring(name) + ".svg");
}

}  // namespace

QColor to_qcolor(Colour colour) {
  return QColor(colour.red, colour.green, colour.blue, colour.alpha);
}

Appearance::Appearance(const ProgramFolder& folder, Theme theme) : folder_(folder), theme_(theme) {}

void Appearance::theme(Theme theme) {
  if (theme == theme_) return;
  theme_ = theme;
  changed.raise();
}

QPalette Appearance::palette() const {
  struct Entry {
    QPalette::ColorRole target;
    Role role;
  };
  constexpr Entry kEntries[] = {
      {QPalette::Window, Role::Window},
      {QPalette::WindowText, Role::Text},
      {QPalette::Base, Role::Input},
      {QPalette::AlternateBase, Role::Locked},
      {QPalette::ToolTipBase, Role::Panel},
      {QPalette::ToolTipText, Role::Text},
      {QPalette::PlaceholderText, Role::Muted},
      {QPalette::Text, Role::Text},
      {QPalette::Button, Role::Panel},
      {QPalette::ButtonText, Role::Text},
      {QPalette::BrightText, Role::Error},
      {QPalette::Highlight, Role::Accent},
      {QPalette::HighlightedText, Role::OnAccent},
      {QPalette::Link, Role::Accent},
      {QPalette::LinkVisited, Role::Accent},
  };
  QPalette palette(colour(Role::Panel), colour(Role::Window));
  for (const Entry& entry : kEntries) palette.setColor(entry.target, colour(entry.role));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, colour(Role::Disabled));
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, colour(Role::PanelBorder));
  return palette;
}

QIcon Appearance::tinted(const QByteArray& drawing, Role role) const {
  return drawing.isEmpty() ? QIcon() : QIcon(new TintedIcon(*this, drawing, role));
}

QIcon Appearance::icon(std::string_view name, Role role) const {
  return tinted(own_drawing(name), role);
}

QIcon Appearance::barIcon(std::string_view key) const {
  const auto path = [this, key]() -> std::optional<std::filesystem::path> {
    const std::string drawing = bar_drawing_path(key);
    return drawing.empty() ? std::nullopt : folder_.find(drawing);
  }();
  if (path) return tinted(file_bytes(QString::fromStdString(path->string())), Role::Text);
  const auto picture = folder_.find(bar_picture_path(key, true));
  return picture ? QIcon(QString::fromStdString(picture->string())) : QIcon();
}

QPixmap Appearance::pixmap(std::string_view name, Role role, int points, qreal pixel_ratio) const {
  const int pixels = qRound(points * pixel_ratio);
  QPixmap picture(pixels, pixels);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  const QByteArray drawing = own_drawing(name);
  if (!drawing.isEmpty()) render(painter, drawing, colour(role), QRectF(0, 0, pixels, pixels));
  picture.setDevicePixelRatio(pixel_ratio);
  return picture;
}

}  // namespace vantrel
