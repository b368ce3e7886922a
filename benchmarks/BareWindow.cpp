// Yardsticks: the least that a program with a window does, and with the argument "texts" the least of one
// that shows texts, a menu and a label.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    if (argc > 1) {
        window.menuBar()->addMenu("&File");
        window.setCentralWidget(new QLabel("KORVEL"));
    }
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
