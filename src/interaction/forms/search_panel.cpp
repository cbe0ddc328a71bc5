#include "interaction/forms/search_panel.h"

#include <utility>

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "interaction/forms/term_field.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"
#include "viewer/position_entry.h"

namespace bwp {

SearchPanel::SearchPanel(ViewState& state, const Services& services, QWidget* parent)
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
  Name(*Find, QStringLiteral("Find"), QStringLiteral("Find Data in the file"),
       QStringLiteral("Find Data in the file"));
  Name(*NoCase_, QStringLiteral("NoCase"), QStringLiteral("Not case sensitive"),
       QStringLiteral("Uncheck to perform search CASE SENSITIVE, it affects also HEX and DEC searches"));

  ConnectText();
  ConnectNumbers(*Htext_, Source::kHtext);
  ConnectNumbers(*Dtext_, Source::kDtext);
  for (TermField* const field : {Atext_, Htext_, Dtext_}) {
    connect(field, &TermField::EscapePressed, this, [this] { AbandonTyping(state_, services_.display); });
    connect(field, &TermField::FocusLeft, this, [this] { Level(); });
  }
  connect(Find, &QPushButton::clicked, this, [this] { FindNext(); });
  connect(NoCase_, &QCheckBox::clicked, this, [this] { state_.FieldTyping = false; });
  LayOut();
}

// A field that loses the focus while the panel is destroyed must not call into it.
SearchPanel::~SearchPanel() {
  for (TermField* const field : {Atext_, Htext_, Dtext_}) field->disconnect(this);
}

void SearchPanel::ConnectText() {
  connect(Atext_, &TermField::CharacterComing, this, [this] { search_.TermTyped(state_); });
  connect(Atext_, &TermField::EnterPressed, this, [this] { Enter(Source::kAtext); });
  connect(Atext_, &TermField::Edited, this, [this] {
    search_.TermTyped(state_);
    Mirror(Source::kAtext);
  });
}

// The two fields whose mirrors show a character only with the key after it.
void SearchPanel::ConnectNumbers(TermField& field, Source source) {
  connect(&field, &TermField::CharacterComing, this, [this, source] {
    search_.TermTyped(state_);
    Mirror(source);
  });
  connect(&field, &TermField::EnterPressed, this, [this, source] { Enter(source); });
  connect(&field, &TermField::Edited, this, [this, source](bool byCharacter) {
    search_.TermTyped(state_);
    behind_ = source;
    if (!byCharacter) Level();
  });
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
  run([this] {
    Level();
    search_.FindClicked(state_, services_, Fields(), NoCase_->isChecked());
  });
}

// All of it is one search: what runs it may end the typing in a field first, and Enter begins it again.
void SearchPanel::Enter(Source source) {
  run([this, source] {
    search_.TermTyped(state_);
    Mirror(source);
    search_.Run(state_, services_, Fields(), NoCase_->isChecked());
  });
}

void SearchPanel::FocusTerm() {
  Atext_->setFocus(Qt::ShortcutFocusReason);
  Atext_->selectAll();
}

// Shows in the other two fields what this one holds.
void SearchPanel::Mirror(Source source) {
  SearchFields fields = Fields();
  if (source == Source::kAtext) MirrorAtext(fields);
  if (source == Source::kHtext) MirrorHtext(fields);
  if (source == Source::kDtext) MirrorDtext(fields);
  if (source != Source::kAtext) Atext_->ShowText(FromCodePage(fields.Atext));
  if (source != Source::kHtext) Htext_->ShowText(FromCodePage(fields.Htext));
  if (source != Source::kDtext) Dtext_->ShowText(FromCodePage(fields.Dtext));
  behind_ = Source::kNothing;
}

void SearchPanel::Level() {
  if (behind_ != Source::kNothing) Mirror(behind_);
}

SearchFields SearchPanel::Fields() const {
  return {ToCodePage(Atext_->text()), ToCodePage(Htext_->text()), ToCodePage(Dtext_->text())};
}

}  // namespace bwp
