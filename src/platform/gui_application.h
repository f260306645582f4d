#pragma once

#include <memory>

class QGuiApplication;

namespace vantrel {

/// The toolkit's application object for programs without windows, which drawing text needs. It is
/// made when it is first asked for, on the thread that asks, and never touches a display. Where the
/// program has an application object already, nothing is made.
class HeadlessGui {
 public:
  HeadlessGui();
  ~HeadlessGui();
  HeadlessGui(const HeadlessGui&) = delete;
  HeadlessGui& operator=(const HeadlessGui&) = delete;

  /// True when text can be drawn; false when the program has an application object that cannot.
  bool ensure();

 private:
  std::unique_ptr<QGuiApplication> application_;
};

}  // namespace vantrel
