// A raster with its place into the drawing: where it lies, its pixels, the element, and the sheet's registration when it
// has none.
#include <algorithm>
#include <cmath>
#include <new>

#include "dialogs/Errori.h"
#include "display/Ridisegno.h"
#include "editing/Scelta.h"
#include "exchange/Resoconto.h"
#include "maps/Frasi.h"
#include "maps/Ingresso.h"
#include "maps/Mappe.h"
#include "maps/Prova.h"
#include "maps/RasterLetto.h"
#include "maps/Ricampiona.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Memory.h"
#include "platform/Resources.h"
#include "raster/Immagini.h"
#include "registration/TabellaPunti.h"

namespace tessaro {

namespace {

void guasto(FraseMappe f, const FSSpec& file, const std::string& p0 = {}) {
    MostraGuasto({noErr, Frase(f, p0), Utf8ToMac(file.percorso), -1});
}

gdal::Envelope estensione(const Mondo& m, double w, double h) {
    gdal::Envelope e{HUGE_VAL, -HUGE_VAL, HUGE_VAL, -HUGE_VAL};
    for (const double col : {-0.5, w - 0.5})
        for (const double row : {-0.5, h - 0.5}) {
            double X = 0, Y = 0;
            m.pixel(col, row, X, Y);
            e = {std::min(e.minX, X), std::max(e.maxX, X), std::min(e.minY, Y), std::max(e.maxY, Y)};
        }
    return e;
}

gdal::Envelope estensione(const std::vector<RasterLetto::Punto>& punti) {
    gdal::Envelope e{HUGE_VAL, -HUGE_VAL, HUGE_VAL, -HUGE_VAL};
    for (const RasterLetto::Punto& p : punti)
        e = {std::min(e.minX, p.x), std::max(e.maxX, p.x), std::min(e.minY, p.y), std::max(e.maxY, p.y)};
    return e;
}

// A JPEG keeps its own bytes where it comes in as it is.
bool jpegIntero(const FSSpec& file, const PostoFoglio& p, Immagine& im) {
    std::string motivo;
    const std::size_t punto = file.percorso.rfind('.');
    const std::string suffisso = punto == std::string::npos ? std::string() : file.percorso.substr(punto);
    if (!p.diritto || (suffisso != ".jpg" && suffisso != ".jpeg" && suffisso != ".JPG")) return false;
    return DecodeImageFile(file, im, motivo) && !im.jpegBytes.empty();
}

class Entrata {
public:
    Entrata(const Gdal& gdal, const FSSpec& f) : file(f), raster(gdal) {}

    void esegui() {
        std::string sistema;
        if (!raster.apri(file)) return guasto(FraseMappe::nonApre, file, DettoDaGdal());
        const bool conPosto = raster.posto(m, sistema);
        const std::vector<RasterLetto::Punto> punti =
            conPosto ? std::vector<RasterLetto::Punto>() : raster.punti(sistema);
        if (!conPosto && punti.empty()) return guasto(FraseMappe::rasterSenzaPosto, file);
        const double pixel = static_cast<double>(raster.width()) * raster.height();
        // As pixels, and packed beside them.
        if (!(pixel * 8 < static_cast<double>(FreeMemory())) || !(pixel < 2e9))
            return guasto(FraseMappe::rasterGrande, file, ConMigliaia(static_cast<std::int64_t>(pixel)));
        if (!(conPosto ? PreparaIngresso(sistema, estensione(m, raster.width(), raster.height()), file.nome, in)
                       : PreparaVia(sistema, estensione(punti), file.nome, in)))
            return;
        if (indElem >= maxElementi) return guasto(FraseMappe::nonApre, file, TestoDi(TestoScambio::pieno));
        CominciaAggiunta();
        NessunaSelezione();
        const Registrazione prima;
        EseguiIngresso(in);
        if (conPosto ? entra() : entraPerPunti(punti)) return;
        prima.rimetti();
    }

private:
    // What a raster that does not come in after all leaves as it was.
    class Registrazione {
        elemento uno = Elem(1), due = Elem(2);
        SistemiDisegno sistemi = SistemiDelDisegno();
        std::int16_t unita = UnitaMCorrente;
        double decimi = decimiUnita, scala = Scaladis;

    public:
        void rimetti() const {
            Elem(1) = uno;
            Elem(2) = due;
            PoniSistemi(sistemi);
            UnitaMCorrente = unita;
            decimiUnita = decimi;
            Scaladis = scala;
            RimettiIngresso();
        }
    };

    bool entra() {
        PostoFoglio p;
        if (!PostoSulFoglio(m, in, raster.width(), raster.height(), p)) {
            guasto(FraseMappe::rasterSenzaPosto, file);
            return false;
        }
        if (!entraImmagine(p)) return false;
        racconta(p, {});
        return true;
    }

    // The sheet shows it at 300 pixels to the inch, or as large as it is; its points go behind those of the table.
    bool entraPerPunti(const std::vector<RasterLetto::Punto>& punti) {
        constexpr double decimiPixel = DecPollice / 300;
        const double w = raster.width(), h = raster.height(), k = std::min({decimiPixel, XFDecimi / w, YFDecimi / h});
        const PostoFoglio p{0, 0, w * k, h * k, true};
        if (!entraImmagine(p)) return false;
        TabellaPunti t = LaTabella();
        std::size_t presi = 0;
        for (const RasterLetto::Punto& q : punti) {
            RigaPunto r;
            double X = q.x, Y = q.y;
            if (t.righe.size() >= massimoPuntiTabella || (in.via.pronto() && !in.via.avanti(X, Y))) continue;
            r.nome = Utf8ToMac(q.nome).substr(0, massimoNomePunto);
            r.foglio = {q.u * k, q.v * k};
            r.reale = {X, Y};
            r.conFoglio = r.conReale = true;
            t.righe.push_back(std::move(r));
            ++presi;
        }
        PoniTabella(t);
        racconta(p, Frase(FraseMappe::puntiDelRaster, std::to_string(presi), std::to_string(punti.size() - presi)));
        return true;
    }

    bool entraImmagine(const PostoFoglio& p) {
        SetCursor(ClockCursor);
        ProgressOpen(Frase(FraseMappe::avanzaLettura));
        bool memoria = true, fatta = false;
        try {
            fatta = pixel(p);
        } catch (const std::bad_alloc&) { memoria = false; }
        ProgressClose();
        SetCursor(arrowCursor);
        if (!memoria) AvvisoMemoria();
        if (!fatta) return false;
        PoniAnnulla(aAggiunta);
        InvalFinestra();
        return true;
    }

    bool pixel(const PostoFoglio& p) {
        Immagine im;
        bool fermato = false;
        if (!jpegIntero(file, p, im)) {
            parte = !raster.leggi(im, fermato);
            if (fermato) return false;
        }
        if (!p.diritto) {
            Immagine nuova;
            if (!Ricampiona(im, m, in, p, nuova, fermato)) {
                if (!fermato) AvvisoMemoria();
                return false;
            }
            im = std::move(nuova);
        }
        im.dpiX = im.width * DecPollice / p.larghezza;
        im.dpiY = im.height * DecPollice / p.altezza;
        std::string pict = PictDaImmagine(im);
        if (pict.empty()) throw std::bad_alloc();
        return MemorizzaPict(std::move(pict), p.x, p.y, p.larghezza, p.altezza);
    }

    void racconta(const PostoFoglio& p, const std::string& altro) const {
        ElementiContati una;
        una.aggiungi(tPict);
        Resoconto r;
        if (const std::string s = NotaTrasformati(in); !s.empty()) r.nota(s);
        if (!altro.empty()) r.nota(altro);
        if (!p.diritto) r.nota(Frase(FraseMappe::rasterGirato));
        if (parte) r.nota(Frase(FraseMappe::interrotta, DettoDaGdal()));
        r.mostra(una, 0, false);
    }

    const FSSpec& file;
    RasterLetto raster;
    Mondo m;
    Ingresso in;
    bool parte = false;   // some of it could not be read
};

}   // namespace

void LeggiRaster(const FSSpec& file) {
    const Gdal* const g = GdalOppureMessaggio();
    if (g == nullptr) return;
    if (!ProvaFile(file, Prova::raster)) return;
    const GdalMuto muto(*g);
    Entrata(*g, file).esegui();
}

bool MondoDelRaster(const FSSpec& file, Mondo& m, std::string& sistema) {
    const Gdal* const g = CaricaGdal();
    if (g == nullptr || !ProvaFile(file, Prova::testaRaster)) return false;
    const GdalMuto muto(*g);
    RasterLetto raster(*g);
    if (!raster.apri(file) || !raster.posto(m, sistema)) return false;
    SistemaTrovato s;
    if (!sistema.empty() && TrovaSistema(sistema, s) && s.geografico) return false;
    const std::string& nostro = SistemaDelDisegno();
    return sistema.empty() || nostro.empty() || StessoSistema(sistema, nostro);
}

}   // namespace tessaro
