// A small window in front of all others, out of which files are dragged as from a file manager: drag_source
// FILE...
#include <QApplication>
#include <QDrag>
#include <QFileInfo>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace korvel {

namespace {

class DragSource : public QWidget {
  public:
    explicit DragSource(QList<QUrl> files) : m_files(std::move(files)) {
        setWindowTitle("Drag source");
        setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        setGeometry(0, 0, 60, 60);
    }

  protected:
    void mouseMoveEvent(QMouseEvent*) override {
        auto* drag = new QDrag(this);
        auto* data = new QMimeData;
        data->setUrls(m_files);
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction); // as file managers propose
    }

  private:
    QList<QUrl> m_files;
};

} // namespace

} // namespace korvel

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QList<QUrl> files;
    for (const QString& file : QApplication::arguments().mid(1))
        files << QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath());
    korvel::DragSource source(std::move(files));
    source.show();
    return QApplication::exec();
}
