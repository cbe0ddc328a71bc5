#include "interaction/forms/scroll_bar_widget.h"

#include <QEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "interaction/forms/scroll_parts.h"
#include "viewer/forms/units.h"
#include "viewer/forms/widgets.h"
#include "viewer/open_view_file.h"

namespace bwp {
namespace {

constexpr int kBarWidth = 18;
// A notch of a wheel is 120 eighths of a degree, and three lines here as in most programs.
constexpr int kEighthsPerLine = 40;

bool IsOfMouse(QEvent::Type type) {
  return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
         type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove;
}

}  // namespace

ScrollBarWidget::ScrollBarWidget(ViewState& state, Display& display, QWidget* parent)
    : QWidget(parent),
      state_(state),
      timer_(this),
      bar_(state, display, timer_),
      VSUP_(new LineButton(Qt::UpArrow, this)),
      VSDW_(new LineButton(Qt::DownArrow, this)) {
  VSBack_ = new ScrollTrack(this);
  VSB_ = new ThumbHandle(VSBack_);
  Name(*VSUP_, QStringLiteral("VSUP"), QStringLiteral("Scroll up one line"),
       QStringLiteral("Click to scroll Up one line"));
  Name(*VSDW_, QStringLiteral("VSDW"), QStringLiteral("Scroll down one line"),
       QStringLiteral("Click to scroll Down one line"));
  Name(*VSBack_, QStringLiteral("VSBack"), QStringLiteral("Scroll one page"),
       QStringLiteral("Click to scroll one page "));
  Name(*VSB_, QStringLiteral("VSB"), QStringLiteral("Scroll thumb"),
       QStringLiteral("Drag to scroll data window"));

  const auto connectLine = [this](const LineButton* button, ScrollBar::Line line) {
    connect(button, &LineButton::Held, this, [this, line] { bar_.PressLine(line); });
    connect(button, &LineButton::LetGo, this, [this, line] { bar_.ReleaseLine(line); });
  };
  connectLine(VSUP_, ScrollBar::Line::kUp);
  connectLine(VSDW_, ScrollBar::Line::kDown);
  connect(&timer_.Timer(), &QTimer::timeout, this, [this] { bar_.HoldElapsed(); });
  VSBack_->installEventFilter(this);
  VSB_->installEventFilter(this);

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(VSUP_);
  column->addWidget(VSBack_, 1);
  column->addWidget(VSDW_);
  VSUP_->setFixedSize(kBarWidth, kBarWidth);
  VSDW_->setFixedSize(kBarWidth, kBarWidth);
  setFixedWidth(kBarWidth);
}

void ScrollBarWidget::ShowThumb() {
  VSB_->setGeometry(0, ToPixels(state_.thumb.top), VSBack_->width(), ToPixels(state_.thumb.height));
}

// The mouse button that held a line button comes up elsewhere, or does no more good.
void ScrollBarWidget::LetGo() {
  VSUP_->setDown(false);
  VSDW_->setDown(false);
  bar_.LetGo();
}

void ScrollBarWidget::TurnWheel(int eighths) {
  // In edit mode the page does not move.
  if (!VSBack_->isEnabled()) return;
  wheel_ += eighths;
  const int lines = wheel_ / kEighthsPerLine;
  wheel_ %= kEighthsPerLine;
  if (lines != 0) bar_.TurnWheel(-lines);
}

bool ScrollBarWidget::eventFilter(QObject* watched, QEvent* event) {
  // A disabled part's events pass here as well; they are for the form.
  const bool takesMouse = static_cast<const QWidget*>(watched)->isEnabled();
  if (watched == VSBack_ && event->type() == QEvent::EnabledChange && !takesMouse) bar_.Stop();
  if (watched == VSBack_ && event->type() == QEvent::Resize) {
    FitThumb(state_, ToUnits(VSBack_->height()));
    ShowThumb();
  }
  if (!takesMouse || !IsOfMouse(event->type())) return false;
  const auto& mouse = static_cast<const QMouseEvent&>(*event);
  return watched == VSB_ ? ThumbMouse(mouse) : TrackMouse(mouse);
}

bool ScrollBarWidget::TrackMouse(const QMouseEvent& mouse) {
  switch (mouse.type()) {
    case QEvent::MouseButtonPress:
      if (mouse.button() != Qt::LeftButton) return false;
      bar_.PressTrack(ToUnits(mouse.position().x()), ToUnits(mouse.position().y()));
      return true;
    case QEvent::MouseButtonDblClick:
      if (mouse.button() != Qt::LeftButton) return false;
      bar_.DoubleClickTrack();
      return true;
    case QEvent::MouseButtonRelease:
      if (mouse.button() != Qt::LeftButton) return false;
      bar_.ReleaseTrack(ToUnits(mouse.position().y()));
      return true;
    default:
      return false;
  }
}

bool ScrollBarWidget::ThumbMouse(const QMouseEvent& mouse) {
  switch (mouse.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (mouse.button() != Qt::LeftButton) return false;
      bar_.PressThumb();
      return true;
    case QEvent::MouseButtonRelease:
      if (mouse.button() != Qt::LeftButton) return false;
      bar_.ReleaseThumb();
      return true;
    case QEvent::MouseMove: {
      // Measured on the track, which does not move: the thumb moves under the pointer, by parts of a pixel.
      const double onTrack = ToUnits(VSBack_->mapFromGlobal(mouse.globalPosition()).y());
      bar_.DragThumb(mouse.buttons() != Qt::NoButton, onTrack - state_.thumb.top);
      return true;
    }
    default:
      return false;
  }
}

}  // namespace bwp
