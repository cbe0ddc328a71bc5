#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QComboBox>
#include <QObject>
#include <QTimer>

#include "viewer/folder_listing.h"
#include "viewer/forms/folder_delegate.h"
#include "viewer/forms/folder_watch.h"
#include "viewer/forms/name_list.h"
#include "viewer/forms/name_model.h"
#include "viewer/notices.h"
#include "viewer/view_state.h"

namespace bwp {

/// The drive, folder and file lists that every file dialog has: `Drive1`, `Dlist` and `Flist`, children of
/// the dialog, which places them. The folder shown is LastFolder; while the dialog is open the lists follow
/// what happens on the disk.
class FileLists : public QObject {
  Q_OBJECT

 public:
  enum class Selection { kOne, kMany };

  FileLists(ViewState& state, Notices& notices, QWidget& dialog, Selection selection = Selection::kOne);

  QComboBox& Drive() { return *drive_; }
  NameList& Folders() { return *folders_; }
  NameList& Files() { return *files_; }

  /// Reads the disk and points all three at LastFolder, or at the nearest folder above it that can be read,
  /// which then becomes LastFolder. Call it before the dialog is shown.
  void ShowLastFolder();
  /// Updates the lists from the disk and LastFolder. It is called when the dialog is activated or the folder
  /// changes.
  void FollowDisk();

  /// The names in `Flist`, row by row, as the disk has them.
  const std::vector<std::string>& FileNames() const { return fileModel_.Names(); }
  /// The selected rows of `Flist`, ascending.
  std::vector<int> SelectedRows() const;

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// A file's name was clicked, or the keys selected or unselected it.
  void FilePicked(int row, const std::string& name);
  /// A file's name was double-clicked, or Enter was pressed on it.
  void FileChosen(const std::string& name);
  /// The lists were filled again for LastFolder; nothing is selected.
  void Filled();
  /// Files appeared in the shown folder or disappeared from it; rows may have moved.
  void FilesChanged();

 private:
  void ListDrives();
  void ChangeDrive(const std::string& drive);
  void ChooseFolder(int row);
  std::string FolderOfRow(int row) const;
  void Fill(const std::string& folder, const FolderListing& listing);
  void ShowDrive();
  void Watch();

  ViewState& state_;
  Notices& notices_;
  QWidget& dialog_;
  QComboBox* drive_;
  NameList* folders_;
  NameList* files_;
  FolderDelegate* folderDelegate_;
  NameModel folderModel_;
  NameModel fileModel_;
  std::vector<std::string> chain_;  ///< The folders from the root to the one shown, full paths.
  std::vector<std::string> volumes_;
  std::unique_ptr<FolderWatch> watch_;
  QTimer settle_{this};  ///< Combines many changes into one update.
};

}  // namespace bwp
