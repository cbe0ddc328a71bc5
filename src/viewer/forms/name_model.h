#pragma once

#include <deque>
#include <string>
#include <vector>

#include <QAbstractListModel>

namespace bwp {

/// Names of files or folders as the rows of a list. The bytes of a name are kept; a row's text is a
/// displayable form of them.
class NameModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  const std::vector<std::string>& Names() const { return names_; }
  /// Replaces all names.
  void SetNames(std::vector<std::string> names);
  /// Turns the names into the given ones, adding and removing rows, so that rows that stay keep their
  /// selection. The rows from `first` on must be in the order of NameLess before and after; those above stay
  /// as they are. Makes one pass through the names however many change.
  void UpdateNames(const std::vector<std::string>& names, int first = 0);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  using Iterator = std::vector<std::string>::const_iterator;

  const std::string& NameAt(std::size_t row) const;
  void InsertRows(Iterator from, Iterator to);
  void RemoveRows(std::size_t count);

  std::vector<std::string> names_;
  /// The rows below those of names_ that an update has yet to look at; empty at any other time.
  std::deque<std::string> rest_;
};

}  // namespace bwp
