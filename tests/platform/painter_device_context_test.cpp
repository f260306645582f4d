#include "platform/painter_device_context.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QRect>
#include <functional>
#include <vector>

#include "platform/gui_application.h"

namespace vantrel {
namespace {

constexpr Colour kBlack{};
constexpr Colour kRed{255, 0, 0, 255};

/// A white picture of 100 x 100 with something drawn on it.
QImage drawn(const std::function<void(DeviceContext&)>& draw) {
  QImage image(100, 100, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PainterDeviceContext surface(painter, {100, 100});
  draw(surface);
  painter.end();
  return image;
}

/// The smallest rectangle that holds everything that is not white.
QRect ink(const QImage& image) {
  QRect all;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != QColor(Qt::white).rgb()) all |= QRect(x, y, 1, 1);
    }
  }
  return all;
}

class Painter : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(gui.ensure()); }
  HeadlessGui gui;
};

TEST_F(Painter, FillsShapesInsideTheClip) {
  const QImage image = drawn([](DeviceContext& surface) {
    surface.setNoPen();
    surface.setBrush(kRed);
    surface.save();
    surface.clip({10, 10, 50, 50});
    surface.clip({30, 0, 100, 40});
    surface.rectangle({0, 0, 100, 100});
    surface.restore();
    surface.rectangle({80, 80, 10, 10});
  });
  EXPECT_EQ(image.pixelColor(35, 20), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(25, 20), QColor(Qt::white));  // left of the common part
  EXPECT_EQ(image.pixelColor(35, 50), QColor(Qt::white));  // below it
  EXPECT_EQ(image.pixelColor(85, 85), QColor(255, 0, 0));  // the clip is gone again
}

TEST_F(Painter, FillsOutlinesTogetherByTheirRule) {
  const std::vector<Point> outer{{10, 10}, {90, 10}, {90, 90}, {10, 90}};
  const std::vector<Point> inner{{30, 30}, {70, 30}, {70, 70}, {30, 70}};
  const std::vector<Point> outlines[] = {outer, inner};
  for (const FillRule rule : {FillRule::EvenOdd, FillRule::Winding}) {
    const QImage image = drawn([&](DeviceContext& surface) {
      surface.setNoPen();
      surface.setBrush(kRed);
      surface.setFillRule(rule);
      surface.polyPolygon(outlines);
    });
    EXPECT_EQ(image.pixelColor(20, 20), QColor(255, 0, 0));
    const QColor hole = rule == FillRule::EvenOdd ? QColor(Qt::white) : QColor(255, 0, 0);
    EXPECT_EQ(image.pixelColor(50, 50), hole);
  }
}

TEST_F(Painter, LinesGoOnFromWhereTheLastEnded) {
  const QImage image = drawn([](DeviceContext& surface) {
    surface.setPen({kBlack, 1, {}});
    surface.moveTo({10.5, 10.5});
    surface.lineTo({50.5, 10.5});
    surface.lineTo({50.5, 60.5});
  });
  EXPECT_EQ(image.pixelColor(30, 10), QColor(Qt::black));
  EXPECT_EQ(image.pixelColor(50, 40), QColor(Qt::black));
  EXPECT_EQ(ink(image), QRect(QPoint(10, 10), QPoint(50, 60)));
}

TEST_F(Painter, DashesAreInPixelsWhateverThePenWidth) {
  const QImage image = drawn([](DeviceContext& surface) {
    surface.setPen({kBlack, 2, {12, 6}});
    surface.moveTo({0, 50});
    surface.lineTo({100, 50});
  });
  EXPECT_EQ(image.pixelColor(6, 50), QColor(Qt::black));
  EXPECT_EQ(image.pixelColor(15, 50), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(24, 50), QColor(Qt::black));
}

TEST_F(Painter, TextStandsWhereItIsAlignedTo) {
  struct Case {
    TextAlign align;
    double angle;
    QRect inside;  // of the position 50, 50
  };
  const QRect above(QPoint(0, 0), QPoint(99, 50));
  for (const Case& each : std::initializer_list<Case>{
           {{HorizontalAlign::Left, VerticalAlign::Top}, 0, QRect(QPoint(49, 50), QPoint(99, 99))},
           {{HorizontalAlign::Right, VerticalAlign::Top}, 0, QRect(QPoint(0, 50), QPoint(50, 99))},
           {{HorizontalAlign::Left, VerticalAlign::Baseline}, 0, above},
           {{HorizontalAlign::Left, VerticalAlign::Bottom}, 0, above},
           {{HorizontalAlign::Left, VerticalAlign::Top},
            90,
            QRect(QPoint(50, 0), QPoint(99, 50))}}) {
    Size extent;
    const QRect marks = ink(drawn([&](DeviceContext& surface) {
      surface.setFont({.face = "Arial", .size = 12, .angle = each.angle});
      surface.setTextColour(kBlack);
      surface.setTextAlign(each.align);
      extent = surface.textExtent("HEM");
      surface.text({50, 50}, "HEM");
    }));
    ASSERT_FALSE(marks.isEmpty());
    EXPECT_TRUE(each.inside.contains(marks)) << marks.left() << " " << marks.top();
    const int length = each.angle == 0 ? marks.width() : marks.height();
    EXPECT_NEAR(length, extent.width, 4);
    EXPECT_GT(extent.height, 12);
  }
}

}  // namespace
}  // namespace vantrel
