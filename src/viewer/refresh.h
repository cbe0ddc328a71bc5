#pragma once

#include "viewer/display.h"
#include "viewer/view_state.h"

namespace bwp {

/// Redraws everything from the view state; nearly every command ends here. Adds ScrollStep to SWStart once,
/// and goes on doing so page by page while AutoScroll is set, speeding up as AccelMode allows. Events are
/// handled between the pages, so that a handler can clear AutoScroll; handlers may also call Refresh. Does
/// nothing while RefreshIsHeldBack. Throws RunTimeError when the page cannot be read.
void Refresh(ViewState& state, Display& display);

/// True while the page is being edited, or a box is being typed into and no search has moved the page since.
bool RefreshIsHeldBack(const ViewState& state);

/// Limits SWStart to 0 .. FLen - 512; 0 for a shorter file.
void ClampStart(ViewState& state);

/// The caption of the main form.
std::string TitleText(const ViewState& state);

/// The texts of the boxes, as a refresh shows them.
WindowTexts WindowTextsOf(const ViewState& state);
ChunkTexts ChunkTextsOf(const ViewState& state);

}  // namespace bwp
