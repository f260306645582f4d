#include "screens/banner.h"

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr const char* kCalculate = "Calculate (F5)";
constexpr const char* kDetails = "Details...";

}  // namespace

Banner::Banner(DesignStatus& status, Appearance& look, QWidget* parent, Failure failure)
    : Notice(look, kDetails, parent, "banner"), status_(status), failure_(failure) {
  connect(this, &Notice::buttonClicked, this, [this] {
    if (status_.state() == DesignStatus::State::Stale) {
      emit calculateRequested();
    } else {
      emit detailsRequested();
    }
  });
  connect_view(status.changed, this, [this] { refresh(); });
  refresh();
}

void Banner::refresh() {
  const DesignStatus::State state = status_.state();
  const bool stale = state == DesignStatus::State::Stale;
  setButtonCaption(stale ? kCalculate : kDetails);
  setPicture(stale ? "clock" : "warning");
  const bool elsewhere = state == DesignStatus::State::Failed && failure_ == kFailureToldElsewhere;
  tell(elsewhere ? QString() : to_qstring(status_.bannerText()));
}

}  // namespace vantrel
