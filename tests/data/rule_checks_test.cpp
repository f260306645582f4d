#include <gtest/gtest.h>

#include "source_folder.h"

namespace vantrel::builder {
namespace {

using Texts = std::vector<std::string>;

/// The smallest sources with a design in them: one IC with an oscillator on two inputs, and one
/// with a bus divider of its own.
class RuleChecks : public testing::Test {
 protected:
  RuleChecks() { fill(folder_); }

  static void fill(SourceFolder& folder) {
    folder.add("DATA_INPUT.csv",
               "RecordType,ID,Group,Name,Include,UserData,Running Bus (VDC),Schematic\n"
               "0,-1,,,,,running_dc_bus_voltage,line_input_schematic\n"
               "2,1,31,90 to 265VAC/500VDC,Yes,No,500,ActivePFC2C\n"
               "2,3,31,310VDC,Yes,No,310,\"$DC,DCPFC if target is \"\"TV6104\"\"\"\n"
               "2,2,38,230VAC,Yes,No,,ACMains\n");
    folder.add("Target_Info.csv",
               "TargetNo,target,BOMTable,Input,IC,Config\n"
               "0,TV6101,TV6101 BOM,INPUT:,IC:/PART:,CONFIG:\n"
               "1,TV6103,TV6103 BOM,,,\n"
               "2,TV6102,TV6102 BOM,,,\n"
               "3,TV6104,TV6104 BOM,,IC:,\n"
               "4,TV6105,TV6105 BOM,,,\n"
               "5,TV6106,TV6106 BOM,,,\n"
               "6,TV6108,TV6108 BOM,,,\n"
               "7,TV6109,TV6109 BOM,,,\n"
               "8,TV6110,TV6110 BOM,,,\n"
               "9,TV6107,TV6107 BOM,,,\n");
    folder.add("TV6101_BOM.csv",
               "Stage,RefDes,value,ValueUnit,Fixed,CCOutput,CCOutputDependancy,Disallow,"
               "RemoveIfNoMatch,GeneratorCode\n"
               "INPUT:ActivePFC2C,F1,Slow,,Yes,No,No,,No,\n"
               "IC:TV6101,CT,470,pF/F,Yes,Yes,No,,No,\n"
               "PART:TV6101,RT,,Ohm,No,Yes,No,INPUT:dc,No,\n"
               "\"CONFIG:SLVM,CONFIG:DLSVM\",\"CH1,CH2\",,F,No,No,No,,No,\n"
               "INPUT:DC,RD,,,No,No,No,,Yes,"
               "\"r = #(\"\"Advanced\"\",\"\"running_dc_bus_voltage\"\");$\"\"Rating\"\",r\"\n");
    folder.add("TV6104_BOM.csv", "Stage,RefDes,ValueUnit\nIC:TV6104,RVDC,Ohm\n");
    folder.add("ComponentDescriptions.csv",
               "RefDes,description,MNR,OverrideSeries\nF1,Fuse,No,\nCT,Capacitor,No,\n"
               "RT,Resistor,Yes,E24\nCH1,Capacitor,No,\nCH2,Capacitor,No,\nRD,Resistor,Yes,\n"
               "RVDC,Resistor,Yes,e12\n");
    folder.add("CC_SourceVariables.csv",
               "Variable,Source,Value,SourceUnits,ValueUnit\n"
               "f_run,\"Calculator,cc_run_frequency\",,Hz,\n"
               "bus,\"Advanced,running_dc_bus_voltage\",,V,\n"
               "k_r,,3600,,Ohm\n");
    folder.add("LoadInputs.csv",
               "LoadID,Destination,DestinationField,target,ValueUnit\n"
               "Calculator,Calculator,cc_run_frequency,\"TV6101,TV6103\",KHz\n");
    folder.add("Lookup_Scale_Unity.csv", "Index,value\n0,0\n1,1\n");
    folder.add("CC_Calculations.csv",
               "Calculate,Multiple,Input,Target,Config,Function,functionisvar,SetValueDirectly,"
               "V0,V1,V2,V3,V4\n"
               "RT,No,,,,component_RT,No,No,CT,f_ign,f_run,k_r,\n"
               "f_ign,No,,,,f_run,Yes,No,,,,,\n"
               "\"CH1,CH2\",Yes,,,,interpolatevalue,No,No,bus,Scale,Unity,1,2\n"
               "\"CH1,CH2\",Yes,DC,,DLSVM,interpolatevalue,No,No,bus,Scale,Unity,1,3\n"
               "RVDC,No,,,,component_RVDC,No,No,k_r,bus,,,\n");
  }

  void expectProblems(const char* file, const char* from, const char* to, const Texts& problems) {
    SourceFolder folder;
    fill(folder);
    ASSERT_TRUE(folder.replace(file, from, to)) << from;
    EXPECT_EQ(folder.problems(), problems) << file << ": " << from << " -> " << to;
  }

  SourceFolder folder_;
};

TEST_F(RuleChecks, AcceptsADesignThatResolves) { EXPECT_EQ(folder_.problems(), Texts{}); }

TEST_F(RuleChecks, Functions) {
  const char* rules = "CC_Calculations.csv";
  const auto first = [](const std::string& text) {
    return Texts{"CC_Calculations.csv:2: " + text + " (TV6101, ActivePFC2C, DLPCM)"};
  };
  expectProblems(rules, "component_RT,No", "component_CVCO,No",
                 first("TV6101 has no function 'component_CVCO'"));
  expectProblems(rules, "component_RT,No", "component_rt,No",
                 first("TV6101 has no function 'component_rt'"));
  expectProblems(rules, "f_run,k_r,", "f_run,,",
                 first("'component_RT' of TV6101 takes 4 arguments, not 3"));
  // The generic function would take one argument.
  expectProblems(rules, "component_RVDC,No,No,k_r,bus", "component_RVDC,No,No,bus,",
                 {"CC_Calculations.csv:6: 'component_RVDC' of TV6104 takes 2 arguments, not 1 "
                  "(TV6104, ActivePFC2C, DLPCM)"});
}

TEST_F(RuleChecks, Variables) {
  const char* rules = "CC_Calculations.csv";
  const std::string place = " (TV6101, ActivePFC2C, DLPCM)";
  expectProblems(
      rules, "f_run,k_r,", "f_run,K_r,",
      {"CC_Calculations.csv:2: variable 'K_r' is no component, no input and has no rule" + place});
  expectProblems(rules, "f_ign,No,,,,f_run,Yes", "f_ign,No,,,,f_max,Yes",
                 {"CC_Calculations.csv:3: variable 'f_max' is no component, no input and has no "
                  "rule" +
                  place});
  expectProblems(rules, "f_ign,No,,,,f_run,Yes", "f_ign,No,,,,RT,Yes",
                 {"CC_Calculations.csv:3: variable 'RT' waits for itself" + place});
  expectProblems("TV6101_BOM.csv", "470,pF/F,Yes,Yes,No", "470,pF/F,No,Yes,No",
                 {"TV6101_BOM.csv:3: no rule fits 'CT'" + place});
  // The component is there in a full bill only.
  expectProblems(
      "TV6101_BOM.csv", "470,pF/F,Yes,Yes,No", "470,pF/F,Yes,No,No",
      {"CC_Calculations.csv:2: variable 'CT' is no component, no input and has no rule" + place});
  expectProblems("LoadInputs.csv", "TV6101,TV6103", "TV6103",
                 {"CC_Calculations.csv:3: variable 'f_run' comes from a field of the calculator "
                  "that is not loaded" +
                  place});
}

TEST_F(RuleChecks, Choice) {
  const char* rules = "CC_Calculations.csv";
  const auto third = [](const std::string& text) {
    return Texts{"CC_Calculations.csv:5: " + text};
  };
  // The more specific rule wins, and one that nothing asks for is a mistake.
  expectProblems(rules, "CH2\",Yes,DC,,DLSVM", "CH2\",Yes,,,DLSVM", {});
  expectProblems(rules, "CH2\",Yes,DC,,DLSVM", "CH2\",Yes,DC,,DLSCM",
                 third("is the best rule of no combination"));
  // Two fields of three each way.
  const char* general = "\"CH1,CH2\",Yes,,,,interpolatevalue";
  expectProblems(rules, general, "\"CH1,CH2\",Yes,DC,TV6101,,interpolatevalue",
                 {"TV6101_BOM.csv:5: no rule fits 'CH1' (TV6101, ActivePFC2C, DLSVM)",
                  "TV6101_BOM.csv:5: no rule fits 'CH2' (TV6101, ActivePFC2C, DLSVM)",
                  "CC_Calculations.csv:5: ties with line 4 for 'CH1' (TV6101, DC, DLSVM)",
                  "CC_Calculations.csv:5: ties with line 4 for 'CH2' (TV6101, DC, DLSVM)"});
}

TEST_F(RuleChecks, RuleRows) {
  const char* rules = "CC_Calculations.csv";
  const auto row = [](int line, const std::string& text) {
    return "CC_Calculations.csv:" + std::to_string(line) + ": " + text;
  };
  expectProblems(rules, "Yes,DC,,DLSVM", "No,DC,,DLSVM",
                 {row(5, "a list of variables needs 'Multiple'")});
  expectProblems(
      rules, "Yes,DC,,DLSVM", "Yes,\"DC, dc\",TV6199,DLSVM",
      {row(5, "Input 'dc' is in no combination"), row(5, "Target 'TV6199' is in no combination"),
       row(5, "is the best rule of no combination")});
  expectProblems(rules, "bus,Scale,Unity,1,2", "bus,Scale,Unit,1,0",
                 {row(4, "there is no curve [Lookup:Scale:Unit]"), row(4, "divides by zero")});
  expectProblems(
      rules, "bus,Scale,Unity,1,2", "bus,Choke,Power,x,2",
      {row(4, "curve [Lookup:Choke:Power] has fewer than 2 points"), row(4, "'x' is no number")});
  expectProblems(rules, "bus,Scale,Unity,1,2", "bus,Scale,Unity,1,",
                 {row(4, "an interpolation takes 5 parameters, not 4")});
  expectProblems(rules, "f_ign,No,,,,f_run,Yes,No,,,", "f_ign,No,,,,,No,Yes,40000,Hz,",
                 {row(3, "a value set directly needs V0, V1 and V2")});
  expectProblems(rules, "f_ign,No,,,,f_run,Yes", "f_ign,No,,,,,No", {row(3, "has no function")});
}

TEST_F(RuleChecks, ComponentRows) {
  const char* bill = "TV6101_BOM.csv";
  const auto row = [](int line, const std::string& text) {
    return "TV6101_BOM.csv:" + std::to_string(line) + ": " + text;
  };
  expectProblems(bill, "INPUT:ActivePFC2C,F1", "INPUT:activepfc2c,F1",
                 {row(2, "stage 'INPUT:activepfc2c' is in no combination")});
  // The input loads this schematic beside another IC only, but may with any.
  expectProblems(bill, "INPUT:ActivePFC2C,F1", "INPUT:DCPFC,F1", {});
  expectProblems(bill, "INPUT:ActivePFC2C,F1", "INPUT:ActivePFC2C,\"F1,CT\"",
                 {row(3, "reference 'CT' is declared by line 2 (TV6101, ActivePFC2C, DLPCM)")});
  expectProblems(bill, "INPUT:ActivePFC2C,F1", "INPUT:ActivePFC2C,f1",
                 {row(2, "reference 'f1' is not in capitals")});
  expectProblems(bill, "F1,Slow", "F2,Slow", {row(2, "reference 'F2' has no description")});
  expectProblems(bill, "F1,Slow", ",Slow", {row(2, "column 'RefDes' is blank")});
  expectProblems(bill, "F1,Slow", "F1,",
                 {row(2, "is fixed but has no value"),
                  row(2, "no rule fits 'F1' (TV6101, ActivePFC2C, DLPCM)")});
  expectProblems(bill, "CT,470", "CT,470pF", {row(3, "'470pF' in column 'value' is no number")});
  expectProblems(bill, "INPUT:dc", "SLCM", {row(4, "Disallow 'SLCM' is in no combination")});
  expectProblems(bill, "INPUT:dc", "INPUT:ac",
                 {row(4, "Disallow 'INPUT:ac' is in no combination")});
  expectProblems(bill, "running_dc_bus_voltage", "running_bus",
                 {row(6,
                      "GeneratorCode reads 'running_bus', which is no field of the design "
                      "screen")});
  expectProblems(bill, ";$", ";If r Than r = 1;$",
                 {row(6, "GeneratorCode 'If r Than r = 1': Expected 'Then'")});
  expectProblems(bill, "RD,,,No,No,No,,Yes", "RD,,,No,No,No,,No",
                 {row(6, "no rule fits 'RD' (TV6101, DC, DLPCM)")});
}

TEST_F(RuleChecks, Inputs) {
  const char* inputs = "CC_SourceVariables.csv";
  const auto row = [](const std::string& text) {
    return Texts{"CC_SourceVariables.csv:3: " + text};
  };
  expectProblems(inputs, "bus,\"Advanced,running_dc_bus_voltage\"", "bus,",
                 row("has neither a source nor a value"));
  expectProblems(inputs, "Advanced,running_dc_bus_voltage", "Advanced",
                 row("Source 'Advanced' is not a screen and a field"));
  expectProblems(inputs, "Advanced,running", "Advance,running",
                 row("Source 'Advance,running_dc_bus_voltage' names no screen"));
  expectProblems(inputs, "Advanced,running", "Advanced,run",
                 row("Source 'Advanced,run_dc_bus_voltage' names no field of the design screen"));
  expectProblems(inputs, "k_r,,3600", "bus,,3600",
                 {"CC_SourceVariables.csv:4: variable 'bus' is given by line 3",
                  "CC_Calculations.csv:2: variable 'k_r' is no component, no input and has no "
                  "rule (TV6101, ActivePFC2C, DLPCM)",
                  "CC_Calculations.csv:6: variable 'k_r' is no component, no input and has no "
                  "rule (TV6104, ActivePFC2C, DLPCM)"});
}

TEST_F(RuleChecks, Descriptions) {
  expectProblems("ComponentDescriptions.csv", "RVDC,Resistor,Yes,e12", "RT,Resistor,Yes,e96",
                 {"ComponentDescriptions.csv:8: reference 'RT' is described by line 4",
                  "ComponentDescriptions.csv:8: OverrideSeries 'e96' is neither e12 nor e24",
                  "TV6104_BOM.csv:2: reference 'RVDC' has no description"});
}

}  // namespace
}  // namespace vantrel::builder
