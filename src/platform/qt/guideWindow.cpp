// The guide in a window of our own, for desktops without a browser: the same pages in the colours of the desktop, their
// pictures as wide as the window, a way back and a search.
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr int larga = 820, alta = 680, margine = 16;   // logical pixels

QString stile(const QPalette& p) {
    const auto colore = [&p](QPalette::ColorRole r) { return p.color(QPalette::Active, r).name(); };
    return QStringLiteral("<style>body { color: %1 } a { color: %2 } code, pre { background-color: %3 }"
                          " th, td { border: 1px solid %4; padding: 3px } th { background-color: %3; text-align: left }"
                          " table { border-collapse: collapse; margin-top: 8px; margin-bottom: 8px }"
                          " h2 { margin-top: 24px } li { margin-bottom: 4px }</style>")
        .arg(colore(QPalette::Text), colore(QPalette::Link), colore(QPalette::AlternateBase), colore(QPalette::Mid));
}

QString testoDi(const QUrl& url) {
    QFile f(url.toLocalFile());
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

// The heading of the section that the address names; empty for the whole page.
QString titoloDi(const QUrl& url) {
    if (url.fragment().isEmpty()) return {};
    const QString forma = QStringLiteral("id=\"%1\">([^<]*)<").arg(QRegularExpression::escape(url.fragment()));
    return QRegularExpression(forma).match(testoDi(url)).captured(1);
}

class PaginaGuida : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

protected:
    QVariant loadResource(int tipo, const QUrl& url) override {
        if (tipo == QTextDocument::HtmlResource) return pagina(url);
        if (tipo == QTextDocument::ImageResource) return figura(url);
        return QTextBrowser::loadResource(tipo, url);
    }
    void changeEvent(QEvent* e) override {
        QTextBrowser::changeEvent(e);
        if (e->type() != QEvent::PaletteChange || source().isEmpty()) return;
        const int dove = verticalScrollBar()->value();
        reload();
        verticalScrollBar()->setValue(dove);
    }

private:
    // What a browser takes from the page's style this window takes from the desktop; figures are paragraphs to it.
    QString pagina(const QUrl& url) const {
        static const QRegularExpression suo(QStringLiteral("<style>.*</style>"),
                                            QRegularExpression::DotMatchesEverythingOption);
        QString html = testoDi(url);
        html.replace(suo, stile(palette()));
        html.replace(QLatin1String("<figure>"), QLatin1String("<p>"));
        html.replace(QLatin1String("<figcaption>"), QLatin1String("<br><i>"));
        html.replace(QLatin1String("</figcaption></figure>"), QLatin1String("</i></p>"));
        return html;
    }

    QVariant figura(const QUrl& url) const {
        QImage f = QImageReader(url.toLocalFile()).read();
        const qreal ratio = devicePixelRatioF();
        const int posto = qRound((larga - 4 * margine) * ratio);
        if (f.width() > posto) f = f.scaledToWidth(posto, Qt::SmoothTransformation);
        f.setDevicePixelRatio(ratio);
        return f;
    }
};

class FinestraGuida : public QDialog {
public:
    explicit FinestraGuida(QWidget* padre) : QDialog(padre), pagina(new PaginaGuida(this)) {
        setAttribute(Qt::WA_DeleteOnClose);
        setWindowTitle(daUtf8(testo("guide.title")));
        pagina->setAccessibleName(windowTitle());
        pagina->setOpenExternalLinks(false);
        pagina->document()->setDocumentMargin(margine);
        auto* sopra = new QHBoxLayout;
        sopra->setContentsMargins(margine / 2, margine / 2, margine / 2, 0);
        QPushButton* indietro = bottone(testo("guide.back"), *sopra);
        indietro->setEnabled(false);
        QObject::connect(indietro, &QPushButton::clicked, pagina, &QTextBrowser::backward);
        QObject::connect(pagina, &QTextBrowser::backwardAvailable, indietro, &QPushButton::setEnabled);
        QObject::connect(bottone(testo("guide.contents"), *sopra), &QPushButton::clicked, pagina,
                         [this] { pagina->verticalScrollBar()->setValue(0); });
        sopra->addStretch(1);
        cerca = new QLineEdit(this);
        cerca->setPlaceholderText(daUtf8(testo("guide.find")));
        cerca->setAccessibleName(daUtf8(testo("guide.find")));
        cerca->setClearButtonEnabled(true);
        cerca->setFixedWidth(fontMetrics().averageCharWidth() * 30);
        QObject::connect(cerca, &QLineEdit::returnPressed, this, [this] { trova(); });
        sopra->addWidget(cerca);
        QObject::connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, cerca, [this] {
            cerca->setFocus();
            cerca->selectAll();
        });
        auto* tutto = new QVBoxLayout(this);
        tutto->setContentsMargins(0, 0, 0, 0);
        tutto->addLayout(sopra);
        tutto->addWidget(pagina);
        resize(larga, alta);
    }

    ~FinestraGuida() override {
        if (daDove != nullptr && daDove->isVisible()) daDove->activateWindow();
    }
    FinestraGuida(const FinestraGuida&) = delete;
    FinestraGuida& operator=(const FinestraGuida&) = delete;

    void vai(const QUrl& url) {
        if (QWidget* davanti = QApplication::activeWindow(); davanti != nullptr && davanti != this) daDove = davanti;
        pagina->setSource(url);
        const QString guida = daUtf8(testo("guide.title")), titolo = titoloDi(url);
        setWindowTitle(titolo.isEmpty() ? guida : guida + QStringLiteral(": ") + titolo);
        pagina->setFocus();
    }

private:
    PaginaGuida* pagina;
    QPointer<QWidget> daDove;   // who had the keys before
    QLineEdit* cerca = nullptr;

    QPushButton* bottone(const std::string& scritta, QHBoxLayout& fila) {
        auto* b = new QPushButton(daUtf8(scritta), this);
        b->setAutoDefault(false);   // Return is the search's
        fila.addWidget(b);
        return b;
    }

    // The next place, and from the top again behind the last.
    void trova() {
        if (pagina->find(cerca->text())) return;
        pagina->moveCursor(QTextCursor::Start);
        if (!pagina->find(cerca->text())) QApplication::beep();
    }
};

}   // namespace

void mostraGuida(const QUrl& url) {
    static QPointer<FinestraGuida> aperta;
    QWidget* davanti = QApplication::activeModalWidget();
    QWidget* padre = davanti != nullptr ? davanti : static_cast<QWidget*>(telaio());
    // Under a modal dialog only the dialog's own windows can be used.
    if (aperta != nullptr && davanti != nullptr && aperta->parentWidget() != padre) delete aperta.data();
    if (aperta == nullptr) aperta = new FinestraGuida(padre);
    aperta->vai(url);
    aperta->show();
    aperta->raise();
    aperta->activateWindow();
}

}   // namespace tessaro
