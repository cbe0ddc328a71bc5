#include "end_to_end/support/controls.h"

#include <cstdint>
#include <sstream>
#include <utility>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace bwp::test {
namespace {

constexpr const char* kAccessible = "org.a11y.atspi.Accessible";
constexpr const char* kComponent = "org.a11y.atspi.Component";
constexpr const char* kTable = "org.a11y.atspi.Table";
constexpr const char* kText = "org.a11y.atspi.Text";

// The numbers of the states in the two words that say which an object has.
enum State { kActive = 1, kChecked = 4, kEnabled = 8, kFocusable = 11, kFocused = 12, kShowing = 25 };

AccessibleObject ReadObject(const QDBusArgument& argument) {
  AccessibleObject object;
  QDBusObjectPath path;
  argument.beginStructure();
  argument >> object.service >> path;
  argument.endStructure();
  object.path = path.path();
  return object;
}

QDBusArgument First(const QVariantList& answer) {
  return answer.isEmpty() ? QDBusArgument() : answer.first().value<QDBusArgument>();
}

bool IsArgument(const QVariantList& answer) {
  return !answer.isEmpty() && answer.first().canConvert<QDBusArgument>();
}

QDBusConnection ConnectToAccessibilityBus(const std::string& sessionBus) {
  const QDBusConnection session =
      QDBusConnection::connectToBus(QString::fromStdString(sessionBus), QStringLiteral("session"));
  const QDBusMessage answer = session.call(
      QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                     QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
  const QString address = answer.arguments().isEmpty() ? QString() : answer.arguments().first().toString();
  return QDBusConnection::connectToBus(address, QStringLiteral("accessibility"));
}

}  // namespace

Controls::Controls(const std::string& busAddress, std::string program)
    : program_(std::move(program)), bus_(ConnectToAccessibilityBus(busAddress)) {}

Controls::~Controls() {
  QDBusConnection::disconnectFromBus(QStringLiteral("accessibility"));
  QDBusConnection::disconnectFromBus(QStringLiteral("session"));
}

QVariantList Controls::Call(const AccessibleObject& object, const char* interface, const char* method,
                            const QVariantList& arguments) const {
  constexpr int kPatienceInMs = 5000;
  QDBusMessage call = QDBusMessage::createMethodCall(
      object.service, object.path, QString::fromLatin1(interface), QString::fromLatin1(method));
  call.setArguments(arguments);
  const QDBusMessage answer = bus_.call(call, QDBus::Block, kPatienceInMs);
  return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments() : QVariantList();
}

QVariant Controls::Property(const AccessibleObject& object, const char* interface, const char* name) const {
  const QVariantList answer = Call(object, "org.freedesktop.DBus.Properties", "Get",
                                   {QString::fromLatin1(interface), QString::fromLatin1(name)});
  return answer.isEmpty() ? QVariant() : answer.first().value<QDBusVariant>().variant();
}

std::vector<AccessibleObject> Controls::Children(const AccessibleObject& object) const {
  std::vector<AccessibleObject> children;
  const QVariantList answer = Call(object, kAccessible, "GetChildren");
  if (!IsArgument(answer)) return children;
  const QDBusArgument list = First(answer);
  list.beginArray();
  while (!list.atEnd()) children.push_back(ReadObject(list));
  list.endArray();
  return children;
}

std::optional<AccessibleObject> Controls::Application() const {
  const AccessibleObject root{QStringLiteral("org.a11y.atspi.Registry"),
                              QStringLiteral("/org/a11y/atspi/accessible/root")};
  for (const AccessibleObject& application : Children(root)) {
    if (Property(application, kAccessible, "Name").toString().toStdString() == program_) return application;
  }
  return {};
}

Control Controls::Look(const AccessibleObject& object, int depth) const {
  Control control{.object = object, .depth = depth, .role = {}, .name = {}, .description = {}, .text = {}};
  const QVariantList role = Call(object, kAccessible, "GetRoleName");
  if (!role.isEmpty()) control.role = role.first().toString().toStdString();
  control.name = Property(object, kAccessible, "Name").toString().toStdString();
  control.description = Property(object, kAccessible, "Description").toString().toStdString();
  const QVariantList text = Call(object, kText, "GetText", {0, -1});
  if (!text.isEmpty()) control.text = text.first().toString().toStdString();
  const QVariantList states = Call(object, kAccessible, "GetState");
  if (IsArgument(states)) {
    QList<std::uint32_t> words;
    First(states) >> words;
    const auto has = [&words](State state) {
      return !words.isEmpty() && ((words.first() >> state) & 1U) != 0;
    };
    control.enabled = has(kEnabled);
    control.focused = has(kFocused);
    control.focusable = has(kFocusable);
    control.checked = has(kChecked);
    control.active = has(kActive);
    if (!has(kShowing)) control.depth = -1;
  }
  constexpr std::uint32_t kOnTheScreen = 0;
  const QVariantList place = Call(object, kComponent, "GetExtents", {kOnTheScreen});
  if (IsArgument(place)) {
    const QDBusArgument numbers = First(place);
    numbers.beginStructure();
    numbers >> control.x >> control.y >> control.width >> control.height;
    numbers.endStructure();
  }
  return control;
}

// A table's cells are too many to list; they are asked for one by one.
void Controls::Collect(const Control& parent, std::vector<Control>& found) const {
  found.push_back(parent);
  if (parent.role == "table") return;
  for (const AccessibleObject& child : Children(parent.object)) {
    const Control control = Look(child, parent.depth + 1);
    if (control.depth >= 0) Collect(control, found);
  }
}

std::vector<Control> Controls::Windows() const {
  std::vector<Control> windows;
  const std::optional<AccessibleObject> application = Application();
  if (!application) return windows;
  for (const AccessibleObject& child : Children(*application)) {
    Control window = Look(child, 0);
    if (window.depth >= 0) windows.push_back(std::move(window));
  }
  return windows;
}

std::vector<Control> Controls::In(const std::string& window) const {
  std::vector<Control> found;
  for (const Control& candidate : Windows()) {
    if (candidate.name == window) Collect(candidate, found);
  }
  return found;
}

std::optional<Control> Controls::Cell(const Control& table, int row, int column) const {
  const QVariantList answer = Call(table.object, kTable, "GetAccessibleAt", {row, column});
  if (!IsArgument(answer)) return {};
  return Look(ReadObject(First(answer)), 0);
}

std::string Controls::CellText(const Control& table, int row, int column) const {
  const std::optional<Control> cell = Cell(table, row, column);
  return cell ? cell->name : std::string();
}

std::string Controls::Dump() const {
  std::ostringstream lines;
  for (const Control& window : Windows()) {
    std::vector<Control> found;
    Collect(window, found);
    for (const Control& control : found) {
      lines << std::string(static_cast<std::size_t>(control.depth) * 2, ' ') << '[' << control.role << "] '"
            << control.name << "' text='" << control.text << "' about='" << control.description << "' "
            << control.width << 'x' << control.height << '+' << control.x << '+' << control.y
            << (control.enabled ? " enabled" : "") << (control.focusable ? " focusable" : "")
            << (control.focused ? " focused" : "") << (control.checked ? " checked" : "")
            << (control.active ? " active" : "") << '\n';
    }
  }
  return lines.str();
}

}  // namespace bwp::test
