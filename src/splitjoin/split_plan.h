#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "viewer/view_state.h"

namespace bwp {

/// A medium's usable capacity in bytes, offered as a part size.
struct SizePreset {
  const char* name;
  std::int64_t bytes;
};

inline constexpr std::array<SizePreset, 6> kSizePresets{{{"Floppy 720K", 730112},
                                                         {"Floppy 1,44M", 1457664},
                                                         {"Zip 100M", 100431872},
                                                         {"Zip 250M", 256901120},
                                                         {"ISO1 CD 650M", 676331520},
                                                         {"ISO1 CD 700M", 735051776}}};

/// What the fields of the split form show: plain decimal numbers, and eight digits in the hexadecimal twins.
struct PlanFields {
  std::string NChunk, DChsize, HCHsize, Dlast, Hlast;
  std::int64_t Sly = 0;         ///< The slider's value.
  std::int64_t UDCh = 0;        ///< The up-down's value.
  std::int64_t maximum = 0;     ///< The upper limit of both.
  std::int64_t minimum = 0;     ///< Their lower limit: 1, or 0 for an empty file.
  std::int64_t sliderStep = 0;  ///< The slider's large step.
  int Preset = -1;              ///< The chosen preset, as long as the part size is its own; -1 for none.
};

/// How the open file is cut into parts: one part size, set in any of seven ways, and everything that follows
/// from it. After each of them the whole plan is recomputed and the form shows `Fields` and `Title`.
class SplitPlan {
 public:
  explicit SplitPlan(const ViewState& state) : state_(state) {}

  /// Prepares for the current file: the part size is the marked chunk's length.
  void init();
  /// Recomputes the whole plan from the part size. If that is 0, as it is for an empty file, the fields keep
  /// what they show.
  void Agggraph();

  /// The slider's thumb moves: the size fields follow, the rest of the plan waits for ReleaseSlider.
  void DragSlider(std::int64_t position);
  /// A key or the mouse button is released on the slider.
  void ReleaseSlider(std::int64_t position);
  /// The up-down has a new value.
  void ChangeCount(std::int64_t count);
  /// The up-down's lower arrow was clicked. ChangeCount with the new value follows and has the last word.
  void ClickCountDown(std::int64_t count);
  /// Enter in NChunk.
  void EnterCount(std::string_view text);
  /// Typing in DChsize, and Enter there.
  void TypeDecimalSize(std::string_view text);
  void EnterDecimalSize(std::string_view text);
  /// Typing in HCHsize, and Enter there.
  void TypeHexSize(std::string_view text);
  void EnterHexSize(std::string_view text);
  /// An entry of the preset list was chosen. An index outside the list changes nothing.
  void ChoosePreset(int index);

  std::int64_t PartSize() const { return partSize_; }
  /// Whether there is a file to split and a size to split it by.
  bool CanSplit() const { return !state_.OpenFile.empty() && state_.FLen > 0 && partSize_ > 0; }

  const PlanFields& Fields() const { return fields_; }
  /// The form's caption: the file size, and the total that the plan adds up to.
  std::string Title() const;
  std::int64_t FileSize() const { return state_.FLen; }

 private:
  void FitLimits();
  void WriteDecimalSize(std::string text);
  void ForgetOtherPreset();
  std::int64_t InsideFile(std::int64_t size) const;

  const ViewState& state_;
  std::int64_t partSize_ = 0;
  std::int64_t lastPartSize_ = 0;   ///< 0 when the parts are all of one size.
  std::int64_t fileSizeCopy_ = -1;  ///< The file size that the limits are for.
  std::int64_t parts_ = 0;
  PlanFields fields_;
};

/// The quotient as the nearest whole number; a tie goes to the even neighbour. Neither may be negative, nor
/// the divisor 0.
std::int64_t RoundedQuotient(std::int64_t dividend, std::int64_t divisor);

/// The part size for a typed number of parts: about that many, as even as whole sizes allow. The count is
/// between 1 and the file size.
std::int64_t PartSizeForCount(std::int64_t fileSize, std::int64_t count);

}  // namespace bwp
