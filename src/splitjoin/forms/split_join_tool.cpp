#include "splitjoin/forms/split_join_tool.h"

namespace bwp {
namespace {

constexpr int kTickMilliseconds = 20;

void HideIfMade(QWidget* form) {
  if (form != nullptr) form->hide();
}

}  // namespace

SplitJoinTool::SplitJoinTool(ViewState& state, const Services& services, QWidget& owner)
    : QObject(&owner),
      state_(state),
      services_(services),
      owner_(owner),
      plan_(state),
      worker_(state, services, plan_, job_, *this) {
  timer_.setInterval(kTickMilliseconds);
  connect(&timer_, &QTimer::timeout, this, [this] { Tick(); });
}

SplitJoinTool::~SplitJoinTool() = default;

void SplitJoinTool::Show() {
  if (divide_ == nullptr) {
    divide_ = new Divide(plan_, &owner_);
    connect(divide_, &Divide::SplitClicked, this, [this] { AskForParts(); });
    connect(divide_, &Divide::JoinClicked, this, [this] { AskForFiles(); });
  }
  divide_->Start();
}

void SplitJoinTool::AskForParts() {
  if (fsel_ == nullptr) {
    fsel_ = new Fsel(state_, services_.notices, job_, &owner_);
    connect(fsel_, &Fsel::Asked, this, [this](const std::string& question) { AskToConfirm(question); });
    connect(fsel_, &Fsel::HelpWanted, this, [this] { ShowHelp(); });
  }
  fsel_->Start(SplitTitle(state_.OpenFile, plan_.PartSize()));
}

void SplitJoinTool::AskForFiles() {
  if (fjoin_ == nullptr) {
    fjoin_ = new Fjoin(state_, services_.notices, job_, &owner_);
    connect(fjoin_, &Fjoin::Asked, this, [this](const std::string& question) { AskToConfirm(question); });
    connect(fjoin_, &Fjoin::HelpWanted, this, [this] { ShowHelp(); });
  }
  fjoin_->Start();
}

void SplitJoinTool::AskToConfirm(const std::string& question) {
  if (dialog_ == nullptr) dialog_ = new Dialog(job_.confirmed, &owner_);
  dialog_->Ask(question);
  timer_.start();
}

void SplitJoinTool::ShowHelp() {
  if (help_ == nullptr) help_ = new Helpsplit(&owner_);
  help_->ShowHelp();
}

void SplitJoinTool::Tick() {
  if (job_.confirmed) run([this] { worker_.Tick(); });
  // The timer runs only while a question or a confirmed job waits.
  if (job_.confirmed || dialog_->isVisible()) {
    timer_.start();
  } else {
    timer_.stop();
  }
}

void SplitJoinTool::HideDivide() {
  HideIfMade(divide_);
}

void SplitJoinTool::HideFsel() {
  HideIfMade(fsel_);
}

void SplitJoinTool::HideFjoin() {
  HideIfMade(fjoin_);
}

}  // namespace bwp
