#pragma once

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
  SearchPanel(ViewState& state, Services& services, QWidget* parent = nullptr);

  ~SearchPanel() override;

  /// What a click on `Find` does: the first hit, or the next one.
  void FindNext();
  /// Puts the cursor where the term is typed.
  void FocusTerm();

  QPushButton* Find;

 private:
  enum class Source { kNothing, kHtext, kDtext };

  void LayOut();
  void ConnectHeld(TermField& field, Source source);
  void ShowAtextInMirrors();
  void Mirror(Source source);
  void Level();
  void Run();
  SearchFields Fields() const;

  ViewState& state_;
  Services& services_;
  Search search_;
  Source behind_ = Source::kNothing;  // the field that its mirrors lag behind
  TermField* Atext_;
  TermField* Htext_;
  TermField* Dtext_;
  QCheckBox* NoCase_;
};

}  // namespace bwp
