#include <QApplication>
#include <QWidget>

// What a program of this toolkit cannot do without: the measure for Rotavel's start and memory.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(450, 519);  // as large as Rotavel's
    window.show();
    return QApplication::exec();
}
