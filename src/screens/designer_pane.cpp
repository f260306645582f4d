#include "screens/designer_pane.h"

#include <QScrollArea>
#include <QScrollBar>

#include "app/session.h"
#include "screens/notice.h"

namespace vantrel {

QScrollArea* scrolling_pane(QWidget* content, QWidget* parent) {
  auto* pane = new QScrollArea(parent);
  pane->setFrameShape(QFrame::NoFrame);
  pane->setFocusPolicy(Qt::NoFocus);
  pane->setWidgetResizable(true);
  pane->setWidget(content);
  return pane;
}

QScrollArea* scrolling_column(QWidget* content, QWidget* parent) {
  QScrollArea* pane = scrolling_pane(content, parent);
  pane->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  pane->setMinimumWidth(content->minimumSizeHint().width() +
                        pane->verticalScrollBar()->sizeHint().width());
  return pane;
}

void design_with_notice(Session& session, Notice& notice, const std::function<bool()>& design) {
  if (session.isBusy()) return;
  const std::size_t before = session.messages().shown().size();
  if (design()) return;
  const std::vector<Message>& shown = session.messages().shown();
  if (shown.size() > before) notice.tell(to_qstring(with_line_breaks(shown.back().text)));
}

}  // namespace vantrel
