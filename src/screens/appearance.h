#pragma once

#include <QByteArray>
#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>
#include <string_view>

#include "core/program_folder.h"
#include "core/signal.h"
#include "core/theme.h"

namespace vantrel {

QColor to_qcolor(Colour colour);
inline QString to_qstring(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The look of the windows: one of the two screen themes, its palette, and pictures in its colours.
/// Every window reads its colours here, so that a change of theme reaches all of them at once.
class Appearance {
 public:
  /// `folder` holds the drawings of the bars; it must outlive the object.
  Appearance(const ProgramFolder& folder, Theme theme);

  Theme theme() const { return theme_; }
  /// Changes the theme and raises `changed`; icons that were handed out follow by themselves.
  void theme(Theme theme);

  QColor colour(Role role) const { return to_qcolor(theme_colour(role, theme_)); }
  QPalette palette() const;

  /// One of the windows' own pictures by its name ("lock", "warning"), sharp at any size, in the
  /// colour of a role; a disabled one is greyed. A blank icon for an unknown name.
  QIcon icon(std::string_view name, Role role = Role::Text) const;
  /// The picture of a bar's command by its picture key; a blank icon for an unknown key.
  QIcon barIcon(std::string_view key) const;
  /// A picture as it is drawn on a widget, `points` wide and high.
  QPixmap pixmap(std::string_view name, Role role, int points, qreal pixel_ratio) const;

  Signal<> changed;

 private:
  QIcon tinted(const QByteArray& drawing, Role role) const;

  const ProgramFolder& folder_;
  Theme theme_;
};

}  // namespace vantrel
