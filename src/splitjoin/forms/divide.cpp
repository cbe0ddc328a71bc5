#include "splitjoin/forms/divide.h"

#include <QComboBox>
#include <QEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include "splitjoin/forms/division_view.h"
#include "splitjoin/forms/up_down.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/units.h"
#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

// The form's smallest size, and how much narrower the slider and the frame are, in form units.
constexpr double kLeastWidth = 8670;
constexpr double kLeastHeight = 3930;
constexpr double kSliderNarrower = 105;
constexpr double kFrameNarrower = 460;

constexpr int kFirstHeight = 330;

QLineEdit* NumberField(QWidget* form, const char* name, const char* spoken, const QString& tip) {
  auto* const field = new QLineEdit(form);
  Name(*field, QLatin1String(name), QLatin1String(spoken), tip);
  field->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  field->setAlignment(Qt::AlignRight);
  return field;
}

QPushButton* Button(QWidget* form, const char* name) {
  auto* const button = new QPushButton(QLatin1String(name), form);
  Name(*button, QLatin1String(name), QLatin1String(name));
  // Enter is for the fields.
  button->setAutoDefault(false);
  return button;
}

QLabel* LabelFor(QWidget* field, const QString& text) {
  auto* const label = new QLabel(text, field->parentWidget());
  label->setBuddy(field);
  return label;
}

QLabel* Heading(QWidget* form, const QString& text) {
  auto* const label = new QLabel(text, form);
  label->setAlignment(Qt::AlignRight);
  return label;
}

// A centred row that is narrower than the form by that many units.
QHBoxLayout* RowOf(QWidget* widget, double narrower) {
  auto* const row = new QHBoxLayout;
  const int pixels = ToPixels(narrower);
  row->setContentsMargins(pixels / 2, 0, pixels - pixels / 2, 0);
  row->addWidget(widget);
  return row;
}

// Leaves a text alone that is there already, so that the cursor stays where it is while somebody types.
void Write(QLineEdit& field, const std::string& text) {
  const QString shown = FromCodePage(text);
  if (field.text() == shown) return;
  const QSignalBlocker quiet(&field);
  field.setText(shown);
}

}  // namespace

Divide::Divide(SplitPlan& plan, QWidget* parent) : QDialog(parent), plan_(plan) {
  setObjectName(QStringLiteral("Divide"));
  setWindowTitle(QStringLiteral("Split and join tool"));
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  setMinimumSize(ToPixels(kLeastWidth), ToPixels(kLeastHeight));
  MakeControls();
  LayOut();
  ConnectControls();
  ConnectSizeFields();
  resize(ToPixels(kLeastWidth), kFirstHeight);
}

void Divide::MakeControls() {
  division_ = new DivisionView(this);
  Name(*division_, QStringLiteral("Division"), QStringLiteral("Division of the file into parts"));
  Sly_ = new QSlider(Qt::Horizontal, this);
  Name(*Sly_, QStringLiteral("Sly"), QStringLiteral("Part size"),
       QStringLiteral("Drag to select part size, the graphic shows the division"));
  Sly_->installEventFilter(this);
  MakeNumberFields();
  Preset_ = new QComboBox(this);
  Name(*Preset_, QStringLiteral("Preset"), QStringLiteral("Preset part sizes"),
       QStringLiteral("Presets of some useful partsizes"));
  Preset_->setPlaceholderText(QStringLiteral("Choose a medium"));
  for (const SizePreset& preset : kSizePresets) {
    Preset_->addItem(QLatin1String(preset.name), QVariant::fromValue<qlonglong>(preset.bytes));
  }
  Preset_->setCurrentIndex(-1);
  Split_ = Button(this, "Split");
  Join_ = Button(this, "Join");
  Cancel_ = Button(this, "Cancel");
}

void Divide::MakeNumberFields() {
  const QString sizeTip = QStringLiteral("Type in the single part Max size (%1)");
  DChsize_ = NumberField(this, "DChsize", "Part size, decimal", sizeTip.arg(QStringLiteral("DEC")));
  HCHsize_ = NumberField(this, "HCHsize", "Part size, hexadecimal", sizeTip.arg(QStringLiteral("HEX")));
  NChunk_ =
      NumberField(this, "NChunk", "Number of parts", QStringLiteral("Select the desired number of parts"));
  UDCh_ = new UpDown(this);
  Name(*UDCh_, QStringLiteral("UDCh"), QStringLiteral("Number of parts, one more or less"),
       QStringLiteral("Click to select the number of parts"));
  const QString lastTip = QStringLiteral("Shows the size of the last part (%1)");
  Dlast_ = NumberField(this, "Dlast", "Size of the last part, decimal", lastTip.arg(QStringLiteral("DEC")));
  Hlast_ =
      NumberField(this, "Hlast", "Size of the last part, hexadecimal", lastTip.arg(QStringLiteral("HEX")));
  Dlast_->setReadOnly(true);
  Hlast_->setReadOnly(true);
}

void Divide::LayOut() {
  auto* const count = new QHBoxLayout;
  count->setSpacing(0);
  count->addWidget(NChunk_);
  count->addWidget(UDCh_);

  auto* const fields = new QGridLayout;
  fields->addWidget(Heading(this, QStringLiteral("Decimal")), 0, 1);
  fields->addWidget(Heading(this, QStringLiteral("Hexadecimal")), 0, 2);
  fields->addWidget(LabelFor(DChsize_, QStringLiteral("Part size:")), 1, 0);
  fields->addWidget(DChsize_, 1, 1);
  fields->addWidget(HCHsize_, 1, 2);
  fields->addWidget(LabelFor(Dlast_, QStringLiteral("Last part size:")), 2, 0);
  fields->addWidget(Dlast_, 2, 1);
  fields->addWidget(Hlast_, 2, 2);
  fields->setColumnMinimumWidth(3, 12);
  fields->addWidget(LabelFor(NChunk_, QStringLiteral("Number of parts:")), 1, 4);
  fields->addLayout(count, 1, 5);
  fields->addWidget(LabelFor(Preset_, QStringLiteral("Preset part size:")), 2, 4);
  fields->addWidget(Preset_, 2, 5);
  for (const int column : {1, 2, 5}) fields->setColumnStretch(column, 1);

  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* const button : {Split_, Join_, Cancel_}) buttons->addWidget(button);

  const int margin = ToPixels(kFrameNarrower) / 2;
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, margin, 0, margin);
  rows->addLayout(RowOf(division_, kFrameNarrower), 1);
  rows->addLayout(RowOf(Sly_, kSliderNarrower));
  for (QLayout* const layout : {static_cast<QLayout*>(fields), static_cast<QLayout*>(buttons)}) {
    layout->setContentsMargins(margin, 0, margin, 0);
    rows->addLayout(layout);
  }
}

void Divide::ConnectControls() {
  connect(Sly_, &QSlider::valueChanged, this, [this](int position) { MoveSlider(position); });
  connect(UDCh_, &UpDown::DownClicked, this, [this] {
    plan_.ClickCountDown(UDCh_->value());
    ShowPlan();
  });
  connect(UDCh_, &QSpinBox::valueChanged, this, [this](int count) {
    plan_.ChangeCount(count);
    ShowPlan();
  });
  connect(NChunk_, &QLineEdit::returnPressed, this, [this] {
    plan_.EnterCount(ToCodePage(NChunk_->text()));
    ShowPlan();
  });
  connect(Preset_, &QComboBox::activated, this, [this](int index) {
    plan_.ChoosePreset(index);
    ShowPlan();
  });
  connect(Split_, &QPushButton::clicked, this, [this] { Q_EMIT SplitClicked(); });
  connect(Join_, &QPushButton::clicked, this, [this] { Q_EMIT JoinClicked(); });
  connect(Cancel_, &QPushButton::clicked, this, [this] { hide(); });
}

void Divide::ConnectSizeFields() {
  connect(DChsize_, &QLineEdit::textChanged, this, [this](const QString& text) {
    plan_.TypeDecimalSize(ToCodePage(text));
    ShowFields();
  });
  connect(DChsize_, &QLineEdit::returnPressed, this, [this] {
    plan_.EnterDecimalSize(ToCodePage(DChsize_->text()));
    ShowPlan();
  });
  connect(HCHsize_, &QLineEdit::textChanged, this, [this](const QString& text) {
    plan_.TypeHexSize(ToCodePage(text));
    ShowFields();
  });
  connect(HCHsize_, &QLineEdit::returnPressed, this, [this] {
    plan_.EnterHexSize(ToCodePage(HCHsize_->text()));
    ShowPlan();
  });
}

void Divide::Start() {
  plan_.init();
  Plan();
  BringUp(*this);
}

bool Divide::event(QEvent* event) {
  const bool handled = QDialog::event(event);
  if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show) {
    Plan();
  }
  return handled;
}

void Divide::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  // There is no plan before the form is first shown, and nothing to see while it is minimised.
  if (!isVisible() || isMinimized()) return;
  layout()->activate();
  Plan();
}

void Divide::Plan() {
  plan_.Agggraph();
  ShowPlan();
}

bool Divide::eventFilter(QObject* watched, QEvent* event) {
  const auto isKeyRepeat = [event] { return static_cast<QKeyEvent*>(event)->isAutoRepeat(); };
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
      sliderHeld_ = true;
      break;
    case QEvent::KeyRelease:
      if (!isKeyRepeat()) LetGoOfSlider();
      break;
    case QEvent::MouseButtonRelease:
      LetGoOfSlider();
      break;
    case QEvent::FocusOut:
      if (sliderHeld_) LetGoOfSlider();
      break;
    default:
      break;
  }
  return QDialog::eventFilter(watched, event);
}

// Moving the slider without holding it, as the wheel does, counts as a release too.
void Divide::MoveSlider(int position) {
  plan_.DragSlider(position);
  ShowFields();
  if (!sliderHeld_) LetGoOfSlider();
}

void Divide::LetGoOfSlider() {
  sliderHeld_ = false;
  plan_.ReleaseSlider(Sly_->value());
  ShowPlan();
}

void Divide::ShowPlan() {
  ShowLimits();
  ShowFields();
  {
    const QSignalBlocker quietSlider(Sly_);
    const QSignalBlocker quietArrows(UDCh_);
    Sly_->setValue(static_cast<int>(plan_.Fields().Sly));
    UDCh_->setValue(static_cast<int>(plan_.Fields().UDCh));
  }
  Sly_->update();
  setWindowTitle(FromCodePage(plan_.Title()));
  division_->ShowBoxes(DivisionBoxes(plan_.FileSize(), plan_.PartSize(), division_->Frame()));
}

void Divide::ShowFields() {
  const PlanFields& fields = plan_.Fields();
  Write(*NChunk_, fields.NChunk);
  Write(*DChsize_, fields.DChsize);
  Write(*HCHsize_, fields.HCHsize);
  Write(*Dlast_, fields.Dlast);
  Write(*Hlast_, fields.Hlast);
  Preset_->setCurrentIndex(fields.Preset);
  Split_->setEnabled(plan_.CanSplit());
}

void Divide::ShowLimits() {
  const PlanFields& fields = plan_.Fields();
  const QSignalBlocker quietSlider(Sly_);
  const QSignalBlocker quietArrows(UDCh_);
  Sly_->setRange(static_cast<int>(fields.minimum), static_cast<int>(fields.maximum));
  Sly_->setPageStep(static_cast<int>(fields.sliderStep));
  UDCh_->setRange(static_cast<int>(fields.minimum), static_cast<int>(fields.maximum));
  const bool hasBytes = plan_.FileSize() > 0;
  for (QWidget* const control :
       std::initializer_list<QWidget*>{Sly_, UDCh_, NChunk_, DChsize_, HCHsize_, Preset_}) {
    control->setEnabled(hasBytes);
  }
}

}  // namespace bwp
