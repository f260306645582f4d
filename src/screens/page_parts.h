#pragma once

#include <QListWidget>
#include <QPushButton>
#include <QString>

namespace vantrel {

/// Room above and below the text of a row in a list, together, in pixels.
inline constexpr int kRowPadding = 8;

/// Least room beside the caption of a button, both sides together, in pixels.
inline constexpr int kCaptionRoom = 24;

/// A button with an object name that Return in another part of its dialog does not press.
inline QPushButton* plain_button(const QString& text, const char* name, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(name);
  button->setAutoDefault(false);
  const QFontMetrics metrics = button->fontMetrics();
  button->setMinimumWidth(metrics.size(Qt::TextShowMnemonic, text).width() + kCaptionRoom);
  return button;
}

/// Adds a row, as wide as its text and with some room around it.
inline void add_row(QListWidget& list, const QString& text) {
  auto* row = new QListWidgetItem(text, &list);
  const QFontMetrics metrics = list.fontMetrics();
  row->setSizeHint({metrics.horizontalAdvance(text) + kRowPadding, metrics.height() + kRowPadding});
}

}  // namespace vantrel
