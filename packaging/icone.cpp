// Draws an SVG file as square PNG files, for the sizes that desktops look for. A tool of the build.
//     tessaro3d-icons IN.svg SIZE OUT.png [SIZE OUT.png ...]
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const QStringList parole = QGuiApplication::arguments();
    QSvgRenderer figura(parole.value(1));
    if (!figura.isValid()) {
        std::fprintf(stderr, "%s cannot be drawn\n", qPrintable(parole.value(1)));
        return 1;
    }
    for (qsizetype i = 2; i + 1 < parole.size(); i += 2) {
        const int lato = parole[i].toInt();
        QImage icona(lato, lato, QImage::Format_ARGB32_Premultiplied);
        icona.fill(Qt::transparent);
        QPainter p(&icona);
        figura.render(&p);
        p.end();
        if (!icona.save(parole[i + 1], "PNG")) return 1;
    }
    return 0;
}
