#pragma once

#include <functional>

#include <QGroupBox>

#include "fileops/services.h"
#include "interaction/search.h"

class QCheckBox;
class QPushButton;

namespace bwp {

class TermField;

/// The three search fields, which show one term in three ways, and what starts the search. Characters typed
/// into `Atext` show in the other two at once; those typed into `Htext` and `Dtext` with the next key, with
/// Enter, or when the field is left.
class SearchPanel : public QGroupBox {
 public:
  SearchPanel(ViewState& state, const Services& services, QWidget* parent = nullptr);

  ~SearchPanel() override;

  /// Runs a search. The main form sees to it that nothing else works on the file meanwhile; it may refuse.
  std::function<void(const std::function<void()>& search)> run = [](const std::function<void()>& search) {
    search();
  };

  /// What a click on `Find` does: the first hit, or the next one.
  void FindNext();
  /// Puts the cursor where the term is typed.
  void FocusTerm();

  QPushButton* Find;

 private:
  enum class Source { kNothing, kAtext, kHtext, kDtext };

  void LayOut();
  void ConnectText();
  void ConnectNumbers(TermField& field, Source source);
  void Mirror(Source source);
  void Level();
  void Enter(Source source);
  SearchFields Fields() const;

  ViewState& state_;
  const Services& services_;
  Search search_;
  Source behind_ = Source::kNothing;  // the field that its mirrors lag behind
  TermField* Atext_;
  TermField* Htext_;
  TermField* Dtext_;
  QCheckBox* NoCase_;
};

}  // namespace bwp
