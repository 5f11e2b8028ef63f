// A second program on the desktop: a small window to take the focus away, from which files are dragged out. Its arguments are
// the files.
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

class Sorgente : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* dati = new QMimeData;
        QList<QUrl> file;
        for (const QString& percorso : QCoreApplication::arguments().mid(1)) file += QUrl::fromLocalFile(percorso);
        dati->setUrls(file);
        auto* drag = new QDrag(this);
        drag->setMimeData(dati);
        drag->exec(Qt::CopyAction);
    }
};

}   // namespace

int main(int argc, char** argv) {
    QApplication programma(argc, argv);
    Sorgente s(QStringLiteral("drag me"));
    s.setWindowTitle(QStringLiteral("Drop source"));
    s.setAlignment(Qt::AlignCenter);
    s.setGeometry(1000, 620, 200, 80);
    s.show();
    return QApplication::exec();
}
