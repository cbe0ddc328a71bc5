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

/// The split and join tool: its plan, its job, the worker on its timer, and its windows, which are created
/// when first needed. The main form creates the tool on first use and keeps it.
class SplitJoinTool : public QObject, private SplitJoinWindows {
 public:
  /// The windows belong to the owner; the state and what the services refer to must outlive the tool.
  SplitJoinTool(ViewState& state, const Services& services, QWidget& owner);
  ~SplitJoinTool() override;

  /// Prepares for the open file and shows the form `Divide`.
  void Show();

  /// Carries out a confirmed job. The main form sees to it that this happens only while nothing else works on
  /// the open file; a job that it refuses waits for a later tick.
  std::function<void(const std::function<void()>& action)> run = [](const std::function<void()>& action) {
    action();
  };

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
