#include "support/recorders.h"

#include <sstream>

namespace bwp::test {

void RecordedProgress::SetLabel(const std::string& label) {
  label_ = label;
  transcript_.push_back("label " + label);
}

void RecordedProgress::SetBar(float percent) {
  std::ostringstream text;
  text << "bar " << percent;
  transcript_.push_back(text.str());
}

void RecordedProgress::Show() {
  visible_ = true;
  transcript_.push_back("show");
}

void RecordedProgress::Hide() {
  visible_ = false;
  transcript_.push_back("hide");
}

void RecordedProgress::LetEventsRun() {
  transcript_.push_back("events");
  if (++rounds_ == cancelAt_) PressCancel();
  if (onEvents) onEvents();
}

void RecordedProgress::ClearAbort() {
  aborted_ = false;
  transcript_.push_back("clear abort");
}

void RecordedNotices::Tell(const std::string& text, const std::string& title, Icon icon) {
  static const char* const kIcons[] = {"", " (i)", " (!)", " (x)"};
  transcript_.push_back("tell " + (title.empty() ? "" : "[" + title + "] ") + text +
                        kIcons[static_cast<int>(icon)]);
  if (onTell) onTell();
}

bool RecordedNotices::Ask(const std::string& question) {
  transcript_.push_back("ask " + question);
  if (onTell) onTell();
  return answer;
}

void RecordedDisplay::ShowTitle(const std::string& text) {
  title = text;
  transcript_.push_back("title");
}

void RecordedDisplay::ShowWindowTexts(const WindowTexts& texts) {
  window = texts;
  transcript_.push_back("window texts");
}

void RecordedDisplay::ShowChunkTexts(const ChunkTexts& texts) {
  chunk = texts;
  transcript_.push_back("chunk texts");
}

void RecordedDisplay::LetEventsRun() {
  transcript_.push_back("display events");
  if (onEvents) onEvents();
}

void RecordedDisplay::NextFrame() {
  transcript_.push_back("frame");
  if (onFrame) onFrame();
}

}  // namespace bwp::test
