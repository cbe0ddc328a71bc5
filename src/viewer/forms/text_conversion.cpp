#include "viewer/forms/text_conversion.h"

#include "viewer/code_page.h"

namespace bwp {
namespace {

constexpr char16_t kEscape = 0xDC00;

// Length of the valid UTF-8 sequence at the start of the bytes; 0 when there is none.
qsizetype SequenceLength(QByteArrayView bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  const qsizetype length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length > bytes.size()) return 0;
  return QUtf8StringView(bytes.first(length).data(), length).isValidUtf8() ? length : 0;
}

}  // namespace

std::string ToCodePage(const QString& text) {
  return code_page::FromUnicode(std::u16string_view(reinterpret_cast<const char16_t*>(text.utf16()),
                                                    static_cast<std::size_t>(text.size())));
}

QString FromCodePage(std::string_view text) {
  const std::u16string characters = code_page::ToUnicode(text);
  return QString::fromUtf16(characters.data(), static_cast<qsizetype>(characters.size()));
}

QString FromPath(std::string_view path) {
  QByteArrayView bytes(path.data(), static_cast<qsizetype>(path.size()));
  if (bytes.isValidUtf8()) return QString::fromUtf8(bytes);
  QString text;
  while (!bytes.isEmpty()) {
    const qsizetype length = SequenceLength(bytes);
    if (length > 0) {
      text += QString::fromUtf8(bytes.first(length));
    } else {
      text += QChar(static_cast<char16_t>(kEscape + static_cast<unsigned char>(bytes.front())));
    }
    bytes = bytes.sliced(length > 0 ? length : 1);
  }
  return text;
}

std::string ToPath(const QString& path) {
  std::string bytes;
  QString pending;
  const auto flush = [&bytes, &pending] {
    bytes += pending.toStdString();
    pending.clear();
  };
  for (qsizetype i = 0; i < path.size(); ++i) {
    const char16_t unit = path[i].unicode();
    const bool paired = i > 0 && path[i - 1].isHighSurrogate();
    if (unit >= kEscape + 0x80 && unit <= kEscape + 0xFF && !paired) {
      flush();
      bytes += static_cast<char>(unit - kEscape);
    } else {
      pending += path[i];
    }
  }
  flush();
  return bytes;
}

QString TitleOf(std::string_view text) {
  return FromPath(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

}  // namespace bwp
