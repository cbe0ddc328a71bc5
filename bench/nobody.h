#pragma once

#include <string>

#include "fileops/progress.h"
#include "viewer/display.h"
#include "viewer/notices.h"

/// Stand-ins for the program's windows that do nothing, so that an operation is measured alone.
namespace bench {

class NoDisplay : public bwp::Display {
 public:
  void SetRedraw(bool /*on*/) override {}
  void MoveThumb() override {}
  void ShowTitle(const std::string& /*title*/) override {}
  void ShowRuler(bool /*hex*/) override {}
  void ShowWindowTexts(const bwp::WindowTexts& /*texts*/) override {}
  void ShowChunkTexts(const bwp::ChunkTexts& /*texts*/) override {}
  void FocusGridIfEnabled() override {}
  void LetEventsRun() override {}
  void NextFrame() override {}
};

/// Nobody cancels.
class NoProgress : public bwp::Progress {
 public:
  void SetCaption(const std::string& /*caption*/) override {}
  void SetLabel(const std::string& label) override { label_ = label; }
  std::string Label() const override { return label_; }
  void SetBar(float /*percent*/) override {}
  void Show() override {}
  void Hide() override {}
  void LetEventsRun() override {}
  bool Aborted() const override { return false; }
  void ClearAbort() override {}

 private:
  std::string label_;
};

/// Every question is answered with OK.
class NoNotices : public bwp::Notices {
 public:
  void Tell(const std::string& /*text*/, const std::string& /*title*/, Icon /*icon*/) override {}
  bool Ask(const std::string& /*question*/) override { return true; }
};

}  // namespace bench
