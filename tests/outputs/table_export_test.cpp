#include "outputs/table_export.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "core/save_dialog.h"
#include "outputs/outputs_fixture.h"

namespace vantrel {
namespace {

using test::contents;
using test::texts;

using Texts = std::vector<std::string>;

TEST(TableGrid, ReadsColumnsFromAFormat) {
  const std::vector<TableColumn> columns = table_columns("<Left  |^ Middle |>R|Plain||<");
  Texts read;
  for (const TableColumn& column : columns) {
    read.push_back(column.title + "," + "LCR"[static_cast<int>(column.alignment)] + "," +
                   std::to_string(column.width));
  }
  EXPECT_EQ(read, (Texts{"Left,L,6", "Middle,C,8", "R,R,1", "Plain,L,5", ",L,0", ",L,0"}));
}

TEST(TableExport, QuotesWhatWouldBreakARow) {
  struct Case {
    Texts cells;
    std::string csv;
    std::string text;
  };
  const std::vector<Case> cases = {
      {{"2", "4.7nF", "C1"}, "2,4.7nF,C1", "2 4.7nF C1"},
      {{"4.7 nF", "C1,C2"}, "4.7 nF,\"C1,C2\"", "\"4.7 nF\" C1,C2"},
      {{"", "", ""}, ",,", "  "},
      {{"say \"on\"", "\""}, "\"say \"\"on\"\"\",\"\"\"\"", "\"say \"\"on\"\"\" \"\"\"\""},
      {{"a\nb", "a\rb"}, "\"a\nb\",\"a\rb\"", "\"a\nb\" \"a\rb\""},
      {{"a\tb;c"}, "a\tb;c", "a\tb;c"},
      {{}, "", ""},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(table_row_text(test.cells, TableFileType::Csv), test.csv + "\r\n");
    EXPECT_EQ(table_row_text(test.cells, TableFileType::Text), test.text + "\r\n");
  }
}

struct TableExportTest : ::testing::Test {
  SysMsg messages;
  test::TemporaryFolder home;
  ProgramFolder folder{home.path()};
  test::AnsweredSave dialog;
  TableGrid grid{table_columns("<Name   |<Two Words"), {{"a", "1,5"}, {"b c", "2"}}};

  std::string path(const char* name) const { return (home.path() / name).string(); }
  Texts takeMessages() {
    Texts result = texts(messages);
    messages.clear();
    return result;
  }
};

TEST_F(TableExportTest, WritesInTheFormOfTheExtension) {
  TableExport exporter(messages, &dialog, folder);
  const std::string csv = "Name,Two Words\r\na,\"1,5\"\r\nb c,2\r\n";
  const std::string text = "Name \"Two Words\"\r\na 1,5\r\n\"b c\" 2\r\n";
  for (const auto& [name, expected] : std::vector<std::pair<const char*, std::string>>{
           {"list.csv", csv}, {"list.txt", text}, {"list.TXT", text}, {"txt", csv}}) {
    dialog.answer = path(name);
    EXPECT_TRUE(exporter.exportGrid("Screen", grid, "list.csv"));
    EXPECT_EQ(contents(path(name)), expected) << name;
    EXPECT_EQ(takeMessages(), Texts{"File '" + std::string(name) + "' Exported OK"});
  }
  EXPECT_EQ(dialog.asked, (Texts{"Export Table", "CSV files (*.csv)|*.csv|Text files (*.txt)|*.txt",
                                 path("Export/list.csv")}));
}

TEST_F(TableExportTest, AProposedNameIsThatOfOneFile) {
  const std::string lamp = std::string(110, 'x') + "\u03a9\u03a9\u03a9\u03a9";
  for (const auto& [name, proposed] : std::vector<std::pair<std::string, std::string>>{
           {"Voltage-mode, 90 to 265VAC/500VDC.pdf", "Voltage-mode, 90 to 265VAC-500VDC.pdf"},
           {"..\\a:b\n<c>.pdf", "..-a-b--c-.pdf"},
           {lamp + lamp + ".pdf", std::string(110, 'x') + "\u03a9\u03a9\u03a9.pdf"}}) {
    EXPECT_EQ(select_savefile(&dialog, folder, "Title", name), "");
    EXPECT_EQ(dialog.asked.back(), path(("Export/" + proposed).c_str()));
    EXPECT_TRUE(std::filesystem::is_empty(home.path()));
  }
}

TEST_F(TableExportTest, NoNameEndsItWithoutAWord) {
  TableExport exporter(messages, &dialog, folder);
  EXPECT_FALSE(exporter.exportGrid("Screen", grid, "list.csv"));
  dialog.answer = "";
  EXPECT_FALSE(exporter.exportGrid("Screen", grid, "list.csv"));
  TableExport without_windows(messages, nullptr, folder);
  EXPECT_FALSE(without_windows.exportGrid("Screen", grid, "list.csv"));
  EXPECT_TRUE(takeMessages().empty());
  EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

TEST_F(TableExportTest, AFailureSaysWhyOnceAndKeepsTheOlderFile) {
  home.write("list.csv", "older");
  FileCalls full = system_file_calls();
  full.write = [](int, const void*, std::size_t) -> ssize_t {
    errno = ENOSPC;
    return -1;
  };
  TableExport exporter(messages, &dialog, folder, full);
  EXPECT_FALSE(exporter.exportGridTo("Screen", grid, path("list.csv")));
  EXPECT_EQ(takeMessages(), Texts{"Could not export file 'list.csv' (No space left on device)"});
  EXPECT_EQ(contents(path("list.csv")), "older");

  TableExport sound(messages, &dialog, folder);
  EXPECT_FALSE(sound.exportGridTo("Screen", grid, path("missing/list.csv")));
  EXPECT_EQ(takeMessages(), Texts{"Could not export file 'list.csv' (No such file or directory)"});
}

}  // namespace
}  // namespace vantrel
