#include "database_builder/csv_reader.h"

#include <gtest/gtest.h>

namespace vantrel::builder {
namespace {

using Cells = std::vector<std::vector<std::string>>;

Cells cells(const CsvDocument& document) {
  Cells result;
  for (const CsvRecord& record : document.records) result.push_back(record.cells);
  return result;
}

TEST(CsvReader, ReadsCellsAndLineEnds) {
  const struct {
    const char* text;
    Cells expected;
  } cases[] = {
      {"", {}},
      {"a,b\n1,2\n", {{"a", "b"}, {"1", "2"}}},
      {"a,b\r\n1,2\r\n", {{"a", "b"}, {"1", "2"}}},
      {"a,b\n1,2", {{"a", "b"}, {"1", "2"}}},
      {"a,,\n", {{"a", "", ""}}},
      {" a , b\n", {{" a ", " b"}}},
      {"\"a,b\",c\n", {{"a,b", "c"}}},
      {"\"say \"\"yes\"\"\",\"\"\n", {{"say \"yes\"", ""}}},
      {"\"two\nlines\",x\r\n", {{"two\nlines", "x"}}},
      {"a\rb\n", {{"a\rb"}}},
  };
  for (const auto& test : cases) {
    const CsvDocument document = read_csv(test.text);
    EXPECT_EQ(cells(document), test.expected) << test.text;
    EXPECT_TRUE(document.faults.empty()) << test.text;
  }
}

TEST(CsvReader, CountsLinesThroughQuotedLineBreaks) {
  const CsvDocument document = read_csv("a\n\"1\n2\r\n3\"\n4\n");
  ASSERT_EQ(document.records.size(), 3U);
  EXPECT_EQ(document.records[1].line, 2);
  EXPECT_EQ(document.records[1].cells[0], "1\n2\r\n3");
  EXPECT_EQ(document.records[2].line, 5);
}

TEST(CsvReader, NamesTheLineOfAFaultAndReadsOn) {
  const struct {
    const char* text;
    int line;
    const char* fault;
    std::size_t records;
  } cases[] = {
      {"a\nb\"c\nd\n", 2, "a quote inside a cell without quotes", 3},
      {"a\n\"b\"c,d\ne\n", 2, "text behind the closing quote", 3},
      {"a\nb\n\"c,d\ne\n", 3, "a quote that is never closed", 3},
  };
  for (const auto& test : cases) {
    const CsvDocument document = read_csv(test.text);
    ASSERT_EQ(document.faults.size(), 1U) << test.text;
    EXPECT_EQ(document.faults[0].line, test.line) << test.text;
    EXPECT_EQ(document.faults[0].text, test.fault);
    EXPECT_EQ(document.records.size(), test.records) << test.text;
  }
}

}  // namespace
}  // namespace vantrel::builder
