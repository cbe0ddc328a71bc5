#include "splitjoin/forms/fjoin.h"

#include <algorithm>
#include <limits>

#include <QItemSelectionModel>
#include <QKeyEvent>

#include "splitjoin/names_text.h"
#include "viewer/forms/keys.h"
#include "viewer/forms/text_conversion.h"

namespace bwp {

Fjoin::Fjoin(ViewState& state, Notices& notices, SplitJoinJob& job, QWidget* parent)
    : FileDialog(state, notices, parent, FileLists::Selection::kMany),
      state_(state),
      notices_(notices),
      job_(job),
      Ftext_(AddField(QStringLiteral("Ftext"), QStringLiteral("Files to join"))),
      Dest_(AddField(QStringLiteral("Dest"), QStringLiteral("Destination"))),
      ActionB_(AddButton(QStringLiteral("ActionB"), QStringLiteral("Join"))) {
  setObjectName(QStringLiteral("Fjoin"));
  setWindowTitle(QStringLiteral("Join files"));
  QPushButton& help = AddButton(QStringLiteral("HelpSJ"), QStringLiteral("Help"));
  AddCancel();
  // What the box cuts off would silently be left out of the join.
  Ftext_.setMaxLength(std::numeric_limits<int>::max());
  Lists().Files().installEventFilter(this);

  connect(&Lists(), &FileLists::FilePicked, this, [this](int row, const std::string&) { Pick(row); });
  connect(&Lists(), &FileLists::FileChosen, this, [this](const std::string& name) { PreparePicked({name}); });
  connect(&Lists(), &FileLists::Filled, this, [this] { StartAnew(); });
  connect(&Lists(), &FileLists::FilesChanged, this, [this] { FollowRows(); });
  connect(&ActionB_, &QPushButton::clicked, this, [this] { Prepare(); });
  connect(&help, &QPushButton::clicked, this, [this] { Q_EMIT HelpWanted(); });
}

void Fjoin::Start() {
  Present();
  Lists().Files().setFocus();
}

// Enter in the list joins the whole selection, as it does in the fields; a double click means one file.
bool Fjoin::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &Lists().Files() && event->type() == QEvent::KeyPress) {
    const auto* const press = static_cast<QKeyEvent*>(event);
    if (IsEnter(*press)) {
      if (!press->isAutoRepeat()) ActionB_.click();
      return true;
    }
  }
  return FileDialog::eventFilter(watched, event);
}

void Fjoin::Pick(int row) {
  const std::vector<int> selected = Lists().SelectedRows();
  order_.Click(static_cast<std::size_t>(row), std::binary_search(selected.begin(), selected.end(), row));
  shownNames_ = PickedNames();
  Ftext_.setText(FromPath(NamesText(shownNames_)));
}

// Names that were picked in another folder are not in this one; a typed text stays.
void Fjoin::StartAnew() {
  order_.Reset();
  rows_ = Lists().FileNames();
  if (ShowsPickedNames()) Ftext_.clear();
  shownNames_.clear();
}

// Files came or went: each name keeps its place.
void Fjoin::FollowRows() {
  const std::vector<std::string> picked = PickedNames();
  rows_ = Lists().FileNames();
  order_.Reset();
  for (const std::string& name : picked) {
    const auto row = std::find(rows_.begin(), rows_.end(), name);
    if (row != rows_.end()) order_.Click(static_cast<std::size_t>(row - rows_.begin()), true);
  }
}

// What the text says is joined. A file that was picked and has gone since is still named there: its absence
// is an error, not a reason to join the others without it.
void Fjoin::Prepare() {
  if (ShowsPickedNames()) {
    PreparePicked(shownNames_);
  } else {
    Q_EMIT Asked(PrepareJoin(job_, state_.LastFolder, ToPath(Ftext_.text()), ToPath(Dest_.text())));
  }
}

void Fjoin::PreparePicked(const std::vector<std::string>& names) {
  const auto question = PreparePickedJoin(job_, notices_, state_.LastFolder, names, ToPath(Dest_.text()));
  if (question) Q_EMIT Asked(*question);
}

// Otherwise the text was typed.
bool Fjoin::ShowsPickedNames() const {
  return Ftext_.text() == FromPath(NamesText(shownNames_));
}

std::vector<std::string> Fjoin::PickedNames() const {
  std::vector<std::string> names;
  for (const std::size_t row : order_.Picked()) names.push_back(rows_.at(row));
  return names;
}

}  // namespace bwp
