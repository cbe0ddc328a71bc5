#include "viewer/forms/file_lists.h"

#include <algorithm>
#include <functional>
#include <utility>

#include <QEvent>
#include <QSignalBlocker>

#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"
#include "viewer/paths.h"
#include "viewer/volumes.h"

namespace bwp {
namespace {

constexpr int kSettleMilliseconds = 100;

// The rows of the folder list: the folders from the root to the one shown, then its subfolders.
std::vector<std::string> FolderRows(const std::vector<std::string>& chain, const FolderListing& listing) {
  std::vector<std::string> rows;
  for (const std::string& folder : chain) {
    const std::string bare = folder.substr(0, folder.size() - 1);
    rows.push_back(bare.empty() ? folder : funzioni::NameOf(bare));
  }
  rows.insert(rows.end(), listing.folders.begin(), listing.folders.end());
  return rows;
}

// A drive list that looks for volumes whenever it is opened: USB sticks come and go.
class DriveBox : public QComboBox {
 public:
  DriveBox(QWidget* parent, std::function<void()> beforePopup)
      : QComboBox(parent), beforePopup_(std::move(beforePopup)) {}

  void showPopup() override {
    beforePopup_();
    QComboBox::showPopup();
  }

 private:
  std::function<void()> beforePopup_;
};

}  // namespace

FileLists::FileLists(ViewState& state, Notices& notices, QWidget& dialog, Selection selection)
    : QObject(&dialog),
      state_(state),
      notices_(notices),
      dialog_(dialog),
      drive_(new DriveBox(&dialog, [this] { ListDrives(); })),
      folders_(new NameList(&dialog)),
      files_(new NameList(&dialog)),
      folderDelegate_(new FolderDelegate(folders_)) {
  Name(*drive_, QStringLiteral("Drive1"), QStringLiteral("Drive"));
  drive_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  Name(*folders_, QStringLiteral("Dlist"), QStringLiteral("Folders"));
  folders_->setItemDelegate(folderDelegate_);
  folders_->setModel(&folderModel_);
  Name(*files_, QStringLiteral("Flist"), QStringLiteral("Files"));
  files_->setModel(&fileModel_);
  if (selection == Selection::kMany) files_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  settle_.setSingleShot(true);
  settle_.setInterval(kSettleMilliseconds);

  connect(drive_, &QComboBox::currentTextChanged, this,
          [this](const QString& text) { ChangeDrive(ToPath(text)); });
  connect(folders_, &NameList::RowChosen, this, [this](int row) { ChooseFolder(row); });
  connect(folders_, &NameList::BackPressed, this, [this] {
    if (chain_.size() > 1) ChooseFolder(static_cast<int>(chain_.size()) - 2);
  });
  connect(files_, &NameList::RowPicked, this,
          [this](int row) { Q_EMIT FilePicked(row, FileNames().at(static_cast<std::size_t>(row))); });
  connect(files_, &NameList::RowChosen, this,
          [this](int row) { Q_EMIT FileChosen(FileNames().at(static_cast<std::size_t>(row))); });
  connect(&settle_, &QTimer::timeout, this, [this] { FollowDisk(); });
  dialog.installEventFilter(this);
}

void FileLists::ShowLastFolder() {
  ListDrives();
  const std::string folder = NearestReadable(state_.LastFolder);
  Fill(folder, ListFolder(folder));
}

void FileLists::FollowDisk() {
  if (chain_.empty()) return;
  const FolderListing listing = ListFolder(chain_.back());
  if (state_.LastFolder != chain_.back() || listing.error != 0) {
    ShowLastFolder();
    return;
  }
  folderModel_.UpdateNames(listing.folders, static_cast<int>(chain_.size()));
  if (listing.files == fileModel_.Names()) return;
  fileModel_.UpdateNames(listing.files);
  Q_EMIT FilesChanged();
}

std::vector<int> FileLists::SelectedRows() const {
  std::vector<int> rows;
  for (const QModelIndex& index : files_->selectionModel()->selectedIndexes()) rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());
  return rows;
}

// The lists follow the disk only while the dialog is shown.
bool FileLists::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &dialog_) {
    if (event->type() == QEvent::Show) Watch();
    if (event->type() == QEvent::Hide) watch_.reset();
    if (event->type() == QEvent::WindowActivate) FollowDisk();
  }
  return QObject::eventFilter(watched, event);
}

void FileLists::ListDrives() {
  const QSignalBlocker quiet(drive_);
  volumes_ = Volumes();
  drive_->clear();
  for (const std::string& volume : volumes_) drive_->addItem(FromPath(volume));
  ShowDrive();
}

void FileLists::ChangeDrive(const std::string& drive) {
  const FolderListing listing = ListFolder(drive);
  if (listing.error != 0) {
    ShowDrive();
    notices_.Tell("Drive is not present", "System Message", Notices::Icon::kExclamation);
    return;
  }
  Fill(FullFolder(drive), listing);
}

void FileLists::ChooseFolder(int row) {
  const std::string folder = FolderOfRow(row);
  const FolderListing listing = ListFolder(folder);
  if (listing.error != 0) {
    notices_.Tell("Folder cannot be read", kErrorTitle, Notices::Icon::kCritical);
    FollowDisk();
    return;
  }
  Fill(folder, listing);
}

std::string FileLists::FolderOfRow(int row) const {
  const auto place = static_cast<std::size_t>(row);
  if (place < chain_.size()) return chain_[place];
  return funzioni::WithSeparator(chain_.back() + folderModel_.Names().at(place));
}

void FileLists::Fill(const std::string& folder, const FolderListing& listing) {
  state_.LastFolder = folder;
  chain_ = ChainOf(folder);
  folderDelegate_->SetChain(static_cast<int>(chain_.size()));
  folderModel_.SetNames(FolderRows(chain_, listing));
  fileModel_.SetNames(listing.files);
  const QModelIndex shown = folderModel_.index(static_cast<int>(chain_.size()) - 1);
  folders_->setCurrentIndex(shown);
  folders_->scrollTo(shown, QAbstractItemView::PositionAtCenter);
  ShowDrive();
  if (watch_) Watch();
  Q_EMIT Filled();
}

void FileLists::ShowDrive() {
  const QSignalBlocker quiet(drive_);
  drive_->setCurrentText(FromPath(VolumeOf(volumes_, state_.LastFolder)));
}

void FileLists::Watch() {
  if (chain_.empty()) return;
  const auto wait = [this] {
    if (!settle_.isActive()) settle_.start();
  };
  watch_ = std::make_unique<FolderWatch>(chain_.back(), wait, this);
}

}  // namespace bwp
