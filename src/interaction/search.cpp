#include "interaction/search.h"

#include "fileops/shown_file.h"
#include "viewer/code_page.h"
#include "viewer/mark_cells.h"
#include "viewer/number_text.h"
#include "viewer/refresh.h"

namespace bwp {
namespace {

// The search's own place in the open file, next to the page's.
class ViewFileSource : public FileSystem::ByteSource {
 public:
  ViewFileSource(const ViewFile& file, std::int64_t& position) : file_(file), position_(position) {}

  std::size_t Read(void* bytes, std::size_t count) override {
    const std::size_t got = file_.ReadAt(position_, bytes, count);
    position_ += static_cast<std::int64_t>(got);
    return got;
  }

 private:
  const ViewFile& file_;
  std::int64_t& position_;
};

// The label is a byte string that may hold UTF-8, the fields are of the program's character set.
std::string LabelOf(const SearchFields& fields) {
  return "\nSearching String:  " + code_page::ToUtf8(fields.Atext) +
         "\nHEX:     " + code_page::ToUtf8(fields.Htext) + "\nDecimal: " + code_page::ToUtf8(fields.Dtext);
}

// The cells keep their texts: only what the page shows of their colours changes.
template <typename Colouring>
void Recolour(Display& display, Colouring colouring) {
  display.SetRedraw(false);
  colouring();
  display.SetRedraw(true);
}

void ShowFound(ViewState& state, Display& display, std::int64_t hit, std::size_t length) {
  state.SWStart = hit;
  ClampStart(state);
  Refresh(state, display);
  Recolour(display, [&] { ShowHit(state, hit, static_cast<std::int64_t>(length)); });
}

}  // namespace

void Search::TermTyped(ViewState& state) {
  state.FieldTyping = true;
  NewSearch = true;
}

void Search::Run(ViewState& state, const Services& services, const SearchFields& fields, bool NoCase) {
  state.ForceRefresh = true;
  state.NavKeyHeld = false;
  const std::string term = SearchTerm(fields.Dtext);
  if (term.empty() || state.OpenFile.empty()) return;

  if (state.hit.length > 0) Recolour(services.display, [&] { ClearHit(state); });
  Progress& progress = services.progress;
  progress.SetCaption("Search");
  progress.SetLabel(LabelOf(fields));
  progress.Show();
  progress.LetEventsRun();
  const std::int64_t position = FindNext(state, progress, term, NoCase);
  progress.SetBar(0);
  progress.Hide();

  if (progress.Aborted()) {
    startOver_ = true;
    services.notices.Tell("Search aborted", {}, Notices::Icon::kInformation);
  } else if (state.file.Length() < state.FLen) {
    // Another program cut the file short: what was counted as read was not there.
    state.FieldTyping = false;
    TellChanged(state, services);
  } else if (position > -1) {
    NewSearch = false;
    ShowFound(state, services.display, position - 1, term.size());
  } else {
    NewSearch = true;
    services.notices.Tell("String not found");
    state.FieldTyping = false;
  }
  progress.ClearAbort();
}

void Search::FindClicked(ViewState& state, const Services& services, const SearchFields& fields,
                         bool NoCase) {
  state.FieldTyping = true;
  Run(state, services, fields, NoCase);
  state.FieldTyping = false;
}

// What the search holds of the file may have been edited since it was read. In front of the file's first byte
// it holds blanks.
void Search::RereadHeld(const ViewFile& file) {
  const std::int64_t held =
      funzioni::MinOf({static_cast<std::int64_t>(found_.text.View().size()), position_});
  std::int64_t place = position_ - held;
  ViewFileSource source(file, place);
  found_.text.RereadEnd(source, static_cast<std::size_t>(held));
}

// The 1-based position of the next match, or -1.
std::int64_t Search::FindNext(const ViewState& state, Progress& progress, const std::string& term,
                              bool NoCase) {
  if (state.FLen == 0) return -1;
  const bool restart = NewSearch || startOver_ || openings_ != state.openings;
  if (restart) {
    position_ = 0;
  } else {
    RereadHeld(state.file);
  }
  startOver_ = false;
  openings_ = state.openings;
  ViewFileSource source(state.file, position_);
  return FileSystem::StreamFind(progress, found_, source, term, state.FLen, restart,
                                NoCase ? FileSystem::Compare::kIgnoreCase : FileSystem::Compare::kBinary,
                                block_);
}

}  // namespace bwp
