#include "operating/targets/component_entry.h"
#include "operating/targets/generic_components.h"
#include "operating/targets/tank_formulas.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

constexpr ComponentEntry kComponents[] = {
    trapped<component_RT>("component_RT"),
    trapped<component_RT>("component_RSTART"),
    trapped<component_RPH>("component_RPH"),
    trapped<component_RDT>("component_RDT"),
    trapped<component_RRUN>("component_RRUN"),
    trapped<component_RFMIN>("component_RFMIN"),
    trapped<component_RIPH>("component_RIPH"),
    trapped<component_RMIN>("component_RMIN"),
    trapped<component_RMAX>("component_RMAX"),
    trapped<component_ROC>("component_ROC"),
    trapped<component_CRAMP>("component_CRAMP"),
    plain<component_L1>("component_L1"),
    trapped<component_C1>("component_C1"),
    trapped<component_CBUSxActivePFC>("component_CBUSxActivePFC"),
    trapped<component_CBUS12xActivePFC>("component_CBUS12xActivePFC"),
    trapped<component_CBUS12xVoltageDoubler>("component_CBUS12xVoltageDoubler"),
    trapped<component_CBUSxFullBridgeRectifier>("component_CBUSxFullBridgeRectifier"),
    trapped<component_CBUSxDC>("component_CBUSxDC"),
    plain<component_CBUSx>("component_CBUSx"),
    trapped<component_L2>("component_L2"),
    trapped<component_RVDC>("component_RVDC"),
    trapped<component_RDC>("component_RDC"),
    trapped<component_MLS>("component_MLS"),
    trapped<component_R9orRBUS>("component_R9orRBUS"),
    trapped<component_MPFC>("component_MPFC"),
    trapped<component_RS>("component_RS"),
    trapped<component_RSxDCInput>("component_RSxDCInput"),
    trapped<component_LRESs>("component_LRESs"),
    trapped<component_CRESs>("component_CRESs"),
    trapped<component_MHSorMLS>("component_MHSorMLS"),
    trapped<component_RVBUS>("component_RVBUS"),
    trapped<component_LPFC>("component_LPFC"),
    trapped<component_RSUPPLY>("component_RSUPPLY"),
};

}  // namespace

Target make_tvGenericTarget() { return {"tvGenericTarget", generic_tank_formulas(), kComponents}; }

}  // namespace vantrel
