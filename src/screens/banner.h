#pragma once

#include "app/design_status.h"
#include "screens/notice.h"

namespace vantrel {

/// One line above results that says what an engineer must not overlook: results that are out of
/// date, or the first warning of the last run.
class Banner : public Notice {
  Q_OBJECT

 public:
  /// What the banner says of a run that has failed.
  enum Failure { kTellFailure, kFailureToldElsewhere };

  Banner(DesignStatus& status, Appearance& look, QWidget* parent = nullptr,
         Failure failure = kTellFailure);

 signals:
  /// The user wants the results brought up to date.
  void calculateRequested();
  /// The user wants to read the whole warning again.
  void detailsRequested();

 private:
  void refresh();

  DesignStatus& status_;
  Failure failure_;
};

}  // namespace vantrel
