#include "screens/options_dialog.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

#include "desktop_bench.h"
#include "screens/about_dialog.h"

namespace vantrel {
namespace {

class OptionsDialogTest : public testing::Test {
 protected:
  void SetUp() override {
    bench_.start();
    options().config_show();
    bench_.pump();
  }

  configure& options() { return bench_.desktop->session().options(); }
  void click(const char* name) {
    bench_.find<QAbstractButton>("configure", name)->click();
    bench_.pump();
  }
  std::string stored(const char* key) { return bench_.settings.get("Configure", key, "none"); }
  bool canApply() {
    return bench_.find<QAbstractButton>("configure", "command_apply")->isEnabled();
  }
  bool isShown() { return bench_.desktop->window("configure")->isVisible(); }

  DesktopBench bench_;
};

TEST_F(OptionsDialogTest, ApplyStoresAndStaysAndCancelDropsTheRest) {
  ASSERT_TRUE(isShown());
  EXPECT_FALSE(canApply());
  click("configure.nosounds");
  click("configure.default_to_e12_series");
  click("theme.Dark");
  EXPECT_TRUE(canApply());
  EXPECT_EQ(stored("nosounds"), "0");
  EXPECT_EQ(bench_.desktop->appearance().theme(), Theme::Light);

  click("command_apply");
  EXPECT_TRUE(isShown());
  EXPECT_FALSE(canApply());
  EXPECT_EQ(stored("nosounds"), "1");
  EXPECT_EQ(stored("default_to_e12_series"), "True");
  EXPECT_EQ(stored("default_to_e24_series"), "False");
  EXPECT_EQ(bench_.desktop->appearance().theme(), Theme::Dark);

  click("configure.nosounds");
  click("theme.Light");
  QTest::keyClick(bench_.desktop->window("configure"), Qt::Key_Escape);
  bench_.pump();
  EXPECT_FALSE(isShown());
  EXPECT_EQ(stored("nosounds"), "1");
  EXPECT_EQ(bench_.desktop->themeChoice(), ThemeChoice::Dark);

  options().config_show();
  bench_.pump();
  EXPECT_TRUE(bench_.find<QAbstractButton>("configure", "configure.nosounds")->isChecked());
  EXPECT_TRUE(bench_.find<QAbstractButton>("configure", "theme.Dark")->isChecked());
  EXPECT_FALSE(canApply());
  click("configure.display_lres");
  click("command_ok");
  EXPECT_FALSE(isShown());
  EXPECT_EQ(stored("display_lres"), "1");
}

TEST_F(OptionsDialogTest, TabsFollowTheModelBothWays) {
  auto* tabs = bench_.find<QTabWidget>("configure", "configure.tabs");
  tabs->setCurrentIndex(1);
  EXPECT_TRUE(options().findFrame("frame_calculation")->visible);
  options().set_display(3);
  EXPECT_EQ(tabs->currentIndex(), 3);
}

TEST_F(OptionsDialogTest, StartUpModeEndsTheRunWhenTheSheetCloses) {
  options().Cancel();
  options().config_show(true);
  bench_.pump();
  bench_.desktop->window("configure")->close();
  bench_.pump();
  EXPECT_FALSE(isShown());
  EXPECT_FALSE(bench_.desktop->session().simple().visible()) << "nothing is left to work with";
}

/// A connection that counts how often it was asked for.
class CountedClient : public TcpClient {
 public:
  explicit CountedClient(int& connects) : connects_(connects) {}
  void Connect(const std::string&, std::uint16_t) override {
    ++connects_;
    open_ = true;
  }
  void SendData(std::string_view) override {}
  std::string GetData() override { return {}; }
  void Close() override { open_ = false; }
  int State() const override { return open_ ? 1 : 0; }

 private:
  int& connects_;
  bool open_ = false;
};

TEST(AboutDialog, AsksTheHostOnlyWhenTheButtonIsPressed) {
  test::TemporaryFolder home;
  const ProgramFolder folder(home.path());
  Appearance look(folder, Theme::Light);
  SysMsg messages;
  MemorySettings settings;
  settings.save(About::kSettingsSection, About::kUpdateHostKey, "updates.example");
  int connects = 0;
  About about({messages, settings, nullptr}, std::make_unique<CountedClient>(connects),
              std::make_unique<ManualTimer>(), "1.2.3");
  AboutDialog dialog(about, look);
  dialog.open();
  EXPECT_EQ(dialog.findChild<QLabel*>("lblVersion")->text(), "Version 1.2.3");
  auto* check = dialog.findChild<QAbstractButton*>("CmdCheckUpdate");
  EXPECT_EQ(check->text(), "Check for updates");
  DesktopBench::pump();
  EXPECT_EQ(connects, 0);

  check->click();
  DesktopBench::pump();
  EXPECT_EQ(connects, 1);
  EXPECT_FALSE(check->isEnabled());
  EXPECT_EQ(check->text(), "Checking ...");
  EXPECT_EQ(dialog.findChild<QLabel*>("status")->text(), "Connecting");

  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
  dialog.open();
  EXPECT_TRUE(check->isEnabled()) << "closing the form has ended the check";
}

}  // namespace
}  // namespace vantrel
