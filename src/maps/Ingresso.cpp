// The decisions of an import of maps, and the sheet that is laid over one.
#include "maps/Ingresso.h"

#include <algorithm>
#include <cmath>

#include "dialogs/Errori.h"
#include "editing/AttacchiCambiati.h"
#include "exchange/Resoconto.h"
#include "maps/Frasi.h"
#include "model/Archivio.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t si = 1;

bool registrato() { return Elem(2).att.coordReali != 0; }
bool vuoto() { return indElem <= 2; }

bool finita(const gdal::Envelope& e) {
    return std::isfinite(e.minX) && std::isfinite(e.maxX) && std::isfinite(e.minY) && std::isfinite(e.maxY)
           && e.minX <= e.maxX && e.minY <= e.maxY;
}

bool inGradi(const gdal::Envelope& e) { return e.minX >= -361 && e.maxX <= 361 && e.minY >= -91 && e.maxY <= 91; }

// The box round the extent's own edges and middle, carried over.
gdal::Envelope portata(FraSistemi& via, const gdal::Envelope& e) {
    constexpr int passi = 20;
    gdal::Envelope r{HUGE_VAL, -HUGE_VAL, HUGE_VAL, -HUGE_VAL};
    for (int i = 0; i <= passi; ++i)
        for (int j = 0; j <= passi; ++j) {
            double x = e.minX + (e.maxX - e.minX) * i / passi, y = e.minY + (e.maxY - e.minY) * j / passi;
            if (!via.avanti(x, y)) continue;
            r = {std::min(r.minX, x), std::max(r.maxX, x), std::min(r.minY, y), std::max(r.maxY, y)};
        }
    return r;
}

// Does the extent lie on the sheet at the present scale?
bool sulFoglio(const gdal::Envelope& e) {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    RealToDigi(e.minX, e.minY, x1, y1);
    RealToDigi(e.maxX, e.maxY, x2, y2);
    return std::min(x1, x2) >= 0 && std::max(x1, x2) <= XFDecimi && std::min(y1, y2) >= 0
           && std::max(y1, y2) <= YFDecimi;
}

// The next round denominator at which an extent of that size (real units) lies on the sheet with a margin.
double scalaTonda(double largo, double alto) {
    constexpr double margine = 0.92;
    const double perUnita = std::max(largo / (XFDecimi * margine), alto / (YFDecimi * margine));
    const double scala = std::max(perUnita * decimiUnita, 1e-6);
    const double decina = std::pow(10, std::floor(std::log10(scala)));
    for (const double m : {1.0, 2.0, 2.5, 5.0})
        if (scala <= m * decina) return m * decina;
    return 10 * decina;
}

std::string misura(double v) {
    PStr255 s;
    RToStr(v, v < 100 ? 2 : 0, s);
    return s.str();
}

bool chiediFoglio(const gdal::Envelope& e, const std::string& nome) {
    constexpr std::int16_t avviso = 9352;
    const double scala = scalaTonda(e.maxX - e.minX, e.maxY - e.minY);
    ParamText(nome, misura(e.maxX - e.minX), misura(e.maxY - e.minY), misura(scala));
    return CautionAlert(avviso) == si;
}

bool chiediFuso(const std::string& nome, const std::string& fuso) {
    constexpr std::int16_t avviso = 9351;
    SistemaTrovato s;
    TrovaSistema(fuso, s);
    ParamText(nome, Utf8ToMac(s.codice + ' ' + s.nome), {}, {});
    return CautionAlert(avviso) == si;
}

std::string nomeDi(const std::string& sistema) {
    SistemaTrovato s;
    if (!TrovaSistema(sistema, s)) return Utf8ToMac(sistema.substr(0, 60));
    return Utf8ToMac(s.codice.empty() ? s.nome : s.codice);
}

bool rifiuta(const std::string& perche, const std::string& nome) {
    MostraGuasto({noErr, perche, nome, -1});
    return false;
}

bool apriVia(Ingresso& in, const std::string& da, const std::string& a, const std::string& nome) {
    std::string motivo;
    in.da = da;
    in.a = a;
    return in.via.prepara(da, a, motivo) || rifiuta(Frase(FraseMappe::sistemaNonTrasf, motivo), nome);
}

}   // namespace

// Between the file's system and the drawing's.
bool PreparaVia(const std::string& delFile, const gdal::Envelope& e, const std::string& nome, Ingresso& in) {
    std::string sistema = delFile;
    SistemaTrovato trovato;
    const bool noto = !sistema.empty() && TrovaSistema(sistema, trovato);
    // Some formats stand for longitude and latitude when they name nothing.
    if (noto && trovato.geografico && !inGradi(e)) sistema.clear();
    const std::string& nostro = SistemaDelDisegno();
    if (sistema.empty()) {
        if (!nostro.empty()) in.nota = Frase(FraseMappe::sistemaIgnoto);
        return true;
    }
    if (!nostro.empty()) {
        if (StessoSistema(sistema, nostro)) return true;
        return apriVia(in, sistema, nostro, nome);
    }
    const bool libero = vuoto() && !registrato();
    if (noto && trovato.geografico) {
        if (!libero) return rifiuta(Frase(FraseMappe::coordGeografiche), nome);
        const std::string fuso = FusoUTM((e.minX + e.maxX) / 2, (e.minY + e.maxY) / 2);
        if (!chiediFuso(nome, fuso)) return false;
        in.prende = fuso;
        return apriVia(in, sistema, fuso, nome);
    }
    if (libero)
        in.prende = sistema;
    else
        in.nota = Frase(FraseMappe::coordinateComeSono, nomeDi(sistema));
    return true;
}

bool PreparaIngresso(const std::string& sistema, const gdal::Envelope& estensione, const std::string& nomeFile,
                     Ingresso& in) {
    const bool nota = finita(estensione);
    const gdal::Envelope e = nota ? estensione : gdal::Envelope{HUGE_VAL, HUGE_VAL, HUGE_VAL, HUGE_VAL};
    if (!PreparaVia(sistema, e, nomeFile, in)) return false;
    in.dove = nota && in.via.pronto() ? portata(in.via, e) : e;
    if (!nota || !finita(in.dove)) return true;
    if (!vuoto() || registrato() || (in.prende.empty() && sulFoglio(in.dove))) return true;
    in.stende = chiediFoglio(in.dove, nomeFile);
    return in.stende;
}

void EseguiIngresso(const Ingresso& in) {
    constexpr std::int16_t metri = 2;
    constexpr double decimiPerMetro = 10000, passo = 1000;   // sheet units between the two points
    if (!in.prende.empty()) {
        SistemiDisegno s = SistemiDelDisegno();
        s.disegno = in.prende;
        PoniSistemi(s);
        UnitaMCorrente = metri;
        decimiUnita = decimiPerMetro;
    }
    if (!in.stende) return;
    const double perUnita = scalaTonda(in.dove.maxX - in.dove.minX, in.dove.maxY - in.dove.minY) / decimiUnita;
    // The sheet's lower left corner stands on a whole centimetre of paper.
    const auto tondo = [&](double v) { return std::floor(v / (perUnita * 100)) * perUnita * 100; };
    const double X = tondo((in.dove.minX + in.dove.maxX) / 2 - perUnita * XFDecimi / 2);
    const double Y = tondo((in.dove.minY + in.dove.maxY) / 2 - perUnita * YFDecimi / 2);
    AssegnaAttacco(1, 0, YFDecimi);
    AssegnaAttacco(2, passo, YFDecimi);
    auto& secondo = Elem(2).att;
    secondo.x1 = X;
    secondo.y1 = Y;
    secondo.x2 = X + passo * perUnita;
    secondo.y2 = Y;
    secondo.coordReali = 1;
    AttacchiCambiati();
    CalcolaRapporti();
}

void RimettiIngresso() {
    AttacchiCambiati();
    CalcolaRapporti();
}

std::string NotaTrasformati(const Ingresso& in) {
    std::string nota = in.nota;
    const auto unisci = [&nota](const std::string& s) { nota += (nota.empty() ? "" : " ") + s; };
    if (!in.prende.empty()) unisci(Frase(FraseMappe::sistemaPreso, nomeDi(in.prende)));
    if (!in.via.pronto()) return nota;
    const double m = in.via.accuratezza();
    PStr255 cifre;
    RToStr(m, 2, cifre);
    const std::string quanto =
        m < 0 ? Frase(FraseMappe::accuratezzaIgnota) : Frase(FraseMappe::accuratezza, cifre.view());
    unisci(Frase(FraseMappe::trasformati, nomeDi(in.da), nomeDi(in.a), quanto));
    return nota;
}

}   // namespace tessaro
