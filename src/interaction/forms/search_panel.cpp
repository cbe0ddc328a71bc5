#include "interaction/forms/search_panel.h"

#include <utility>

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "interaction/forms/term_field.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/position_entry.h"

namespace bwp {

SearchPanel::SearchPanel(ViewState& state, Services& services, QWidget* parent)
    : QGroupBox(QStringLiteral("Search"), parent),
      Find(new QPushButton(QStringLiteral("Find/Next"), this)),
      state_(state),
      services_(services),
      Atext_(
          new TermField(QStringLiteral("Atext"), QStringLiteral("Type in a ASCII string to search"), this)),
      Htext_(new TermField(QStringLiteral("Htext"),
                           QStringLiteral("Type in HEX bytes to search separated by spaces"), this)),
      Dtext_(new TermField(QStringLiteral("Dtext"),
                           QStringLiteral("Type in DEC bytes to search separated by spaces"), this)),
      NoCase_(new QCheckBox(QStringLiteral("Not Sensitive"), this)) {
  Find->setObjectName(QStringLiteral("Find"));
  Find->setToolTip(QStringLiteral("Find Data in the file"));
  Find->setAccessibleName(Find->toolTip());
  NoCase_->setObjectName(QStringLiteral("NoCase"));
  NoCase_->setToolTip(
      QStringLiteral("Uncheck to perform search CASE SENSITIVE, it affects also HEX and DEC searches"));
  NoCase_->setAccessibleName(QStringLiteral("Not case sensitive"));

  Atext_->onCharacter = [this] { search_.TermTyped(state_); };
  Atext_->onEnter = [this] {
    search_.TermTyped(state_);
    ShowAtextInMirrors();
    Run();
  };
  Atext_->onEdited = [this](bool /*byCharacter*/) {
    search_.TermTyped(state_);
    ShowAtextInMirrors();
  };
  ConnectHeld(*Htext_, Source::kHtext);
  ConnectHeld(*Dtext_, Source::kDtext);
  for (TermField* const field : {Atext_, Htext_, Dtext_}) {
    field->onEscape = [this] { AbandonTyping(state_, services_.display); };
    field->onLeft = [this] { Level(); };
  }
  connect(Find, &QPushButton::clicked, this, [this] { FindNext(); });
  connect(NoCase_, &QCheckBox::clicked, this, [this] { state_.FieldTyping = false; });
  LayOut();
}

// A field that loses the focus while the panel goes has nobody left to tell.
SearchPanel::~SearchPanel() {
  for (TermField* const field : {Atext_, Htext_, Dtext_}) field->onLeft = nullptr;
}

// The two fields whose mirrors show a character only with the key after it.
void SearchPanel::ConnectHeld(TermField& field, Source source) {
  field.onCharacter = [this, source] {
    search_.TermTyped(state_);
    Mirror(source);
  };
  field.onEnter = [this, source] {
    search_.TermTyped(state_);
    Mirror(source);
    Run();
  };
  field.onEdited = [this, source](bool byCharacter) {
    search_.TermTyped(state_);
    behind_ = source;
    if (!byCharacter) Level();
  };
}

void SearchPanel::LayOut() {
  auto* const grid = new QGridLayout(this);
  const std::pair<QString, TermField*> rows[] = {
      {QStringLiteral("Text"), Atext_}, {QStringLiteral("Hex"), Htext_}, {QStringLiteral("Dec"), Dtext_}};
  int row = 0;
  for (const auto& [text, field] : rows) {
    auto* const label = new QLabel(text, this);
    label->setBuddy(field);
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1, 1, 2);
    ++row;
  }
  grid->addWidget(Find, row, 1);
  grid->addWidget(NoCase_, row, 2);
  grid->setColumnStretch(1, 1);
  setTabOrder(Atext_, Htext_);
  setTabOrder(Htext_, Dtext_);
  setTabOrder(Dtext_, Find);
  setTabOrder(Find, NoCase_);
}

void SearchPanel::FindNext() {
  Level();
  search_.FindClicked(state_, services_, Fields(), NoCase_->isChecked());
}

void SearchPanel::FocusTerm() {
  Atext_->setFocus(Qt::ShortcutFocusReason);
  Atext_->selectAll();
}

void SearchPanel::ShowAtextInMirrors() {
  SearchFields fields = Fields();
  MirrorAtext(fields);
  Htext_->setText(FromCodePage(fields.Htext));
  Dtext_->setText(FromCodePage(fields.Dtext));
  behind_ = Source::kNothing;
}

void SearchPanel::Mirror(Source source) {
  SearchFields fields = Fields();
  if (source == Source::kHtext) {
    MirrorHtext(fields);
    Dtext_->setText(FromCodePage(fields.Dtext));
  } else {
    MirrorDtext(fields);
    Htext_->setText(FromCodePage(fields.Htext));
  }
  Atext_->setText(FromCodePage(fields.Atext));
  behind_ = Source::kNothing;
}

void SearchPanel::Level() {
  if (behind_ != Source::kNothing) Mirror(behind_);
}

void SearchPanel::Run() {
  search_.Run(state_, services_, Fields(), NoCase_->isChecked());
}

SearchFields SearchPanel::Fields() const {
  return {ToCodePage(Atext_->text()), ToCodePage(Htext_->text()), ToCodePage(Dtext_->text())};
}

}  // namespace bwp
