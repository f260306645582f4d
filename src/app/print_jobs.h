#pragma once

#include <optional>
#include <string_view>

#include "app/session.h"

namespace vantrel {

/// The controls of a design screen as they are printed; nothing for a screen that is no form.
std::optional<FormReport> printed_form(Session& session, std::string_view screen);

/// What the print command of a screen prints: a form, the bill as a table, a graph or the drawing
/// on show. Nothing for a screen that is not printed or has no drawing on show. The job draws what
/// the screen holds when it runs.
std::optional<PrintJob> print_job(Session& session, std::string_view screen);

}  // namespace vantrel
