#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fileops/byte_stream.h"
#include "fileops/progress.h"

/// The primitives that every long file operation is built from. Each works in steps of at most one block;
/// after every step it moves the bar, lets events run and stops when Cancel was pressed. None does anything
/// when it was pressed before. They throw what the streams throw, and 11 for a count of zero where no bar can
/// be computed. The abort flag is read here and never cleared.
namespace FileSystem {

/// The most bytes that one step moves.
inline constexpr std::int64_t kCopyBlock = 1'048'576;

/// Copies the next count bytes of one stream to another. Throws 62 when the source holds fewer.
void StreamCopy(bwp::Progress& progress, ReadStream& source, WriteStream& destination, std::int64_t count,
                std::int64_t block = kCopyBlock);

/// Skips count bytes; a count of zero leaves the bar alone.
void StreamSkip(bwp::Progress& progress, ReadStream& stream, std::int64_t count,
                std::int64_t block = kCopyBlock);

/// Replaces the text by the next count bytes. Their memory is taken once and at the start; the old text's is
/// given back before. Throws 7 when there is not enough and 62 when the stream holds fewer bytes.
std::string& StreamReadText(bwp::Progress& progress, ReadStream& stream, std::string& text,
                            std::int64_t count, std::int64_t block = kCopyBlock);

/// Writes all of the text.
void StreamWriteText(bwp::Progress& progress, WriteStream& stream, std::string_view text,
                     std::int64_t block = kCopyBlock);

/// Copies count bytes (to the end of the source when not given) from the 1-based position start of one file
/// into a new file; one that is there is overwritten. The place that was sought stays in the label.
void FileRangeCopy(bwp::Progress& progress, const bwp::Disk& disk, const std::string& source,
                   const std::string& destination, std::int64_t start = 1,
                   std::optional<std::int64_t> count = std::nullopt, std::int64_t block = kCopyBlock);

}  // namespace FileSystem
