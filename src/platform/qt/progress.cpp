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

#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
#include <thread>

#include "platform/Automation.h"
#include "platform/Dialogs.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr int gradini = 1000;            // of the bar
constexpr qint64 attesaPrima = 400;      // milliseconds of work before the bar shows
constexpr qint64 attesaDisegno = 1500;   // the same of a repaint, of which many take half a second
constexpr qint64 attesaTra = 50;         // milliseconds between looks at the person's input
constexpr int larghezza = 360;           // of the bar, logical pixels

class Barra : public QDialog {
public:
    explicit Barra(const QString& titolo) : QDialog(telaio()), barraLavoro(new QProgressBar) {
        setWindowTitle(titolo);
        setWindowModality(Qt::ApplicationModal);
        auto* scritta = new QLabel(titolo);
        resta->setForegroundRole(QPalette::PlaceholderText);
        auto* ferma = new QPushButton(daUtf8(testo("progress.stop")));
        barraLavoro->setRange(0, gradini);
        barraLavoro->setMinimumWidth(larghezza);
        auto* riga = new QHBoxLayout;
        riga->addWidget(barraLavoro, 1);
        riga->addWidget(ferma);
        auto* tutto = new QVBoxLayout(this);
        tutto->addWidget(scritta);
        tutto->addLayout(riga);
        tutto->addWidget(resta);
        tutto->setSizeConstraint(QLayout::SetFixedSize);
        connect(ferma, &QPushButton::clicked, this, [this] { fermata = true; });
    }
    void reject() override { fermata = true; }   // Escape and the close box
    // `passati`: milliseconds of work so far. What is left is told once there is something to go by.
    void avanza(double frazione, qint64 passati) {
        constexpr double poco = 0.03;
        const bool nota = std::isfinite(frazione);
        barraLavoro->setRange(0, nota ? gradini : 0);   // without a range it only tells that the work goes on
        if (!nota) return resta->setText(QStringLiteral(" "));
        frazione = std::clamp(frazione, 0.0, 1.0);
        barraLavoro->setValue(static_cast<int>(std::lround(frazione * gradini)));
        if (frazione < poco) return;
        const double secondi = static_cast<double>(passati) / 1000 * (1 - frazione) / frazione;
        const auto minuti = static_cast<int>(secondi / 60);
        const bool lunga = minuti > 0;
        const int quanti = lunga ? minuti + 1 : static_cast<int>(std::ceil(secondi));
        resta->setText(daUtf8(lunga ? testo("progress.minutes") : testo("progress.seconds"))
                           .replace("^0", QString::number(quanti)));
    }

    bool fermata = false;

private:
    QProgressBar* barraLavoro;
    QLabel* resta = new QLabel(QStringLiteral(" "));
};

struct Lavoro {
    std::string titolo;   // Mac Roman
    ProgressKind genere = ProgressKind::work;
    std::unique_ptr<Barra> finestra;   // made when it is to show: most work is over before
    QElapsedTimer dallInizio, dalloSguardo;
    std::thread::id filo = std::this_thread::get_id();
    std::int32_t dentro = 0;   // work that goes on inside it
    std::atomic<bool> fermato = false;
};
std::unique_ptr<Lavoro> lavoro;

// For the tests: when the person stops it.
std::int64_t passi = 0, passiConcessi = -1;

// Beneath the middle of the frame, so that what is being worked on stays in sight.
void mostraSotto(Barra& b) {
    b.adjustSize();
    const QRect f = telaio()->geometry();
    b.move(f.center().x() - b.width() / 2, f.center().y() + f.height() / 6);
    b.show();
}

bool siVede(const Lavoro& l) { return l.finestra != nullptr && l.finestra->isVisible(); }

// Shows the bar when it is time, lets the toolkit have what came in, and looks whether the person wants to stop.
void guarda(Lavoro& l, double frazione) {
    const qint64 passati = l.dallInizio.elapsed();
    const qint64 attesa = l.genere == ProgressKind::repaint ? attesaDisegno : attesaPrima;
    if (l.finestra == nullptr && passati >= attesa) {
        l.finestra = std::make_unique<Barra>(daMac(l.titolo));
        mostraSotto(*l.finestra);
    }
    if (l.finestra != nullptr && l.dentro == 0) l.finestra->avanza(frazione, passati);
    {
        const Annidato annidato;
        waitStep(Attesa::tasto, 0);
        if (quitPending() && l.genere == ProgressKind::work) l.fermato = true;
    }
    if (l.finestra != nullptr && l.finestra->fermata) l.fermato = true;
}

}   // namespace

void ProgressOpen(std::string_view macRomanTitle, ProgressKind kind) {
    if (lavoro != nullptr) {
        ++lavoro->dentro;
        return;
    }
    lavoro = std::make_unique<Lavoro>();
    lavoro->titolo = macRomanTitle;
    lavoro->genere = kind;
    lavoro->dallInizio.start();
    lavoro->dalloSguardo.start();
}

bool ProgressStep(double fraction) {
    if (lavoro == nullptr) return true;
    Lavoro& l = *lavoro;
    if (l.fermato || std::this_thread::get_id() != l.filo) return !l.fermato;
    if (passiConcessi >= 0 && passi == passiConcessi) l.fermato = true;
    ++passi;
    if (l.fermato || !conFinestre()) return !l.fermato;
    // A repaint shows as a whole unless it lasts, and nobody is asked before.
    if (l.genere == ProgressKind::repaint && l.dallInizio.elapsed() < attesaDisegno) return true;
    if (copione() == nullptr && l.dalloSguardo.elapsed() >= attesaTra) {
        l.dalloSguardo.restart();
        guarda(l, fraction);
    }
    if ((l.genere == ProgressKind::work || siVede(l)) && prendiFuga()) l.fermato = true;
    return !l.fermato;
}

bool ProgressStopped() { return lavoro != nullptr && lavoro->fermato; }

void ProgressClose() {
    if (lavoro != nullptr && lavoro->dentro-- == 0) lavoro.reset();
}

void AutoStopWork(std::int64_t steps) {
    passi = 0;
    passiConcessi = steps;
}
std::int64_t AutoWorkSteps() { return passi; }

}   // namespace tessaro
