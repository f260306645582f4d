#pragma once

#include <QAbstractButton>
#include <QIcon>
#include <array>
#include <cstddef>
#include <vector>

#include "screens/appearance.h"

namespace vantrel {

/// What an XButton is at the moment; each state has an image.
enum class XButtonState { Enabled, Over, Clicked, Disabled };

/// How an XButton is painted.
enum class XButtonStyle {
  Graphic,  ///< The image of the state, flat.
  Normal    ///< A bordered button with its caption.
};

/// The border of an XButton in the normal style.
enum class XButtonBorder {
  None,     ///< The caption alone.
  Line,     ///< A line of the border's width.
  Platform  ///< As the platform draws its buttons.
};

/// The flat button of the windows, with a picture for each of its states. Space and Return press
/// it. Kinds of buttons that paint themselves override `DrawXButton`.
class XButton : public QAbstractButton {
  Q_OBJECT

 public:
  /// `look` must outlive the button.
  explicit XButton(Appearance& look, QWidget* parent = nullptr);

  /// The pictures that the states choose from, by their place in the list.
  const std::vector<QIcon>& ImageList() const { return images_; }
  void ImageList(std::vector<QIcon> images);
  // Places in the list. A state without an image of its own (-1) shows that of the enabled one,
  // and so does one whose place the list does not have.
  int ImageEnabled() const { return imageOf(XButtonState::Enabled); }
  void ImageEnabled(int place) { imageOf(XButtonState::Enabled, place); }
  int ImageOver() const { return imageOf(XButtonState::Over); }
  void ImageOver(int place) { imageOf(XButtonState::Over, place); }
  int ImageClicked() const { return imageOf(XButtonState::Clicked); }
  void ImageClicked(int place) { imageOf(XButtonState::Clicked, place); }
  int ImageDisabled() const { return imageOf(XButtonState::Disabled); }
  void ImageDisabled(int place) { imageOf(XButtonState::Disabled, place); }
  XButtonBorder BorderStyle() const { return border_style_; }
  void BorderStyle(XButtonBorder style);
  /// Width of the line in pixels.
  int BorderWidth() const { return border_width_; }
  void BorderWidth(int pixels);
  bool FontBold() const { return font().bold(); }
  void FontBold(bool bold);
  /// Size of the caption in points.
  qreal FontSize() const { return font().pointSizeF(); }
  void FontSize(qreal points);
  XButtonStyle Style() const { return style_; }
  void Style(XButtonStyle style);
  /// The words of the button, also for those who hear them; the graphic style does not paint them.
  QString Caption() const { return text(); }
  void Caption(const QString& caption) { setText(caption); }
  bool Enabled() const { return isEnabled(); }
  void Enabled(bool enabled) { setEnabled(enabled); }
  /// The system's window that the button lies in, 0 before there is one.
  WId hwnd() const { return effectiveWinId(); }

  XButtonState state() const;
  /// The pointer moves over the button; the first time it becomes Over and waits for the news that
  /// the pointer has left.
  void EventMouseMoved();
  /// The pointer has left the button or its window.
  void EventMouseLeft();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  /// Takes the image of the present state.
  void SetXButtonImage();
  /// Paints the button by its style.
  virtual void DrawXButton(QPainter& painter);
  void DrawXButtonGraphic(QPainter& painter);
  void DrawXButtonNormal(QPainter& painter);

  bool event(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

  Appearance& look_;

 private:
  static constexpr std::size_t kStates = 4;

  int imageOf(XButtonState state) const { return places_[static_cast<std::size_t>(state)]; }
  void imageOf(XButtonState state, int place);

  std::vector<QIcon> images_;
  std::array<int, kStates> places_{-1, -1, -1, -1};
  XButtonStyle style_ = XButtonStyle::Normal;
  XButtonBorder border_style_ = XButtonBorder::Platform;
  int border_width_ = 1;
  bool over_ = false;
};

}  // namespace vantrel
