#include "splitjoin/split_plan.h"

#include <utility>

#include "viewer/number_text.h"

namespace bwp {
namespace {

using funzioni::MaxOf;
using funzioni::MinOf;
using funzioni::SignPadded;

int Sign(std::int64_t value) {
  return value > 0 ? 1 : value < 0 ? -1 : 0;
}

// The largest power of two below a twentieth of the file, at most 2^30; 0 if there is none.
std::int64_t LargeStep(std::int64_t fileSize) {
  std::int64_t step = 0;
  for (int i = 0; i <= 30; ++i) {
    const std::int64_t power = std::int64_t{1} << i;
    if (power * 20 < fileSize) step = power;
  }
  return step;
}

// A size that needs more than eight digits shows as the largest one: Enter cuts it to the file's length
// anyway.
std::string HexSize(std::int64_t size) {
  return funzioni::HexOffset(MinOf({size, kMaxFileLength}));
}

}  // namespace

std::int64_t RoundedQuotient(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t whole = dividend / divisor;
  const std::int64_t rest = dividend % divisor;
  const bool up = rest > divisor - rest || (rest == divisor - rest && whole % 2 != 0);
  return whole + (up ? 1 : 0);
}

std::int64_t PartSizeForCount(std::int64_t fileSize, std::int64_t count) {
  for (;;) {
    const std::int64_t size = RoundedQuotient(fileSize, count);
    if (size * count >= fileSize) return size;
    if (count < size) return size + 1;
    // On to the first count whose parts cover the file: those before it all round to the same size.
    count = (fileSize + size - 1) / size;
  }
}

void SplitPlan::init() {
  partSize_ = state_.MarkEnd - state_.MarkStart + 1;
  FitLimits();
  fields_.UDCh = fields_.minimum;
  fields_.Preset = -1;
}

void SplitPlan::FitLimits() {
  fileSizeCopy_ = state_.FLen;
  fields_.maximum = fileSizeCopy_;
  fields_.minimum = MinOf({1, fileSizeCopy_});
  fields_.sliderStep = LargeStep(fileSizeCopy_);
}

void SplitPlan::Agggraph() {
  const std::int64_t fileSize = state_.FLen;
  if (fileSize != fileSizeCopy_) FitLimits();
  partSize_ = MinOf({partSize_, fileSize});
  if (partSize_ <= 0) return;

  const std::int64_t wholeParts = fileSize / partSize_;
  lastPartSize_ = fileSize - wholeParts * partSize_;
  parts_ = wholeParts + Sign(lastPartSize_);
  fields_.Dlast = std::to_string(lastPartSize_);
  fields_.Hlast = HexSize(lastPartSize_);
  WriteDecimalSize(std::to_string(partSize_));
  fields_.NChunk = std::to_string(parts_);
  fields_.UDCh = parts_;
  fields_.Sly = partSize_;
}

// The list names a medium only while the part size is that medium's, or the whole of a shorter file.
void SplitPlan::ForgetOtherPreset() {
  if (fields_.Preset < 0) return;
  const std::int64_t preset = kSizePresets.at(static_cast<std::size_t>(fields_.Preset)).bytes;
  if (partSize_ != MinOf({preset, state_.FLen})) fields_.Preset = -1;
}

std::string SplitPlan::Title() const {
  const std::int64_t verified = lastPartSize_ + partSize_ * (parts_ - Sign(lastPartSize_));
  return "Split and Join Tool - Filesize: " + SignPadded(state_.FLen) + " - Verified:" + SignPadded(verified);
}

void SplitPlan::DragSlider(std::int64_t position) {
  WriteDecimalSize(std::to_string(position));
}

void SplitPlan::ReleaseSlider(std::int64_t position) {
  WriteDecimalSize(std::to_string(position));
  Agggraph();
}

void SplitPlan::ChangeCount(std::int64_t count) {
  if (count <= 0) return;
  fields_.NChunk = std::to_string(count);
  const std::int64_t quotient = state_.FLen / count;
  // One byte more than the quotient, even if the count divides the file.
  partSize_ = quotient + Sign(quotient);
  Agggraph();
}

void SplitPlan::ClickCountDown(std::int64_t count) {
  if (count <= 0) return;
  const std::int64_t size = RoundedQuotient(state_.FLen, count);
  // One byte less, taken off before rounding: after a tie that makes a difference.
  partSize_ = size == partSize_ ? RoundedQuotient(MaxOf({0, state_.FLen - count}), count) : size;
  Agggraph();
}

void SplitPlan::EnterCount(std::string_view text) {
  if (state_.FLen > 0) {
    const std::int64_t count = MinOf({state_.FLen, MaxOf({1, funzioni::ParseDecimal(text)})});
    partSize_ = PartSizeForCount(state_.FLen, count);
  }
  Agggraph();
}

void SplitPlan::TypeDecimalSize(std::string_view text) {
  WriteDecimalSize(std::string(text));
}

void SplitPlan::EnterDecimalSize(std::string_view text) {
  partSize_ = InsideFile(funzioni::ParseDecimal(text));
  Agggraph();
}

void SplitPlan::TypeHexSize(std::string_view text) {
  fields_.HCHsize = text;
  // Only the decimal twin follows; the part size waits for Enter.
  if (funzioni::IsNumberText(text, true)) fields_.DChsize = std::to_string(funzioni::ParseHex(text));
}

void SplitPlan::EnterHexSize(std::string_view text) {
  partSize_ = InsideFile(funzioni::IsNumberText(text, true) ? funzioni::ParseHex(text) : 0);
  fields_.HCHsize = HexSize(partSize_);
  Agggraph();
}

void SplitPlan::ChoosePreset(int index) {
  if (index < 0 || index >= static_cast<int>(kSizePresets.size())) return;
  fields_.Preset = index;
  partSize_ = kSizePresets[static_cast<std::size_t>(index)].bytes;
  Agggraph();
}

// The part size follows the decimal field, and with it the hexadecimal twin and the preset.
void SplitPlan::WriteDecimalSize(std::string text) {
  fields_.DChsize = std::move(text);
  partSize_ = funzioni::ParseDecimal(fields_.DChsize);
  fields_.HCHsize = HexSize(partSize_);
  ForgetOtherPreset();
}

std::int64_t SplitPlan::InsideFile(std::int64_t size) const {
  return MinOf({state_.FLen, MaxOf({1, size})});
}

}  // namespace bwp
