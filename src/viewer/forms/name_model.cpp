#include "viewer/forms/name_model.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "viewer/folder_listing.h"
#include "viewer/forms/text_conversion.h"

namespace bwp {

void NameModel::SetNames(std::vector<std::string> names) {
  beginResetModel();
  names_ = std::move(names);
  endResetModel();
}

// At every step the rows are those of names_ and, below them, those of rest_: a row that stays moves from the
// front of rest_ to the end of names_, which views do not notice.
void NameModel::UpdateNames(const std::vector<std::string>& names, int first) {
  const auto start = names_.begin() + first;
  rest_.assign(std::make_move_iterator(start), std::make_move_iterator(names_.end()));
  names_.erase(start, names_.end());
  for (auto next = names.begin(); next != names.end() || !rest_.empty();) {
    const auto gone = std::find_if(rest_.begin(), rest_.end(), [&](const std::string& name) {
      return next != names.end() && !NameLess(name, *next);
    });
    RemoveRows(static_cast<std::size_t>(gone - rest_.begin()));
    const auto come = std::find_if(next, names.end(), [&](const std::string& name) {
      return !rest_.empty() && !NameLess(name, rest_.front());
    });
    InsertRows(next, come);
    next = come;
    if (next != names.end() && rest_.front() == *next) {
      names_.push_back(std::move(rest_.front()));
      rest_.pop_front();
      ++next;
    }
  }
}

int NameModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(names_.size() + rest_.size());
}

QVariant NameModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  return FromPath(NameAt(static_cast<std::size_t>(index.row())));
}

const std::string& NameModel::NameAt(std::size_t row) const {
  return row < names_.size() ? names_[row] : rest_[row - names_.size()];
}

void NameModel::InsertRows(Iterator from, Iterator to) {
  if (from == to) return;
  const auto row = static_cast<int>(names_.size());
  beginInsertRows({}, row, row + static_cast<int>(to - from) - 1);
  names_.insert(names_.end(), from, to);
  endInsertRows();
}

void NameModel::RemoveRows(std::size_t count) {
  if (count == 0) return;
  const auto row = static_cast<int>(names_.size());
  beginRemoveRows({}, row, row + static_cast<int>(count) - 1);
  rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(count));
  endRemoveRows();
}

}  // namespace bwp
