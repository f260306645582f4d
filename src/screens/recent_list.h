#pragma once

#include <QListWidget>

#include "screens/recent_projects.h"

namespace vantrel {

/// The recent projects, each with its name, and below it when and where it was stored. One whose
/// file is missing is greyed.
class RecentList : public QListWidget {
  Q_OBJECT

 public:
  explicit RecentList(RecentProjects& recent, QWidget* parent = nullptr);

 signals:
  void chosen(const QString& path);

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void fill();
  void choose(const QListWidgetItem& item);

  RecentProjects& recent_;
};

}  // namespace vantrel
