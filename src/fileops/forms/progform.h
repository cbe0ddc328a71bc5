#pragma once

#include <memory>

#include <QDialog>
#include <QElapsedTimer>
#include <QProgressBar>

#include "fileops/forms/input_barrier.h"
#include "fileops/progress.h"
#include "viewer/forms/path_label.h"

namespace bwp {

/// The window that shows how far a long operation has got. While it is shown no other window takes input.
/// Cancel, Escape and its frame's closing all do one thing: they set the abort flag. The operation sees that
/// after its current step, and it is the operation that hides the window.
class Progform : public QDialog, public Progress {
 public:
  explicit Progform(QWidget* parent);

  void SetCaption(const std::string& caption) override;
  void SetLabel(const std::string& label) override;
  std::string Label() const override { return label_; }
  void SetBar(float percent) override;
  void Show() override;
  void Hide() override;
  void LetEventsRun() override;
  bool Aborted() const override { return aborted_; }
  void ClearAbort() override { aborted_ = false; }

  void reject() override { aborted_ = true; }

 private:
  /// Lets the bar be painted if the last time is a while ago.
  void PaintWhenDue();

  QProgressBar* bar_;
  PathLabel* lab_;
  std::string label_;
  bool aborted_ = false;
  QElapsedTimer sincePaint_;
  InputBarrier barrier_{*this};
};

/// A `Progform` that is made when it is first needed.
class LazyProgform : public Progress {
 public:
  explicit LazyProgform(QWidget* parent) : parent_(parent) {}

  void SetCaption(const std::string& caption) override { Form().SetCaption(caption); }
  void SetLabel(const std::string& label) override { Form().SetLabel(label); }
  std::string Label() const override { return form_ ? form_->Label() : std::string(); }
  void SetBar(float percent) override { Form().SetBar(percent); }
  void Show() override { Form().Show(); }
  void Hide() override { Form().Hide(); }
  void LetEventsRun() override { Form().LetEventsRun(); }
  bool Aborted() const override { return form_ && form_->Aborted(); }
  void ClearAbort() override;

  /// An operation shows its progress now.
  bool Visible() const { return form_ && form_->isVisible(); }

 private:
  Progform& Form();

  QWidget* parent_;
  std::unique_ptr<Progform> form_;
};

}  // namespace bwp
