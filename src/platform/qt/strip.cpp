// The strip at the frame's foot: texts side by side, the first takes what room the others leave.
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

#include <vector>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

std::vector<QLabel*> campi;   // children of the frame's strip

// A text that gives way instead of widening the frame.
QLabel* nuovoCampo(QStatusBar& striscia, bool primo) {
    auto* campo = new QLabel(&striscia);
    campo->setTextFormat(Qt::PlainText);
    campo->setContentsMargins(6, 0, 6, 0);
    if (primo) {
        campo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        striscia.addWidget(campo, 1);
    } else {
        striscia.addPermanentWidget(campo);
    }
    return campo;
}

}   // namespace

void creaStriscia(QMainWindow& frame) {
    campi.clear();
    auto* striscia = new QStatusBar(&frame);
    striscia->setSizeGripEnabled(false);
    frame.setStatusBar(striscia);
    campi.push_back(nuovoCampo(*striscia, true));
    striscia->setFixedHeight(campi.front()->fontMetrics().height() + 8);
}

int altezzaStriscia() { return telaio() == nullptr || campi.empty() ? 0 : telaio()->statusBar()->height(); }

void togliStriscia() { campi.clear(); }

void SetStripText(std::int16_t field, std::string_view macRoman) {
    if (telaio() == nullptr || campi.empty() || field < 0) return;
    while (campi.size() <= static_cast<std::size_t>(field)) campi.push_back(nuovoCampo(*telaio()->statusBar(), false));
    QLabel* campo = campi[static_cast<std::size_t>(field)];
    const QString testo = daMac(macRoman);
    if (campo->text() == testo) return;
    campo->setText(testo);
    campo->setToolTip(field == 0 ? testo : QString());   // it may be cut in a narrow frame
    if (field != 0) campo->setVisible(!testo.isEmpty());
}

}   // namespace tessaro
