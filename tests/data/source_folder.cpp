#include "source_folder.h"

#include <gtest/gtest.h>

#include <fstream>

#include "database_builder/build.h"

namespace vantrel::builder {

namespace {

const std::map<std::string, std::string> kFiles{
    {"groups.csv", R"(ID,Group Type,Group Title,sequence,Include,Group Picture,SelectionAllowed
51,IC,Half-Bridge,1,Yes,,
31,INPUT,Line,1,Yes,,!IC#TV6108
38,INPUT,Mains,2,Yes,,IC#TV6108
1,LAMP,T5,1,Yes,,
9,LAMP,User,2,Yes,,
71,CONFIG,Lamps,1,Yes,,"!IC#TV6108,!LAMP#F14"
75,CONFIG,Transformer,2,Yes,,IC#TV6108
)"},
    {"DATA_IC.csv",
     R"(RecordType,ID,Group,Name,Include,UserData,Allow Input,Ballast Run Frequency (kHz)
0,-1,,,,,allow_input,ballast_run_frequency
2,0,51,TV6101,Yes,No,yes,40
2,1,51,TV6103,Yes,No,yes,40
2,2,51,TV6102,Yes,No,yes,40
2,3,51,TV6104,Yes,No,yes,40
2,4,51,TV6105,Yes,No,yes,40
2,5,51,TV6106,Yes,No,yes,43
2,6,51,TV6108,Yes,No,yes,40
2,7,51,TV6109,Yes,No,yes,40
2,8,51,TV6110,Yes,No,yes,40
2,9,51,TV6107,Yes,No,yes,43
)"},
    {"DATA_INPUT.csv",
     R"(RecordType,ID,Group,Name,PullDownName,Include,UserData,Min Input (VAC),Running Bus (VDC)
0,-1,,,,,,min_input_voltage,"running_dc_bus_voltage, max_dc_bus_voltage *"
2,1,31,90 to 265VAC/500VDC,90-265/500,Yes,No,90,"$500,400 if target is ""tv6104"", 4E2 IF Config is "" DLSCM """
2,2,38,230VAC,,Yes,No,207,
)"},
    {"DATA_LAMP.csv",
     R"(RecordType,ID,Group,Name,PullDownName,Include,UserData,Max (%),Pmax% (W),Min (%),Pmin% (W),Compact Yes/No
0,-1,,,,,,max,pmax,min,#PMin,lamp_description
2,1,1,T5 28W,T5 28W,Yes,No,100,28,10,2.8,Linear
2,2,1,T5 14W,F14,Yes,No,100,13.7,10,1.37,Linear
)"},
    {"DATA_CONFIG.csv", R"(RecordType,ID,Group,Name,PullDownName,Include,UserData
0,-1,,,,,
2,0,71,Single lamp/current-mode heating,,Yes,No
2,1,71,SLVM,,Yes,No
2,2,71,DLSCM,,Yes,No
2,3,71,DLSVM,,Yes,No
2,4,71,DLPCM,,Yes,No
2,5,71,DLPVM,,Yes,No
2,6,71,DLPVMB,,Yes,No
2,7,75,ET,,Yes,No
)"},
    {"Target_Info.csv", R"(TargetNo,target,BOMTable
0,TV6101,TV6101 BOM
1,TV6103,TV6103 BOM
2,TV6102,TV6102 BOM
3,TV6104,TV6104 BOM
4,TV6105,TV6105 BOM
5,TV6106,TV6106 BOM
6,TV6108,TV6108 BOM
7,TV6109,TV6109 BOM
8,TV6110,TV6110 BOM
9,TV6107,TV6107 BOM
)"},
    {"INDUCTOR_Core_Types.csv", "Core Size,Le Value,UserData\nEF25,57.5,No\n"},
    {"web.csv", "manufacturer,homepage\n\"Cores, \"\"large\"\" and small\",\n"},
    {"LoadInputs.csv", "LoadID\n"},
    {"ComponentDescriptions.csv", "RefDes\n"},
    {"CC_SourceVariables.csv", "Variable\n"},
    {"CC_Calculations.csv", "Calculate,Multiple\n"},
};

}  // namespace

SourceFolder::SourceFolder() : files_(kFiles) {
  for (const char* number : {"01", "02", "03", "04", "05", "06", "07", "08", "09", "10"}) {
    files_["TV61" + std::string(number) + "_BOM.csv"] = "Stage,RefDes\n";
  }
  for (const char* curve : {"Block_Current", "Choke_Power", "Scale_Unity", "Snub_Bus"}) {
    files_["Lookup_" + std::string(curve) + ".csv"] = "Index,value\n";
  }
  // Every test runs in a process of its own, and all of them at once.
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  path_ = std::filesystem::path(testing::TempDir()) /
          ("vantrel-" + std::string(test.test_suite_name()) + "-" + test.name());
  std::filesystem::remove_all(path_);
  std::filesystem::create_directories(path_);
}

SourceFolder::~SourceFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

bool SourceFolder::replace(const std::string& name, const std::string& from,
                           const std::string& to) {
  std::string& text = file(name);
  const std::size_t place = text.find(from);
  if (place == std::string::npos || text.find(from, place + 1) != std::string::npos) return false;
  text.replace(place, from.size(), to);
  return true;
}

Problems SourceFolder::build() {
  const std::filesystem::path data = path_ / "data";
  std::filesystem::remove_all(data);
  std::filesystem::create_directories(data);
  for (const auto& [name, text] : files_) std::ofstream(data / name, std::ios::binary) << text;
  const std::filesystem::path schema = std::filesystem::path(VANTREL_DATA) / "schema.sql";
  return build_database({schema, data, database()}, program_vocabulary());
}

std::vector<std::string> SourceFolder::problems() {
  std::vector<std::string> texts;
  const Problems found = build();
  for (Problem problem : found.list()) {
    problem.file = problem.file.filename();
    texts.push_back(to_string(problem));
  }
  return texts;
}

}  // namespace vantrel::builder
