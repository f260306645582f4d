#pragma once

#include "core/program_folder.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// Carries the user's lamps and cores from "\Data\VTL.mdb.OLD" into the design database and deletes
/// the old file, also when its tables could not be copied. A file that is no database is reported
/// and stays; without one nothing happens.
void import_user_rows(const ProgramFolder& folder, SysMsg& messages);

}  // namespace vantrel
