// A window out of which its text, the program's argument, can be dragged.

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>

namespace {

class DragSource final : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* const drag = new QDrag(this);
        auto* const content = new QMimeData;
        content->setText(text());
        drag->setMimeData(content);
        drag->exec(Qt::CopyAction);
    }
};

}  // namespace

int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    DragSource source(QApplication::arguments().value(1));
    source.setWindowTitle("Drag source");
    source.setGeometry(20, 40, 100, 60);
    source.show();
    return QApplication::exec();
}
