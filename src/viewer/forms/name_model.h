#pragma once

#include <string>
#include <vector>

#include <QAbstractListModel>

namespace bwp {

/// Names of files or folders as the rows of a list. The bytes of a name are kept; a row's text is what of
/// them can be shown.
class NameModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  const std::vector<std::string>& Names() const { return names_; }
  /// Shows other names.
  void SetNames(std::vector<std::string> names);
  /// Turns the names into the given ones row by row, so that selections of rows that stay hold. The rows from
  /// `first` on must be in the order of NameLess before and after; those above stay as they are.
  void UpdateNames(const std::vector<std::string>& names, int first = 0);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  void InsertRows(std::size_t row, const std::vector<std::string>& names, std::size_t from, std::size_t to);
  void RemoveRows(std::size_t from, std::size_t to);

  std::vector<std::string> names_;
};

}  // namespace bwp
