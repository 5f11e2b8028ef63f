// Print sessions: formats and settings as plain records, and a document's pages on a PDF file or a printer's queue.
#include "platform/Printing.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <memory>

#include "platform/qt/Interno.h"
#include "platform/qt/PortaPagina.h"
#include "platform/qt/Stampe.h"

namespace tessaro {

namespace {

constexpr double puntiMm = 72 / 25.4;
constexpr int risoluzionePagina = 72 * finezzaPagina;

// --- flattened forms: a name, a blank, a value a line

void riga(std::string& s, std::string_view nome, double v) {
    std::array<char, 32> cifre;
    const auto fine = std::to_chars(cifre.data(), cifre.data() + cifre.size(), v).ptr;
    s.append(nome).append(" ").append(cifre.data(), fine).append("\n");
}
void riga(std::string& s, std::string_view nome, const std::string& v) {
    s.append(nome).append(" ").append(v.substr(0, v.find('\n'))).append("\n");
}

template <class Prendi>
bool perRiga(std::string_view piatto, Prendi prendi) {
    bool qualcosa = false;
    while (!piatto.empty()) {
        const std::size_t fine = std::min(piatto.find('\n'), piatto.size());
        const std::string_view r = piatto.substr(0, fine);
        piatto.remove_prefix(std::min(fine + 1, piatto.size()));
        const std::size_t spazio = r.find(' ');
        if (spazio == std::string_view::npos) continue;
        const std::string_view nome = r.substr(0, spazio), valore = r.substr(spazio + 1);
        double numero = 0;
        std::from_chars(valore.data(), valore.data() + valore.size(), numero);
        qualcosa |= prendi(nome, valore, numero);
    }
    return qualcosa;
}

struct CampoCarta {
    std::string_view nome;
    double PMPageFormat::*dove;
};
constexpr CampoCarta campiCarta[] = {
    {"width", &PMPageFormat::larghezza}, {"height", &PMPageFormat::altezza}, {"left", &PMPageFormat::sinistra},
    {"top", &PMPageFormat::sopra},       {"right", &PMPageFormat::destra},   {"bottom", &PMPageFormat::sotto},
};

// --- a document

// The paper upright as the toolkit wants it, turned where it is wider than high.
QPageLayout disposizione(const PMPageFormat& f) {
    const bool larga = f.larghezza > f.altezza;
    const QSizeF mm(std::min(f.larghezza, f.altezza), std::max(f.larghezza, f.altezza));
    const QPageSize carta(mm, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch);
    return QPageLayout(carta, larga ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(),
                       QPageLayout::Millimeter);
}

}   // namespace

// What a session holds while a document is open.
class SessioneStampa {
public:
    std::unique_ptr<QSaveFile> file;
    std::unique_ptr<QPagedPaintDevice> foglio;
    std::unique_ptr<QPainter> pittore;
    std::unique_ptr<PortaPagina> porta;
    PMPageFormat formato;
    PMRect pagina;   // points
    bool conPerdita = false;
    int pagine = 0;

    bool apri(const PMPrintSettings& s, const QString& lavoro) {
        conPerdita = s.conPerdita;
        return s.destinazione == kPMDestinationFile ? apriFile(s, lavoro) : apriCoda(s, lavoro);
    }
    void chiudi() {
        porta.reset();
        pittore.reset();
        foglio.reset();
        if (file) file->cancelWriting();
        file.reset();
        pagine = 0;
    }

private:
    bool apriFile(const PMPrintSettings& s, const QString& lavoro) {
        file = std::make_unique<QSaveFile>(daUtf8(s.luogo));
        file->setDirectWriteFallback(true);
        if (!file->open(QIODevice::WriteOnly)) return false;
        auto pdf = std::make_unique<QPdfWriter>(file.get());
        pdf->setTitle(lavoro);
        pdf->setCreator(QStringLiteral("Tessaro 3D"));
        pdf->setResolution(risoluzionePagina);
        pdf->setPageLayout(disposizione(formato));
        foglio = std::move(pdf);
        return true;
    }
    bool apriCoda(const PMPrintSettings& s, const QString& lavoro) {
        auto stampante = std::make_unique<QPrinter>(stampanteDi(s), QPrinter::HighResolution);
        if (!stampante->isValid()) return false;
        stampante->setOutputFormat(QPrinter::NativeFormat);
        stampante->setDocName(lavoro);
        stampante->setResolution(risoluzionePagina);
        stampante->setFullPage(true);
        stampante->setPageLayout(disposizione(formato));
        stampante->setFullPage(true);
        stampante->setCopyCount(std::max(s.copie, 1));
        foglio = std::move(stampante);
        return true;
    }
};

QPrinterInfo stampanteDi(const PMPrintSettings& s) {
    if (s.stampante.empty()) return QPrinterInfo::defaultPrinter();
    return QPrinterInfo::printerInfo(daUtf8(s.stampante));
}

OSStatus PMCreateSession(PMPrintSession& session) {
    session = new SessioneStampa;
    return 0;
}
OSStatus PMRelease(PMPrintSession session) {
    if (session != nullptr) session->chiudi();
    delete session;
    return 0;
}

// --- formats and settings

OSStatus PMSessionDefaultPageFormat(PMPrintSession, PMPageFormat& format) {
    format = {};
    if (copione() != nullptr || !conFinestre()) return 0;
    const QPrinterInfo p = QPrinterInfo::defaultPrinter();
    if (p.isNull()) return 0;
    const QSizeF mm = p.defaultPageSize().size(QPageSize::Millimeter);
    if (mm.isEmpty()) return 0;
    format.larghezza = mm.width();
    format.altezza = mm.height();
    return 0;
}

OSStatus PMSessionDefaultPrintSettings(PMPrintSession, PMPrintSettings& settings) {
    settings = {};
    if (copione() != nullptr || !conFinestre()) return 0;
    const QPrinterInfo p = QPrinterInfo::defaultPrinter();
    if (p.isNull()) return 0;
    settings.stampante = p.printerName().toStdString();
    settings.destinazione = kPMDestinationPrinter;
    return 0;
}

OSStatus PMFlattenPageFormat(const PMPageFormat& format, std::string& flat) {
    flat.clear();
    for (const CampoCarta& c : campiCarta) riga(flat, c.nome, format.*c.dove);
    return 0;
}
bool PMUnflattenPageFormat(std::string_view flat, PMPageFormat& format) {
    format = {};
    return perRiga(flat, [&](std::string_view nome, std::string_view, double v) {
        for (const CampoCarta& c : campiCarta) {
            if (c.nome != nome) continue;
            format.*c.dove = v;
            return true;
        }
        return false;
    });
}

OSStatus PMFlattenPrintSettings(const PMPrintSettings& settings, std::string& flat) {
    flat.clear();
    riga(flat, "copies", settings.copie);
    riga(flat, "first", settings.prima);
    riga(flat, "last", settings.ultima);
    riga(flat, "destination", settings.destinazione);
    riga(flat, "printer", settings.stampante);
    riga(flat, "location", settings.luogo);
    return 0;
}
bool PMUnflattenPrintSettings(std::string_view flat, PMPrintSettings& settings) {
    settings = {};
    return perRiga(flat, [&](std::string_view nome, std::string_view valore, double v) {
        const auto intero = static_cast<std::int32_t>(std::clamp(v, 1.0, double{paginaFinale}));
        if (nome == "copies") return settings.copie = intero, true;
        if (nome == "first") return settings.prima = intero, true;
        if (nome == "last") return settings.ultima = intero, true;
        if (nome == "destination")
            return settings.destinazione = intero == kPMDestinationPrinter ? kPMDestinationPrinter : kPMDestinationFile,
                   true;
        if (nome == "printer") return settings.stampante = valore, true;
        if (nome == "location") return settings.luogo = valore, true;
        return false;
    });
}

OSStatus PMSessionValidatePageFormat(PMPrintSession, PMPageFormat& format, bool& changed) {
    constexpr double minimo = 10, massimo = 20000;
    const auto entro = [&](double& v, double min, double max, double altrimenti) {
        const double buono = std::isfinite(v) ? std::clamp(v, min, max) : altrimenti;
        changed |= buono != v;
        v = buono;
    };
    changed = false;
    entro(format.larghezza, minimo, massimo, 210);
    entro(format.altezza, minimo, massimo, 297);
    entro(format.sinistra, 0, format.larghezza - minimo, 0);
    entro(format.destra, 0, format.larghezza - format.sinistra - minimo, 0);
    entro(format.sopra, 0, format.altezza - minimo, 0);
    entro(format.sotto, 0, format.altezza - format.sopra - minimo, 0);
    return 0;
}

OSStatus PMSessionValidatePrintSettings(PMPrintSession, PMPrintSettings& settings, bool& changed) {
    const PMPrintSettings prima = settings;
    settings.copie = std::clamp(settings.copie, 1, 999);
    settings.prima = std::clamp(settings.prima, 1, paginaFinale);
    settings.ultima = std::clamp(settings.ultima, settings.prima, paginaFinale);
    changed = prima.copie != settings.copie || prima.prima != settings.prima || prima.ultima != settings.ultima;
    return 0;
}

bool PMSessionHoldToPrinter(PMPrintSession session, const PMPrintSettings& settings, PMPageFormat& format) {
    if (settings.destinazione != kPMDestinationPrinter || !conFinestre()) return false;
    const QPrinterInfo info = stampanteDi(settings);
    if (info.isNull()) return false;
    QPrinter p(info, QPrinter::HighResolution);
    p.setPageLayout(disposizione(format));
    QPageLayout carta = p.pageLayout();
    carta.setUnits(QPageLayout::Millimeter);
    const QMarginsF orlo = carta.minimumMargins();
    const PMPageFormat prima = format;
    format.sinistra = std::max(format.sinistra, orlo.left());
    format.destra = std::max(format.destra, orlo.right());
    format.sopra = std::max(format.sopra, orlo.top());
    format.sotto = std::max(format.sotto, orlo.bottom());
    bool cambiato = false;
    PMSessionValidatePageFormat(session, format, cambiato);
    return prima.sinistra != format.sinistra || prima.destra != format.destra || prima.sopra != format.sopra
           || prima.sotto != format.sotto;
}

// The paper itself is counted in whole points, as the PDF's pages are.
OSStatus PMGetAdjustedPageRect(const PMPageFormat& f, PMRect& rect) {
    const double larga = std::round(f.larghezza * puntiMm), alta = std::round(f.altezza * puntiMm);
    rect.left = std::ceil(f.sinistra * puntiMm);
    rect.top = std::ceil(f.sopra * puntiMm);
    rect.right = std::max(rect.left + 1, std::floor(larga - f.destra * puntiMm));
    rect.bottom = std::max(rect.top + 1, std::floor(alta - f.sotto * puntiMm));
    return 0;
}
OSStatus PMGetCopies(const PMPrintSettings& settings, std::int32_t& copies) {
    copies = settings.copie;
    return 0;
}
OSStatus PMGetFirstPage(const PMPrintSettings& settings, std::int32_t& first) {
    first = settings.prima;
    return 0;
}
OSStatus PMGetLastPage(const PMPrintSettings& settings, std::int32_t& last) {
    last = settings.ultima;
    return 0;
}
OSStatus PMGetDestination(const PMPrintSettings& settings, PMDestinationType& type, std::string& format,
                          std::string& location) {
    type = settings.destinazione;
    format = kPMDocumentFormatPDF;
    location = settings.luogo;
    return 0;
}
OSStatus PMSessionSetDestination(PMPrintSession, PMPrintSettings& settings, PMDestinationType type, std::string_view,
                                 std::string_view location) {
    settings.destinazione = type;
    settings.luogo = location;
    return 0;
}

// --- documents

OSStatus PMSessionBeginDocument(PMPrintSession session, const PMPrintSettings& settings, const PMPageFormat& format,
                                std::string_view jobMacRoman) {
    session->chiudi();
    session->formato = format;
    PMGetAdjustedPageRect(format, session->pagina);
    if (!conFinestre()) return kPMGeneralError;
    if (settings.destinazione == kPMDestinationPrinter && stampanteDi(settings).isNull()) return kPMNoDefaultPrinter;
    if (session->apri(settings, daMac(jobMacRoman))) return 0;
    session->chiudi();
    return kPMGeneralError;
}

OSStatus PMSessionBeginPage(PMPrintSession session) {
    SessioneStampa& s = *session;
    if (!s.foglio) return kPMGeneralError;
    if (!s.pittore) {
        s.pittore = std::make_unique<QPainter>();
        if (!s.pittore->begin(s.foglio.get())) return kPMGeneralError;
    } else if (!s.foglio->newPage()) {
        return kPMGeneralError;
    }
    ++s.pagine;
    s.pittore->save();
    const double punto = s.foglio->logicalDpiX() / 72.0;
    s.pittore->scale(punto / finezzaPagina, punto / finezzaPagina);
    s.pittore->translate(s.pagina.left * finezzaPagina, s.pagina.top * finezzaPagina);
    return 0;
}

OSStatus PMSessionGetGraphicsContext(PMPrintSession session, std::string_view type, Point origine, GrafPtr& port) {
    SessioneStampa& s = *session;
    if (!s.pittore || type != kPMGraphicsContextQuickdraw) return kPMGeneralError;
    const auto unita = [](double punti) { return static_cast<std::int32_t>(std::lround(punti * finezzaPagina)); };
    const Rect pagina{0, 0, unita(s.pagina.bottom - s.pagina.top), unita(s.pagina.right - s.pagina.left)};
    s.porta = std::make_unique<PortaPagina>(*s.pittore, pagina, origine, s.conPerdita);
    port = s.porta.get();
    return 0;
}

OSStatus PMSessionEndPage(PMPrintSession session) {
    session->porta.reset();
    if (session->pittore) session->pittore->restore();
    return 0;
}

OSStatus PMSessionEndDocument(PMPrintSession session) {
    SessioneStampa& s = *session;
    const bool pagine = s.pagine > 0;
    s.porta.reset();
    const bool disegnato = s.pittore && s.pittore->end();
    s.pittore.reset();
    const auto* stampante = dynamic_cast<QPrinter*>(s.foglio.get());
    const bool fallita = stampante != nullptr && stampante->printerState() == QPrinter::Error;
    s.foglio.reset();   // a PDF writer writes its last bytes here
    bool scritto = true;
    if (s.file && pagine) scritto = s.file->commit();
    s.chiudi();
    return !pagine || (disegnato && scritto && !fallita) ? 0 : kPMGeneralError;
}

}   // namespace tessaro
