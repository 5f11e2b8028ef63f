// The frame with its menu bar and the one drawing window inside it: size, title, port, and the area that asks for a
// repaint. The frame outlives the drawing's window.
#include "platform/Windows.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QLayout>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QSettings>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"
#include "platform/Titolo.h"

namespace tessaro {

namespace {

Telaio* cornice = nullptr;
std::unique_ptr<Finestra> aperta;
bool misuraDellaPersona = false;   // the frame has the size that the person gave it

// The frame's inside: the content fills it, without a drawing the start page.
class Centro : public QWidget {
protected:
    void resizeEvent(QResizeEvent*) override {
        if (aperta != nullptr && aperta->foglio != nullptr) aperta->foglio->setGeometry(rect());
        disponiPagina();
    }
};

QIcon iconaDelProgramma() {
    QSvgRenderer disegno(QByteArray::fromStdString(ResourceFile("icons/app.svg")));
    QIcon icona;
    if (!disegno.isValid()) return icona;
    for (const int lato : {16, 32, 64, 128, 256}) {
        QPixmap figura(lato, lato);
        figura.fill(Qt::transparent);
        QPainter p(&figura);
        disegno.render(&p);
        p.end();
        icona.addPixmap(figura);
    }
    return icona;
}

QSize contenuto() {
    if (cornice == nullptr) return {};
    cornice->layout()->activate();
    return {cornice->width(), cornice->height() - barra()->sizeHint().height() - altezzaStriscia()};
}

// The program's name stands behind the drawing's. Dialogs do without it, their title bars are short.
void intitola(const QString& disegno) {
    const QString programma = QStringLiteral("Tessaro 3D");
    cornice->setWindowTitle(disegno.isEmpty() ? programma : disegno + QStringLiteral("[*] — ") + programma);
}

}   // namespace

QString fileDelTelaio() { return daUtf8(cartellaImpostazioni()) + QStringLiteral("/window.ini"); }

QRect postoVisibile(const QRect& voluto, const QList<QRect>& schermi) {
    constexpr int presaLarga = 96, presaAlta = 24;   // of the title bar, enough to take hold of
    if (schermi.isEmpty()) return voluto;
    const QRect titolo(voluto.x(), voluto.y(), voluto.width(), presaAlta);
    const auto siPrende = [&titolo](const QRect& s) {
        const QRect visto = s.intersected(titolo);
        return visto.width() >= presaLarga && visto.height() >= presaAlta / 2;
    };
    const auto suo = std::find_if(schermi.begin(), schermi.end(), siPrende);
    const QRect& schermo = suo == schermi.end() ? schermi.front() : *suo;
    if (suo != schermi.end() && voluto.width() <= schermo.width() && voluto.height() <= schermo.height()) return voluto;
    QRect posto(voluto.topLeft(), voluto.size().boundedTo(schermo.size()));
    if (suo == schermi.end()) posto.moveCenter(schermo.center());
    posto.moveLeft(std::clamp(posto.left(), schermo.left(), schermo.right() + 1 - posto.width()));
    posto.moveTop(std::clamp(posto.top(), schermo.top(), schermo.bottom() + 1 - posto.height()));
    return posto;
}

QMainWindow* telaio() { return cornice; }
QMenuBar* barra() { return cornice == nullptr ? nullptr : cornice->menuBar(); }
QWidget* foglio() { return aperta == nullptr ? nullptr : aperta->foglio; }
Finestra* finestraAperta() { return aperta.get(); }

void creaTelaio() {
    cornice = new Telaio;
    cornice->setCentralWidget(new Centro);
    creaStriscia(*cornice);
    if (avvio().script) {
        adattaTelaio(avvio().width, avvio().height);
        return;
    }
    cornice->setWindowIcon(iconaDelProgramma());
    intitola({});
    const QByteArray geometria = QSettings(fileDelTelaio(), QSettings::IniFormat).value("geometry").toByteArray();
    misuraDellaPersona = !geometria.isEmpty() && cornice->restoreGeometry(geometria);
    if (!misuraDellaPersona || cornice->isMaximized() || cornice->isFullScreen()) return;
    QList<QRect> schermi;
    for (const QScreen* s : QGuiApplication::screens()) schermi << s->availableGeometry();
    const QRect bordi = cornice->frameGeometry(), posto = postoVisibile(bordi, schermi);
    cornice->resize(posto.size() - (bordi.size() - cornice->size()));
    cornice->move(posto.topLeft());
}

void distruggiTelaio() {
    if (cornice == nullptr) return;
    if (!avvio().script && cornice->isVisible())
        QSettings(fileDelTelaio(), QSettings::IniFormat).setValue("geometry", cornice->saveGeometry());
    DisposeWindow(aperta.get());
    togliStriscia();
    togliPagina();
    delete std::exchange(cornice, nullptr);
}

void adattaTelaio(std::int32_t width, std::int32_t height) {
    if (cornice != nullptr) cornice->resize(width, height + barra()->sizeHint().height() + altezzaStriscia());
}

constexpr QSize riservaWayland(16, 96);   // logical pixels

QRect schermoUtile() {
    if (avvio().script || cornice == nullptr) return {0, 0, avvio().width, avvio().height};
    const QRect libero = cornice->screen()->availableGeometry();
    QSize bordi = cornice->frameGeometry().size() - cornice->size();
    // Under Wayland nobody is told what panels take of the screen, nor how high a title bar will be.
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) bordi += riservaWayland;
    return {0, 0, libero.width() - bordi.width(),
            libero.height() - bordi.height() - barra()->sizeHint().height() - altezzaStriscia()};
}

Rect ScreenBounds() {
    const QRect r = schermoUtile();
    return Rect{0, 0, r.height(), r.width()};
}

double ScreenRatio() {
    if (cornice == nullptr) return std::max(avvio().ratio, 1);
    return std::max(1.0, std::round(cornice->devicePixelRatioF()));
}

WindowPtr GetNewCWindow(std::int16_t resource) {
    (void)resource;   // there is one kind of window
    togliPagina();
    aperta = std::make_unique<Finestra>();
    const auto ratio = static_cast<std::int32_t>(ScreenRatio());
    const Rect schermo = ScreenBounds();
    aperta->porta = std::make_unique<RasterPort>(schermo.right, schermo.bottom, ratio);
    adattaVeli(*aperta);
    if (cornice != nullptr) {
        aperta->foglio = new Foglio(cornice->centralWidget(), *aperta);
        aperta->foglio->setGeometry(cornice->centralWidget()->rect());
        aperta->foglio->show();
        aperta->foglio->setFocus();
        azzeraCursore();
    }
    return aperta.get();
}

bool adattaPorta(Finestra& f, std::int32_t width, std::int32_t height) {
    const auto ratio = static_cast<std::int32_t>(ScreenRatio());
    const Rect& r = f.porta->portRect;
    if (r.right - r.left == width && r.bottom - r.top == height && f.porta->ratio == ratio) return false;
    f.porta->resize(std::max(width, 1), std::max(height, 1), ratio);
    adattaVeli(f);
    if (f.foglio != nullptr) f.foglio->update();
    return true;
}

void SizeWindow(WindowPtr w, std::int32_t width, std::int32_t height) {
    if (w == nullptr) return;
    if (cornice != nullptr && !avvio().script && (misuraDellaPersona || cornice->isMaximized())) {
        const QSize suo = contenuto();
        width = suo.width();
        height = suo.height();
    }
    width = std::max(width, 16);
    height = std::max(height, 16);
    adattaPorta(*w, width, height);
    if (w->foglio == nullptr) return;
    adattaTelaio(width, height);
    w->foglio->setGeometry(0, 0, width, height);
}

void DisposeWindow(WindowPtr w) {
    if (w == nullptr || w != aperta.get()) return;
    if (GetPort() == w->porta.get()) SetPort(nullptr);
    scordaFinestra(w);
    delete w->foglio;   // with its controls
    aperta.reset();
    if (cornice == nullptr) return;
    intitola({});
    cornice->setFocus();
    mostraPagina();
}

void ShowWindow(WindowPtr w) {
    if (w == nullptr) return;
    w->mostrata = true;
    if (cornice != nullptr) cornice->show();
}

void SelectWindow(WindowPtr w) {
    if (w == nullptr || cornice == nullptr) return;
    cornice->raise();
    cornice->activateWindow();
}

WindowPtr FrontWindow() { return aperta.get(); }

void SetWTitle(WindowPtr w, std::string_view macRoman) {
    if (w == nullptr) return;
    w->titolo = macRoman;
    if (cornice != nullptr) intitola(daMac(macRoman));
}

void SetWindowModified(WindowPtr w, bool modified) {
    if (w == nullptr) return;
    w->cambiata = modified;
    if (cornice != nullptr) cornice->setWindowModified(modified);
}

std::string GetWTitle(WindowPtr w) { return w == nullptr ? std::string{} : w->titolo; }
GrafPtr GetWindowPort(WindowPtr w) { return w == nullptr ? nullptr : w->porta.get(); }
void SetWindowSmooth(WindowPtr w, bool smooth) {
    if (w != nullptr) w->porta->smooth = smooth;
}
void SetPortWindowPort(WindowPtr w) { SetPort(GetWindowPort(w)); }
Rect GetPortBounds(WindowPtr w) { return w == nullptr ? Rect{} : w->porta->portRect; }

// --- what asks for a repaint, in the core's terms

void InvalWindowRect(WindowPtr w, const Rect& r) {
    if (w == nullptr) return;
    const Rect dentro = SectRect(r, w->porta->portRect);
    if (EmptyRect(dentro)) return;
    w->invalida.add(dentro);
    EventRecord e;
    e.what = EventKind::updateEvt;
    e.window = w;
    accoda(std::move(e));
}

void BeginUpdate(WindowPtr w) {
    if (w != nullptr) w->invalida = Region{};
}
void EndUpdate(WindowPtr w) { (void)w; }

void scordaInvalida() {
    if (aperta != nullptr) aperta->invalida = Region{};
}

namespace {
QRegion sporcoDi(Finestra& f) {
    if (aggiornaVeli) aggiornaVeli();
    QRegion r;
    const auto aggiungi = [&r](const Region& parti) {
        for (const Rect& p : parti.parti) r += QRect(p.left, p.top, p.right - p.left, p.bottom - p.top);
    };
    aggiungi(f.porta->PrendiSporco());
    for (VeloFinestra& v : f.veli) aggiungi(std::exchange(v.cambiato, Region{}));
    return r;
}
}   // namespace

void mostraDisegnato() {
    if (cornice == nullptr) return;
    if (!cornice->isVisible()) cornice->show();
    if (aperta != nullptr && aperta->foglio != nullptr) aperta->foglio->update(sporcoDi(*aperta));
}

void FlushWindow(WindowPtr w) {
    if (w == nullptr || w->foglio == nullptr) return;
    const QRegion sporco = sporcoDi(*w);
    if (!sporco.isEmpty()) w->foglio->repaint(sporco);
}

RGBColor SystemStripColour() {
    if (!conFinestre()) return {0xEFEF, 0xEFEF, 0xEFEF};
    const QColor c = QGuiApplication::palette().color(QPalette::Window);
    const auto componente = [](int v) { return static_cast<std::uint16_t>(v * 257); };
    return {componente(c.red()), componente(c.green()), componente(c.blue())};
}

}   // namespace tessaro
