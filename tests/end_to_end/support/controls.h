#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QDBusConnection>

namespace bwp::test {

/// Where the accessibility service knows an object.
struct AccessibleObject {
  QString service;
  QString path;
};

/// One control as a screen reader hears it.
struct Control {
  AccessibleObject object;
  /// How deep it lies in its window, which itself is 0.
  int depth = 0;
  std::string role;
  std::string name;
  std::string description;
  /// The text that it holds, where it holds one.
  std::string text;
  bool enabled = false;
  bool focused = false;
  bool focusable = false;
  bool checked = false;
  bool active = false;
  /// On the screen.
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  int CentreX() const { return x + width / 2; }
  int CentreY() const { return y + height / 2; }
};

/// The controls of one running program, asked from the desktop's accessibility service. The calls answer
/// with nothing when the program does not answer.
class Controls {
 public:
  Controls(const std::string& busAddress, std::string program);
  ~Controls();
  Controls(const Controls&) = delete;
  Controls& operator=(const Controls&) = delete;

  /// Its windows that are on the screen.
  std::vector<Control> Windows() const;
  /// The window with that title and all in it that is on the screen, in the order of a screen reader.
  std::vector<Control> In(const std::string& window) const;
  /// The text in a cell of a table, which is what a screen reader says for it.
  std::string CellText(const Control& table, int row, int column) const;
  /// The cell itself, for its place on the screen.
  std::optional<Control> Cell(const Control& table, int row, int column) const;
  /// All controls of all windows, a line each, for a person to read.
  std::string Dump() const;

 private:
  QVariantList Call(const AccessibleObject& object, const char* interface, const char* method,
                    const QVariantList& arguments = {}) const;
  QVariant Property(const AccessibleObject& object, const char* interface, const char* name) const;
  std::vector<AccessibleObject> Children(const AccessibleObject& object) const;
  std::optional<AccessibleObject> Application() const;
  Control Look(const AccessibleObject& object, int depth) const;
  void Collect(const Control& parent, std::vector<Control>& found) const;

  std::string program_;
  QDBusConnection bus_;
};

}  // namespace bwp::test
