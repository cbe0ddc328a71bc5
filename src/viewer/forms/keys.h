#pragma once

class QKeyEvent;

/// What a key means to a text box.
namespace bwp {

/// Enter, on the keyboard's main part or its number block.
bool IsEnter(const QKeyEvent& key);

/// Whether a key produces a character, as Enter, Escape and Backspace do and the arrows do not.
bool IsCharacterKey(const QKeyEvent& key);

/// What a key does in a box for a number.
enum class BoxKey {
  kTab,     ///< Goes to the next box; the box sees it.
  kHeld,    ///< Enter or Escape repeating while it is held: one press is all that counts, so it is dropped.
  kEnter,   ///< Accepts what was typed.
  kEscape,  ///< Discards what was typed.
  kTyping   ///< Any other key.
};

BoxKey BoxKeyOf(const QKeyEvent& key);

}  // namespace bwp
