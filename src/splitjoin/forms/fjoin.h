#pragma once

#include <string>
#include <vector>

#include "splitjoin/click_order.h"
#include "splitjoin/split_join_job.h"
#include "viewer/forms/file_dialog.h"

namespace bwp {

/// The form `Fjoin`: asks for the files to join, in the order of the clicks on them, and the destination.
class Fjoin : public FileDialog {
  Q_OBJECT

 public:
  Fjoin(ViewState& state, Notices& notices, SplitJoinJob& job, QWidget* parent);

  /// Shows the form on LastFolder.
  void Start();

 Q_SIGNALS:
  /// A join is prepared; this question is to be asked.
  void Asked(const std::string& question);
  /// The help button was clicked.
  void HelpWanted();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Pick(int row);
  void StartAnew();
  void FollowRows();
  void Prepare();
  void PreparePicked(const std::vector<std::string>& names);
  bool ShowsPickedNames() const;
  std::vector<std::string> PickedNames() const;

  ViewState& state_;
  Notices& notices_;
  SplitJoinJob& job_;
  ClickOrder order_;
  std::vector<std::string> rows_;        ///< The names of the entries in the order.
  std::vector<std::string> shownNames_;  ///< Those that the last click wrote into Ftext.
  QLineEdit& Ftext_;
  QLineEdit& Dest_;
  QPushButton& ActionB_;
};

}  // namespace bwp
