#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "fileops/progress.h"
#include "viewer/display.h"
#include "viewer/notices.h"

/// Replacements for the windows: each writes its calls into one shared transcript, so that a test can assert
/// the order of everything that the user would have seen.
namespace bwp::test {

using Transcript = std::vector<std::string>;

class RecordedProgress : public Progress {
 public:
  explicit RecordedProgress(Transcript& transcript) : transcript_(transcript) {}

  void SetCaption(const std::string& caption) override { transcript_.push_back("caption " + caption); }
  void SetLabel(const std::string& label) override;
  std::string Label() const override { return label_; }
  void SetBar(float percent) override;
  void Show() override;
  void Hide() override;
  void LetEventsRun() override;
  bool Aborted() const override { return aborted_; }
  void ClearAbort() override;

  /// Presses Cancel during the given round of events (1 is the first); 0 means never.
  void CancelAtEvents(int round) { cancelAt_ = round; }
  void PressCancel() { aborted_ = true; }
  int EventRounds() const { return rounds_; }
  bool Visible() const { return visible_; }
  std::function<void()> onEvents;  ///< Runs inside every LetEventsRun.

 private:
  Transcript& transcript_;
  std::string label_;
  bool aborted_ = false;
  bool visible_ = false;
  int rounds_ = 0;
  int cancelAt_ = 0;
};

class RecordedNotices : public Notices {
 public:
  explicit RecordedNotices(Transcript& transcript) : transcript_(transcript) {}

  void Tell(const std::string& text, const std::string& title, Icon icon) override;
  bool Ask(const std::string& question) override;

  bool answer = true;            ///< What the user answers.
  std::function<void()> onTell;  ///< Runs while a message or a question is up.

 private:
  Transcript& transcript_;
};

class RecordedDisplay : public Display {
 public:
  explicit RecordedDisplay(Transcript& transcript) : transcript_(transcript) {}

  void SetRedraw(bool on) override { transcript_.push_back(on ? "redraw on" : "redraw off"); }
  void MoveThumb() override { transcript_.push_back("thumb"); }
  void ShowTitle(const std::string& text) override;
  void ShowRuler(bool hex) override { transcript_.push_back(hex ? "ruler hex" : "ruler dec"); }
  void ShowWindowTexts(const WindowTexts& texts) override;
  void ShowChunkTexts(const ChunkTexts& texts) override;
  void FocusGridIfEnabled() override { transcript_.push_back("focus grid"); }
  void LetEventsRun() override;
  void NextFrame() override;

  std::string title;
  WindowTexts window;
  ChunkTexts chunk;
  std::function<void()> onEvents;  ///< Runs inside every LetEventsRun.
  std::function<void()> onFrame;   ///< Runs inside every NextFrame.

 private:
  Transcript& transcript_;
};

}  // namespace bwp::test
