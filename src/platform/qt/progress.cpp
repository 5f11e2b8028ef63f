// Progress of long work: a bar with a Stop button, shown once the work has taken a moment. Without a window it is silent.
#include <QDialog>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <memory>

#include "platform/Dialogs.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr int gradini = 1000;         // of the bar
constexpr qint64 attesaPrima = 400;   // milliseconds of work before the bar shows
constexpr qint64 attesaTra = 50;      // milliseconds between looks at the person's input
constexpr int larghezza = 360;        // of the bar, logical pixels

class Barra : public QDialog {
public:
    explicit Barra(const QString& titolo) : QDialog(telaio()), barraLavoro(new QProgressBar) {
        setWindowTitle(titolo);
        setWindowModality(Qt::ApplicationModal);
        auto* scritta = new QLabel(titolo);
        auto* ferma = new QPushButton(daUtf8(testo("progress.stop")));
        barraLavoro->setRange(0, gradini);
        barraLavoro->setMinimumWidth(larghezza);
        auto* riga = new QHBoxLayout;
        riga->addWidget(barraLavoro, 1);
        riga->addWidget(ferma);
        auto* tutto = new QVBoxLayout(this);
        tutto->addWidget(scritta);
        tutto->addLayout(riga);
        tutto->setSizeConstraint(QLayout::SetFixedSize);
        connect(ferma, &QPushButton::clicked, this, [this] { fermata = true; });
    }
    void reject() override { fermata = true; }   // Escape and the close box
    void avanza(double frazione) { barraLavoro->setValue(static_cast<int>(std::lround(frazione * gradini))); }

    bool fermata = false;

private:
    QProgressBar* barraLavoro;
};

struct Lavoro {
    std::unique_ptr<Barra> finestra;
    QElapsedTimer dallInizio, dalloSguardo;
};
std::unique_ptr<Lavoro> lavoro;

// Beneath the middle of the frame, so that what is being worked on stays in sight.
void mostraSotto(Barra& b) {
    b.adjustSize();
    const QRect f = telaio()->geometry();
    b.move(f.center().x() - b.width() / 2, f.center().y() + f.height() / 6);
    b.show();
}

}   // namespace

void ProgressOpen(std::string_view macRomanTitle) {
    if (!conFinestre() || copione() != nullptr) return;
    lavoro = std::make_unique<Lavoro>();
    lavoro->finestra = std::make_unique<Barra>(daMac(macRomanTitle));
    lavoro->dallInizio.start();
    lavoro->dalloSguardo.start();
}

bool ProgressStep(double fraction) {
    if (lavoro == nullptr) return true;
    Barra& b = *lavoro->finestra;
    if (b.fermata || quitPending()) return false;
    if (lavoro->dalloSguardo.elapsed() < attesaTra) return true;
    lavoro->dalloSguardo.restart();
    if (!b.isVisible() && lavoro->dallInizio.elapsed() >= attesaPrima) mostraSotto(b);
    if (std::isfinite(fraction)) b.avanza(std::min(1.0, std::max(0.0, fraction)));
    const Annidato annidato;
    waitStep(Attesa::tasto, 0);
    return !b.fermata && !quitPending();
}

void ProgressClose() { lavoro.reset(); }

}   // namespace tessaro
