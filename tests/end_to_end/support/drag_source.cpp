// A window that can be dragged from: drag_source FILE... offers the files to whatever it is dropped on. Its
// title says how far the drag is: "Drag source", "Dragging", "Welcome" over what would take the files.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace {

class Source : public QWidget {
 public:
  explicit Source(QList<QUrl> files) : files_(std::move(files)) {}

 protected:
  void mouseMoveEvent(QMouseEvent* /*event*/) override {
    auto* const drag = new QDrag(this);
    auto* const dragged = new QMimeData;
    dragged->setUrls(files_);
    drag->setMimeData(dragged);
    // Told from the drag's own event loop, when it has the mouse.
    QTimer::singleShot(0, this, [this] { setWindowTitle(QStringLiteral("Dragging")); });
    connect(drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
      if (action == Qt::CopyAction) setWindowTitle(QStringLiteral("Welcome"));
    });
    drag->exec(Qt::CopyAction);
  }

 private:
  QList<QUrl> files_;
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("drag_source"));
  QList<QUrl> files;
  for (const QString& argument : QApplication::arguments().mid(1))
    files.append(QUrl::fromLocalFile(argument));
  Source source(files);
  source.setWindowTitle(QStringLiteral("Drag source"));
  source.setGeometry(20, 40, 120, 60);
  source.show();
  return QApplication::exec();
}
