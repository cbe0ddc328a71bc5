#include "viewer/forms/name_model.h"

#include <iterator>
#include <utility>

#include "viewer/folder_listing.h"
#include "viewer/forms/text_conversion.h"

namespace bwp {
namespace {

auto At(const std::vector<std::string>& names, std::size_t place) {
  return std::next(names.begin(), static_cast<std::ptrdiff_t>(place));
}

}  // namespace

void NameModel::SetNames(std::vector<std::string> names) {
  beginResetModel();
  names_ = std::move(names);
  endResetModel();
}

void NameModel::UpdateNames(const std::vector<std::string>& names, int first) {
  auto row = static_cast<std::size_t>(first);
  for (std::size_t next = 0; row < names_.size() || next < names.size();) {
    std::size_t gone = row;
    while (gone < names_.size() && (next == names.size() || NameLess(names_[gone], names[next]))) ++gone;
    RemoveRows(row, gone);
    std::size_t come = next;
    while (come < names.size() && (row == names_.size() || NameLess(names[come], names_[row]))) ++come;
    InsertRows(row, names, next, come);
    row += come - next;
    next = come;
    if (row < names_.size() && next < names.size() && names_[row] == names[next]) {
      ++row;
      ++next;
    }
  }
}

int NameModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(names_.size());
}

QVariant NameModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  return FromPath(names_[static_cast<std::size_t>(index.row())]);
}

void NameModel::InsertRows(std::size_t row, const std::vector<std::string>& names, std::size_t from,
                           std::size_t to) {
  if (from == to) return;
  beginInsertRows({}, static_cast<int>(row), static_cast<int>(row + to - from) - 1);
  names_.insert(At(names_, row), At(names, from), At(names, to));
  endInsertRows();
}

void NameModel::RemoveRows(std::size_t from, std::size_t to) {
  if (from == to) return;
  beginRemoveRows({}, static_cast<int>(from), static_cast<int>(to) - 1);
  names_.erase(At(names_, from), At(names_, to));
  endRemoveRows();
}

}  // namespace bwp
