#include "fileops/forms/saver.h"

#include "viewer/forms/text_conversion.h"

namespace bwp {

Saver::Saver(ViewState& state, const Services& services, QWidget* parent)
    : FileDialog(state, services.notices, parent),
      state_(state),
      Ftext_(AddField(QStringLiteral("Ftext"), QStringLiteral("Save as"))) {
  setObjectName(QStringLiteral("Saver"));
  QPushButton& fsave = AddButton(QStringLiteral("Fsave"), QStringLiteral("Save"));
  AddCancel();
  // Without a name there is nothing to save to.
  fsave.setEnabled(false);
  connect(&Ftext_, &QLineEdit::textChanged, &fsave,
          [&fsave](const QString& name) { fsave.setEnabled(!name.isEmpty()); });

  connect(&Lists(), &FileLists::FilePicked, this,
          [this](int, const std::string& name) { Ftext_.setText(FromPath(name)); });
  connect(&Lists(), &FileLists::FileChosen, this, [this, &state, &services](const std::string& name) {
    run([&] {
      hide();
      SaveOntoListedFile(state, services, Task(), name);
    });
  });
  connect(&fsave, &QPushButton::clicked, this, [this, &state, &services] {
    run([&] {
      hide();
      SaveUnderTypedName(state, services, Task(), ToPath(Ftext_.text()));
    });
  });
}

void Saver::Open(const SaveTask& task) {
  setWindowTitle(FromPath(task.caption));
  from = task.from;
  to = task.to;
  opening_ = state_.openings;
  Present();
  Ftext_.setFocus();
  Ftext_.selectAll();
}

void Saver::HideWhenStale() {
  if (opening_ != state_.openings) hide();
}

SaveTask Saver::Task() const {
  return {ToPath(windowTitle()), from, to};
}

}  // namespace bwp
