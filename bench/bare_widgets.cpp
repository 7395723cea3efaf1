#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>

// The toolkit's widgets alone, as many of each kind as Rotavel's main window has and nothing behind
// them: what a start, and memory, would be without Rotavel's own code.

namespace {

constexpr int Columns = 8;
constexpr int RowHeight = 20;

// Puts a widget of this kind into the next place of the grid.
template <typename Widget>
Widget* Place(QWidget* parent) {
    static int count = 0;
    auto* const widget = new Widget(parent);
    widget->setGeometry(10 + count % Columns * 54, 40 + count / Columns * (RowHeight + 10), 50,
                        RowHeight);
    ++count;
    return widget;
}

void MakeMenu(QMenuBar& bar, int motorcycles, int makers) {
    QMenu* const file = bar.addMenu("File");
    QMenu* const all = file->addMenu("Motorcycle");
    for (int maker = 0; maker < makers; ++maker) {
        QMenu* const models = all->addMenu("Maker " + QString::number(maker));
        for (int model = maker; model < motorcycles; model += makers) {
            models->addAction("Model " + QString::number(model));
        }
    }
    file->addSeparator();
    file->addAction("Quit");
    bar.addMenu("Help")->addAction("About");
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setStyle("fusion");  // which is Rotavel's too
    QMainWindow window;
    window.resize(450, 519);
    auto* const content = new QWidget;
    content->setFont(QFont("Arial", 8));  // Rotavel's too, beside the desktop's for the menus
    window.setCentralWidget(content);
    for (int i = 0; i < 18; ++i) {
        Place<QLabel>(content)->setText("Label");
    }
    for (int i = 0; i < 35; ++i) {
        Place<QLineEdit>(content)->setText("1.4583");
    }
    for (int i = 0; i < 8; ++i) {
        Place<QPushButton>(content)->setText("Calc rpm");
    }
    Place<QComboBox>(content)->addItems({"km/h", "mph"});
    MakeMenu(*window.menuBar(), 59, 8);
    window.statusBar()->addWidget(new QLabel("Status"));
    window.show();
    return QApplication::exec();
}
