#pragma once

#include <vector>

#include "core/print_job.h"
#include "outputs/form_layout.h"

namespace vantrel {

/// Cuts a form into pages for sheets of that size, scaled so that its width fits, and draws it. No
/// line is cut; a frame that does not fit on one page goes on on the next.
std::vector<PrintPage> form_pages(FormLayout layout, Size sheet, const Font& font);

}  // namespace vantrel
