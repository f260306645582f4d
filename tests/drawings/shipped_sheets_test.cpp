#include <gtest/gtest.h>

#include "drawing_builder/build.h"
#include "drawing_builder/painter.h"
#include "outputs/image_display_layout.h"
#include "outputs/validate_schematic_texts.h"

namespace vantrel::drawing {
namespace {

/// Where components lie, as the circuits' description has them: each line is one net of every
/// drawing that has all of its components. "=" stands before the name of a net, "!" before a pin
/// that such a drawing lacks.
const std::set<std::string> kNets[]{
    {"JIN.L", "F1.1"},
    {"F1.2", "RV1.1", "C1.1", "RX1.1", "L1.1"},
    {"JIN.N", "RV1.2", "C1.2", "RX2.2", "L1.3"},
    {"L1.2", "C2.1", "CY1.1", "NTC1.1"},
    {"L1.4", "C2.2", "CY2.2", "BR1.AC2"},
    {"CY1.2", "CY2.1", "JIN.PE", "=PE"},
    {"BR1.P", "L2.1"},
    {"L2.2", "CIN.1", "LPFC.1"},
    {"LPFC.2", "MPFC.D", "DPFC.A"},
    {"DPFC.K", "MHS.D"},
    {"MPFC.S", "RS1.1", "RS2.1", "RGSP.2", "RCSP.2"},
    {"MPFC.S", "ROC1.1", "ROC2.1", "RGSP.2", "RCSP.2"},
    {"MPFC.G", "RGP.2", "RGSP.1"},
    {"IC2.GD", "RGP.1"},
    {"IC2.CS", "RCSP.1", "CCSP.1"},
    {"IC2.ZX", "RZX.2"},
    {"IC2.FB", "RBUS2.2", "RBUS.1"},
    {"IC2.MUL", "RMUL2.2", "RMUL3.1", "CMUL.1"},
    {"CBUS1.2", "CBUS2.1", "RBAL1.2", "RBAL2.1"},
    {"JIN.P", "F1.1"},
    {"F1.2", "DIN.A"},
    {"IC1.VCC", "CVCC1.1", "CVCC2.1", "DZVCC.K", "DCP1.K", "=VCC"},
    {"RSUPPLY.2", "IC1.VCC"},
    {"RSDC.2", "IC1.VCC"},
    {"DBOOT.A", "IC1.VCC"},
    {"DBOOT.K", "CBOOT.1", "IC1.VB"},
    {"IC1.HO", "RGHS.1"},
    {"RGHS.2", "MHS.G", "RGSH.1"},
    {"MHS.S", "MLS.D", "CBOOT.2", "IC1.VS", "CSNUB.1"},
    {"MLS.S", "RCS.1", "RCSF.2"},
    {"IC1.CS", "RCSF.1", "CCSF.1"},
    {"RCS.2", "DCP2.A", "IC1.COM", "=COM"},
    {"RCP.2", "DCP1.A", "DCP2.K"},
    {"IC1.VDC", "RVDC2.2", "RVDC.1", "CVDC.1"},
    {"IC1.BUS", "RVBUS2.2", "RVBUS.1", "CVBUS.1"},
    {"IC1.AR", "RAR4.2"},
    {"IC1.DCOMP", "CDCOMP.1"},
    {"IC1.PG", "RGP.1"},
    {"IC1.RT", "RT.1"},
    {"IC1.RPH", "RPH.2"},
    {"IC1.RUN", "RRUN.1"},
    {"RRUN.2", "RPH.1", "RT.1"},
    {"IC1.RPH", "CRAMP.1"},
    {"IC1.START", "RSTART.1", "CSTART.1"},
    {"IC1.FMIN", "RFMIN.1"},
    {"IC1.DIM", "RDIM1.2", "RDIM2.1", "CDIM.1"},
    {"IC1.LS", "RLSF.1", "CLSF.1"},
    {"DLS1.K", "RLS.1", "RLSF.2"},
    {"TLS.S1", "DLS1.A", "DLS2.K"},
    {"IC1.SD", "RLO2.2", "CLO.1", "DZLO.K"},
    {"MHS.S", "CDC.1", "RDC.1"},
    {"CDC.2", "RDC.2", "LRES.1"},
    {"MHS.S", "CDC1.1", "CDC2.1"},
    {"LRES1.2", "JL1.1"},
    {"LRES2.2", "JL2.1"},
    {"DLO1.A", "RLO1.1", "JL1.3", "!TLS.A1"},
    {"DLO2.A", "RLO3.1", "JL2.3"},
    {"DLO1.K", "DLO2.K", "RLO2.1"},
    {"TBAL.A1", "TBAL.B1", "LRES.2"},
    {"TBAL.A2", "JL1.1"},
    {"TBAL.B2", "JL2.1"},
    {"CRES.2", "TH1.P1"},
    {"TH1.P2", "RLO1.2", "RLO2.1"},
    {"TH1.P2", "JL2.3", "!TLS.A1"},
    {"TH1.S1", "JL1.4", "JL2.1"},
    {"TH1.S2", "JL1.3", "JL2.2"},
    {"CSEQ.2", "JL1.3"},
    {"Q1.E", "Q2.C", "TDRV.1", "DST.K", "DQ1.A", "DQ2.K"},
    {"TDRV.2", "TPWR.P1"},
    {"CHB1.2", "CHB2.1", "TPWR.P2"},
    {"DIAC1.2", "QSD.C", "Q2.B", "RB2.2", "CB2.2"},
    {"RST.2", "CST.1", "DIAC1.1", "DST.A"},
    {"Q2.E", "RCS.1", "RCSF.2", "DQ2.A", "TDRV:b2.2"},
};

/// Every circuit diagram of the shipped sources, put together once.
class ShippedSheets : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    Problems problems;
    shipped().sources = read_circuits(VANTREL_DRAWINGS, problems);
    shipped().tables = read_tables(VANTREL_DATA "/schema.sql", VANTREL_DATA, problems);
    shipped().sheets = required_sheets(shipped().tables, problems);
    for (const Problem& problem : problems.list()) ADD_FAILURE() << to_string(problem);
  }

  struct Shipped {
    CircuitSources sources;
    builder::SourceTables tables;
    std::vector<Sheet> sheets;
  };
  static Shipped& shipped() {
    static Shipped value;
    return value;
  }
};

TEST_F(ShippedSheets, EveryCombinationIsDrawnWithItsBill) {
  EXPECT_EQ(shipped().sheets.size(), 183U);
  std::map<std::size_t, int> used;
  for (const Sheet& sheet : shipped().sheets) {
    Problems problems;
    NetList nets;
    const Diagram diagram = checked_diagram(shipped().sources, sheet, nets, problems);
    for (const Problem& problem : problems.list()) ADD_FAILURE() << to_string(problem);
    std::multiset<std::string> drawn;
    std::set<std::string> pins;
    for (const Part& part : diagram.parts) {
      if (!part.piece) drawn.insert(part.reference);
      for (const Pin& pin : part.symbol->pins) pins.insert(part.key + "." + pin.name);
    }
    EXPECT_EQ(drawn, std::multiset<std::string>(sheet.bill.begin(), sheet.bill.end()))
        << sheet.name;
    for (std::size_t i = 0; i < std::size(kNets); ++i) {
      const bool present = std::ranges::all_of(kNets[i], [&](const std::string& pin) {
        if (pin.starts_with('!')) return !pins.contains(pin.substr(1));
        return pin.starts_with('=') || pins.contains(pin);
      });
      if (!present) continue;
      ++used[i];
      std::set<std::string> net = kNets[i];
      std::erase_if(net, [](const std::string& pin) { return pin.starts_with('!'); });
      EXPECT_TRUE(nets.joined(net)) << sheet.name << ": " << *net.begin();
    }
  }
  for (std::size_t i = 0; i < std::size(kNets); ++i) EXPECT_GT(used[i], 0) << *kNets[i].begin();
}

TEST_F(ShippedSheets, FilesBearTheNamesThatTheDisplayAsksFor) {
  std::set<std::string> names;
  for (const Sheet& sheet : shipped().sheets) names.insert(sheet.name);
  EXPECT_TRUE(names.contains("TV6103/TV6103-ActivePFC2C-SLCM"));
  EXPECT_TRUE(names.contains("TV6108/TV6108-ACMains"));
  EXPECT_EQ(names.size(), shipped().sheets.size());
}

TEST_F(ShippedSheets, MetafileAndLayoutNameTheBill) {
  for (const Sheet& sheet : shipped().sheets) {
    if (sheet.combination.config != "DLPVM" && sheet.combination.config != "ET") continue;
    Problems problems;
    NetList nets;
    const Diagram diagram = checked_diagram(shipped().sources, sheet, nets, problems);
    const Drawing drawing = paint_diagram(diagram, nets, "TITLE", sheet.long_values);
    const std::optional<SchematicTexts> texts = read_schematic_texts(drawing.metafile);
    ASSERT_TRUE(texts.has_value());
    std::multiset<std::string> found;
    for (const SchematicReference& reference : texts->references) found.insert(reference.name);
    EXPECT_EQ(found, std::multiset<std::string>(sheet.bill.begin(), sheet.bill.end()));
    const DrawingLayout layout = read_drawing_layout(drawing.layout);
    EXPECT_EQ(layout.components.size(), sheet.bill.size());
    EXPECT_GT(layout.values.size(), sheet.bill.size() * 2 / 3) << sheet.name;
  }
}

}  // namespace
}  // namespace vantrel::drawing
