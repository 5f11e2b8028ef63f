// The toolkit's page set-up and print dialog, filled from the program's records and read back into them. Under a script
// the answers take their place.
#include <QCheckBox>
#include <QMainWindow>
#include <QPageLayout>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/qt/Interno.h"
#include "platform/qt/Stampe.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

void poniCarta(QPrinter& p, const PMPageFormat& f) {
    const bool larga = f.larghezza > f.altezza;
    const QSizeF mm(std::min(f.larghezza, f.altezza), std::max(f.larghezza, f.altezza));
    p.setFullPage(true);
    p.setPageLayout(QPageLayout(QPageSize(mm, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch),
                                larga ? QPageLayout::Landscape : QPageLayout::Portrait,
                                QMarginsF(f.sinistra, f.sopra, f.destra, f.sotto), QPageLayout::Millimeter));
}

void prendiCarta(const QPrinter& p, PMPageFormat& f) {
    const QPageLayout l = p.pageLayout();
    const QRectF tutta = l.fullRect(QPageLayout::Millimeter);
    const QMarginsF m = l.margins(QPageLayout::Millimeter);
    f = {tutta.width(), tutta.height(), m.left(), m.top(), m.right(), m.bottom()};
}

std::unique_ptr<QPrinter> stampante(const PMPrintSettings& s) {
    const QPrinterInfo info = stampanteDi(s);
    auto p = info.isNull() ? std::make_unique<QPrinter>(QPrinter::HighResolution)
                           : std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    if (s.destinazione == kPMDestinationFile) p->setOutputFormat(QPrinter::PdfFormat);
    return p;
}

// The program's own choices as one more page of the dialog.
struct PaginaScelte {
    std::vector<QCheckBox*> caselle;
    QWidget* pagina = nullptr;   // the dialog owns it

    explicit PaginaScelte(std::span<const SceltaStampa> scelte) {
        if (scelte.empty()) return;
        pagina = new QWidget;
        pagina->setWindowTitle(daUtf8(testo("print.options")));
        auto* colonna = new QVBoxLayout(pagina);
        for (const SceltaStampa& s : scelte) {
            auto* casella = new QCheckBox(daMac(s.testo), pagina);
            casella->setChecked(*s.accesa != 0);
            colonna->addWidget(casella);
            caselle.push_back(casella);
        }
        colonna->addStretch(1);
    }
    void prendi(std::span<const SceltaStampa> scelte) const {
        for (std::size_t i = 0; i < caselle.size(); ++i) *scelte[i].accesa = caselle[i]->isChecked();
    }
};

}   // namespace

OSStatus PMSessionPageSetupDialog(PMPrintSession session, PMPageFormat& format) {
    bool cambiato = false;
    if (copione() != nullptr) {
        PMPageFormat f = format;
        if (!copione()->carta(f.larghezza, f.altezza)) return kPMCancel;
        PMSessionValidatePageFormat(session, f, cambiato);
        format = f;
        return 0;
    }
    if (!conFinestre()) return kPMCancel;
    PMPrintSettings s;
    PMSessionDefaultPrintSettings(session, s);
    const auto p = stampante(s);
    poniCarta(*p, format);
    QPageSetupDialog richiesta(p.get(), telaio());
    if (!attendi(richiesta)) return kPMCancel;
    prendiCarta(*p, format);
    PMSessionValidatePageFormat(session, format, cambiato);
    return 0;
}

OSStatus PMSessionPrintDialog(PMPrintSession session, PMPrintSettings& settings, const PMPageFormat& format,
                              std::string_view lavoro, std::span<const SceltaStampa> scelte) {
    bool cambiato = false;
    if (copione() != nullptr) {
        PMPrintSettings s = settings;
        s.destinazione = kPMDestinationFile;
        s.prima = 1;
        s.ultima = paginaFinale;
        if (!copione()->stampa(s.luogo, s.prima, s.ultima)) return kPMCancel;
        PMSessionValidatePrintSettings(session, s, cambiato);
        settings = s;
        return 0;
    }
    if (!conFinestre()) return kPMCancel;
    const auto p = stampante(settings);
    poniCarta(*p, format);
    p->setDocName(daMac(lavoro));
    p->setCopyCount(settings.copie);
    if (settings.destinazione == kPMDestinationFile && !settings.luogo.empty())
        p->setOutputFileName(daUtf8(settings.luogo));
    QPrintDialog richiesta(p.get(), telaio());
    richiesta.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange
                         | QAbstractPrintDialog::PrintCollateCopies);
    const PaginaScelte pagina(scelte);
    if (pagina.pagina != nullptr) richiesta.setOptionTabs({pagina.pagina});
    if (!attendi(richiesta)) return kPMCancel;
    pagina.prendi(scelte);
    settings.luogo = p->outputFileName().toStdString();
    settings.destinazione = settings.luogo.empty() ? kPMDestinationPrinter : kPMDestinationFile;
    settings.stampante = p->printerName().toStdString();
    settings.copie = p->copyCount();
    const bool tutte = p->printRange() != QPrinter::PageRange || p->fromPage() < 1;
    settings.prima = tutte ? 1 : p->fromPage();
    settings.ultima = tutte ? paginaFinale : p->toPage();
    PMSessionValidatePrintSettings(session, settings, cambiato);
    return 0;
}

}   // namespace tessaro
