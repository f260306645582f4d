#pragma once

#include <functional>

class QScrollArea;
class QWidget;

namespace vantrel {

class Notice;
class Session;

/// A frameless pane that lets a window be smaller than what it shows.
QScrollArea* scrolling_pane(QWidget* content, QWidget* parent = nullptr);
/// The same for a column, which is always as wide as its content needs.
QScrollArea* scrolling_column(QWidget* content, QWidget* parent = nullptr);

/// Runs a design unless something else runs. When it fails, the notice keeps its last message on
/// view.
void design_with_notice(Session& session, Notice& notice, const std::function<bool()>& design);

}  // namespace vantrel
