#include "splitjoin/forms/fsel.h"

#include "viewer/forms/text_conversion.h"

namespace bwp {

Fsel::Fsel(ViewState& state, Notices& notices, SplitJoinJob& job, QWidget* parent)
    : FileDialog(state, notices, parent),
      state_(state),
      job_(job),
      Ftext_(AddField(QStringLiteral("Ftext"), QStringLiteral("Base name"))),
      ActionB_(AddButton(QStringLiteral("ActionB"), QStringLiteral("Split"))) {
  setObjectName(QStringLiteral("Fsel"));
  QPushButton& help = AddButton(QStringLiteral("HelpSJ"), QStringLiteral("Help"));
  AddCancel();

  connect(&Lists(), &FileLists::FilePicked, this,
          [this](int, const std::string& name) { Ftext_.setText(FromPath(name)); });
  connect(&Lists(), &FileLists::FileChosen, this, [this](const std::string& name) { Prepare(name); });
  connect(&ActionB_, &QPushButton::clicked, this, [this] { Prepare(ToPath(Ftext_.text())); });
  connect(&help, &QPushButton::clicked, this, [this] { Q_EMIT HelpWanted(); });
}

void Fsel::Start(const std::string& title) {
  setWindowTitle(TitleOf(title));
  ActionB_.setText(QStringLiteral("Split"));
  Present();
  Ftext_.setFocus();
}

void Fsel::Prepare(const std::string& baseName) {
  Q_EMIT Asked(PrepareSplit(job_, state_.LastFolder, baseName));
}

}  // namespace bwp
