#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "core/number_text.h"
#include "core/units.h"

namespace vantrel {
namespace {

/// Switches to a locale with a decimal comma while it lives.
class CommaLocale {
 public:
  CommaLocale() : before_(std::setlocale(LC_ALL, nullptr)) {
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8", "de_DE"}) {
      if (std::setlocale(LC_ALL, name) == nullptr) continue;
      found_ = *std::localeconv()->decimal_point == ',';
      if (found_) break;
    }
  }
  ~CommaLocale() { std::setlocale(LC_ALL, before_.c_str()); }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  bool found() const { return found_; }

 private:
  std::string before_;
  bool found_ = false;
};

TEST(Locale, ADecimalCommaChangesNothing) {
  const CommaLocale comma;
  if (!comma.found()) GTEST_SKIP() << "no locale with a decimal comma is installed";
  SysMsg messages;
  EXPECT_EQ(general_text(1234567.5), "1234567.5");
  EXPECT_EQ(general_text(0.21F), "0.21");
  EXPECT_EQ(format_mask(1234.5, "#########0.00"), "1234.50");
  EXPECT_EQ(parse_number("1.5"), 1.5);
  EXPECT_FALSE(parse_number("1,5"));
  EXPECT_EQ(Val("1.5 V"), 1.5);
  EXPECT_EQ(Val("1,5 V"), 1);
  EXPECT_EQ(typed_number("1,5k", "Hz"), 1500);
  EXPECT_EQ(typed_number("1.5k", "Hz"), 1500);
  EXPECT_EQ(si_text(45250, "Hz", "0.0", "", messages), "45.3KHz");
}

}  // namespace
}  // namespace vantrel
