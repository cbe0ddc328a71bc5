#include "viewer/forms/loader.h"

#include <sys/stat.h>

#include "viewer/forms/text_conversion.h"
#include "viewer/number_text.h"
#include "viewer/open_view_file.h"
#include "viewer/paths.h"

namespace bwp {

Loader::Loader(ViewState& state, Display& display, Notices& notices, QWidget* parent)
    : FileDialog(state, notices, parent),
      state_(state),
      display_(display),
      notices_(notices),
      Ftext_(AddField(QStringLiteral("Ftext"), QStringLiteral("File name"))),
      Labsize_(AddNote(QStringLiteral("Labsize"), QStringLiteral("Size"))) {
  setObjectName(QStringLiteral("Loader"));
  setWindowTitle(QStringLiteral("Open File"));
  QPushButton& fload = AddButton(QStringLiteral("Fload"), QStringLiteral("Open"));
  AddCancel();

  connect(&Lists(), &FileLists::FilePicked, this, [this](int, const std::string& name) {
    Ftext_.setText(FromPath(name));
    ShowSize(name);
  });
  connect(&Lists(), &FileLists::FileChosen, this,
          [this](const std::string& name) { run([&] { Load(name); }); });
  connect(&Lists(), &FileLists::Filled, &Labsize_, &QLabel::clear);
  connect(&Ftext_, &QLineEdit::textEdited, &Labsize_, &QLabel::clear);
  connect(&fload, &QPushButton::clicked, this, [this] { run([this] { Load(ToPath(Ftext_.text())); }); });
}

void Loader::Open() {
  Present();
  Lists().Files().setFocus();
}

void Loader::ShowSize(const std::string& name) {
  struct stat status = {};
  const bool found = stat((state_.LastFolder + name).c_str(), &status) == 0;
  Labsize_.setText(found ? FromPath(funzioni::SizeText(status.st_size)) : QString());
}

void Loader::Load(const std::string& name) {
  hide();
  const std::string path = funzioni::PathIn(state_.LastFolder, name);
  if (!LoadAndShow(state_, display_, notices_, path)) show();
}

}  // namespace bwp
