#include "app/design_report.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "app/automation.h"
#include "session_bench.h"

namespace vantrel {
namespace {

namespace fs = std::filesystem;

std::string content(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// A design folder with pictures, and reports written into it by the command line.
class ReportBench : public SessionBench {
 public:
  ReportBench() {
    fs::create_directory_symlink(
        fs::path(VANTREL_DATABASE).parent_path().parent_path() / "graphics",
        home.path() / "graphics");
  }
  fs::path file(const std::string& name) const { return home.path() / name; }

  int design(const std::string& arguments, const std::string& environment = "") const {
    const std::string command =
        environment + " " + VANTREL_CLI + " --home '" + home.path().string() + "' --settings '" +
        file("settings.ini").string() + "' design " + arguments + " >/dev/null 2>&1";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
};

/// The texts of a PDF in the order of reading; nothing where no tool for it is installed.
std::optional<std::string> pdf_text(const fs::path& file) {
  if (std::system("pdftotext -v >/dev/null 2>&1") != 0) return std::nullopt;
  const fs::path text = file.string() + ".txt";
  if (std::system(("pdftotext '" + file.string() + "' '" + text.string() + "'").c_str()) != 0) {
    return std::nullopt;
  }
  return content(text);
}

TEST(DesignReportTest, GivesTheSameBytesAtAnyTimeAndUnderAnyLocale) {
  const ReportBench bench;
  const auto write = [&](const std::string& name, const std::string& environment) {
    return bench.design("--date 2026-01-31 --report '" + bench.file(name + ".pdf").string() +
                            "' --report '" + bench.file(name + ".html").string() + "'",
                        environment);
  };
  ASSERT_EQ(write("one", "LC_ALL=C"), 0);
  ASSERT_EQ(std::system("sleep 1.1"), 0);  // the clock of a PDF counts seconds
  ASSERT_EQ(write("two", "LC_ALL=de_DE.UTF-8"), 0);
  for (const char* form : {".pdf", ".html"}) {
    EXPECT_GT(content(bench.file(std::string("one") + form)).size(), 50000u) << form;
    EXPECT_TRUE(content(bench.file(std::string("one") + form)) ==
                content(bench.file(std::string("two") + form)))
        << form;
  }
}

TEST(DesignReportTest, HasEveryComponentAndEverySection) {
  struct Case {
    const char* selection;
    std::vector<const char*> expected;
  };
  const std::vector<Case> cases{
      {"",
       {"TV6103", "90 to 265VAC/500VDC", "T5 28W", "Single lamp/current-mode heating", "2026-01-31",
        "250 of 340 Vpk", "Gain Graph", "ignites", "Rule 1 for RCS", "EFD25", "SHA-256"}},
      {"--ic TV6108 --lamp 'Halogen 12V 50W'",
       {"Halogen 12V 50W", "no gain graph", "EF12.6", "40 mA"}},
      {"--ic TV6104 --config 6",
       {"balance transformer", "LRES", "LPFC", "Ignition", "Balance transformer: windings"}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.selection);
    const ReportBench bench;
    const fs::path pdf = bench.file("r.pdf");
    const fs::path html = bench.file("r.html");
    ASSERT_EQ(bench.design(std::string(each.selection) + " --paper Letter --date 2026-01-31" +
                           " --out '" + bench.file("out").string() + "' --report '" + pdf.string() +
                           "' --report '" + html.string() + "'"),
              0);
    const auto text = pdf_text(pdf);
    const std::string page = content(html);
    const Json design = Json::parse(content(bench.file("out") / "design.json"));
    std::vector<std::string> expected(each.expected.begin(), each.expected.end());
    for (const Json& line : design.at("bom")) {
      std::istringstream references(line.at("reference").get<std::string>());
      for (std::string one; std::getline(references, one, ',');) expected.push_back(one);
    }
    EXPECT_GT(expected.size(), 40u);
    for (const std::string& word : expected) {
      EXPECT_NE(page.find(word), std::string::npos) << word;
      EXPECT_TRUE(!text || text->find(word) != std::string::npos) << word << " in the PDF";
    }
  }
}

/// All texts of a report, one a line; cells of a row joined by "|".
std::string plain(const ReportDocument& report) {
  std::string text = report.title + "\n" + report.subtitle + "\n" + report.date + "\n";
  for (const ReportSection& section : report.sections) {
    text += "# " + section.title + "\n";
    for (const ReportBlock& block : section.blocks) {
      if (const auto* paragraph = std::get_if<ReportParagraph>(&block)) {
        text += (paragraph->tone == ReportTone::Warning ? "! " : "") + paragraph->text + "\n";
      } else if (const auto* table = std::get_if<ReportTable>(&block)) {
        for (const TableRow& row : table->grid.rows) {
          for (const std::string& cell : row) text += cell + "|";
          text += "\n";
        }
      }
    }
  }
  return text;
}

TEST(DesignReportTest, SaysWhatIsMissingStaleOrFailed) {
  ReportBench bench;
  Session& session = bench.start();
  DesignStatus status(session);
  const auto now = [&] { return plain(design_report(session, status, "")); };
  const auto expect = [&](std::initializer_list<const char*> texts) {
    const std::string report = now();
    for (const char* text : texts) {
      EXPECT_NE(report.find(text), std::string::npos) << text << "\n" << report;
    }
  };
  expect({"! Nothing has been calculated for this selection",
          "Maximum Preheat Voltage|Preheat|340|Vpk|default|", "There are no operating points.",
          "There is no gain graph", "There are no waveforms", "No components have been calculated",
          "No magnetic part", "The circuit diagram needs calculated components"});

  session.advanced().field("max_preheat_voltage").value(300.0);
  ASSERT_TRUE(session.simple().calculate_simple(true, true, true, true));
  status.inputChanged();
  const std::size_t messages = session.messages().shown().size();
  expect({"! Inputs have changed since calculation #1",
          "Maximum Preheat Voltage|Preheat|300|Vpk|changed, default 340 Vpk|"});
  EXPECT_EQ(session.messages().shown().size(), messages);

  session.advanced().field("running_dc_bus_voltage").value(20.0);
  EXPECT_FALSE(session.simple().calculate_simple(true, true, true, true));
  expect({"! The last calculation ended early", "No solution found",
          "Running DC Bus Voltage|DC Bus Voltage|20|VDC|changed, default 500 VDC|"});
}

TEST(DesignReportTest, EscapesTheUsersNames) {
  ReportBench bench;
  Session& session = bench.start();
  const std::string name = "<b>&\"";
  enter_lamp(session, name);
  Automation automation(session);
  const auto reply = [&](const Json& command) { return automation.run(command); };
  ASSERT_TRUE(reply({{"op", "select"}, {"slot", "LAMP"}, {"name", name}}).value("ok", false));
  ASSERT_TRUE(reply({{"op", "calculate"}, {"what", "simple"}}).value("result", false));
  const fs::path file = bench.file("lamp.html");
  const Json report{
      {"op", "export"}, {"what", "report"}, {"path", file.string()}, {"date", "2026-01-31"}};
  EXPECT_TRUE(reply(report).value("result", false));
  const std::string html = content(file);
  EXPECT_NE(html.find("&lt;b&gt;&amp;&quot;"), std::string::npos);
  EXPECT_EQ(html.find(name), std::string::npos);

  // What cannot be written leaves the older report as it was.
  for (const auto& [key, value] :
       std::initializer_list<std::pair<const char*, const char*>>{{"date", "2026-02-30"},
                                                                  {"paper", "A0"},
                                                                  {"path", "report.txt"},
                                                                  {"path", "/none/r.pdf"}}) {
    Json wrong = report;
    wrong[key] = value;
    EXPECT_FALSE(reply(wrong).value("ok", true)) << key << value;
  }
  EXPECT_TRUE(content(file) == html);
}

}  // namespace
}  // namespace vantrel
