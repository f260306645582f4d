#pragma once

#include <QColor>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>

#include "screens/appearance.h"

namespace vantrel {

/// Shape of a tip.
enum class TooltipStyle {
  Standard,  ///< A box.
  Balloon    ///< A box that points at its control.
};

/// Picture in front of a tip's title.
enum class TooltipIcon { None, Information, Warning, Error };

/// The tip of a control: a small window with a picture, a title and a text. It comes up when the
/// pointer rests on the control, and by Shift+F1 when the keyboard is there; leaving the control, a
/// key or a click takes it away.
class CTooltip : public QObject {
 public:
  /// `look` must outlive the tip.
  explicit CTooltip(Appearance& look, QObject* parent = nullptr);
  ~CTooltip() override;

  TooltipStyle Style = TooltipStyle::Balloon;
  /// Below the control in its middle; otherwise below the pointer.
  bool Centre = false;
  TooltipIcon Icon = TooltipIcon::None;
  std::optional<QColor> ForeColor;  ///< That of the theme when it is not set.
  QString Title;
  std::optional<QColor> BackColor;
  /// Empty for the control's own tool tip.
  QString TipText;

  /// Makes the tip of `host`, which then has no other. False when it has nothing to say.
  bool Create(QWidget& host);
  /// Takes the tip away from its control.
  void Destroy();

  /// Shows the tip for a pointer at that place of the screen.
  void showAt(const QPoint& pointer);
  void hide();
  /// The window of the tip while it is on show, nothing otherwise.
  const QWidget* shown() const;
  /// What the tip says now.
  QString words() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Appearance& look_;
  QPointer<QWidget> host_;
  std::unique_ptr<QWidget> window_;
};

/// Attaches tips to the controls of a form: every control of it that has a tool tip shows it in one
/// look. Controls may come and go.
class ToolTipUtility : public QObject {
 public:
  /// `form` owns the object; `look` must outlive it.
  ToolTipUtility(QWidget& form, Appearance& look);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void watch(QWidget& part);

  Appearance& look_;
};

}  // namespace vantrel
