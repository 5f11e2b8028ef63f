// Drags over the drawing's window: what they hold in the program's own terms, the highlight, and the drops that wait to be
// read.
#include "platform/Drags.h"

#include <QCoreApplication>
#include <QDrag>
#include <QDropEvent>
#include <QFile>
#include <QImageReader>
#include <QMimeData>
#include <QPainter>
#include <QTemporaryDir>
#include <QUrl>

#include <algorithm>
#include <map>
#include <utility>

#include "platform/qt/DatiNostri.h"
#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr auto saporeProprio = "application/x-tessaro3d-selection";
constexpr const char* saporiPict[] = {"image/x-pict", "image/pict", "application/x-pict", "com.apple.pict"};

TrackingHandler giudice = nullptr;
Rect evidenza;
std::map<std::uint32_t, VociTrascinate> lasciate;
std::uint32_t ultimaLasciata = 0;

// Tells a drag of this very process from one of another window of the program, which is a drop like any other.
std::string nostroSegno() { return "TS3D " + std::to_string(QCoreApplication::applicationPid()); }

// The bytes are fetched with the drop alone: until then the other program need not make them.
VociTrascinate vociDi(const QMimeData& dati, bool conBytes) {
    VociTrascinate voci;
    VoceTrascinata v;
    v.interna = dati.data(QLatin1String(saporeProprio)).toStdString() == nostroSegno();
    for (const char* sapore : saporiPict) {
        if (v.pict || !dati.hasFormat(QLatin1String(sapore))) continue;
        v.pict = true;
        if (conBytes) v.dati = dati.data(QLatin1String(sapore)).toStdString();
    }
    const QStringList percorsi = percorsiLocali(&dati);
    v.testo = dati.hasText() && percorsi.isEmpty();
    if (v.interna || v.pict || v.testo) return {std::move(v)};
    for (const QString& p : percorsi) {
        v.percorso = p.toStdString();
        voci.push_back(v);
    }
    // Something that is none of these: an item without a flavour we know.
    if (voci.empty()) voci.push_back({});
    return voci;
}

void mostraEvidenza() {
    if (QWidget* f = foglio()) f->update();
}

}   // namespace

void InstallTrackingHandler(TrackingHandler handler) { giudice = handler; }

void ShowDragHilite(const Rect& r) {
    evidenza = r;
    mostraEvidenza();
}
void HideDragHilite() {
    if (EmptyRect(evidenza)) return;
    evidenza = {};
    mostraEvidenza();
}

bool traccia(FaseDrag fase, const QMimeData* dati) {
    return giudice != nullptr && giudice(fase, dati == nullptr ? VociTrascinate{} : vociDi(*dati, false));
}

void disegnaEvidenza(QPainter& p, const QWidget& foglio) {
    if (EmptyRect(evidenza)) return;
    constexpr int spessoreLinea = 3;
    p.setPen(
        QPen(foglio.palette().color(QPalette::Highlight), spessoreLinea, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRect(evidenza.left, evidenza.top, evidenza.right - evidenza.left, evidenza.bottom - evidenza.top)
                   .adjusted(1, 1, -2, -2));
}

void accodaLasciate(const QMimeData* dati, Point where, std::uint16_t modifiers) {
    lasciate[++ultimaLasciata] = vociDi(*dati, true);
    EventRecord r;
    r.what = EventKind::drop;
    r.message = ultimaLasciata;
    r.where = where;
    r.modifiers = modifiers;
    accoda(std::move(r));
}

VociTrascinate GetDragItems(const EventRecord& drop) {
    const auto trovata = lasciate.find(drop.message);
    if (drop.message != 0 && trovata != lasciate.end()) {
        VociTrascinate voci = std::move(trovata->second);
        lasciate.erase(trovata);
        return voci;
    }
    VociTrascinate voci;
    for (const std::string& p : drop.percorsi) {
        VoceTrascinata v;
        v.percorso = p;
        voci.push_back(std::move(v));
    }
    return voci;
}

bool PrendiCopia(QDropEvent& e) {
    for (const Qt::DropAction azione : {Qt::CopyAction, Qt::LinkAction}) {
        if (!e.possibleActions().testFlag(azione)) continue;
        e.setDropAction(azione);
        e.accept();
        return true;
    }
    e.ignore();
    return false;
}

bool TrackDrag(const Sapori& forme) {
    QWidget* da = foglio();
    if (copione() != nullptr || da == nullptr || forme.empty()) return false;
    Sapori tutte = forme;
    tutte.push_back({saporeProprio, nostroSegno});
    const auto png = std::find_if(forme.begin(), forme.end(), [](const Sapore& s) { return s.mime == "image/png"; });
    // The folder goes with the program: who took the file has copied it by then.
    static QTemporaryDir cartella;
    if (png != forme.end() && cartella.isValid())
        tutte.push_back({"text/uri-list", [fai = png->fai, nome = daUtf8(testo("drag.file"))] {
                             QFile f(cartella.filePath(nome));
                             const std::string bytes = fai();
                             const bool scritto = f.open(QIODevice::WriteOnly)
                                                  && f.write(bytes.data(), static_cast<qint64>(bytes.size())) >= 0;
                             const QByteArray luogo = QUrl::fromLocalFile(f.fileName()).toEncoded();
                             return scritto ? luogo.toStdString() + "\r\n" : std::string();
                         }});
    const Annidato annidato;
    auto* trascinata = new QDrag(da);   // the toolkit deletes it
    trascinata->setMimeData(new DatiNostri(std::move(tutte)));
    const bool presa = trascinata->exec(Qt::CopyAction) == Qt::CopyAction;
    if (Finestra* f = finestraAperta()) f->foglio->lascia();   // its release went to the drag
    return presa;
}

bool FileImmagine(std::string_view percorso) {
    const std::size_t punto = percorso.rfind('.');
    if (punto == std::string_view::npos) return false;
    const QByteArray suffisso =
        QByteArray(percorso.data() + punto + 1, static_cast<qsizetype>(percorso.size() - punto - 1)).toLower();
    static const QList<QByteArray> proprie{"pict", "pct", "pic"};
    return proprie.contains(suffisso) || QImageReader::supportedImageFormats().contains(suffisso);
}

}   // namespace tessaro
