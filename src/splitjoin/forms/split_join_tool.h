#pragma once

#include <functional>

#include <QObject>
#include <QTimer>

#include "fileops/forms/confirmation.h"
#include "fileops/services.h"
#include "splitjoin/forms/divide.h"
#include "splitjoin/forms/fjoin.h"
#include "splitjoin/forms/fsel.h"
#include "splitjoin/forms/helpsplit.h"
#include "splitjoin/split_join_job.h"
#include "splitjoin/split_join_worker.h"
#include "splitjoin/split_plan.h"

namespace bwp {

/// The split and join tool: its plan, its job, the worker on its timer and its windows, each of which is made
/// when it is first needed. The main form makes the tool on first use and keeps it.
class SplitJoinTool : public QObject, private SplitJoinWindows {
 public:
  /// The windows belong to the owner; state and services outlive the tool.
  SplitJoinTool(ViewState& state, const Services& services, QWidget& owner);
  ~SplitJoinTool() override;

  /// Prepares for the open file and shows the form `Divide`.
  void Show();

  /// Asked before each job: false lets a confirmed job wait, as while the page is edited. Empty means always.
  std::function<bool()> mayRun;

 private:
  void AskForParts();
  void AskForFiles();
  void AskToConfirm(const std::string& question);
  void ShowHelp();
  void Tick();

  void HideDivide() override;
  void HideFsel() override;
  void HideFjoin() override;

  ViewState& state_;
  Services services_;
  QWidget& owner_;
  SplitPlan plan_;
  SplitJoinJob job_;
  SplitJoinWorker worker_;
  QTimer timer_{this};  ///< Runs while a question or a confirmed job waits.
  Divide* divide_ = nullptr;
  Fsel* fsel_ = nullptr;
  Fjoin* fjoin_ = nullptr;
  Helpsplit* help_ = nullptr;
  Dialog* dialog_ = nullptr;
};

}  // namespace bwp
